// Starting, ending, and the parts of the desktop that go and come back meanwhile.
#include "x11/program/scenes/Scene.h"

#include <csignal>
#include <fstream>

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace haloric {
namespace {

ChildProcess::Options plainStart(const std::vector<std::string>& arguments, const Environment& environment)
{
    ChildProcess::Options options{{HaloricProcess::program().string()}, environment, {}, -1};
    options.command.insert(options.command.end(), arguments.begin(), arguments.end());
    return options;
}

class LifecycleScene : public Scene {};
INSTANTIATE_TEST_SUITE_P(Desktops, LifecycleScene, testing::Values(kOpenboxPicom, kXfwm4, kOpenbox), nameOf);

class CompositorScene : public Scene {};
INSTANTIATE_TEST_SUITE_P(Desktops, CompositorScene, testing::Values(kOpenboxPicom), nameOf);

TEST(ProgramScene, without_a_display_it_says_so_and_exits_with_1)
{
    const X11Server server; // for its environment alone
    Environment environment = server.environment();
    environment.erase("DISPLAY");
    ChildProcess program(plainStart({}, environment));
    EXPECT_EQ(program.waitForExit(), 1);
    EXPECT_NE(program.standardError().find("DISPLAY"), std::string::npos) << program.standardError();
}

TEST(ProgramScene, a_display_that_does_not_answer_is_no_display)
{
    const X11Server server;
    Environment environment = server.environment();
    environment["DISPLAY"] = ":987654";
    ChildProcess program(plainStart({}, environment));
    EXPECT_EQ(program.waitForExit(), 1);
    EXPECT_FALSE(program.standardError().empty());
}

// A display whose server takes connections and never says anything.
class SilentDisplay {
public:
    SilentDisplay()
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const raw = reinterpret_cast<sockaddr*>(&address);
        if (bind(m_socket, raw, size) != 0 || listen(m_socket, 1) != 0 || getsockname(m_socket, raw, &size) != 0)
            throw std::runtime_error("cannot listen");
        m_name = "127.0.0.1:" + std::to_string(ntohs(address.sin_port) - kFirstPort);
    }
    ~SilentDisplay()
    {
        close(m_client);
        close(m_socket);
    }
    SilentDisplay(const SilentDisplay&) = delete;
    SilentDisplay& operator=(const SilentDisplay&) = delete;

    const std::string& name() const { return m_name; } // as for DISPLAY

    // Waits until a client has introduced itself, and so waits for the answer.
    [[nodiscard]] bool waitForClient()
    {
        const auto isReadable = [](int descriptor) {
            pollfd readable{descriptor, POLLIN, 0};
            return poll(&readable, 1, static_cast<int>(kPatience.count())) == 1;
        };
        if (!isReadable(m_socket))
            return false;
        m_client = accept(m_socket, nullptr, nullptr);
        return isReadable(m_client);
    }

private:
    static constexpr int kFirstPort = 6000; // that of display 0

    std::string m_name;
    int m_socket = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    int m_client = -1;
};

TEST(ProgramScene, it_can_be_ended_while_the_server_keeps_it_waiting)
{
    const X11Server server; // for its environment alone
    for (const int signal : {SIGTERM, SIGINT}) {
        for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"--diagnostics"}}) {
            SilentDisplay display;
            Environment environment = server.environment();
            environment["DISPLAY"] = display.name();
            ChildProcess program(plainStart(arguments, environment));
            ASSERT_TRUE(display.waitForClient()) << program.standardError();
            program.signal(signal);
            EXPECT_EQ(program.waitForExit(), 128 + signal);
        }
    }
}

TEST(ProgramScene, help_and_version_need_no_display)
{
    const X11Server server;
    Environment environment = server.environment();
    environment.erase("DISPLAY");
    for (const char* option : {"--help", "--version"}) {
        ChildProcess program(plainStart({option}, environment));
        EXPECT_EQ(program.waitForExit(), 0) << option;
        EXPECT_FALSE(program.standardOutput().empty()) << option;
    }
}

TEST(ProgramScene, a_wrong_option_is_refused)
{
    const X11Server server;
    ChildProcess program(plainStart({"--no-such-option"}, server.environment()));
    EXPECT_EQ(program.waitForExit(), 2);
    EXPECT_NE(program.standardError().find("--no-such-option"), std::string::npos);
}

