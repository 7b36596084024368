#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The UTF-8 of a text, for what a test prints. A lone surrogate becomes U+FFFD.
inline std::string utf8(std::u16string_view text) {
    const auto isBetween = [](char32_t code, char32_t first, char32_t last) { return code >= first && code <= last; };
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        char32_t code = text[at];
        if (isBetween(code, 0xD800, 0xDBFF) && at + 1 < text.size() && isBetween(text[at + 1], 0xDC00, 0xDFFF)) {
            ++at;
            code = 0x10000 + ((code - 0xD800) << 10U) + (char32_t{text[at]} - 0xDC00);
        } else if (isBetween(code, 0xD800, 0xDFFF)) {
            code = 0xFFFD;
        }
        const auto tail = [&](unsigned shift) { bytes += static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
        if (code < 0x80) {
            bytes += static_cast<char>(code);
        } else if (code < 0x800) {
            bytes += static_cast<char>(0xC0U | (code >> 6U));
            tail(0);
        } else if (code < 0x10000) {
            bytes += static_cast<char>(0xE0U | (code >> 12U));
            tail(6);
            tail(0);
        } else {
            bytes += static_cast<char>(0xF0U | (code >> 18U));
            tail(12);
            tail(6);
            tail(0);
        }
    }
    return bytes;
}
