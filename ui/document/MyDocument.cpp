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

constexpr double miniEntryPointSize = 13.0;
constexpr QColor miniBackground(0x2A, 0x2B, 0x2F);
constexpr float shadowOpacity = 0.6F;
constexpr double miniLabelPointSize = 11.0;
constexpr QColor miniLabelColor(255, 255, 255, 178);

QFont sized(QFont font, double points) {
    font.setPointSizeF(points);
    return font;
}

QFont fontNamed(const QString& family, double points) {
    QFont font(family);
    font.setStyleHint(QFont::SansSerif);  // where the family is missing
    return sized(font, points);
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
    miniWindow_->removeEventFilter(this);
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
    miniWindow_ = std::make_unique<QWidget>();
    miniUi_->setupUi(miniWindow_.get());
    showTextSize();

    mainField()->awakeFromNib();
    mainField()->setParentDocument(this);
    ui_->secondaryControlledView->setBackgroundRole(QPalette::Base);  // one sheet with the history
    prepareFormatControls();
    prepareMiniWindow();
    prepareSidebar();
    prepareFindBar();
    prepareClearHistory();
    prepareMiniMode();
    prepareHelp();
    for (TXFormulaEnteringTextView* entry :
         std::initializer_list<TXFormulaEnteringTextView*>{formulaTextView(), miniModeformulaTextView()}) {
        entry->setParentDocument(this);
        entry->awakeFromNib();
    }
    fixHeightOfMiniWindow();
    keepEquationsLeftToRight();
}

// On a mirrored desktop, too: what is around them is mirrored.
void MyDocument::keepEquationsLeftToRight() {
    for (QWidget* view :
         std::initializer_list<QWidget*>{secondaryControlledView(), miniModeformulaTextView(), miniModeAnswerField()}) {
        view->setLayoutDirection(Qt::LeftToRight);
    }
}

// The mini window is dark on every desktop.
void MyDocument::prepareMiniWindow() {
    QPalette colors = miniWindow_->palette();
    colors.setColor(QPalette::Window, miniBackground);
    colors.setColor(QPalette::Base, miniBackground);
    colors.setColor(QPalette::WindowText, Qt::white);
    miniWindow_->setPalette(colors);
    miniModeformulaTextView()->setFont(sized(documentFont_, miniEntryPointSize));
    QPalette labelColors = colors;
    labelColors.setColor(QPalette::WindowText, miniLabelColor);
    miniUi_->miniModeFormatLabel->setPalette(labelColors);
    miniUi_->miniModeFormatLabel->setFont(sized(documentFont_, miniLabelPointSize));
}

// With the fonts known: only the width is the user's to change.
void MyDocument::fixHeightOfMiniWindow() {
    miniWindow_->setFixedHeight(std::max(miniWindow_->height(), miniUi_->miniLayout->minimumSize().height()));
}

void MyDocument::windowControllerDidLoadNib() {
    takeUserDefaults();
    showSidebarForTheFirstTime();
    mainField()->setEditable(false);
    documentWindow_->setDocumentController(this);
    documentWindow_->installEventFilter(this);
    miniWindow_->installEventFilter(this);
    for (QAbstractScrollArea* view :
         std::initializer_list<QAbstractScrollArea*>{mainField(), formulaTextView(), variableOutlineView()}) {
        view->viewport()->installEventFilter(this);
    }
    miniModeformulaTextView()->setTypedTextShadow({QColor::fromRgbF(0.0F, 0.0F, 0.0F, shadowOpacity), {0.0, 1.0}});
    miniModeformulaTextView()->setTextColor(Qt::white);
    miniModeAnswerField()->setFrameShadow(QFrame::Sunken);
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
        if (watched == miniWindow()) rememberMiniWindow(miniWindow()->geometry());
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

TXFormulaEnteringMiniModeTextField* MyDocument::miniModeformulaTextView() const {
    return miniUi_->miniModeformulaTextView;
}

MiniModeAnswerField* MyDocument::miniModeAnswerField() const { return miniUi_->miniModeAnswerField; }

TXFormulaEnteringTextView* MyDocument::activeFormulaTextView() const {
    return isSmallWindowShown_ ? miniModeformulaTextView() : formulaTextView();
}

QWidget* MyDocument::activeWindow() const {
    return isSmallWindowShown_ ? miniWindow_.get() : static_cast<QWidget*>(documentWindow_.get());
}
