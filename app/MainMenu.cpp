#include "app/MainMenu.h"

#include <QActionGroup>
#include <QApplication>
#include <QContextMenuEvent>
#include <QEvent>
#include <QMenu>

#include "app/AppPreferencesController.h"
#include "app/DocumentController.h"
#include "app/EditCommands.h"
#include "app/KeyboardShortcuts.h"
#include "app/TXGreekLetterPanel.h"
#include "app/messages.h"
#include "ui/document/MyDocument.h"
#include "ui/document/PullDownButton.h"
#include "ui/document/TXHistoryViewerTextView.h"
#include "ui/document/TXWindow.h"
#include "ui_MainMenu.h"

namespace {

constexpr int lastMnemonicDigit = 9;
constexpr int typeCount = 7;

/// The entry of the window with this number, from 1, in the list of windows.
QString windowEntry(int number, const QString& title) {
    QString shown = title;
    shown.replace(u'&', QStringLiteral("&&"));
    return number <= lastMnemonicDigit ? QStringLiteral("&%1 %2").arg(number).arg(shown) : shown;
}

/// Lets `follower` always be what `followed` is.
void followAction(const QAction* followed, QAction* follower) {
    const auto follow = [followed, follower] {
        follower->setEnabled(followed->isEnabled());
        follower->setCheckable(followed->isCheckable());
        follower->setChecked(followed->isChecked());
    };
    QObject::connect(followed, &QAction::changed, follower, follow);
    follow();
}

/// Lets `copy` have what `original` has: the same entries, and submenus with the same entries.
void repeatMenu(const QMenu& original, QMenu* copy) {
    followAction(original.menuAction(), copy->menuAction());
    auto* submenus = new QActionGroup(copy);
    submenus->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (QAction* entry : original.actions()) {
        if (entry->menu() == nullptr) {
            copy->addAction(entry);
            continue;
        }
        QMenu* submenu = copy->addMenu(entry->text());
        submenu->addActions(entry->menu()->actions());
        submenus->addAction(submenu->menuAction());
        followAction(entry, submenu->menuAction());
    }
}

/// At the caret of what has the focus, as the toolkit does it by itself for the Menu key alone.
void openContextMenu() {
    QWidget* const focused = QApplication::focusWidget();
    if (focused == nullptr) return;
    const QPoint caret = focused->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, caret, focused->mapToGlobal(caret));
    QCoreApplication::sendEvent(focused, &asked);
}

}  // namespace

void MainMenu::fill(MyDocument& document, DocumentController& documents, AppPreferencesController& preferences) {
    new MainMenu(document, documents, preferences);  // owned by the window
}

MainMenu::MainMenu(MyDocument& document, DocumentController& documents, AppPreferencesController& preferences)
    : QObject(document.documentWindow()),
      document_(document),
      documents_(documents),
      preferences_(preferences),
      window_(document.documentWindow()),
      ui_(std::make_unique<Ui::MainMenu>()) {
    ui_->setupUi(window_);
    connectFileMenu();
    connectEditMenu();
    fillFormatMenu();
    connectViewMenu();
    connectMiniMode();
    connectWindowMenu();
    connectHelpMenu();
    addKeys();
    connect(&document_, &MyDocument::miniWindowLoaded, this, &MainMenu::shareKeysWithMiniWindow);
}

MainMenu::~MainMenu() = default;

void MainMenu::connectFileMenu() {
    connect(ui_->newDocumentAction, &QAction::triggered, &documents_, [this] { documents_.newDocument(); });
    connect(ui_->openDocumentAction, &QAction::triggered, &document_, &MyDocument::openDocument);
    const auto refreshReopening = [this] { ui_->reopenClosedWindowAction->setEnabled(documents_.hasClosedDocument()); };
    connect(ui_->reopenClosedWindowAction, &QAction::triggered, &documents_, &DocumentController::reopenClosedDocument);
    connect(&documents_, &DocumentController::closedDocumentsChanged, this, refreshReopening);
    refreshReopening();
    connect(ui_->closeDocumentAction, &QAction::triggered, &document_, &MyDocument::close);
    connect(ui_->saveDocumentAction, &QAction::triggered, &document_, &MyDocument::saveDocument);
    connect(ui_->saveDocumentAsAction, &QAction::triggered, &document_, &MyDocument::saveDocument);
    connect(ui_->printDocumentAction, &QAction::triggered, &document_, &MyDocument::printDocument);
    const auto refresh = [this] {
        ui_->clearEverythingAction->setEnabled(!document_.documentEquationController().equationsArray().empty());
    };
    connect(ui_->clearEverythingAction, &QAction::triggered, &document_, &MyDocument::askToClearEverything);
    connect(&document_, &MyDocument::sessionChanged, this, refresh);
    refresh();
    connect(ui_->quitAction, &QAction::triggered, &documents_, &DocumentController::closeAll);
#ifdef Q_OS_MACOS
    // There the program outlives its last document, and this is the command that ends it.
    connect(ui_->quitAction, &QAction::triggered, qApp, [] { QCoreApplication::exit(0); });
#endif
}

