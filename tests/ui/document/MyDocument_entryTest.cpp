// What Return does, in both windows.

#include <QTextBlock>

#include "tests/support/DocumentTest.h"
#include "ui/document/MiniModeAnswerField.h"

namespace {

using LineKind = TXHistoryViewerTextView::LineKind;

struct HistoryCase {
    const char* name;
    QStringView keys;
    const char* history;
};
void PrintTo(const HistoryCase& row, std::ostream* out) { *out << row.keys.toUtf8().toStdString(); }

class EnteredEquations : public testing::TestWithParam<HistoryCase> {};

TEST_P(EnteredEquations, standInTheHistory) {
    const OpenDocument open;
    open.press(GetParam().keys);
    EXPECT_EQ(open.history(), GetParam().history);
    EXPECT_EQ(open.beeps.count(), 0);
}

TEST_P(EnteredEquations, standInTheHistoryFromTheMiniWindowToo) {
    OpenDocument open;
    open.document.setIsSmallWindowShown(true);
    open.press(GetParam().keys);
    EXPECT_EQ(open.history(), GetParam().history);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lines, EnteredEquations, testing::Values(
    HistoryCase{"FirstIsNotPrecededByALineBreak", u"2+3⏎",          "2+3\n\t= 5\n"},
    HistoryCase{"LaterOnesAre",                   u"2+3⏎x=4⏎",      "2+3\n\t= 5\n\nx=4\n\tx = 4\n"},
    HistoryCase{"ShiftReturn",                    u"2+3⇧⏎",         "2+3\n\t= 5\n"},
    HistoryCase{"KeypadEnter",                    u"2+3⌤",          "2+3\n\t= 5\n"},
    HistoryCase{"Blank",                          u"⏎",             ""},
    HistoryCase{"Blanks",                         u"   ⏎",          ""},
    HistoryCase{"Trimmed",                        u" 2+3 ⏎",        "2+3\n\t= 5\n"},
    HistoryCase{"AnsGetsItsName",                 u"2+3⏎+4⏎",       "2+3\n\t= 5\n\nans1+4\n\t= 9\n"},
    HistoryCase{"VariableIsNamedAsListed",        u"  x  =4⏎",      "x  =4\n\tx = 4\n"},
    HistoryCase{"Error",                          u"(2⏎",
        "(2\n\tError: There is an open parenthesis in the equation -- you are missing a ).\n"},
    HistoryCase{"SameLineAgain",                  u"2+3⏎⏎",         "2+3\n\t= 5\n\n2+3\n\t= 5\n"},
    HistoryCase{"NoBreakSpace",                   u"2+3⏎4⏎",        "2+3\n\t= 5\n\n4\n\t= 4\n"}
), RowName());
// clang-format on

struct LineOfHistory {
    const char* text = "";
    int kind = 0;
    QColor color;
    double leftMargin = 0.0;
};

TEST(MyDocumentHistory, hasItsColorsAndKinds) {
    const QColor blue = QColor::fromRgbF(0.094F, 0.094F, 0.83F);
    const QColor black = QColor::fromRgbF(0.0F, 0.0F, 0.0F);
    const QColor red = QColor::fromRgbF(0.83F, 0.094F, 0.094F);
    const LineOfHistory lines[] = {
        {"2+3", static_cast<int>(LineKind::equation), black, 0.0},
        {"\t= 5", static_cast<int>(LineKind::answer), blue, 24.0},
        {"", 0, {}, 0.0},
        {"x=4", static_cast<int>(LineKind::equation), black, 0.0},
        {"\tx = 4", static_cast<int>(LineKind::answer), blue, 24.0},
        {"", 0, {}, 0.0},
        {"q", static_cast<int>(LineKind::equation), black, 0.0},
        {"\tError: The equation contains an undefined variable: q.", static_cast<int>(LineKind::error), red, 24.0},
        {"", 0, {}, 0.0},
    };
    const OpenDocument open;
    open.press(u"2+3⏎x=4⏎q⏎");
    QTextBlock block = open.document.mainField()->document()->firstBlock();
    for (const LineOfHistory& line : lines) {
        SCOPED_TRACE(line.text);
        ASSERT_TRUE(block.isValid());
        EXPECT_EQ(block.text(), line.text);
        EXPECT_EQ(block.blockFormat().intProperty(TXHistoryViewerTextView::lineKindProperty), line.kind);
        EXPECT_EQ(block.blockFormat().leftMargin(), line.leftMargin);
        EXPECT_EQ(block.blockFormat().textIndent(), -line.leftMargin);
        if (line.color.isValid()) {
            EXPECT_EQ(block.begin().fragment().charFormat().foreground().color(), line.color);
        }
        block = block.next();
    }
    EXPECT_FALSE(block.isValid());
}

TEST(MyDocumentEntry, keepsTheFormulaWhollySelected) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    EXPECT_EQ(open.line(), "2+3");
    EXPECT_EQ(open.selection(), "2+3");
    EXPECT_TRUE(open.entry()->hasFocus());
}

