#include "hosts/linux/update/LinuxUpdaterFramework.h"

#include "fakes/FakeAlerts.h"
#include "fakes/FakeBundle.h"
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
    FakeAlerts alerts;
    FakeWorkspace workspace;
    FakeUserDefaults defaults;
    FakeBundle bundle;
    UpdaterDelegate delegate;
    LinuxUpdaterFramework framework{{.runLoop = loop,
                                     .source = source,
                                     .progress = progress,
                                     .alerts = alerts,
                                     .workspace = workspace,
                                     .userDefaults = defaults},
                                    bundle};
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
    bundle.info = {{"SUFeedURL", "not an address"}, {"CFBundleVersion", "7"}};
    const auto idle = framework.makeStandardController(false, delegate);
    loop.runFor(Seconds(100));
    EXPECT_TRUE(defaults.writes.empty());
    const auto started = framework.makeStandardController(true, delegate);
    loop.runFor(Seconds(100));
    EXPECT_EQ(defaults.writes.size(), 1U);
}

// A source that answers on the test's command.
struct FakeAppcastSource final : AppcastSource {
    std::vector<std::string> asked;
    std::function<void(const AppcastDownload&)> answer;
    bool dropped = false;

    Subscription fetch(const std::string& address, std::function<void(const AppcastDownload&)> done) override
    {
        asked.push_back(address);
        answer = std::move(done);
        return Subscription([this] { dropped = true; });
    }
};

constexpr Seconds kDay{86400};

struct LinuxUpdaterControllerTest : testing::Test {
    SimRunLoop loop;
    FakeAppcastSource source;
    FakeUpdateProgress progress;
    FakeAlerts alerts;
    FakeWorkspace workspace;
    FakeUserDefaults defaults;
    std::optional<LinuxUpdaterController> controller{
        std::in_place,
        LinuxUpdaterController::Dependencies{.runLoop = loop,
                                             .source = source,
                                             .progress = progress,
                                             .alerts = alerts,
                                             .workspace = workspace,
                                             .userDefaults = defaults},
        LinuxUpdaterController::Installed{
            .feed = "https://example.org/feed", .version = "12", .displayVersion = "1.2"}};

