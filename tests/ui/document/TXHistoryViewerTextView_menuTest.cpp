// The history's context menu: its entries, and what they do to the calculation under the pointer.

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <ostream>

#include "tests/support/DocumentTest.h"

using namespace Qt::StringLiterals;

namespace {

/// A document with its history's menu, which is opened and used as a hand does.
struct HistoryMenu : OpenDocument {
    TXHistoryViewerTextView* history() const { return document.mainField(); }
    QMenu* menu() const { return history()->wrappingMenu(); }

    void openAt(const QPoint& point) const {
        menu()->close();
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, history()->viewport()->mapToGlobal(point));
        QApplication::sendEvent(history()->viewport(), &event);
        EXPECT_TRUE(menu()->isVisible());
    }

    /// Opens the menu over the line of the history with this number, from 0.
    void openOverLine(int number) const {
        const QTextCursor cursor(history()->document()->findBlockByNumber(number));
        openAt(history()->cursorRect(cursor).center() + QPoint(5, 0));
    }

    /// Opens it with the key, for the line in which the caret is then.
    void openByKeyInLine(int number) const {
        menu()->close();
        history()->setFocus();
        history()->setTextCursor(QTextCursor(history()->document()->findBlockByNumber(number)));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {1, 1}, history()->mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(history()->viewport(), &event);
        EXPECT_TRUE(menu()->isVisible());
    }

    void choose(Qt::Key mnemonic) const { QTest::keyClick(menu(), mnemonic); }

    QStringList entries() const {
        QStringList texts;
        for (const QAction* entry : menu()->actions()) {
            if (!entry->isSeparator()) texts.append(entry->text().remove(u'&'));
        }
        return texts;
    }

    /// The mnemonics of the enabled entries.
    QString enabled() const {
        QString letters;
        for (const QAction* entry : menu()->actions()) {
            if (entry->isSeparator() || !entry->isEnabled()) continue;
            letters += entry->text().at(entry->text().indexOf(u'&') + 1);
        }
        return letters;
    }

    static QString clipboard() { return QGuiApplication::clipboard()->text(); }
};

TEST(HistoryMenu, hasTheseEntries) {
    const HistoryMenu open;
    EXPECT_EQ(open.entries(), QStringList({"Copy", "Copy Equation", "Copy Answer", "Use Equation", "Insert Answer",
                                           "Select All", "Wrap"}));
    EXPECT_EQ(open.menu()->title(), "Menu with Variable Stuff");
    EXPECT_EQ(open.menu()->actions().last()->text().remove(u'&'), "Wrap");
}

TEST(HistoryMenu, isTheSameEverywhere) {
    const HistoryMenu open;
    open.press(u"2+3⏎(⏎");
    const QStringList entries = open.entries();
    for (const QPoint point : {QPoint(1, 1), QPoint(20, 20), QPoint(20, 40), QPoint(300, 300), QPoint(-5, 9000)}) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, open.history()->viewport()->mapToGlobal(point));
        EXPECT_EQ(open.history()->menuForEvent(&event), open.menu());
        open.openAt(point);
        EXPECT_EQ(open.entries(), entries);
        EXPECT_FALSE(open.menu()->actions().last()->isEnabled());
    }
}