TEST(MyDocumentEntry, isReplacedByWhatIsTypedNext) {
    const OpenDocument open;
    open.press(u"2+3⏎7");
    EXPECT_EQ(open.line(), "7");
}

TEST(MyDocumentEntry, leavesAllAsItWasForABlankLine) {
    const OpenDocument open;
    open.press(u"2⏎⌫  ←⏎");
    EXPECT_EQ(open.history(), "2\n\t= 2\n");
    EXPECT_EQ(open.line(), "  ");
    EXPECT_EQ(open.selection(), "");
    EXPECT_EQ(open.entry()->textCursor().position(), 1);
    EXPECT_EQ(open.beeps.count(), 0);
}

TEST(MyDocumentEntry, addsNoBlankLineToTheScrollback) {
    OpenDocument open;
    open.press(u"  ⏎");
    EXPECT_EQ(open.document.documentFormulaScrollerController().masterScrollbackArray(), std::vector<QString>{""});
}

TEST(MyDocumentEntry, goesIntoTheScrollbackAsItWasTyped) {
    OpenDocument open;
    open.press(u" 2+3 ⏎");
    EXPECT_EQ(open.document.documentFormulaScrollerController().masterScrollbackArray(),
              (std::vector<QString>{" 2+3 ", ""}));
}

TEST(MyDocumentEntry, isWrittenInTheDocumentsFormat) {
    OpenDocument open;
    open.document.documentNumberFormatterSettings().setThousandsSeparators(true);
    open.document.changeThousandsSeparatorCharacter(2);
    open.press(u"x=1000000⏎");
    EXPECT_EQ(open.history(), "x=1000000\n\tx = 1'000'000\n");
}

TEST(MyDocumentEntry, cannotBeUndoneInTheHistory) {
    const OpenDocument open;
    open.press(u"2⏎");
    EXPECT_FALSE(open.document.mainField()->isUndoRedoEnabled());
}

TEST(MyDocumentHistory, cannotBeTypedInto) {
    const OpenDocument open;
    open.press(u"2⏎");
    EXPECT_FALSE(open.document.mainField()->isEditable());
    pressKeys(open.document.mainField(), u"7⌫⏎");
    EXPECT_EQ(open.history(), "2\n\t= 2\n");
}

TEST(MyDocumentHistory, goesOnAtItsEndWhereverTheCaretIs) {
    const OpenDocument open;
    open.press(u"2⏎");
    open.document.mainField()->selectAll();
    open.press(u"3⏎");
    EXPECT_EQ(open.history(), "2\n\t= 2\n\n3\n\t= 3\n");
    EXPECT_FALSE(open.document.mainField()->textCursor().hasSelection());
    EXPECT_TRUE(open.document.mainField()->textCursor().atEnd());
}

struct MiniCase {
    const char* name;
    QStringView keys;
    const char* answer;
    double pointSize;
    Qt::Alignment alignment;
};
void PrintTo(const MiniCase& row, std::ostream* out) { *out << row.keys.toUtf8().toStdString(); }

class MiniWindowAnswers : public testing::TestWithParam<MiniCase> {};

TEST_P(MiniWindowAnswers, areShown) {
    OpenDocument open;
    open.document.setIsSmallWindowShown(true);
    open.press(GetParam().keys);
    const MiniModeAnswerField* field = open.document.miniModeAnswerField();
    EXPECT_EQ(field->text(), GetParam().answer);
    EXPECT_EQ(field->font().family(), "Arial");
    EXPECT_EQ(field->font().pointSizeF(), GetParam().pointSize);
    EXPECT_EQ(field->alignment() & Qt::AlignHorizontal_Mask, GetParam().alignment);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Forms, MiniWindowAnswers, testing::Values(
    MiniCase{"Number",           u"2+3⏎",    "5",                                         18.0, Qt::AlignRight},
    MiniCase{"Assignment",       u"x=4⏎",    "x = 4",                                     18.0, Qt::AlignRight},
    MiniCase{"Error",            u"q⏎",      "Error: The equation contains an undefined variable: q.",     12.0, Qt::AlignLeft},
    MiniCase{"NumberAfterError", u"q⏎7⏎",    "7",                                         18.0, Qt::AlignRight}
), RowName());
// clang-format on

TEST(MiniWindowAnswer, isOnlyShownWhileTheMiniWindowIs) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    EXPECT_EQ(open.document.miniModeAnswerField()->text(), "");
}

TEST(MiniWindowEntry, isSelectedAndTheOtherLineLeftAlone) {
    OpenDocument open;
    open.press(u"7");
    open.document.setIsSmallWindowShown(true);
    open.press(u"2+3⏎");
    EXPECT_EQ(open.selection(), "2+3");
    EXPECT_EQ(open.document.formulaTextView()->text(), "7");
}

TEST(MiniWindowEntry, sharesTheScrollback) {
    OpenDocument open;
    open.press(u"1⏎2⏎");
    open.document.setIsSmallWindowShown(true);
    open.press(u"⇑");
    EXPECT_EQ(open.line(), "2");
}

}  // namespace
