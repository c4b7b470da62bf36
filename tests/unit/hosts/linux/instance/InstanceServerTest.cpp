#include "hosts/linux/instance/InstanceServer.h"

#include "hosts/linux/instance/InstanceLock.h"
#include "testing/x11/Deadline.h"
#include "unit/hosts/linux/instance/InstanceFolder.h"

#include <array>
#include <cerrno>
#include <memory>

#include <poll.h>
#include <sys/resource.h>

namespace haloric {
namespace {

struct InstanceServerTest : testing::Test, InstanceFolder {
    LinuxRunLoop loop;
    InstanceLock lock{paths};
    std::vector<std::string> lines;
    std::string reply = "done 0\n";
    std::unique_ptr<InstanceServer> server;

    InstanceServerTest() { serve({}); }
    void serve(const InstanceServer::Limits& limits, uid_t user = geteuid())
    {
        server.reset();
        const auto answer = [this](std::string_view line) {
            lines.emplace_back(line);
            return reply;
        };
        server = std::make_unique<InstanceServer>(loop, lock.listeningDescriptor(), user, answer, limits);
    }
    bool waitUntil(const std::function<bool()>& predicate)
    {
        const Deadline deadline(kTimeout);
        while (!predicate() && !deadline.isOver())
            loop.turn(Seconds(0.01));
        return predicate();
    }
    static void say(const PosixDescriptor& socket, std::string_view text)
    {
        EXPECT_EQ(send(socket.number(), text.data(), text.size(), MSG_NOSIGNAL), static_cast<ssize_t>(text.size()));
    }
    static std::string lineOf(std::size_t length)
    {
        std::string line(length + 1, 'x');
        line.back() = '\n';
        return line;
    }
    // Appends the received bytes. Returns false once the peer has closed.
    static bool hear(const PosixDescriptor& socket, std::string& text)
    {
        std::array<char, 65536> part;
        const ssize_t count = recv(socket.number(), part.data(), part.size(), 0);
        if (count > 0)
            text.append(part.data(), static_cast<std::size_t>(count));
        return count > 0 || (count < 0 && errno == EAGAIN);
    }
    bool waitForReply(const PosixDescriptor& socket, const std::string& expected)
    {
        std::string text;
        return waitUntil([&] {
            hear(socket, text);
            return text == expected;
        });
    }
    bool waitForEnd(const PosixDescriptor& socket)
    {
        std::string text;
        return waitUntil([&] { return !hear(socket, text); }) && text.empty();
    }
    // The loop still serves another peer.
    void expectService()
    {
        const auto socket = connected();
        say(socket, "hello\n");
        EXPECT_TRUE(waitForReply(socket, reply));
    }
};

TEST_F(InstanceServerTest, a_line_is_answered)
{
    const auto socket = connected();
    say(socket, "hello\n");
    EXPECT_TRUE(waitForReply(socket, "done 0\n"));
    EXPECT_THAT(lines, testing::ElementsAre("hello"));
}

TEST_F(InstanceServerTest, a_line_may_arrive_in_pieces)
{
    const auto socket = connected();
    for (const char* piece : {"h", "ell", "o"}) {
        say(socket, piece);
        loop.turn(Seconds(0));
        loop.turn(Seconds(0));
    }
    EXPECT_TRUE(lines.empty());
    say(socket, "\n");
    EXPECT_TRUE(waitForReply(socket, "done 0\n"));
}

TEST_F(InstanceServerTest, a_peer_is_removed_when_it_closes)
{
    for (const char* text : {"", "half a li", "hello\n"}) {
        auto socket = connected();
        say(socket, text);
        ASSERT_TRUE(waitUntil([&] { return server->peerCount() == 1; }));
        socket.closeNow();
        EXPECT_TRUE(waitUntil([&] { return server->peerCount() == 0; })) << text;
    }
    expectService();
}

TEST_F(InstanceServerTest, a_silent_peer_is_disconnected_in_time_and_blocks_nothing)
{
    serve({.patience = Seconds(0.05)});
    const auto silent = connected();
    const auto slow = connected();
    say(slow, "hal");
    EXPECT_TRUE(waitForEnd(silent));
    EXPECT_TRUE(waitForEnd(slow));
    EXPECT_TRUE(lines.empty());
    expectService();
}

TEST_F(InstanceServerTest, a_peer_with_too_long_a_line_is_disconnected_without_an_answer)
{
    const auto endless = connected();
    say(endless, std::string(5000, 'x'));
    EXPECT_TRUE(waitUntil([&] { return server->peerCount() == 1; }));
    EXPECT_TRUE(waitUntil([&] { return server->peerCount() == 0; }));
    const auto ended = connected();
    say(ended, lineOf(101));
    EXPECT_TRUE(waitUntil([&] { return server->peerCount() == 1; }));
    EXPECT_TRUE(waitUntil([&] { return server->peerCount() == 0; }));
    EXPECT_TRUE(lines.empty());
    const auto longest = connected();
    say(longest, lineOf(100));
    EXPECT_TRUE(waitForReply(longest, reply));
}

TEST_F(InstanceServerTest, a_connection_is_for_one_line)
{
    const auto twoAtOnce = connected();
    say(twoAtOnce, "one\ntwo\n");
    EXPECT_TRUE(waitForEnd(twoAtOnce));
    EXPECT_TRUE(lines.empty());
    const auto oneAfterAnother = connected();
    say(oneAfterAnother, "one\n");
    ASSERT_TRUE(waitForReply(oneAfterAnother, reply));
    say(oneAfterAnother, "two\n");
    EXPECT_TRUE(waitForEnd(oneAfterAnother));
    EXPECT_THAT(lines, testing::ElementsAre("one"));
}

TEST_F(InstanceServerTest, a_line_without_an_answer_closes_the_connection)
{
    reply.clear();
    const auto socket = connected();
    say(socket, "nonsense\n");
    EXPECT_TRUE(waitForEnd(socket));
}

TEST_F(InstanceServerTest, a_peer_of_another_user_is_disconnected)
{
    serve({}, geteuid() + 1);
    const auto socket = connected();
    say(socket, "hello\n");
    std::string text;
    EXPECT_TRUE(waitUntil([&] { return !hear(socket, text); }));
    EXPECT_TRUE(text.empty());
    EXPECT_TRUE(lines.empty());
}

TEST_F(InstanceServerTest, peers_beyond_the_limit_are_disconnected)
{
    serve({.peers = 3});
    std::vector<PosixDescriptor> crowd;
    for (int index = 0; index < 3; ++index)
        crowd.push_back(connected());
    ASSERT_TRUE(waitUntil([&] { return server->peerCount() == 3; }));
    const auto late = connected();
    EXPECT_TRUE(waitForEnd(late));
    EXPECT_EQ(server->peerCount(), 3U);
    crowd.clear();
    ASSERT_TRUE(waitUntil([&] { return server->peerCount() == 0; }));
    expectService();
}

TEST_F(InstanceServerTest, a_long_reply_reaches_a_peer_that_reads_late)
{
    reply = std::string(3'000'000, 'r'); // more than a socket's buffer
    const auto socket = connected();
    say(socket, "hello\n");
    ASSERT_TRUE(waitUntil([&] { return !lines.empty(); }));
    EXPECT_TRUE(waitForReply(socket, reply));
}

TEST_F(InstanceServerTest, a_peer_that_does_not_read_is_disconnected_in_time)
{
    serve({.patience = Seconds(0.05)});
    reply = std::string(3'000'000, 'r');
    const auto socket = connected();
    say(socket, "hello\n");
    ASSERT_TRUE(waitUntil([&] { return server->peerCount() == 1; }));
    EXPECT_TRUE(waitUntil([&] { return server->peerCount() == 0; }));
}

TEST_F(InstanceServerTest, without_a_descriptor_left_it_rests_and_answers_later)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP()
        << "the undefined-behaviour sanitizer opens a pipe to look at an object; the thread sanitizer runs this";
#endif
    const auto socket = connected();
    say(socket, "hello\n");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit none = before;
    none.rlim_cur = 3; // standard input, output and error are open
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    loop.turn(Seconds(10));
    pollfd waiting{loop.pollableDescriptor(), POLLIN, 0};
    const bool isPrepared = loop.prepareToWait();
    const int ready = poll(&waiting, 1, 0);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_TRUE(isPrepared);
    EXPECT_EQ(ready, 0) << "the peer that waits does not keep the loop awake";
    EXPECT_TRUE(waitForReply(socket, reply));
}

TEST_F(InstanceServerTest, sockets_that_are_taken_stay_open_until_they_are_closed)
{
    const auto socket = connected();
    say(socket, "quit\n");
    ASSERT_TRUE(waitForReply(socket, reply));
    auto taken = server->takeSockets();
    EXPECT_EQ(server->peerCount(), 0U);
    server.reset();
    std::string text;
    EXPECT_TRUE(hear(socket, text));
    ASSERT_EQ(taken.size(), 1U);
    taken.clear();
    EXPECT_TRUE(waitForEnd(socket));
}

} // namespace
} // namespace haloric
