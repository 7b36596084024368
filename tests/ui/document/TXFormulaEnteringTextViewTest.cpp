#include "ui/document/TXFormulaEnteringTextView.h"

#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include "tests/support/DocumentTest.h"
#include "tests/support/Warnings.h"

using namespace Qt::StringLiterals;

namespace {

struct KeyCase {
    const char* name;
    QStringView keys;
    const char* line;
    int beeps = 0;
};
void PrintTo(const KeyCase& row, std::ostream* out) { *out << row.keys.toUtf8().toStdString(); }

class EntryKeys : public testing::TestWithParam<KeyCase> {};

TEST_P(EntryKeys, giveTheLine) {
    const OpenDocument open;
    open.press(GetParam().keys);
    EXPECT_EQ(open.line(), GetParam().line);
    EXPECT_EQ(open.beeps.count(), GetParam().beeps);
}

TEST_P(EntryKeys, giveTheSameLineInTheMiniWindow) {
    OpenDocument open;
    open.document.setIsSmallWindowShown(true);
    open.press(GetParam().keys);
    EXPECT_EQ(open.line(), GetParam().line);
    EXPECT_EQ(open.beeps.count(), GetParam().beeps);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Continuation, EntryKeys, testing::Values(
    //      name                             keys            line
    KeyCase{"PlusContinues",                 u"2+3⏎+",       "ans+"},
    KeyCase{"MinusContinues",                u"2+3⏎-",       "ans-"},
    KeyCase{"TimesContinues",                u"2+3⏎*",       "ans*"},
    KeyCase{"DivideContinues",               u"2+3⏎/",       "ans/"},
    KeyCase{"PowerContinues",                u"2+3⏎^",       "ans^"},
    KeyCase{"OperatorFromTheStart",          u"-2",          "-2"},
    KeyCase{"OnlyTheFirstKey",               u"2⏎+-",        "ans+-"},
    KeyCase{"DigitReplaces",                 u"2+3⏎4",       "4"},
    KeyCase{"LetterReplaces",                u"2+3⏎x",       "x"},
    KeyCase{"ParenthesisReplaces",           u"2+3⏎(",       "("},
    KeyCase{"EqualsReplaces",                u"2+3⏎=",       "="},
    KeyCase{"PlusMinusReplaces",             u"2+3⏎±",       "±"},
    KeyCase{"OperatorAfterADigit",           u"2+3⏎4+",      "4+"},
    KeyCase{"OperatorAfterAnArrow",          u"2+3⏎→+",      "2+3+"},
    KeyCase{"OperatorAfterHome",             u"2+3⏎↖-",      "-2+3"},
    KeyCase{"OperatorAfterBackspace",        u"2+3⏎⌫+",      "+"},
    KeyCase{"OperatorAfterAnError",          u"(⏎+",         "ans+"},
    KeyCase{"OperatorAfterABlankLine",       u"⏎+",          "ans+"},
    KeyCase{"ShiftAlone",                    u"2+3⏎⇧+",      "ans+"},
    KeyCase{"AltAlone",                      u"2+3⏎⌥+",      "ans+"},
    KeyCase{"ControlAlone",                  u"2+3⏎⌃+",      "ans+"},
    KeyCase{"CapsLock",                      u"2+3⏎⇪+",      "ans+"},
    KeyCase{"NumLock",                       u"2+3⏎⇭+",      "ans+"},
    KeyCase{"SelectAllChangesNothing",       u"2+3⏎⌘+",      "ans+"},
    KeyCase{"SelectAllChangesTheSelection",  u"2+3⏎→⌘+",     "+"},
    KeyCase{"EscapeIsAKey",                  u"2+3⏎⎋+",      "+"},
    KeyCase{"AltUpEndsIt",                   u"1⏎2⏎⇑+",      "1+"},
    KeyCase{"AltDownDoesNot",                u"2+3⏎⇓+",      "ans+"},
    KeyCase{"AltDownTwiceDoesNot",           u"2+3⏎⇓⇓+",     "ans+", 1}
), RowName());

INSTANTIATE_TEST_SUITE_P(Scrollback, EntryKeys, testing::Values(
    //      name                             keys            line   beeps
    KeyCase{"UpInANewDocument",              u"⇑",           "",    1},
    KeyCase{"DownInANewDocument",            u"⇓",           "",    1},
    KeyCase{"UpInANewDocumentKeepsTheLine",  u"7⇑",          "7",   1},
    KeyCase{"DownKeepsTheLine",              u"a⏎7⇓",        "7",   1},
    KeyCase{"UpAfterOneCalculation",         u"a⏎⇑",         "a",   0},
    KeyCase{"UpPassesTheFormulaJustEntered", u"a⏎b⏎⇑",       "a",   0},
    KeyCase{"UpAgainBeeps",                  u"a⏎b⏎⇑⇑",      "a",   1},
    KeyCase{"EditedLineIsKept",              u"a⏎b⏎⇑⇑2⇓",    "b",   1},
    KeyCase{"EditedLineComesBack",           u"a⏎b⏎⇑⇑2⇓⇑",   "a2",  1},
    KeyCase{"UpWhileTypingKeepsTheTyped",    u"a⏎b⏎7⇑",      "b",   0},
    KeyCase{"TypedComesBack",                u"a⏎b⏎7⇑⇓",     "7",   0},
    KeyCase{"DownEmptiesAfterACalculation",  u"a⏎b⏎⇓",       "",    0},
    KeyCase{"DownThenUp",                    u"a⏎b⏎⇓⇑",      "b",   0},
    KeyCase{"OlderEditedLineIsEntered",      u"a⏎b⏎⇑2⏎⇓⇑",   "a2",  0},
    KeyCase{"PlainArrowsMoveTheCaret",       u"a⏎b⏎↑",       "b",   0}
), RowName());
// clang-format on

TEST(EntryScrollback, keepsTheEditOfAnOlderLineThatWasEnteredAgain) {
    OpenDocument open;
    open.press(u"a⏎b⏎⇑2⏎");
    // The line was edited and entered on slot 0, which nobody left: it keeps what it had.
    EXPECT_EQ(open.document.documentFormulaScrollerController().masterScrollbackArray(),
              (std::vector<QString>{"a", "b", "a2", ""}));
    open.press(u"⇓⇑⇑⇑3⇓⇑2⏎");
    EXPECT_EQ(open.document.documentFormulaScrollerController().masterScrollbackArray(),
              (std::vector<QString>{"a3", "b", "a2", "a32", ""}));
}

TEST(EntryScrollback, followsTheWorkedTrace) {
    OpenDocument open;
    auto& scroller = open.document.documentFormulaScrollerController();
    open.press(u"a⏎b⏎");
    EXPECT_EQ(scroller.masterScrollbackArray(), (std::vector<QString>{"a", "b", ""}));
    EXPECT_EQ(scroller.currentIndex(), 2);
    open.press(u"⇑");
    EXPECT_EQ(scroller.currentIndex(), 0);
    open.press(u"⇑");
    EXPECT_EQ(open.beeps.count(), 1);
    open.press(u"2⇓");
    EXPECT_EQ(scroller.masterScrollbackArray(), (std::vector<QString>{"a2", "b", ""}));
    EXPECT_EQ(open.line(), "b");
    open.press(u"⇑");
    EXPECT_EQ(open.line(), "a2");
}

TEST(EntryScrollback, returnsToTheWorkingSlotAfterACalculation) {
    OpenDocument open;
    open.press(u"a⏎b⏎⇓");
    EXPECT_EQ(open.document.documentFormulaScrollerController().currentIndex(), 2);
}

TEST(EntryScrollback, recallsInOneStepThatCanBeUndone) {
    const OpenDocument open;
    open.press(u"1⏎2⏎7⇑");
    EXPECT_EQ(open.line(), "2");
    EXPECT_EQ(open.entry()->textCursor().position(), 1);
    open.entry()->undo();
    EXPECT_EQ(open.line(), "7");
}

struct FlagCase {
    const char* name;
    QStringView keys;
    bool wasJustCalculated;
    bool isPermissible;
};
void PrintTo(const FlagCase& row, std::ostream* out) { *out << row.keys.toUtf8().toStdString(); }

class EntryFlags : public testing::TestWithParam<FlagCase> {};

TEST_P(EntryFlags, areSet) {
    const OpenDocument open;
    open.press(GetParam().keys);
    EXPECT_EQ(open.entry()->wasFormulaJustCalculated(), GetParam().wasJustCalculated);
    EXPECT_EQ(open.entry()->permissibleToEnterTextFlag(), GetParam().isPermissible);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Keys, EntryFlags, testing::Values(
    //       name             keys         just   permissible
    FlagCase{"NewDocument",   u"",         false, false},
    FlagCase{"Typing",        u"2",        false, false},
    FlagCase{"Return",        u"2⏎",       true,  true},
    FlagCase{"BlankReturn",   u"⏎",        true,  true},
    FlagCase{"KeypadEnter",   u"2⌤",       true,  true},
    FlagCase{"AnyOtherKey",   u"2⏎3",      false, false},
    FlagCase{"Operator",      u"2⏎+",      false, false},
    FlagCase{"Arrow",         u"2⏎→",      false, false},
    FlagCase{"Escape",        u"2⏎⎋",      false, false},
    FlagCase{"PageUp",        u"2⏎⇞",      false, false},
    FlagCase{"AltUp",         u"2⏎⇑",      false, false},
    FlagCase{"AltDown",       u"2⏎⇓",      false, true},
    FlagCase{"Shift",         u"2⏎⇧",      true,  true},
    FlagCase{"Alt",           u"2⏎⌥",      true,  true},
    FlagCase{"CapsLock",      u"2⏎⇪",      true,  true},
    FlagCase{"Tab",           u"2⏎⇥",      false, false}
), RowName());
// clang-format on

TEST(EntryFlagsByMouse, areClearedByAClick) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    QTest::mouseClick(open.entry()->viewport(), Qt::LeftButton, {}, open.entry()->viewport()->rect().center());
    EXPECT_FALSE(open.entry()->wasFormulaJustCalculated());
    EXPECT_FALSE(open.entry()->permissibleToEnterTextFlag());
    open.press(u"+");
    EXPECT_EQ(open.line(), "2+3+");
}

