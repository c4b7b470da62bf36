#include "app/AppControl.h"

#include "fakes/FakeApplication.h"
#include "fakes/FakeBundle.h"
#include "fakes/FakeProcesses.h"

namespace haloric {
namespace {

class AppControlTest : public testing::Test {
protected:
    void restartFrom(const std::string& path)
    {
        bundle.bundlePath = path;
        AppControl::restart(bundle, processes, application);
    }

    const std::string kOpenLater = "sleep 0.4; /usr/bin/open ";

    FakeBundle bundle;
    FakeProcesses processes;
    FakeApplication application;
};

TEST_F(AppControlTest, restart_opens_the_bundle_again_from_a_shell_and_quits)
{
    restartFrom("/Applications/My Tools/Haloric.app");
    EXPECT_EQ(processes.launches, (std::vector<FakeProcesses::Launch>{
                                      {"/bin/sh", {"-c", kOpenLater + "\"/Applications/My Tools/Haloric.app\""}}}));
    EXPECT_TRUE(application.terminated);
}

TEST_F(AppControlTest, restart_does_not_escape_quotes_in_the_path)
{
    restartFrom("/tmp/a\"b.app");
    EXPECT_EQ(processes.launches.at(0).arguments.at(1), kOpenLater + "\"/tmp/a\"b.app\"");
}

TEST_F(AppControlTest, restart_outside_a_bundle_only_quits)
{
    for (const char* path : {"/usr/local/bin", "/Applications/Haloric.app/Contents", "/x.application", ""}) {
        application.terminated = false;
        restartFrom(path);
        EXPECT_TRUE(processes.launches.empty());
        EXPECT_TRUE(application.terminated);
    }
}

TEST_F(AppControlTest, restart_quits_even_if_the_shell_cannot_be_launched)
{
    processes.refusesToLaunch = true;
    restartFrom("/Applications/Haloric.app");
    EXPECT_EQ(processes.launches.size(), 1U);
    EXPECT_TRUE(application.terminated);
}

TEST_F(AppControlTest, restart_launches_before_it_quits)
{
    class Quitting final : public ApplicationDelegate {
    public:
        explicit Quitting(const FakeProcesses& processes) : m_processes(processes) {}
        std::size_t launchesAtTheEnd = 99;

    private:
        void applicationDidFinishLaunching() override {}
        void applicationWillTerminate() override { launchesAtTheEnd = m_processes.launches.size(); }
        const FakeProcesses& m_processes;
    };
    Quitting delegate(processes);
    application.setDelegate(&delegate);
    restartFrom("/Applications/Haloric.app");
    EXPECT_EQ(delegate.launchesAtTheEnd, 1U);
}

} // namespace
} // namespace haloric
