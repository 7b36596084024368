#include "engine/records/filled.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

struct FilledCase {
    const char* name;
    std::u16string text;
    std::u16string_view expected;
};

TEST(Filled, putsThePartsInTheirPlaces) {
    // clang-format off
    const FilledCase rows[] = {
        {"nothing",                 filled(u"", {}),                                u""},
        {"no mark",                 filled(u"plain", {}),                           u"plain"},
        {"a string",                filled(u"[%@]", {u"abc"}),                      u"[abc]"},
        {"a character",             filled(u"[%C]", {u"^"}),                        u"[^]"},
        {"an integer",              filled(u"[%d]", {u"-1"}),                       u"[-1]"},
        {"a real number",           filled(u"[%f]", {u"0.500000"}),                 u"[0.500000]"},
        {"an address",              filled(u"[%p]", {u"0x55"}),                     u"[0x55]"},
        {"only a mark",             filled(u"%@", {u"abc"}),                        u"abc"},
        {"parts in order",          filled(u"%C after %C, %@", {u"*", u"+", u"z"}), u"* after +, z"},
        {"marks side by side",      filled(u"%@%@", {u"a", u"b"}),                  u"ab"},
        {"an empty part",           filled(u"%@()", {u""}),                         u"()"},
        {"a mark without a part",   filled(u"%@ and %@.", {u"a"}),                  u"a and ."},
        {"more parts than marks",   filled(u"%@", {u"a", u"b"}),                    u"a"},
        {"another letter stays",    filled(u"%x %s 5%", {u"a"}),                    u"%x %s 5%"},
        {"two percent signs stay",  filled(u"%%", {u"a"}),                          u"%%"},
        {"lower case c stays",      filled(u"%c", {u"a"}),                          u"%c"},
        {"a part is not filled in", filled(u"%@ %@", {u"%@", u"b"}),                u"%@ b"},
        {"a lone surrogate",        filled(u"%C!", {u"\xD800"}),                    u"\xD800!"},
    };
    // clang-format on
    for (const FilledCase& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.text, row.expected);
    }
}

TEST(Filled, longPartsAreTakenWhole) {
    const std::u16string part(100'000, u'x');
    EXPECT_EQ(filled(u"<%@>", {part}), u"<" + part + u">");
}

TEST(CharacterText, isTheOneCharacter) {
    const char16_t character = u'±';
    EXPECT_EQ(characterText(character), u"±");
    const char16_t zero = u'\0';
    EXPECT_EQ(characterText(zero).size(), 1U);
}

}  // namespace