TEST(EntryKey, keyOfAMenuCommandClearsNothing) {
    const OpenDocument open;
    int commands = 0;
    QAction command;
    command.setShortcut(QKeySequence("Ctrl+N"));
    QObject::connect(&command, &QAction::triggered, [&] { ++commands; });
    open.document.documentWindow()->addAction(&command);
    open.press(u"2+3⏎");
    QTest::keyClick(open.entry(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(commands, 1);
    open.press(u"+");
    EXPECT_EQ(open.line(), "ans+");
}

TEST(EntryKey, realPlusComesAfterShift) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    QTest::keyPress(open.entry(), Qt::Key_Shift);
    QTest::keyClick(open.entry(), Qt::Key_Plus, Qt::ShiftModifier);
    QTest::keyRelease(open.entry(), Qt::Key_Shift);
    EXPECT_EQ(open.line(), "ans+");
}

TEST(EntryKey, copyClearsNothing) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    QTest::keyClick(open.entry(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "2+3");
    open.press(u"+");
    EXPECT_EQ(open.line(), "ans+");
}

TEST(EntryKey, deadAndComposeKeysClearNothing) {
    for (const Qt::Key key :
         {Qt::Key_Dead_Circumflex, Qt::Key_Dead_Grave, Qt::Key_Multi_key, Qt::Key_Kanji, Qt::Key_Hangul,
          Qt::Key_Hangul_Special, Qt::Key_Mode_switch, Qt::Key_AltGr, Qt::Key_Super_L, Qt::Key_unknown}) {
        SCOPED_TRACE(key);
        const OpenDocument open;
        open.press(u"2+3⏎");
        QTest::sendKeyEvent(QTest::Click, open.entry(), key, QString(), Qt::NoModifier);
        open.press(u"+");
        EXPECT_EQ(open.line(), "ans+");
    }
}

TEST(EntryKey, keypadDecimalIsAPointInEveryLayout) {
    for (const auto& [key, text] :
         {std::pair{Qt::Key_Period, "."}, std::pair{Qt::Key_Comma, ","}, std::pair{Qt::Key_Period, ","}}) {
        const OpenDocument open;
        open.press(u"1");
        QTest::sendKeyEvent(QTest::Click, open.entry(), key, text, Qt::KeypadModifier);
        open.press(u"5");
        EXPECT_EQ(open.line(), "1.5");
    }
}

// As layouts deliver it that make the key an ordinary comma, or the decimal separator of another script.
TEST(EntryKey, keypadDecimalIsKnownByItsPlaceToo) {
    constexpr quint32 keypadDecimal = 91;
    constexpr quint32 comma = 59;
    const auto lineAfter = [](quint32 place, Qt::Key key, const QString& text) {
        const OpenDocument open;
        open.press(u"1");
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, place, 0, 0, text);
        QApplication::sendEvent(open.entry(), &press);
        open.press(u"5");
        return open.line();
    };
    EXPECT_EQ(lineAfter(keypadDecimal, Qt::Key_Comma, ","), "1.5");
    EXPECT_EQ(lineAfter(keypadDecimal, Qt::Key(0x66B), u"\u066B"_qs), "1.5");
    EXPECT_EQ(lineAfter(comma, Qt::Key_Comma, ","), "1,5");
    EXPECT_EQ(lineAfter(keypadDecimal, Qt::Key_Delete, QString()), "15");  // without Num Lock
}

