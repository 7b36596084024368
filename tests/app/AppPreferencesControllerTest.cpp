// The user defaults at the start of the program, and the commands that open something.

#include "app/AppPreferencesController.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <ostream>

#include "tests/support/ApplicationTest.h"
#include "ui/UserDefaults.h"

namespace {

/// What a start of the program finds in the store, and leaves there.
struct StartCase {
    const char* name;
    QByteArray before;
    QByteArray after;
};
void PrintTo(const StartCase& row, std::ostream* out) { *out << row.before.toStdString(); }
class Start : public testing::TestWithParam<StartCase> {};

TEST_P(Start, bringsTheDefaultsInOrder) {
    const SettingsFolder settings;
    settings.write("[General]\n" + GetParam().before);
    {
        DocumentController documents;
        AppPreferencesController controller(documents);
        controller.awakeFromNib();
    }
    EXPECT_EQ(settings.text().toStdString(), ("[General]\n" + GetParam().after).toStdString());
}

constexpr auto firstStart =
    "TXAppRevision=9\nTXExponentsCharacter=e\nTXPreferenceRevision=1\n"
    "TXThousandsSeparatorCharacter=\",\"\nTXUsesRadiansForNewDocuments=true\n";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Revisions, Start, testing::Values(
    StartCase{"FirstStart",             "", firstStart},
    StartCase{"RevisionZeroIsAbsent",   "TXPreferenceRevision=0\nTXExponentsCharacter=E\nTXThousandsSeparatorCharacter=' '\n"
                                        "TXUsesRadiansForNewDocuments=false\n", firstStart},
    StartCase{"RevisionIsNoNumber",     "TXPreferenceRevision=one\nTXExponentsCharacter=E\n", firstStart},
    StartCase{"GoodValuesStay",         "TXAppRevision=3\nTXExponentsCharacter=E\nTXPreferenceRevision=1\n"
                                        "TXThousandsSeparatorCharacter=\" \"\nTXUsesRadiansForNewDocuments=false\n",
                                        "TXAppRevision=9\nTXExponentsCharacter=E\nTXPreferenceRevision=1\n"
                                        "TXThousandsSeparatorCharacter=\" \"\nTXUsesRadiansForNewDocuments=false\n"},
    StartCase{"ApostropheStays",        "TXExponentsCharacter=e\nTXPreferenceRevision=1\nTXThousandsSeparatorCharacter='\n",
                                        "TXAppRevision=9\nTXExponentsCharacter=e\nTXPreferenceRevision=1\n"
                                        "TXThousandsSeparatorCharacter='\n"},
    StartCase{"LaterRevisionIsSetBack", "TXAppRevision=12\nTXExponentsCharacter=e\nTXPreferenceRevision=5\n"
                                        "TXThousandsSeparatorCharacter=\",\"\n",
                                        "TXAppRevision=9\nTXExponentsCharacter=e\nTXPreferenceRevision=1\n"
                                        "TXThousandsSeparatorCharacter=\",\"\n"},
    StartCase{"NegativeRevisionExists", "TXExponentsCharacter=E\nTXPreferenceRevision=-1\nTXThousandsSeparatorCharacter=\",\"\n",
                                        "TXAppRevision=9\nTXExponentsCharacter=E\nTXPreferenceRevision=1\n"
                                        "TXThousandsSeparatorCharacter=\",\"\n"}
), [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(Repairs, Start, testing::Values(
    StartCase{"OtherSeparator",         "TXExponentsCharacter=e\nTXPreferenceRevision=1\nTXThousandsSeparatorCharacter=.\n",
                                        "TXAppRevision=9\nTXExponentsCharacter=e\nTXPreferenceRevision=1\n"
                                        "TXThousandsSeparatorCharacter=\",\"\n"},
    StartCase{"NoSeparator",            "TXExponentsCharacter=e\nTXPreferenceRevision=1\n",
                                        "TXAppRevision=9\nTXExponentsCharacter=e\nTXPreferenceRevision=1\n"
                                        "TXThousandsSeparatorCharacter=\",\"\n"},
    StartCase{"SeparatorIsAList",       "TXExponentsCharacter=e\nTXPreferenceRevision=1\nTXThousandsSeparatorCharacter=a, b\n",
                                        "TXAppRevision=9\nTXExponentsCharacter=e\nTXPreferenceRevision=1\n"
                                        "TXThousandsSeparatorCharacter=\",\"\n"},
    // The bad exponent character stays, and the separator becomes "e": so it is meant.
    StartCase{"OtherExponent",          "TXExponentsCharacter=x\nTXPreferenceRevision=1\nTXThousandsSeparatorCharacter='\n",
                                        "TXAppRevision=9\nTXExponentsCharacter=x\nTXPreferenceRevision=1\n"
                                        "TXThousandsSeparatorCharacter=e\n"},
    StartCase{"NoExponent",             "TXPreferenceRevision=1\nTXThousandsSeparatorCharacter='\n",
                                        "TXAppRevision=9\nTXPreferenceRevision=1\nTXThousandsSeparatorCharacter=e\n"},
    StartCase{"BothAreBad",             "TXExponentsCharacter=x\nTXPreferenceRevision=1\nTXThousandsSeparatorCharacter=e\n",
                                        "TXAppRevision=9\nTXExponentsCharacter=x\nTXPreferenceRevision=1\n"
                                        "TXThousandsSeparatorCharacter=e\n"},
    StartCase{"ABadAngleUnitStays",     "TXExponentsCharacter=e\nTXPreferenceRevision=1\nTXThousandsSeparatorCharacter='\n"
                                        "TXUsesRadiansForNewDocuments=banana\n",
                                        "TXAppRevision=9\nTXExponentsCharacter=e\nTXPreferenceRevision=1\n"
                                        "TXThousandsSeparatorCharacter='\nTXUsesRadiansForNewDocuments=banana\n"}
), [](const auto& row) { return row.param.name; });
// clang-format on

struct LocaleCase {
    const char* name;
    QLocale locale;
    const char* separator;
};
void PrintTo(const LocaleCase& row, std::ostream* out) { *out << row.locale.name().toStdString(); }
class FirstStartInLocale : public testing::TestWithParam<LocaleCase> {};

TEST_P(FirstStartInLocale, storesASeparatorThatDocumentsKnow) {
    const SettingsFolder settings;
    QLocale::setDefault(GetParam().locale);
    DocumentController documents;
    AppPreferencesController(documents).awakeFromNib();
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(UserDefaults().stringForKey(TXUserDefaultsKey::thousandsSeparatorCharacter),
              QString(GetParam().separator));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Locales, FirstStartInLocale, testing::Values(
    LocaleCase{"Comma",            QLocale(QLocale::English, QLocale::UnitedStates),  ","},
    LocaleCase{"FullStop",         QLocale(QLocale::German, QLocale::Germany),        ","},
    LocaleCase{"NarrowBlank",      QLocale(QLocale::French, QLocale::France),         ","},
    LocaleCase{"CurlyApostrophe",  QLocale(QLocale::German, QLocale::Switzerland),    ","}
), [](const auto& row) { return row.param.name; });
// clang-format on

TEST(AppPreferencesController, takesOverTheSeparatorsThatDocumentsKnow) {
    const auto separatorFor = &AppPreferencesController::separatorForGroupSeparator;
    EXPECT_EQ(separatorFor(","), ",");
    EXPECT_EQ(separatorFor(" "), " ");
    EXPECT_EQ(separatorFor("'"), "'");
    EXPECT_EQ(separatorFor("."), ",");
    EXPECT_EQ(separatorFor(QStringLiteral(u"\u00A0")), ",");
    EXPECT_EQ(separatorFor(""), ",");
    EXPECT_EQ(separatorFor(",,"), ",");
}

TEST(AppPreferencesController, isTheProgramsOneWhenItWakes) {
    const SettingsFolder settings;
    DocumentController documents;
    {
        AppPreferencesController controller(documents);
        EXPECT_EQ(appPreferencesGlobalController, nullptr);
        EXPECT_EQ(controller.currentPreferencRevisionNumber(), 0);
        controller.awakeFromNib();
        EXPECT_EQ(appPreferencesGlobalController, &controller);
        EXPECT_EQ(controller.currentPreferencRevisionNumber(), 1);
        EXPECT_EQ(controller.currentAppRevisionNumber(), 9);
    }
    EXPECT_EQ(appPreferencesGlobalController, nullptr);
}

/// A place for the user defaults that nobody can write to, not even the administrator.
struct ClosedStoreCase {
    const char* name;
    void (*close)(const SettingsFolder& settings);
};
void PrintTo(const ClosedStoreCase& row, std::ostream* out) { *out << row.name; }
class ClosedStore : public testing::TestWithParam<ClosedStoreCase> {};

/// The platform without a display tells what it cannot do with windows.
QStringList withoutRemarksOfThePlatform(const std::string& errors) {
    const QStringList lines = QString::fromStdString(errors).split(u'\n', Qt::SkipEmptyParts);
    return lines.filter(QRegularExpression("^(?!This plugin does not support )"));
}

bool canBeWritten() {
    QSettings store;
    store.setValue("interface/probe", 1);
    store.sync();
    return store.status() == QSettings::NoError;
}

TEST_P(ClosedStore, stopsNothing) {
    const SettingsFolder settings;
    GetParam().close(settings);
    testing::internal::CaptureStderr();
    Application application;
    application.start();
    application.preferences().ShowPreferencePanel();
    QComboBox* const box = application.preferences().preferenceController()->thousandsSeparatorsBox();
    EXPECT_EQ(box->currentIndex(), 0);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_End);
    // What was chosen holds as long as the program runs.
    for (MyDocument* document : {application.documents().activeDocument(), &application.documents().newDocument()}) {
        EXPECT_EQ(document->documentNumberFormatterSettings().thousandsCharacter(), u"'");
    }
    EXPECT_EQ(UserDefaults().stringForKey(TXUserDefaultsKey::exponentsCharacter), "e");
    application.documents().closeAll();
    EXPECT_EQ(withoutRemarksOfThePlatform(testing::internal::GetCapturedStderr()), QStringList());
    EXPECT_FALSE(canBeWritten());
}

void putStoreInto(const QString& folder) { QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder); }

