// Which brackets belong together, and what numbers and names a line has.

#include "ui/document/equationMarks.h"

#include <ostream>

#include "tests/support/DocumentTest.h"
#include "ui/document/EntryColors.h"
#include "ui/document/contrast.h"
#include "ui/document/functionMeanings.h"

void PrintTo(const BracketPair& pair, std::ostream* out) { *out << pair.opening << ".." << pair.closing; }

namespace {

/// The line with the brackets that are marked when the caret stands at "|", in "<" and ">".
QString marked(const QString& text) {
    const qsizetype caret = text.indexOf(u'|');
    QString line = text;
    line.remove(caret, 1);
    if (const auto pair = bracketPairAt(line, caret)) {
        line[pair->opening] = u'<';
        line[pair->closing] = u'>';
    }
    return line;
}

TEST(BracketPair, isFoundFromBothOfItsEnds) {
    for (const QString line : {"|(2)", "(|2)", "(2|)", "(2)|"}) EXPECT_EQ(marked(line), "<2>");
}

TEST(BracketPair, isThatOfTheSameDepth) {
    EXPECT_EQ(marked("2*((r+1)*(3))|"), "2*<(r+1)*(3)>");
    EXPECT_EQ(marked("2*((r+1)|*(3))"), "2*(<r+1>*(3))");
    EXPECT_EQ(marked("2*(|(r+1)*(3))"), "2*<(r+1)*(3)>");
}

TEST(BracketPair, beforeTheCaretGoesFirst) { EXPECT_EQ(marked("(2)|(3)"), "<2>(3)"); }

TEST(BracketPair, isMissingElsewhere) {
    for (const QString line : {"|", "2|+3", "(2|+3)", "(|2", "2)|", "[2]|", "(2))|"}) {
        EXPECT_EQ(marked(line), QString(line).remove(u'|'));
    }
}

TEST(UnmatchedClosingBrackets, areThoseWithoutAnOpeningOneBefore) {
    using Positions = std::vector<qsizetype>;
    EXPECT_EQ(unmatchedClosingBrackets(u"(2+(3)"), Positions());
    EXPECT_EQ(unmatchedClosingBrackets(u")(2)"), Positions{0});
    EXPECT_EQ(unmatchedClosingBrackets(u"(2))+3)"), (Positions{3, 6}));
}

/// The line with each span in brackets of its own: numbers in [], functions in {}, variables in <>.
QString spanned(const QString& line) {
    const auto partOf = [](QStringView name) -> std::optional<EquationPart> {
        if (name == u"sin") return EquationPart::function;
        if (name == u"r" || name == u"x_1") return EquationPart::variable;
        return std::nullopt;
    };
    QString text;
    qsizetype done = 0;
    for (const EquationSpan& span : spansOf(line, partOf)) {
        const QString form = span.part == EquationPart::number     ? "[%1]"
                             : span.part == EquationPart::function ? "{%1}"
                                                                   : "<%1>";
        text += line.mid(done, span.start - done) + form.arg(line.mid(span.start, span.length));
        done = span.start + span.length;
    }
    return text + line.mid(done);
}

TEST(EquationSpans, areNumbersAndKnownNames) {
    EXPECT_EQ(spanned(""), "");
    EXPECT_EQ(spanned("12.5*sin(r)+foo - x_1"), "[12.5]*{sin}(<r>)+foo - <x_1>");
    EXPECT_EQ(spanned("2e-5+3E+7-r"), "[2e-5]+[3E+7]-<r>");
    EXPECT_EQ(spanned("0x1e+2"), "[0x1e]+[2]");
    EXPECT_EQ(spanned("5±1"), "[5]±[1]");
    EXPECT_EQ(spanned("."), "[.]");
    EXPECT_EQ(spanned("sine+rr"), "sine+rr");
    EXPECT_EQ(spanned("r.5"), "<r>[.5]");
}

TEST(NameBefore, isWholeAndBeginsWithALetter) {
    EXPECT_EQ(startOfNameBefore(u"3*si", 4), 2);
    EXPECT_EQ(startOfNameBefore(u"x_1+2", 3), 0);
    EXPECT_EQ(startOfNameBefore(u"αβ", 2), 0);
    EXPECT_EQ(startOfNameBefore(u"3*si", 3), 3) << "the rest of the name follows";
    EXPECT_EQ(startOfNameBefore(u"3*", 2), 2);
    EXPECT_EQ(startOfNameBefore(u"12ab", 4), 4) << "it begins with a digit";
    EXPECT_EQ(startOfNameBefore(u"", 0), 0);
}

TEST(FunctionMeanings, areThoseOfAllFunctionsThatAnswer) {
    const TXEquationController controller;
    for (const std::u16string_view name : controller.nativeFunctionNames()) {
        const QString meaning = meaningOfFunction(name);
        EXPECT_EQ(meaning.isEmpty(), name == u"atan2")
            << QString::fromUtf16(name.data(), qsizetype(name.size())).toStdString();
    }
    EXPECT_EQ(meaningOfFunction(u"cbrt"), "cube root");
    EXPECT_EQ(meaningOfFunction(u"si"), "");
}

TEST(EntryColors, canBeReadOnTheirBackground) {
    for (const QColor base : {QColor(Qt::white), QColor(0xF5, 0xF5, 0xF5), QColor(0x22, 0x22, 0x26),
                              QColor(0x2A, 0x2B, 0x2F), QColor(Qt::black)}) {
        const EntryColors& colors = EntryColors::on(base);
        for (const QColor& color : {colors.quiet, colors.error, colors.number, colors.function, colors.variable}) {
            EXPECT_GE(contrast(color, base), readableContrast)
                << color.name().toStdString() << " on " << base.name().toStdString();
        }
    }
}

}  // namespace
