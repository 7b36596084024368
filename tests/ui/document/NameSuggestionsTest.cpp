// The names that are suggested while one is typed.

#include "ui/document/NameSuggestions.h"

#include <QInputMethodEvent>
#include <QSignalSpy>

#include "tests/support/DocumentTest.h"
#include "ui/document/LiveAnswer.h"

namespace {

struct SuggestingDocument : OpenDocument {
    NameSuggestions* list() const { return entry()->suggestions(); }
    bool isOpen() const { return list() != nullptr && list()->isVisible(); }
    /// The rows, each with its meaning.
    QStringList rows() const {
        QStringList texts;
        for (int i = 0; isOpen() && i < list()->count(); ++i) {
            const QListWidgetItem* item = list()->item(i);
            texts.append(item->text() + ": " + item->data(Qt::AccessibleDescriptionRole).toString());
        }
        return texts;
    }
    QStringList rowsAfter(QStringView keys) const {
        press(keys);
        return rows();
    }
    QString chosen() const {
        const auto selected = list()->selectedItems();
        return selected.isEmpty() ? QString() : selected.first()->text();
    }
};

TEST(NameSuggestions, comeWithTheSecondLetter) {
    SuggestingDocument open;
    EXPECT_EQ(open.rowsAfter(u"3*s"), QStringList());
    EXPECT_EQ(open.rowsAfter(u"i"), QStringList({"sin: sine", "sinh: hyperbolic sine"}));
    EXPECT_EQ(open.rowsAfter(u"n"), QStringList({"sin: sine", "sinh: hyperbolic sine"}));
    EXPECT_EQ(open.rowsAfter(u"h"), QStringList("sinh: hyperbolic sine"));
    EXPECT_EQ(open.rowsAfter(u"("), QStringList());
}

TEST(NameSuggestions, areVariablesWithTheirValuesBeforeFunctions) {
    SuggestingDocument open;
    open.press(u"sides=4⏎SIZE=1/4⏎other=1⏎signal=unknown⏎⌘");
    EXPECT_EQ(open.rowsAfter(u"si"), QStringList({"sides: 4", "SIZE: 0.25", "sin: sine", "sinh: hyperbolic sine"}));
}

TEST(NameSuggestions, areTheNewestAnswersBehindOtherNames) {
    SuggestingDocument open;
    open.press(u"5⏎⌘6⏎⌘answer=7⏎⌘");
    EXPECT_EQ(open.rowsAfter(u"an"), QStringList({"ans: 7", "answer: 7", "ans2: 6", "ans1: 5"}));
}

TEST(NameSuggestions, areAtMostEight) {
    SuggestingDocument open;
    for (int i = 0; i < 12; ++i) open.press(QStringLiteral("co%1=1⏎⌘").arg(QChar(u'a' + i)));
    EXPECT_EQ(open.rowsAfter(u"co").size(), NameSuggestions::mostRows);
    EXPECT_EQ(open.rows().last(), "coh: 1");
}

TEST(NameSuggestions, leaveOutWhatIsTypedAlready) {
    SuggestingDocument open;
    EXPECT_EQ(open.rowsAfter(u"pi"), QStringList());
    EXPECT_EQ(open.rowsAfter(u"⌘atan"), QStringList("atan: inverse tangent"));
    EXPECT_EQ(open.rowsAfter(u"2"), QStringList()) << "atan2 never answers";
}

TEST(NameSuggestions, doNotCutAWord) {
    SuggestingDocument open;
    open.press(u"3+n←");
    EXPECT_EQ(open.rowsAfter(u"si"), QStringList());
}

TEST(NameSuggestions, areTakenWithTab) {
    SuggestingDocument open;
    open.press(u"radius=2⏎⌘3*ra⇥");
    EXPECT_EQ(open.line(), "3*radius");
    EXPECT_TRUE(open.entry()->hasFocus());
    EXPECT_FALSE(open.isOpen());
    open.press(u"+sq⇥");
    EXPECT_EQ(open.line(), "3*radius+sqrt(");
    QTest::keyClick(open.entry(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(open.line(), "3*radius+sq") << "one step undoes it";
}

TEST(NameSuggestions, takeTheWrittenFormOfTheName) {
    SuggestingDocument open;
    open.press(u"Radius=2⏎⌘3*rA⇥");
    EXPECT_EQ(open.line(), "3*Radius");
}

TEST(NameSuggestions, bringNoSecondBracket) {
    SuggestingDocument open;
    open.press(u"(4)↖");
    open.press(u"sq⇥");
    EXPECT_EQ(open.line(), "sqrt(4)");
}

TEST(NameSuggestions, areChosenWithTheArrows) {
    SuggestingDocument open;
    open.press(u"co");
    EXPECT_EQ(open.chosen(), "");
    open.press(u"↓");
    EXPECT_EQ(open.chosen(), "cos");
    open.press(u"↓↓");
    EXPECT_EQ(open.chosen(), "cot");
    open.press(u"↑");
    EXPECT_EQ(open.chosen(), "cosh");
    open.press(u"↑↑");
    EXPECT_EQ(open.chosen(), "coth") << "round at the end";
    open.press(u"↓↓⇥");
    EXPECT_EQ(open.line(), "cosh(");
}

TEST(NameSuggestions, areChosenWithAClick) {
    SuggestingDocument open;
    open.press(u"co");
    const QRect row = open.list()->visualItemRect(open.list()->item(2));
    QTest::mouseClick(open.list()->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
    EXPECT_EQ(open.line(), "cot(");
    EXPECT_TRUE(open.entry()->hasFocus());
}

TEST(NameSuggestions, neverKeepReturnFromCalculating) {
    SuggestingDocument open;
    open.press(u"si=7⏎⌘si↓");
    EXPECT_EQ(open.chosen(), "sin");
    open.press(u"⏎");
    EXPECT_EQ(open.line(), "si");
    EXPECT_TRUE(open.history().endsWith("\t= 7\n"));
    EXPECT_FALSE(open.isOpen());
}

TEST(NameSuggestions, closeWithEscapeAndKeepTheLine) {
    SuggestingDocument open;
    open.press(u"3*si⎋");
    EXPECT_FALSE(open.isOpen());
    EXPECT_EQ(open.line(), "3*si");
    open.press(u"⎋");
    EXPECT_EQ(open.line(), "");
}

TEST(NameSuggestions, closeWhenTheCaretGoesElsewhere) {
    for (const QStringView key : {u"←", u"↖", u"⇑", u"⌘", u"⇞"}) {
        SuggestingDocument open;
        open.press(u"2⏎⌘3*si");
        ASSERT_TRUE(open.isOpen());
        open.press(key);
        EXPECT_FALSE(open.isOpen()) << key.toUtf8().toStdString();
    }
}

TEST(NameSuggestions, closeWhenTheFocusGoes) {
    SuggestingDocument open;
    open.press(u"si");
    ASSERT_TRUE(open.isOpen());
    open.document.mainField()->setFocus();
    EXPECT_FALSE(open.isOpen());
}

TEST(NameSuggestions, closeWhenTheWindowMoves) {
    SuggestingDocument open;
    open.press(u"si");
    ASSERT_TRUE(open.isOpen());
    open.document.documentWindow()->move(open.document.documentWindow()->pos() + QPoint(30, 30));
    QTest::qWait(1);
    EXPECT_FALSE(open.isOpen());
}

TEST(NameSuggestions, comeForTypedTextOnly) {
    SuggestingDocument open;
    open.entry()->setText("3*si");
    EXPECT_FALSE(open.isOpen());
    open.document.insertAtCaretOfEntry("co");
    EXPECT_FALSE(open.isOpen());
    QInputMethodEvent commit;
    commit.setCommitString("+co");
    QApplication::sendEvent(open.entry(), &commit);
    EXPECT_TRUE(open.isOpen());
    open.press(u"s⌫");
    EXPECT_TRUE(open.isOpen()) << "deleting is typing too";
}

TEST(NameSuggestions, neverHaveTheFocusNorCoverTheLine) {
    SuggestingDocument open;
    open.press(u"12345*si");
    ASSERT_TRUE(open.isOpen());
    EXPECT_TRUE(open.entry()->hasFocus());
    EXPECT_EQ(open.list()->width(), 260);
    const QRect list = open.list()->geometry();
    const QPoint entry = open.entry()->mapToGlobal(QPoint(0, 0));
    EXPECT_LT(list.bottom(), entry.y());
    EXPECT_NEAR(list.left(), open.entry()->viewport()->mapToGlobal(QPoint(open.entry()->leftOf(6), 0)).x(), 10);
}

TEST(NameSuggestions, openBelowAWindowAtTheTopOfTheScreen) {
    SuggestingDocument open;
    open.document.windowShouldZoom();
    open.document.miniWindow()->move(20, 0);
    QTest::qWait(1);
    open.press(u"co");
    ASSERT_TRUE(open.isOpen());
    EXPECT_GT(open.list()->geometry().top(), open.document.miniWindow()->geometry().bottom());
    open.document.miniWindow()->move(20, 400);
    QTest::qWait(1);
    open.press(u"s");
    EXPECT_LT(open.list()->geometry().bottom(), open.document.miniWindow()->geometry().top() + 40);
}

TEST(NameSuggestions, canBeSwitchedOff) {
    SuggestingDocument open;
    open.press(u"si");
    ASSERT_TRUE(open.isOpen());
    open.document.setEntryOptions({true, false, false});
    EXPECT_FALSE(open.isOpen());
    EXPECT_EQ(open.rowsAfter(u"n"), QStringList());
    open.press(u"⇥");
    EXPECT_FALSE(open.entry()->hasFocus()) << "Tab leaves the line again";
}

/// With the list open as if the line had just been calculated, which no key can bring about.
struct SuggestingAfterACalculation : SuggestingDocument {
    SuggestingAfterACalculation() {
        press(u"2⏎⌘si");
        entry()->closeSuggestions();
        entry()->setWasFormulaJustCalculated(true);
        entry()->setPermissibleToEnterTextFlag(true);
    }
};

TEST(NameSuggestions, doNotEndTheContinuationByThemselves) {
    SuggestingAfterACalculation open;
    const QSignalSpy caret(open.entry(), &QPlainTextEdit::cursorPositionChanged);
    const QSignalSpy selection(open.entry(), &QPlainTextEdit::selectionChanged);
    open.entry()->offerSuggestions();
    ASSERT_TRUE(open.isOpen());
    open.press(u"↓↓⎋");
    EXPECT_FALSE(open.isOpen());
    EXPECT_EQ(caret.count() + selection.count(), 0);
    EXPECT_TRUE(open.entry()->wasFormulaJustCalculated());
    EXPECT_TRUE(open.entry()->permissibleToEnterTextFlag());
}

TEST(NameSuggestions, endTheContinuationWhenOneIsTaken) {
    SuggestingAfterACalculation open;
    open.entry()->offerSuggestions();
    open.press(u"⇥");
    EXPECT_FALSE(open.entry()->wasFormulaJustCalculated());
    EXPECT_FALSE(open.entry()->permissibleToEnterTextFlag());
    open.press(u"+");
    EXPECT_EQ(open.line(), "sin(+");
}

TEST(NameSuggestions, areTakenWithTheLeftButtonOnly) {
    SuggestingDocument open;
    open.press(u"co");
    const QPoint row = open.list()->visualItemRect(open.list()->item(2)).center();
    QTest::mouseClick(open.list()->viewport(), Qt::RightButton, Qt::NoModifier, row);
    QTest::mouseClick(open.list()->viewport(), Qt::MiddleButton, Qt::NoModifier, row);
    EXPECT_EQ(open.line(), "co");
}

}  // namespace
