// Where the window with the form is on the screen, and how large.
#include "x11/qt/FormHarness.h"

namespace haloric {
namespace {

constexpr int kWidth = 440; // points, and pixels here

// A desktop whose only window will be the form's.
struct FormPlace : testing::Test {
    // Waits until the form's window has come to its place.
    static ScreenRect shown(X11Session& session, FormHarness& toy)
    {
        DesktopObserver& observer = session.observer();
        EXPECT_TRUE(toy.showForm());
        toy.place("toggle");
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
    FormHarness toy(session);
    toy.tell("scope 1"); // so that there is something to scroll to
    toy.tell("center");
    const ScreenRect window = shown(session, toy);
    EXPECT_EQ(window.width, kWidth);
    EXPECT_TRUE(isWithin(session, 640, 480));
    const int end = toy.place("Quit Haloric").y; // the buttons stay below what scrolls
    EXPECT_LE(end, window.bottom());
    EXPECT_GT(toy.place("choose").bottom(), end);
    const int before = toy.place("toggle").y;
    session.input().moveTo(window.x + 4, window.y + window.height / 2);
    session.input().press(XCB_BUTTON_INDEX_5); // the wheel
    session.input().release(XCB_BUTTON_INDEX_5);
    EXPECT_TRUE(session.observer().waitUntil([&] { return toy.place("toggle").y < before; }));
    ASSERT_TRUE(toy.tabTo("choose"));
    EXPECT_TRUE(session.observer().waitUntil([&] { return toy.place("choose").bottom() <= end; }));
}

TEST_F(FormPlace, on_a_screen_that_has_become_smaller_the_window_is_shown_whole)
{
    X11Session session(WindowManager::openbox, Compositor::none, {.kind = X11ServerKind::dummy});
    FormHarness toy(session);
    toy.tell("center");
    const ScreenRect large = shown(session, toy);
    EXPECT_EQ(large.height, 560);
    constexpr std::uint32_t kXAndYByTheUser = 3U << 8 | 2U << 12;
    const xcb_window_t window = session.observer().clientList().front();
    session.observer().sendToRoot(window, "_NET_MOVERESIZE_WINDOW", {kXAndYByTheUser, 1300, 400, 0, 0});
    ASSERT_TRUE(session.observer().waitUntil([&] { return frame(session).x == 1300; }));
    toy.place("toggle"); // the program has heard of it
    toy.press(Key::kEscape);
    ASSERT_TRUE(session.observer().waitUntil([&] { return session.observer().clientList().empty(); }));

    ASSERT_TRUE(session.server().xrandr({"--output", "DUMMY0", "--mode", "640x480"}));
    ASSERT_TRUE(toy.waitForAvailable("640x480"));
    const ScreenRect small = shown(session, toy);
    EXPECT_EQ(small.width, kWidth);
    EXPECT_TRUE(isWithin(session, 640, 480));
}

} // namespace
} // namespace haloric
