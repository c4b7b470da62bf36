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

    InstanceStartup contact(Seconds patience = Seconds(20))
    {
        return {place, {.output = output, .errors = errors}, patience};
    }
};

// An instance that runs, its loop on a thread of its own.
class RunningInstance {
public:
    RunningInstance(const InstancePaths& place, const std::function<InstanceReply(const InstanceCommand&)>& perform)
        : m_thread([this, place, perform] {
              const InstanceLock seat(place);
              const InstanceServer server(m_loop, seat.listeningDescriptor(), geteuid(), [&](std::string_view line) {
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

TEST_F(InstanceStartupTest, a_command_reaches_the_running_instance_and_its_answer_is_shown)
{
    const RunningInstance running(place, succeed);
    EXPECT_EQ(contact().command({Kind::toggle, "glow"}), 0);
    EXPECT_EQ(output.str(), "glow");
    EXPECT_EQ(errors.str(), "");
}

TEST_F(InstanceStartupTest, a_refusal_is_told_as_an_error)
{
    const RunningInstance running(place, [](const InstanceCommand&) { return InstanceReply{false, "not today\n"}; });
    EXPECT_EQ(contact().command({Kind::toggle, "glow"}), 1);
    EXPECT_EQ(errors.str(), "haloric: not today\n");
    EXPECT_EQ(output.str(), "");
}

TEST_F(InstanceStartupTest, without_an_instance_a_command_that_needs_one_says_so)
{
    EXPECT_EQ(contact().command({Kind::quit, ""}), std::nullopt);
    EXPECT_EQ(errors.str(), "");
    EXPECT_EQ(contact().requireCommand({Kind::quit, ""}), 3);
    EXPECT_EQ(errors.str(), "haloric: no instance is running on this display\n");
    InstanceStartup nowhere({}, {.output = output, .errors = errors});
    EXPECT_EQ(nowhere.requireCommand({Kind::quit, ""}), 3);
}

TEST_F(InstanceStartupTest, a_socket_that_was_left_behind_is_no_instance)
{
    listening().closeNow();
    ASSERT_TRUE(std::filesystem::exists(place.socket));
    EXPECT_EQ(contact().command({Kind::quit, ""}), std::nullopt);
}

TEST_F(InstanceStartupTest, an_instance_that_hangs_is_not_waited_for_for_ever)
{
    const auto hung = listening();
    EXPECT_EQ(contact(kShort).command({Kind::quit, ""}), 3);
    EXPECT_EQ(errors.str(), "haloric: the running instance does not answer\n");
}

TEST_F(InstanceStartupTest, nonsense_and_half_replies_are_no_answer)
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
        EXPECT_EQ(contact().command({Kind::quit, ""}), 3) << reply;
        peer.join();
        std::filesystem::remove(place.socket);
    }
}

TEST_F(InstanceStartupTest, after_quitting_the_seat_is_free)
{
    const RunningInstance running(place, succeed);
    EXPECT_EQ(contact().command({Kind::quit, ""}), 0);
    const auto arrival = contact().arrive();
    EXPECT_EQ(arrival.exitCode, std::nullopt);
    EXPECT_NE(arrival.seat, nullptr);
}

TEST_F(InstanceStartupTest, the_first_to_arrive_takes_the_seat_and_the_second_has_it_reopen)
{
    {
        const auto arrival = contact().arrive();
        ASSERT_NE(arrival.seat, nullptr);
        EXPECT_EQ(arrival.exitCode, std::nullopt);
    }
    std::vector<InstanceCommand> commands;
    {
        const RunningInstance running(place, [&](const InstanceCommand& command) {
            commands.push_back(command);
            return succeed(command);
        });
        const auto arrival = contact().arrive();
        EXPECT_EQ(arrival.seat, nullptr);
        EXPECT_EQ(arrival.exitCode, 0);
    }
    EXPECT_THAT(commands, testing::ElementsAre(InstanceCommand{Kind::reopen, ""}));
}

TEST_F(InstanceStartupTest, whoever_arrives_while_another_hangs_gives_up_in_time)
{
    const InstanceLock hung(place);
    const auto arrival = contact(kShort).arrive();
    EXPECT_EQ(arrival.exitCode, 3);
    EXPECT_NE(errors.str(), "");
}

TEST_F(InstanceStartupTest, without_a_place_it_runs_all_the_same_and_says_so)
{
    for (const std::optional<InstancePaths>& nowhere :
         {std::optional<InstancePaths>(), std::optional(InstancePaths{"/nonexistent/s", "/nonexistent/l"})}) {
        errors.str("");
        const auto arrival = InstanceStartup(nowhere, {.output = output, .errors = errors}).arrive();
        EXPECT_EQ(arrival.seat, nullptr);
        EXPECT_EQ(arrival.exitCode, std::nullopt);
        EXPECT_NE(errors.str(), "");
    }
}

} // namespace
} // namespace haloric
