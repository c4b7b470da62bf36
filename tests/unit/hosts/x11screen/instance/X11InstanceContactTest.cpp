#include "hosts/x11/instance/X11InstanceContact.h"

#include "InstanceFolder.h"
#include "hosts/x11/instance/X11InstanceServer.h"

#include <functional>
#include <latch>
#include <sstream>
#include <thread>

namespace haloric {
namespace {

using Kind = InstanceCommand::Kind;
constexpr Seconds kShort{0.05};

struct X11InstanceContactTest : testing::Test, InstanceFolder {
    std::ostringstream output;
    std::ostringstream errors;

    X11InstanceContact contact(Seconds patience = Seconds(20))
    {
        return {place, {.output = output, .errors = errors}, patience};
    }
};

// An instance that runs, its loop on a thread of its own.
class RunningInstance {
public:
    RunningInstance(const X11InstancePlace& place, const std::function<InstanceReply(const InstanceCommand&)>& perform)
        : m_thread([this, place, perform] {
              const X11InstanceSeat seat(place);
              const X11InstanceServer server(m_loop, seat.listeningDescriptor(), geteuid(), [&](std::string_view line) {
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
    X11RunLoop m_loop;
    std::latch m_ready{1};
    std::thread m_thread;
};

InstanceReply succeed(const InstanceCommand& command) { return {true, command.effect}; }

TEST_F(X11InstanceContactTest, a_command_reaches_the_running_instance_and_its_answer_is_shown)
{
    const RunningInstance running(place, succeed);
    EXPECT_EQ(contact().command({Kind::toggle, "glow"}), 0);
    EXPECT_EQ(output.str(), "glow");
    EXPECT_EQ(errors.str(), "");
}

TEST_F(X11InstanceContactTest, a_refusal_is_told_as_an_error)
{
    const RunningInstance running(place, [](const InstanceCommand&) { return InstanceReply{false, "not today\n"}; });
    EXPECT_EQ(contact().command({Kind::toggle, "glow"}), 1);
    EXPECT_EQ(errors.str(), "haloric: not today\n");
    EXPECT_EQ(output.str(), "");
}

TEST_F(X11InstanceContactTest, without_an_instance_a_command_that_needs_one_says_so)
{
    EXPECT_EQ(contact().command({Kind::quit, ""}), std::nullopt);
    EXPECT_EQ(errors.str(), "");
    EXPECT_EQ(contact().requireCommand({Kind::quit, ""}), 3);
    EXPECT_EQ(errors.str(), "haloric: no instance is running on this display\n");
    X11InstanceContact nowhere({}, {.output = output, .errors = errors});
    EXPECT_EQ(nowhere.requireCommand({Kind::quit, ""}), 3);
}

TEST_F(X11InstanceContactTest, a_socket_that_was_left_behind_is_no_instance)
{
    listening().closeNow();
    ASSERT_TRUE(std::filesystem::exists(place.socket));
    EXPECT_EQ(contact().command({Kind::quit, ""}), std::nullopt);
}

TEST_F(X11InstanceContactTest, an_instance_that_hangs_is_not_waited_for_for_ever)
{
    const auto hung = listening();
    EXPECT_EQ(contact(kShort).command({Kind::quit, ""}), 3);
    EXPECT_EQ(errors.str(), "haloric: the running instance does not answer\n");
}

TEST_F(X11InstanceContactTest, nonsense_and_half_replies_are_no_answer)
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

TEST_F(X11InstanceContactTest, after_quitting_the_seat_is_free)
{
    const RunningInstance running(place, succeed);
    EXPECT_EQ(contact().command({Kind::quit, ""}), 0);
    const auto arrival = contact().arrive();
    EXPECT_EQ(arrival.exitCode, std::nullopt);
    EXPECT_NE(arrival.seat, nullptr);
}

TEST_F(X11InstanceContactTest, the_first_to_arrive_takes_the_seat_and_the_second_has_it_reopen)
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

TEST_F(X11InstanceContactTest, whoever_arrives_while_another_hangs_gives_up_in_time)
{
    const X11InstanceSeat hung(place);
    const auto arrival = contact(kShort).arrive();
    EXPECT_EQ(arrival.exitCode, 3);
    EXPECT_NE(errors.str(), "");
}

TEST_F(X11InstanceContactTest, without_a_place_it_runs_all_the_same_and_says_so)
{
    for (const std::optional<X11InstancePlace>& nowhere :
         {std::optional<X11InstancePlace>(), std::optional(X11InstancePlace{"/nonexistent/s", "/nonexistent/l"})}) {
        errors.str("");
        const auto arrival = X11InstanceContact(nowhere, {.output = output, .errors = errors}).arrive();
        EXPECT_EQ(arrival.seat, nullptr);
        EXPECT_EQ(arrival.exitCode, std::nullopt);
        EXPECT_NE(errors.str(), "");
    }
}

} // namespace
} // namespace haloric