// clang-format off
INSTANTIATE_TEST_SUITE_P(Places, ClosedStore, testing::Values(
    ClosedStoreCase{"AFolderInItsPlace", [](const SettingsFolder& settings) { QDir().mkpath(settings.filePath()); }},
    ClosedStoreCase{"BelowAFile",        [](const SettingsFolder& settings) { settings.write("x"); putStoreInto(settings.filePath()); }},
    ClosedStoreCase{"NoFolderCanBeMade", [](const SettingsFolder& /*settings*/) { putStoreInto("/proc"); }},
    ClosedStoreCase{"AFileToReadOnly",   [](const SettingsFolder& settings) { QFile::link("/proc/version", settings.filePath()); }}
), [](const auto& row) { return row.param.name; });
// clang-format on

using AppPreferences = ApplicationTest;

TEST_F(AppPreferences, makesThePreferencesOnceAndShowsThemAgain) {
    AppPreferencesController& preferences = application.preferences();
    EXPECT_EQ(preferences.preferenceController(), nullptr);
    preferences.ShowPreferencePanel();
    PreferenceController* const controller = preferences.preferenceController();
    ASSERT_NE(controller, nullptr);
    EXPECT_TRUE(controller->window()->isVisible());
    controller->window()->close();
    preferences.anotherShowPrefPanel();
    EXPECT_EQ(preferences.preferenceController(), controller);
    EXPECT_TRUE(controller->window()->isVisible());
}

