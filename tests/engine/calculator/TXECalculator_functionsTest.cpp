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

constexpr double pi = 3.141592653589793;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t firstIDWithoutName = 22;

// Read at run time: a compiler that works the expectation out by itself may round otherwise than the library does.
double unfolded(double value) {
    volatile double hidden = value;
    return hidden;
}

double radians(double degrees) { return degrees * pi / 180; }
double degrees(double radians) { return radians * 180 / pi; }

enum Unit { inRadians, inDegrees };

/// One call of a function whose arguments have been reduced already.
class Call : public TXECalculator {
public:
    Call(TXEquationController& controller, const std::vector<double>& arguments) : TXECalculator(controller) {
        reset();
        currentEquationResult_ = &result;
        // The values stand from the last list to the first, so that the links and not the places tell which is which.
        equationBlockValues_.push_back(-77.0);
        equationBlockValues_.insert(equationBlockValues_.end(), arguments.rbegin(), arguments.rend());
        for (std::size_t list = arguments.size(); list > 0; --list) links_.push_back(static_cast<std::int32_t>(list));
    }

    double answer(std::int32_t function) { return calculateTXFunction(function, TXBlockPointerList(links_)); }
    std::string message() const { return result.isErrorMessage() ? utf8(result.errorMessage()) : ""; }
    bool failed() const { return isThereAnError_; }

    TXResult result;

private:
    std::vector<std::int32_t> links_;
};

struct Outcome {
    double number;
    std::string message;
};

Outcome outcomeOf(std::int32_t function, const std::vector<double>& arguments, Unit unit = inRadians) {
    TXEquationController controller;
    controller.setUseRadians(unit == inRadians);
    Call call(controller, arguments);
    const double number = call.answer(function);
    EXPECT_EQ(call.failed(), call.result.isErrorMessage());
    return {number, call.message()};
}

std::string nameOf(std::int32_t function) {
    const TXEquationController controller;
    const auto& names = controller.nativeFunctionNames();
    return function >= 0 && function < firstIDWithoutName ? utf8(names[static_cast<std::size_t>(function)]) : "";
}

void expectSame(double number, double expected) {
    if (std::isnan(expected)) {
        EXPECT_TRUE(std::isnan(number)) << number;
    } else {
        EXPECT_EQ(number, expected);
    }
}

// One argument

struct OneArgumentCase {
    const char* name;
    std::int32_t function;
    double argument;
    double radiansAnswer;
    double degreesAnswer;
};
void PrintTo(const OneArgumentCase& row, std::ostream* out) { *out << row.function << " of " << row.argument; }
class FunctionOfOneArgument : public testing::TestWithParam<OneArgumentCase> {};

TEST_P(FunctionOfOneArgument, isItsOperationInEitherUnit) {
    const auto& row = GetParam();
    const Outcome radiansOutcome = outcomeOf(row.function, {row.argument}, inRadians);
    EXPECT_EQ(radiansOutcome.message, "");
    EXPECT_EQ(radiansOutcome.number, row.radiansAnswer);
    const Outcome degreesOutcome = outcomeOf(row.function, {row.argument}, inDegrees);
    EXPECT_EQ(degreesOutcome.message, "");
    EXPECT_EQ(degreesOutcome.number, row.degreesAnswer);
}

OneArgumentCase inBothUnits(const char* name, std::int32_t function, double argument, double answer) {
    return {name, function, argument, answer, answer};
}

OneArgumentCase inBothUnitsAs(const char* name, std::int32_t function, double argument, double (*operation)(double)) {
    return inBothUnits(name, function, argument, operation(unfolded(argument)));
}

OneArgumentCase ofAnAngle(const char* name, std::int32_t function, double argument, double (*operation)(double)) {
    return {name, function, argument, operation(unfolded(argument)), operation(radians(unfolded(argument)))};
}

OneArgumentCase givingAnAngle(const char* name, std::int32_t function, double argument, double (*operation)(double)) {
    const double angle = operation(unfolded(argument));
    return {name, function, argument, angle, degrees(angle)};
}

