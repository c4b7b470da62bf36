// The position and size of the form's window.
#include "x11/qt/FormHarness.h"

namespace haloric {
namespace {

constexpr int kWidth = 440; // points, and pixels here

// The form's window is the only one on the desktop.
struct FormPlace : testing::Test {
    // Shows the form and waits until its window has its position. Returns its rectangle.
    static ScreenRect shown(X11Session& session, FormHarness& harness)
    {
        DesktopObserver& observer = session.observer();
        EXPECT_TRUE(harness.showForm());
        harness.place("toggle");
        return observer.clientList().empty() ? ScreenRect{} : observer.rectOnRoot(observer.clientList().front());
    }
    static ScreenRect frame(X11Session& session)
    {
        DesktopObserver& observer = session.observer();
        return observer.rectOnRoot(observer.topLevelOf(observer.clientList().front()));
    }
    static bool isWithin(X11Session& session, int width, int height)
    {
        return session.observer().waitUntil([&] {
            const ScreenRect now = frame(session);
            return now.x >= 0 && now.y >= 0 && now.right() <= width && now.bottom() <= height;
        });
    }
};

TEST_F(FormPlace, on_a_small_screen_the_window_keeps_its_width_and_the_form_scrolls)
{
    X11Session session(WindowManager::openbox, Compositor::none, {.width = 640, .height = 480});
    FormHarness harness(session);
    harness.send("scope 1"); // makes the form higher than the window
    harness.send("center");
    const ScreenRect window = shown(session, harness);
    EXPECT_EQ(window.width, kWidth);
    EXPECT_TRUE(isWithin(session, 640, 480));
    const int end = harness.place("Quit Haloric").y; // the buttons stay below the scrolled sections
    EXPECT_LE(end, window.bottom());
    EXPECT_GT(harness.place("choose").bottom(), end);
    const int before = harness.place("toggle").y;
    session.input().moveTo(window.x + 4, window.y + window.height / 2);
    session.input().press(XCB_BUTTON_INDEX_5); // the wheel
    session.input().release(XCB_BUTTON_INDEX_5);
    EXPECT_TRUE(session.observer().waitUntil([&] { return harness.place("toggle").y < before; }));
    ASSERT_TRUE(harness.tabTo("choose"));
    EXPECT_TRUE(session.observer().waitUntil([&] { return harness.place("choose").bottom() <= end; }));
}

TEST_F(FormPlace, a_notice_is_visible_above_the_buttons_while_there_is_one)
{
    X11Session session(WindowManager::openbox);
    FormHarness harness(session);
    harness.send("scope 1");
    ASSERT_TRUE(harness.showForm());
    EXPECT_FALSE(harness.isVisible("notice"));
    harness.send("notice Your changes are not saved. The disk has no room left for ~/.config. Make some room, "
                 "then try again.");
    const ScreenRect notice = harness.place("notice");
    const ScreenRect button = harness.place("Reset to Defaults");
    EXPECT_GT(notice.height, 0);
    EXPECT_LE(notice.bottom(), button.y);
    harness.send("notice ");
    EXPECT_TRUE(session.observer().waitUntil([&] { return !harness.isVisible("notice"); }));
}

TEST_F(FormPlace, after_the_screen_has_shrunk_the_window_reopens_inside_it)
{
    X11Session session(WindowManager::openbox, Compositor::none, {.kind = X11ServerKind::dummy});
    FormHarness harness(session);
    harness.send("center");
    const ScreenRect large = shown(session, harness);
    EXPECT_EQ(large.height, 560);
    constexpr std::uint32_t kXAndYByTheUser = 3U << 8 | 2U << 12;
    const xcb_window_t window = session.observer().clientList().front();
    session.observer().sendToRoot(window, "_NET_MOVERESIZE_WINDOW", {kXAndYByTheUser, 1300, 400, 0, 0});
    ASSERT_TRUE(session.observer().waitUntil([&] { return frame(session).x == 1300; }));
    harness.place("toggle"); // waits until the program has seen the move
    harness.press(Key::kEscape);
    ASSERT_TRUE(session.observer().waitUntil([&] { return session.observer().clientList().empty(); }));

    ASSERT_TRUE(session.server().xrandr({"--output", "DUMMY0", "--mode", "640x480"}));
    ASSERT_TRUE(harness.waitForAvailable("640x480"));
    const ScreenRect small = shown(session, harness);
    EXPECT_EQ(small.width, kWidth);
    EXPECT_TRUE(isWithin(session, 640, 480));
}

} // namespace
} // namespace haloric
