#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <string_view>

enum class Angle : unsigned char { none, argument, result };

/// A function of the language: its name, what it computes, and which of its sides is an angle.
struct PlainFunction {
    std::u16string_view name;
    double (*of)(double);  ///< nullptr for the function of two arguments, which no line can give it.
    Angle angle = Angle::none;
};

/// Sine, cosine and tangent come out exactly 0 and 1 where they miss them by less than 1e-13; near -1 nothing is done.
inline double snapped(double x) {
    if (std::fabs(x) < 1e-13) return 0.0;
    return x > 1.0 - 1e-13 && x < 1.0 + 1e-13 ? 1.0 : x;
}

// clang-format off
inline constexpr std::array<PlainFunction, 22> plainFunctions{{
    {u"abs",   [](double x) { return std::fabs(x); }},
    {u"exp",   [](double x) { return std::exp(x); }},
    {u"sqrt",  [](double x) { return std::sqrt(x); }},
    {u"cbrt",  [](double x) { return std::cbrt(x); }},
    {u"ln",    [](double x) { return std::log(x); }},
    {u"log",   [](double x) { return std::log10(x); }},
    {u"sin",   [](double x) { return snapped(std::sin(x)); }, Angle::argument},
    {u"cos",   [](double x) { return snapped(std::cos(x)); }, Angle::argument},
    {u"tan",   [](double x) { return snapped(std::tan(x)); }, Angle::argument},
    {u"csc",   [](double x) { return 1.0 / snapped(std::sin(x)); }, Angle::argument},
    {u"sec",   [](double x) { return 1.0 / snapped(std::cos(x)); }, Angle::argument},
    {u"cot",   [](double x) { return 1.0 / snapped(std::tan(x)); }, Angle::argument},
    {u"sinh",  [](double x) { return std::sinh(x); }, Angle::argument},
    {u"cosh",  [](double x) { return std::cosh(x); }, Angle::argument},
    {u"tanh",  [](double x) { return std::tanh(x); }, Angle::argument},
    {u"csch",  [](double x) { return 2.0 / (std::exp(x) - std::exp(-x)); }, Angle::argument},
    {u"sech",  [](double x) { return 2.0 / (std::exp(x) + std::exp(-x)); }, Angle::argument},
    {u"coth",  [](double x) { return (std::exp(x) + std::exp(-x)) / (std::exp(x) - std::exp(-x)); }, Angle::argument},
    {u"asin",  [](double x) { return std::asin(x); }, Angle::result},
    {u"acos",  [](double x) { return std::acos(x); }, Angle::result},
    {u"atan",  [](double x) { return std::atan(x); }, Angle::result},
    {u"atan2", nullptr},
}};
// clang-format on

/// The position of a function's name, or -1.
inline std::int32_t plainFunctionNamed(std::u16string_view name) {
    std::int32_t at = 0;
    for (const PlainFunction& function : plainFunctions) {
        if (function.name == name) return at;
        ++at;
    }
    return -1;
}
