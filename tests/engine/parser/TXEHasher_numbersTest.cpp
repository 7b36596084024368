#include "engine/parser/TXEHasher.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/parsing.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

struct LiteralCase {
    const char* name;
    std::u16string_view line;
    double number;
};

void PrintTo(const LiteralCase& row, std::ostream* out) { *out << utf8(row.line); }

class Literals : public testing::TestWithParam<LiteralCase> {};

TEST_P(Literals, becomeOneNumberBlock) {
    const ParsedLine parsed(GetParam().line);
    ASSERT_FALSE(parsed.result->isErrorMessage()) << utf8(parsed.result->errorMessage());
    const TXBlockLists& lists = *parsed.equation.leftEquationBlocks();
    ASSERT_EQ(lists.size(), 1);
    ASSERT_EQ(lists[0].size(), 1U);
    EXPECT_TRUE(lists[0][0].isNumber());
    EXPECT_EQ(lists[0][0].number(), GetParam().number);
    EXPECT_FALSE(lists[0][0].hasTolerance());
}

// clang-format off
constexpr LiteralCase decimalLiterals[] = {
    {"Digit",                          u"5",          5.0},
    {"Zero",                           u"0",          0.0},
    {"Digits",                         u"120",        120.0},
    {"Fraction",                       u"0.5",        0.5},
    {"PointInFront",                   u".5",         0.5},
    {"PointAtTheEnd",                  u"5.",         5.0},
    {"ZeroAndPoint",                   u"0.",         0.0},
    {"SeveralZerosAfterThePoint",      u"0.000",      0.0},
    {"RoundedCorrectly",               u"9007199254740993", 9007199254740992.0},
    {"BlankBehind",                    u"5 ",         5.0},
};

constexpr LiteralCase exponents[] = {
    {"Small",                          u"1.5e3",      1500.0},
    {"Capital",                        u"1.5E3",      1500.0},
    {"Minus",                          u"1e-3",       0.001},
    {"Plus",                           u"1e+3",       1000.0},
    {"BlanksInTheSignRun",             u"1e - 3",     0.001},
    {"BlanksWithoutASign",             u"1e  3",      1000.0},
    {"EvenNumberOfMinusSigns",         u"1e--3",      1000.0},
    {"OddNumberOfMinusSigns",          u"1e-+ - -3",  0.001},
    {"LeadingZerosInTheExponent",      u"1e003",      1000.0},
    {"ZeroExponent",                   u"7e0",        7.0},
    {"PointBeforeTheExponent",         u"5.e3",       5000.0},
    {"PointInFrontOfTheMantissa",      u".5e3",       500.0},
    {"ZeroMantissa",                   u"0.e3",       0.0},
    {"LargestPowerOfTen",              u"1e308",      1e308},
    // Mantissa times a power: two roundings, not one.
    {"MantissaTimesPower",             u"4.35e2",     434.99999999999994},
    {"MantissaTimesSmallPower",        u"3e-1",       0.30000000000000004},
    {"PowerThatUnderflows",            u"1e-999",     0.0},
    {"PowerThatUnderflowsThoughTheNumberDoesNot", u"3e-324", 0.0},
    {"ExponentBeyondAllIntegers",      u"1e-99999999999999999999", 0.0},
};

constexpr LiteralCase prefixedLiterals[] = {
    {"Hexadecimal",                    u"0x1F",       31.0},
    {"HexadecimalCapitalPrefix",       u"0X1f",       31.0},
    {"HexadecimalMixedCase",           u"0xaBcDeF",   11259375.0},
    {"HexadecimalFirstAndLastLetter",  u"0xaf",       175.0},
    {"HexadecimalFirstAndLastCapital", u"0xAF",       175.0},
    {"HexadecimalExponentIsADigit",    u"0x1e3",      483.0},
    {"Binary",                         u"0b101",      5.0},
    {"BinaryCapitalPrefix",            u"0B11",       3.0},
    {"Octal",                          u"0o17",       15.0},
    {"OctalCapitalPrefix",             u"0O777",      511.0},
    {"LeadingZeros",                   u"0x00ff",     255.0},
    {"PrefixedZero",                   u"0b0",        0.0},
    {"LargestExactInteger",            u"0x1FFFFFFFFFFFFF", 9007199254740991.0},
    {"SixtyFourBits",                  u"0xFFFFFFFFFFFFFFFF", 18446744073709551616.0},
    // From the last digit to the first: the small places are together before they meet the large one ...
    {"DigitsAddUpFromTheRight",        u"0x1000000000000081", 1152921504606847232.0},
    // ... and 2^53 + 1 is rounded before 2^106 is added.
    {"EachAdditionRounds",             u"0x400000000000020000000000001", 81129638414606681695789005144064.0},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Decimal, Literals, testing::ValuesIn(decimalLiterals), RowName());
