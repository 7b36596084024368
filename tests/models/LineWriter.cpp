#include "tests/models/LineWriter.h"

#include <algorithm>
#include <array>

#include "tests/models/PlainFunctions.h"

namespace {

constexpr std::array<std::u16string_view, 22> usualNames{
    u"x",  u"y",     u"x17", u"speed",  u"a_1",  u"_b", u"e3",   u"E",    u"ans1", u"ans7", u"ans12",
    u"Pi", u"sin_2", u"Ans", u"Absent", u"nilx", u"ÿ",  u"Ωmax", u"αβγ_", u"é÷ù",  u"b0",   u"Nil"};

constexpr std::array<std::u16string_view, 15> oddNames{u"nil", u"undefined", u"pi",  u"ans",   u"if",
                                                       u"for", u"default",   u"_",   u"__1",   u"x$",
                                                       u"í",   u"ς_a",       u"a:b", u"x\tyz", u"日本"};

constexpr std::u16string_view nameCharacters = u"abcxyzABCXYZ0189__ÀÖØöøÿ÷ΑΡΣΩαρσω";
constexpr std::u16string_view firstNameCharacters = u"abcxyzABCXYZÀÖØöøÿΑΡΣΩαρσω_";

constexpr std::array<std::u16string_view, 8> aroundALine{u" ",      u"  ",     u"\t",     u" \t ",
                                                         u"\u00a0", u"\u3000", u"\u2009", u"\u1680 "};

constexpr std::array<std::u16string_view, 14> signRuns{u"+",  u"-",   u"--",  u"+-",  u"-+",    u"- -",   u"+ + -",
                                                       u"- ", u"-  ", u"---", u"+++", u"- + -", u"- - -", u"+  "};

}  // namespace

LineWriter::LineWriter(Random& random) : random_(random) {
    for (int count = random_.between(3, 8); count > 0; --count) {
        names_.emplace_back(random_.oneOf(usualNames));
    }
    text_ += random_.oneOf(firstNameCharacters);
    text_ += u"z";  // So that it is not made of underscores alone.
    for (int length = random_.between(0, 12); length > 0; --length) text_ += random_.oneOf(nameCharacters);
    names_.push_back(text_);
}

std::u16string LineWriter::line() {
    text_.clear();
    if (random_.oneIn(20)) write(random_.oneOf(aroundALine));
    if (random_.oneIn(6)) {
        simpleAssignment();
    } else if (!random_.oneIn(200)) {
        if (random_.oneIn(3)) assignment();
        sum(std::min(random_.between(0, 4), random_.between(0, 4)));
        if (random_.oneIn(100)) bareFunction();
    }
    if (random_.oneIn(20)) write(random_.oneOf(aroundALine));
    return text_;
}

// Rarely an error, so that the names have values.
void LineWriter::simpleAssignment() {
    write(random_.oneOf(names_));
    write(u"=");
    number();
}

void LineWriter::assignment() {
    if (random_.oneIn(10)) signs(false);
    if (random_.oneIn(40)) {
        write(random_.oneOf(oddNames));  // Some of them take no tolerance.
    } else {
        write(random_.oneOf(names_));
        if (random_.oneIn(40)) tolerance();
    }
    blanks();
    write(u"=");
    blanks();
}

void LineWriter::sum(int depth) {
    if (random_.oneIn(4)) signs(false);
    operand(depth);
    for (int count = random_.between(0, depth == 0 ? 2 : 4); count > 0; --count) {
        blanks();
        operatorSign();
        operand(depth);
    }
}

void LineWriter::operand(int depth) {
    const int kind = random_.between(0, 19);
    if (kind < 7) {
        number();
    } else if (kind < 12) {
        name();
    } else if (depth == 0) {
        number();
    } else if (kind < 16) {
        call(depth - 1);
    } else {
        write(u"(");
        blanks();
        sum(depth - 1);
        blanks();
        write(u")");
    }
}

void LineWriter::name() {
    const int kind = random_.between(0, 99);
    if (kind < 15) {
        write(u"pi");
    } else if (kind < 40) {
        answerName();
    } else if (kind < 99) {
        write(random_.oneOf(names_));
    } else {
        write(random_.oneOf(oddNames));
        return;
    }
    if (random_.oneIn(25)) tolerance();
}

void LineWriter::answerName() {
    write(u"ans");
    if (random_.oneIn(8)) wholeDigits(1);
}

void LineWriter::call(int depth) {
    write(random_.oneOf(plainFunctions).name);
    blanks();
    write(u"(");
    blanks();
    sum(depth);
    blanks();
    write(u")");
}

