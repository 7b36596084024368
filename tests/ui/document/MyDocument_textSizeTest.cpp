// The size of the text in the full window.

#include <QBuffer>
#include <QClipboard>
#include <QMimeData>
#include <QPdfWriter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QWheelEvent>
#include <limits>

#include "tests/support/Sidebar.h"

namespace {

struct TextSize : OpenDocument {
    double historyPoints() const { return document.mainField()->document()->defaultFont().pointSizeF(); }
    double entryPoints() const { return document.formulaTextView()->font().pointSizeF(); }
    double sidebarPoints() const { return QFontInfo(document.variableOutlineView()->font()).pointSizeF(); }
    int paneHeight() const { return document.secondaryControlledView()->height(); }
    QTextCursor firstInSight() const { return document.mainField()->cursorForPosition(QPoint(0, 0)); }
};

TEST(TextSize, isThatOfHistoryEntryAndSidebar) {
    TextSize open;
    const double sidebar = open.sidebarPoints();
    EXPECT_EQ(open.document.textSize(), 100);
    EXPECT_EQ(open.historyPoints(), 12.0);
    EXPECT_EQ(open.entryPoints(), 15.0);
    open.document.setTextSize(200);
    EXPECT_EQ(open.historyPoints(), 24.0);
    EXPECT_EQ(open.entryPoints(), 30.0);
    EXPECT_NEAR(open.sidebarPoints(), 2 * sidebar, 0.5);
    open.document.setTextSize(50);
    EXPECT_EQ(open.historyPoints(), 6.0);
    EXPECT_EQ(open.entryPoints(), 7.5);
    open.document.setTextSize(100);
    EXPECT_EQ(open.sidebarPoints(), sidebar);
}

TEST(TextSize, goesByTensFromFiftyToThreeHundred) {
    OpenDocument open;
    for (const auto& [wished, size] : {std::pair{114, 110}, {115, 120}, {0, 50}, {-70, 50}, {301, 300}, {9000, 300}}) {
        open.document.setTextSize(wished);
        EXPECT_EQ(open.document.textSize(), size);
    }
}

TEST(TextSize, tellsOnlyWhenItIsAnother) {
    OpenDocument open;
    const QSignalSpy changed(&open.document, &MyDocument::textSizeChanged);
    open.document.setTextSize(100);
    EXPECT_EQ(changed.count(), 0);
    open.document.setTextSize(110);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed.first().first().toInt(), 110);
}

TEST(TextSize, isRememberedForNewDocumentsOnly) {
    TextSize open;
    const MyDocument other;
    open.document.setTextSize(250);
    EXPECT_EQ(QSettings().value("interface/textSize").toInt(), 250);
    EXPECT_EQ(other.textSize(), 100);
    MyDocument next;
    next.showWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(next.documentWindow()));
    EXPECT_EQ(next.textSize(), 250);
    EXPECT_EQ(next.formulaTextView()->font().pointSizeF(), 37.5);
    EXPECT_EQ(next.secondaryControlledView()->height(), open.paneHeight());
    EXPECT_EQ(next.secondaryCurrentWidth(), 50.0F);
}

TEST(TextSize, isMendedWhenNoneIsStored) {
    for (const auto& [stored, size] : {std::pair{QVariant("big"), 100},
                                       {QVariant(7), 50},
                                       {QVariant(133), 130},
                                       {QVariant(-20), 50},
                                       {QVariant(std::numeric_limits<int>::max()), 300}}) {
        const FreshDefaults defaults;
        QSettings().setValue("interface/textSize", stored);
        EXPECT_EQ(MyDocument().textSize(), size);
    }
}

TEST(TextSize, letsTheEntryPaneGrowWithItsLineAndBack) {
    TextSize open;
    EXPECT_EQ(open.paneHeight(), 50);
    const int line = open.entry()->sizeHint().height();
    open.document.setTextSize(200);
    QTest::qWait(0);
    EXPECT_EQ(open.paneHeight(), 50 + open.entry()->sizeHint().height() - line);
    EXPECT_GE(open.entry()->height(), open.entry()->fontMetrics().height());
    open.document.setTextSize(100);
    QTest::qWait(0);
    EXPECT_EQ(open.paneHeight(), 50);
}

TEST(TextSize, leavesAWholeLineInTheSmallestWindow) {
    TextSize open;
    open.document.documentWindow()->resize(420, 260);
    open.document.setTextSize(300);
    QTest::qWait(0);
    EXPECT_EQ(open.document.documentWindow()->size(), QSize(420, 260));
    EXPECT_GE(open.entry()->viewport()->height(), open.entry()->fontMetrics().height());
}

TEST(TextSize, keepsWhatIsInSight) {
    TextSize open;
    for (int i = 0; i < 60; ++i) open.press(u"123⏎");
    QScrollBar* bar = open.document.mainField()->verticalScrollBar();
    open.document.setTextSize(180);
    EXPECT_EQ(bar->value(), bar->maximum());
    bar->setValue(bar->maximum() / 2);
    const int first = open.firstInSight().blockNumber();
    open.document.setTextSize(90);
    EXPECT_NEAR(open.firstInSight().blockNumber(), first, 1);
}

TEST(TextSize, isNoneOfWhatIsCopied) {
    TextSize open;
    const auto copied = [&open] {
        open.document.mainField()->selectAll();
        open.document.mainField()->copy();
        return QGuiApplication::clipboard()->mimeData()->html();
    };
    open.press(u"2+3⏎");
    const QString normal = copied();
    open.document.setTextSize(300);
    EXPECT_EQ(copied(), normal);
}

QByteArray printed(const MyDocument& document) {
    QBuffer pages;
    pages.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pages);
    document.printHistory(&writer);
    return pages.data();
}

TEST(TextSize, isNoneOfWhatIsPrinted) {
    TextSize open;
    for (int i = 0; i < 60; ++i) open.press(u"123⏎");
    const auto pages = [&open] { return printed(open.document).count("/Type /Page\n"); };
    const auto normal = pages();
    EXPECT_GT(normal, 1);
    open.document.setTextSize(300);
    EXPECT_EQ(pages(), normal);
    EXPECT_EQ(open.historyPoints(), 36.0);
}

TEST(TextSize, changesNothingElse) {
    TextSize open;
    open.press(u"2+3⏎");
    open.document.setTextSize(200);
    EXPECT_EQ(open.selection(), "2+3");
    open.press(u"+");
    EXPECT_EQ(open.line(), "ans+");
    EXPECT_EQ(open.document.miniModeformulaTextView()->font().pointSizeF(), 13.0);
}

TEST(TextSize, followsTheWheelWithControl) {
    OpenDocument open;
    const auto turn = [](QWidget* widget, int movement, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(QPointF(5, 5), widget->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, movement),
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
    };
    turn(open.document.mainField()->viewport(), 120, Qt::ControlModifier);
    EXPECT_EQ(open.document.textSize(), 110);
    turn(open.document.variableOutlineView()->viewport(), -240, Qt::ControlModifier);
    EXPECT_EQ(open.document.textSize(), 90);
    for (int part = 0; part < 4; ++part) {
        EXPECT_EQ(open.document.textSize(), 90);
        turn(open.entry()->viewport(), 30, Qt::ControlModifier);
    }
    EXPECT_EQ(open.document.textSize(), 100);
    turn(open.document.mainField()->viewport(), 120, Qt::NoModifier);
    EXPECT_EQ(open.document.textSize(), 100);
    EXPECT_EQ(open.document.mainField()->document()->defaultFont().pointSizeF(), 12.0);
}

}  // namespace
