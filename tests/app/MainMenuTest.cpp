// The menu bar of a document's window: its entries, their keys, and what each of them does.

#include "app/MainMenu.h"

#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <ostream>

#include "app/TXGreekLetterPanel.h"
#include "tests/support/ApplicationTest.h"
#include "ui/document/TXInspectorController.h"
#include "ui/document/TXOutlineView.h"

namespace {

using MainMenuTest = ApplicationTest;

QList<QMenu*> menusOf(const MyDocument& document) {
    QList<QMenu*> menus;
    for (const QAction* action : document.documentWindow()->menuBar()->actions()) menus.append(action->menu());
    return menus;
}

/// One line for each entry: its text without mnemonic, and its keys.
QStringList entriesOf(const QMenu& menu) {
    QStringList entries;
    for (const QAction* entry : menu.actions()) {
        if (entry->isSeparator()) continue;
        QString line = entry->text().remove(u'&');
        for (const QKeySequence& key : entry->shortcuts()) line += " | " + key.toString();
        entries.append(line);
    }
    return entries;
}

TEST_F(MainMenuTest, hasTheseEntriesWithTheseKeys) {
    const QList<QMenu*> menus = menusOf(openDocument());
    ASSERT_EQ(menus.size(), 6);
    EXPECT_EQ(entriesOf(*menus[0]),
              QStringList({"New | Ctrl+N", "Open… | Ctrl+O", "Reopen Closed Window | Ctrl+Shift+T", "Close | Ctrl+W",
                           "Save | Ctrl+S", "Save As… | Ctrl+Shift+S", "Print… | Ctrl+P", "Clear Everything…",
                           "Quit | Ctrl+Q"}));
    EXPECT_EQ(
        entriesOf(*menus[1]),
        QStringList({"Undo | Ctrl+Z", "Redo | Ctrl+Shift+Z", "Cut | Ctrl+X | Shift+Del", "Copy | Ctrl+C | Ctrl+Ins",
                     "Copy Last Answer | Ctrl+Shift+C", "Copy Last Answer Without Separators",
                     "Paste | Ctrl+V | Shift+Ins", "Select All | Ctrl+A", "Find in History… | Ctrl+F",
                     "Insert ± | Alt+Shift+= | Alt+=", "Clear History", "Preferences… | Ctrl+,"}));
    EXPECT_EQ(entriesOf(*menus[2]), QStringList({"Number Format", "Digits", "Thousands Separators", "Angle Unit"}));
    EXPECT_EQ(entriesOf(*menus[3]), QStringList({"Mini Mode | Ctrl+Shift+M", "Keep Mini Window on Top", "Sidebar | F9",
                                                 "Larger Text | Ctrl++ | Ctrl+=", "Smaller Text | Ctrl+-",
                                                 "Normal Text | Ctrl+0", "Full Screen | F11"}));
    EXPECT_EQ(entriesOf(*menus[4]), QStringList({"Minimize", "Inspector"}));
    EXPECT_EQ(entriesOf(*menus[5]),
              QStringList({"User Guide | F1", "Greek Letters | Ctrl+Shift+G", "Keyboard Shortcuts | Ctrl+?",
                           "Release Notes", "Screencasts", "Send Feedback", "Report a Bug", "About Tallix"}));
    QStringList titles;
    for (const QMenu* menu : menus) titles.append(menu->title().remove(u'&'));
    EXPECT_EQ(titles, QStringList({"File", "Edit", "Format", "View", "Window", "Help"}));
}

TEST_F(MainMenuTest, givesEachEntryAMnemonicThatIsUniqueInItsMenu) {
    MyDocument& document = openDocument();
    openDocument();
    QList<QWidget*> menus = {document.documentWindow()->menuBar()};
    for (QMenu* menu : menusOf(document)) {
        emit menu->aboutToShow();
        menus.append(menu);
    }
    for (const QWidget* menu : menus) {
        QStringList mnemonics;
        for (const QAction* entry : menu->actions()) {
            if (entry->isSeparator()) continue;
            const QString mnemonic = QKeySequence::mnemonic(entry->text()).toString();
            EXPECT_FALSE(mnemonic.isEmpty()) << entry->text().toStdString();
            EXPECT_FALSE(mnemonics.contains(mnemonic)) << entry->text().toStdString();
            mnemonics.append(mnemonic);
        }
    }
}

TEST_F(MainMenuTest, usesNoKeyTwiceAndNoneOfTheEntryLine) {
    const MyDocument& document = openDocument();
    QStringList keys;
    for (const QAction* action : document.documentWindow()->findChildren<QAction*>()) {
        for (const QKeySequence& key : action->shortcuts()) keys.append(key.toString());
    }
    for (const QShortcut* shortcut : document.documentWindow()->findChildren<QShortcut*>()) {
        keys.append(shortcut->key().toString());
    }
    EXPECT_EQ(keys.removeDuplicates(), 0);
    for (const char* key : {"Alt+Up", "Alt+Down", "Return", "Esc", "Ctrl+Left", "Ctrl+Right", "Ctrl+K"}) {
        EXPECT_FALSE(keys.contains(key)) << key;
    }
    EXPECT_TRUE(keys.contains("F10"));
    EXPECT_TRUE(keys.contains("F6"));
}

TEST_F(MainMenuTest, putsThePlatformsEntriesIntoTheirRoles) {
    const MyDocument& document = openDocument();
    EXPECT_EQ(action(document, "quitAction")->menuRole(), QAction::QuitRole);
    EXPECT_EQ(action(document, "aboutAction")->menuRole(), QAction::AboutRole);
    EXPECT_EQ(action(document, "preferencesAction")->menuRole(), QAction::PreferencesRole);
    EXPECT_EQ(action(document, "sendFeedbackAction")->menuRole(), QAction::NoRole);
}

TEST_F(MainMenuTest, opensAndClosesDocumentsByKey) {
    MyDocument& first = openDocument();
    QTest::keyClick(first.formulaTextView(), Qt::Key_N, Qt::ControlModifier);
    ASSERT_EQ(application.documents().documents().size(), 2);
    MyDocument& second = *application.documents().documents().last();
    ASSERT_TRUE(QTest::qWaitForWindowActive(second.documentWindow()));
    QTest::keyClick(second.formulaTextView(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(application.documents().documents(), QList<MyDocument*>{&first});
    QTest::keyClick(openDocument().formulaTextView(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(application.documents().documents().isEmpty());
}

struct SorryCase {
    const char* name;
    const char* action;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* beginning;
};
void PrintTo(const SorryCase& row, std::ostream* out) { *out << row.action; }
class SorryCommand : public MainMenuTest, public testing::WithParamInterface<SorryCase> {};

TEST_P(SorryCommand, isEnabledAndAnswersWithItsAlert) {
    const MyDocument& document = openDocument();
    EXPECT_TRUE(action(document, GetParam().action)->isEnabled());
    QTest::keyClick(document.formulaTextView(), GetParam().key, GetParam().modifiers);
    EXPECT_EQ(beeps.count(), 1);
    const auto* const alert = document.documentWindow()->findChild<QMessageBox*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->text(), "Sorry");
    EXPECT_TRUE(alert->informativeText().startsWith(GetParam().beginning));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Commands, SorryCommand, testing::Values(
    SorryCase{"Save",   "saveDocumentAction",   Qt::Key_S, Qt::ControlModifier,                     "Unfortunately, saving documents"},
    SorryCase{"SaveAs", "saveDocumentAsAction", Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier, "Unfortunately, saving documents"},
    SorryCase{"Open",   "openDocumentAction",   Qt::Key_O, Qt::ControlModifier,                     "Unfortunately, opening/saving"}
), [](const auto& row) { return row.param.name; });
// clang-format on

TEST_F(MainMenuTest, leavesAKeyOfACommandOutOfTheEntryLine) {
    MyDocument& document = openDocument();
    TXFormulaEnteringTextView* const entry = document.formulaTextView();
    QTest::keyClicks(entry, "2+3");
    QTest::keyClick(entry, Qt::Key_Return);
    const OpenedAddresses opened;
    QTest::keyClick(entry, Qt::Key_F1);
    EXPECT_EQ(opened.addresses().size(), 1);
    EXPECT_TRUE(entry->wasFormulaJustCalculated());
    QTest::keyClicks(entry, "+");
    EXPECT_EQ(entry->text(), "ans+");
}

TEST_F(MainMenuTest, printsInASheetOfItsWindow) {
    const MyDocument& document = openDocument();
    trigger(document, "printDocumentAction");
    auto* const dialog = document.documentWindow()->findChild<QPrintDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
    dialog->reject();
}

TEST_F(MainMenuTest, opensThePreferencesByKey) {
    const MyDocument& document = openDocument();
    QTest::keyClick(document.formulaTextView(), Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_NE(application.preferences().preferenceController(), nullptr);
    EXPECT_TRUE(application.preferences().preferenceController()->window()->isVisible());
}

TEST_F(MainMenuTest, fillsTheScreenAndComesBack) {
    const MyDocument& document = openDocument();
    TXWindow* const window = document.documentWindow();
    window->showMaximized();
    QTest::keyClick(document.formulaTextView(), Qt::Key_F11);
    EXPECT_TRUE(window->isFullScreen());
    EXPECT_TRUE(action(document, "fullScreenAction")->isChecked());
    QTest::keyClick(document.formulaTextView(), Qt::Key_F11);
    EXPECT_FALSE(window->isFullScreen());
    EXPECT_TRUE(window->isMaximized());
    EXPECT_FALSE(action(document, "fullScreenAction")->isChecked());
    window->showFullScreen();  // as the window manager does it
    EXPECT_TRUE(action(document, "fullScreenAction")->isChecked());
}

TEST_F(MainMenuTest, hidesTheSidebarAndShowsItAgain) {
    const MyDocument& document = openDocument();
    EXPECT_TRUE(action(document, "sidebarAction")->isChecked());
    QTest::keyClick(document.formulaTextView(), Qt::Key_F9);
    EXPECT_FALSE(document.variableOutlineView()->isVisible());
    EXPECT_FALSE(action(document, "sidebarAction")->isChecked());
    QTest::keyClick(document.formulaTextView(), Qt::Key_F9);
    EXPECT_TRUE(document.variableOutlineView()->isVisible());
    EXPECT_TRUE(action(document, "sidebarAction")->isChecked());
}

TEST_F(MainMenuTest, minimizesItsWindow) {
    const MyDocument& document = openDocument();
    trigger(document, "minimizeAction");
    EXPECT_TRUE(document.documentWindow()->isMinimized());
}

QStringList windowEntries(const MyDocument& document) {
    auto* const menu = document.documentWindow()->findChild<QMenu*>("windowMenu");
    emit menu->aboutToShow();
    QStringList entries;
    for (const QAction* entry : menu->actions().mid(3)) {
        entries.append((entry->isChecked() ? "*" : "") + entry->text());
    }
    return entries;
}

TEST_F(MainMenuTest, listsTheOpenWindowsInOrderAndMarksItsOwn) {
    MyDocument& first = openDocument();
    MyDocument& second = openDocument();
    openDocument();
    EXPECT_EQ(windowEntries(first), QStringList({"*&1 Untitled", "&2 Untitled 2", "&3 Untitled 3"}));
    EXPECT_EQ(windowEntries(second), QStringList({"&1 Untitled", "*&2 Untitled 2", "&3 Untitled 3"}));
    second.close();
    deleteWhatIsClosed();
    EXPECT_EQ(windowEntries(first), QStringList({"*&1 Untitled", "&2 Untitled 3"}));
}

TEST_F(MainMenuTest, givesNoMnemonicToTheTenthWindow) {
    MyDocument& first = openDocument();
    first.documentWindow()->setWindowTitle("This & that");
    for (int i = 0; i < 9; ++i) openDocument();
    EXPECT_EQ(windowEntries(first).first(), "*&1 This && that");
    EXPECT_EQ(windowEntries(first).at(8), "&9 Untitled 9");
    EXPECT_EQ(windowEntries(first).at(9), "Untitled 10");
}

TEST_F(MainMenuTest, bringsAnOpenWindowToTheFront) {
    MyDocument& first = openDocument();
    MyDocument& second = openDocument();
    first.documentWindow()->showMinimized();
    windowEntries(second);
    auto* const menu = second.documentWindow()->findChild<QMenu*>("windowMenu");
    menu->actions().at(3)->trigger();
    EXPECT_TRUE(QTest::qWaitForWindowActive(first.documentWindow()));
    EXPECT_FALSE(first.documentWindow()->isMinimized());
    EXPECT_EQ(application.documents().activeDocument(), &first);
}

TEST_F(MainMenuTest, opensTheOneInspectorOfAllDocuments) {
    const MyDocument& first = openDocument();
    const MyDocument& second = openDocument();
    EXPECT_EQ(inspectorController, nullptr);
    trigger(first, "inspectorAction");
    const TXInspectorController* const inspector = inspectorController;
    ASSERT_NE(inspector, nullptr);
    EXPECT_TRUE(inspector->window()->isVisible());
    inspector->window()->close();
    trigger(second, "inspectorAction");
    EXPECT_EQ(inspectorController, inspector);
    EXPECT_TRUE(inspector->window()->isVisible());
    // Its buttons ask the document in front, which knows no styles.
    QTest::mouseClick(inspector->window()->findChild<QPushButton*>("headingStyleButton"), Qt::LeftButton);
    application.documents().closeAll();
    QTest::mouseClick(inspector->window()->findChild<QPushButton*>("headingStyleButton"), Qt::LeftButton);
    EXPECT_TRUE(inspector->window()->isVisible());
}

TEST_F(MainMenuTest, isOpenedByF10AndGivesTheFocusBack) {
    const MyDocument& document = openDocument();
    QTest::keyClick(document.formulaTextView(), Qt::Key_F10);
    auto* const menu = document.documentWindow()->findChild<QMenu*>("fileMenu");
    ASSERT_TRUE(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_FALSE(menu->isVisible());
    QTest::keyClick(document.documentWindow()->menuBar(), Qt::Key_Escape);
    EXPECT_TRUE(document.formulaTextView()->hasFocus());
}

TEST_F(MainMenuTest, opensTheContextMenuByShiftF10AtTheCaret) {
    MyDocument& document = openDocument();
    const auto opened = [] {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10, Qt::ShiftModifier);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    };
    const auto isAtCaret = [](const QMenu* menu, const TXFormulaEnteringTextView* entry) {
        const QRect caret = entry->cursorRect().adjusted(-1, 0, 1, 0);
        return QRect(entry->viewport()->mapToGlobal(caret.topLeft()), caret.size()).contains(menu->pos());
    };
    QTest::keyClicks(document.formulaTextView(), "2+3");
    QTest::keyClick(document.formulaTextView(), Qt::Key_Return);
    QMenu* menu = opened();
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(isAtCaret(menu, document.formulaTextView()));
    menu->close();
    EXPECT_TRUE(document.formulaTextView()->permissibleToEnterTextFlag());

    document.mainField()->setFocus();
    EXPECT_EQ(opened(), document.mainField()->wrappingMenu());
    document.mainField()->wrappingMenu()->close();

    TXOutlineView* const sidebar = document.variableOutlineView();
    sidebar->setFocus();
    EXPECT_EQ(opened(), nullptr);  // for a group
    QTest::keyClick(sidebar, Qt::Key_Down);
    EXPECT_EQ(opened(), sidebar->wrappingMenu());
    sidebar->wrappingMenu()->close();

    document.windowShouldZoom();
    EXPECT_TRUE(QTest::qWaitForWindowActive(document.miniWindow()));
    document.miniWindow()->move(100, 100);  // where there is room for the menu
    menu = opened();
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(isAtCaret(menu, document.activeFormulaTextView()));
    EXPECT_EQ(menu->actions().last()->text(), "&Full Window");
    menu->close();
}

TEST_F(MainMenuTest, movesToTheDividersByF8) {
    const MyDocument& document = openDocument();
    QTest::keyClick(document.formulaTextView(), Qt::Key_F8);
    EXPECT_TRUE(document.mySplitView()->handle(1)->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F8);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F8);
    EXPECT_TRUE(document.formulaTextView()->hasFocus());
}

TEST_F(MainMenuTest, leavesTheFocusAloneWhenAltIsPressedAlone) {
    const MyDocument& document = openDocument();
    QTest::keyPress(document.formulaTextView(), Qt::Key_Alt, Qt::AltModifier);
    QTest::keyRelease(document.formulaTextView(), Qt::Key_Alt);
    EXPECT_TRUE(document.formulaTextView()->hasFocus());
    QTest::keyClicks(document.formulaTextView(), "1");
    EXPECT_EQ(document.formulaTextView()->text(), "1");
}

TEST_F(MainMenuTest, saysWhatTheProgramIs) {
    const MyDocument& document = openDocument();
    trigger(document, "aboutAction");
    auto* const box = document.documentWindow()->findChild<QMessageBox*>("aboutBox");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->windowTitle(), "About Tallix");
    EXPECT_EQ(box->windowModality(), Qt::WindowModal);
    EXPECT_TRUE(box->text().contains("Tallix " TALLIX_VERSION));
    for (const QString& part : {QString("A calculator that keeps every equation"), QString("MIT licence"),
                                QString(TALLIX_WEBSITE), QString("Qt ") + qVersion()}) {
        EXPECT_TRUE(box->informativeText().contains(part)) << part.toStdString();
    }
    const auto* details = box->findChild<QLabel*>("qt_msgbox_informativelabel");
    ASSERT_NE(details, nullptr);
    EXPECT_TRUE(details->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    EXPECT_TRUE(details->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_FALSE(box->isVisible());
}

struct HelpEntryCase {
    const char* name;
    const char* action;
    const char* address;  ///< The end of it.
};
void PrintTo(const HelpEntryCase& row, std::ostream* out) { *out << row.action; }
class HelpEntry : public MainMenuTest, public testing::WithParamInterface<HelpEntryCase> {};

TEST_P(HelpEntry, opensItsAddress) {
    const MyDocument& document = openDocument();
    const OpenedAddresses opened;
    trigger(document, GetParam().action);
    ASSERT_EQ(opened.addresses().size(), 1);
    EXPECT_TRUE(opened.addresses().first().toString().endsWith(GetParam().address));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Entries, HelpEntry, testing::Values(
    HelpEntryCase{"UserGuide",    "usersGuideAction",   "/TALLIX User Guide.pdf"},
    HelpEntryCase{"ReleaseNotes", "releaseNotesAction", "/TALLIX User Guide.pdf"},
    HelpEntryCase{"Screencasts",  "screencastsAction",  "?section=screencasts"},
    HelpEntryCase{"SendFeedback", "sendFeedbackAction", "?section=feedback"},
    HelpEntryCase{"ReportABug",   "reportBugAction",    "?section=feedback"}
), [](const auto& row) { return row.param.name; });
// clang-format on

TEST_F(MainMenuTest, opensOneMorePanelOfGreekLettersEachTime) {
    const MyDocument& document = openDocument();
    QTest::keyClick(document.formulaTextView(), Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(document.formulaTextView(), Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(document.documentWindow()->findChildren<TXGreekLetterPanel*>().size(), 2);
}

}  // namespace
