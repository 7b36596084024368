// Clearing the shown history, and clearing everything.

#include <QClipboard>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextBlock>
#include <tuple>

#include "tests/support/Sidebar.h"
#include "tests/support/Warnings.h"
#include "ui/document/FindBar.h"
#include "ui/document/MiniModeAnswerField.h"

namespace {

TEST(ClearHistory, emptiesTheShownTextOnly) {
    OpenDocument open;
    open.press(u"x=4⏎2+3⏎");
    open.document.clearHistory();
    EXPECT_EQ(open.history(), "");
    EXPECT_EQ(open.line(), "2+3");
    EXPECT_EQ(open.selection(), "2+3");
    EXPECT_EQ(open.document.documentEquationController().equationsArray().size(), 2U);
    EXPECT_EQ(open.document.documentFormulaScrollerController().masterScrollbackArray().size(), 3U);
    open.press(u"+x⏎");
    EXPECT_EQ(open.history(), "ans1+x\n\t= 9\n");
}

TEST(ClearHistory, leavesAViewLikeANewOne) {
    OpenDocument open;
    const auto look = [&open] {
        TXHistoryViewerTextView* view = open.document.mainField();
        view->selectAll();
        view->copy();
        return std::tuple(QGuiApplication::clipboard()->mimeData()->html(), view->document()->size(),
                          view->tabStopDistance(), view->document()->isUndoRedoEnabled(), view->isReadOnly(),
                          view->document()->defaultTextOption().textDirection(), view->document()->defaultFont(),
                          view->cursorRect(QTextCursor(view->document())));
    };
    open.press(u"2+3⏎");
    const auto before = look();
    open.document.clearHistory();
    open.press(u"2+3⏎");
    EXPECT_EQ(look(), before);
}

// With Shift, a click extends what a double click selected before: but not when that is gone.
TEST(ClearHistory, forgetsWhatWasSelectedByADoubleClick) {
    OpenDocument open;
    const Warnings warnings;
    QWidget* const view = open.document.mainField()->viewport();
    open.press(u"alpha=1000⏎");
    const QPoint inWord = open.document.mainField()->cursorRect().topLeft() + QPoint(8, 2);
    for (const bool isMeanwhileEntered : {false, true}) {
        const QRect firstLine =
            open.document.mainField()->cursorRect(QTextCursor(open.document.mainField()->document()));
        QTest::mouseDClick(view, Qt::LeftButton, {}, firstLine.center() + QPoint(4, 0));
        EXPECT_TRUE(open.document.mainField()->textCursor().hasSelection());
        open.document.clearHistory();
        if (isMeanwhileEntered) open.press(u"2⏎");
        QTest::mouseClick(view, Qt::LeftButton, Qt::ShiftModifier, inWord);
        open.press(u"beta=2⏎");
    }
    EXPECT_EQ(warnings.messages(), QStringList());
}

TEST(ClearHistory, isUndoneAsLongAsNothingElseHappened) {
    OpenDocument open;
    open.press(u"2+3⏎12");
    const QString before = open.history();
    const QSignalSpy changed(&open.document, &MyDocument::canUndoClearHistoryChanged);
    open.document.clearHistory();
    EXPECT_TRUE(open.document.canUndoClearHistory());
    EXPECT_EQ(changed.count(), 1);
    QTest::keyClick(open.entry(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(open.history(), before);
    EXPECT_EQ(open.line(), "12");
    EXPECT_FALSE(open.document.canUndoClearHistory());
    EXPECT_EQ(changed.count(), 2);
    // The next step is one of the line again.
    QTest::keyClick(open.entry(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(open.line(), "12");
    EXPECT_EQ(open.history(), before);
}

TEST(ClearHistory, comesBackWithWhatItsLinesKnow) {
    OpenDocument open;
    open.press(u"2+3⏎7⏎");
    open.document.clearHistory();
    open.document.setTextSize(200);
    open.document.undoClearHistory();
    EXPECT_EQ(open.document.mainField()->document()->defaultFont().pointSizeF(), 24.0);
    open.press(u"8⏎");
    EXPECT_EQ(open.history(), "2+3\n\t= 5\n\n7\n\t= 7\n\n8\n\t= 8\n");
    const QTextBlock answer = open.document.mainField()->document()->findBlockByNumber(1);
    EXPECT_NE(answer.userData(), nullptr);
    EXPECT_EQ(answer.blockFormat().intProperty(TXHistoryViewerTextView::lineKindProperty),
              static_cast<int>(TXHistoryViewerTextView::LineKind::answer));
}

TEST(ClearHistory, cannotComeBackAfterAKeyOrALine) {
    for (const QStringView keys : {u"4", u"⏎", u"⌫"}) {
        OpenDocument open;
        open.press(u"2+3⏎");
        open.document.clearHistory();
        open.press(keys);
        EXPECT_FALSE(open.document.canUndoClearHistory());
        const QString shown = open.history();
        open.document.undoClearHistory();
        EXPECT_EQ(open.history(), shown);
    }
}

TEST(ClearHistory, canComeBackAfterTheCaretMovedOrTheWindowChanged) {
    OpenDocument open;
    open.press(u"2+3⏎");
    open.document.clearHistory();
    open.press(u"←");
    open.document.windowShouldZoom();
    QTest::keyClick(open.entry(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(open.history(), "2+3\n\t= 5\n");
}

TEST(ClearHistory, closesTheFindBar) {
    OpenDocument open;
    open.press(u"2+3⏎");
    open.document.findInHistory();
    open.document.clearHistory();
    EXPECT_FALSE(open.document.findBar()->isVisible());
    EXPECT_TRUE(open.entry()->hasFocus());
}

TEST(ClearHistory, doesNothingWhenThereIsNone) {
    OpenDocument open;
    open.document.clearHistory();
    EXPECT_FALSE(open.document.canUndoClearHistory());
}

struct ClearEverything : Sidebar {
    QMessageBox* ask() {
        document.askToClearEverything();
        return document.activeWindow()->findChild<QMessageBox*>("clearEverythingQuestion");
    }
    static QPushButton* button(const QMessageBox& question) {
        for (QAbstractButton* found : question.buttons()) {
            if (found->text().remove(u'&') == "Clear Everything") return qobject_cast<QPushButton*>(found);
        }
        return nullptr;
    }
};

TEST(ClearEverything, asksBeforeAndKeepsAllByDefault) {
    ClearEverything open;
    open.press(u"x=4⏎");
    QMessageBox* question = open.ask();
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(question->windowModality(), Qt::WindowModal);
    EXPECT_EQ(question->defaultButton(), question->button(QMessageBox::Cancel));
    EXPECT_TRUE(question->informativeText().contains("cannot be undone"));
    EXPECT_TRUE(ClearEverything::button(*question)->icon().isNull());
    QTest::keyClick(question, Qt::Key_Return);
    EXPECT_FALSE(question->isVisible());
    EXPECT_EQ(open.history(), "x=4\n\tx = 4\n");
    question = open.ask();
    QTest::keyClick(question, Qt::Key_Escape);
    EXPECT_EQ(open.history(), "x=4\n\tx = 4\n");
    EXPECT_EQ(open.rows().last(), " x=4");
}

TEST(ClearEverything, beginsAnew) {
    ClearEverything open;
    const QStringList fresh = open.rows();
    open.press(u"x=4⏎2+3⏎x+");
    open.document.documentEquationController().setUseRadians(false);
    QMessageBox* question = open.ask();
    QTest::mouseClick(ClearEverything::button(*question), Qt::LeftButton);
    EXPECT_EQ(open.history(), "");
    EXPECT_EQ(open.line(), "");
    EXPECT_EQ(open.rows(), fresh);
    EXPECT_TRUE(open.document.documentEquationController().equationsArray().empty());
    EXPECT_FALSE(open.document.documentEquationController().useRadians());
    EXPECT_EQ(open.document.documentFormulaScrollerController().masterScrollbackArray(), std::vector<QString>{""});
    EXPECT_FALSE(open.document.canUndoClearHistory());
    EXPECT_FALSE(open.document.hasLastAnswer());
    open.press(u"⇑");
    EXPECT_EQ(open.beeps.count(), 1);
    open.press(u"1+1⏎");
    EXPECT_EQ(open.rows().filter("ans"), (QStringList{" ans=2", " ans1=2"}));
}

TEST(ClearEverything, emptiesTheMiniWindowAndEndsTheContinuation) {
    ClearEverything open;
    open.document.windowShouldZoom();
    open.press(u"2+3⏎");
    EXPECT_EQ(open.document.miniModeAnswerField()->text(), "5");
    open.document.clearEverything();
    EXPECT_EQ(open.document.miniModeAnswerField()->text(), "");
    open.press(u"+");
    EXPECT_EQ(open.line(), "+");
}

}  // namespace
