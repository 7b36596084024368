// The commands of the Edit menu that need the session, by their keys.

#include <QClipboard>

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

}  // namespace
