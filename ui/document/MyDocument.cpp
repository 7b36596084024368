#include "ui/document/MyDocument.h"

#include <QKeyEvent>
#include <QSplitterHandle>
#include <QWheelEvent>
#include <algorithm>

#include "ui/UserDefaults.h"
#include "ui/document/EntryAccessible.h"
#include "ui/document/MiniModeAnswerField.h"
#include "ui/document/TXFormulaEnteringMiniModeTextField.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/TXHistoryViewerTextView.h"
#include "ui/document/TXOutlineView.h"
#include "ui/document/TXVariableOutlineViewController.h"
#include "ui/document/TXWindow.h"
#include "ui_MiniWindow.h"
#include "ui_MyDocument.h"

TXVariableArray* globalVariableArray = nullptr;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

namespace {

constexpr double fullSizeOfLiveAnswer = 13.0 / 15.0;  // of the entry's points

QFont fontNamed(const QString& family, double points) {
    QFont font(family);
    font.setStyleHint(QFont::SansSerif);  // where the family is missing
    font.setPointSizeF(points);
    return font;
}

}  // namespace

MyDocument::MyDocument(QObject* parent)
    : QObject(parent), ui_(std::make_unique<Ui::MyDocument>()), miniUi_(std::make_unique<Ui::MiniWindow>()) {
    init();
    loadWindows();
    windowControllerDidLoadNib();
    takeLastLayout();
}

MyDocument::~MyDocument() {
    // What happens to the windows from now on is only that they go.
    documentWindow_->removeEventFilter(this);
    if (miniWindow_ != nullptr) miniWindow_->removeEventFilter(this);
    // They go one after the other, and until then an input method may ask them for the line.
    mainField()->setParentDocument(nullptr);
    variableOutlineView()->setParentDocument(nullptr);
    if (globalVariableArray == &documentEquationController_.variableArray()) globalVariableArray = nullptr;
}

void MyDocument::init() {
    currentWidth_ = 200.0F;
    secondaryCurrentWidth_ = 50.0F;
    documentFont_ = fontNamed(QStringLiteral("Helvetica"), 12.0);
    answerFormatting_ = 0;
    globalVariableArray = &documentEquationController_.variableArray();
    documentNumberFormatter_.setNumberFormatterSettings(&documentNumberFormatterSettings_);
    variableArray_ = &documentEquationController_.variableArray();
}

void MyDocument::loadWindows() {
    QAccessible::installFactory(&EntryAccessible::make);  // Once: it is known by its address.
    documentWindow_ = std::make_unique<TXWindow>();
    ui_->setupUi(documentWindow_.get());
    showTextSize();

    mainField()->awakeFromNib();
    mainField()->setParentDocument(this);
    ui_->secondaryControlledView->setBackgroundRole(QPalette::Base);  // one sheet with the history
    prepareFormatControls();
    prepareSidebar();
    prepareFindBar();
    prepareMiniMode();
    entryOptions_ = EntryOptions::stored();
    prepareEntry(formulaTextView(), fullSizeOfLiveAnswer);
    secondaryControlledView()->setLayoutDirection(Qt::LeftToRight);  // as equations are on a mirrored desktop, too
}

void MyDocument::prepareEntry(TXFormulaEnteringTextView* entry, double sizeOfLiveAnswer) {
    prepareHelp(entry, sizeOfLiveAnswer);
    entry->setParentDocument(this);
    entry->awakeFromNib();
    forgetClearedHistoryWithChangesOf(*entry);
}

void MyDocument::windowControllerDidLoadNib() {
    takeUserDefaults();
    showSidebarForTheFirstTime();
    mainField()->setEditable(false);
    documentWindow_->setDocumentController(this);
    documentWindow_->installEventFilter(this);
    for (QAbstractScrollArea* view :
         std::initializer_list<QAbstractScrollArea*>{mainField(), formulaTextView(), variableOutlineView()}) {
        view->viewport()->installEventFilter(this);
    }
}

void MyDocument::takeUserDefaults() {
    const UserDefaults defaults;
    const bool usesRadians = defaults.boolForKey(TXUserDefaultsKey::usesRadiansForNewDocuments, true);
    const std::u16string exponentCharacter =
        defaults.stringForKey(TXUserDefaultsKey::exponentsCharacter).toStdU16String();
    const std::u16string thousandsCharacter =
        defaults.stringForKey(TXUserDefaultsKey::thousandsSeparatorCharacter).toStdU16String();
    documentEquationController_.setUseRadians(usesRadians);
    refreshAngleUnit();
    if (exponentCharacter == u"E") documentNumberFormatterSettings_.setExponentCharacter(u"E");
    // Whatever else is stored, the settings' own characters stay.
    if (thousandsCharacter == u" " || thousandsCharacter == u"'") {
        documentNumberFormatterSettings_.setThousandsCharacter(thousandsCharacter);
    }
}

void MyDocument::showWindow() {
    QWidget* window = activeWindow();
    if (window->isVisible()) window->raise();
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->activateWindow();
    activeFormulaTextView()->setFocus();
}

void MyDocument::close() { activeWindow()->close(); }

bool MyDocument::eventFilter(QObject* watched, QEvent* event) {
    const bool isWindow = watched == documentWindow_.get() || watched == miniWindow_.get();
    if (isWindow && event->type() == QEvent::WindowActivate) emit activated();
    if (isWindow && event->type() == QEvent::WindowDeactivate) rememberLayout();
    if (isWindow && event->type() == QEvent::Close) {
        if (activeWindow()->isActiveWindow()) rememberLayout();
        if (watched == miniWindow_.get()) rememberMiniWindow(miniWindow_->geometry());
        emit closed();
    }
    if (event->type() == QEvent::KeyPress && qobject_cast<QSplitterHandle*>(watched) != nullptr) {
        return leaveDividerByKey(static_cast<QKeyEvent*>(event));
    }
    if (isZoomRequest(watched, *event)) emit zoomRequested();
    if (watched == documentWindow_.get() && event->type() == QEvent::LayoutRequest) keepRoomForControls();
    if (event->type() == QEvent::Resize) followResizing(watched);
    if (event->type() == QEvent::Wheel && changeTextSizeByWheel(static_cast<const QWheelEvent&>(*event))) return true;
    return QObject::eventFilter(watched, event);
}

void MyDocument::changeThousandsSeparatorCharacter(std::int32_t choice) {
    switch (choice) {
        case 0: documentNumberFormatterSettings_.setThousandsCharacter(u","); break;
        case 1: documentNumberFormatterSettings_.setThousandsCharacter(u" "); break;
        case 2: documentNumberFormatterSettings_.setThousandsCharacter(u"'"); break;
        default: return;
    }
    answerFormatChanged();
}

void MyDocument::changeExponentCharacter(std::int32_t choice) {
    switch (choice) {
        case 0: documentNumberFormatterSettings_.setExponentCharacter(u"e"); break;
        case 1: documentNumberFormatterSettings_.setExponentCharacter(u"E"); break;
        default: return;
    }
    answerFormatChanged();
}

TXHistoryViewerTextView* MyDocument::mainField() const { return ui_->mainField; }

TXFormulaEnteringTextView* MyDocument::formulaTextView() const { return ui_->formulaTextView; }

TXFormulaEnteringTextView* MyDocument::activeFormulaTextView() const {
    return isSmallWindowShown_ ? miniModeformulaTextView() : formulaTextView();
}

QWidget* MyDocument::activeWindow() const {
    return isSmallWindowShown_ ? miniWindow() : static_cast<QWidget*>(documentWindow_.get());
}
