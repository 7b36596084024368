#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

/// The outcome of one equation: a number, perhaps meant for a variable, or an error message for the user.
class TXResult {
public:
    TXResult() = default;
    /// A refusal or a failure, with its message for the user.
    static TXResult initWithErrorMessage(std::u16string message);
    /// A computed answer, meant for no variable.
    static TXResult initWithNumber(double number);
    /// A computed answer, meant for the variable at this position; -1 for none.
    static TXResult initWithNumber(double number, std::int32_t toBeAssignedTo);
    /// A result of parsing. It is marked as hashed whatever `isHashed` says.
    static TXResult initWithIsHashed(bool isHashed);

    double number() const { return number_; }
    void setNumber(double number) { number_ = number; }

    /// The result was made with a computed number.
    bool isReduced() const { return isReduced_; }
    void setReduced(bool isReduced) { isReduced_ = isReduced; }

    /// The equation was parsed without an error.
    bool isHashed() const { return isHashed_; }
    void setIsHashed(bool isHashed) { isHashed_ = isHashed; }

    /// The position of the variable that receives the answer, -1 for none.
    std::int32_t variableToAssign() const { return variableToAssign_; }
    void setVariableToAssign(std::int32_t variable) { variableToAssign_ = variable; }

    bool isErrorMessage() const { return isErrorMessage_; }
    /// The message, to be read only while `isErrorMessage()`; empty when there never was one.
    const std::u16string& errorMessage() const;
    /// A message makes this an error. Nothing makes it none again, but the old text stays where it is.
    void setErrorMessage(std::optional<std::u16string> message);

    /// One line for logging: "TXResult (0x5581): 5 for variable 2". Rendering a number forgets that the answer was set.
    std::u16string description();

private:
    double number_ = 0.0;
    std::unique_ptr<std::u16string> errorMessage_;  ///< Absent in nearly every result.
    std::int32_t variableToAssign_ = -1;
    bool isReduced_ = false;
    bool isErrorMessage_ = false;
    bool isHashed_ = false;
    bool answerSet_ = false;
};
