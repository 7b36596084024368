// What must not grow, leak or break: long lines, long histories, many windows.

#include <QClipboard>
#include <QElapsedTimer>
#include <algorithm>
#include <limits>

#include "tests/support/DocumentTest.h"

using namespace Qt::StringLiterals;

namespace {

TEST(LongLine, ofAMillionCharactersIsPastedAndEntered) {
    const OpenDocument open;
    QString line(1'000'000, u'1');
    for (qsizetype i = 1; i < line.size(); i += 2) line[i] = u'+';
    line.chop(1);
    QGuiApplication::clipboard()->setText(line);
    QTest::keyClick(open.entry(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(open.line().size(), line.size());
    open.press(u"⏎");
    EXPECT_EQ(open.history().size(), line.size() + QString("\n\t= 500000\n").size());
    EXPECT_TRUE(open.history().endsWith("\n\t= 500000\n"));
    open.document.documentWindow()->repaint();
    open.press(u"+1⏎");
    EXPECT_TRUE(open.history().endsWith("ans1+1\n\t= 500001\n"));
}

TEST(LongLine, changesHowLinesWrapOnlyWhereItMust) {
    const OpenDocument open;
    const TXHistoryViewerTextView* history = open.document.mainField();
    open.entry()->setText(QString("1+1 ").repeated(10'000).append("+1"));
    open.press(u"⏎");
    EXPECT_EQ(history->wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    open.entry()->setText(QString("1+").repeated(10'000).append("1"));
    open.press(u"⏎");
    EXPECT_EQ(history->wordWrapMode(), QTextOption::WrapAnywhere);
}

TEST(ManyWindows, openAndClose) {
    const FreshDefaults fresh;
    for (int i = 0; i < 100; ++i) {
        MyDocument document;
        document.showWindow();
        pressKeys(document.formulaTextView(), u"2+3⏎");
        EXPECT_EQ(document.mainField()->toPlainText(), "2+3\n\t= 5\n");
        document.close();
    }
    EXPECT_EQ(globalVariableArray, nullptr);
}

/// The least time that a hundred lines and their painting took, of some tries: whatever else the machine did then, it
/// did least of it.
qint64 quickestHundred(const OpenDocument& open) {
    qint64 quickest = std::numeric_limits<qint64>::max();
    for (int tries = 0; tries < 5; ++tries) {
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < 100; ++i) {
            open.press(u"2+3⏎");
            open.document.mainField()->viewport()->repaint();
        }
        quickest = std::min(quickest, timer.nsecsElapsed());
    }
    return quickest;
}

TEST(ManyLines, costNoMoreAtTheEnd) {
    const OpenDocument open;
    open.press(u"2+3⏎"_qs.repeated(100));  // until the history scrolls
    const qint64 early = quickestHundred(open);
    open.press(u"2+3⏎"_qs.repeated(9000));
    EXPECT_LT(quickestHundred(open), 3 * early);
    EXPECT_EQ(open.history().count("= 5"), 10'100);
}

}  // namespace
