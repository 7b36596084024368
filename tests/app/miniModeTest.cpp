// The Format menu, and the commands that change to the mini window and work in it.

#include <QClipboard>
#include <QMenu>
#include <QMessageBox>
#include <QRadioButton>

#include "app/TXGreekLetterPanel.h"
#include "tests/support/ApplicationTest.h"
#include "ui/document/PullDownButton.h"
#include "ui/document/SegmentedControl.h"

namespace {

using FormatMenu = ApplicationTest;

QMenu* menu(const MyDocument& document, const char* name) { return document.documentWindow()->findChild<QMenu*>(name); }

TEST_F(FormatMenu, repeatsTheButtonsMenus) {
    const MyDocument& document = openDocument();
    const QMenu* const types = document.formattingTypeButton()->menu();
    EXPECT_EQ(menu(document, "numberFormatMenu")->actions(), types->actions().mid(0, 7));
    EXPECT_EQ(menu(document, "formatMenu")->actions().at(2), types->actions().last());
    const QMenu* const digits = document.numberFormattingButton()->menu();
    const QMenu* const copy = menu(document, "digitsMenu");
    EXPECT_EQ(copy->actions().first(), digits->actions().first());
    for (const int index : {1, 2}) {
        EXPECT_EQ(copy->actions().at(index)->text(), digits->actions().at(index)->text());
        EXPECT_EQ(copy->actions().at(index)->menu()->actions(), digits->actions().at(index)->menu()->actions());
    }
    EXPECT_EQ(menu(document, "angleUnitMenu")->actions(), document.angleUnitActions());
}

TEST_F(FormatMenu, staysInStepWithTheButtons) {
    const MyDocument& document = openDocument();
    const QMenu* const copy = menu(document, "digitsMenu");
    trigger(document, "digits13");
    EXPECT_EQ(document.numberFormattingButton()->title(), "2 Decimal Places");
    EXPECT_FALSE(copy->actions().at(1)->isChecked());
    EXPECT_TRUE(copy->actions().at(2)->isChecked());
    trigger(document, "digits4");
    EXPECT_TRUE(copy->actions().at(1)->isChecked());
    EXPECT_FALSE(copy->actions().at(2)->isChecked());
    trigger(document, "formattingType6");
    EXPECT_EQ(document.formattingTypeButton()->title(), "Octal");
    EXPECT_FALSE(copy->menuAction()->isEnabled());
    trigger(document, "formattingType1");
    EXPECT_TRUE(copy->menuAction()->isEnabled());
    trigger(document, "degrees");
    EXPECT_EQ(document.degreesRadiansSegmentedControl()->selectedSegment(), 1);
}

TEST_F(FormatMenu, belongsToItsDocument) {
    MyDocument& first = openDocument();
    MyDocument& second = openDocument();
    trigger(second, "formattingType5");
    EXPECT_EQ(first.documentNumberFormatterSettings().formattingType(), 1);
    EXPECT_EQ(second.documentNumberFormatterSettings().formattingType(), 5);
}

TEST_F(FormatMenu, hasAMnemonicForEachEntry) {
    const MyDocument& document = openDocument();
    for (const QMenu* submenu : menu(document, "formatMenu")->findChildren<QMenu*>()) {
        QStringList mnemonics;
        for (const QAction* entry : submenu->actions()) {
            if (!entry->isSeparator()) mnemonics.append(QKeySequence::mnemonic(entry->text()).toString());
        }
        EXPECT_FALSE(mnemonics.contains(QString()));
        EXPECT_EQ(mnemonics.removeDuplicates(), 0);
    }
}

/// A document in mini mode, reached by its key.
struct MiniMode : ApplicationTest {
    MyDocument& openMiniWindow() {
        MyDocument& document = openDocument();
        press(document, Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_TRUE(document.isSmallWindowShown());
        EXPECT_TRUE(QTest::qWaitForWindowActive(document.miniWindow()));
        return document;
    }
    static void press(const MyDocument& document, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(document.activeFormulaTextView(), key, modifiers);
    }
    static void type(const MyDocument& document, const QString& text) {
        QTest::keyClicks(document.activeFormulaTextView(), text);
    }
};

TEST_F(MiniMode, isLeftByItsKeyAgain) {
    const MyDocument& document = openMiniWindow();
    EXPECT_TRUE(action(document, "miniModeAction")->isChecked());
    press(document, Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(document.isSmallWindowShown());
    EXPECT_FALSE(action(document, "miniModeAction")->isChecked());
    EXPECT_TRUE(document.documentWindow()->isVisible());
}

TEST_F(MiniMode, isEnteredAndLeftWithoutLosingTheContinuation) {
    const MyDocument& document = openDocument();
    type(document, "2+3");
    press(document, Qt::Key_Return);
    press(document, Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(QTest::qWaitForWindowActive(document.miniWindow()));
    press(document, Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(QTest::qWaitForWindowActive(document.documentWindow()));
    type(document, "+");
    EXPECT_EQ(document.formulaTextView()->text(), "ans+");
}

TEST_F(MiniMode, keepsTheDocumentActiveAndOpen) {
    const MyDocument& document = openMiniWindow();
    EXPECT_EQ(application.documents().activeDocument(), &document);
    EXPECT_EQ(application.documents().documents().size(), 1);
}

TEST_F(MiniMode, editsItsOwnLine) {
    const MyDocument& document = openMiniWindow();
    type(document, "12");
    press(document, Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(action(document, "copyAction")->isEnabled());
    press(document, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "12");
    trigger(document, "cutAction");
    EXPECT_EQ(document.miniModeformulaTextView()->text(), "");
    press(document, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(document.miniModeformulaTextView()->text(), "12");
    trigger(document, "undoAction");
    EXPECT_EQ(document.miniModeformulaTextView()->text(), "");
    EXPECT_EQ(document.formulaTextView()->text(), "");
}

TEST_F(MiniMode, hasTheKeysOfTheMenus) {
    const MyDocument& document = openMiniWindow();
    press(document, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(application.documents().documents().size(), 2);
    press(document, Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_NE(application.preferences().preferenceController(), nullptr);
    press(document, Qt::Key_S, Qt::ControlModifier);
    EXPECT_NE(document.miniWindow()->findChild<QMessageBox*>(), nullptr);
    for (const QAction* entry : document.documentWindow()->findChildren<QAction*>()) {
        const bool hasKey = !entry->shortcut().isEmpty() && entry->objectName() != "menuBarAction";  // It has none.
        EXPECT_EQ(document.miniWindow()->actions().contains(entry), hasKey) << entry->objectName().toStdString();
    }
}

TEST_F(MiniMode, closesTheDocumentByKey) {
    const MyDocument& document = openMiniWindow();
    press(document, Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(application.documents().documents().isEmpty());
}

TEST_F(MiniMode, takesGreekLetters) {
    const MyDocument& document = openMiniWindow();
    press(document, Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    auto* const panel = document.documentWindow()->findChild<TXGreekLetterPanel*>();
    ASSERT_NE(panel, nullptr);
    EXPECT_TRUE(panel->isVisible());
    QTest::mouseClick(panel->findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(document.miniModeformulaTextView()->text(), "α");
}

TEST_F(MiniMode, showsAboutInFrontOfTheMiniWindow) {
    const MyDocument& document = openMiniWindow();
    trigger(document, "aboutAction");
    EXPECT_NE(document.miniWindow()->findChild<QMessageBox*>("aboutBox"), nullptr);
}

TEST_F(MiniMode, isMinimizedAndEndsWithFullScreen) {
    const MyDocument& document = openMiniWindow();
    trigger(document, "minimizeAction");
    EXPECT_TRUE(document.miniWindow()->isMinimized());
    press(document, Qt::Key_F11);
    EXPECT_FALSE(document.isSmallWindowShown());
    EXPECT_TRUE(document.documentWindow()->isFullScreen());
}

TEST_F(MiniMode, keepsEveryMiniWindowOnTopAtOnce) {
    MyDocument& first = openDocument();
    MyDocument& second = openDocument();
    EXPECT_TRUE(action(first, "keepMiniWindowOnTopAction")->isEnabled());
    trigger(first, "keepMiniWindowOnTopAction");
    EXPECT_TRUE(first.keepsMiniWindowOnTop());
    EXPECT_TRUE(second.keepsMiniWindowOnTop());
    EXPECT_TRUE(action(second, "keepMiniWindowOnTopAction")->isChecked());
    EXPECT_TRUE(openDocument().keepsMiniWindowOnTop());
    second.setKeepsMiniWindowOnTop(false);
    EXPECT_FALSE(first.keepsMiniWindowOnTop());
    EXPECT_FALSE(action(first, "keepMiniWindowOnTopAction")->isChecked());
}

}  // namespace
