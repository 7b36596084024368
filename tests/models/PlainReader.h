#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/models/Outcome.h"
#include "tests/models/PlainNames.h"
#include "tests/models/PlainTree.h"

/// A well-formed line, read: the side that has the value, and what else the session must know.
struct PlainLine {
    bool isRefused = false;  ///< Then only the two fields below count.
    Outcome refusal = Outcome::number;
    std::u16string message;

    std::int32_t target = -1;                  ///< The variable that is assigned, -1 for none.
    PlainSum side;                             ///< The right side of an assignment, or the whole line.
    std::set<std::int32_t> variables;          ///< What the side names.
    std::vector<std::size_t> answerPositions;  ///< Where the line says `ans`.
};

/// Reads one well-formed line by recursive descent. Lines of any other shape are a mistake of the caller's and throw.
///
/// Names that are new become variables as they are met, also where the line is refused further on.
class PlainReader {
public:
    PlainReader(std::u16string_view line, PlainNames& names) : line_(line), names_(names) {}

    PlainLine read();

private:
    struct Refused {};
    struct Literal {
        double value;
        bool isTooLarge;
    };

    void readSides();
    void checkTarget(std::u16string_view targetName);
    PlainSum sum();
    PlainTerm term(PlainSum& sum);
    PlainPower power(PlainSum& sum, bool isNegative);
    PlainOperand* operand(PlainSum& sum);
    PlainSum group();

    void numberOperand(PlainOperand& operand);
    double prefixedNumber(double base);
    double digitsInBase(std::u16string_view digits, double base);
    Literal literal();
    double digitsAndPoint();
    void tolerance();

    void namedOperand(PlainOperand& operand);
    std::int32_t variable(std::u16string_view name, std::size_t position);
    void checkName(std::u16string_view name);
    std::u16string_view name();

    char16_t next() const { return at_ < line_.size() ? line_[at_] : u'\0'; }
    bool nextIsOneOf(std::u16string_view characters) const;
    void skip(char16_t character);
    void skipBlanks();
    bool negativeSigns();

    [[noreturn]] void refuse(Outcome outcome, std::u16string message);
    [[noreturn]] void misread() const;

    std::u16string_view line_;
    PlainNames& names_;
    std::size_t at_ = 0;
    PlainLine read_;
};
