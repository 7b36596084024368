#include "terminal/LineReader.h"

#include <array>
#include <cerrno>
#include <ostream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using namespace std::string_view_literals;
using Lines = std::vector<std::string>;

/// A pipe whose ends are closed when the test leaves them.
class TestPipe {
public:
    TestPipe() {
        if (pipe(ends_.data()) != 0) ADD_FAILURE() << "pipe: " << errno;
    }
    ~TestPipe() {
        closeWriting();
        close(ends_[0]);
    }
    TestPipe(const TestPipe&) = delete;
    TestPipe& operator=(const TestPipe&) = delete;

    int reading() const { return ends_[0]; }
    void write(std::string_view text) const {
        while (!text.empty()) {
            const ssize_t count = ::write(ends_[1], text.data(), text.size());
            if (count < 0) return;
            text.remove_prefix(static_cast<std::size_t>(count));
        }
    }
    void closeWriting() {
        if (ends_[1] >= 0) close(ends_[1]);
        ends_[1] = -1;
    }

private:
    std::array<int, 2> ends_{-1, -1};
};

Lines linesOf(std::string_view text, std::size_t bufferSize) {
    TestPipe pipe;
    std::thread writer([&] {
        pipe.write(text);
        pipe.closeWriting();
    });
    LineReader reader(pipe.reading(), bufferSize);
    Lines lines;
    while (const auto line = reader.nextLine()) lines.emplace_back(*line);
    EXPECT_EQ(reader.error(), 0);
    EXPECT_FALSE(reader.nextLine()) << "the end is the end";
    writer.join();
    return lines;
}

struct LinesCase {
    const char* name;
    std::string_view text;
    Lines lines;
};
void PrintTo(const LinesCase& row, std::ostream* out) { *out << row.name; }
class DividingLines : public testing::TestWithParam<LinesCase> {};

TEST_P(DividingLines, givesTheLines) {
    // Small buffers let every line end lie on the edge of one.
    for (const std::size_t bufferSize : {1U, 2U, 3U, 4U, 5U, 65536U}) {
        SCOPED_TRACE(bufferSize);
        EXPECT_EQ(linesOf(GetParam().text, bufferSize), GetParam().lines);
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(LineReader, DividingLines, testing::Values(
    LinesCase{"NoInputHasNoLine",            ""sv,                 {}},
    LinesCase{"OneLine",                     "2+3\n"sv,            {"2+3"}},
    LinesCase{"LastLineNeedsNoEnd",          "2+3\n4"sv,           {"2+3", "4"}},
    LinesCase{"BlankLinesAreLines",          "\n\n2\n\n"sv,        {"", "", "2", ""}},
    LinesCase{"CarriageReturnBelongsToEnd",  "2+3\r\n\r\n4\r\n"sv, {"2+3", "", "4"}},
    LinesCase{"OnlyOneCarriageReturnDoes",   "2\r\r\n"sv,          {"2\r"}},
    LinesCase{"LoneCarriageReturnStays",     "2\r3\n"sv,           {"2\r3"}},
    LinesCase{"NoLineFeedNoEnd",             "2\r"sv,              {"2\r"}},
    LinesCase{"LineFeedBeforeReturn",        "2\n\r3\n"sv,         {"2", "\r3"}},
    LinesCase{"NulIsACharacter",             "2\0003\n\0"sv,       {std::string("2\0003", 3), std::string(1, '\0')}}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(LineReader, readsLinesOfAnyLength) {
    const std::string longLine(3'000'000, '(');
    EXPECT_EQ(linesOf(longLine + "\n2\r\n" + longLine, 65536), (Lines{longLine, "2", longLine}));
}

TEST(LineReader, handsALineOutBeforeTheNextOneComes) {
    TestPipe pipe;
    LineReader reader(pipe.reading());
    pipe.write("2+3\n4");
    EXPECT_EQ(reader.nextLine(), "2+3");
    pipe.write("+5\n");
    EXPECT_EQ(reader.nextLine(), "4+5");
}

TEST(LineReader, waitsWhereReadingWouldNot) {
    TestPipe pipe;
    ASSERT_EQ(fcntl(pipe.reading(), F_SETFL, O_NONBLOCK), 0);
    LineReader reader(pipe.reading());
    std::thread writer([&] {
        pipe.write("2+");
        pipe.write("3\n");
    });
    EXPECT_EQ(reader.nextLine(), "2+3");
    writer.join();
}

TEST(LineReader, keepsTheReasonOfAFailure) {
    const int folder = open("/", O_RDONLY);
    ASSERT_GE(folder, 0);
    LineReader reader(folder);
    EXPECT_FALSE(reader.nextLine());
    EXPECT_EQ(reader.error(), EISDIR);
    close(folder);
}

}  // namespace
