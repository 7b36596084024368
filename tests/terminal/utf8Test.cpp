#include "terminal/utf8.h"

#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

struct DecodingCase {
    const char* name;
    std::string_view bytes;
    std::u16string_view text;
};
void PrintTo(const DecodingCase& row, std::ostream* out) { *out << row.name; }
class Utf8Decoding : public testing::TestWithParam<DecodingCase> {};

TEST_P(Utf8Decoding, givesTheText) { EXPECT_EQ(toUtf16(GetParam().bytes), GetParam().text); }

// clang-format off
INSTANTIATE_TEST_SUITE_P(WellFormed, Utf8Decoding, testing::Values(
    DecodingCase{"Nothing",            ""sv,                             u""sv},
    DecodingCase{"Ascii",              "2+3"sv,                          u"2+3"sv},
    DecodingCase{"NulIsACharacter",    "2\0003"sv,                       u"2\0003"sv},
    DecodingCase{"FirstOfTwoBytes",    "\xC2\x80"sv,                     u"\u0080"sv},
    DecodingCase{"LastOfTwoBytes",     "\xDF\xBF"sv,                     u"\u07FF"sv},
    DecodingCase{"FirstOfThreeBytes",  "\xE0\xA0\x80"sv,                 u"\u0800"sv},
    DecodingCase{"BeforeSurrogates",   "\xED\x9F\xBF"sv,                 u"\uD7FF"sv},
    DecodingCase{"BehindSurrogates",   "\xEE\x80\x80"sv,                 u"\uE000"sv},
    DecodingCase{"LastOfThreeBytes",   "\xEF\xBF\xBF"sv,                 u"\uFFFF"sv},
    DecodingCase{"FirstOfFourBytes",   "\xF0\x90\x80\x80"sv,             u"\U00010000"sv},
    DecodingCase{"LastOfAll",          "\xF4\x8F\xBF\xBF"sv,             u"\U0010FFFF"sv},
    DecodingCase{"MarkIsACharacter",   "\xEF\xBB\xBF""2"sv,              u"\uFEFF""2"sv},
    DecodingCase{"Mixed",              "5\xC2\xB1""0.1\xE2\x8B\x85\xCF\x80"sv, u"5\u00B10.1\u22C5\u03C0"sv}
), [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(IllFormed, Utf8Decoding, testing::Values(
    DecodingCase{"LoneContinuation",           "\x80"sv,                 u"\uFFFD"sv},
    DecodingCase{"EachContinuationByItself",   "\x80\xBF"sv,             u"\uFFFD\uFFFD"sv},
    DecodingCase{"NeverInUtf8",                "\xFE\xFF"sv,             u"\uFFFD\uFFFD"sv},
    DecodingCase{"OverlongOfTwo",              "\xC0\xAF"sv,             u"\uFFFD\uFFFD"sv},
    DecodingCase{"OverlongOfThree",            "\xE0\x80\xAF"sv,         u"\uFFFD\uFFFD\uFFFD"sv},
    DecodingCase{"OverlongOfFour",             "\xF0\x80\x80\xAF"sv,     u"\uFFFD\uFFFD\uFFFD\uFFFD"sv},
    DecodingCase{"EncodedSurrogate",           "\xED\xA0\x80"sv,         u"\uFFFD\uFFFD\uFFFD"sv},
    DecodingCase{"BeyondUnicode",              "\xF4\x90\x80\x80"sv,     u"\uFFFD\uFFFD\uFFFD\uFFFD"sv},
    DecodingCase{"FiveByteLead",               "\xF5\x80"sv,             u"\uFFFD\uFFFD"sv},
    DecodingCase{"CutShortAtTheEnd",           "2\xE2\x8B"sv,            u"2\uFFFD"sv},
    DecodingCase{"CutShortByAscii",            "\xE2\x8B+"sv,            u"\uFFFD+"sv},
    DecodingCase{"FourBytesCutShortAreOne",    "\xF0\x9F\x98+"sv,        u"\uFFFD+"sv},
    DecodingCase{"CutShortByALead",            "\xE2\x8B\xC2\xB1"sv,     u"\uFFFD\u00B1"sv},
    DecodingCase{"LeadBesideLead",             "\xC2\xC2\xB1"sv,         u"\uFFFD\u00B1"sv},
    DecodingCase{"CutShortByAnInvalidByte",    "\xE2\xFF"sv,             u"\uFFFD\uFFFD"sv},
    DecodingCase{"MaximalSubparts",            "a\xF1\x80\x80\xE1\x80\xC2""b\x80""c\x80\xBF""d"sv,
                                               u"a\uFFFD\uFFFD\uFFFDb\uFFFDc\uFFFD\uFFFDd"sv}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(Utf8Encoding, givesTheBytes) {
    // Lone surrogates cannot be written as literals.
    const std::u16string high(1, char16_t{0xD83D});
    const std::u16string low(1, char16_t{0xDE00});
    const struct {
        const char* name;
        std::u16string text;
        std::string bytes;
    } rows[] = {
        {"nothing", u"", ""},
        {"ASCII", u"2+3", "2+3"},
        {"NUL", std::u16string(1, u'\0'), "\0"s},
        {"the last of one byte", u"\u007F", "\x7F"},
        {"the first of two bytes", u"\u0080", "\xC2\x80"},
        {"the last of two bytes", u"\u07FF", "\xDF\xBF"},
        {"the first of three bytes", u"\u0800", "\xE0\xA0\x80"},
        {"the last of three bytes", u"\uFFFF", "\xEF\xBF\xBF"},
        {"a pair of surrogates", u"\U0001F600", "\xF0\x9F\x98\x80"},
        {"the first pair", u"\U00010000", "\xF0\x90\x80\x80"},
        {"the last pair", u"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
        {"a high surrogate at the end", u"2" + high, "2\xEF\xBF\xBD"},
        {"a high surrogate before a character", high + u"2",
         "\xEF\xBF\xBD"
         "2"},
        {"two high surrogates before a low one", high + high + low, "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
        {"a low surrogate", low, "\xEF\xBF\xBD"},
        {"surrogates the wrong way round", low + high, "\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(toUtf8(row.text), row.bytes);
    }
}

TEST(Utf8, comesBackForEveryCodePoint) {
    std::u16string text;
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint < 0xD800 || codePoint > 0xDFFF) appendUtf16(codePoint, text);
    }
    EXPECT_TRUE(toUtf16(toUtf8(text)) == text);
}

TEST(Utf8, isAddedToWhatIsThere) {
    std::u16string text = u"a";
    appendUtf16("\xC2\xB1", text);
    EXPECT_EQ(text, u"a\u00B1");
    std::string bytes = "a";
    appendUtf8(u"\u00B1", bytes);
    EXPECT_EQ(bytes, "a\xC2\xB1");
}

TEST(Utf8Decoder, saysWhereAnErrorEnds) {
    Utf8Decoder decoder;
    EXPECT_EQ(decoder.take(0xE2), Utf8Decoder::Step::more);
    EXPECT_TRUE(decoder.isPending());
    EXPECT_EQ(decoder.take('+'), Utf8Decoder::Step::illFormedBefore);
    EXPECT_FALSE(decoder.isPending());
    EXPECT_EQ(decoder.take('+'), Utf8Decoder::Step::complete);
    EXPECT_EQ(decoder.codePoint(), U'+');
    EXPECT_EQ(decoder.take(0x80), Utf8Decoder::Step::illFormed);
}

}  // namespace