INSTANTIATE_TEST_SUITE_P(Exponents, Literals, testing::ValuesIn(exponents), RowName());
INSTANTIATE_TEST_SUITE_P(Prefixed, Literals, testing::ValuesIn(prefixedLiterals), RowName());

class NumberTrees : public testing::TestWithParam<TreeCase> {};

TEST_P(NumberTrees, areAccepted) { expectTree(GetParam()); }

// clang-format off
constexpr TreeCase literalEnds[] = {
    {"AtAnOperator",               u"0x1F+1",    "0: 31 +1"},
    {"AtABlank",                   u"0b11 +1",   "0: 3 +1"},
    {"AtAParenthesis",             u"(0o7)*2",   "0: [1] *2 | 1@0.0: 7"},
    {"ExponentEndsAtAnOperator",   u"1e3-1",     "0: 1000 -1"},
    {"SignsBelongToTheExponent",   u"2-1e-3",    "0: 2 -0.001"},
    {"ExponentSignIsNotKept",      u"1e-3-3",    "0: 0.001 -3"},
    {"AtAnEqualsSign",             u"a=5.",      "0!: v2", "0: 5"},
    {"ZeroTimesInfinityIsAccepted", u"0.0e999",   "0: nan"},
};

constexpr RefusalCase malformed[] = {
    {"LeadingZero",                 u"05",        u"You must have a decimal following the leading zero in the number 05 ."},
    {"TwoZeros",                    u"00",        u"You must have a decimal following the leading zero in the number 00 ."},
    {"TwoZerosAndAFraction",        u"00.5",      u"You must have a decimal following the leading zero in the number 00.5 ."},
    {"ZeroBeforeAnExponent",        u"0e3",       u"You must have a decimal following the leading zero in the number 0e3 ."},
    {"ZeroBeforeAnEmptyExponent",   u"0e",        u"You must have a decimal following the leading zero in the number 0e ."},
    {"LeadingZeroBeforeAllElse",    u"05.5.5e1e1", u"You must have a decimal following the leading zero in the number 05.5.5e1e1 ."},
    {"LeadingZeroBeforeALetter",    u"05x",       u"You must have a decimal following the leading zero in the number 05 ."},
    {"LeadingZeroWithinALine",      u"1+05*2",    u"You must have a decimal following the leading zero in the number 05 ."},
    {"TwoExponents",                u"1e5e2",     u"You have too many exponents in the number 1e5e2 ."},
    {"TwoExponentsInARow",          u"1ee5",      u"You have too many exponents in the number 1ee5 ."},
    {"SecondExponentAtTheEnd",      u"1e5e",      u"You have too many exponents in the number 1e5e ."},
    {"ExponentsQuotedWithBlanks",   u"1e - 5e2+1", u"You have too many exponents in the number 1e - 5e2 ."},
    {"ExponentsBeforeDecimals",     u"1e2.5e3",   u"You have too many exponents in the number 1e2.5e3 ."},
    {"ExponentsBeforeMissingDigits", u".ee.",     u"You have too many exponents in the number .ee. ."},
    {"DecimalInTheExponent",        u"1e2.5",     u"You cannot have a decimal in an exponent of 1e2.5 ."},
    {"DecimalAtTheEndOfTheExponent", u"1e5.",     u"You cannot have a decimal in an exponent of 1e5. ."},
    {"DecimalBeginsTheExponent",    u"1e.5",      u"You cannot have a decimal in an exponent of 1e.5 ."},
    {"DecimalBeforeTooManyDecimals", u"1.5e2.5.5", u"You cannot have a decimal in an exponent of 1.5e2.5.5 ."},
    {"LaterFaultReplacesEarlier",   u".e.5",      u"You cannot have a decimal in an exponent of .e.5 ."},
    {"NothingBeforeTheExponent",    u".e3",       u"You must have a number before the exponent in .e3 ."},
    {"PointsBeforeTheExponent",     u"..e3",      u"You must have a number before the exponent in ..e3 ."},
    {"NothingBeforeNorInTheExponent", u".e",      u"You must have a number before the exponent in .e ."},
    {"NothingInTheExponent",        u"1e",        u"You must have a number in the exponent of 1e ."},
    {"OnlyASignInTheExponent",      u"1e+",       u"You must have a number in the exponent of 1e+ ."},
    {"SignAndBlankInTheExponent",   u"1e- ",      u"You must have a number in the exponent of 1e-  ."},
    {"NameInTheExponent",           u"1e x",      u"You must have a number in the exponent of 1e  ."},
    {"OperatorAfterTheE",           u"1e*3",      u"You must have a number in the exponent of 1e ."},
    {"ZeroPointExponent",           u"0.e",       u"You must have a number in the exponent of 0.e ."},
    {"ExponentBeforeTooManyDecimals", u"1.2.3e",  u"You must have a number in the exponent of 1.2.3e ."},
    {"PointAlone",                  u".",         u"You must have a number in the \"number\" . ."},
    {"PointAfterAName",             u"a.b",       u"You must have a number in the \"number\" . ."},
    {"TwoPointsAlone",              u"..",        u"You have too many decimals in the number .. ."},
    {"TwoPoints",                   u"1.2.3",     u"You have too many decimals in the number 1.2.3 ."},
    {"TwoPointsAtTheEnd",           u"1..",       u"You have too many decimals in the number 1.. ."},
    {"TwoPointsWithAnExponent",     u"1.2.3e4",   u"You have too many decimals in the number 1.2.3e4 ."},
    {"ZeroAndTwoPoints",            u"0.5.",      u"You have too many decimals in the number 0.5. ."},
};

