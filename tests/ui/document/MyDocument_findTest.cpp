// Finding a text in the history.

#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QToolButton>

#include "tests/support/DocumentTest.h"
#include "ui/document/FindBar.h"

namespace {

struct Find : OpenDocument {
    QLineEdit* field() const { return document.findBar()->findChild<QLineEdit*>("findField"); }
    TXHistoryViewerTextView* view() const { return document.mainField(); }
    QString status() const { return document.findBar()->status(); }
    /// The text that is marked, and the number of its line.
    std::pair<QString, int> match() const {
        return view()->match().isNull() ? std::pair(QString(), -1)
                                        : std::pair(view()->match().selectedText(), view()->match().blockNumber());
    }
    void find(const QString& text) {
        document.findInHistory();
        QTest::keyClicks(field(), text);
    }
};

TEST(FindBar, isHiddenAtFirstAndOpensWithTheFocus) {
    Find open;
    EXPECT_FALSE(open.document.findBar()->isVisible());
    open.press(u"2+3⏎");
    open.document.findInHistory();
    EXPECT_TRUE(open.document.findBar()->isVisible());
    EXPECT_TRUE(open.field()->hasFocus());
    EXPECT_EQ(open.field()->accessibleName(), "Find in history");
}

TEST(FindBar, closesWithEscapeBackToTheEntry) {
    Find open;
    open.press(u"2+3⏎");
    open.find("3");
    EXPECT_EQ(open.view()->extraSelections().size(), 1);
    QTest::keyClick(open.field(), Qt::Key_Escape);
    EXPECT_FALSE(open.document.findBar()->isVisible());
    EXPECT_TRUE(open.view()->extraSelections().isEmpty());
    EXPECT_TRUE(open.entry()->hasFocus());
    open.press(u"+");
    EXPECT_EQ(open.line(), "ans+");
}

TEST(FindBar, closesWithItsButton) {
    Find open;
    open.press(u"2+3⏎");
    open.find("3");
    QTest::mouseClick(open.document.findBar()->findChild<QToolButton*>("findCloseButton"), Qt::LeftButton);
    EXPECT_FALSE(open.document.findBar()->isVisible());
    EXPECT_TRUE(open.entry()->hasFocus());
}

TEST(FindBar, leavesTheFocusWhereItIsWhenItClosesWithoutIt) {
    Find open;
    open.press(u"2+3⏎");
    open.find("3");
    open.view()->setFocus();
    open.document.closeFindBar();
    EXPECT_TRUE(open.view()->hasFocus());
}

TEST(FindBar, keepsItsTextAndSelectsItWhenItOpensAgain) {
    Find open;
    open.press(u"2+3⏎sin(0)⏎");
    open.find("SIN");
    QTest::keyClick(open.field(), Qt::Key_Escape);
    open.document.findInHistory();
    EXPECT_EQ(open.field()->selectedText(), "SIN");
    EXPECT_EQ(open.match(), std::pair(QString("sin"), 3));
}

TEST(FindBar, hasTooltipsThatNameTheKeys) {
    Find open;
    EXPECT_EQ(open.document.findBar()->findChild<QToolButton*>("findNextButton")->toolTip(), "Find next (F3)");
    EXPECT_EQ(open.document.findBar()->findChild<QToolButton*>("findPreviousButton")->toolTip(),
              "Find previous (Shift+F3)");
}

TEST(FindBar, fitsIntoTheSmallestWindow) {
    Find open;
    open.press(u"2+3⏎");
    open.document.documentWindow()->resize(420, 260);
    open.find("3");
    open.document.findPreviousInHistory();
    open.document.findPreviousInHistory();
    QTest::qWait(0);
    EXPECT_EQ(open.document.documentWindow()->width(), 420);
    const FindBar* const bar = open.document.findBar();
    const auto* const close = bar->findChild<QToolButton*>("findCloseButton");
    EXPECT_GE(close->width(), close->minimumSizeHint().width());
    EXPECT_LT(close->mapTo(open.document.documentWindow(), close->rect().bottomRight()).x(), 420);
    EXPECT_GT(open.view()->viewport()->height(), open.view()->fontMetrics().height());
}

TEST(FindBar, opensInTheFullWindow) {
    Find open;
    open.press(u"2+3⏎");
    open.document.windowShouldZoom();
    open.document.findNextInHistory();
    EXPECT_FALSE(open.document.isSmallWindowShown());
    EXPECT_TRUE(open.document.findBar()->isVisible());
}

TEST(FindInHistory, goesDownAndUpAndRound) {
    Find open;
    open.press(u"x=1⏎2⏎x+5⏎3⏎x+x⏎");  // Lines 0, 3, 6, 9 and 12 are equations, each followed by its answer.
    open.find("x");
    EXPECT_EQ(open.match(), std::pair(QString("x"), 0));
    EXPECT_EQ(open.status(), "");
    open.document.findNextInHistory();
    EXPECT_EQ(open.match().second, 1);
    open.document.findNextInHistory();
    EXPECT_EQ(open.match().second, 6);
    open.document.findPreviousInHistory();
    EXPECT_EQ(open.match().second, 1);
    open.document.findPreviousInHistory();
    EXPECT_EQ(open.match().second, 0);
    EXPECT_EQ(open.status(), "");
    open.document.findPreviousInHistory();
    EXPECT_EQ(open.match().second, 12);
    EXPECT_EQ(open.status(), "Wrapped to the end");
    open.document.findNextInHistory();
    EXPECT_EQ(open.match().second, 0);
    EXPECT_EQ(open.status(), "Wrapped to the start");
    open.document.findNextInHistory();
    EXPECT_EQ(open.status(), "");
}

TEST(FindInHistory, followsReturnAndTheButtons) {
    Find open;
    open.press(u"7⏎7⏎7⏎");
    open.find("7");
    EXPECT_EQ(open.match().second, 0);
    QTest::keyClick(open.field(), Qt::Key_Return);
    EXPECT_EQ(open.match().second, 1);
    QTest::keyClick(open.field(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(open.match().second, 0);
    QTest::mouseClick(open.document.findBar()->findChild<QToolButton*>("findNextButton"), Qt::LeftButton);
    EXPECT_EQ(open.match().second, 1);
    QTest::mouseClick(open.document.findBar()->findChild<QToolButton*>("findPreviousButton"), Qt::LeftButton);
    EXPECT_EQ(open.match().second, 0);
    EXPECT_TRUE(open.field()->hasFocus());
    EXPECT_EQ(open.history(), "7\n\t= 7\n\n7\n\t= 7\n\n7\n\t= 7\n");
}

TEST(FindInHistory, staysAtTheMatchWhileTheTextGetsLonger) {
    Find open;
    open.press(u"12⏎13⏎123⏎");
    open.find("1");
    EXPECT_EQ(open.match(), std::pair(QString("1"), 0));
    QTest::keyClicks(open.field(), "2");
    EXPECT_EQ(open.match(), std::pair(QString("12"), 0));
    QTest::keyClicks(open.field(), "3");
    EXPECT_EQ(open.match(), std::pair(QString("123"), 6));
}

TEST(FindInHistory, saysThatThereAreNoMatches) {
    Find open;
    open.press(u"2+3⏎");
    open.find("9");
    EXPECT_EQ(open.status(), "No matches");
    EXPECT_EQ(open.field()->accessibleDescription(), "No matches");
    EXPECT_TRUE(open.view()->extraSelections().isEmpty());
    open.document.findNextInHistory();
    EXPECT_EQ(open.status(), "No matches");
    QTest::keyClick(open.field(), Qt::Key_Backspace);
    EXPECT_EQ(open.status(), "");
}

TEST(FindInHistory, beginsWithWhatIsInSightAndScrollsThere) {
    Find open;
    open.press(u"777⏎");
    for (int i = 0; i < 60; ++i) open.press(u"1⏎");
    open.press(u"777⏎");
    for (int i = 0; i < 60; ++i) open.press(u"1⏎");
    QScrollBar* bar = open.view()->verticalScrollBar();
    open.find("777");  // None below what is in sight: the nearest one above.
    EXPECT_EQ(open.match().second, 184);
    EXPECT_TRUE(open.view()->viewport()->rect().contains(open.view()->cursorRect(open.view()->match())));
    open.document.findPreviousInHistory();
    EXPECT_EQ(open.match().second, 183);
    open.document.findPreviousInHistory();
    open.document.findPreviousInHistory();
    EXPECT_EQ(open.match().second, 0);
    EXPECT_TRUE(open.view()->viewport()->rect().contains(open.view()->cursorRect(open.view()->match())));
    EXPECT_LT(bar->value(), bar->maximum());
}

TEST(FindInHistory, changesNeitherTheTextNorWhatIsCopied) {
    Find open;
    open.press(u"2+3⏎");
    open.view()->selectAll();
    const QString html = open.view()->toHtml();
    open.find("3");
    EXPECT_EQ(open.view()->toHtml(), html);
    open.view()->copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "2+3\n\t= 5");
    EXPECT_EQ(open.line(), "2+3");
    EXPECT_EQ(open.selection(), "2+3");
    EXPECT_TRUE(open.entry()->permissibleToEnterTextFlag());
}

TEST(FindInHistory, marksTheMatchInTheColoursOfASelection) {
    Find open;
    open.press(u"2+3⏎");
    open.find("2");
    const QTextCharFormat mark = open.view()->extraSelections().first().format;
    EXPECT_EQ(mark.background().color(), open.view()->palette().color(QPalette::Active, QPalette::Highlight));
    EXPECT_EQ(mark.foreground().color(), open.view()->palette().color(QPalette::Active, QPalette::HighlightedText));
    QPalette other = open.view()->palette();
    other.setColor(QPalette::Highlight, Qt::darkGreen);
    open.view()->setPalette(other);
    EXPECT_EQ(open.view()->extraSelections().first().format.background().color(), QColor(Qt::darkGreen));
}

TEST(FindInHistory, goesOnWhileOneCalculates) {
    Find open;
    open.press(u"5⏎");
    open.find("5");
    open.entry()->setFocus();
    open.press(u"6⏎");
    EXPECT_EQ(open.match().second, 0);
    open.press(u"55⏎");
    open.document.findPreviousInHistory();
    EXPECT_TRUE(open.entry()->hasFocus());
    EXPECT_EQ(open.match().second, 7);
}

}  // namespace
