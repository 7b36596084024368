#include "engine/records/TXResult.h"

#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

std::string startOfDescription(const TXResult& result) {
    return "TXResult (" + testing::PrintToString(static_cast<const void*>(&result)) + "): ";
}

TEST(TXResult, aFreshOneIsNeitherNumberNorError) {
    const TXResult result;
    EXPECT_EQ(result.number(), 0.0);
    EXPECT_FALSE(result.isReduced());
    EXPECT_FALSE(result.isErrorMessage());
    EXPECT_TRUE(result.errorMessage().empty());
    EXPECT_FALSE(result.isHashed());
    EXPECT_EQ(result.variableToAssign(), -1);
}

TEST(TXResult, initWithErrorMessageMakesAnError) {
    const TXResult result = TXResult::initWithErrorMessage(u"It went wrong.");
    EXPECT_TRUE(result.isErrorMessage());
    EXPECT_EQ(utf8(result.errorMessage()), "It went wrong.");
    EXPECT_FALSE(result.isHashed());
    EXPECT_FALSE(result.isReduced());
    EXPECT_EQ(result.variableToAssign(), -1);
    EXPECT_EQ(result.number(), 0.0);
}

TEST(TXResult, initWithNumberIsReduced) {
    const TXResult result = TXResult::initWithNumber(2.5);
    EXPECT_EQ(result.number(), 2.5);
    EXPECT_TRUE(result.isReduced());
    EXPECT_FALSE(result.isHashed());
    EXPECT_FALSE(result.isErrorMessage());
    EXPECT_TRUE(result.errorMessage().empty());
    EXPECT_EQ(result.variableToAssign(), -1);
}

TEST(TXResult, initWithNumberToBeAssignedToNamesTheVariable) {
    const TXResult result = TXResult::initWithNumber(2.5, 4);
    EXPECT_EQ(result.number(), 2.5);
    EXPECT_EQ(result.variableToAssign(), 4);
    EXPECT_TRUE(result.isReduced());
    EXPECT_FALSE(result.isHashed());
    EXPECT_FALSE(result.isErrorMessage());
}

TEST(TXResult, initWithIsHashedIgnoresItsArgument) {
    for (const bool isHashed : {true, false}) {
        const TXResult result = TXResult::initWithIsHashed(isHashed);
        EXPECT_TRUE(result.isHashed());
        EXPECT_FALSE(result.isReduced());
        EXPECT_FALSE(result.isErrorMessage());
        EXPECT_TRUE(result.errorMessage().empty());
        EXPECT_EQ(result.variableToAssign(), -1);
        EXPECT_EQ(result.number(), 0.0);
    }
}

TEST(TXResult, everyAccessorReadsWhatWasWritten) {
    TXResult result;
    result.setNumber(-7.25);
    EXPECT_EQ(result.number(), -7.25);
    EXPECT_FALSE(result.isReduced()) << "setting the number is no reduction";
    result.setReduced(true);
    EXPECT_TRUE(result.isReduced());
    result.setIsHashed(true);
    EXPECT_TRUE(result.isHashed());
    result.setIsHashed(false);
    EXPECT_FALSE(result.isHashed());
    result.setVariableToAssign(9);
    EXPECT_EQ(result.variableToAssign(), 9);
}

TEST(TXResult, theLatestMessageStays) {
    TXResult result = TXResult::initWithErrorMessage(u"first");
    result.setErrorMessage(u"second");
    EXPECT_TRUE(result.isErrorMessage());
    EXPECT_EQ(utf8(result.errorMessage()), "second");
}

TEST(TXResult, anEmptyMessageIsAnErrorToo) {
    TXResult result;
    result.setErrorMessage(u"");
    EXPECT_TRUE(result.isErrorMessage());
}

TEST(TXResult, aMessageTakenBackLeavesItsText) {
    TXResult result = TXResult::initWithErrorMessage(u"It went wrong.");
    result.setErrorMessage(std::nullopt);
    EXPECT_FALSE(result.isErrorMessage());
    EXPECT_EQ(utf8(result.errorMessage()), "It went wrong.");
}

TEST(TXResult, aMessageKeepsTheOtherFields) {
    TXResult result = TXResult::initWithNumber(2.5, 4);
    result.setErrorMessage(u"It went wrong.");
    EXPECT_EQ(result.number(), 2.5);
    EXPECT_EQ(result.variableToAssign(), 4);
    EXPECT_TRUE(result.isReduced());
}

// Descriptions

