#include "engine/calculator/TXECalculator.h"

#include <cmath>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "engine/controller/TXEquationController.h"
#include "tests/support/text.h"

namespace {

// Read at run time: a compiler that works the expectation out by itself may round otherwise than the library does.
double unfolded(double value) {
    volatile double hidden = value;
    return hidden;
}

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

constexpr const char* tooLarge = "Extremely large exponent result (>10^308) in the equation.";
constexpr const char* noNumber = "Error in exponents, NaN.  Please report this bug.";
constexpr const char* internalError = "Internal error, please report the bug.";

// Typed lines

struct ArithmeticCase {
    const char* name;
    std::u16string_view line;
    double answer;
};
void PrintTo(const ArithmeticCase& row, std::ostream* out) { *out << utf8(row.line); }
class Arithmetic : public testing::TestWithParam<ArithmeticCase> {};

TEST_P(Arithmetic, givesTheAnswer) {
    TXEquationController controller;
    const TXResult* result = controller.addOneStringBlindly(GetParam().line);
    ASSERT_NE(result, nullptr);
    ASSERT_FALSE(result->isErrorMessage()) << utf8(result->errorMessage());
    EXPECT_EQ(result->number(), GetParam().answer);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Sums, Arithmetic, testing::Values(
    //             name                       line         answer
    ArithmeticCase{"FromLeftToRight",         u"1-2-3",      -4.0},
    ArithmeticCase{"Mixed",                   u"1-2+3-4",    -2.0},
    ArithmeticCase{"LeadingMinus",            u"-5",         -5.0},
    ArithmeticCase{"LeadingPlus",             u"+5",          5.0},
    ArithmeticCase{"LeadingMinusThenPlus",    u"-5+7",        2.0},
    ArithmeticCase{"TwoMinusesArePlus",       u"5 - - 3",     8.0},
    ArithmeticCase{"PlusMinusIsMinus",        u"5+-3",        2.0}
), [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(Products, Arithmetic, testing::Values(
    //             name                       line         answer
    ArithmeticCase{"DivideLeftToRight",       u"8/2*4",      16.0},
    ArithmeticCase{"DivideTwice",             u"100/10/2",    5.0},
    ArithmeticCase{"MultiplyThenDivide",      u"6*4/8",       3.0},
    ArithmeticCase{"BeforeSums",              u"2+3*4",      14.0},
    ArithmeticCase{"BeforeDifferences",       u"2-3*4+5",    -5.0},
    ArithmeticCase{"BetweenSums",             u"1+2*3-8/4+5", 10.0},
    ArithmeticCase{"LeadingMinus",            u"-2*3",       -6.0},
    ArithmeticCase{"NegativeFactor",          u"2*-3",       -6.0},
    ArithmeticCase{"NegativeFactors",         u"2*-3*-4",    24.0},
    ArithmeticCase{"NegativeDivisor",         u"6/-3",       -2.0},
    ArithmeticCase{"MinusOnBothSides",        u"-6/-3",       2.0},
    ArithmeticCase{"DotOperator",             u"5\u22C52",   10.0},
    ArithmeticCase{"ByZeroIsInfinite",        u"1/0",        infinity},
    ArithmeticCase{"NegativeByZero",          u"-1/0",      -infinity},
    ArithmeticCase{"ByNegativeZero",          u"1/-0",      -infinity},
    ArithmeticCase{"OverflowIsNotReported",   u"1e200*1e200", infinity}
), [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(Powers, Arithmetic, testing::Values(
    //             name                       line         answer
    ArithmeticCase{"GroupFromTheRight",       u"2^3^2",     512.0},
    ArithmeticCase{"GroupedFromTheLeft",      u"(2^3)^2",    64.0},
    ArithmeticCase{"FourLevels",              u"2^2^1^5",     4.0},
    ArithmeticCase{"BeforeProducts",          u"2*3^2",      18.0},
    ArithmeticCase{"BeforeQuotients",         u"2/4^0.5",     1.0},
    ArithmeticCase{"BeforeAProduct",          u"2^3*4",      32.0},
    ArithmeticCase{"BetweenProducts",         u"2*3^2*4",    72.0},
    ArithmeticCase{"BetweenQuotients",        u"72/3^2/4",    2.0},
    ArithmeticCase{"AfterTwoProducts",        u"2*5*3^2",    90.0},
    ArithmeticCase{"TwoInOneTerm",            u"2^3*3^2",    72.0},
    ArithmeticCase{"TwoDivided",              u"2^6/2^2^2",   4.0},
    ArithmeticCase{"InASum",                  u"1+2^3-3^2+4", 4.0},
    ArithmeticCase{"ChainAtTheEnd",           u"5-2^3^2",  -507.0},
    ArithmeticCase{"SignComesAfterPower",     u"-2^2",       -4.0},
    ArithmeticCase{"SignOfAFactorToo",        u"3*-2^2",    -12.0},
    ArithmeticCase{"SignOfADivisorToo",       u"8/-2^2",     -2.0},
    ArithmeticCase{"NegativeExponent",        u"2^-1",        0.5},
    ArithmeticCase{"NegativeExponentSquared", u"2^-2",        0.25},
    ArithmeticCase{"NegativePowerAsExponent", u"2^-2^2",      0.0625},
    ArithmeticCase{"RootOfANegative",         u"-8^(1/3)",   -2.0},
    ArithmeticCase{"RootOfANegative27",       u"-27^(1/3)",  -std::pow(unfolded(27), 1.0 / 3)},
    ArithmeticCase{"RootOfANegativeFactor",   u"2*-8^(1/3)", -4.0},
    ArithmeticCase{"SquareOfANegativeGroup",  u"(-3)^2",      9.0},
    ArithmeticCase{"ZeroToTheZero",           u"0^0",         1.0},
    ArithmeticCase{"LargestPowerOfTen",       u"10^308",      1e308},
    ArithmeticCase{"UnderflowIsZero",         u"10^-400",     0.0}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(Quotient, ofZeroByZeroIsNoNumberAndNotReported) {
    TXEquationController controller;
    const TXResult* result = controller.addOneStringBlindly(u"0/0");
    EXPECT_FALSE(result->isErrorMessage());
    EXPECT_TRUE(std::isnan(result->number()));
}

struct ArithmeticRefusalCase {
    const char* name;
    std::u16string_view line;
    const char* message;
};
void PrintTo(const ArithmeticRefusalCase& row, std::ostream* out) { *out << utf8(row.line); }
class ArithmeticRefusal : public testing::TestWithParam<ArithmeticRefusalCase> {};

TEST_P(ArithmeticRefusal, givesTheMessage) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"a=1");
    controller.addOneStringBlindly(u"b=2");
    const TXResult* result = controller.addOneStringBlindly(GetParam().line);
    ASSERT_NE(result, nullptr);
    ASSERT_TRUE(result->isErrorMessage()) << result->number();
    EXPECT_EQ(utf8(result->errorMessage()), GetParam().message);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lines, ArithmeticRefusal, testing::Values(
    ArithmeticRefusalCase{"PowerTooLarge",               u"10^400",          tooLarge},
    ArithmeticRefusalCase{"NegativePowerTooLarge",       u"2*-10^400",       tooLarge},
    ArithmeticRefusalCase{"ZeroToANegativePower",        u"0^-1",            tooLarge},
    ArithmeticRefusalCase{"PowerOfAnInfinity",           u"(1/0)^2",         tooLarge},
    ArithmeticRefusalCase{"PowerTooLargeInATerm",        u"0*10^400",        tooLarge},
    ArithmeticRefusalCase{"RootOfANegativeGroup",        u"(-8)^(1/3)",      noNumber},
    ArithmeticRefusalCase{"PowerOfNoNumber",             u"(0/0)^2",         noNumber},
    ArithmeticRefusalCase{"TheLaterOfTwoPowers",         u"10^400+(-8)^0.5", noNumber},
    ArithmeticRefusalCase{"TheLaterOfTwoPowersReversed", u"(-8)^0.5+10^400", tooLarge},
    ArithmeticRefusalCase{"EqualsInAGroup",              u"(a=+b)",          internalError},
    ArithmeticRefusalCase{"EqualsInAGroupOfNumbers",     u"2*(1=-3)",        internalError},
    ArithmeticRefusalCase{"ProductOpensAGroup",          u"(*5)",            internalError}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(ArithmeticRefusal, aTermBehindAnOperatorThatIsNoSignDoesNotCountAndIsNotReported) {
    TXEquationController controller;
    const TXResult* result = controller.addOneStringBlindly(u"(*5*3)+2");
    ASSERT_FALSE(result->isErrorMessage()) << utf8(result->errorMessage());
    EXPECT_EQ(result->number(), 2.0);
}

// One list, laid out by hand

struct Operand {
    char16_t blockOperator = 0;
    double number = 0.0;
    bool isNegative = false;
};

/// An evaluator whose only list holds these operands.
class OneList : public TXECalculator {
public:
    OneList(TXEquationController& controller, const std::vector<Operand>& operands) : TXECalculator(controller) {
        reset();
        currentEquationResult_ = &result;
        // The operands of other lists before and behind, to which nothing must happen.
        add({u'^', 1000.0});
        for (const Operand& operand : operands) add(operand);
        add({u'^', 1000.0});
        equationBlockPositions_ = {{0, 1}, {1, static_cast<std::int32_t>(operands.size())}};
        equationBlockValues_ = {-1.0, -1.0};
    }

    double reduced() {
        calculateMDASInBlock(1);
        EXPECT_EQ(equationBlockValues_[0], -1.0) << "another list's value";
        return equationBlockValues_[1];
    }
    double power() { return calculateExponentsFromIndex(1, static_cast<std::int32_t>(TXBlockValues_.size()) - 2); }
    std::string message() const { return result.isErrorMessage() ? utf8(result.errorMessage()) : ""; }
    bool failed() const { return isThereAnError_; }

    TXResult result;

private:
    void add(const Operand& operand) {
        _TXBlockStruct& block = TXBlockValues_.emplace_back();
        block.blockOperator = operand.blockOperator;
        block.number = operand.number;
        block.isNegative = operand.isNegative;
    }
};

struct OneListCase {
    const char* name;
    std::vector<Operand> operands;
    double value;
    const char* message;
};

// clang-format off
const std::vector<OneListCase> lists = {
    {"no operand",                 {},                                             0.0, ""},
    {"one without operator",       {{0, 5}},                                       5.0, ""},
    {"one negative",               {{0, 5, true}},                                -5.0, ""},
    {"one behind plus",            {{u'+', 5}},                                    5.0, ""},
    {"one negative behind plus",   {{u'+', 5, true}},                             -5.0, ""},
    {"one behind minus",           {{u'-', 5}},                                   -5.0, ""},
    {"one negative behind minus",  {{u'-', 5, true}},                              5.0, ""},
    {"a sum",                      {{0, 1}, {u'-', 2}, {u'+', 3, true}},          -4.0, ""},
    {"a negative term",            {{0, 2, true}, {u'*', 3}},                     -6.0, ""},
    {"a negative term subtracted", {{u'-', 2, true}, {u'*', 3}},                   6.0, ""},
    {"a negative divisor",         {{0, 6}, {u'/', 3, true}},                     -2.0, ""},
    {"a power of a negative",      {{0, 2, true}, {u'^', 2}},                     -4.0, ""},
    {"a power after a product",    {{0, 2}, {u'*', 3}, {u'^', 2}},                18.0, ""},
    {"a power after a quotient",   {{0, 18}, {u'/', 3}, {u'^', 2}},                2.0, ""},
    {"chains one after another",   {{0, 2}, {u'^', 3}, {u'*', 2}, {u'^', 2}},     32.0, ""},
    {"a long chain, then a sum",   {{0, 2}, {u'^', 3}, {u'^', 2}, {u'-', 12}},   500.0, ""},
    {"behind an equals sign",      {{0, 1}, {u'=', 0}, {u'+', 3}},                 4.0, internalError},
    {"behind a percent sign",      {{0, 1}, {u'%', 5}, {u'+', 3}},                 4.0, internalError},
    {"a product sign in front",    {{u'*', 5}, {u'+', 3}},                         3.0, internalError},
    {"a term behind equals",       {{0, 1}, {u'=', 5}, {u'*', 2}, {u'+', 3}},      4.0, ""},
    {"a power behind equals",      {{0, 1}, {u'=', 5}, {u'^', 2}, {u'+', 3}},      4.0, ""},
    {"a term behind a product",    {{u'*', 5}, {u'*', 2}, {u'+', 3}},              3.0, ""},
    {"too large a power is 0",     {{0, 5}, {u'+', 10}, {u'^', 400}},              5.0, tooLarge},
    {"no number as a power is 0",  {{0, 5}, {u'+', -8}, {u'^', 0.5}},              5.0, noNumber},
    {"divided by too large a one", {{0, 5}, {u'/', 10}, {u'^', 400}},         infinity, tooLarge},
};
// clang-format on

TEST(CalculateMDASInBlock, reducesOneList) {
    for (const OneListCase& row : lists) {
        SCOPED_TRACE(row.name);
        TXEquationController controller;
        OneList list(controller, row.operands);
        EXPECT_EQ(list.reduced(), row.value);
        EXPECT_EQ(list.message(), row.message);
        EXPECT_EQ(list.failed(), !std::string_view(row.message).empty());
    }
}

TEST(CalculateMDASInBlock, divisionByZeroIsNotReported) {
    TXEquationController controller;
    OneList infinite(controller, {{0, 1}, {u'/', 0}});
    EXPECT_EQ(infinite.reduced(), infinity);
    EXPECT_FALSE(infinite.failed());
    OneList undefined(controller, {{0, 0}, {u'/', 0}});
    EXPECT_TRUE(std::isnan(undefined.reduced()));
    EXPECT_FALSE(undefined.failed());
}

// clang-format off
const std::vector<OneListCase> chains = {
    {"one operand",                {{0, 3}},                                       3.0, ""},
    {"one negative operand",       {{0, 3, true}},                                -3.0, ""},
    {"a square",                   {{0, 3}, {u'^', 2}},                            9.0, ""},
    {"from the right",             {{0, 2}, {u'^', 3}, {u'^', 2}},               512.0, ""},
    {"the operator in front",      {{u'/', 3}, {u'^', 2}},                         9.0, ""},
    {"a negative exponent",        {{0, 2}, {u'^', 1, true}},                      0.5, ""},
    {"a negative base",            {{0, 2, true}, {u'^', 2}},                     -4.0, ""},
    {"a negative root",            {{0, 8, true}, {u'^', 1.0 / 3.0}},             -2.0, ""},
    {"a negative in the middle",   {{0, 2}, {u'^', 2, true}, {u'^', 2}},        0.0625, ""},
    {"too large",                  {{0, 10}, {u'^', 400}},                         0.0, tooLarge},
    {"too large and negative",     {{0, 10, true}, {u'^', 400}},                   0.0, tooLarge},
    {"zero to a negative power",   {{0, 0}, {u'^', 1, true}},                      0.0, tooLarge},
    {"an infinite base",           {{0, infinity}, {u'^', 2}},                     0.0, tooLarge},
    {"a root of less than zero",   {{0, -8}, {u'^', 1.0 / 3.0}},                   0.0, noNumber},
    {"a base that is no number",   {{0, notANumber}, {u'^', 2}},                   0.0, noNumber},
    {"infinite on the way only",   {{0, 0.5}, {u'^', 10}, {u'^', 400}},            0.0, ""},
};
// clang-format on

TEST(CalculateExponentsFromIndex, evaluatesOneChain) {
    for (const OneListCase& row : chains) {
        SCOPED_TRACE(row.name);
        TXEquationController controller;
        OneList list(controller, row.operands);
        EXPECT_EQ(list.power(), row.value);
        EXPECT_EQ(list.message(), row.message);
        EXPECT_EQ(list.failed(), !std::string_view(row.message).empty());
    }
}

TEST(Arithmetic, aLongLineIsReducedFromLeftToRight) {
    constexpr int count = 100'000;
    std::u16string sum = u"1";
    std::u16string product = u"1";
    std::u16string powers = u"1";
    for (int operand = 1; operand < count; ++operand) {
        sum += u"+1";
        product += u"*1";
        powers += u"^1";
    }
    TXEquationController controller;
    EXPECT_EQ(controller.addOneStringBlindly(sum)->number(), count);
    EXPECT_EQ(controller.addOneStringBlindly(product)->number(), 1.0);
    EXPECT_EQ(controller.addOneStringBlindly(powers)->number(), 1.0);
}

}  // namespace
