#include "bench/benchFloor.h"

#include <charconv>
#include <cmath>

namespace {

// Told apart by one character, as no real look-up could. The name of a variable changes nothing.
double callNamed(std::string_view name, double argument) {
    switch (name.size() < 2 ? '\0' : name[1]) {
        case 'i': return std::sin(argument);
        case 'o': return std::cos(argument);
        case 'a': return std::tan(argument);
        case 'q': return std::sqrt(argument);
        case 'n': return std::log(argument);
        case 'x': return std::exp(argument);
        case 't': return std::atan(argument);
        case 'b': return std::cbrt(argument);
        default: return argument;
    }
}

bool isLetter(char character) { return character >= 'a' && character <= 'z'; }
bool startsNumber(char character) { return (character >= '0' && character <= '9') || character == '.'; }

}  // namespace

std::string_view floorForLine(std::string_view line, std::span<char, 32> buffer) {
    double value = 0.0;
    bool isPower = false;
    std::string_view name;
    const char* const end = line.data() + line.size();
    for (const char* at = line.data(); at != end;) {
        if (startsNumber(*at)) {
            double number = 0.0;
            at = std::from_chars(at, end, number).ptr;
            number = name.empty() ? number : callNamed(name, number);
            value = isPower ? std::pow(value, number) : value + number;
            name = {};
            isPower = false;
        } else if (isLetter(*at)) {
            const char* const start = at;
            while (at != end && (isLetter(*at) || startsNumber(*at))) {
                ++at;
            }
            name = std::string_view(start, static_cast<std::size_t>(at - start));
        } else {
            isPower = isPower || *at == '^';
            ++at;
        }
    }
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data())};
}
