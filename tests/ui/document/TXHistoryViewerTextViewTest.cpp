#include "ui/document/TXHistoryViewerTextView.h"

#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>

#include "tests/support/DocumentTest.h"

namespace {

using namespace Qt::StringLiterals;

QString copied(TXHistoryViewerTextView* history) {
    QTest::keyClick(history, Qt::Key_C, Qt::ControlModifier);
    return QGuiApplication::clipboard()->text();
}

TEST(TXHistoryViewerTextView, isCopiedWithoutItsLastLineBreak) {
    const OpenDocument open;
    open.press(u"2+3⏎x=4⏎");
    QTest::keyClick(open.document.mainField(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(copied(open.document.mainField()), "2+3\n\t= 5\n\nx=4\n\tx = 4");
}

TEST(TXHistoryViewerTextView, isCopiedCharacterForCharacter) {
    const OpenDocument open;
    open.entry()->setText(u"2\u00A0+\u00A03"_qs);
    open.press(u"⏎");
    open.document.mainField()->selectAll();
    EXPECT_TRUE(copied(open.document.mainField()).startsWith(u"2\u00A0+\u00A03\n"_qs));
}

TEST(TXHistoryViewerTextView, isCopiedInItsColors) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    open.document.mainField()->selectAll();
    open.document.mainField()->copy();
    const QString html = QGuiApplication::clipboard()->mimeData()->html();
    EXPECT_TRUE(html.contains("color:#1818d4")) << html.toStdString();
    EXPECT_EQ(html.count("<p"), 2);
}

TEST(TXHistoryViewerTextView, isCopiedInPart) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    QTextCursor cursor = open.document.mainField()->textCursor();
    cursor.setPosition(1);
    cursor.setPosition(2, QTextCursor::KeepAnchor);
    open.document.mainField()->setTextCursor(cursor);
    EXPECT_EQ(copied(open.document.mainField()), "+");
}

TEST(TXHistoryViewerTextView, hasACaretForTheKeyboard) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    TXHistoryViewerTextView* history = open.document.mainField();
    history->setFocus();
    QTest::keyClick(history, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(history, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(history->textCursor().selectedText(), "2");
    EXPECT_TRUE(history->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
}

TEST(TXHistoryViewerTextView, takesNoDrop) {
    const OpenDocument open;
    QMimeData data;
    data.setText("7");
    QDragEnterEvent enter({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(open.document.mainField()->viewport(), &enter);
    QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(open.document.mainField()->viewport(), &drop);
    EXPECT_EQ(open.history(), "");
}

TEST(TXHistoryViewerTextView, scrollsToTheNewestAnswer) {
    const OpenDocument open;
    const QScrollBar* bar = open.document.mainField()->verticalScrollBar();
    for (int i = 0; i < 40; ++i) open.press(u"⏎2");
    EXPECT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST(TXHistoryViewerTextView, staysWhereTheUserScrolledWhileTyping) {
    const OpenDocument open;
    QScrollBar* bar = open.document.mainField()->verticalScrollBar();
    for (int i = 0; i < 40; ++i) open.press(u"2⏎");
    bar->setValue(0);
    open.press(u"3+4");
    EXPECT_EQ(bar->value(), 0);
    open.press(u"⏎");
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST(TXHistoryViewerTextView, keepsTheNewestAnswerInSightWhenItShrinks) {
    const OpenDocument open;
    const QScrollBar* bar = open.document.mainField()->verticalScrollBar();
    open.press(u"1⏎2⏎3⏎4⏎5⏎");
    EXPECT_EQ(bar->maximum(), 0);
    open.document.documentWindow()->resize(420, 260);
    QTest::qWait(0);
    EXPECT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
}

/// How many of the view's pixels are not of its background's colour.
int inkIn(QWidget* view) {
    const QImage image = view->grab().toImage();
    const QRgb background = image.pixel(0, 0);
    int ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) ink += image.pixel(x, y) != background ? 1 : 0;
    }
    return ink;
}

TEST(HistoryHint, isShownUntilTheFirstCalculation) {
    const OpenDocument open;
    TXHistoryViewerTextView* history = open.document.mainField();
    EXPECT_GT(inkIn(history->viewport()), 200);
    EXPECT_EQ(open.history(), "");
    open.press(u"1⏎");
    history->clear();
    history->setPlainText(" ");
    EXPECT_EQ(inkIn(history->viewport()), 0);
}

TEST(HistoryLayout, keepsAWrappedErrorUnderItsFirstWord) {
    const OpenDocument open;
    open.document.documentWindow()->resize(420, 400);
    open.press(u"(2⏎");
    TXHistoryViewerTextView* history = open.document.mainField();
    QTextCursor cursor(history->document());
    cursor.movePosition(QTextCursor::NextBlock);
    cursor.movePosition(QTextCursor::NextCharacter);  // behind the tab
    const QRect firstWord = history->cursorRect(cursor);
    cursor.movePosition(QTextCursor::Down);
    cursor.movePosition(QTextCursor::StartOfLine);
    const QRect secondLine = history->cursorRect(cursor);
    EXPECT_GT(secondLine.top(), firstWord.top());
    EXPECT_EQ(secondLine.left(), firstWord.left());
    EXPECT_EQ(firstWord.left(), 12 + 24);
    EXPECT_EQ(history->tabStopDistance(), 24.0);
}

TEST(HistoryLayout, hasItsInsetsWithinTheMargin) {
    const OpenDocument open;
    open.press(u"1⏎");
    QTextCursor cursor(open.document.mainField()->document());
    open.document.mainField()->verticalScrollBar()->setValue(0);
    EXPECT_EQ(open.document.mainField()->cursorRect(cursor).topLeft(), QPoint(12, 12 + 2));
}

}  // namespace
