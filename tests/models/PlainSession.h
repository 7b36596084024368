#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tests/models/Outcome.h"
#include "tests/models/PlainNames.h"

/// What a line gave.
struct PlainAnswer {
    Outcome outcome = Outcome::number;
    std::u16string message;        ///< Empty where the line has a number.
    double number = 0.0;           ///< 0 where there is a message.
    std::int32_t variable = -1;    ///< The variable that was assigned, -1 for none, also where the value had an error.
    std::u16string rewrittenLine;  ///< Trimmed, and every `ans` written out as the variable that it meant.
};

/// A session of the calculator as it is meant, for well-formed lines: nothing stored but its variables, nothing fast.
class PlainSession {
public:
    PlainSession() { clearAll(); }

    /// Nothing for a blank line.
    std::optional<PlainAnswer> enter(std::u16string_view line);
    void clearAll();
    void setUseRadians(bool useRadians) { useRadians_ = useRadians; }

    const PlainNames& names() const { return names_; }
    std::int32_t answerNumber() const { return answerNumber_; }

private:
    PlainAnswer answerTo(std::u16string_view line);
    void keep(const PlainAnswer& answer);

    PlainNames names_;
    std::int32_t answerNumber_ = 0;
    std::int32_t equationCount_ = 0;
    bool useRadians_ = true;
};