double sine(double x) { return std::sin(x); }
double cosine(double x) { return std::cos(x); }
double tangent(double x) { return std::tan(x); }
double hyperbolicSine(double x) { return std::sinh(x); }
double hyperbolicCosine(double x) { return std::cosh(x); }
double hyperbolicTangent(double x) { return std::tanh(x); }
double arcSine(double x) { return std::asin(x); }
double arcCosine(double x) { return std::acos(x); }
double arcTangent(double x) { return std::atan(x); }
double exponential(double x) { return std::exp(x); }
double naturalLogarithm(double x) { return std::log(x); }
double decimalLogarithm(double x) { return std::log10(x); }
double squareRoot(double x) { return std::sqrt(x); }
double cubeRoot(double x) { return std::cbrt(x); }
double csch(double x) { return 2 / (std::exp(x) - std::exp(-x)); }
double sech(double x) { return 2 / (std::exp(x) + std::exp(-x)); }
double coth(double x) { return (std::exp(x) + std::exp(-x)) / (std::exp(x) - std::exp(-x)); }

// clang-format off
INSTANTIATE_TEST_SUITE_P(WithoutAngles, FunctionOfOneArgument, testing::Values(
    inBothUnits("AbsOfNegative",             0, -2.5, 2.5),
    inBothUnits("AbsOfPositive",             0, 2.5, 2.5),
    inBothUnitsAs("Exp",                     1, 1.5, exponential),
    inBothUnits("Sqrt",                      5, 6.25, 2.5),
    inBothUnitsAs("NaturalLogarithm",        8, 10.0, naturalLogarithm),
    inBothUnits("LogarithmToBaseTen",        9, 1000.0, 3.0),
    inBothUnitsAs("LogarithmBelowOne",       9, 0.02, decimalLogarithm),
    inBothUnitsAs("Cbrt",                   21, 27.0, cubeRoot),
    inBothUnits("CbrtOfNegative",           21, -8.0, -2.0),
    inBothUnits("Floor",                    22, 2.7, 2.0),
    inBothUnits("FloorOfNegative",          22, -2.2, -3.0),
    inBothUnits("Ceil",                     23, 2.2, 3.0),
    inBothUnits("CeilOfNegative",           23, -2.7, -2.0),
    inBothUnits("NearestAbove",             24, 2.6, 3.0),
    inBothUnits("NearestTieToEvenBelow",    24, 2.5, 2.0),
    inBothUnits("NearestTieToEvenAbove",    24, 3.5, 4.0),
    inBothUnits("NearestNegativeTie",       24, -2.5, -2.0),
    inBothUnits("TowardZero",               31, 2.7, 2.0),
    inBothUnits("TowardZeroOfNegative",     31, -2.7, -2.0),
    inBothUnits("TowardZeroOfZero",         31, 0.0, 0.0),
    inBothUnits("TowardZeroOfAFraction",    31, 0.5, 0.0),
    inBothUnits("OrderOfMagnitude",         32, 1234.0, 3.0),
    inBothUnits("OrderOfNegative",          32, -999.0, 2.0),
    inBothUnits("OrderBelowOne",            32, 0.02, -2.0)
), [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(OfAngles, FunctionOfOneArgument, testing::Values(
    ofAnAngle("Sin",   2, 0.7, sine),
    ofAnAngle("Cos",   3, 0.7, cosine),
    ofAnAngle("Tan",   4, 0.7, tangent),
    ofAnAngle("Csc",  11, 0.7, [](double x) { return 1 / std::sin(x); }),
    ofAnAngle("Sec",  12, 0.7, [](double x) { return 1 / std::cos(x); }),
    ofAnAngle("Cot",  13, 0.7, [](double x) { return 1 / std::tan(x); }),
    ofAnAngle("SinOfNegative",  2, -123.0, sine)
), [](const auto& test) { return test.param.name; });

// They take their argument for an angle like the circular ones, on purpose.
INSTANTIATE_TEST_SUITE_P(HyperbolicOfAngles, FunctionOfOneArgument, testing::Values(
    ofAnAngle("Sinh",  6, 1.0, hyperbolicSine),
    ofAnAngle("Cosh",  7, 1.0, hyperbolicCosine),
    ofAnAngle("Tanh", 10, 1.0, hyperbolicTangent),
    ofAnAngle("Csch", 14, 1.0, csch),
    ofAnAngle("Sech", 15, 1.0, sech),
    ofAnAngle("Coth", 16, 1.0, coth),
    ofAnAngle("CschOfNegative", 14, -1.5, csch),
    ofAnAngle("SechOfNegative", 15, -1.5, sech),
    ofAnAngle("CothOfNegative", 16, -1.5, coth)
), [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(GivingAngles, FunctionOfOneArgument, testing::Values(
    givingAnAngle("Asin",        17, 0.7, arcSine),
    givingAnAngle("AsinOfOne",   17, 1.0, arcSine),
    givingAnAngle("Acos",        18, 0.7, arcCosine),
    givingAnAngle("AcosOfMinus", 18, -1.0, arcCosine),
    givingAnAngle("Atan",        19, 0.7, arcTangent),
    givingAnAngle("AtanOfOne",   19, 1.0, arcTangent)
), [](const auto& test) { return test.param.name; });

// Only sin, cos and tan are snapped: not the results of the others, nor a reciprocal afterwards.
INSTANTIATE_TEST_SUITE_P(NotSnapped, FunctionOfOneArgument, testing::Values(
    inBothUnitsAs("Exp",                     1, -40.0, exponential),
    inBothUnitsAs("Sqrt",                    5, 1e-30, squareRoot),
    inBothUnitsAs("Ln",                      8, 1.0 + 1e-14, naturalLogarithm),
    inBothUnitsAs("Cbrt",                   21, 1e-45, cubeRoot),
    ofAnAngle("Sinh",   6, 1e-14, hyperbolicSine),
    ofAnAngle("Cosh",   7, 1e-7, hyperbolicCosine),
    ofAnAngle("Tanh",  10, 1e-14, hyperbolicTangent),
    givingAnAngle("Asin", 17, 1e-14, arcSine),
    givingAnAngle("Atan", 19, 1e-14, arcTangent),
    OneArgumentCase{"CotOfARightAngleInDegrees", 13, 90.0, 1 / tangent(unfolded(90)), 1 / tangent(radians(unfolded(90)))}
), [](const auto& test) { return test.param.name; });
// clang-format on

struct SnappedCase {
    const char* name;
    std::int32_t function;
    double argument;
    Unit unit;
    double answer;
};
void PrintTo(const SnappedCase& row, std::ostream* out) { *out << row.function << " of " << row.argument; }
class SnappedFunction : public testing::TestWithParam<SnappedCase> {};

TEST_P(SnappedFunction, isExact) {
    const Outcome outcome = outcomeOf(GetParam().function, {GetParam().argument}, GetParam().unit);
    EXPECT_EQ(outcome.message, "");
    EXPECT_EQ(outcome.number, GetParam().answer);
    EXPECT_EQ(std::signbit(outcome.number), std::signbit(GetParam().answer));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(NearZeroAndOne, SnappedFunction, testing::Values(
    //          name                    id  argument    unit       answer
    SnappedCase{"SinOfPi",               2, pi,         inRadians, 0.0},
    SnappedCase{"SinOf180Degrees",       2, 180.0,      inDegrees, 0.0},
    SnappedCase{"SinOfMinus180Degrees",  2, -180.0,     inDegrees, 0.0},
    SnappedCase{"SinOfATinyAngle",       2, 5e-14,      inRadians, 0.0},
    SnappedCase{"SinOfARightAngle",      2, 90.0,       inDegrees, 1.0},
    SnappedCase{"CosOfHalfPi",           3, pi / 2,     inRadians, 0.0},
    SnappedCase{"CosOf90Degrees",        3, 90.0,       inDegrees, 0.0},
    SnappedCase{"CosOf270Degrees",       3, 270.0,      inDegrees, 0.0},
    SnappedCase{"CosOf360Degrees",       3, 360.0,      inDegrees, 1.0},
    SnappedCase{"CosNearlyOne",          3, 1e-7,       inRadians, 1.0},
    SnappedCase{"TanOf45Degrees",        4, 45.0,       inDegrees, 1.0},
    SnappedCase{"TanOf225Degrees",       4, 225.0,      inDegrees, 1.0},
    SnappedCase{"TanOf180Degrees",       4, 180.0,      inDegrees, 0.0},
    SnappedCase{"CscOf90Degrees",       11, 90.0,       inDegrees, 1.0},
    SnappedCase{"SecOf360Degrees",      12, 360.0,      inDegrees, 1.0},
    SnappedCase{"CotOf45Degrees",       13, 45.0,       inDegrees, 1.0}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(SnappedFunction, leavesValuesNearMinusOneAsTheyAre) {
    const double nearly = std::cos(unfolded(pi - 1e-7));
    ASSERT_NE(nearly, -1.0);
    EXPECT_EQ(outcomeOf(3, {pi - 1e-7}).number, nearly);
    const double negative = std::tan(radians(unfolded(-45)));
    EXPECT_EQ(outcomeOf(4, {-45.0}, inDegrees).number, negative);
    EXPECT_EQ(outcomeOf(13, {-45.0}, inDegrees).number, 1 / negative);
}

// The rule of snapping

struct SnapCase {
    const char* name;
    double value;
    double snapped;
};
void PrintTo(const SnapCase& row, std::ostream* out) { *out << row.value; }
class FormatTrigFunction : public testing::TestWithParam<SnapCase> {};

TEST_P(FormatTrigFunction, snapsToZeroAndOne) {
    const double snapped = TXECalculator::formatTrigFunction(GetParam().value);
    EXPECT_EQ(snapped, GetParam().snapped);
    EXPECT_EQ(std::signbit(snapped), std::signbit(GetParam().snapped));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Thresholds, FormatTrigFunction, testing::Values(
    SnapCase{"Zero",               0.0,                              0.0},
    SnapCase{"NegativeZero",      -0.0,                              0.0},
    SnapCase{"TinyPositive",       1e-300,                           0.0},
    SnapCase{"JustInsideAboveZero", std::nextafter(1e-13, 0.0),      0.0},
    SnapCase{"OnTheEdgeAboveZero", 1e-13,                            1e-13},
    SnapCase{"JustInsideBelowZero", std::nextafter(-1e-13, 0.0),     0.0},
    SnapCase{"OnTheEdgeBelowZero", -1e-13,                          -1e-13},
    SnapCase{"OutsideBelowZero",  -1.1e-13,                         -1.1e-13},
    SnapCase{"One",                1.0,                              1.0},
    SnapCase{"JustInsideBelowOne", std::nextafter(1 - 1e-13, 1.0),   1.0},
    SnapCase{"OnTheEdgeBelowOne",  1 - 1e-13,                        1 - 1e-13},
    SnapCase{"JustInsideAboveOne", std::nextafter(1 + 1e-13, 1.0),   1.0},
    SnapCase{"OnTheEdgeAboveOne",  1 + 1e-13,                        1 + 1e-13},
    SnapCase{"OutsideAboveOne",    1.5,                              1.5},
    SnapCase{"Between",            0.5,                              0.5},
    SnapCase{"BelowZero",         -0.5,                             -0.5},
    SnapCase{"Infinite",           infinity,                         infinity},
    SnapCase{"NegativeInfinite",  -infinity,                        -infinity}
), [](const auto& test) { return test.param.name; });

// The rule has one side only.
INSTANTIATE_TEST_SUITE_P(NearMinusOne, FormatTrigFunction, testing::Values(
    SnapCase{"MinusOne",          -1.0,                             -1.0},
    SnapCase{"AboveMinusOne",     -1 + 5e-14,                       -1 + 5e-14},
    SnapCase{"BelowMinusOne",     -1 - 5e-14,                       -1 - 5e-14}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(FormatTrigFunction, leavesNoNumberAsItIs) {
    EXPECT_TRUE(std::isnan(TXECalculator::formatTrigFunction(notANumber)));
}

// Calls that are refused

TEST(FunctionWithOneArgument, missesTheOtherWhereItNeedsTwo) {
    for (const std::int32_t function : {20, 25, 26, 27, 29, 30, 33, 1000, -1, -2}) {
        SCOPED_TRACE(function);
        const Outcome outcome = outcomeOf(function, {4.0});
        EXPECT_EQ(outcome.message, nameOf(function) + "() only has one argument -- it should have two arguments.");
        EXPECT_EQ(outcome.number, 0.0);
    }
}

TEST(FunctionWithOneArgument, isNotSupportedWithID28) {
    const Outcome outcome = outcomeOf(28, {4.0});
    EXPECT_EQ(outcome.message, "() is not currently supported as a function.");
    EXPECT_EQ(outcome.number, 0.0);
}

struct TwoArgumentsCase {
    const char* name;
    std::int32_t function;
    double first;
    double second;
    double answer;
};
void PrintTo(const TwoArgumentsCase& row, std::ostream* out) {
    *out << row.function << " of " << row.first << ", " << row.second;
}
class FunctionOfTwoArguments : public testing::TestWithParam<TwoArgumentsCase> {};

TEST_P(FunctionOfTwoArguments, isItsOperationWhateverTheUnit) {
    const auto& row = GetParam();
    for (const Unit unit : {inRadians, inDegrees}) {
        const Outcome outcome = outcomeOf(row.function, {row.first, row.second}, unit);
        EXPECT_EQ(outcome.message, "");
        EXPECT_EQ(outcome.number, row.answer);
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Unnamed, FunctionOfTwoArguments, testing::Values(
    //               name                      id  first       second      answer
    TwoArgumentsCase{"Hypotenuse",             26, 3.0,         -4.0,          5.0},
    TwoArgumentsCase{"HypotenuseDoesNotOverflow", 26, 3e200,   4e200, std::hypot(unfolded(3e200), 4e200)},
    TwoArgumentsCase{"And",                    27, 12.0,        10.0,          8.0},
    TwoArgumentsCase{"AndTruncates",           27, 13.9,        -2.9,         12.0},
    TwoArgumentsCase{"AndOfNegatives",         27, -4.0,        -6.0,         -8.0},
    TwoArgumentsCase{"AndSaturatesAbove",      27, 1e10,        -1.0, 2147483647.0},
    TwoArgumentsCase{"AndSaturatesBelow",      27, -1e10,       -1.0, -2147483648.0},
    TwoArgumentsCase{"AndOfTheLargest",        27, 2147483647.0, -1.0, 2147483647.0},
    TwoArgumentsCase{"AndJustPastTheLargest",  27, 2147483648.0, -1.0, 2147483647.0},
    TwoArgumentsCase{"AndOfTheSmallest",       27, -2147483648.5, -1.0, -2147483648.0},
    TwoArgumentsCase{"AndOfAnInfinity",        27, infinity,    -1.0, 2147483647.0},
    TwoArgumentsCase{"AndOfNoNumberIsOfZero",  27, notANumber,  -1.0,          0.0},
    TwoArgumentsCase{"Or",                     29, 12.0,        10.0,         14.0},
    TwoArgumentsCase{"OrTruncates",            29, 4.9,         -0.9,          4.0},
    TwoArgumentsCase{"OrOfNegatives",          29, -4.0,         1.0,         -3.0},
    TwoArgumentsCase{"OrSaturates",            29, -infinity,    0.0, -2147483648.0},
    TwoArgumentsCase{"OrOfNoNumberIsOfZero",   29, 5.0,   notANumber,          5.0},
    TwoArgumentsCase{"Xor",                    30, 12.0,        10.0,          6.0},
    TwoArgumentsCase{"XorTruncates",           30, -1.5,         0.5,         -1.0},
    TwoArgumentsCase{"XorSaturates",           30, 1e300,     -1e300,         -1.0},
    TwoArgumentsCase{"XorOfNoNumberIsOfZero",  30, notANumber,   6.0,          6.0}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(FunctionWithTwoArguments, hasOneTooManyWhereItNeedsOne) {
    for (std::int32_t function = -2; function <= 34; ++function) {
        if (function == 20 || function == 26 || function == 27 || function == 29 || function == 30) continue;
        SCOPED_TRACE(function);
        const Outcome outcome = outcomeOf(function, {1.0, 2.0});
        EXPECT_EQ(outcome.message,
                  nameOf(function) + "() () has too many arguments -- it should only have one argument.");
        EXPECT_EQ(outcome.number, 0.0);
    }
}

TEST(FunctionWithTwoArguments, isNotAvailableAsAtan2) {
    for (const Unit unit : {inRadians, inDegrees}) {
        const Outcome outcome = outcomeOf(20, {1.0, -2.0}, unit);
        EXPECT_EQ(outcome.message, "atan2() is not currently available as a function");
        EXPECT_EQ(outcome.number, std::atan2(unfolded(1), -2.0)) << "never in degrees";
    }
}

TEST(FunctionWithTwoArguments, countsAsImaginaryBeforeItIsNotAvailable) {
    const Outcome outcome = outcomeOf(20, {notANumber, 1.0});
    EXPECT_EQ(outcome.message, "atan2() produced an imaginary or extremely large (>10^308) result.");
    EXPECT_TRUE(std::isnan(outcome.number));
}

TEST(FunctionWithoutArguments, hasTooFew) {
    for (std::int32_t function = -2; function <= 34; ++function) {
        SCOPED_TRACE(function);
        const Outcome outcome = outcomeOf(function, {});
        EXPECT_EQ(outcome.message, nameOf(function) + "() has too few arguments.");
        EXPECT_EQ(outcome.number, 0.0);
    }
}

TEST(FunctionWithThreeArguments, hasTooMany) {
    for (std::int32_t function = -2; function <= 34; ++function) {
        SCOPED_TRACE(function);
        const Outcome outcome = outcomeOf(function, {1.0, 2.0, 3.0});
        EXPECT_EQ(outcome.message, nameOf(function) + "() has too many arguments.");
        EXPECT_EQ(outcome.number, 0.0);
    }
    EXPECT_EQ(outcomeOf(20, std::vector<double>(10, 1.0)).message, "atan2() has too many arguments.");
}

// Results that are no numbers

struct ImaginaryCase {
    const char* name;
    std::int32_t function;
    std::vector<double> arguments;
    double result;
    Unit unit = inRadians;
};
void PrintTo(const ImaginaryCase& row, std::ostream* out) { *out << row.name; }
class ImaginaryOrLarge : public testing::TestWithParam<ImaginaryCase> {};

TEST_P(ImaginaryOrLarge, isReportedAndGivenAllTheSame) {
    const Outcome outcome = outcomeOf(GetParam().function, GetParam().arguments, GetParam().unit);
    EXPECT_EQ(outcome.message,
              nameOf(GetParam().function) + "() produced an imaginary or extremely large (>10^308) result.");
    expectSame(outcome.number, GetParam().result);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Results, ImaginaryOrLarge, testing::Values(
    ImaginaryCase{"AbsOfAnInfinity",         0, {-infinity},    infinity},
    ImaginaryCase{"ExpTooLarge",             1, {1000.0},       infinity},
    ImaginaryCase{"SinOfAnInfinity",         2, {infinity},     notANumber},
    ImaginaryCase{"CosOfNoNumber",           3, {notANumber},   notANumber},
    ImaginaryCase{"SqrtOfNegative",          5, {-4.0},         notANumber},
    ImaginaryCase{"SinhTooLarge",            6, {1000.0},       infinity},
    ImaginaryCase{"CoshTooLarge",            7, {1000.0},       infinity},
    ImaginaryCase{"LnOfNegative",            8, {-1.0},         notANumber},
    ImaginaryCase{"LnOfZero",                8, {0.0},         -infinity},
    ImaginaryCase{"LogOfNegative",           9, {-1.0},         notANumber},
    ImaginaryCase{"LogOfZero",               9, {0.0},         -infinity},
    ImaginaryCase{"CscOfZero",              11, {0.0},          infinity},
    ImaginaryCase{"CscOf180Degrees",        11, {180.0},        infinity, inDegrees},
    ImaginaryCase{"CscOfPi",                11, {pi},           infinity},
    ImaginaryCase{"SecOf90Degrees",         12, {90.0},         infinity, inDegrees},
    ImaginaryCase{"SecOfHalfPi",            12, {pi / 2},       infinity},
    ImaginaryCase{"CotOfZero",              13, {0.0},          infinity},
    ImaginaryCase{"CotOf180Degrees",        13, {180.0},        infinity, inDegrees},
    ImaginaryCase{"CschOfZero",             14, {0.0},          infinity},
    ImaginaryCase{"CothOfZero",             16, {0.0},          infinity},
    ImaginaryCase{"CothOfInfiniteByInfinite", 16, {1000.0},     notANumber},
    ImaginaryCase{"AsinOfTwo",              17, {2.0},          notANumber},
    ImaginaryCase{"AsinOfTwoInDegrees",     17, {2.0},          notANumber, inDegrees},
    ImaginaryCase{"AcosOfMinusTwo",         18, {-2.0},         notANumber},
    ImaginaryCase{"CbrtOfAnInfinity",       21, {infinity},     infinity},
    ImaginaryCase{"FloorOfNoNumber",        22, {notANumber},   notANumber},
    ImaginaryCase{"HypotenuseTooLarge",     26, {1.5e308, 1.5e308}, infinity},
    ImaginaryCase{"OrderOfZero",            32, {0.0},         -infinity}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(FunctionOfOneArgument, ofAListThatIsNotThereIsOfZero) {
    TXEquationController controller;
    Call call(controller, {5.0});
    const std::vector<std::int32_t> missing = {2};
    constexpr std::int32_t cosine = 3;
    EXPECT_EQ(call.calculateTXFunction(cosine, TXBlockPointerList(missing)), 1.0);
    EXPECT_EQ(call.message(), "");
}

// Typed lines

struct TypedFunctionCase {
    const char* name;
    std::u16string_view line;
    Unit unit;
    double answer;
};
void PrintTo(const TypedFunctionCase& row, std::ostream* out) { *out << utf8(row.line); }
class TypedFunction : public testing::TestWithParam<TypedFunctionCase> {};

TEST_P(TypedFunction, givesTheAnswer) {
    TXEquationController controller;
    controller.setUseRadians(GetParam().unit == inRadians);
    const TXResult* result = controller.addOneStringBlindly(GetParam().line);
    ASSERT_FALSE(result->isErrorMessage()) << utf8(result->errorMessage());
    EXPECT_EQ(result->number(), GetParam().answer);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lines, TypedFunction, testing::Values(
    //                name                     line           unit       answer
    TypedFunctionCase{"Abs",                   u"abs(-2.5)",  inRadians, 2.5},
    TypedFunctionCase{"Exp",                   u"exp(0)",     inRadians, 1.0},
    TypedFunctionCase{"Sin",                   u"sin(pi/2)",  inRadians, 1.0},
    TypedFunctionCase{"CosOfHalfPi",           u"cos(pi/2)",  inRadians, 0.0},
    TypedFunctionCase{"CosOf90Degrees",        u"cos(90)",    inDegrees, 0.0},
    TypedFunctionCase{"TanOf45Degrees",        u"tan(45)",    inDegrees, 1.0},
    TypedFunctionCase{"SinOf180Degrees",       u"sin(180)",   inDegrees, 0.0},
    TypedFunctionCase{"Sqrt",                  u"sqrt(16)",   inRadians, 4.0},
    TypedFunctionCase{"SinhTakesDegrees",      u"sinh(1)",    inDegrees, std::sinh(radians(unfolded(1)))},
    TypedFunctionCase{"Cosh",                  u"cosh(0)",    inRadians, 1.0},
    TypedFunctionCase{"Ln",                    u"ln(1)",      inRadians, 0.0},
    TypedFunctionCase{"Log",                   u"log(100)",   inRadians, 2.0},
    TypedFunctionCase{"Tanh",                  u"tanh(0)",    inRadians, 0.0},
    TypedFunctionCase{"Csc",                   u"csc(90)",    inDegrees, 1.0},
    TypedFunctionCase{"Sec",                   u"sec(0)",     inRadians, 1.0},
    TypedFunctionCase{"Cot",                   u"cot(45)",    inDegrees, 1.0},
    TypedFunctionCase{"Csch",                  u"csch(2)",    inRadians, csch(unfolded(2))},
    TypedFunctionCase{"Sech",                  u"sech(0)",    inRadians, 1.0},
    TypedFunctionCase{"Coth",                  u"coth(2)",    inRadians, coth(unfolded(2))},
    TypedFunctionCase{"AsinGivesDegrees",      u"asin(1)",    inDegrees, 90.0},
    TypedFunctionCase{"Acos",                  u"acos(1)",    inRadians, 0.0},
    TypedFunctionCase{"AtanGivesDegrees",      u"atan(1)",    inDegrees, 45.0},
    TypedFunctionCase{"Cbrt",                  u"cbrt(-8)",   inRadians, -2.0}
), [](const auto& test) { return test.param.name; });
// clang-format on

struct TypedRefusalCase {
    const char* name;
    std::u16string_view line;
    Unit unit;
    const char* message;
};
void PrintTo(const TypedRefusalCase& row, std::ostream* out) { *out << utf8(row.line); }
class TypedFunctionRefusal : public testing::TestWithParam<TypedRefusalCase> {};

TEST_P(TypedFunctionRefusal, givesTheMessage) {
    TXEquationController controller;
    controller.setUseRadians(GetParam().unit == inRadians);
    const TXResult* result = controller.addOneStringBlindly(GetParam().line);
    ASSERT_TRUE(result->isErrorMessage()) << result->number();
    EXPECT_EQ(utf8(result->errorMessage()), GetParam().message);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lines, TypedFunctionRefusal, testing::Values(
    TypedRefusalCase{"NoArgumentList",     u"sin",         inRadians, "sin() has too few arguments."},
    TypedRefusalCase{"NoListInASum",       u"2+cbrt*3",    inRadians, "cbrt() has too few arguments."},
    TypedRefusalCase{"Imaginary",          u"sqrt(-4)",    inRadians, "sqrt() produced an imaginary or extremely large (>10^308) result."},
    TypedRefusalCase{"InfiniteArgument",   u"abs(1/0)",    inRadians, "abs() produced an imaginary or extremely large (>10^308) result."},
    TypedRefusalCase{"ReciprocalOfZero",   u"csc(180)",    inDegrees, "csc() produced an imaginary or extremely large (>10^308) result."},
    TypedRefusalCase{"Atan2OfOne",         u"atan2(1)",    inRadians, "atan2() only has one argument -- it should have two arguments."},
    TypedRefusalCase{"Atan2OfNone",        u"atan2",       inRadians, "atan2() has too few arguments."},
    TypedRefusalCase{"Atan2WithAComma",    u"atan2(1, 1)", inRadians, "You cannot have a comma in the equation."},
    TypedRefusalCase{"SinWithAComma",      u"sin(1, 2)",   inRadians, "You cannot have a comma in the equation."}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(FunctionOfOneArgument, atTheEdgeOfATangentIsLargeButANumber) {
    const Outcome outcome = outcomeOf(4, {90.0}, inDegrees);
    EXPECT_EQ(outcome.message, "");
    EXPECT_EQ(outcome.number, std::tan(radians(unfolded(90))));
}

}  // namespace
