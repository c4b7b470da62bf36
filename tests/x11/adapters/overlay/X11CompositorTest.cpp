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

} // namespace
} // namespace haloric
