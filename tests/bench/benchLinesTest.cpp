#include "bench/benchLines.h"

#include <cmath>
#include <regex>

#include <gtest/gtest.h>

#include "bench/TallixSession.h"

namespace {

struct FamilyCase {
    const char* name;
    LineFamily family;
    std::array<const char*, 5> firstLines;
    const char* shape;
};
void PrintTo(const FamilyCase& row, std::ostream* out) { *out << row.name; }

class LineFamilies : public testing::TestWithParam<FamilyCase> {};

TEST_P(LineFamilies, beginWithTheSameLinesEverywhere) {
    const auto& expected = GetParam().firstLines;
    EXPECT_EQ(benchLines(GetParam().family, expected.size()),
              std::vector<std::string>(expected.begin(), expected.end()));
}

TEST_P(LineFamilies, keepTheirShape) {
    const std::regex shape(GetParam().shape);
    for (const std::string& line : benchLines(GetParam().family, 2000)) {
        EXPECT_TRUE(std::regex_match(line, shape)) << line;
    }
}

TEST_P(LineFamilies, haveFiniteAnswers) {
    TXEquationController controller;
    for (const std::string& line : benchLines(GetParam().family, 2000)) {
        const TXResult* const result = controller.addOneStringBlindly(utf16Line(line));
        ASSERT_TRUE(result != nullptr && !result->isErrorMessage()) << line;
        EXPECT_TRUE(std::isfinite(result->number())) << line;
    }
}

TEST_P(LineFamilies, areFoundByTheirNames) {
    EXPECT_EQ(lineFamilyNamed(lineFamilyNames[static_cast<std::size_t>(GetParam().family)]), GetParam().family);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, LineFamilies, testing::Values(
    FamilyCase{"Arithmetic", LineFamily::arithmetic,
               {"19.4*(3+4.5)^7+7/3", "52.4*(1+4.5)^4+7*5", "48.6/(8+3.5)^1+7*8", "99.3/(6-8.5)^7+2*3", "24.2/(8-8.5)^3-2*7"},
               R"(\d?\d\.[1-9][*/]\([1-9][+-][1-9]\.5\)\^[1-9][+-][1-9][*/][1-9])"},
    FamilyCase{"Functions", LineFamily::functions,
               {"sqrt(0.2)+sin(7)*atan(2)", "cbrt(4)+atan(4)*exp(7)", "tan(0.7)-cos(0.6)*ln(9)", "x0=1.7", "ln(5)-cos(3)*sqrt(7)"},
               R"([a-z]+\((0\.)?[1-9]\)[+-][a-z]+\((0\.)?[1-9]\)\*[a-z]+\((0\.)?[1-9]\)|x0=1\.[1-9]|x[1-9]?\d=x[1-9]?\d\*1\.[1-9])"},
    FamilyCase{"Trivial", LineFamily::trivial,
               {"8+2", "3*4", "7+7", "2*1", "4+1"},
               R"([1-9][+*-][1-9])"},
    FamilyCase{"Variables", LineFamily::variables,
               {"v000000=1.8", "v000001=v000000+1.4", "v000002=v000001+1.2", "v000003=v000002+1.3", "v000004=v000003+1.9"},
               R"(v\d{6}=(v\d{6}\+)?1\.[1-9])"}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(BenchLines, areOfNoOtherFamily) { EXPECT_EQ(lineFamilyNamed("arithmetics"), std::nullopt); }

TEST(BenchLines, assignInEveryFourthLineToTheNamesInTurn) {
    const auto lines = benchLines(LineFamily::functions, 804);
    for (std::size_t line = 0; line < lines.size(); ++line) {
        const std::size_t variable = line / 4 % 100;
        const std::string start = "x" + std::to_string(variable) + "=";
        const std::string source = variable == 0 ? "1." : "x" + std::to_string(variable - 1) + "*1.";
        EXPECT_EQ(lines[line].starts_with(start + source), line % 4 == 3) << lines[line];
    }
}

// Without x0 set anew the products would leave the range of doubles after some rounds.
TEST(BenchLines, multiplyAlongTheNamesAndBeginAnew) {
    TXEquationController controller;
    double product = 1.0;
    std::size_t assignments = 0;
    for (const std::string& line : benchLines(LineFamily::functions, 1000)) {
        const double answer = controller.addOneStringBlindly(utf16Line(line))->number();
        if (line.front() != 'x') continue;
        const double factor = std::stod(line.substr(line.size() - 3));
        product = assignments++ % 100 == 0 ? factor : product * factor;
        EXPECT_EQ(answer, product) << line;
    }
    EXPECT_EQ(assignments, 250U);
}

TEST(BenchLines, makeANewVariableEach) {
    TXEquationController controller;
    const auto before = controller.variableArray().size();
    for (const std::string& line : benchLines(LineFamily::variables, 100)) {
        controller.addOneStringBlindly(utf16Line(line));
    }
    EXPECT_EQ(controller.variableArray().size(), before + 100);
}

TEST(TallixSession, answersWithTheTextOfTheFormatter) {
    TallixSession session;
    EXPECT_EQ(session.answerForLine(u"1/8"), u"0.125");
    EXPECT_EQ(session.answerForLine(u"1+"), u"");
    EXPECT_EQ(session.answerForLine(u""), u"");
}

}  // namespace