struct HelpCase {
    const char* name;
    void (AppPreferencesController::*open)();
    QString address;  ///< Of a file: relative to the bundle.
};
void PrintTo(const HelpCase& row, std::ostream* out) { *out << row.address.toStdString(); }
class HelpMenuCommand : public AppPreferences, public testing::WithParamInterface<HelpCase> {};

QUrl addressOf(const HelpCase& row) {
    const bool isPage = row.address.startsWith("https:");
    return isPage ? QUrl(row.address) : QUrl::fromLocalFile(bundlePath() + row.address);
}

TEST_P(HelpMenuCommand, opensItsAddress) {
    openDocument();
    const OpenedAddresses opened;
    (application.preferences().*GetParam().open)();
    EXPECT_EQ(opened.addresses(), QList<QUrl>{addressOf(GetParam())});
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_P(HelpMenuCommand, saysWhenTheAddressCannotBeOpened) {
    MyDocument& document = openDocument();
    const OpenedAddresses opened(false);
    (application.preferences().*GetParam().open)();
    auto* const alert = document.documentWindow()->findChild<QMessageBox*>("cannotOpenAlert");
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->windowModality(), Qt::WindowModal);
    const QUrl address = addressOf(GetParam());
    EXPECT_EQ(alert->text(),
              address.isLocalFile() ? "The user guide could not be opened." : "The web page could not be opened.");
    EXPECT_EQ(alert->informativeText(), address.isLocalFile() ? address.toLocalFile() : address.toString());
    const auto* shown = alert->findChild<QLabel*>("qt_msgbox_informativelabel");
    ASSERT_NE(shown, nullptr);
    EXPECT_TRUE(shown->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    EXPECT_TRUE(shown->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
    QTest::keyClick(alert, Qt::Key_Escape);
    EXPECT_FALSE(alert->isVisible());
}

TEST_P(HelpMenuCommand, saysSoInFrontOfTheMiniWindowWhileThatIsInUse) {
    MyDocument& document = openDocument();
    document.setIsSmallWindowShown(true);
    const OpenedAddresses opened(false);
    (application.preferences().*GetParam().open)();
    auto* const alert = document.miniWindow()->findChild<QMessageBox*>("cannotOpenAlert");
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->parentWidget(), document.miniWindow());
    EXPECT_TRUE(alert->button(QMessageBox::Ok)->icon().isNull());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Targets, HelpMenuCommand, testing::Values(
    HelpCase{"Feedback",      &AppPreferencesController::openFeedbackURL,   "https://tallix.example/tallixapp/index.php?section=feedback"},
    HelpCase{"BugReport",     &AppPreferencesController::openBugReportURL,  "https://tallix.example/tallixapp/index.php?section=feedback"},
    HelpCase{"Screencasts",   &AppPreferencesController::openScreencastURL, "https://tallix.example/tallixapp/index.php?section=screencasts"},
    HelpCase{"UsersGuide",    &AppPreferencesController::openUsersGuide,    "/Contents/Resources/TALLIX User Guide.pdf"},
    HelpCase{"ReleaseNotes",  &AppPreferencesController::openReleaseNotes,  "/Contents/Resources/TALLIX User Guide.pdf"}
), [](const auto& row) { return row.param.name; });
// clang-format on

TEST_F(AppPreferences, opensNothingWithoutADocumentButStillSaysSo) {
    const OpenedAddresses opened(false);
    application.preferences().openFeedbackURL();
    QWidget* const alert = QApplication::activeModalWidget();
    ASSERT_NE(qobject_cast<QMessageBox*>(alert), nullptr);
    alert->close();
    application.preferences().showGreekLettersPanel();  // belongs to no document, so there is none
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(Workspace, findsTheBundleBesideTheFolderOfTheProgram) {
    EXPECT_EQ(bundlePath(), QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../lib/tallix"));
}

TEST(Workspace, refusesAFileThatIsNotThere) {
    EXPECT_FALSE(openInWorkspace(QUrl::fromLocalFile(bundlePath() + "/no such file.pdf")));
}

TEST(Workspace, saysNothingOfItsOwnWhenNothingCanOpenAPage) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(openInWorkspace(QUrl("no-such-scheme://nowhere")));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
