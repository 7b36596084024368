#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/models/Random.h"

/// Makes up well-formed lines: complete numbers, names and groups, an operator between every two operands. Most have an
/// answer; some end in an error of evaluation, a few name what may not be named. Lines of one writer share their names.
class LineWriter {
public:
    explicit LineWriter(Random& random);

    std::u16string line();

private:
    void simpleAssignment();
    void assignment();
    void sum(int depth);
    void operand(int depth);
    void name();
    void answerName();
    void call(int depth);
    void bareFunction();

    void number();
    void decimalNumber();
    void prefixedNumber();
    void remarkableNumber();
    void digits(int count, std::u16string_view from = u"0123456789");
    void wholeDigits(int count);
    void exponent(int greatest);
    void tolerance();

    void operatorSign();
    void signs(bool atLeastOne);
    void blanks();
    void write(std::u16string_view text) { text_ += text; }

    Random& random_;
    std::vector<std::u16string> names_;
    std::u16string text_;
};
