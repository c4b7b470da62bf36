#include "testing/x11/X11Session.h"

namespace haloric {
namespace {

TEST(ServerSmoke, two_servers_take_different_displays)
{
    const X11Server first;
    const X11Server second;
    EXPECT_NE(first.display(), second.display());
}

TEST(ServerSmoke, a_child_process_reports_its_lines_and_its_exit_code)
{
    const X11Server server;
    ChildProcess child({{"sh", "-c", "echo ready; echo trouble >&2; exit 3"}, server.environment(), {}, -1});
    EXPECT_EQ(child.waitForLine("ready"), "ready");
    EXPECT_EQ(child.waitForExit(), 3);
    EXPECT_EQ(child.standardError(), "trouble\n");
}

TEST(ServerSmoke, a_child_process_that_ignores_SIGTERM_is_killed)
{
    const X11Server server;
    ChildProcess child(
        {{"sh", "-c", "trap '' TERM; echo ready; exec tail -f /dev/null"}, server.environment(), {}, -1});
    ASSERT_TRUE(child.waitForLine("ready"));
    EXPECT_EQ(child.terminate(std::chrono::milliseconds(50)), 128 + 9);
}

TEST(ServerSmoke, screens_are_added_and_removed_on_the_dummy_driver)
{
    X11Session session(WindowManager::openbox, Compositor::none, {.kind = X11ServerKind::dummy});
    const auto width = [&session] { return session.observer().capture().area().width; };
    const int before = width();
    ASSERT_TRUE(session.server().xrandr({"--addmode", "DUMMY1", "1024x768"}));
    ASSERT_TRUE(
        session.server().xrandr({"--output", "DUMMY1", "--mode", "1024x768", "--pos", std::to_string(before) + "x0"}));
    EXPECT_EQ(width(), before + 1024);
    ASSERT_TRUE(session.server().xrandr({"--output", "DUMMY1", "--off"}));
    EXPECT_EQ(width(), before);
}

} // namespace
} // namespace haloric
