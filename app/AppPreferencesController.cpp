#include "app/AppPreferencesController.h"

#include <QDir>
#include <QLocale>
#include <QUrl>

#include "app/DocumentController.h"
#include "app/TXGreekLetterPanel.h"
#include "app/messages.h"
#include "app/workspace.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXInspectorController.h"

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
AppPreferencesController* appPreferencesGlobalController = nullptr;

namespace {

constexpr std::int32_t preferenceRevision = 1;
constexpr std::int32_t appRevision = 9;

bool isSeparator(const QString& text) { return text == "," || text == " " || text == "'"; }

bool isExponentCharacter(const QString& text) { return text == "e" || text == "E"; }

}  // namespace

AppPreferencesController::AppPreferencesController(DocumentController& documents) : documents_(documents) {}

AppPreferencesController::~AppPreferencesController() {
    if (appPreferencesGlobalController == this) appPreferencesGlobalController = nullptr;
}

void AppPreferencesController::awakeFromNib() {
    appPreferencesGlobalController = this;
    currentAppRevisionNumber_ = appRevision;
    currentPreferencRevisionNumber_ = preferenceRevision;
    loadPreferences();
}

void AppPreferencesController::loadPreferences() {
    if (defaults_.integerForKey(TXUserDefaultsKey::preferenceRevision) == 0) {
        setDefaultPreferences();
    } else {
        loadExistingPreferences();
    }
    defaults_.setInteger(currentPreferencRevisionNumber_, TXUserDefaultsKey::preferenceRevision);
    defaults_.setInteger(currentAppRevisionNumber_, TXUserDefaultsKey::appRevision);
}

void AppPreferencesController::setDefaultPreferences() {
    defaults_.setBool(true, TXUserDefaultsKey::usesRadiansForNewDocuments);
    defaults_.setString("e", TXUserDefaultsKey::exponentsCharacter);
    defaults_.setString(separatorForGroupSeparator(QLocale().groupSeparator()),
                        TXUserDefaultsKey::thousandsSeparatorCharacter);
}

void AppPreferencesController::loadExistingPreferences() {
    if (!isSeparator(defaults_.stringForKey(TXUserDefaultsKey::thousandsSeparatorCharacter))) {
        defaults_.setString(",", TXUserDefaultsKey::thousandsSeparatorCharacter);
    }
    if (!isExponentCharacter(defaults_.stringForKey(TXUserDefaultsKey::exponentsCharacter))) {
        // The separator's key, and not the exponent's: deliberate.
        defaults_.setString("e", TXUserDefaultsKey::thousandsSeparatorCharacter);
    }
}

QString AppPreferencesController::separatorForGroupSeparator(const QString& groupSeparator) {
    return isSeparator(groupSeparator) ? groupSeparator : QStringLiteral(",");
}

void AppPreferencesController::ShowPreferencePanel() {
    if (preferenceController_ == nullptr) {
        preferenceController_ = std::make_unique<PreferenceController>(documents_);
        connect(preferenceController_.get(), &PreferenceController::colorsChosen, this,
                &AppPreferencesController::colorsChosen);
    }
    preferenceController_->showWindow();
}

void AppPreferencesController::anotherShowPrefPanel() { ShowPreferencePanel(); }

void AppPreferencesController::openFeedbackURL() { openPage("feedback"); }

void AppPreferencesController::openBugReportURL() { openPage("feedback"); }

void AppPreferencesController::openScreencastURL() { openPage("screencasts"); }

void AppPreferencesController::openUsersGuide() {
    const QString path = bundlePath() + "/Contents/Resources/TALLIX User Guide.pdf";
    open(QUrl::fromLocalFile(path), tr("The user guide could not be opened."));
}

void AppPreferencesController::openReleaseNotes() { openUsersGuide(); }

void AppPreferencesController::openPage(const QString& section) {
    open(QUrl(QStringLiteral(TALLIX_WEBSITE "/tallixapp/index.php?section=") + section),
         tr("The web page could not be opened."));
}

void AppPreferencesController::open(const QUrl& address, const QString& complaint) {
    if (openInWorkspace(address)) return;
    const QString shown = address.isLocalFile() ? QDir::toNativeSeparators(address.toLocalFile()) : address.toString();
    showCannotOpen(activeWindow(), complaint, shown);
}

void AppPreferencesController::showGreekLettersPanel() {
    MyDocument* const document = documents_.activeDocument();
    if (document == nullptr) return;
    auto* panel = new TXGreekLetterPanel(*document);
    panel->showWindow();
}

void AppPreferencesController::showInspector() {
    inspectorController = TXInspectorController::init([this] { return activeWindow(); }, this);
    inspectorController->showWindow();
}

QWidget* AppPreferencesController::activeWindow() const {
    const MyDocument* const document = documents_.activeDocument();
    return document != nullptr ? document->activeWindow() : nullptr;
}