constexpr RefusalCase tooLarge[] = {
    {"Exponent",                    u"1e999",     u"A number is too large"},
    {"JustTooLarge",                u"1e309",     u"A number is too large"},
    {"Mantissa",                    u"10e308",    u"A number is too large"},
    {"PowerAlone",                  u"0.1e309",   u"A number is too large"},
    {"Negative",                    u"-1e999",    u"A number is too large"},
    {"ExponentBeyondAllIntegers",   u"1e99999999999999999999", u"A number is too large"},
    {"ItsToleranceIsNotTaken",      u"1e999±5",   u"A number is too large"},
    {"MissingOperatorStays",        u"1e999(2)",  u"There needs to be an operator after 1e."},
    {"BadToleranceStays",           u"1e999±x",   u"± must be followed by a number (you can't have variables or anything else)."},
};

constexpr RefusalCase prefixesWithoutDigits[] = {
    {"BinaryAtTheEnd",              u"0b",        u"The binary number at the end of the equation does not have anything after 0b."},
    {"BinaryCapitalAtTheEnd",       u"0B",        u"The binary number at the end of the equation does not have anything after 0B."},
    {"OctalAtTheEnd",               u"0o",        u"The octal number at the end of the equation does not have anything after 0o."},
    {"OctalCapitalAtTheEnd",        u"0O",        u"The octal number at the end of the equation does not have anything after 0O."},
    {"HexadecimalAtTheEnd",         u"0x",        u"The hexadecimal number at the end of the equation does not have anything after 0x."},
    {"HexadecimalCapitalAtTheEnd",  u"1+0X",      u"The hexadecimal number at the end of the equation does not have anything after 0X."},
    {"BinaryBeforeAnOperator",      u"0b*2",      u"One of your binary numbers does not have anything after 0b."},
    {"OctalBeforeABlank",           u"0o ",       u"One of your octal numbers does not have anything after 0o."},
    {"OctalCapitalBeforeAParenthesis", u"(0O)",   u"One of your octal numbers does not have anything after 0O."},
    {"HexadecimalBeforeAPlus",      u"0x+1",      u"One of your hexadecimal numbers does not have anything after 0x."},
    {"HexadecimalBeforeAComma",     u"0X,1",      u"One of your hexadecimal numbers does not have anything after 0X."},
    {"HexadecimalBeforeATolerance", u"0x±1",      u"One of your hexadecimal numbers does not have anything after 0x."},
};

