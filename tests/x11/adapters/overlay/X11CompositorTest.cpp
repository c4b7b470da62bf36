#include "x11/adapters/ScreenAdapters.h"

namespace haloric {
namespace {

TEST(X11Compositor, it_is_seen_to_come_and_go)
{
    X11Session session(WindowManager::openbox);
    ScreenAdapters adapters(session);
    int changes = 0;
    const auto subscription = adapters.compositor.onChange([&] { ++changes; });
    EXPECT_FALSE(adapters.compositor.isRunning());
    EXPECT_EQ(adapters.compositor.name(), "");

    session.startCompositor();
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.compositor.isRunning(); }));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(adapters.compositor.name(), "picom");

    session.stopCompositor();
    EXPECT_TRUE(adapters.waitUntil([&] { return !adapters.compositor.isRunning(); }));
    EXPECT_EQ(changes, 2);
}

TEST(X11Compositor, one_that_runs_already_is_known_at_once)
{
    X11Session session(WindowManager::openbox, Compositor::picom);
    EXPECT_TRUE(ScreenAdapters(session).compositor.isRunning());
}

TEST(X11Compositor, one_that_takes_over_from_another_is_no_change)
{
    X11Session session(WindowManager::none);
    ScreenAdapters adapters(session);
    int changes = 0;
    const auto subscription = adapters.compositor.onChange([&] { ++changes; });
    TestConnection& other = session.observer();
    for (int owner = 0; owner < 3; ++owner) {
        const xcb_window_t window = xcb_generate_id(other.raw());
        xcb_create_window(other.raw(), XCB_COPY_FROM_PARENT, window, other.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(other.raw(), window, other.atom("_NET_WM_CM_S0"), XCB_CURRENT_TIME);
        other.synchronize();
        adapters.settle();
    }
    EXPECT_TRUE(adapters.compositor.isRunning());
    EXPECT_EQ(changes, 1);
}

} // namespace
} // namespace haloric
