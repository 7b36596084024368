#include "tests/models/PlainEvaluator.h"

#include <cmath>
#include <cstddef>
#include <utility>

#include "tests/models/PlainFunctions.h"

namespace {

constexpr double pi = 3.141592653589793;

}  // namespace

double PlainEvaluator::valueOf(PlainLine& line) {
    checkVariables(line);
    return message_.empty() ? valueOfSum(line.side) : 0.0;
}

void PlainEvaluator::checkVariables(const PlainLine& line) {
    std::u16string missing;
    int count = 0;
    for (const std::int32_t position : line.variables) {
        if (position >= 0 && names_.at(position).isDefined) continue;
        missing += count++ == 0 ? u"" : u", ";
        missing += position < 0 ? u"nil" : names_.at(position).name;
    }
    if (count == 1) {
        report(Outcome::undefinedVariable, u"The equation contains an undefined variable: " + missing + u".");
    } else if (count > 1) {
        report(Outcome::undefinedVariables, u"The equation contains undefined variables: " + missing + u".");
    }
}

double PlainEvaluator::valueOfSum(PlainSum& sum) {
    if (!valuesOfInnerSums(sum)) return 0.0;
    for (const auto& operand : sum.operands) {
        if (operand->function != -1) operand->number = valueOfCall(*operand);
    }
    double value = 0.0;
    for (const PlainTerm& term : sum.terms) {
        const double termValue = valueOfTerm(term);
        value = term.isSubtracted ? value - termValue : value + termValue;
    }
    return value;
}

// Whether all have a value.
bool PlainEvaluator::valuesOfInnerSums(PlainSum& sum) {
    for (std::size_t at = sum.operands.size(); at > 0; --at) {
        PlainOperand& operand = *sum.operands[at - 1];
        if (operand.inner == nullptr) continue;
        operand.number = valueOfSum(*operand.inner);
        if (!message_.empty()) return false;
    }
    return true;
}

double PlainEvaluator::valueOfTerm(const PlainTerm& term) {
    double value = valueOfFactor(term.factors.front().power);
    for (auto factor = term.factors.begin() + 1; factor != term.factors.end(); ++factor) {
        const double factorValue = valueOfFactor(factor->power);
        value = factor->divides ? value / factorValue : value * factorValue;
    }
    return value;
}

// Only the outcome of a whole chain of powers is judged: 0.5^10^400 is 0, though 10^400 is too large.
double PlainEvaluator::valueOfFactor(const PlainPower& power) {
    const double value = valueOfPower(power);
    if (power.exponent == nullptr) return value;
    if (std::isnan(value)) {
        return report(Outcome::powerNotANumber, u"Error in exponents, NaN.  Please report this bug.");
    }
    if (std::isinf(value)) {
        return report(Outcome::powerTooLarge, u"Extremely large exponent result (>10^308) in the equation.");
    }
    return value;
}

double PlainEvaluator::valueOfPower(const PlainPower& power) {
    double value = numberOf(*power.base);
    if (power.exponent != nullptr) value = std::pow(value, valueOfPower(*power.exponent));
    return power.isNegative ? -value : value;
}

double PlainEvaluator::valueOfCall(const PlainOperand& call) {
    const PlainFunction& function = plainFunctions.at(static_cast<std::size_t>(call.function));
    const std::u16string shown = std::u16string(function.name) + u"()";
    if (call.inner == nullptr) {
        return report(Outcome::functionWithoutArguments, shown + u" has too few arguments.");
    }
    if (function.of == nullptr) {
        return report(Outcome::functionWithOneArgument,
                      shown + u" only has one argument -- it should have two arguments.");
    }
    const bool inDegrees = !useRadians_;
    const bool takesAngle = inDegrees && function.angle == Angle::argument;
    double value = function.of(takesAngle ? call.number * pi / 180.0 : call.number);
    if (inDegrees && function.angle == Angle::result) value = value * 180.0 / pi;
    if (!std::isfinite(value)) {
        report(Outcome::functionOutOfRange, shown + u" produced an imaginary or extremely large (>10^308) result.");
    }
    return value;
}

double PlainEvaluator::numberOf(const PlainOperand& operand) {
    return operand.variable >= 0 ? names_.at(operand.variable).number : operand.number;
}

double PlainEvaluator::report(Outcome outcome, std::u16string message) {
    outcome_ = outcome;
    message_ = std::move(message);
    return 0.0;
}
