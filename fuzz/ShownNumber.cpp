#include "fuzz/ShownNumber.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>
#include <system_error>

#include "fuzz/expect.h"

namespace {

bool isDigit(char16_t character) { return character >= u'0' && character <= u'9'; }

/// Takes characters off the front of a text.
class Scanner {
public:
    explicit Scanner(std::u16string_view text) : rest_(text) {}

    bool isAtEnd() const { return rest_.empty(); }
    bool takes(char16_t character) {
        if (rest_.empty() || rest_.front() != character) return false;
        rest_.remove_prefix(1);
        return true;
    }
    std::string digits() {
        std::string taken;
        while (!rest_.empty() && isDigit(rest_.front())) {
            taken += static_cast<char>(rest_.front());
            rest_.remove_prefix(1);
        }
        return taken;
    }

private:
    std::u16string_view rest_;
};

bool hasNeedlessZero(std::string_view digits) { return digits.size() > 1 && digits.front() == '0'; }

/// The digits before the point: all in one, or in groups of three behind a first one of 1 to 3.
bool readWhole(Scanner& scanner, char16_t separator, ShownNumber& number) {
    constexpr std::size_t group = 3;
    number.digits = scanner.digits();
    const std::size_t first = number.digits.size();
    while (scanner.takes(separator)) {
        const std::string digits = scanner.digits();
        if (digits.size() != group || first > group) return false;
        number.digits += digits;
        number.hasSeparators = true;
    }
    number.whole = static_cast<int>(number.digits.size());
    return first > 0 && !hasNeedlessZero(number.digits);
}

bool readFraction(Scanner& scanner, ShownNumber& number) {
    if (!scanner.takes(u'.')) return true;
    const std::string digits = scanner.digits();
    number.digits += digits;
    return !digits.empty();
}

bool readExponent(Scanner& scanner, ShownNumber& number) {
    if (!scanner.takes(u'e')) return true;
    const int sign = scanner.takes(u'-') ? -1 : 1;
    const std::string digits = scanner.digits();
    constexpr std::size_t longest = 4;
    if (digits.empty() || digits.size() > longest || hasNeedlessZero(digits)) return false;
    number.exponent = sign * std::stoi(digits);
    return true;
}

}  // namespace

Decimal Decimal::of(std::string_view digits, int leading) {
    const std::size_t first = digits.find_first_not_of('0');
    if (first == std::string_view::npos) return {};
    const std::size_t last = digits.find_last_not_of('0');
    return {std::string(digits.substr(first, last - first + 1)), leading - static_cast<int>(first)};
}

Decimal Decimal::roundedAt(int place) const {
    const int kept = leading - place + 1;
    if (isZero() || kept >= static_cast<int>(digits.size())) return *this;
    if (kept < 0) return {};
    const auto length = static_cast<std::size_t>(kept);
    // A zero in front takes the carry.
    std::string rounded = "0" + digits.substr(0, length);
    if (digits[length] >= '5') {
        std::size_t position = length;
        while (rounded[position] == '9') rounded[position--] = '0';
        ++rounded[position];
    }
    return of(rounded, leading + 1);
}

Decimal Decimal::timesTenTo(int power) const { return isZero() ? *this : Decimal{digits, leading + power}; }

double Decimal::number() const {
    if (isZero()) return 0.0;
    const std::string text = digits.substr(0, 1) + "." + digits.substr(1) + "e" + std::to_string(leading);
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    expect(error == std::errc() && end == text.data() + text.size(), "a number that is shown reads back as a double");
    return value;
}

std::optional<ShownNumber> ShownNumber::read(std::u16string_view text, char16_t separator) {
    Scanner scanner(text);
    ShownNumber number;
    number.isNegative = scanner.takes(u'-');
    if (!readWhole(scanner, separator, number) || !readFraction(scanner, number) || !readExponent(scanner, number)) {
        return std::nullopt;
    }
    number.hasPercentSign = scanner.takes(u'%');
    return scanner.isAtEnd() ? std::optional(number) : std::nullopt;
}
