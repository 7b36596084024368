// The built-in functions: one table, walked by id, and what is wrong with a call.

#include "engine/calculator/TXECalculator.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "engine/calculator/messages.h"
#include "engine/controller/TXEquationController.h"
#include "engine/records/filled.h"
#include "engine/records/wellKnown.h"

namespace {

constexpr double degreesInHalfTurn = 180.0;

// Truncated towards zero; what an integer cannot hold becomes its nearest value, and no number 0.
std::int32_t integerOf(double value) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(value)) {
        return 0;
    }
    if (value <= Limits::min()) {
        return Limits::min();
    }
    return value >= Limits::max() ? Limits::max() : static_cast<std::int32_t>(value);
}

double snapped(double value) { return TXECalculator::formatTrigFunction(value); }

/// What of a function is an angle, and so converted while the unit is degrees.
enum class Angle : std::uint8_t { none, argument, result };

struct FunctionOfOne {
    double (*operation)(double) = nullptr;  ///< Angles in radians. Null where there is no function of one argument.
    Angle angle = Angle::none;
};

// By id: those that have names, and then some that no name reaches yet. The hyperbolic functions take their argument
// for an angle too.
constexpr std::array<FunctionOfOne, 33> functionsOfOne = {{
    {[](double x) { return std::fabs(x); }, Angle::none},
    {[](double x) { return std::exp(x); }, Angle::none},
    {[](double x) { return snapped(std::sin(x)); }, Angle::argument},
    {[](double x) { return snapped(std::cos(x)); }, Angle::argument},
    {[](double x) { return snapped(std::tan(x)); }, Angle::argument},
    {[](double x) { return std::sqrt(x); }, Angle::none},
    {[](double x) { return std::sinh(x); }, Angle::argument},
    {[](double x) { return std::cosh(x); }, Angle::argument},
    {[](double x) { return std::log(x); }, Angle::none},
    {[](double x) { return std::log10(x); }, Angle::none},
    {[](double x) { return std::tanh(x); }, Angle::argument},
    {[](double x) { return 1 / snapped(std::sin(x)); }, Angle::argument},
    {[](double x) { return 1 / snapped(std::cos(x)); }, Angle::argument},
    {[](double x) { return 1 / snapped(std::tan(x)); }, Angle::argument},
    {[](double x) { return 2 / (std::exp(x) - std::exp(-x)); }, Angle::argument},
    {[](double x) { return 2 / (std::exp(x) + std::exp(-x)); }, Angle::argument},
    {[](double x) { return (std::exp(x) + std::exp(-x)) / (std::exp(x) - std::exp(-x)); }, Angle::argument},
    {[](double x) { return std::asin(x); }, Angle::result},
    {[](double x) { return std::acos(x); }, Angle::result},
    {[](double x) { return std::atan(x); }, Angle::result},
    {},  // 20 atan2
    {[](double x) { return std::cbrt(x); }, Angle::none},
    {[](double x) { return std::floor(x); }, Angle::none},
    {[](double x) { return std::ceil(x); }, Angle::none},
    {[](double x) { return std::rint(x); }, Angle::none},
    {},  // 25
    {},  // 26 hypot
    {},  // 27 and
    {},  // 28 not supported
    {},  // 29 or
    {},  // 30 exclusive or
    {[](double x) { return x > 0 ? std::floor(x) : std::ceil(x); }, Angle::none},
    {[](double x) { return std::floor(std::log10(std::fabs(x))); }, Angle::none},
}};

enum FunctionID : std::int32_t {
    atan2ID = 20,
    hypotID = 26,
    andID = 27,
    unsupportedID = 28,
    orID = 29,
    exclusiveOrID = 30
};

FunctionOfOne functionOfOneWithID(std::int32_t function) {
    const auto index = static_cast<std::size_t>(function);
    return function >= 0 && index < functionsOfOne.size() ? functionsOfOne[index] : FunctionOfOne{};
}

}  // namespace

double TXECalculator::calculateTXFunction(std::int32_t function, const TXBlockPointerList& withArguments) {
    double result = 0.0;
    std::u16string_view message;
    switch (withArguments.size()) {
        case 0: message = calculatorMessages::tooFewArguments; break;
        case 1: result = functionOfOne(function, listValue(withArguments.blockPointerIDAt(0)), message); break;
        case 2:
            result = functionOfTwo(function, listValue(withArguments.blockPointerIDAt(0)),
                                   listValue(withArguments.blockPointerIDAt(1)), message);
            break;
        default: message = calculatorMessages::tooManyArguments; break;
    }
    if (!std::isfinite(result)) {
        message = calculatorMessages::imaginaryOrLarge;
    }
    if (!message.empty()) {
        setErrorMessage(filled(message, {functionName(function)}));
    }
    return result;
}

double TXECalculator::functionOfOne(std::int32_t function, double argument, std::u16string_view& message) const {
    const auto [operation, angle] = functionOfOneWithID(function);
    if (operation == nullptr) {
        message =
            function == unsupportedID ? calculatorMessages::unsupportedFunction : calculatorMessages::onlyOneArgument;
        return 0.0;
    }
    const bool convertsArgument = !preferencesRadians_ && angle == Angle::argument;
    const bool convertsResult = !preferencesRadians_ && angle == Angle::result;
    const double result = operation(convertsArgument ? argument * piValue / degreesInHalfTurn : argument);
    return convertsResult ? result * degreesInHalfTurn / piValue : result;
}

// No result of these is an angle that is converted, not even that of atan2.
double TXECalculator::functionOfTwo(std::int32_t function, double first, double second,
                                    std::u16string_view& message) const {
    switch (function) {
        case atan2ID: message = calculatorMessages::atan2Unavailable; return std::atan2(first, second);
        case hypotID: return std::hypot(first, second);
        case andID: return integerOf(first) & integerOf(second);
        case orID: return integerOf(first) | integerOf(second);
        case exclusiveOrID: return integerOf(first) ^ integerOf(second);
        default: message = calculatorMessages::tooManyForOne; return 0.0;
    }
}

// The name that messages show, empty for an id without one.
std::u16string_view TXECalculator::functionName(std::int32_t function) const {
    const auto& names = equationController_->nativeFunctionNames();
    const auto index = static_cast<std::size_t>(function);
    return function >= 0 && index < names.size() ? names[index] : std::u16string_view();
}

double TXECalculator::formatTrigFunction(double value) {
    constexpr double near = 1e-13;
    if (value > -near && value < near) {
        return 0.0;
    }
    return value > 1 - near && value < 1 + near ? 1.0 : value;
}