// Only at the end of a line, for a group that came later would become the argument.
void LineWriter::bareFunction() {
    operatorSign();
    write(random_.oneOf(plainFunctions).name);
}

void LineWriter::number() {
    const int kind = random_.between(0, 99);
    if (kind < 40) {
        wholeDigits(random_.between(1, 3));
    } else if (kind < 88) {
        decimalNumber();
    } else if (kind < 96) {
        prefixedNumber();
        return;  // Its digits would take in an "e", and it has no tolerance.
    } else {
        remarkableNumber();
    }
    if (random_.oneIn(25)) tolerance();
}

void LineWriter::decimalNumber() {
    const int form = random_.between(0, 3);
    if (form == 0) {
        write(u".");
        digits(random_.between(1, 20));
    } else if (form == 1) {
        wholeDigits(random_.between(1, 20));
        write(u".");
    } else {
        wholeDigits(random_.between(1, 4));
        write(u".");
        digits(random_.between(1, form == 2 ? 3 : 25));
    }
    if (random_.oneIn(4)) exponent(random_.oneIn(5) ? 330 : 12);
}

void LineWriter::prefixedNumber() {
    const bool isLong = random_.oneIn(20);
    const int length = random_.between(1, isLong ? 400 : 12);
    const int base = random_.between(0, 2);
    if (base == 0) {
        write(random_.oneIn(2) ? u"0b" : u"0B");
        digits(isLong ? 3 * length : length, u"01");
    } else if (base == 1) {
        write(random_.oneIn(2) ? u"0o" : u"0O");
        digits(length, u"01234567");
    } else {
        write(random_.oneIn(2) ? u"0x" : u"0X");
        digits(length, u"0123456789abcdefABCDEF");
    }
}

// The edges of what a double holds, and what lies beyond them.
void LineWriter::remarkableNumber() {
    constexpr std::array<std::u16string_view, 20> numbers{u"0.",
                                                          u"0.0e999",
                                                          u"2.e-324",
                                                          u"4.9e-324",
                                                          u"2.2250738585072014e-308",
                                                          u"1e-400",
                                                          u"1e308",
                                                          u"1.8e308",
                                                          u"1e999",
                                                          u"1e15",
                                                          u"1e - 3",
                                                          u"1e-+-5",
                                                          u"1E +7",
                                                          u"1e007",
                                                          u"90",
                                                          u"180",
                                                          u"45",
                                                          u"360",
                                                          u"9007199254740993",
                                                          u"0.1"};
    if (random_.oneIn(10)) {
        wholeDigits(random_.between(300, 330));  // Some are infinite, which only an exponent refuses.
    } else {
        write(random_.oneOf(numbers));
    }
}

void LineWriter::digits(int count, std::u16string_view from) {
    for (; count > 0; --count) text_ += random_.oneOf(from);
}

// Without a zero in front, unless it stands alone.
void LineWriter::wholeDigits(int count) {
    if (count == 1) {
        digits(1);
    } else {
        digits(1, u"123456789");
        digits(count - 1);
    }
}

// Only behind a literal with a point: a lone zero takes no exponent.
void LineWriter::exponent(int greatest) {
    write(random_.oneIn(2) ? u"e" : u"E");
    if (random_.oneIn(2)) write(random_.oneOf(signRuns));
    const std::string number = std::to_string(random_.between(0, greatest));
    text_.append(number.begin(), number.end());
}

void LineWriter::tolerance() {
    const auto amount = [this] {
        digits(random_.between(1, 3), u"123456789");
        if (random_.oneIn(2)) {
            write(u".");
            digits(random_.between(0, 3));
            if (random_.oneIn(3)) exponent(random_.oneIn(3) ? 600 : 5);
        }
    };
    blanks();
    write(u"±");
    amount();
    if (random_.oneIn(3)) {
        blanks();
        write(u"|");
        blanks();
        amount();
    }
}

void LineWriter::operatorSign() {
    const int kind = random_.between(0, 19);
    if (kind < 8) {
        signs(true);
        blanks();
        return;
    }
    if (kind < 12) {
        write(random_.oneIn(4) ? u"⋅" : u"*");
    } else {
        write(kind < 17 ? u"/" : u"^");
    }
    blanks();
    if (random_.oneIn(4)) signs(false);
}

void LineWriter::signs(bool atLeastOne) {
    if (atLeastOne && random_.oneIn(2)) {
        write(random_.oneIn(2) ? u"+" : u"-");
    } else {
        write(random_.oneOf(signRuns));
    }
}

void LineWriter::blanks() {
    if (random_.oneIn(6)) write(random_.oneIn(3) ? u"  " : u" ");
}
