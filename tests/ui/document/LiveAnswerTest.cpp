// The answer that shows while a line is typed.

#include "ui/document/LiveAnswer.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSplitter>

#include "tests/support/DocumentTest.h"
#include "ui/document/SegmentedControl.h"

namespace {

struct LiveDocument : OpenDocument {
    LiveAnswer* live() const { return entry()->findChild<LiveAnswer*>(); }
    /// What is shown once the line has rested; an empty text when nothing is.
    QString shown() const {
        QTest::qWait(2 * LiveAnswer::delayInMilliseconds);
        return live()->isVisible() ? live()->text() : QString();
    }
    QString shownAfter(QStringView keys) const {
        press(keys);
        return shown();
    }
};

TEST(LiveAnswer, isThatOfTheLine) {
    LiveDocument open;
    EXPECT_EQ(open.shown(), "");
    EXPECT_EQ(open.shownAfter(u"2+3*4"), "= 14");
    EXPECT_EQ(open.shownAfter(u"0"), "= 122");
    EXPECT_EQ(open.shownAfter(u"⌘r=5/2"), "r = 2.5");
}

TEST(LiveAnswer, comesAMomentAfterTheLastKey) {
    LiveDocument open;
    QElapsedTimer clock;
    clock.start();
    open.press(u"2+3");
    EXPECT_FALSE(open.live()->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return open.live()->isVisible(); }));
    EXPECT_GE(clock.elapsed(), 75) << "the timer of 80 ms may be a few early";
    open.press(u"4");
    EXPECT_FALSE(open.live()->isVisible()) << "it is the answer of another line";
}

TEST(LiveAnswer, waitsForTheLastOfSeveralKeys) {
    LiveDocument open;
    open.press(u"2+3");
    QTest::qWait(50);
    QElapsedTimer clock;
    clock.start();
    open.press(u"4");
    ASSERT_TRUE(QTest::qWaitFor([&] { return open.live()->isVisible(); }));
    EXPECT_GE(clock.elapsed(), 75);
    EXPECT_EQ(open.live()->text(), "= 36");
}

TEST(LiveAnswer, isSilentWhereThereIsNone) {
    LiveDocument open;
    for (const QString line : {"2+", "sin(30", "nothing*2", "pi=3", "   ", "1/x"}) {
        EXPECT_EQ(open.shownAfter(QStringLiteral("⌘⌫") + line), "") << line.toStdString();
    }
}

TEST(LiveAnswer, isInTheHistoryAfterReturn) {
    LiveDocument open;
    EXPECT_EQ(open.shownAfter(u"2+3"), "= 5");
    open.press(u"⏎");
    EXPECT_FALSE(open.live()->isVisible());
    EXPECT_EQ(open.shown(), "");
    EXPECT_EQ(open.shownAfter(u"*2"), "= 10") << "it knows the answer before";
}

TEST(LiveAnswer, goesWithReturnEvenWhenTheSelectionStays) {
    LiveDocument open;
    EXPECT_EQ(open.shownAfter(u"2+3⌘"), "= 5");
    EXPECT_EQ(open.shownAfter(u"⏎"), "");
    EXPECT_EQ(open.shownAfter(u"⏎"), "");
}

TEST(LiveAnswer, staysAwayAfterACalculationInTheOtherWindow) {
    LiveDocument open;
    open.press(u"2+3⌘");
    open.document.windowShouldZoom();
    open.press(u"⏎");
    open.shown();
    open.document.windowShouldZoom();
    EXPECT_TRUE(open.entry()->wasFormulaJustCalculated());
    EXPECT_EQ(open.shown(), "");
}

TEST(LiveAnswer, comesWithALineOfTheScrollback) {
    LiveDocument open;
    open.press(u"2+3⏎7*6⏎");
    EXPECT_EQ(open.shownAfter(u"⇑"), "= 5");
    EXPECT_EQ(open.shownAfter(u"⇓⇓"), "");
}

