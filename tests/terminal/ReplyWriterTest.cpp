#include "terminal/ReplyWriter.h"

#include <array>
#include <cerrno>
#include <string>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

/// A pipe that is written to and then looked at.
class ReplyWriterTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(pipe2(ends_.data(), O_NONBLOCK), 0); }
    void TearDown() override {
        close(ends_[0]);
        close(ends_[1]);
    }

    int writing() const { return ends_[1]; }
    /// What can be read at the moment.
    std::string written() const {
        std::array<char, 4096> buffer{};
        const ssize_t count = read(ends_[0], buffer.data(), buffer.size());
        return count > 0 ? std::string(buffer.data(), static_cast<std::size_t>(count)) : std::string();
    }

private:
    std::array<int, 2> ends_{-1, -1};
};

const Reply answer = {"2+3\n", "\t= 5", false};
const Reply refusal = {"", "Error: no", true};

TEST_F(ReplyWriterTest, writesEachReplyAtOnce) {
    ReplyWriter writer(writing(), {});
    EXPECT_TRUE(writer.write(answer));
    EXPECT_EQ(written(), "2+3\n\t= 5\n");
    EXPECT_TRUE(writer.write(refusal));
    EXPECT_EQ(written(), "Error: no\n");
}

TEST_F(ReplyWriterTest, keepsRepliesUntilTheFlushWhenBuffered) {
    ReplyWriter writer(writing(), {.hasColours = false, .isBuffered = true});
    EXPECT_TRUE(writer.write(refusal));
    EXPECT_TRUE(writer.write(refusal));
    EXPECT_EQ(written(), "");
    EXPECT_TRUE(writer.flush());
    EXPECT_EQ(written(), "Error: no\nError: no\n");
}

TEST_F(ReplyWriterTest, keepsNoMoreThanABufferful) {
    ReplyWriter writer(writing(), {.hasColours = false, .isBuffered = true});
    ASSERT_GT(fcntl(writing(), F_SETPIPE_SZ, 200'000), 100'000) << "there must be room for it";
    for (int i = 0; i < 10'000; ++i) EXPECT_TRUE(writer.write(refusal));
    EXPECT_NE(written(), "");
}

TEST_F(ReplyWriterTest, coloursTheAnswerAlone) {
    ReplyWriter writer(writing(), {.hasColours = true, .isBuffered = false});
    EXPECT_TRUE(writer.write(answer));
    EXPECT_EQ(written(), "2+3\n\033[34m\t= 5\033[0m\n");
    EXPECT_TRUE(writer.write(refusal));
    EXPECT_EQ(written(), "\033[31mError: no\033[0m\n");
}

TEST_F(ReplyWriterTest, waitsForASlowReader) {
    const Reply longReply = {"", std::string(1'000'000, '7'), false};
    std::size_t count = 0;
    std::thread reader([&] {
        while (count <= longReply.answer.size()) {
            count += written().size();
            std::this_thread::yield();
        }
    });
    ReplyWriter writer(writing(), {});
    EXPECT_TRUE(writer.write(longReply));
    reader.join();
    EXPECT_EQ(count, longReply.answer.size() + 1);
}

TEST_F(ReplyWriterTest, keepsTheReasonOfAFailure) {
    const int full = open("/dev/full", O_WRONLY);
    ASSERT_GE(full, 0);
    ReplyWriter writer(full, {});
    EXPECT_EQ(writer.error(), 0);
    EXPECT_FALSE(writer.write(answer));
    EXPECT_EQ(writer.error(), ENOSPC);
    EXPECT_FALSE(writer.flush()) << "what failed stays failed";
    close(full);
}

}  // namespace
