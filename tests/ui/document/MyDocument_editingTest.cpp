// Commands for the last answer and for ±, and keys that are pressed beside the entry line.

#include <QClipboard>
#include <QInputMethodEvent>
#include <QScrollBar>
#include <QSignalSpy>

#include "tests/support/Sidebar.h"
#include "ui/document/PullDownButton.h"

namespace {

QString copiedAnswer(const MyDocument& document) {
    QGuiApplication::clipboard()->setText("nothing");
    document.copyLastAnswer();
    return QGuiApplication::clipboard()->text();
}

QString copiedAnswerWithoutSeparators(const MyDocument& document) {
    QGuiApplication::clipboard()->setText("nothing");
    document.copyLastAnswerWithoutSeparators();
    return QGuiApplication::clipboard()->text();
}

QAction* thousandsSeparators(const MyDocument& document) { return document.formattingTypeButton()->itemAtIndex(9); }

TEST(LastAnswer, isNotThereAtFirst) {
    const OpenDocument open;
    EXPECT_FALSE(open.document.hasLastAnswer());
    EXPECT_EQ(copiedAnswer(open.document), "nothing");
    open.press(u"sin(⏎");
    EXPECT_FALSE(open.document.hasLastAnswer());
    EXPECT_EQ(copiedAnswer(open.document), "nothing");
}

TEST(LastAnswer, isTheNumberAlone) {
    const OpenDocument open;
    open.press(u"2-5⏎");
    EXPECT_TRUE(open.document.hasLastAnswer());
    EXPECT_EQ(copiedAnswer(open.document), "-3");
    open.press(u"x=4/8⏎");
    EXPECT_EQ(copiedAnswer(open.document), "0.5");
}

TEST(LastAnswer, staysAfterALineThatWasRefused) {
    const OpenDocument open;
    open.press(u"2+3⏎sin(⏎");
    EXPECT_EQ(copiedAnswer(open.document), "5");
}

TEST(LastAnswer, isCopiedAsThePresentFormatWritesIt) {
    const OpenDocument open;
    open.press(u"1234567.5⏎");
    thousandsSeparators(open.document)->trigger();
    EXPECT_EQ(copiedAnswer(open.document), "1,234,567.5");
    EXPECT_EQ(copiedAnswerWithoutSeparators(open.document), "1234567.5");
    EXPECT_EQ(copiedAnswer(open.document), "1,234,567.5");
    open.document.formattingTypeButton()->itemAtIndex(2)->trigger();
    EXPECT_EQ(copiedAnswer(open.document), "1.2345675e6");
}

TEST(LastAnswer, tellsWhenItIsAnotherOrIsWrittenInAnotherWay) {
    const OpenDocument open;
    const QSignalSpy changed(&open.document, &MyDocument::sessionChanged);
    open.press(u"7⏎");
    EXPECT_EQ(changed.count(), 1);
    thousandsSeparators(open.document)->trigger();
    EXPECT_EQ(changed.count(), 2);
}

TEST(LastAnswer, isCopiedWithoutEndingTheContinuation) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    EXPECT_EQ(copiedAnswer(open.document), "5");
    open.press(u"+");
    EXPECT_EQ(open.line(), "ans+");
}

TEST(InsertPlusMinus, typesTheSign) {
    OpenDocument open;
    open.press(u"5");
    open.document.mainField()->setFocus();
    open.document.insertPlusMinus();
    EXPECT_TRUE(open.entry()->hasFocus());
    open.press(u"0.1");
    EXPECT_EQ(open.line(), QString::fromUtf8("5±0.1"));
    open.press(u"⏎");
    open.document.insertPlusMinus();
    EXPECT_EQ(open.line(), QString::fromUtf8("±"));
    EXPECT_FALSE(open.entry()->permissibleToEnterTextFlag());
    EXPECT_FALSE(open.entry()->wasFormulaJustCalculated());
    open.document.windowShouldZoom();
    open.document.insertPlusMinus();
    EXPECT_EQ(open.line(), QString::fromUtf8("±±"));
}

