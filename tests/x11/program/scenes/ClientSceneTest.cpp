// Faulty clients: after each fault the program keeps running and highlights the next window.
#include "x11/program/scenes/Scene.h"

#include <csignal>
#include <limits>

#include <sys/wait.h>

namespace haloric {
namespace {

class ClientScene : public Scene {
protected:
    // Opens another window and expects its border.
    void expectNextIsHighlighted()
    {
        ASSERT_TRUE(haloric->process().isRunning()) << log();
        const auto next = openFocused({.title = "next", .content = {900, 500, 500, 300}});
        EXPECT_TRUE(waitForBorder(*next)) << log();
    }
};
INSTANTIATE_TEST_SUITE_P(Desktops, ClientScene, testing::Values(kOpenboxPicom, kXfwm4), nameOf);

TEST_P(ClientScene, a_window_without_a_process_id_has_its_border)
{
    const auto client = openFocused({.processId = std::nullopt});
    startAround(*client);
    const auto second = openFocused({.content = {1000, 600, 400, 300}, .processId = std::nullopt});
    EXPECT_TRUE(waitForBorder(*second)) << log();
}

TEST_P(ClientScene, an_impossible_process_id_is_tolerated)
{
    for (const std::uint32_t id : {0U, std::numeric_limits<std::uint32_t>::max()}) {
        const auto client = openFocused({.processId = id});
        startAround(*client);
        expectNextIsHighlighted();
        haloric.reset();
    }
}

TEST_P(ClientScene, broken_properties_are_read_as_absent)
{
    const auto client = openFocused();
    startAround(*client);
    TestConnection& connection = client->connection();
    for (const char* name : {"_NET_WM_PID", "_GTK_FRAME_EXTENTS", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_OPACITY",
                             "WM_TRANSIENT_FOR", "_GTK_APPLICATION_ID", "WM_CLASS"})
        connection.setText(client->window(), name, "\xFF\xFE broken");
    connection.synchronize();
    ASSERT_TRUE(client->moveTo(client->content().x + 40, client->content().y + 30));
    EXPECT_TRUE(waitForBorder(*client)) << log();
    expectNextIsHighlighted();
}

TEST_P(ClientScene, invalid_shadow_widths_are_tolerated)
{
    const auto client = openFocused();
    startAround(*client);
    constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
    for (const std::vector<std::uint32_t>& widths :
         {std::vector<std::uint32_t>{kMost, kMost, kMost, kMost}, {5000, 5000, 5000, 5000}, {1}, {}}) {
        client->connection().setValues(client->window(), "_GTK_FRAME_EXTENTS", XCB_ATOM_CARDINAL, widths);
        client->connection().synchronize();
    }
    expectNextIsHighlighted();
}

TEST_P(ClientScene, huge_and_negative_rectangles_are_tolerated)
{
    const auto client = openFocused();
    startAround(*client);
    for (const ScreenRect& content : {ScreenRect{-2000, -1500, 6000, 4000}, ScreenRect{-32000, -32000, 100, 100},
                                      ScreenRect{-16000, 50, 32000, 100}, ScreenRect{30000, 30000, 1, 1}}) {
        client->requestContent(content);
        session.observer().synchronize();
    }
    expectNextIsHighlighted();
}

TEST_P(ClientScene, a_window_larger_than_the_screen_has_its_visible_edges)
{
    const auto client = openFocused({.decoration = TestClient::Decoration::none});
    startAround(*client);
    client->requestContent({-200, 100, 1500, 1400});
    ASSERT_TRUE(session.observer().waitUntil([&] { return client->visibleFrame().width == 1500; }));
    EXPECT_TRUE(session.waitForPixels(nameOfTest() + "-large", {0, 0, 1920, 1080}, [&](const ScreenImage& now) {
        const ScreenRect frame = client->visibleFrame();
        return colorDistance(now.at(frame.right() - 2, 700), kAccent) <= kTolerance;
    })) << log();
}

TEST_P(ClientScene, windows_that_are_destroyed_at_once_are_tolerated)
{
    const auto client = openFocused();
    startAround(*client);
    constexpr int kWindows = 150;
    TestConnection other(session.display());
    for (int index = 0; index < kWindows; ++index) {
        const xcb_window_t window = xcb_generate_id(other.raw());
        xcb_create_window(other.raw(), XCB_COPY_FROM_PARENT, window, other.root(), 100, 100, 300, 200, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(other.raw(), window);
        if (index % 3 == 0)
            other.synchronize(); // lets the program and the window manager start to handle it
        if (index % 5 == 0)
            other.sendToRoot(window, "_NET_ACTIVE_WINDOW", {2, XCB_CURRENT_TIME, 0});
        xcb_destroy_window(other.raw(), window);
    }
    other.synchronize();
    expectNextIsHighlighted();
}

TEST_P(ClientScene, the_highlight_of_a_disconnected_client_is_removed)
{
    const ScreenImage empty = settled({0, 0, 1920, 1080});
    auto client = openFocused();
    startAround(*client);
    client.reset(); // closes its connection without destroying the window first
    EXPECT_TRUE(waitForPicture(empty)) << log();
    expectNextIsHighlighted();
}

TEST_P(ClientScene, a_stopped_client_blocks_nothing)
{
    const auto client = openFocused({.content = {200, 200, 500, 300}});
    startAround(*client);
    const auto process = static_cast<pid_t>(session.observer().value(client->window(), "_NET_WM_PID").value_or(0));
    ASSERT_GT(process, 1);
    int status = 0;
    ASSERT_EQ(::kill(process, SIGSTOP), 0);
    ASSERT_EQ(::waitpid(process, &status, WUNTRACED), process);
    ASSERT_TRUE(WIFSTOPPED(status));
    expectNextIsHighlighted();
    ASSERT_TRUE(client->focus());
    EXPECT_TRUE(waitForBorder(*client)) << log();
}

TEST_P(ClientScene, the_active_window_may_be_none_or_invalid)
{
    const auto client = openFocused();
    startAround(*client);
    for (const std::uint32_t window : {0U, 0x1FFFFFFFU, session.observer().root()}) {
        session.observer().setValues(session.observer().root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, {window});
        session.observer().synchronize();
    }
    expectNextIsHighlighted();
}

} // namespace
} // namespace haloric
