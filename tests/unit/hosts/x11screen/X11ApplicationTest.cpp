#include "hosts/x11/X11Application.h"

#include "hosts/x11/X11RunLoop.h"

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

TEST_F(X11ApplicationTest, it_tells_its_process)
{
    EXPECT_EQ(application.processID(), static_cast<ProcessID>(getpid()));
    EXPECT_FALSE(application.keyWindow());
    EXPECT_FALSE(application.mainWindow());
}

} // namespace
} // namespace haloric