TEST(TypingInTheHistory, goesToTheEntry) {
    const OpenDocument open;
    TXHistoryViewerTextView* history = open.document.mainField();
    open.press(u"2+3⏎");
    history->setFocus();
    QTest::keyClick(history, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_TRUE(history->hasFocus());
    QTest::keyClicks(history, "+");
    EXPECT_TRUE(open.entry()->hasFocus());
    EXPECT_EQ(open.line(), "ans+");
    history->setFocus();
    QTest::keyClick(history, Qt::Key_Comma, Qt::KeypadModifier);
    EXPECT_EQ(open.line(), "ans+.");
    EXPECT_EQ(open.history(), "2+3\n\t= 5\n");
}

TEST(TypingInTheHistory, leavesItsOwnKeysThere) {
    const OpenDocument open;
    TXHistoryViewerTextView* history = open.document.mainField();
    open.press(u"2+3⏎");
    history->setFocus();
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Shift, Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Dead_Circumflex}) {
        QTest::sendKeyEvent(QTest::Click, history, key, QString(), Qt::NoModifier);
        EXPECT_TRUE(history->hasFocus()) << key;
    }
    QTest::keyClick(history, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(history, Qt::Key_J, Qt::AltModifier);
    EXPECT_TRUE(history->hasFocus());
    EXPECT_EQ(open.line(), "2+3");
    EXPECT_TRUE(open.entry()->permissibleToEnterTextFlag());
}

TEST(TypingInTheSidebar, goesToTheEntry) {
    const Sidebar open;
    open.press(u"x=4⏎");
    open.click("x=4");
    EXPECT_TRUE(open.view()->hasFocus());
    QTest::keyClicks(open.view(), "*");
    EXPECT_EQ(open.line(), "ans*");
    EXPECT_TRUE(open.entry()->hasFocus());
    EXPECT_EQ(open.selectedRow(), "x=4");
    open.view()->setFocus();
    QTest::keyClicks(open.view(), "p");
    EXPECT_EQ(open.line(), "ans*p");
    EXPECT_EQ(open.selectedRow(), "x=4");
}

/// What an input method tells `view`, as it composes a text and completes it.
void compose(QWidget* view, const QString& text, const QString& committed = {}) {
    QInputMethodEvent event(text, {});
    event.setCommitString(committed);
    QApplication::sendEvent(view, &event);
}

/// Whether an input method may compose in `view`, asked as it asks.
bool takesComposition(QWidget* view) {
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QApplication::sendEvent(view, &query);
    return query.value(Qt::ImEnabled).toBool();
}

TEST(ComposingElsewhere, goesToTheEntryWithTheFocusAtItsEnd) {
    const Sidebar open;
    for (QWidget* const view : {static_cast<QWidget*>(open.document.mainField()), static_cast<QWidget*>(open.view())}) {
        open.press(u"⌘2+3⏎");
        view->setFocus();
        EXPECT_TRUE(takesComposition(view));
        compose(view, "^");
        EXPECT_TRUE(view->hasFocus());
        EXPECT_EQ(open.entry()->textCursor().block().layout()->preeditAreaText(), "^");
        compose(view, {}, "^");
        EXPECT_TRUE(open.entry()->hasFocus());
        EXPECT_EQ(open.line(), "ans^");
        EXPECT_EQ(open.entry()->textCursor().block().layout()->preeditAreaText(), "");
    }
}

TEST(ComposingElsewhere, isGivenUpWithoutATrace) {
    const Sidebar open;
    open.press(u"2+3⏎");
    open.document.mainField()->setFocus();
    compose(open.document.mainField(), "^");
    compose(open.document.mainField(), {});
    EXPECT_TRUE(open.document.mainField()->hasFocus());
    open.press(u"+");
    EXPECT_EQ(open.line(), "ans+");
}

TEST(ComposingElsewhere, showsItsChoicesAtTheEntrysCaret) {
    const Sidebar open;
    const auto caretOnScreen = [](const QWidget* view) {
        return view->mapToGlobal(view->inputMethodQuery(Qt::ImCursorRectangle).toRectF().topLeft());
    };
    open.press(u"2+3");
    EXPECT_EQ(caretOnScreen(open.document.mainField()), caretOnScreen(open.entry()));
    EXPECT_EQ(caretOnScreen(open.view()), caretOnScreen(open.entry()));
    EXPECT_EQ(open.view()->inputMethodQuery(Qt::ImSurroundingText), "2+3");
}

TEST(ComposingElsewhere, isNothingWithoutADocument) {
    TXHistoryViewerTextView history;
    TXOutlineView sidebar;
    for (QWidget* const view : {static_cast<QWidget*>(&history), static_cast<QWidget*>(&sidebar)}) {
        view->inputMethodQuery(Qt::ImCursorRectangle);
        compose(view, {}, "1");
    }
    EXPECT_EQ(history.toPlainText(), "");
}

}  // namespace
