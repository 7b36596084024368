#pragma once

#include <string>
#include <string_view>

/// Puts UTF-8 together byte by byte, as bytes come from a keyboard or a file.
///
///     decoder.take(0xC2)  // Step::more
///     decoder.take(0xB1)  // Step::complete, and codePoint() is U+00B1
///
/// What is ill-formed is divided as Unicode recommends: each maximal subpart of a sequence is one error.
class Utf8Decoder {
public:
    enum class Step {
        more,             ///< The sequence goes on.
        complete,         ///< `codePoint()` is ready.
        illFormed,        ///< One error, which ends with this byte.
        illFormedBefore,  ///< One error, which ended before this byte: take the byte again.
    };

    Step take(unsigned char byte);

    /// The code point of the sequence that was completed last.
    char32_t codePoint() const { return codePoint_; }
    /// Whether a sequence has begun and is not complete.
    bool isPending() const { return missing_ > 0; }

private:
    Step takeFirst(unsigned char byte);

    char32_t codePoint_ = 0;
    int missing_ = 0;  ///< Bytes that the sequence still needs.
    // Where the next byte of the sequence must lie.
    unsigned char lowest_ = 0x80;
    unsigned char highest_ = 0xBF;
};

/// What stands for text that cannot be told.
inline constexpr char32_t replacementCharacter = U'\uFFFD';

/// Adds UTF-8 bytes to a text as UTF-16. Every error in them becomes one U+FFFD.
void appendUtf16(std::string_view bytes, std::u16string& text);
/// Adds one code point to a text.
void appendUtf16(char32_t codePoint, std::u16string& text);
std::u16string toUtf16(std::string_view bytes);

/// Adds a UTF-16 text to bytes as UTF-8. A lone surrogate becomes U+FFFD.
void appendUtf8(std::u16string_view text, std::string& bytes);
std::string toUtf8(std::u16string_view text);
