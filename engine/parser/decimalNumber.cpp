#include "engine/parser/decimalNumber.h"

#include <charconv>
#include <limits>
#include <string>

namespace {

// from_chars and not strtod: strtod takes the decimal point of the user's locale. It leaves the value alone when that
// is out of range, so which way must be told from the digits before the point.
double unsignedNumber(std::u16string_view text) {
    const std::u16string_view part = text.substr(0, text.find_first_not_of(u"0123456789."));
    const std::string narrow(part.begin(), part.end());
    double value = 0.0;
    const auto read = std::from_chars(narrow.data(), narrow.data() + narrow.size(), value, std::chars_format::fixed);
    if (read.ec == std::errc::result_out_of_range) {
        const bool isLarge = part.substr(0, part.find(u'.')).find_first_of(u"123456789") != std::u16string_view::npos;
        return isLarge ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return value;
}

}  // namespace

double decimalNumber(std::u16string_view text) {
    if (text.starts_with(u'-') || text.starts_with(u'+')) {
        const double magnitude = unsignedNumber(text.substr(1));
        return text.front() == u'-' ? -magnitude : magnitude;
    }
    return unsignedNumber(text);
}