constexpr RefusalCase badDigits[] = {
    {"Binary",                 u"0b102",      u"Binary numbers can only have digits 0 or 1; you can't have a 2 character in a binary number (in 0b102)."},
    {"BinaryLastBadDigitFirst", u"0B213",     u"Binary numbers can only have digits 0 or 1; you can't have a 3 character in a binary number (in 0b213)."},
    {"BinaryPoint",            u"0b1.1",      u"Binary numbers can only have digits 0 or 1; you can't have a . character in a binary number (in 0b1.1)."},
    {"BinaryLetterAsTyped",    u"0b1A",       u"Binary numbers can only have digits 0 or 1; you can't have a A character in a binary number (in 0b1A)."},
    {"Octal",                  u"0o789",      u"Octal numbers can only have digits 0-7; you can't have a 9 character in an octal number (in 0o789)."},
    {"OctalLetterAsTyped",     u"0O1E2",      u"Octal numbers can only have digits 0-7; you can't have a E character in an octal number (in 0o1E2)."},
    {"Hexadecimal",            u"0xfg",       u"Hexadecimal numbers can only have digits 0-9 and letters A-F; you can't have a g character in an hexadecimal number (in 0xfg)."},
    {"HexadecimalLowerCased",  u"0XAHF",      u"Hexadecimal numbers can only have digits 0-9 and letters A-F; you can't have a h character in an hexadecimal number (in 0xAHF)."},
    {"HexadecimalLastLetter",  u"0xZ",        u"Hexadecimal numbers can only have digits 0-9 and letters A-F; you can't have a z character in an hexadecimal number (in 0xZ)."},
    {"HexadecimalBeforeTheCapitals", u"0x@",  u"Hexadecimal numbers can only have digits 0-9 and letters A-F; you can't have a @ character in an hexadecimal number (in 0x@)."},
    {"HexadecimalBeforeTheLetters", u"0x`",   u"Hexadecimal numbers can only have digits 0-9 and letters A-F; you can't have a ` character in an hexadecimal number (in 0x`)."},
    {"HexadecimalPoint",       u"0x1.5",      u"Hexadecimal numbers can only have digits 0-9 and letters A-F; you can't have a . character in an hexadecimal number (in 0x1.5)."},
    {"OnlyAsciiIsLowerCased",  u"0x1\u00C9",  u"Hexadecimal numbers can only have digits 0-9 and letters A-F; you can't have a \u00C9 character in an hexadecimal number (in 0x1\u00C9)."},
    {"KelvinSignIsNoLetter",   u"0x\u212A",   u"Hexadecimal numbers can only have digits 0-9 and letters A-F; you can't have a \u212A character in an hexadecimal number (in 0x\u212A)."},
    {"FullwidthDigit",         u"0o\uFF17",   u"Octal numbers can only have digits 0-7; you can't have a \uFF17 character in an octal number (in 0o\uFF17)."},
    {"LoneSurrogate",          u"0b1\xD800",  u"Binary numbers can only have digits 0 or 1; you can't have a \xD800 character in a binary number (in 0b1\xD800)."},
    {"MissingOperatorStays",   u"0b102(3)",   u"There needs to be an operator after ."},
};