    LinuxUpdaterControllerTest() { loop.setWallClockOrigin(Seconds(1'800'000'000)); }

    static AppcastDownload feed(const std::string& version, const std::string& link = "https://example.org/get")
    {
        return {.bytes = R"(<rss xmlns:s="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><item>)"
                         "<s:version>" +
                         version + "</s:version><s:shortVersionString>1." + version + "</s:shortVersionString><link>" +
                         link +
                         "</link><description>Better.</description>"
                         "</item></channel></rss>",
                .error = {}};
    }
    void answer(const AppcastDownload& download)
    {
        const auto call = source.answer;
        ASSERT_TRUE(call);
        call(download);
        loop.runPosted();
    }
};

TEST_F(LinuxUpdaterControllerTest, a_newer_version_is_offered_with_its_notes)
{
    controller->checkForUpdates();
    EXPECT_THAT(source.asked, testing::ElementsAre("https://example.org/feed"));
    answer(feed("13"));
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_EQ(alerts.shown[0].messageText, "A new version of Haloric is available.");
    EXPECT_EQ(alerts.shown[0].informativeText, "Haloric 1.13 is available. You have 1.2.\n\nBetter.");
    EXPECT_THAT(alerts.shown[0].buttons, testing::ElementsAre("Open Download Page", "Later"));
    EXPECT_TRUE(workspace.openedURLs.empty()); // the answer was "Later"
}

TEST_F(LinuxUpdaterControllerTest, the_first_button_opens_the_page)
{
    alerts.answer = Alerts::kFirstButton;
    controller->checkForUpdates();
    answer(feed("13"));
    EXPECT_THAT(workspace.openedURLs, testing::ElementsAre("https://example.org/get"));
}

TEST_F(LinuxUpdaterControllerTest, an_insecure_page_is_not_offered)
{
    alerts.answer = Alerts::kFirstButton;
    controller->checkForUpdates();
    answer(feed("13", "http://example.org/get"));
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_THAT(alerts.shown[0].buttons, testing::ElementsAre("OK"));
    EXPECT_TRUE(workspace.openedURLs.empty());
}

TEST_F(LinuxUpdaterControllerTest, the_newest_version_is_reported_as_such)
{
    controller->checkForUpdates();
    answer(feed("12"));
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_EQ(alerts.shown[0].messageText, "You’re up to date.");
    EXPECT_EQ(alerts.shown[0].informativeText, "Haloric 1.2 is the newest version available.");
}

TEST_F(LinuxUpdaterControllerTest, a_requested_check_reports_failures)
{
    controller->checkForUpdates();
    answer({.bytes = {}, .error = "It rains."});
    controller->checkForUpdates();
    answer({.bytes = "<html/>", .error = {}});
    ASSERT_EQ(alerts.shown.size(), 2U);
    EXPECT_EQ(alerts.shown[0].messageText, "The check for updates failed.");
    EXPECT_EQ(alerts.shown[0].informativeText, "It rains.");
    EXPECT_EQ(alerts.shown[1].informativeText, "What the server sent is no update feed.");
}

TEST_F(LinuxUpdaterControllerTest, there_is_no_daily_check_before_the_start)
{
    loop.runFor(2 * kDay);
    EXPECT_TRUE(source.asked.empty());
}

TEST_F(LinuxUpdaterControllerTest, it_checks_a_minute_after_the_start_and_then_once_a_day)
{
    controller->start();
    loop.runFor(Seconds(59));
    EXPECT_TRUE(source.asked.empty());
    loop.runFor(Seconds(2));
    EXPECT_EQ(source.asked.size(), 1U);
    answer(feed("12"));
    loop.runFor(kDay - Seconds(3600));
    EXPECT_EQ(source.asked.size(), 1U);
    loop.runFor(Seconds(7200));
    EXPECT_EQ(source.asked.size(), 2U);
}

TEST_F(LinuxUpdaterControllerTest, a_daily_check_shows_only_updates)
{
    controller->start();
    loop.runFor(Seconds(61));
    answer({.bytes = {}, .error = "It rains."});
    loop.runFor(kDay + Seconds(3600));
    answer(feed("12"));
    EXPECT_TRUE(alerts.shown.empty());
    loop.runFor(kDay + Seconds(3600));
    answer(feed("13"));
    EXPECT_EQ(alerts.shown.size(), 1U);
}

TEST_F(LinuxUpdaterControllerTest, a_check_of_the_same_day_counts_across_restarts)
{
    defaults.stored[std::string(LinuxUpdaterController::kLastCheckKey)] = "1799999000";
    controller->start();
    loop.runFor(Seconds(3000));
    EXPECT_TRUE(source.asked.empty());
}

TEST_F(LinuxUpdaterControllerTest, an_invalid_or_future_time_of_the_last_check_is_ignored)
{
    for (const char* time : {"yesterday", "", "1900000000"}) {
        source.asked.clear();
        defaults.stored[std::string(LinuxUpdaterController::kLastCheckKey)] = time;
        controller->start();
        loop.runFor(Seconds(61));
        EXPECT_EQ(source.asked.size(), 1U) << time;
        answer(feed("12"));
    }
}

TEST_F(LinuxUpdaterControllerTest, a_request_during_a_daily_check_gets_its_outcome)
{
    controller->start();
    loop.runFor(Seconds(61));
    controller->checkForUpdates();
    controller->checkForUpdates();
    EXPECT_EQ(source.asked.size(), 1U);
    answer(feed("12"));
    EXPECT_EQ(alerts.shown.size(), 1U);
}

TEST_F(LinuxUpdaterControllerTest, there_is_no_second_alert_while_one_is_open)
{
    alerts.whileShown = [this] {
        controller->checkForUpdates();
        EXPECT_EQ(source.asked.size(), 1U);
    };
    controller->checkForUpdates();
    answer(feed("13"));
    EXPECT_EQ(alerts.shown.size(), 1U);
    alerts.whileShown = nullptr;
    controller->checkForUpdates();
    EXPECT_EQ(source.asked.size(), 2U);
}

TEST_F(LinuxUpdaterControllerTest, a_requested_check_shows_progress_until_its_outcome)
{
    alerts.whileShown = [this] { EXPECT_FALSE(progress.isShown); };
    controller->checkForUpdates();
    EXPECT_TRUE(progress.isShown);
    controller->checkForUpdates();
    EXPECT_TRUE(progress.isShown);
    EXPECT_EQ(progress.timesShown, 2); // brought to the front
    answer(feed("12"));
    EXPECT_EQ(alerts.shown.size(), 1U);
    EXPECT_FALSE(progress.isShown);
}

TEST_F(LinuxUpdaterControllerTest, a_daily_check_shows_progress_only_after_a_request)
{
    controller->start();
    loop.runFor(Seconds(61));
    EXPECT_FALSE(progress.isShown);
    controller->checkForUpdates();
    EXPECT_TRUE(progress.isShown);
}

TEST_F(LinuxUpdaterControllerTest, a_cancelled_check_shows_no_alert_and_can_be_requested_again)
{
    controller->checkForUpdates();
    progress.cancel();
    EXPECT_TRUE(source.dropped);
    EXPECT_FALSE(progress.isShown);
    loop.runPosted();
    EXPECT_TRUE(alerts.shown.empty());
    controller->checkForUpdates();
    EXPECT_EQ(source.asked.size(), 2U);
    answer(feed("13"));
    EXPECT_EQ(alerts.shown.size(), 1U);
}

TEST_F(LinuxUpdaterControllerTest, it_may_be_destroyed_during_a_check_and_during_an_alert)
{
    controller->checkForUpdates();
    source.answer(feed("13"));
    alerts.whileShown = [this] { controller.reset(); };
    alerts.answer = Alerts::kFirstButton;
    loop.runPosted();
    EXPECT_THAT(workspace.openedURLs, testing::ElementsAre("https://example.org/get"));
}

TEST_F(LinuxUpdaterControllerTest, destroying_it_cancels_the_check)
{
    controller->checkForUpdates();
    controller.reset();
    EXPECT_TRUE(source.dropped);
    loop.runFor(kDay);
    EXPECT_TRUE(alerts.shown.empty());
}

} // namespace
} // namespace haloric
