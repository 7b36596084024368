#include "engine/records/descriptionText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace {

constexpr std::size_t longestFixed = 512;  // 309 digits, the point, six places and a sign fit well

template <class... Layout>
std::u16string written(Layout... layout) {
    std::array<char, longestFixed> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), layout...);
    return {buffer.data(), end.ptr};
}

}  // namespace

std::u16string integerText(std::int32_t number) { return written(number); }

std::u16string fixedText(double number) {
    constexpr int places = 6;
    if (std::isnan(number)) {
        return u"nan";
    }
    return written(number, std::chars_format::fixed, places);
}

std::u16string addressText(const void* object) {
    constexpr int hexadecimal = 16;
    if (object == nullptr) {
        return u"(nil)";
    }
    return u"0x" + written(reinterpret_cast<std::uintptr_t>(object), hexadecimal);
}
