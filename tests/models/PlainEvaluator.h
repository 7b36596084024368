#pragma once

#include <cstdint>
#include <string>

#include "tests/models/Outcome.h"
#include "tests/models/PlainNames.h"
#include "tests/models/PlainReader.h"
#include "tests/models/PlainTree.h"

/// The value of a line that was read, by walking its tree.
///
/// The innermost groups come first, and of two beside each other the one further right. In each group the functions
/// come before the powers, both from left to right, and of several errors of one group the last one stays. A group with
/// an error is the last one that is looked at.
class PlainEvaluator {
public:
    PlainEvaluator(PlainNames& names, bool useRadians) : names_(names), useRadians_(useRadians) {}

    /// The value, of no account where there is a message.
    double valueOf(PlainLine& line);

    /// Empty where nothing went wrong.
    const std::u16string& message() const { return message_; }
    Outcome outcome() const { return outcome_; }

private:
    void checkVariables(const PlainLine& line);
    double valueOfSum(PlainSum& sum);
    bool valuesOfInnerSums(PlainSum& sum);
    double valueOfTerm(const PlainTerm& term);
    double valueOfFactor(const PlainPower& power);
    double valueOfPower(const PlainPower& power);
    double valueOfCall(const PlainOperand& call);
    double numberOf(const PlainOperand& operand);
    double report(Outcome outcome, std::u16string message);

    PlainNames& names_;
    bool useRadians_;
    std::u16string message_;
    Outcome outcome_ = Outcome::number;
};
