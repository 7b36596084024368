#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

/// A named value of a session: a constant, an automatically kept answer, or a variable of the user's.
class TXVariable {
public:
    /// An undefined variable has the number 0, whatever `value` says.
    static TXVariable initWithName(std::u16string_view name, bool isDefined, double value);

    /// The name as typed. It is not to be changed while the variable stands in a list: names are looked up there.
    std::u16string_view variableName() const {
        return nameLength_ == isLongName ? std::u16string_view(texts_->longName)
                                         : std::u16string_view(shortName_.data(), nameLength_);
    }
    void setVariableName(std::u16string_view name);

    std::u16string_view variableDescription() const {
        return texts_ ? std::u16string_view(texts_->description) : std::u16string_view();
    }
    void setVariableDescription(std::u16string text);

    double number() const { return number_; }
    /// Gives the variable a value, which defines it.
    void setNumber(double number) {
        number_ = number;
        isDefined_ = true;
        definedState_ = true;
    }
    bool isDefined() const { return isDefined_; }

    /// The state that `description` reports.
    bool definedState() const { return definedState_; }
    void setDefinedState(bool definedState) { definedState_ = definedState; }

    bool isStatic() const { return isStatic_; }
    void setStatic(bool isStatic) { isStatic_ = isStatic; }
    bool isLocked() const { return isLocked_; }
    void setIsLocked(bool isLocked) { isLocked_ = isLocked; }
    /// The variable holds an answer that was kept automatically.
    bool isAutoCached() const { return isAutoCached_; }
    void setIsAutoCached(bool isAutoCached) { isAutoCached_ = isAutoCached; }

    /// The variable's position in its controller's list.
    std::int32_t variableIndex() const { return variableIndex_; }
    void setVariableIndex(std::int32_t index) { variableIndex_ = index; }
    /// The index of the equation that last gave the variable its value.
    std::int32_t definedInEquationIndex() const { return definedInEquationIndex_; }
    void setDefinedInEquationIndex(std::int32_t index) { definedInEquationIndex_ = index; }

    /// One line for logging: the name, a tab, and "5.000000 (defined)"; or the name and " (undefined)".
    std::u16string description() const;

private:
    // What few variables have.
    struct Texts {
        std::u16string longName;
        std::u16string description;
    };

    static constexpr std::size_t longestShortName = 11;  ///< As far as ans99999999.
    static constexpr std::uint8_t isLongName = 0xFF;

    Texts& texts();

    std::unique_ptr<Texts> texts_;
    double number_ = 0.0;
    std::int32_t definedInEquationIndex_ = 0;
    std::int32_t variableIndex_ = 0;
    bool isStatic_ = true;
    bool isLocked_ = false;
    bool isDefined_ = false;
    bool isAutoCached_ = false;
    bool definedState_ = false;
    std::uint8_t nameLength_ = 0;  ///< Of the short name; `isLongName` when the name stands aside.
    std::array<char16_t, longestShortName> shortName_{};
};
