#include "terminal/Options.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using Arguments = std::vector<std::string>;
using Action = Options::Action;

struct EquationsCase {
    const char* name;
    Arguments arguments;
    Arguments equations;
};
void PrintTo(const EquationsCase& row, std::ostream* out) { *out << testing::PrintToString(row.arguments); }
class EquationArguments : public testing::TestWithParam<EquationsCase> {};

TEST_P(EquationArguments, areTakenWhole) {
    const Options options = Options::parse(GetParam().arguments);
    EXPECT_EQ(options.action, Action::calculate) << options.complaint;
    EXPECT_EQ(options.equations, GetParam().equations);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Options, EquationArguments, testing::Values(
    EquationsCase{"None",                 {},                                {}},
    EquationsCase{"InOrder",              {"x=3", "x^2"},                    {"x=3", "x^2"}},
    EquationsCase{"MinusInFront",         {"-x+3"},                          {"-x+3"}},
    EquationsCase{"LooksLikeAShortOption", {"-h", "-f", "-5"},               {"-h", "-f", "-5"}},
    EquationsCase{"Minus",                {"-"},                             {"-"}},
    EquationsCase{"Brackets",             {"[2,3]", "{2,3}"},                {"[2,3]", "{2,3}"}},
    EquationsCase{"NoResponseFile",       {"@x"},                            {"@x"}},
    EquationsCase{"Blanks",               {"2 + 3"},                         {"2 + 3"}},
    EquationsCase{"EmptyStaysAnEquation", {""},                              {""}},
    EquationsCase{"BetweenOptions",       {"1", "--degrees", "2", "--format", "octal", "3"}, {"1", "2", "3"}},
    EquationsCase{"BehindTheEndOfOptions", {"--", "--degrees", "--5"},       {"--degrees", "--5"}},
    EquationsCase{"SecondEndOfOptions",   {"--", "--", "5"},                 {"--", "5"}},
    EquationsCase{"NothingBehindTheEnd",  {"--"},                            {}},
    EquationsCase{"EndBehindAnEquation",  {"1", "--", "-2"},                 {"1", "-2"}}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(Options, areDecimalWithAutomaticDigitsInRadiansWhenNoneIsGiven) {
    const SessionSettings session = Options::parse({}).session;
    EXPECT_TRUE(session.useRadians);
    EXPECT_FALSE(session.showsHistory);
    EXPECT_EQ(session.numbers.description(), TXNumberFormatterSettings().description());
}

/// What the options say, in a form that can be compared.
struct Choice {
    bool useRadians = true;
    bool showsHistory = false;
    int format = TXFormattingType::decimal;
    int significantFigures = -1;
    int decimalPlaces = -1;
    std::u16string separator = {};  ///< Empty for none.
    bool addsZeros = true;

    bool operator==(const Choice&) const = default;
};

Choice choiceOf(const SessionSettings& session) {
    const TXNumberFormatterSettings& numbers = session.numbers;
    return {session.useRadians,
            session.showsHistory,
            numbers.formattingType(),
            numbers.significantFigures(),
            numbers.decimalPlaces(),
            numbers.thousandsSeparators() ? numbers.thousandsCharacter() : std::u16string(),
            numbers.addZerosInDecimalMode()};
}

struct ChoiceCase {
    const char* name;
    Arguments arguments;
    Choice choice;
};
void PrintTo(const ChoiceCase& row, std::ostream* out) { *out << testing::PrintToString(row.arguments); }
class OptionChoices : public testing::TestWithParam<ChoiceCase> {};

TEST_P(OptionChoices, areMade) {
    const Options options = Options::parse(GetParam().arguments);
    EXPECT_EQ(options.action, Action::calculate) << options.complaint;
    EXPECT_TRUE(options.equations.empty());
    EXPECT_TRUE(choiceOf(options.session) == GetParam().choice);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Options, OptionChoices, testing::Values(
    ChoiceCase{"Degrees",            {"--degrees"},                    {.useRadians = false}},
    ChoiceCase{"History",            {"--history"},                    {.showsHistory = true}},
    ChoiceCase{"Decimal",            {"--format", "decimal"},          {.format = 1}},
    ChoiceCase{"Scientific",         {"--format", "scientific"},       {.format = 2}},
    ChoiceCase{"Engineering",        {"--format", "engineering"},      {.format = 3}},
    ChoiceCase{"Percent",            {"--format", "percent"},          {.format = 4}},
    ChoiceCase{"Binary",             {"--format", "binary"},           {.format = 5}},
    ChoiceCase{"Octal",              {"--format", "octal"},            {.format = 6}},
    ChoiceCase{"Hexadecimal",        {"--format", "hexadecimal"},      {.format = 7}},
    ChoiceCase{"ValueBehindEquals",  {"--format=octal"},               {.format = 6}},
    ChoiceCase{"LaterValueCounts",   {"--format=octal", "--format=binary"}, {.format = 5}},
    ChoiceCase{"FewestFigures",      {"--significant-figures", "1"},   {.significantFigures = 1}},
    ChoiceCase{"MostFigures",        {"--significant-figures=10"},     {.significantFigures = 10}},
    ChoiceCase{"LaterFiguresCount",  {"--significant-figures=10", "--significant-figures=2"}, {.significantFigures = 2}},
    ChoiceCase{"FewestPlaces",       {"--decimal-places", "0"},        {.decimalPlaces = 0}},
    ChoiceCase{"MostPlaces",         {"--decimal-places=10"},          {.decimalPlaces = 10}},
    ChoiceCase{"NoZeros",            {"--no-zeros"},                   {.addsZeros = false}},
    ChoiceCase{"Comma",              {"--thousands", ","},             {.separator = u","}},
    ChoiceCase{"CommaBehindEquals",  {"--thousands=,"},                {.separator = u","}},
    ChoiceCase{"Blank",              {"--thousands", " "},             {.separator = u" "}},
    ChoiceCase{"BlankBehindEquals",  {"--thousands= "},                {.separator = u" "}},
    ChoiceCase{"Apostrophe",         {"--thousands", "'"},             {.separator = u"'"}},
    ChoiceCase{"SwitchesTwice",      {"--degrees", "--degrees"},       {.useRadians = false}}
), [](const auto& test) { return test.param.name; });
// clang-format on

struct ComplaintCase {
    const char* name;
    Arguments arguments;
    const char* complaint;
};
void PrintTo(const ComplaintCase& row, std::ostream* out) { *out << testing::PrintToString(row.arguments); }
class WrongUsage : public testing::TestWithParam<ComplaintCase> {};

TEST_P(WrongUsage, isToldWithTheOption) {
    const Options options = Options::parse(GetParam().arguments);
    EXPECT_EQ(options.action, Action::complain);
    EXPECT_EQ(options.complaint, GetParam().complaint);
}

constexpr const char* figuresRange = "the argument for option '--significant-figures' must be a number from 1 to 10";
constexpr const char* placesRange = "the argument for option '--decimal-places' must be a number from 0 to 10";
constexpr const char* separators = "the argument for option '--thousands' must be a comma, a blank or an apostrophe";
constexpr const char* formatNames =
    "the argument for option '--format' must be one of decimal, scientific, engineering, percent, binary, octal, "
    "hexadecimal";
constexpr const char* bothDigits = "the options '--significant-figures' and '--decimal-places' exclude each other";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Options, WrongUsage, testing::Values(
    ComplaintCase{"UnknownOption",      {"--radians"},               "unrecognised option '--radians'"},
    ComplaintCase{"LooksLikeANumber",   {"--5"},                     "unrecognised option '--5'"},
    ComplaintCase{"NoAbbreviations",    {"--deg"},                   "unrecognised option '--deg'"},
    ComplaintCase{"CaseCounts",         {"--Degrees"},               "unrecognised option '--Degrees'"},
    ComplaintCase{"NameIsAPlaceForAName", {"--%canonical_option%"},  "unrecognised option '--%canonical_option%'"},
    ComplaintCase{"NameHoldsAPlace",    {"--a%canonical_option%b=1"}, "unrecognised option '--a%canonical_option%b=1'"},
    ComplaintCase{"NameIsAnyPlace",     {"--%original_token%"},      "unrecognised option '--%original_token%'"},
    ComplaintCase{"NameIsAPlaceWithoutValue", {"--%canonical_option%="},
                  "the argument for option '--%canonical_option%' should follow immediately after the equal sign"},
    ComplaintCase{"ValueIsAPlace",      {"--degrees=%canonical_option%"}, "option '--degrees' does not take any arguments"},
    ComplaintCase{"SwitchWithAValue",   {"--degrees=yes"},           "option '--degrees' does not take any arguments"},
    ComplaintCase{"HelpWithAValue",     {"--help=me"},               "option '--help' does not take any arguments"},
    ComplaintCase{"NoFormat",           {"--format"},                "the required argument for option '--format' is missing"},
    ComplaintCase{"NextArgumentIsTheFormat",   {"--format", "--history"},   formatNames},
    ComplaintCase{"UnknownFormat",      {"--format", "roman"},       formatNames},
    ComplaintCase{"FormatCaseCounts",   {"--format", "Octal"},       formatNames},
    ComplaintCase{"FormatIsWhole",      {"--format", "dec"},         formatNames},
    ComplaintCase{"EmptyFormat",        {"--format", ""},            formatNames},
    ComplaintCase{"EarlierFormat",      {"--format=roman", "--format=octal"}, formatNames},
    ComplaintCase{"NoFigures",          {"--significant-figures", "0"},  figuresRange},
    ComplaintCase{"TooManyFigures",     {"--significant-figures", "11"}, figuresRange},
    ComplaintCase{"FiguresOverflow",    {"--significant-figures", "4294967297"}, figuresRange},
    ComplaintCase{"EmptyFigures",       {"--significant-figures", ""},   figuresRange},
    ComplaintCase{"FiguresWithMore",    {"--significant-figures", "3x"}, figuresRange},
    ComplaintCase{"BlankBeforeFigures", {"--significant-figures", " 3"}, figuresRange},
    ComplaintCase{"NegativePlaces",     {"--decimal-places", "-1"},      placesRange},
    ComplaintCase{"TooManyPlaces",      {"--decimal-places", "11"},      placesRange},
    ComplaintCase{"BrokenPlaces",       {"--decimal-places", "1.5"},     placesRange},
    ComplaintCase{"FiguresThenPlaces",  {"--significant-figures=3", "--decimal-places=2"}, bothDigits},
    ComplaintCase{"PlacesThenFigures",  {"--decimal-places=0", "--significant-figures=3"}, bothDigits},
    ComplaintCase{"NoSeparator",        {"--thousands"},  "the required argument for option '--thousands' is missing"},
    ComplaintCase{"EmptySeparator",     {"--thousands", ""},         separators},
    ComplaintCase{"Point",              {"--thousands", "."},        separators},
    ComplaintCase{"TwoCommas",          {"--thousands", ",,"},       separators},
    ComplaintCase{"NoBreakSpace",       {"--thousands", "\xC2\xA0"}, separators},
    ComplaintCase{"NothingBehindEquals", {"--thousands="},
                  "the argument for option '--thousands' should follow immediately after the equal sign"},
    ComplaintCase{"MistakeBehindAnEquation", {"2+3", "--bogus"},     "unrecognised option '--bogus'"},
    ComplaintCase{"MistakeBesideHelp",  {"--help", "--bogus"},       "unrecognised option '--bogus'"}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(Options, showHelpOrVersionWhicheverComesFirst) {
    EXPECT_EQ(Options::parse({"--help"}).action, Action::showHelp);
    EXPECT_EQ(Options::parse({"--version"}).action, Action::showVersion);
    EXPECT_EQ(Options::parse({"2+3", "--version", "--help"}).action, Action::showVersion);
    EXPECT_EQ(Options::parse({"--help", "--format", "roman"}).action, Action::showHelp);
    EXPECT_EQ(Options::parse({"--", "--help"}).action, Action::calculate);
}

TEST(Options, helpNamesEveryOptionAndFitsTheScreen) {
    const std::string_view help = Options::helpText();
    for (const char* const option : {"--degrees", "--format FORMAT", "--significant-figures N", "--decimal-places N",
                                     "--thousands CHARACTER", "--no-zeros", "--history", "--help", "--version"}) {
        EXPECT_THAT(std::string(help), testing::HasSubstr(std::string("  ") + option));
    }
    std::size_t begin = 0;
    for (std::size_t end = help.find('\n'); end != std::string_view::npos; end = help.find('\n', begin)) {
        EXPECT_LE(end - begin, 80U) << help.substr(begin, end - begin);
        begin = end + 1;
    }
    EXPECT_EQ(begin, help.size()) << "the last line has an end";
}

}  // namespace
