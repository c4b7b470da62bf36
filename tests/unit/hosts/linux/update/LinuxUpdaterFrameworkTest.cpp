#include "hosts/linux/update/LinuxUpdaterFramework.h"

#include "fakes/FakeBundle.h"
#include "fakes/FakeModelessAlerts.h"
#include "fakes/FakeUpdateProgress.h"
#include "fakes/FakeUserDefaults.h"
#include "fakes/FakeWorkspace.h"
#include "hosts/linux/update/AppcastFetcher.h"
#include "hosts/sim/loop/SimRunLoop.h"
#include "support/LoopbackServer.h"
#include "unit/hosts/linux/update/QtTestLoop.h"

#include <optional>

namespace haloric {
namespace {

struct LinuxUpdaterFrameworkTest : testing::Test {
    QtTestLoop qtLoop;
    SimRunLoop loop;
    AppcastFetcher source;
    FakeUpdateProgress progress;
    FakeModelessAlerts alerts;
    FakeWorkspace workspace;
    FakeUserDefaults defaults;
    FakeBundle bundle;
    UpdaterDelegate delegate;
    LinuxUpdaterFramework framework{{.runLoop = loop,
                                     .source = source,
                                     .progress = progress,
                                     .alerts = alerts,
                                     .workspace = workspace,
                                     .userDefaults = defaults,
                                     .runInBackground = [](const Task& work) { work(); }},
                                    bundle};

    // The timers of a controller for the dictionary.
    std::size_t timersOf(bool isStarted)
    {
        const auto controller = framework.makeStandardController(isStarted, delegate);
        return loop.armedTimerCount();
    }
};

TEST_F(LinuxUpdaterFrameworkTest, the_feed_of_the_dictionary_is_checked_against_its_version)
{
    const LoopbackServer server([](const std::string&) {
        return LoopbackServer::feed(
            R"(<rss xmlns:s="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><item>)"
            R"(<enclosure s:version="8" s:shortVersionString="0.8"/></item></channel></rss>)");
    });
    bundle.info = {
        {"SUFeedURL", server.address("/feed")}, {"CFBundleVersion", "7"}, {"CFBundleShortVersionString", "0.7"}};
    const auto controller = framework.makeStandardController(false, delegate);
    ASSERT_NE(controller, nullptr);
    controller->checkForUpdates();
    EXPECT_TRUE(qtLoop.waitUntil([&] {
        loop.runPosted();
        return !alerts.shown.empty();
    }));
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_EQ(alerts.shown[0].informativeText, "Haloric 0.8 is available. You have 0.7.");
}

TEST_F(LinuxUpdaterFrameworkTest, without_a_feed_or_a_version_there_is_no_controller)
{
    bundle.info = {{"CFBundleVersion", "7"}};
    EXPECT_EQ(framework.makeStandardController(true, delegate), nullptr);
    bundle.info = {{"SUFeedURL", "https://example.org/feed"}};
    EXPECT_EQ(framework.makeStandardController(true, delegate), nullptr);
    bundle.info["CFBundleShortVersionString"] = "0.7";
    EXPECT_NE(framework.makeStandardController(true, delegate), nullptr);
}

TEST_F(LinuxUpdaterFrameworkTest, only_a_started_controller_checks_daily)
{
    bundle.info = {{"SUFeedURL", "https://example.org/feed"}, {"CFBundleVersion", "7"}};
    EXPECT_EQ(timersOf(false), 0U);
    EXPECT_EQ(timersOf(true), 2U);
}

TEST_F(LinuxUpdaterFrameworkTest, the_dictionary_may_switch_the_daily_checks_off)
{
    bundle.info = {{"SUFeedURL", "https://example.org/feed"}, {"CFBundleVersion", "7"}};
    bundle.numbers = {{"SUEnableAutomaticChecks", 0}};
    EXPECT_EQ(timersOf(true), 0U);
    bundle.numbers = {{"SUEnableAutomaticChecks", 1}};
    EXPECT_EQ(timersOf(true), 2U);
}

} // namespace
} // namespace haloric
