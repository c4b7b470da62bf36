#include "x11/adapters/DesktopAdapters.h"

namespace haloric {
namespace {

TEST(X11WindowManager, without_a_window_manager_there_is_no_trust)
{
    X11Session session(WindowManager::none);
    DesktopAdapters adapters(session.display());
    EXPECT_FALSE(adapters.windowManager.isRunning());
    EXPECT_FALSE(adapters.accessibility.isProcessTrusted());
    EXPECT_FALSE(adapters.accessibility.isProcessTrustedWithPrompt(true));
    EXPECT_EQ(adapters.windowManager.name(), "");
    EXPECT_FALSE(adapters.windowManager.supports(adapters.connection->atoms().activeWindow));
}

TEST(X11WindowManager, trust_follows_the_window_manager_as_it_goes_and_comes_back)
{
    X11Session session(WindowManager::openbox);
    DesktopAdapters adapters(session.display());
    EXPECT_TRUE(adapters.accessibility.isProcessTrusted());
    EXPECT_EQ(adapters.windowManager.name(), "Openbox");
    EXPECT_TRUE(adapters.windowManager.supports(adapters.connection->atoms().activeWindow));
    EXPECT_FALSE(adapters.windowManager.supports(adapters.connection->atoms().manager));

    int changes = 0;
    const auto subscription = adapters.windowManager.onChange([&] { ++changes; });
    session.stopWindowManager();
    ASSERT_TRUE(adapters.waitUntil([&] { return !adapters.windowManager.isRunning(); }));
    EXPECT_GE(changes, 1);
    session.startWindowManager();
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.windowManager.isRunning(); }));
    EXPECT_GE(changes, 2);
}

class AnnouncedWindowManager : public testing::Test {
protected:
    void announce(xcb_window_t window)
    {
        other.setValues(other.root(), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {window});
        other.synchronize();
    }

    xcb_window_t makeWindow()
    {
        const xcb_window_t window = xcb_generate_id(other.raw());
        xcb_create_window(other.raw(), XCB_COPY_FROM_PARENT, window, other.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        return window;
    }

    X11Session session{WindowManager::none};
    TestConnection other{session.display()};
    DesktopAdapters adapters{session.display()};
};

TEST_F(AnnouncedWindowManager, one_that_left_its_name_behind_does_not_run)
{
    const xcb_window_t window = makeWindow();
    announce(window);
    xcb_destroy_window(other.raw(), window);
    other.synchronize();
    adapters.settle();
    EXPECT_FALSE(adapters.windowManager.isRunning());
}

TEST_F(AnnouncedWindowManager, one_runs_only_once_its_window_names_itself)
{
    const xcb_window_t window = makeWindow();
    announce(window);
    adapters.settle();
    EXPECT_FALSE(adapters.windowManager.isRunning());
    other.setValues(window, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {window});
    other.synchronize();
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.windowManager.isRunning(); }));
    xcb_destroy_window(other.raw(), window);
    other.synchronize();
    EXPECT_TRUE(adapters.waitUntil([&] { return !adapters.windowManager.isRunning(); }));
}

TEST_F(AnnouncedWindowManager, the_root_cannot_stand_for_one)
{
    announce(other.root());
    adapters.settle();
    EXPECT_FALSE(adapters.windowManager.isRunning());
    // The root's events still arrive.
    const xcb_window_t window = makeWindow();
    other.setValues(window, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {window});
    announce(window);
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.windowManager.isRunning(); }));
}

TEST_F(AnnouncedWindowManager, a_broken_announcement_does_no_harm)
{
    other.setText(other.root(), "_NET_SUPPORTING_WM_CHECK", "nonsense");
    other.setText(other.root(), "_NET_SUPPORTED", "nonsense");
    other.synchronize();
    adapters.settle();
    EXPECT_FALSE(adapters.windowManager.isRunning());
}

} // namespace
} // namespace haloric
