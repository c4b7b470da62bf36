#include "hosts/x11/X11Application.h"

#include "hosts/linux/loop/LinuxRunLoop.h"

#include <unistd.h>

namespace haloric {
namespace {

struct RecordingDelegate final : ApplicationDelegate {
    std::vector<std::string> events;
    std::function<void()> whenLaunched;
    void applicationDidFinishLaunching() override
    {
        events.emplace_back("launched");
        if (whenLaunched)
            whenLaunched();
    }
    bool applicationShouldHandleReopen(bool hasVisibleWindows) override
    {
        events.emplace_back(hasVisibleWindows ? "reopened with windows" : "reopened");
        return false;
    }
    void applicationWillTerminate() override { events.emplace_back("terminating"); }
};

struct X11ApplicationTest : testing::Test {
    LinuxRunLoop loop;
    X11Application application{loop};
    RecordingDelegate delegate;
    X11ApplicationTest() { application.setDelegate(&delegate); }
};

TEST_F(X11ApplicationTest, it_runs_from_launch_to_termination)
{
    loop.post([this] { application.terminate(); });
    application.run();
    EXPECT_THAT(delegate.events, testing::ElementsAre("launched", "terminating"));
}

TEST_F(X11ApplicationTest, a_termination_while_launching_ends_the_run)
{
    delegate.whenLaunched = [this] { application.terminate(); };
    application.run();
    EXPECT_THAT(delegate.events, testing::ElementsAre("launched", "terminating"));
}

TEST_F(X11ApplicationTest, a_termination_before_the_run_means_that_nothing_is_launched)
{
    application.terminate();
    application.run();
    EXPECT_THAT(delegate.events, testing::IsEmpty());
}

TEST_F(X11ApplicationTest, a_second_termination_does_nothing)
{
    loop.post([this] {
        application.terminate();
        application.terminate();
    });
    application.run();
    EXPECT_EQ(delegate.events.size(), 2U);
}

TEST_F(X11ApplicationTest, reopening_reaches_the_delegate_after_launch_and_until_termination)
{
    application.reopen();
    loop.post([this] {
        application.reopen();
        application.terminate();
        application.reopen();
    });
    application.run();
    EXPECT_THAT(delegate.events, testing::ElementsAre("launched", "reopened", "reopened", "terminating"));
}

TEST_F(X11ApplicationTest, it_returns_its_process)
{
    EXPECT_EQ(application.processID(), static_cast<ProcessID>(getpid()));
    EXPECT_FALSE(application.keyWindow());
    EXPECT_FALSE(application.mainWindow());
}

struct OwnWindows : testing::Test {
    X11ClientTable clients;
    X11Scale scale{{.pixelsPerPoint = 2, .primary = {0, 0, 1000, 800}}};
    X11ApplicationWindows windows{clients, scale};

    void store(xcb_window_t window, ProcessID pid)
    {
        X11ClientRecord record;
        record.client.window = window;
        record.client.pid = pid;
        record.client.mapped = true;
        record.client.geometry.client = {100, 140, 400, 300};
        record.client.geometry.decoration = X11Extents{.left = 0, .right = 0, .top = 40, .bottom = 0};
        clients.store(record);
    }
};

TEST_F(OwnWindows, the_key_window_is_the_active_one_of_this_process)
{
    store(7, static_cast<ProcessID>(getpid()));
    clients.setState({.activeWindow = 7});
    const auto key = windows.key();
    ASSERT_TRUE(key);
    EXPECT_EQ(key->number, 7);
    EXPECT_EQ(key->frame, (Rect{50, 180, 200, 170}));
    EXPECT_EQ(key->contentLayoutHeight, 150);
    EXPECT_TRUE(key->visible);
    EXPECT_FALSE(key->overlay);
}

TEST_F(OwnWindows, the_active_window_of_another_process_is_not_ours)
{
    store(7, static_cast<ProcessID>(getpid() + 1));
    clients.setState({.activeWindow = 7});
    EXPECT_FALSE(windows.key());
    EXPECT_FALSE(windows.main());
}

} // namespace
} // namespace haloric