TEST(HistoryMenu, isNotThereBeforeTheLayoutIsLoaded) {
    TXHistoryViewerTextView history;
    EXPECT_EQ(history.wrappingMenu(), nullptr);
    QContextMenuEvent event(QContextMenuEvent::Mouse, {1, 1}, {1, 1});
    QApplication::sendEvent(history.viewport(), &event);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST(HistoryMenu, enablesWhatCanActOnTheLine) {
    const HistoryMenu open;
    open.openAt({20, 20});
    EXPECT_EQ(open.enabled(), "");
    open.press(u"2+3⏎(⏎");
    const QString byLine[] = {"EAUIS", "EAUIS", "S",
                              "EUS",   "EUS",   "S"};  // equation, answer, blank, equation, error, end
    for (int line = 0; line < 6; ++line) {
        SCOPED_TRACE(line);
        open.openOverLine(line);
        EXPECT_EQ(open.enabled(), byLine[line]);
        open.openByKeyInLine(line);
        EXPECT_EQ(open.enabled(), byLine[line]);
    }
    open.openAt({300, 340});  // below the last line
    EXPECT_EQ(open.enabled(), "S");
    open.history()->selectAll();
    open.openOverLine(0);
    EXPECT_EQ(open.enabled(), "CEAUIS");
}

TEST(HistoryMenu, hasAnEntryThatNeverActs) {
    const HistoryMenu open;
    open.press(u"2+3⏎");
    const QAction* const wrap = open.menu()->actions().last();
    EXPECT_FALSE(open.history()->validateMenuItem(wrap));
    open.openOverLine(0);
    open.choose(Qt::Key_W);
    EXPECT_TRUE(open.menu()->isVisible());
    open.history()->wrap();
    EXPECT_EQ(open.OpenDocument::history(), "2+3\n\t= 5\n");
    EXPECT_EQ(open.history()->wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST(HistoryMenu, hasPlacesForStylesThatStayEmpty) {
    const HistoryMenu open;
    open.press(u"2+3⏎");
    EXPECT_TRUE(open.history()->styleDefinitions().empty());
    EXPECT_TRUE(open.history()->styleLocations().empty());
}

struct CopyCase {
    const char* name;
    QStringView keys;
    const char* equation;
    const char* answer;
};
void PrintTo(const CopyCase& row, std::ostream* out) { *out << row.name; }
class HistoryMenuCopies : public testing::TestWithParam<CopyCase> {};

TEST_P(HistoryMenuCopies, equationAndAnswer) {
    HistoryMenu open;
    open.document.documentNumberFormatterSettings().setThousandsSeparators(true);
    open.press(GetParam().keys);
    for (const int line : {0, 1}) {
        open.openOverLine(line);
        open.choose(Qt::Key_E);
        EXPECT_EQ(open.clipboard(), GetParam().equation);
        open.openOverLine(line);
        open.choose(Qt::Key_A);
        EXPECT_EQ(open.clipboard(), GetParam().answer);
        EXPECT_EQ(QGuiApplication::clipboard()->mimeData()->formats().first(), "text/plain");
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lines, HistoryMenuCopies, testing::Values(
    //       name            keys                equation           answer
    CopyCase{"Expression",   u"2+3⏎",            "2+3",             "5"},
    CopyCase{"Assignment",   u"x=4⏎",            "x=4",             "4"},
    CopyCase{"Negative",     u"x=-1/3⏎",         "x=-1/3",          "-0.33333333333333"},
    CopyCase{"AsShown",      u"1234567+1⏎",      "1234567+1",       "1,234,568"},
    CopyCase{"Rewritten",    u"+4⏎",             "+4",              "4"}
), RowName());
// clang-format on

TEST(HistoryMenuCopy, takesTheSelectionAndSelectAllMakesOne) {
    const HistoryMenu open;
    open.press(u"2+3⏎");
    open.openOverLine(0);
    open.choose(Qt::Key_S);
    open.openOverLine(1);
    open.choose(Qt::Key_C);
    EXPECT_EQ(open.clipboard(), "2+3\n\t= 5");
}

TEST(HistoryMenuCopy, leavesLineAndContinuationAlone) {
    const HistoryMenu open;
    open.press(u"2+3⏎");
    open.history()->setFocus();  // as the click does
    open.openOverLine(1);
    open.choose(Qt::Key_A);
    EXPECT_TRUE(open.entry()->hasFocus());
    EXPECT_EQ(open.selection(), "2+3");
    open.press(u"+");
    EXPECT_EQ(open.line(), "ans+");
}

TEST(HistoryMenuUse, insertsTheEquationBesideTheSelection) {
    const HistoryMenu open;
    open.press(u"1+1⏎7*⏎");
    EXPECT_EQ(open.selection(), "7*");
    open.openOverLine(1);
    open.choose(Qt::Key_U);
    EXPECT_EQ(open.line(), "7*1+1");
    EXPECT_TRUE(open.entry()->hasFocus());
    EXPECT_EQ(open.selection(), "");
    open.press(u"+");
    EXPECT_EQ(open.line(), "7*1+1+");
    open.entry()->undo();
    EXPECT_EQ(open.line(), "7*1+1");
    open.entry()->undo();
    EXPECT_EQ(open.line(), "7*");
}

TEST(HistoryMenuUse, insertsAtTheCaret) {
    const HistoryMenu open;
    open.press(u"1+1⏎(2⏎");
    open.press(u"3*4←←");
    open.openOverLine(4);  // an error can be used again, too
    open.choose(Qt::Key_U);
    EXPECT_EQ(open.line(), "3(2*4");
    EXPECT_EQ(open.entry()->textCursor().position(), 3);
}

TEST(HistoryMenuUse, endsTheContinuation) {
    const HistoryMenu open;
    open.press(u"2+3⏎");
    open.openOverLine(0);
    open.choose(Qt::Key_U);
    open.press(u"+");
    EXPECT_EQ(open.line(), "2+32+3+");
}

TEST(HistoryMenuInsert, insertsTheNameOfTheVariableThatHoldsTheAnswer) {
    const HistoryMenu open;
    open.press(u"1/3⏎(⏎rate=4⏎2⏎⌘⌫");
    open.openOverLine(0);
    open.choose(Qt::Key_I);
    EXPECT_EQ(open.line(), "ans1");
    open.press(u"*");
    open.openOverLine(7);
    open.choose(Qt::Key_I);
    EXPECT_EQ(open.line(), "ans1*rate");
    open.press(u"+");
    open.openOverLine(10);
    open.choose(Qt::Key_I);
    EXPECT_EQ(open.line().left(12), "ans1*rate+an");
    open.press(u"⏎");
    EXPECT_TRUE(open.OpenDocument::history().endsWith("= 3.33333333333333\n"));
}

TEST(HistoryMenuInsert, cannotWhereTheNameMeansAnotherVariable) {
    const HistoryMenu open;
    open.press(u"ans2=3⏎5⏎7⏎");  // a second ans2, which no name reaches
    open.openOverLine(6);
    EXPECT_EQ(open.enabled(), "EAUS");
    open.openOverLine(0);
    EXPECT_EQ(open.enabled(), "EAUIS");
}

TEST(HistoryMenuInsert, cannotWhereTheVariableHasAnotherValueByNow) {
    const HistoryMenu open;
    open.press(u"x=4⏎x=5⏎");
    open.openOverLine(0);
    EXPECT_EQ(open.enabled(), "EAUS");
    open.choose(Qt::Key_I);
    EXPECT_EQ(open.line(), "x=5");
    open.openOverLine(3);
    EXPECT_EQ(open.enabled(), "EAUIS");
    open.press(u"x=4⏎");
    open.openOverLine(0);
    EXPECT_EQ(open.enabled(), "EAUIS");
}

TEST(HistoryMenuInsert, cannotOnceTheSessionIsCleared) {
    HistoryMenu open;
    open.press(u"2+3⏎");
    open.document.documentEquationController().clearAll();
    open.openOverLine(1);
    EXPECT_EQ(open.enabled(), "EAUS");
}

/// Clicks with the right button where there is no line.
void openByClick(const HistoryMenu& open) {
    const QWidget* const viewport = open.history()->viewport();
    QWidget* const window = open.document.documentWindow();
    const QPoint place = viewport->mapTo(window, viewport->rect().bottomRight() - QPoint(20, 20));
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {}, place);
    ASSERT_TRUE(open.menu()->isVisible());
}

TEST(HistoryMenuClick, leavesTheCaretInTheEntryLine) {
    const HistoryMenu open;
    open.press(u"2+3⏎");
    openByClick(open);
    QTest::keyClick(open.menu(), Qt::Key_Escape);
    EXPECT_TRUE(open.entry()->hasFocus());
    open.press(u"+");
    EXPECT_EQ(open.line(), "ans+");
}

TEST(HistoryMenuClick, leavesTheFocusInTheHistoryThatHadIt) {
    const HistoryMenu open;
    open.press(u"2+3⏎");
    open.history()->setFocus();
    openByClick(open);
    QTest::keyClick(open.menu(), Qt::Key_Escape);
    EXPECT_TRUE(open.history()->hasFocus());
}

TEST(HistoryMenuClick, movesTheFocusToWhatItSelects) {
    const HistoryMenu open;
    open.press(u"2+3⏎");
    openByClick(open);
    open.choose(Qt::Key_S);
    EXPECT_TRUE(open.history()->hasFocus());
    QTest::keyClick(open.history(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(open.clipboard(), "2+3\n\t= 5");
}

TEST(HistoryMenuKey, opensItForTheLineOfTheCaret) {
    const HistoryMenu open;
    open.press(u"2+3⏎1+1⏎⌘⌫");
    open.openByKeyInLine(3);
    open.choose(Qt::Key_U);
    EXPECT_EQ(open.line(), "1+1");
    EXPECT_TRUE(open.entry()->hasFocus());
}

}  // namespace
