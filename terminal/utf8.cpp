#include "terminal/utf8.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

constexpr bool isSurrogate(char16_t unit) { return isHighSurrogate(unit) || isLowSurrogate(unit); }

constexpr bool isAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

void appendCodePoint(char32_t codePoint, std::string& bytes) {
    const auto leading = [&bytes](char32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    const auto following = [&bytes](char32_t bits) { bytes.push_back(static_cast<char>(0x80 | (bits & 0x3F))); };
    if (codePoint < 0x80) {
        leading(codePoint);
    } else if (codePoint < 0x800) {
        leading(0xC0 | (codePoint >> 6));
        following(codePoint);
    } else if (codePoint < 0x10000) {
        leading(0xE0 | (codePoint >> 12));
        following(codePoint >> 6);
        following(codePoint);
    } else {
        leading(0xF0 | (codePoint >> 18));
        following(codePoint >> 12);
        following(codePoint >> 6);
        following(codePoint);
    }
}

}  // namespace

Utf8Decoder::Step Utf8Decoder::take(unsigned char byte) {
    if (missing_ == 0) return takeFirst(byte);
    if (byte < lowest_ || byte > highest_) {
        missing_ = 0;
        return Step::illFormedBefore;
    }
    lowest_ = 0x80;
    highest_ = 0xBF;
    codePoint_ = (codePoint_ << 6) | (byte & 0x3FU);
    --missing_;
    return missing_ > 0 ? Step::more : Step::complete;
}

// The bounds of the second byte keep out what could be written shorter, the surrogates, and what lies beyond U+10FFFF.
Utf8Decoder::Step Utf8Decoder::takeFirst(unsigned char byte) {
    if (byte < 0x80) {
        codePoint_ = byte;
        return Step::complete;
    }
    if (byte < 0xC2 || byte > 0xF4) return Step::illFormed;
    lowest_ = 0x80;
    highest_ = 0xBF;
    if (byte < 0xE0) {
        missing_ = 1;
        codePoint_ = byte & 0x1FU;
    } else if (byte < 0xF0) {
        missing_ = 2;
        codePoint_ = byte & 0x0FU;
        if (byte == 0xE0) lowest_ = 0xA0;
        if (byte == 0xED) highest_ = 0x9F;
    } else {
        missing_ = 3;
        codePoint_ = byte & 0x07U;
        if (byte == 0xF0) lowest_ = 0x90;
        if (byte == 0xF4) highest_ = 0x8F;
    }
    return Step::more;
}

void appendUtf16(char32_t codePoint, std::u16string& text) {
    if (codePoint < 0x10000) {
        text.push_back(static_cast<char16_t>(codePoint));
        return;
    }
    const char32_t offset = codePoint - 0x10000;
    text.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
}

void appendUtf16(std::string_view bytes, std::u16string& text) {
    Utf8Decoder decoder;
    for (const auto* at = bytes.begin(); at != bytes.end();) {
        if (!decoder.isPending()) {
            // Equations are ASCII almost everywhere.
            const auto* const end = std::find_if_not(at, bytes.end(), isAscii);
            text.append(at, end);
            at = end;
            if (at == bytes.end()) break;
        }
        const Utf8Decoder::Step step = decoder.take(static_cast<unsigned char>(*at));
        if (step == Utf8Decoder::Step::complete) appendUtf16(decoder.codePoint(), text);
        if (step == Utf8Decoder::Step::illFormed) appendUtf16(replacementCharacter, text);
        if (step == Utf8Decoder::Step::illFormedBefore) {
            appendUtf16(replacementCharacter, text);
        } else {
            ++at;
        }
    }
    if (decoder.isPending()) appendUtf16(replacementCharacter, text);
}

std::u16string toUtf16(std::string_view bytes) {
    std::u16string text;
    appendUtf16(bytes, text);
    return text;
}

void appendUtf8(std::u16string_view text, std::string& bytes) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (isHighSurrogate(unit) && at + 1 < text.size() && isLowSurrogate(text[at + 1])) {
            ++at;
            appendCodePoint(0x10000 + ((unit - 0xD800U) << 10) + (text[at] - 0xDC00U), bytes);
        } else {
            appendCodePoint(isSurrogate(unit) ? replacementCharacter : char32_t{unit}, bytes);
        }
    }
}

std::string toUtf8(std::u16string_view text) {
    std::string bytes;
    appendUtf8(text, bytes);
    return bytes;
}
