#include "hosts/x11/X11Application.h"

#include "hosts/x11/X11Alerts.h"

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
    X11RunLoop loop;
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

TEST_F(X11ApplicationTest, reopening_reaches_the_delegate_from_launch_to_termination)
{
    application.reopen();
    loop.post([this] {
        application.reopen();
        application.terminate();
        application.reopen();
    });
    application.run();
    EXPECT_THAT(delegate.events, testing::ElementsAre("launched", "reopened", "terminating"));
}

TEST_F(X11ApplicationTest, it_tells_its_process)
{
    EXPECT_EQ(application.processID(), static_cast<ProcessID>(getpid()));
    EXPECT_FALSE(application.keyWindow());
    EXPECT_FALSE(application.mainWindow());
}

TEST(X11Alerts, an_alert_is_written_out_and_answered_with_the_last_button)
{
    testing::internal::CaptureStderr();
    X11Alerts alerts;
    const auto answer =
        alerts.runModal({.messageText = "A question", .informativeText = "More of it.", .buttons = {"Do it", "Later"}});
    EXPECT_EQ(answer, 1001);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "A question\n\nMore of it.\n");
}

} // namespace
} // namespace haloric