void MainMenu::connectEditMenu() {
    // Two keys each, which a layout cannot say.
    ui_->cutAction->setShortcuts({QKeySequence("Ctrl+X"), QKeySequence("Shift+Del")});
    ui_->copyAction->setShortcuts({QKeySequence("Ctrl+C"), QKeySequence("Ctrl+Ins")});
    ui_->pasteAction->setShortcuts({QKeySequence("Ctrl+V"), QKeySequence("Shift+Ins")});
    new EditCommands(document_, {ui_->undoAction, ui_->redoAction, ui_->cutAction, ui_->copyAction, ui_->pasteAction,
                                 ui_->selectAllAction});
    // The second key is the first one where "=" itself needs Shift.
    ui_->insertPlusMinusAction->setShortcuts({QKeySequence("Alt+Shift+="), QKeySequence("Alt+=")});
    connectLastAnswer();
    connectHistory();
    connect(ui_->insertPlusMinusAction, &QAction::triggered, &document_, &MyDocument::insertPlusMinus);
    connect(ui_->preferencesAction, &QAction::triggered, &preferences_, &AppPreferencesController::ShowPreferencePanel);
}

void MainMenu::connectLastAnswer() {
    QAction* const copy = ui_->copyLastAnswerAction;
    QAction* const copyBare = ui_->copyLastAnswerWithoutSeparatorsAction;
    connect(copy, &QAction::triggered, &document_, &MyDocument::copyLastAnswer);
    connect(copyBare, &QAction::triggered, &document_, &MyDocument::copyLastAnswerWithoutSeparators);
    const auto refresh = [this, copy, copyBare] {
        copy->setEnabled(document_.hasLastAnswer());
        copyBare->setEnabled(copy->isEnabled() && document_.documentNumberFormatterSettings().thousandsSeparators());
    };
    connect(&document_, &MyDocument::sessionChanged, this, refresh);
    refresh();
}

void MainMenu::connectHistory() {
    const QList<QAction*> actions = {ui_->findInHistoryAction, ui_->findNextAction, ui_->findPreviousAction,
                                     ui_->clearHistoryAction};
    connect(ui_->findInHistoryAction, &QAction::triggered, &document_, &MyDocument::findInHistory);
    connect(ui_->findNextAction, &QAction::triggered, &document_, &MyDocument::findNextInHistory);
    connect(ui_->findPreviousAction, &QAction::triggered, &document_, &MyDocument::findPreviousInHistory);
    connect(ui_->clearHistoryAction, &QAction::triggered, &document_, &MyDocument::clearHistory);
    window_->addActions({ui_->findNextAction, ui_->findPreviousAction});  // They are in no menu.
    const auto refresh = [this, actions] {
        const bool hasText = !document_.mainField()->document()->isEmpty();
        for (QAction* action : actions) action->setEnabled(hasText);
    };
    connect(document_.mainField(), &QTextEdit::textChanged, this, refresh);
    refresh();
}

// The entries of the buttons below the entry line, so that both always say the same.
void MainMenu::fillFormatMenu() {
    const PullDownButton& types = *document_.formattingTypeButton();
    for (int type = 1; type <= typeCount; ++type) ui_->numberFormatMenu->addAction(types.itemAtIndex(type));
    ui_->formatMenu->insertAction(ui_->angleUnitMenu->menuAction(), types.menu()->actions().last());
    repeatMenu(*document_.numberFormattingButton()->menu(), ui_->digitsMenu);
    ui_->angleUnitMenu->addActions(document_.angleUnitActions());
}

void MainMenu::connectMiniMode() {
    QAction* const miniMode = ui_->miniModeAction;
    connect(miniMode, &QAction::triggered, &document_, &MyDocument::windowShouldZoom);
    connect(&document_, &MyDocument::miniModeChanged, miniMode, &QAction::setChecked);

    QAction* const keepOnTop = ui_->keepMiniWindowOnTopAction;
    keepOnTop->setEnabled(MyDocument::canKeepMiniWindowOnTop(QGuiApplication::platformName()));
    keepOnTop->setChecked(document_.keepsMiniWindowOnTop());
    connect(keepOnTop, &QAction::triggered, &document_, &MyDocument::setKeepsMiniWindowOnTop);
    connect(&document_, &MyDocument::keepsMiniWindowOnTopChanged, this, [this, keepOnTop](bool isOnTop) {
        keepOnTop->setChecked(isOnTop);
        for (MyDocument* document : documents_.documents()) document->setKeepsMiniWindowOnTop(isOnTop);
    });
}

void MainMenu::connectViewMenu() {
    ui_->sidebarAction->setChecked(document_.isSidebarShown());
    connect(ui_->sidebarAction, &QAction::triggered, &document_, &MyDocument::setSidebarShown);
    connectTextSize();
    connect(ui_->fullScreenAction, &QAction::triggered, this, &MainMenu::setFullScreen);
    window_->installEventFilter(this);
}

