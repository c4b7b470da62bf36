#include "hosts/linux/instance/InstanceStartup.h"

#include "hosts/linux/instance/InstanceServer.h"
#include "unit/hosts/linux/instance/InstanceFolder.h"

#include <functional>
#include <latch>
#include <sstream>
#include <thread>

namespace haloric {
namespace {

using Kind = InstanceCommand::Kind;
constexpr Seconds kShort{0.05};

struct InstanceStartupTest : testing::Test, InstanceFolder {
    std::ostringstream output;
    std::ostringstream errors;

    InstanceStartup startup(Seconds patience = Seconds(20))
    {
        return {paths, {.output = output, .errors = errors}, patience};
    }
};

// A running instance, with its loop on a separate thread.
class RunningInstance {
public:
    RunningInstance(const InstancePaths& paths, const std::function<InstanceReply(const InstanceCommand&)>& perform)
        : m_thread([this, paths, perform] {
              const InstanceLock lock(paths);
              const InstanceServer server(m_loop, lock.listeningDescriptor(), geteuid(), [&](std::string_view line) {
                  const auto command = InstanceCommand::parse(line);
                  if (command && command->kind == Kind::quit)
                      m_loop.post([this] { m_loop.stop(); });
                  return command ? perform(*command).bytes() : std::string();
              });
              m_loop.post([this] { m_ready.count_down(); });
              m_loop.run();
          })
    {
        m_ready.wait();
    }
    ~RunningInstance()
    {
        m_loop.post([this] { m_loop.stop(); });
        m_thread.join();
    }

private:
    LinuxRunLoop m_loop;
    std::latch m_ready{1};
    std::thread m_thread;
};

InstanceReply succeed(const InstanceCommand& command) { return {true, command.effect}; }

TEST_F(InstanceStartupTest, a_command_reaches_the_running_instance_and_its_reply_is_printed)
{
    const RunningInstance running(paths, succeed);
    EXPECT_EQ(startup().command({Kind::toggle, "glow"}), 0);
    EXPECT_EQ(output.str(), "glow");
    EXPECT_EQ(errors.str(), "");
}

TEST_F(InstanceStartupTest, a_refusal_is_printed_as_an_error)
{
    const RunningInstance running(paths, [](const InstanceCommand&) { return InstanceReply{false, "not today\n"}; });
    EXPECT_EQ(startup().command({Kind::toggle, "glow"}), 1);
    EXPECT_EQ(errors.str(), "haloric: not today\n");
    EXPECT_EQ(output.str(), "");
}

TEST_F(InstanceStartupTest, without_an_instance_a_required_command_reports_an_error)
{
    EXPECT_EQ(startup().command({Kind::quit, ""}), std::nullopt);
    EXPECT_EQ(errors.str(), "");
    EXPECT_EQ(startup().requireCommand({Kind::quit, ""}), 3);
    EXPECT_EQ(errors.str(), "haloric: no instance is running on this display\n");
    InstanceStartup nowhere({}, {.output = output, .errors = errors});
    EXPECT_EQ(nowhere.requireCommand({Kind::quit, ""}), 3);
}

TEST_F(InstanceStartupTest, a_leftover_socket_is_not_an_instance)
{
    listening().closeNow();
    ASSERT_TRUE(std::filesystem::exists(paths.socket));
    EXPECT_EQ(startup().command({Kind::quit, ""}), std::nullopt);
}

TEST_F(InstanceStartupTest, a_hanging_instance_ends_in_a_timeout)
{
    const auto hung = listening();
    EXPECT_EQ(startup(kShort).command({Kind::quit, ""}), 3);
    EXPECT_EQ(errors.str(), "haloric: the running instance does not answer\n");
}

TEST_F(InstanceStartupTest, malformed_and_partial_replies_count_as_no_answer)
{
    for (const char* reply : {"", "done 100\nhalf", "nonsense", "done 0\nmore"}) {
        const auto listener = listening();
        std::thread peer([&] {
            const PosixDescriptor accepted(accept(listener.number(), nullptr, nullptr));
            send(accepted.number(), reply, std::strlen(reply), MSG_NOSIGNAL);
            char received = 0;
            while (recv(accepted.number(), &received, 1, 0) > 0 && received != '\n') {
            }
        });
        EXPECT_EQ(startup().command({Kind::quit, ""}), 3) << reply;
        peer.join();
        std::filesystem::remove(paths.socket);
    }
}

TEST_F(InstanceStartupTest, the_lock_is_free_after_quitting)
{
    const RunningInstance running(paths, succeed);
    EXPECT_EQ(startup().command({Kind::quit, ""}), 0);
    const auto arrival = startup().arrive();
    EXPECT_EQ(arrival.exitCode, std::nullopt);
    EXPECT_NE(arrival.lock, nullptr);
}

TEST_F(InstanceStartupTest, the_first_start_takes_the_lock_and_the_second_makes_it_reopen)
{
    {
        const auto arrival = startup().arrive();
        ASSERT_NE(arrival.lock, nullptr);
        EXPECT_EQ(arrival.exitCode, std::nullopt);
    }
    std::vector<InstanceCommand> commands;
    {
        const RunningInstance running(paths, [&](const InstanceCommand& command) {
            commands.push_back(command);
            return succeed(command);
        });
        const auto arrival = startup().arrive();
        EXPECT_EQ(arrival.lock, nullptr);
        EXPECT_EQ(arrival.exitCode, 0);
    }
    EXPECT_THAT(commands, testing::ElementsAre(InstanceCommand{Kind::reopen, ""}));
}

TEST_F(InstanceStartupTest, a_start_beside_a_hanging_instance_ends_in_a_timeout)
{
    const InstanceLock hung(paths);
    const auto arrival = startup(kShort).arrive();
    EXPECT_EQ(arrival.exitCode, 3);
    EXPECT_NE(errors.str(), "");
}

TEST_F(InstanceStartupTest, without_usable_paths_the_start_continues_and_reports_it)
{
    for (const std::optional<InstancePaths>& nowhere :
         {std::optional<InstancePaths>(), std::optional(InstancePaths{"/nonexistent/s", "/nonexistent/l"})}) {
        errors.str("");
        const auto arrival = InstanceStartup(nowhere, {.output = output, .errors = errors}).arrive();
        EXPECT_EQ(arrival.lock, nullptr);
        EXPECT_EQ(arrival.exitCode, std::nullopt);
        EXPECT_NE(errors.str(), "");
    }
}

TEST_F(InstanceStartupTest, a_command_goes_to_the_instance_that_is_found_elsewhere)
{
    const RunningInstance running(paths, succeed);
    const InstancePaths own{.socket = folder.path() / "own.socket", .lock = folder.path() / "own.lock"};
    InstanceStartup start(own, {.output = output, .errors = errors}, Seconds(20), [this] { return paths.socket; });
    EXPECT_EQ(start.command({Kind::toggle, "glow"}), 0);
    EXPECT_EQ(output.str(), "glow");
    InstanceStartup without({}, {.output = output, .errors = errors}, Seconds(20), [this] { return paths.socket; });
    EXPECT_EQ(without.command({Kind::toggle, "glow"}), 0);
}

TEST_F(InstanceStartupTest, an_instance_that_is_found_and_does_not_listen_is_not_reached)
{
    InstanceStartup start(paths, {.output = output, .errors = errors}, kShort, [] { return std::filesystem::path(); });
    EXPECT_EQ(start.command({Kind::quit, ""}), 3);
    EXPECT_EQ(errors.str(), "haloric: the running instance does not answer\n");
}

TEST_F(InstanceStartupTest, a_start_gives_way_to_the_instance_that_has_the_display)
{
    std::vector<InstanceCommand> commands;
    const RunningInstance running(paths, [&](const InstanceCommand& command) {
        commands.push_back(command);
        return succeed(command);
    });
    EXPECT_EQ(startup().giveWay([this] { return std::optional(paths.socket); }), 0);
    EXPECT_THAT(commands, testing::ElementsAre(InstanceCommand{Kind::reopen, ""}));
}

TEST_F(InstanceStartupTest, a_start_that_gets_the_display_goes_on_also_after_a_while)
{
    EXPECT_EQ(startup().giveWay([] { return std::optional<std::filesystem::path>(); }), std::nullopt);
    int asked = 0;
    EXPECT_EQ(startup().giveWay([&] {
        return ++asked < 3 ? std::optional(paths.socket) : std::nullopt; // the holder is ending
    }),
              std::nullopt);
    EXPECT_EQ(errors.str(), "");
}

TEST_F(InstanceStartupTest, a_holder_of_the_display_without_a_socket_here_is_an_error)
{
    EXPECT_EQ(startup().giveWay([] { return std::optional(std::filesystem::path()); }), 3);
    EXPECT_NE(errors.str(), "");
}

} // namespace
} // namespace haloric
