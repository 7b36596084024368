#include "terminal/Session.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace {

struct MiniFormCase {
    const char* name;
    std::vector<std::string_view> lines;  ///< The last one's answer is looked at.
    const char* answer;
};
void PrintTo(const MiniFormCase& row, std::ostream* out) { *out << row.lines.back(); }
class MiniForm : public testing::TestWithParam<MiniFormCase> {};

TEST_P(MiniForm, isTheAnswer) {
    Session session({});
    const Reply* reply = nullptr;
    for (const std::string_view line : GetParam().lines) reply = session.enter(line);
    ASSERT_NE(reply, nullptr);
    EXPECT_EQ(reply->lead, "");
    EXPECT_EQ(reply->answer, GetParam().answer);
    EXPECT_EQ(reply->isError, reply->answer.starts_with("Error: "));
    EXPECT_EQ(session.hasErrors(), reply->isError);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Session, MiniForm, testing::Values(
    MiniFormCase{"Number",                 {"2+3"},                         "5"},
    MiniFormCase{"BlanksAroundTheLine",    {" \t2+3\xE2\x80\x89"},          "5"},
    MiniFormCase{"Assignment",             {"x=2+3*4"},                     "x = 14"},
    MiniFormCase{"NameComesFromTheList",   {"  x  =4"},                     "x = 4"},
    MiniFormCase{"GreekName",              {"\xCF\x89=2"},                  "\xCF\x89 = 2"},
    MiniFormCase{"Error",                  {"2+"},                          "Error: The equation cannot end with a +."},
    MiniFormCase{"UndefinedVariable",      {"x"},   "Error: The equation contains an undefined variable: x."},
    MiniFormCase{"LatestAnswer",           {"2+3", "ans*2"},                "10"},
    MiniFormCase{"VariablesStay",          {"x=3", "y=x^2", "y+1"},         "10"},
    MiniFormCase{"RadiansAtFirst",         {"cos(pi)"},                     "-1"},
    MiniFormCase{"Infinity",               {"1/0"},                         "inf"},
    MiniFormCase{"Formatted",              {"0.1+0.2"},                     "0.3"},
    MiniFormCase{"CommentsAreNone",        {"//x"},       "Error: / can't come right after a /"},
    MiniFormCase{"InvalidUtf8",            {"$\xE2\x8B"},  "Error: Invalid variable name: $\xEF\xBF\xBD"},
    MiniFormCase{"EncodedSurrogate",       {"$\xED\xA0\x80"},
                 "Error: Invalid variable name: $\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(Session, hasNoReplyToABlankLine) {
    Session session({});
    for (const std::string_view line : {"", " ", "\t", "\xC2\xA0", "\xE3\x80\x80"}) {
        EXPECT_EQ(session.enter(line), nullptr);
    }
    EXPECT_FALSE(session.hasErrors());
    EXPECT_TRUE(session.equationController().equationsArray().empty());
}

TEST(Session, writesALoneSurrogateAsReplacement) {
    Session session({});
    const std::u16string line = {u'$', char16_t{0xD800}};
    const Reply* const reply = session.enter(std::u16string_view(line));
    ASSERT_NE(reply, nullptr);
    EXPECT_EQ(reply->answer, "Error: Invalid variable name: $\xEF\xBF\xBD");
}

TEST(Session, remembersThatThereWasAnError) {
    Session session({});
    session.enter(std::string_view("2+"));
    session.enter(std::string_view("2+3"));
    EXPECT_TRUE(session.hasErrors());
}

TEST(Session, calculatesInDegrees) {
    Session session({.useRadians = false, .showsHistory = false, .numbers = {}});
    EXPECT_EQ(session.enter(std::string_view("sin(30)"))->answer, "0.5");
    EXPECT_EQ(session.enter(std::string_view("acos(-1)"))->answer, "180");
}

TEST(Session, writesNumbersAsItsSettingsSay) {
    TXNumberFormatterSettings numbers;
    numbers.setDecimalPlaces(2);
    numbers.setThousandsSeparators(true);
    Session session({.useRadians = true, .showsHistory = false, .numbers = numbers});
    EXPECT_EQ(session.enter(std::string_view("x=12345/4"))->answer, "x = 3,086.25");
}

/// All the text of a session that shows its history.
std::string historyOf(const std::vector<std::string_view>& lines) {
    Session session({.useRadians = true, .showsHistory = true, .numbers = {}});
    std::string history;
    for (const std::string_view line : lines) {
        if (const Reply* const reply = session.enter(line)) history += reply->lead + reply->answer + "\n";
    }
    return history;
}

TEST(SessionHistory, putsEachAnswerBelowItsEquation) {
    EXPECT_EQ(historyOf({"2+3"}), "2+3\n\t= 5\n");
    EXPECT_EQ(historyOf({"x=4"}), "x=4\n\tx = 4\n");
    EXPECT_EQ(historyOf({"2+"}), "2+\n\tError: The equation cannot end with a +.\n");
}

TEST(SessionHistory, putsABlankLineBeforeEveryEntryAfterTheFirst) {
    EXPECT_EQ(historyOf({"2+3", "x=4", "2+", "7"}),
              "2+3\n\t= 5\n"
              "\n"
              "x=4\n\tx = 4\n"
              "\n"
              "2+\n\tError: The equation cannot end with a +.\n"
              "\n"
              "7\n\t= 7\n");
}

TEST(SessionHistory, takesNoNoticeOfBlankLines) {
    EXPECT_EQ(historyOf({"", "2+3", " ", "4"}), "2+3\n\t= 5\n\n4\n\t= 4\n");
}

TEST(SessionHistory, showsTheEquationAsTheSessionKeepsIt) {
    EXPECT_EQ(historyOf({" 2+3 ", "ans*2"}), "2+3\n\t= 5\n\nans1*2\n\t= 10\n");
}

}  // namespace