TEST(TXResult, theDescriptionOfAnErrorShowsTheMessage) {
    TXResult result = TXResult::initWithErrorMessage(u"Ungültig: 5±%d");
    EXPECT_EQ(utf8(result.description()), startOfDescription(result) + "Error: Ungültig: 5±%d");
}

TEST(TXResult, theDescriptionOfAnErrorNamesNoVariable) {
    TXResult result = TXResult::initWithNumber(5, 2);
    result.setErrorMessage(u"no");
    EXPECT_EQ(utf8(result.description()), startOfDescription(result) + "Error: no");
}

TEST(TXResult, theDescriptionShowsTheNumberOnceTheMessageIsTakenBack) {
    TXResult result = TXResult::initWithErrorMessage(u"old");
    result.setNumber(3);
    result.setErrorMessage(std::nullopt);
    EXPECT_EQ(utf8(result.description()), startOfDescription(result) + "3");
}

TEST(TXResult, theDescriptionShowsTheVariable) {
    TXResult result = TXResult::initWithNumber(5, 2);
    EXPECT_EQ(utf8(result.description()), startOfDescription(result) + "5 for variable 2");
    result.setVariableToAssign(0);
    EXPECT_EQ(utf8(result.description()), startOfDescription(result) + "5 for variable 0");
    result.setVariableToAssign(-1);
    EXPECT_EQ(utf8(result.description()), startOfDescription(result) + "5");
}

struct ResultNumberCase {
    const char* name;
    double number;
    const char* text;
};
void PrintTo(const ResultNumberCase& row, std::ostream* out) { *out << row.text; }
class TXResultNumber : public testing::TestWithParam<ResultNumberCase> {};

TEST_P(TXResultNumber, isDescribedByTheShortestDigitsThatReadBack) {
    TXResult result = TXResult::initWithNumber(GetParam().number);
    EXPECT_EQ(utf8(result.description()), startOfDescription(result) + GetParam().text);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Numbers, TXResultNumber, testing::Values(
    //               name                     number                    text
    ResultNumberCase{"Zero",                  0.0,                      "0"},
    ResultNumberCase{"NegativeZero",          -0.0,                     "-0"},
    ResultNumberCase{"Integer",               5.0,                      "5"},
    ResultNumberCase{"Hundred",               100.0,                    "100"},
    ResultNumberCase{"Negative",              -2.5,                     "-2.5"},
    ResultNumberCase{"Tenth",                 0.1,                      "0.1"},
    ResultNumberCase{"Third",                 1.0 / 3.0,                "0.3333333333333333"},
    ResultNumberCase{"SeventeenDigits",       0.1 + 0.2,                "0.30000000000000004"},
    ResultNumberCase{"Pi",                    3.141592653589793,        "3.141592653589793"},
    ResultNumberCase{"PlainBelow1e17",        1e16,                     "10000000000000000"},
    ResultNumberCase{"SeventeenDigitInteger", 12345678901234568.0,      "12345678901234568"},
    ResultNumberCase{"ZerosAfterShortest",    98765432109876544.0,      "98765432109876540"},
    ResultNumberCase{"ExponentFrom1e17",      1e17,                     "1e+17"},
    ResultNumberCase{"LargeWithFraction",     1.25e20,                  "1.25e+20"},
    ResultNumberCase{"ThreeDigitExponent",    -1e100,                   "-1e+100"},
    ResultNumberCase{"PlainFrom1eMinus4",     0.0001,                   "0.0001"},
    ResultNumberCase{"PlainJustAbove",        0.00012345,               "0.00012345"},
    ResultNumberCase{"ExponentBelow1eMinus4", 0.00001,                  "1e-05"},
    ResultNumberCase{"SmallWithFraction",     0.000099,                 "9.9e-05"},
    ResultNumberCase{"Largest",               std::numeric_limits<double>::max(),        "1.7976931348623157e+308"},
    ResultNumberCase{"SmallestNormal",        std::numeric_limits<double>::min(),        "2.2250738585072014e-308"},
    ResultNumberCase{"SmallestSubnormal",     std::numeric_limits<double>::denorm_min(), "5e-324"},
    ResultNumberCase{"Infinity",              std::numeric_limits<double>::infinity(),   "inf"},
    ResultNumberCase{"NegativeInfinity",      -std::numeric_limits<double>::infinity(),  "-inf"},
    ResultNumberCase{"NotANumber",            std::numeric_limits<double>::quiet_NaN(),  "nan"}
), [](const auto& test) { return test.param.name; });
// clang-format on

}  // namespace