TEST(ProgramScene, diagnostics_name_the_window_manager)
{
    X11Session session(WindowManager::openbox, Compositor::picom);
    ChildProcess program(plainStart({"--diagnostics"}, session.environment()));
    EXPECT_EQ(program.waitForExit(), 0) << program.standardError();
    EXPECT_NE(program.standardOutput().find("Openbox"), std::string::npos) << program.standardOutput();
}

TEST_P(LifecycleScene, it_ends_cleanly_on_either_signal)
{
    const auto client = openFocused();
    for (const int signal : {SIGTERM, SIGINT}) {
        startAround(*client);
        haloric->process().signal(signal);
        EXPECT_EQ(haloric->process().waitForExit(), 0) << log();
        EXPECT_TRUE(haloric->waitForNothing());
    }
}

TEST_P(LifecycleScene, it_ends_with_1_when_the_server_goes_away)
{
    const auto client = openFocused();
    startAround(*client);
    session.server().kill();
    EXPECT_EQ(haloric->process().waitForExit(), 1) << log();
}

TEST_P(LifecycleScene, the_highlight_returns_with_the_window_manager)
{
    const auto client = openFocused();
    startAround(*client);
    session.stopWindowManager();
    session.startWindowManager();
    ASSERT_TRUE(session.observer().waitUntil([&] { return client->isListed(); }));
    ASSERT_TRUE(client->focus());
    EXPECT_TRUE(waitForBorder(*client)) << log();
}

TEST(ProgramScene, it_waits_for_a_window_manager_that_comes_later)
{
    X11Session session(WindowManager::openbox);
    session.stopWindowManager();
    HaloricProcess haloric(session, kStill);
    session.startWindowManager();
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    EXPECT_TRUE(haloric.waitForHighlight(client->visibleFrame()).has_value()) << haloric.process().standardError();
}

TEST(ProgramScene, it_says_that_a_window_manager_is_missing_until_one_comes)
{
    X11Session session(WindowManager::openbox);
    session.stopWindowManager();
    HaloricProcess haloric(session, kStill);
    const auto isSaid = [&] {
        const auto children = session.observer().rootChildren();
        return std::any_of(children.begin(), children.end(), [&](const RootChild& child) {
            return child.isMapped && session.observer().text(child.window, "WM_NAME") == "Haloric";
        });
    };
    ASSERT_TRUE(session.observer().waitUntil(isSaid)) << haloric.process().standardError();
    session.startWindowManager();
    ASSERT_TRUE(session.observer().waitUntil([&] { return !isSaid(); }));
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    EXPECT_TRUE(haloric.waitForHighlight(client->visibleFrame()).has_value()) << haloric.process().standardError();
}

TEST_P(CompositorScene, without_the_compositor_an_opaque_ring_remains_and_the_glow_returns_with_it)
{
    const auto client = openFocused();
    const ScreenRect frame = client->visibleFrame();
    const ScreenRect around = grown(frame, 60);
    const ScreenImage bare = settled(around);
    startAround(*client);
    const ScreenImage composited = settled(around);
    const int middleY = frame.y + frame.height / 2;

    session.stopCompositor();
    EXPECT_TRUE(session.waitForPixels(nameOfTest() + "-ring", around, [&](const ScreenImage& now) {
        return hasBorder(now, frame) && now.at(frame.x - 4, middleY) == bare.at(frame.x - 4, middleY) &&
               differences(now, bare, grown(frame, -kCornerRadius)) == 0;
    })) << log();

    session.startCompositor();
    EXPECT_TRUE(session.waitForPixels(nameOfTest() + "-glow-again", around, [&](const ScreenImage& now) {
        return colorDistance(now.at(frame.x - 4, middleY), composited.at(frame.x - 4, middleY)) <= kTolerance &&
               hasBorder(now, frame);
    })) << log();
}

TEST_P(LifecycleScene, an_unreadable_record_gives_the_defaults_and_stays_as_it_is)
{
    const auto client = openFocused();
    const std::string broken = R"({"borderEnabled": 1, "pulseEnabled": false})";
    startAround(*client, broken);
    std::ifstream file(HaloricProcess::settingsFile(session.environment()));
    const std::string kept((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(kept, broken);
}

} // namespace
} // namespace haloric