void MainMenu::connectTextSize() {
    // The second key is the first one without Shift on most keyboards.
    ui_->largerTextAction->setShortcuts({QKeySequence("Ctrl++"), QKeySequence("Ctrl+=")});
    connect(ui_->largerTextAction, &QAction::triggered, this,
            [this] { document_.setTextSize(document_.textSize() + MyDocument::textSizeStep); });
    connect(ui_->smallerTextAction, &QAction::triggered, this,
            [this] { document_.setTextSize(document_.textSize() - MyDocument::textSizeStep); });
    connect(ui_->normalTextAction, &QAction::triggered, this,
            [this] { document_.setTextSize(MyDocument::normalTextSize); });
    const auto refresh = [this](int percent) {
        ui_->largerTextAction->setEnabled(percent < MyDocument::largestTextSize);
        ui_->smallerTextAction->setEnabled(percent > MyDocument::smallestTextSize);
        ui_->normalTextAction->setEnabled(percent != MyDocument::normalTextSize);
    };
    connect(&document_, &MyDocument::textSizeChanged, this, refresh);
    refresh(document_.textSize());
}

void MainMenu::connectWindowMenu() {
    connect(ui_->minimizeAction, &QAction::triggered, this, [this] { document_.activeWindow()->showMinimized(); });
    connect(ui_->inspectorAction, &QAction::triggered, &preferences_, &AppPreferencesController::showInspector);
    connect(ui_->windowMenu, &QMenu::aboutToShow, this, &MainMenu::listWindows);
}

void MainMenu::connectHelpMenu() {
    using Controller = AppPreferencesController;
    connect(ui_->usersGuideAction, &QAction::triggered, &preferences_, &Controller::openUsersGuide);
    connect(ui_->greekLettersAction, &QAction::triggered, &preferences_, &Controller::showGreekLettersPanel);
    connect(ui_->keyboardShortcutsAction, &QAction::triggered, this, &MainMenu::showKeyboardShortcuts);
    connect(ui_->releaseNotesAction, &QAction::triggered, &preferences_, &Controller::openReleaseNotes);
    connect(ui_->screencastsAction, &QAction::triggered, &preferences_, &Controller::openScreencastURL);
    connect(ui_->sendFeedbackAction, &QAction::triggered, &preferences_, &Controller::openFeedbackURL);
    connect(ui_->reportBugAction, &QAction::triggered, &preferences_, &Controller::openBugReportURL);
    connect(ui_->aboutAction, &QAction::triggered, this, [this] { showAbout(document_.activeWindow()); });
}

// The keys that no entry of a menu stands for.
void MainMenu::addKeys() {
    window_->addActions({ui_->menuBarAction, ui_->contextMenuAction, ui_->moveToDividerAction, ui_->moveToPanelAction});
    connect(ui_->menuBarAction, &QAction::triggered, ui_->menuBar, &MenuBar::open);
    connect(ui_->contextMenuAction, &QAction::triggered, this, openContextMenu);
    connect(ui_->moveToDividerAction, &QAction::triggered, &document_, &MyDocument::moveToNextDivider);
    connect(ui_->moveToPanelAction, &QAction::triggered, this, &MainMenu::moveToPanel);
}

// It shows no menu bar, but all the keys work there.
void MainMenu::shareKeysWithMiniWindow(QWidget* miniWindow) {
    for (QAction* action : window_->findChildren<QAction*>()) {
        const bool hasKey = !action->shortcut().isEmpty();
        if (hasKey && action != ui_->menuBarAction) miniWindow->addAction(action);
    }
}

void MainMenu::showKeyboardShortcuts() {
    if (keyboardShortcuts_ == nullptr) keyboardShortcuts_ = new KeyboardShortcuts(*window_, document_.activeWindow());
    keyboardShortcuts_->show();
    keyboardShortcuts_->raise();
    keyboardShortcuts_->activateWindow();
}

void MainMenu::listWindows() {
    qDeleteAll(windowEntries_);
    windowEntries_.clear();
    for (MyDocument* document : documents_.documents()) {
        const int number = static_cast<int>(windowEntries_.size()) + 1;
        QAction* entry = ui_->windowMenu->addAction(windowEntry(number, document->documentWindow()->windowTitle()),
                                                    document, &MyDocument::showWindow);
        entry->setCheckable(true);
        entry->setChecked(document == &document_);
        windowEntries_.append(entry);
    }
}

void MainMenu::setFullScreen(bool isFullScreen) {
    if (document_.isSmallWindowShown()) document_.windowShouldZoom();
    window_->setWindowState(window_->windowState().setFlag(Qt::WindowFullScreen, isFullScreen));
}

// The window manager, too, can make the window fill the screen.
bool MainMenu::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowStateChange) ui_->fullScreenAction->setChecked(window_->isFullScreen());
    return QObject::eventFilter(watched, event);
}

// To the newest panel, and back: the keys of a window work in its panels as well.
void MainMenu::moveToPanel() {
    const auto panels = window_->findChildren<TXGreekLetterPanel*>();
    if (panels.isEmpty()) return;
    if (QApplication::activeWindow() == document_.activeWindow()) {
        panels.last()->takeFocus();
    } else {
        document_.showWindow();
    }
}