TEST(LiveAnswer, isThatOfASelectedPart) {
    LiveDocument open;
    open.press(u"1+30*2");
    for (int i = 0; i < 4; ++i) QTest::keyClick(open.entry(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(open.shown(), "30*2 = 60");
    QTest::keyClick(open.entry(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(open.shown(), "+30*2 = 60");
    QTest::keyClick(open.entry(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(open.shown(), "= 61") << "the whole line is selected";
}

TEST(LiveAnswer, isThatOfTheLineWhereThePartIsNoExpression) {
    LiveDocument open;
    open.press(u"x=1+3");
    QTest::keyClick(open.entry(), Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(open.entry(), Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(open.entry(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(open.shown(), "1+3 = 4");
    QTest::keyClick(open.entry(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(open.shown(), "x = 4") << "=1+3 is none";
    open.press(u"→↖");
    for (int i = 0; i < 3; ++i) QTest::keyClick(open.entry(), Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(open.shown(), "x = 4") << "an assignment is none";
}

TEST(LiveAnswer, isWrittenAndComputedAsTheDocumentSays) {
    LiveDocument open;
    EXPECT_EQ(open.shownAfter(u"1000*255.5"), "= 255500");
    open.document.documentNumberFormatterSettings().setThousandsSeparators(true);
    open.document.changeThousandsSeparatorCharacter(0);
    EXPECT_EQ(open.shown(), "= 255,500");
}

TEST(LiveAnswer, followsTheAngleUnit) {
    LiveDocument open;
    EXPECT_NE(open.shownAfter(u"sin(90)"), "= 1");
    QTest::mouseClick(open.document.degreesRadiansSegmentedControl()->findChildren<QRadioButton*>().last(),
                      Qt::LeftButton);
    EXPECT_EQ(open.shown(), "= 1");
}

TEST(LiveAnswer, keepsItsDistance) {
    LiveDocument open;
    open.press(u"1");
    int digits = 1;
    while (!open.shown().isEmpty() && digits < 200) {
        open.press(u"+1+1+1+1+1");
        digits += 5;
        const int end = open.entry()->viewport()->x() + open.entry()->endOfText();
        EXPECT_TRUE(!open.live()->isVisible() || end + LiveAnswer::leastDistance <= open.live()->x());
    }
    EXPECT_GT(digits, 20);
    EXPECT_LT(digits, 200) << "it would stand over the text";
    open.document.documentWindow()->resize(1400, 500);
    EXPECT_TRUE(open.live()->isVisible()) << "there is room again";
}

TEST(LiveAnswer, keepsItsDistanceToWhatIsComposed) {
    LiveDocument open;
    open.document.documentWindow()->resize(420, 260);
    open.document.setSidebarShown(false);
    EXPECT_EQ(open.shownAfter(u"2+3"), "= 5");
    QInputMethodEvent composing(QString(60, u'α'), {});
    QApplication::sendEvent(open.entry(), &composing);
    EXPECT_FALSE(open.live()->isVisible());
}

TEST(LiveAnswer, leavesLongLinesAlone) {
    LiveDocument open;
    open.entry()->setText("1+" + QString(LiveAnswer::longestLine - 3, u' ') + u'1');
    open.shown();
    EXPECT_EQ(open.live()->text(), "= 2") << "found out, though there is no room for it";
    open.press(u"+");
    open.press(u"1");
    open.shown();
    EXPECT_EQ(open.live()->text(), "");
}

TEST(LiveAnswer, standsOnTheLineAtTheRight) {
    LiveDocument open;
    ASSERT_EQ(open.shownAfter(u"2+3"), "= 5");
    EXPECT_EQ(open.live()->font().pointSizeF(), 13.0);
    const QRect viewport = open.entry()->viewport()->geometry();
    EXPECT_NEAR(open.live()->geometry().right(), viewport.right(), 2);
    EXPECT_TRUE(open.entry()->rect().contains(open.live()->geometry()));
    EXPECT_EQ(open.live()->y() + open.live()->fontMetrics().ascent(),
              viewport.y() + open.entry()->lineTop() + open.entry()->fontMetrics().ascent());
    open.document.setTextSize(200);
    EXPECT_EQ(open.live()->font().pointSizeF(), 26.0);
    const auto baselines = [&] {
        return std::pair(
            open.live()->y() + open.live()->fontMetrics().ascent(),
            open.entry()->viewport()->y() + open.entry()->lineTop() + open.entry()->fontMetrics().ascent());
    };
    EXPECT_EQ(baselines().first, baselines().second);
    open.document.secondarySplitView()->setSizes({200, 150});
    EXPECT_EQ(baselines().first, baselines().second);
}

TEST(LiveAnswer, letsThePointerThrough) {
    LiveDocument open;
    ASSERT_EQ(open.shownAfter(u"2+3"), "= 5");
    EXPECT_EQ(open.entry()->childAt(open.live()->geometry().center()), open.entry()->viewport());
}

TEST(LiveAnswer, showsInTheMiniWindowWhereItFits) {
    LiveDocument open;
    open.document.windowShouldZoom();
    EXPECT_EQ(open.shownAfter(u"2+3"), "= 5");
    EXPECT_EQ(open.live()->palette().color(QPalette::WindowText), QColor(0xA0, 0xA0, 0xA6));
    EXPECT_EQ(open.shownAfter(u"+1000000*1000000*1000000*100000"), "") << "there is no room";
}

TEST(LiveAnswer, canBeSwitchedOff) {
    LiveDocument open;
    EXPECT_EQ(open.shownAfter(u"2+3"), "= 5");
    open.document.setEntryOptions({false, true, false});
    EXPECT_EQ(open.shown(), "");
    EXPECT_EQ(open.shownAfter(u"4"), "");
    open.document.setEntryOptions({true, true, false});
    EXPECT_EQ(open.shown(), "= 36");
}

TEST(LiveAnswer, changesNothingButItself) {
    LiveDocument open;
    open.press(u"2+3⏎");
    const QSignalSpy caret(open.entry(), &QPlainTextEdit::cursorPositionChanged);
    const QSignalSpy selection(open.entry(), &QPlainTextEdit::selectionChanged);
    QGuiApplication::clipboard()->setText("copied before");
    const QString history = open.history();
    auto& controller = open.document.documentEquationController();
    const auto variables = controller.variableArray().size();
    open.document.setTextSize(110);
    emit open.document.sessionChanged();
    EXPECT_EQ(open.shown(), "");
    EXPECT_TRUE(open.entry()->wasFormulaJustCalculated());
    EXPECT_TRUE(open.entry()->permissibleToEnterTextFlag());
    EXPECT_EQ(caret.count() + selection.count(), 0);
    EXPECT_EQ(open.shownAfter(u"+foo=2⌫⌫⌫⌫⌫1"), "= 6");
    EXPECT_EQ(open.line(), "ans+1");
    EXPECT_EQ(open.shownAfter(u"⌘new=7"), "new = 7");
    EXPECT_EQ(open.history(), history);
    EXPECT_EQ(controller.variableArray().size(), variables);
    EXPECT_EQ(controller.equationsArray().size(), 1U);
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 2);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "copied before");
}

}  // namespace