TEST(EntryKey, escapeEmptiesTheLineInOneStepThatCanBeUndone) {
    const OpenDocument open;
    open.press(u"12+34⎋");
    EXPECT_EQ(open.line(), "");
    open.entry()->undo();
    EXPECT_EQ(open.line(), "12+34");
    open.press(u"⎋5");
    EXPECT_EQ(open.line(), "5");
    open.entry()->undo();
    open.entry()->undo();
    EXPECT_EQ(open.line(), "12+34");
}

TEST(EntryKey, escapeTakesBackARecalledLine) {
    OpenDocument open;
    open.press(u"1⏎2⏎⇑⎋⇓");
    EXPECT_EQ(open.line(), "2");
    EXPECT_EQ(open.beeps.count(), 0);
}

TEST(EntryKey, escapeInAnEmptyLineLeavesNothingToUndo) {
    const OpenDocument open;
    open.press(u"⎋");
    EXPECT_FALSE(open.entry()->document()->isUndoAvailable());
}

TEST(EntryKey, pageUpAndDownScrollTheHistory) {
    const OpenDocument open;
    for (int i = 0; i < 40; ++i) open.press(u"2⏎");
    const QScrollBar* bar = open.document.mainField()->verticalScrollBar();
    open.press(u"3+4⇞");
    EXPECT_EQ(bar->value(), bar->maximum() - bar->pageStep());
    EXPECT_EQ(open.entry()->textCursor().position(), 3);
    open.press(u"⇟");
    EXPECT_EQ(bar->value(), bar->maximum());
    EXPECT_TRUE(open.entry()->hasFocus());
}

