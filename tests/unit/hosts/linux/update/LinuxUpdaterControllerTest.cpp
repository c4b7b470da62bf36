// The controller's checks: on request and by their schedule.
#include "fakes/FakeModelessAlerts.h"
#include "fakes/FakeUpdateProgress.h"
#include "fakes/FakeUserDefaults.h"
#include "fakes/FakeWorkspace.h"
#include "hosts/linux/update/LinuxUpdaterFramework.h"
#include "hosts/sim/loop/SimRunLoop.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace haloric {
namespace {

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
const LinuxUpdaterController::Installed kInstalled{
    .feed = "https://example.org/feed", .version = "12", .displayVersion = "1.2"};

struct LinuxUpdaterControllerTest : testing::Test {
    SimRunLoop loop;
    FakeAppcastSource source;
    FakeUpdateProgress progress;
    FakeModelessAlerts alerts;
    FakeWorkspace workspace;
    FakeUserDefaults defaults;
    std::optional<LinuxUpdaterController> controller{std::in_place, dependencies(), kInstalled};

    LinuxUpdaterController::Dependencies dependencies()
    {
        return {.runLoop = loop,
                .source = source,
                .progress = progress,
                .alerts = alerts,
                .workspace = workspace,
                .userDefaults = defaults,
                .runInBackground = [](const Task& work) { work(); }};
    }

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
    EXPECT_THAT(alerts.shown[0].buttons, testing::ElementsAre("Open Download Page", "Skip This Version", "Later"));
    alerts.press(2);
    EXPECT_FALSE(alerts.isOpen);
    EXPECT_TRUE(workspace.openedURLs.empty());
    EXPECT_FALSE(defaults.stored.contains(LinuxUpdaterController::kSkippedVersionKey));
}

TEST_F(LinuxUpdaterControllerTest, the_first_button_opens_the_page)
{
    controller->checkForUpdates();
    answer(feed("13"));
    alerts.press(0);
    EXPECT_FALSE(alerts.isOpen);
    EXPECT_THAT(workspace.openedURLs, testing::ElementsAre("https://example.org/get"));
}

TEST_F(LinuxUpdaterControllerTest, an_insecure_page_is_not_offered)
{
    controller->checkForUpdates();
    answer(feed("13", "http://example.org/get"));
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_THAT(alerts.shown[0].buttons, testing::ElementsAre("Skip This Version", "Later"));
    alerts.press(0);
    EXPECT_EQ(defaults.stored[std::string(LinuxUpdaterController::kSkippedVersionKey)], "13");
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
    loop.runFor(Seconds(3600));
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

TEST_F(LinuxUpdaterControllerTest, a_failed_check_is_tried_again_after_an_hour)
{
    controller->start();
    loop.runFor(Seconds(61));
    answer({.bytes = {}, .error = "It rains."});
    EXPECT_FALSE(defaults.stored.contains(LinuxUpdaterController::kLastCheckKey));
    loop.runFor(Seconds(3590));
    EXPECT_EQ(source.asked.size(), 1U);
    loop.runFor(Seconds(10));
    EXPECT_EQ(source.asked.size(), 2U);
    answer({.bytes = "<rss", .error = {}});
    loop.runFor(Seconds(3600));
    EXPECT_EQ(source.asked.size(), 3U);
    answer(feed("12"));
    loop.runFor(kDay - Seconds(3600));
    EXPECT_EQ(source.asked.size(), 3U);
}

TEST_F(LinuxUpdaterControllerTest, a_skipped_version_is_offered_only_on_request)
{
    controller->start();
    loop.runFor(Seconds(61));
    answer(feed("13"));
    ASSERT_TRUE(alerts.isOpen);
    alerts.press(1);
    EXPECT_FALSE(alerts.isOpen);
    EXPECT_EQ(defaults.stored[std::string(LinuxUpdaterController::kSkippedVersionKey)], "13");
    loop.runFor(kDay + Seconds(3600));
    answer(feed("13"));
    EXPECT_EQ(alerts.shown.size(), 1U);
    controller->checkForUpdates();
    answer(feed("13"));
    EXPECT_EQ(alerts.shown.size(), 2U);
    alerts.press(2);
    loop.runFor(kDay + Seconds(3600));
    answer(feed("13.1"));
    EXPECT_EQ(alerts.shown.size(), 3U) << "a newer version than the skipped one";
}

TEST_F(LinuxUpdaterControllerTest, the_interval_is_an_hour_at_least)
{
    using Schedule = LinuxUpdaterController::Schedule;
    const std::pair<Seconds, std::size_t> expected[] = {{7 * kDay, 1}, {Seconds(1), 25}, {Seconds(-1), 25}};
    for (const auto& [interval, checks] : expected) {
        defaults.stored.clear();
        source.asked.clear();
        controller.emplace(dependencies(), kInstalled, Schedule{.isOn = true, .interval = interval});
        controller->start();
        for (int hour = 0; hour < 25; ++hour) {
            const std::size_t before = source.asked.size();
            loop.runFor(Seconds(hour == 0 ? 61 : 3600));
            if (source.asked.size() > before)
                answer(feed("12"));
        }
        EXPECT_EQ(source.asked.size(), checks) << interval.count();
    }
}

TEST_F(LinuxUpdaterControllerTest, without_a_schedule_only_requests_check)
{
    controller.emplace(dependencies(), kInstalled, LinuxUpdaterController::Schedule{.isOn = false});
    controller->start();
    controller->checkForUpdates();
    answer({.bytes = {}, .error = "It rains."});
    loop.runFor(2 * kDay);
    EXPECT_EQ(source.asked.size(), 1U);
}

TEST_F(LinuxUpdaterControllerTest, an_open_offer_blocks_nothing_and_a_request_replaces_it)
{
    controller->start();
    loop.runFor(Seconds(61));
    answer(feed("13"));
    ASSERT_TRUE(alerts.isOpen);
    loop.runFor(2 * kDay);
    EXPECT_EQ(source.asked.size(), 1U) << "the open offer is enough";
    controller->checkForUpdates();
    EXPECT_FALSE(alerts.isOpen);
    answer(feed("14"));
    EXPECT_TRUE(alerts.isOpen);
    EXPECT_EQ(alerts.shown.size(), 2U);
}

TEST_F(LinuxUpdaterControllerTest, the_feed_is_read_in_the_background_and_a_cancelled_check_drops_its_outcome)
{
    Task work;
    auto inBackground = dependencies();
    inBackground.runInBackground = [&work](Task task) { work = std::move(task); };
    controller.emplace(inBackground, kInstalled);
    controller->checkForUpdates();
    answer(feed("13"));
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_TRUE(progress.isShown);
    progress.cancel();
    work();
    loop.runPosted();
    EXPECT_TRUE(alerts.shown.empty());
    controller->checkForUpdates();
    answer(feed("13"));
    work();
    EXPECT_TRUE(alerts.shown.empty()) << "on the main loop only";
    loop.runPosted();
    EXPECT_EQ(alerts.shown.size(), 1U);
    EXPECT_FALSE(progress.isShown);
}

TEST_F(LinuxUpdaterControllerTest, a_requested_check_shows_progress_until_its_outcome)
{
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

TEST_F(LinuxUpdaterControllerTest, it_may_be_destroyed_before_the_outcome_and_closes_its_alert)
{
    controller->checkForUpdates();
    source.answer(feed("13"));
    controller.reset();
    loop.runPosted();
    EXPECT_TRUE(alerts.shown.empty());
    controller.emplace(dependencies(), kInstalled);
    controller->checkForUpdates();
    answer(feed("13"));
    ASSERT_TRUE(alerts.isOpen);
    controller.reset();
    EXPECT_FALSE(alerts.isOpen);
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
