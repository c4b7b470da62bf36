// Start, end, and parts of the desktop that stop and start again meanwhile.
#include "testing/x11/FileContents.h"
#include "testing/x11/Key.h"
#include "x11/program/scenes/Scene.h"

#include <csignal>

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace haloric {
namespace {

class LifecycleScene : public Scene {};
INSTANTIATE_TEST_SUITE_P(Desktops, LifecycleScene, testing::Values(kOpenboxPicom, kXfwm4, kOpenbox), nameOf);

class CompositorScene : public Scene {};
INSTANTIATE_TEST_SUITE_P(Desktops, CompositorScene, testing::Values(kOpenboxPicom), nameOf);

TEST(ProgramScene, without_a_display_it_reports_an_error_and_exits_with_1)
{
    const X11Server server; // only for its environment
    Environment environment = server.environment();
    environment.erase("DISPLAY");
    ChildProcess program(HaloricProcess::start({}, environment));
    EXPECT_EQ(program.waitForExit(), 1);
    EXPECT_NE(program.standardError().find("DISPLAY"), std::string::npos) << program.standardError();
}

TEST(ProgramScene, a_display_without_a_server_is_an_error)
{
    const X11Server server;
    Environment environment = server.environment();
    environment["DISPLAY"] = ":987654";
    ChildProcess program(HaloricProcess::start({}, environment));
    EXPECT_EQ(program.waitForExit(), 1);
    EXPECT_FALSE(program.standardError().empty());
}

// A display whose server accepts connections and never replies.
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

    const std::string& name() const { return m_name; } // the value of DISPLAY

    // Waits until a client has sent its connection setup, and so waits for the reply.
    [[nodiscard]] bool waitForClient()
    {
        const auto isReadable = [](int descriptor) {
            pollfd readable{descriptor, POLLIN, 0};
            return poll(&readable, 1, static_cast<int>(kTimeout.count())) == 1;
        };
        if (!isReadable(m_socket))
            return false;
        m_client = accept(m_socket, nullptr, nullptr);
        return isReadable(m_client);
    }

private:
    static constexpr int kFirstPort = 6000; // of display 0

    std::string m_name;
    int m_socket = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    int m_client = -1;
};

TEST(ProgramScene, it_can_be_ended_while_the_server_does_not_reply)
{
    const X11Server server; // only for its environment
    for (const int signal : {SIGTERM, SIGINT}) {
        for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"--diagnostics"}}) {
            SilentDisplay display;
            Environment environment = server.environment();
            environment["DISPLAY"] = display.name();
            ChildProcess program(HaloricProcess::start(arguments, environment));
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
        ChildProcess program(HaloricProcess::start({option}, environment));
        EXPECT_EQ(program.waitForExit(), 0) << option;
        EXPECT_FALSE(program.standardOutput().empty()) << option;
    }
}

TEST(ProgramScene, an_unknown_option_is_rejected)
{
    const X11Server server;
    ChildProcess program(HaloricProcess::start({"--no-such-option"}, server.environment()));
    EXPECT_EQ(program.waitForExit(), 2);
    EXPECT_NE(program.standardError().find("--no-such-option"), std::string::npos);
}

TEST(ProgramScene, diagnostics_name_the_window_manager)
{
    X11Session session(WindowManager::openbox, Compositor::picom);
    ChildProcess program(HaloricProcess::start({"--diagnostics"}, session.environment()));
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

TEST_P(LifecycleScene, it_exits_with_1_when_the_x_server_ends)
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

TEST(ProgramScene, it_waits_for_a_window_manager_that_starts_later)
{
    X11Session session(WindowManager::openbox);
    session.stopWindowManager();
    HaloricProcess haloric(session, kStill);
    session.startWindowManager();
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    EXPECT_TRUE(haloric.waitForHighlight(client->visibleFrame()).has_value()) << haloric.process().standardError();
}

TEST(ProgramScene, it_shows_that_a_window_manager_is_missing_until_one_starts)
{
    X11Session session(WindowManager::openbox);
    session.stopWindowManager();
    HaloricProcess haloric(session, kStill);
    const auto isShown = [&] {
        const auto children = session.observer().rootChildren();
        return std::any_of(children.begin(), children.end(), [&](const RootChild& child) {
            return child.isMapped && session.observer().text(child.window, "WM_NAME") == "Haloric";
        });
    };
    ASSERT_TRUE(session.observer().waitUntil(isShown)) << haloric.process().standardError();
    session.startWindowManager();
    ASSERT_TRUE(session.observer().waitUntil([&] { return !isShown(); }));
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    EXPECT_TRUE(haloric.waitForHighlight(client->visibleFrame()).has_value()) << haloric.process().standardError();
}

TEST(ProgramScene, a_signal_ends_it_while_it_shows_that_a_window_manager_is_missing)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        X11Session session(WindowManager::none);
        HaloricProcess haloric(session, kStill);
        const auto isShown = [&] {
            const auto children = session.observer().rootChildren();
            return std::any_of(children.begin(), children.end(), [&](const RootChild& child) {
                return child.isMapped && session.observer().text(child.window, "WM_NAME") == "Haloric";
            });
        };
        ASSERT_TRUE(session.observer().waitUntil(isShown)) << haloric.process().standardError();
        haloric.process().signal(signal);
        EXPECT_EQ(haloric.process().waitForExit(), 0) << haloric.process().standardError();
        EXPECT_FALSE(isShown());
    }
}

TEST(ProgramScene, a_server_that_accepts_no_further_client_is_an_error_of_one_line)
{
    // The server has room for the program's first connection at most.
    X11Session session(WindowManager::none, Compositor::none, {.arguments = {"-maxclients", "64"}});
    std::vector<std::unique_ptr<TestConnection>> crowd;
    const auto isFull = [&] {
        try {
            crowd.push_back(std::make_unique<TestConnection>(session.display()));
            return false;
        } catch (const std::runtime_error&) {
            return true;
        }
    };
    while (!isFull()) {
    }
    for (int free = 0; free < 2; ++free) {
        ChildProcess program(HaloricProcess::start({}, session.environment()));
        EXPECT_EQ(program.waitForExit(), 1) << free;
        const std::string& errors = program.standardError();
        EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
        crowd.pop_back();
    }
}

TEST_P(LifecycleScene, the_print_key_hides_the_overlays_and_escape_or_a_click_brings_them_back)
{
    const auto client = openFocused();
    startAround(*client);
    session.input().chord({Key::kPrint});
    ASSERT_TRUE(haloric->waitForNothing()) << log();
    session.input().chord({Key::kEscape});
    EXPECT_TRUE(haloric->waitForHighlight(client->visibleFrame()).has_value()) << log();
    EXPECT_TRUE(waitForBorder(*client)) << log();
    session.input().chord({Key::kAlt, Key::kPrint});
    ASSERT_TRUE(haloric->waitForNothing()) << log();
    const ScreenRect inside = client->content();
    session.input().clickAt(inside.x + inside.width / 2, inside.y + inside.height / 2);
    EXPECT_TRUE(haloric->waitForHighlight(client->visibleFrame()).has_value()) << log();
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

TEST_P(LifecycleScene, an_invalid_record_gives_the_defaults_and_is_not_overwritten)
{
    const auto client = openFocused();
    const std::string broken = R"({"borderEnabled": 1, "pulseEnabled": false})";
    startAround(*client, broken);
    EXPECT_EQ(contentsOf(HaloricProcess::settingsFile(session.environment())), broken);
}

} // namespace
} // namespace haloric