TEST(EntryKey, commaOfTheMainKeysStaysAComma) {
    const OpenDocument open;
    open.press(u"atan2(1,2");
    EXPECT_EQ(open.line(), "atan2(1,2");
}

TEST(EntryKey, commandsTypeNothing) {
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(Qt::AltModifier), Qt::KeyboardModifiers(Qt::MetaModifier),
          Qt::KeyboardModifiers(Qt::ControlModifier), Qt::ControlModifier | Qt::ShiftModifier}) {
        const OpenDocument open;
        open.press(u"2");
        QTest::keyClick(open.entry(), Qt::Key_J, modifiers);
        QTest::keyClick(open.entry(), Qt::Key_Return, modifiers);
        EXPECT_EQ(open.line(), "2");
        EXPECT_EQ(open.history(), "");
    }
}

TEST(EntryKey, altGrTypesCharacters) {
    const OpenDocument open;
    QTest::sendKeyEvent(QTest::Click, open.entry(), Qt::Key_AsciiCircum, "^", Qt::ControlModifier | Qt::AltModifier);
    QTest::sendKeyEvent(QTest::Click, open.entry(), Qt::Key_AsciiTilde, "~", Qt::GroupSwitchModifier);
    EXPECT_EQ(open.line(), "^~");
}

TEST(EntryKey, tabMovesTheFocusAndBack) {
    const OpenDocument open;
    open.press(u"2⇥");
    EXPECT_EQ(open.line(), "2");
    EXPECT_FALSE(open.entry()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(open.entry()->hasFocus());
}

// What a person does to get at "^" on a keyboard where it is a dead key: the key, then the blank.
void commit(QWidget* entry, const QString& text, const QString& composedBefore = {}) {
    if (!composedBefore.isEmpty()) {
        QInputMethodEvent composing(composedBefore, {});
        QApplication::sendEvent(entry, &composing);
    }
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(entry, &event);
}

struct CommitCase {
    const char* name;
    QStringView keys;
    QString composed;
    QString committed;
    const char* line;
};
void PrintTo(const CommitCase& row, std::ostream* out) { *out << row.name; }

class EntryInputMethod : public testing::TestWithParam<CommitCase> {};

TEST_P(EntryInputMethod, commits) {
    const OpenDocument open;
    open.press(GetParam().keys);
    commit(open.entry(), GetParam().committed, GetParam().composed);
    EXPECT_EQ(open.line(), GetParam().line);
    EXPECT_FALSE(open.entry()->permissibleToEnterTextFlag());
    EXPECT_EQ(open.entry()->textCursor().position(), open.line().size());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Texts, EntryInputMethod, testing::Values(
    //         name                    keys       composed  committed  line
    CommitCase{"Typed",                u"2",      "",       "x",       "2x"},
    CommitCase{"Continues",            u"2+3⏎",   "",       "^",       "ans^"},
    CommitCase{"ContinuesComposed",    u"2+3⏎",   "^",      "^",       "ans^"},
    CommitCase{"Letter",               u"2+3⏎",   "a",      "ä",       "ä"},
    CommitCase{"SeveralCharacters",    u"2+3⏎",   "",       "+4",      "+4"},
    CommitCase{"LineEndInside",        u"2",      "",       "+3\n+4",  "2+3 +4"},
    CommitCase{"NoAnsAfterAKey",       u"2+3⏎→",  "^",      "^",       "2+3^"}
), RowName());
// clang-format on

TEST(EntryInputMethodReturn, calculates) {
    const OpenDocument open;
    open.press(u"2+3");
    commit(open.entry(), "\n");
    EXPECT_EQ(open.history(), "2+3\n\t= 5\n");
    EXPECT_TRUE(open.entry()->permissibleToEnterTextFlag());
}

TEST(EntryInputMethodReplacement, replacesWhatTheMethodSays) {
    const OpenDocument open;
    open.press(u"2+pi");
    QInputMethodEvent event;
    event.setCommitString("π", -2, 2);
    QApplication::sendEvent(open.entry(), &event);
    EXPECT_EQ(open.line(), "2+π");
}

TEST(EntryInputMethodReplacement, goesOnComposingAfterACommit) {
    const OpenDocument open;
    QInputMethodEvent event("b", {});
    event.setCommitString("a");
    QApplication::sendEvent(open.entry(), &event);
    EXPECT_EQ(open.line(), "a");
    commit(open.entry(), "b");
    EXPECT_EQ(open.line(), "ab");
}

struct PasteCase {
    const char* name;
    QStringView keys;
    QString pasted;
    QString line;
};
void PrintTo(const PasteCase& row, std::ostream* out) { *out << row.name; }

class EntryPaste : public testing::TestWithParam<PasteCase> {};

TEST_P(EntryPaste, takesTheClipboard) {
    const OpenDocument open;
    open.press(GetParam().keys);
    QGuiApplication::clipboard()->setText(GetParam().pasted);
    QTest::keyClick(open.entry(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(open.line(), GetParam().line);
    EXPECT_EQ(open.entry()->document()->blockCount(), 1);
    EXPECT_EQ(open.history().count("="), GetParam().keys.count(u'⏎'));
}

TEST_P(EntryPaste, takesADrop) {
    const OpenDocument open;
    open.press(GetParam().keys);
    open.entry()->setText("");
    QMimeData data;
    data.setText(GetParam().pasted);
    QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(open.entry()->viewport(), &enter);
    QDropEvent drop(QPointF(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(open.entry()->viewport(), &drop);
    EXPECT_EQ(open.line(), TXFormulaEnteringTextView::asOneLine(GetParam().pasted));
    EXPECT_EQ(open.entry()->document()->blockCount(), 1);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Texts, EntryPaste, testing::Values(
    //        name                   keys      pasted                line
    PasteCase{"OneLine",             u"1+",    "2*3",                "1+2*3"},
    PasteCase{"Plus",                u"2⏎",    "+",                  "+"},
    PasteCase{"OperatorAndMore",     u"2⏎",    "+3",                 "+3"},
    PasteCase{"LastLineEnd",         u"",      "2+3\n",              "2+3"},
    PasteCase{"FirstLineEnd",        u"",      "\n2+3",              "2+3"},
    PasteCase{"TwoLines",            u"",      "2+3\n4",             "2+3 4"},
    PasteCase{"RunOfLineEnds",       u"",      "2+3\r\n\r\n\n4",     "2+3 4"},
    PasteCase{"TrimmedWithLineEnds", u"",      "  2+3 \n",           "2+3"},
    PasteCase{"KeptWithout",         u"",      " 2+3 ",              " 2+3 "},
    PasteCase{"SeparatorsOfLines",   u"",      u"1\u2028+\u20292\u0085+\v3\f+4"_qs, "1 + 2 + 3 +4"},
    PasteCase{"EditorsOwnMarks",     u"",      u"1+\uFDD02\uFDD1"_qs, "1+ 2"},
    PasteCase{"NothingTranslated",   u"",      u"2−3×4÷5\u00A0·6"_qs, u"2−3×4÷5\u00A0·6"_qs},
    PasteCase{"OnlyLineEnds",        u"2",     "\n\n",               "2"},
    PasteCase{"Tab",                 u"",      "1\t2",               "1\t2"}
), RowName());
// clang-format on

constexpr qsizetype longestLine = TXFormulaEnteringTextView::longestLine;

TEST(EntryPasted, mayBeAsLongAsALine) {
    const OpenDocument open;
    open.press(u"12");
    QGuiApplication::clipboard()->setText(QString(longestLine - 2, u'3'));
    open.entry()->paste();
    EXPECT_EQ(open.line().size(), longestLine);
    EXPECT_EQ(open.beeps.count(), 0);
    open.entry()->selectWholeText();
    open.entry()->paste();
    EXPECT_EQ(open.line().size(), longestLine - 2) << "what is replaced makes room";
}

// A part of it could be another equation.
TEST(EntryPasted, isRefusedWhenItIsLonger) {
    const OpenDocument open;
    open.press(u"12");
    QGuiApplication::clipboard()->setText(QString(longestLine - 1, u'\n'));
    open.entry()->paste();
    EXPECT_EQ(open.line(), "12");
    EXPECT_EQ(open.beeps.count(), 1);
    const auto* alert = open.document.documentWindow()->findChild<QMessageBox*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->text(), "The text is too long for the line.");
    const QLocale locale;
    EXPECT_EQ(alert->informativeText(), QString("It has %1 characters, and a line takes %2 at most.")
                                            .arg(locale.toString(longestLine - 1), locale.toString(longestLine)));
}

TEST(EntryPasted, isUndoneInOneStep) {
    const OpenDocument open;
    open.press(u"1+");
    QGuiApplication::clipboard()->setText("2\n+\n3");
    open.entry()->paste();
    open.entry()->undo();
    EXPECT_EQ(open.line(), "1+");
}

TEST(EntryPasted, isUndoneInOneStepWhereItReplaced) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    QGuiApplication::clipboard()->setText("7");
    open.entry()->paste();
    EXPECT_EQ(open.line(), "7");
    open.entry()->undo();
    EXPECT_EQ(open.line(), "2+3");
}

TEST(EntryPasted, isUndoneWithoutWhatWasTypedBeforeAndAfter) {
    const OpenDocument open;
    open.press(u"1+");
    QGuiApplication::clipboard()->setText("23");
    QTest::keyClick(open.entry(), Qt::Key_V, Qt::ControlModifier);
    open.press(u"*4");
    EXPECT_EQ(open.line(), "1+23*4");
    for (const char* line : {"1+23", "1+", ""}) {
        open.entry()->undo();
        EXPECT_EQ(open.line(), line);
    }
}

TEST(EntryPasted, endsTheContinuation) {
    for (const auto* keys : {u"2+3⏎", u"2⏎"}) {  // also where the line stays as long as it was
        const OpenDocument open;
        open.press(keys);
        QGuiApplication::clipboard()->setText("7");
        QTest::keyClick(open.entry(), Qt::Key_V, Qt::ControlModifier);
        open.press(u"+");
        EXPECT_EQ(open.line(), "7+");
    }
}

/// The point before the character at this position of the line.
QPoint pointAt(const TXFormulaEnteringTextView* entry, int position) {
    QTextCursor cursor(entry->document());
    cursor.setPosition(position);
    return entry->cursorRect(cursor).center();
}

TEST(EntryDropped, isUndoneInOneStep) {
    const OpenDocument open;
    open.press(u"12*3");
    QMimeData data;
    data.setText("4\n+5");
    const QPoint place = pointAt(open.entry(), 2);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(open.entry()->viewport(), &enter);
    QDropEvent drop(QPointF(place), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(open.entry()->viewport(), &drop);
    EXPECT_EQ(open.line(), "124 +5*3");
    open.entry()->undo();
    EXPECT_EQ(open.line(), "12*3");
    open.entry()->redo();
    EXPECT_EQ(open.line(), "124 +5*3");
}

TEST(EntryDropped, endsWhatIsBeingComposed) {
    const OpenDocument open;
    open.press(u"12");
    QInputMethodEvent composing("composed", {});
    QApplication::sendEvent(open.entry(), &composing);
    QMimeData data;
    data.setText("+3");
    const Warnings warnings;
    const QPoint place(open.entry()->viewport()->width() - 1, 1);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(open.entry()->viewport(), &enter);
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(open.entry()->viewport(), &move);
    EXPECT_EQ(open.entry()->document()->firstBlock().layout()->preeditAreaText(), "");
    QApplication::sendEvent(open.entry(), &composing);
    QDropEvent drop(QPointF(place), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(open.entry()->viewport(), &drop);
    EXPECT_EQ(open.line(), "12+3");
    EXPECT_EQ(warnings.messages(), QStringList());
}

TEST(EntryPasted, comesWithTheMiddleButtonToo) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    const OpenDocument open;
    if (clipboard->supportsSelection()) {
        clipboard->setText("2\n+3", QClipboard::Selection);
        QTest::mouseClick(open.entry()->viewport(), Qt::MiddleButton, {}, {1, 1});
        EXPECT_EQ(open.line(), "2 +3");
    } else {
        QTest::mouseClick(open.entry()->viewport(), Qt::MiddleButton, {}, {1, 1});
        EXPECT_EQ(open.line(), "");
    }
}

TEST(EntryTyped, ansAndOperatorAreUndoneTogether) {
    const OpenDocument open;
    open.press(u"2+3⏎+");
    open.entry()->undo();
    EXPECT_EQ(open.line(), "2+3");
}

TEST(EntryCopied, isPlainTextAndRaw) {
    const OpenDocument open;
    open.entry()->setText(u"2\u00A0+3"_qs);
    open.entry()->selectAll();
    open.entry()->copy();
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->text(), u"2\u00A0+3"_qs);
    EXPECT_EQ(copied->formats(), QStringList{"text/plain"});
}

void openContextMenu(QAbstractScrollArea* view) {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {1, 1}, view->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(view->viewport(), &event);
}

TEST(EntryMenu, offersWhatCanBeDone) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    openContextMenu(open.entry());
    auto* menu = open.entry()->findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    QStringList enabled;
    for (const QAction* action : menu->actions()) {
        if (action->isEnabled() && !action->isSeparator()) enabled += action->text();
    }
    EXPECT_EQ(enabled, (QStringList{"&Undo", "Cu&t", "&Copy", "&Paste", "Select &All"}));
    menu->close();
}

/// Text that counts how often somebody asks what it is.
class WatchedText : public QMimeData {
public:
    explicit WatchedText(int* questions) : questions_(questions) { setText("7"); }
    bool hasFormat(const QString& type) const override {
        ++*questions_;
        return QMimeData::hasFormat(type);
    }
    QStringList formats() const override {
        ++*questions_;
        return QMimeData::formats();
    }

private:
    int* questions_;
};

TEST(EntryClipboard, isAskedOnlyToPaste) {
    int questions = 0;
    const OpenDocument open;
    QGuiApplication::clipboard()->setMimeData(std::make_unique<WatchedText>(&questions).release());
    questions = 0;
    open.press(u"2+3⏎+4⌘");
    openContextMenu(open.entry());
    auto* menu = open.entry()->findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    menu->close();
    openContextMenu(open.document.mainField());
    delete open.document.mainField()->findChild<QMenu*>();
    EXPECT_EQ(questions, 0);
    open.entry()->paste();
    EXPECT_GT(questions, 0);
    QGuiApplication::clipboard()->clear();
}

TEST(EntryInserted, nameGoesIntoTheFullWindowsLine) {
    OpenDocument open;
    open.press(u"2+3←");
    open.document.mainField()->setFocus();
    open.document.insertTextIntoEnteringBox("rate");
    EXPECT_EQ(open.line(), "2+rate3");
    EXPECT_TRUE(open.entry()->hasFocus());
}

TEST(EntryInserted, nameGoesThereEvenWhileTheMiniWindowIsShown) {
    OpenDocument open;
    open.document.setIsSmallWindowShown(true);
    open.document.insertTextIntoEnteringBox("x");
    EXPECT_EQ(open.document.formulaTextView()->text(), "x");
    EXPECT_EQ(open.document.miniModeformulaTextView()->text(), "");
}

TEST(EntryFlagAccessors, keepWhatTheyAreGiven) {
    TXFormulaEnteringTextView entry;
    entry.setWasFormulaJustCalculated(true);
    entry.setPermissibleToEnterTextFlag(true);
    EXPECT_TRUE(entry.wasFormulaJustCalculated());
    EXPECT_TRUE(entry.permissibleToEnterTextFlag());
    entry.textViewDidChangeSelection();
    EXPECT_FALSE(entry.wasFormulaJustCalculated());
    EXPECT_FALSE(entry.permissibleToEnterTextFlag());
}

}  // namespace