constexpr RefusalCase juxtapositions[] = {
    {"Name",                        u"2a",        u"There needs to be an operator after 2."},
    {"Underscore",                  u"1_2",       u"There needs to be an operator after 1."},
    {"LetterThatIsAPrefixAfterZero", u"2x",       u"There needs to be an operator after 2."},
    {"ZeroAndAnotherLetter",        u"0a",        u"There needs to be an operator after 0."},
    {"Tab",                         u"5\t",       u"There needs to be an operator after 5."},
    {"CharacterOfNoName",           u"5$",        u"There needs to be an operator after 5."},
    {"Parenthesis",                 u"2(3)",      u"There needs to be an operator after 2."},
    {"Bracket",                     u"2[3]",      u"There needs to be an operator after 2."},
    {"Fraction",                    u"2.50x",     u"There needs to be an operator after 2.50."},
    {"PointAtTheEnd",               u"3.a",       u"There needs to be an operator after 3.."},
    {"OnlyUpToTheE",                u"2e3x",      u"There needs to be an operator after 2e."},
    {"OnlyUpToTheEOfALaterNumber",  u"10+2e3x",   u"There needs to be an operator after 2e."},
    {"OnlyUpToTheCapitalE",         u"2.5E - 3(", u"There needs to be an operator after 2.5E."},
    {"NothingOfAPrefixedNumber",    u"0x1F(2)",   u"There needs to be an operator after ."},
    {"NothingOfABinaryNumber",      u"0b1[2]",    u"There needs to be an operator after ."},
    {"WithoutItsTolerance",         u"5±0.1a",    u"There needs to be an operator after 5."},
    {"WithoutItsToleranceOrExponent", u"5e1±0.1(2)", u"There needs to be an operator after 5e."},
    {"AfterABlankItIsAnotherMessage", u"2 (3)",   u"You need an operator between   and (."},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(LiteralEnds, NumberTrees, testing::ValuesIn(literalEnds), RowName());

class NumberRefusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(NumberRefusals, giveTheirMessage) { expectRefusal(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Malformed, NumberRefusals, testing::ValuesIn(malformed), RowName());
INSTANTIATE_TEST_SUITE_P(TooLarge, NumberRefusals, testing::ValuesIn(tooLarge), RowName());
INSTANTIATE_TEST_SUITE_P(WithoutDigits, NumberRefusals, testing::ValuesIn(prefixesWithoutDigits), RowName());
INSTANTIATE_TEST_SUITE_P(BadDigits, NumberRefusals, testing::ValuesIn(badDigits), RowName());
INSTANTIATE_TEST_SUITE_P(Juxtapositions, NumberRefusals, testing::ValuesIn(juxtapositions), RowName());

double onlyNumberOf(std::u16string_view line) {
    const ParsedLine parsed(line);
    EXPECT_FALSE(parsed.result->isErrorMessage()) << utf8(parsed.result->errorMessage());
    return parsed.result->isErrorMessage() ? 0.0 : (*parsed.equation.leftEquationBlocks())[0].front().number();
}

// The nearest doubles, with every number of digits in front of the point and behind it.
TEST(LiteralRange, aPointMayStandAnywhere) {
    constexpr std::string_view digits = "31415926535897932384";
    for (std::size_t count = 1; count <= digits.size(); ++count) {
        for (std::size_t whole = 0; whole <= count; ++whole) {
            const std::string text =
                std::string(digits.substr(0, whole)) + "." + std::string(digits.substr(whole, count - whole));
            SCOPED_TRACE(text);
            double nearest = 0.0;
            std::from_chars(text.data(), text.data() + text.size(), nearest);
            EXPECT_EQ(onlyNumberOf(std::u16string(text.begin(), text.end())), nearest);
        }
    }
}

TEST(LiteralRange, withoutAnExponentInfinityIsAccepted) {
    EXPECT_EQ(onlyNumberOf(u"1" + std::u16string(400, u'0')), infinity);
    EXPECT_EQ(onlyNumberOf(std::u16string(400, u'9') + u".5"), infinity);
}

TEST(LiteralRange, aMantissaOfInfinityIsTooLarge) {
    const std::u16string line = std::u16string(400, u'9') + u"e-100";
    expectRefusal({"", line, u"A number is too large"});
}

TEST(LiteralRange, prefixedNumbersMayBeInfinite) {
    EXPECT_EQ(onlyNumberOf(u"0x1" + std::u16string(300, u'0')), infinity);
    EXPECT_EQ(onlyNumberOf(u"0b1" + std::u16string(1100, u'0')), infinity);
}

TEST(LiteralRange, zerosAddNothingHoweverFarLeft) {
    EXPECT_EQ(onlyNumberOf(u"0x" + std::u16string(300, u'0') + u"1F"), 31.0);
    EXPECT_EQ(onlyNumberOf(u"0o" + std::u16string(400, u'0') + u"17"), 15.0);
    EXPECT_EQ(onlyNumberOf(u"0b" + std::u16string(1100, u'0') + u"101"), 5.0);
    EXPECT_EQ(onlyNumberOf(u"0b" + std::u16string(1000000, u'0')), 0.0);
}

TEST(LiteralRange, aMillionDigitsAreOneNumber) {
    EXPECT_EQ(onlyNumberOf(u"0." + std::u16string(1000000, u'3')), 1.0 / 3.0);
    EXPECT_EQ(onlyNumberOf(u"1e" + std::u16string(1000000, u'-') + u"1"), 10.0);
}

struct DigitsCase {
    const char* name;
    double (TXEHasher::*conversion)(std::u16string_view);
    std::u16string_view digits;
    double number;
    std::u16string_view message;
};

void PrintTo(const DigitsCase& row, std::ostream* out) { *out << row.name; }

class DigitConversions : public testing::TestWithParam<DigitsCase> {};

TEST_P(DigitConversions, giveTheNumberOrReportTheBadDigit) {
    OpenedLine opened(u"");
    EXPECT_EQ((opened.hasher.*GetParam().conversion)(GetParam().digits), GetParam().number);
    EXPECT_EQ(opened.message(), utf8(GetParam().message));
    EXPECT_EQ(opened.hasher.isThereAnError_, !GetParam().message.empty());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Radixes, DigitConversions, testing::Values(
    DigitsCase{"Binary",             &TXEHasher::doubleFromBinary, u"1101", 13.0,  u""},
    DigitsCase{"Octal",              &TXEHasher::doubleFromOctal,  u"1101", 577.0, u""},
    DigitsCase{"Hexadecimal",        &TXEHasher::doubleFromHex,    u"1101", 4353.0, u""},
    DigitsCase{"HexadecimalLetters", &TXEHasher::doubleFromHex,    u"aF",   175.0, u""},
    DigitsCase{"BadBinary",          &TXEHasher::doubleFromBinary, u"2",    0.0,
               u"Binary numbers can only have digits 0 or 1; you can't have a 2 character in a binary number (in 0b2)."},
    DigitsCase{"BadOctal",           &TXEHasher::doubleFromOctal,  u"18",   0.0,
               u"Octal numbers can only have digits 0-7; you can't have a 8 character in an octal number (in 0o18)."},
    DigitsCase{"BadHexadecimal",     &TXEHasher::doubleFromHex,    u"1G",   0.0,
               u"Hexadecimal numbers can only have digits 0-9 and letters A-F; you can't have a g character in an hexadecimal number (in 0x1G)."}
), RowName());
// clang-format on

TEST(NumberReading, endsOnTheLastCharacterTakenAndForgetsTheSign) {
    OpenedLine opened(u"1+2e-3±0.5+4", 2);
    opened.hasher.addOperatorToStack(u'+');
    opened.hasher.parseNumber();
    EXPECT_EQ(opened.hasher.equationPosition_, 9);
    EXPECT_FALSE(opened.hasher.parseNegativeNumber());
    EXPECT_EQ(opened.finishedTree(), "0: +0.002±0.5");
}

TEST(NumberReading, ofAPrefixedNumberEndsOnItsLastDigitToo) {
    OpenedLine opened(u"0x1F");
    opened.hasher.parseNumber();
    EXPECT_EQ(opened.hasher.equationPosition_, 3);
    EXPECT_EQ(opened.finishedTree(), "0: 31");
}

TEST(NumberReading, aRefusedLiteralAddsNothing) {
    OpenedLine opened(u"05");
    opened.hasher.parseNumber();
    EXPECT_TRUE(opened.hasher.isThereAnError_);
    EXPECT_EQ(opened.hasher.equationBlocks_.count(0), 0);
}

}  // namespace
