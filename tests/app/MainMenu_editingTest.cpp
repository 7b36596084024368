// The commands of the Edit menu that need the session, by their keys.

#include <QAbstractButton>
#include <QClipboard>
#include <QMessageBox>

#include "tests/support/ApplicationTest.h"

namespace {

struct EditingCommands : ApplicationTest {
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
        QTest::keyClick(document.activeFormulaTextView(), key, modifiers);
    }
    void enter(const QString& line) const {
        QTest::keyClicks(document.activeFormulaTextView(), line);
        press(Qt::Key_Return, Qt::NoModifier);
    }
    bool isEnabled(const char* name) const { return action(document, name)->isEnabled(); }

    MyDocument& document = openDocument();
};

TEST_F(EditingCommands, copyTheLastAnswerInEitherWindow) {
    EXPECT_FALSE(isEnabled("copyLastAnswerAction"));
    enter("2+3");
    EXPECT_TRUE(isEnabled("copyLastAnswerAction"));
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "5");
    QTest::keyClicks(document.formulaTextView(), "+");
    EXPECT_EQ(document.formulaTextView()->text(), "ans+");
    trigger(document, "miniModeAction");
    ASSERT_TRUE(QTest::qWaitForWindowActive(document.miniWindow()));
    enter("2");
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "7");
}

TEST_F(EditingCommands, copyWithoutSeparatorsWhileThereAreAny) {
    const char* const name = "copyLastAnswerWithoutSeparatorsAction";
    trigger(document, "thousandsSeparators");
    EXPECT_FALSE(isEnabled(name));
    enter("10^6");
    EXPECT_TRUE(isEnabled(name));
    trigger(document, name);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "1000000");
    trigger(document, "copyLastAnswerAction");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "1,000,000");
    trigger(document, "thousandsSeparators");
    EXPECT_FALSE(isEnabled(name));
}

TEST_F(EditingCommands, insertPlusMinusByKey) {
    QTest::keyClicks(document.formulaTextView(), "5");
    press(Qt::Key_Equal, Qt::AltModifier | Qt::ShiftModifier);
    QTest::keyClicks(document.formulaTextView(), "1");
    EXPECT_EQ(document.formulaTextView()->text(), QString::fromUtf8("5±1"));
}

TEST_F(EditingCommands, undoWhatEscapeEmptied) {
    QTest::keyClicks(document.formulaTextView(), "12+3");
    press(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_EQ(document.formulaTextView()->text(), "");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(document.formulaTextView()->text(), "12+3");
}

TEST_F(EditingCommands, changeTheTextSizeByKey) {
    EXPECT_FALSE(isEnabled("normalTextAction"));
    press(Qt::Key_Plus, Qt::ControlModifier);
    press(Qt::Key_Equal, Qt::ControlModifier);
    press(Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(document.textSize(), 130);
    EXPECT_TRUE(isEnabled("normalTextAction"));
    press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(document.textSize(), 120);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(document.textSize(), 100);
    EXPECT_FALSE(isEnabled("normalTextAction"));
}

TEST_F(EditingCommands, changeTheTextSizeNoFurtherThanItGoes) {
    for (int i = 0; i < 25; ++i) press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(document.textSize(), 300);
    EXPECT_FALSE(isEnabled("largerTextAction"));
    for (int i = 0; i < 30; ++i) press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(document.textSize(), 50);
    EXPECT_FALSE(isEnabled("smallerTextAction"));
    EXPECT_TRUE(isEnabled("largerTextAction"));
    EXPECT_EQ(document.formulaTextView()->text(), "");
}

TEST_F(EditingCommands, findInTheHistoryByKey) {
    for (const char* name : {"findInHistoryAction", "findNextAction", "findPreviousAction"}) {
        EXPECT_FALSE(isEnabled(name)) << name;
    }
    enter("7");
    enter("8");
    press(Qt::Key_F, Qt::ControlModifier);
    QWidget* const field = QApplication::focusWidget();
    EXPECT_EQ(field->objectName(), "findField");
    QTest::keyClicks(field, "8");
    EXPECT_EQ(document.mainField()->match().blockNumber(), 3);
    QTest::keyClick(field, Qt::Key_F3);
    EXPECT_EQ(document.mainField()->match().blockNumber(), 4);
    QTest::keyClick(field, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(document.mainField()->match().blockNumber(), 3);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_TRUE(document.formulaTextView()->hasFocus());
    press(Qt::Key_F3, Qt::NoModifier);
    EXPECT_EQ(document.mainField()->match().selectedText(), "8");
}

TEST_F(EditingCommands, clearTheHistoryAndBringItBack) {
    EXPECT_FALSE(isEnabled("clearHistoryAction"));
    enter("7");
    trigger(document, "clearHistoryAction");
    EXPECT_EQ(document.mainField()->toPlainText(), "");
    EXPECT_FALSE(isEnabled("clearHistoryAction"));
    EXPECT_FALSE(isEnabled("findInHistoryAction"));
    document.mainField()->setFocus();
    EXPECT_TRUE(isEnabled("undoAction"));
    trigger(document, "undoAction");
    EXPECT_EQ(document.mainField()->toPlainText(), "7\n\t= 7\n");
    EXPECT_FALSE(isEnabled("undoAction"));
    EXPECT_TRUE(isEnabled("clearHistoryAction"));
}

TEST_F(EditingCommands, clearEverythingAfterAQuestion) {
    EXPECT_FALSE(isEnabled("clearEverythingAction"));
    enter("x=7");
    trigger(document, "clearHistoryAction");
    EXPECT_TRUE(isEnabled("clearEverythingAction"));
    trigger(document, "clearEverythingAction");
    auto* const question = document.documentWindow()->findChild<QMessageBox*>("clearEverythingQuestion");
    ASSERT_NE(question, nullptr);
    for (QAbstractButton* button : question->buttons()) {
        if (question->buttonRole(button) == QMessageBox::AcceptRole) QTest::mouseClick(button, Qt::LeftButton);
    }
    EXPECT_FALSE(isEnabled("clearEverythingAction"));
    EXPECT_FALSE(isEnabled("copyLastAnswerAction"));
    EXPECT_FALSE(isEnabled("undoAction") && document.canUndoClearHistory());
    EXPECT_EQ(document.documentEquationController().variableArray().size(), 2);
}

}  // namespace
