#include "hosts/posix/StandardErrorLog.h"

#include "support/JoiningThread.h"

#include <map>
#include <string>
#include <vector>

#include <sys/socket.h>
#include <unistd.h>

namespace haloric {
namespace {

// A stream that keeps each write as one message.
class StandardErrorLogTest : public testing::Test {
protected:
    StandardErrorLogTest() { socketpair(AF_UNIX, SOCK_DGRAM, 0, m_ends); }
    ~StandardErrorLogTest() override
    {
        close(m_ends[0]);
        close(m_ends[1]);
    }

    int stream() const { return m_ends[1]; }

    enum class Waiting { no, untilThere };

    // Empty when nothing was written.
    std::string nextWrite(Waiting waiting = Waiting::no)
    {
        std::string message(65536, '\0');
        const ssize_t size = recv(m_ends[0], message.data(), message.size(), waiting == Waiting::no ? MSG_DONTWAIT : 0);
        message.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
        return message;
    }

private:
    int m_ends[2] = {-1, -1};
};

TEST_F(StandardErrorLogTest, a_line_is_one_write_with_its_end)
{
    StandardErrorLog log(stream());
    log.line("WindowServer fast path disabled; using display-linked fallback");
    log.line("");
    log.line("100 %s %n");
    EXPECT_EQ(nextWrite(), "WindowServer fast path disabled; using display-linked fallback\n");
    EXPECT_EQ(nextWrite(), "\n");
    EXPECT_EQ(nextWrite(), "100 %s %n\n");
    EXPECT_EQ(nextWrite(), "");
}

TEST_F(StandardErrorLogTest, lines_of_several_threads_do_not_mix)
{
    constexpr int kLines = 200;
    const std::vector<std::string> texts{"one thread's line", "another's", "and that of a third one"};
    StandardErrorLog log(stream());
    std::map<std::string, int> counts;
    {
        std::vector<JoiningThread> writers;
        for (const std::string& text : texts)
            writers.emplace_back([&log, &text] {
                for (int line = 0; line < kLines; ++line)
                    log.line(text);
            });
        for (std::size_t received = 0; received < texts.size() * kLines; ++received)
            ++counts[nextWrite(Waiting::untilThere)];
    }
    EXPECT_EQ(counts,
              (std::map<std::string, int>{
                  {"one thread's line\n", kLines}, {"another's\n", kLines}, {"and that of a third one\n", kLines}}));
}

TEST_F(StandardErrorLogTest, a_stream_that_cannot_be_written_loses_the_line_only)
{
    StandardErrorLog log(-1);
    log.line("lost");
}

TEST(StandardErrorLog, the_stream_is_standard_error_unless_said_otherwise)
{
    testing::internal::CaptureStderr();
    StandardErrorLog().line("a line");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "a line\n");
}

} // namespace
} // namespace haloric
