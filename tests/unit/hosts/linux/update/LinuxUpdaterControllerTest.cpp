#include "hosts/linux/update/LinuxUpdaterController.h"

#include "hosts/sim/loop/SimRunLoop.h"
#include "support/FakeAlerts.h"
#include "support/FakeUpdateProgress.h"
#include "support/FakeUserDefaults.h"
#include "support/FakeWorkspace.h"

#include <optional>

namespace haloric {
namespace {

// A source that a test lets answer.
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
        LinuxUpdaterController::Platform{.runLoop = loop,
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

TEST_F(LinuxUpdaterControllerTest, a_newer_version_is_offered_with_what_is_new)
{
    controller->checkForUpdates();
    EXPECT_THAT(source.asked, testing::ElementsAre("https://example.org/feed"));
    answer(feed("13"));
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_EQ(alerts.shown[0].messageText, "A new version of Haloric is available.");
    EXPECT_EQ(alerts.shown[0].informativeText, "Haloric 1.13 is available. You have 1.2.\n\nBetter.");
    EXPECT_THAT(alerts.shown[0].buttons, testing::ElementsAre("Open Download Page", "Later"));
    EXPECT_TRUE(workspace.openedURLs.empty()); // later
}

TEST_F(LinuxUpdaterControllerTest, the_page_is_opened_when_the_user_wants_it)
{
    alerts.answer = Alerts::kFirstButton;
    controller->checkForUpdates();
    answer(feed("13"));
    EXPECT_THAT(workspace.openedURLs, testing::ElementsAre("https://example.org/get"));
}

TEST_F(LinuxUpdaterControllerTest, without_a_secure_page_none_is_offered)
{
    alerts.answer = Alerts::kFirstButton;
    controller->checkForUpdates();
    answer(feed("13", "http://example.org/get"));
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_THAT(alerts.shown[0].buttons, testing::ElementsAre("OK"));
    EXPECT_TRUE(workspace.openedURLs.empty());
}

TEST_F(LinuxUpdaterControllerTest, the_newest_version_is_told_to_be_that)
{
    controller->checkForUpdates();
    answer(feed("12"));
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_EQ(alerts.shown[0].messageText, "You’re up to date.");
    EXPECT_EQ(alerts.shown[0].informativeText, "Haloric 1.2 is the newest version available.");
}

TEST_F(LinuxUpdaterControllerTest, failures_are_told_to_the_user_who_asked)
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

TEST_F(LinuxUpdaterControllerTest, it_does_not_look_by_itself_before_it_is_started)
{
    loop.runFor(2 * kDay);
    EXPECT_TRUE(source.asked.empty());
}

TEST_F(LinuxUpdaterControllerTest, it_looks_a_minute_after_the_start_and_then_once_a_day)
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

TEST_F(LinuxUpdaterControllerTest, by_itself_it_shows_updates_alone)
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

TEST_F(LinuxUpdaterControllerTest, a_check_of_the_same_day_counts_over_restarts)
{
    defaults.stored[std::string(LinuxUpdaterController::kLastCheckKey)] = "1799999000";
    controller->start();
    loop.runFor(Seconds(3000));
    EXPECT_TRUE(source.asked.empty());
}

TEST_F(LinuxUpdaterControllerTest, a_time_that_cannot_be_read_or_lies_ahead_counts_as_none)
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

TEST_F(LinuxUpdaterControllerTest, a_user_who_asks_meanwhile_is_told_the_outcome_of_the_check_under_way)
{
    controller->start();
    loop.runFor(Seconds(61));
    controller->checkForUpdates();
    controller->checkForUpdates();
    EXPECT_EQ(source.asked.size(), 1U);
    answer(feed("12"));
    EXPECT_EQ(alerts.shown.size(), 1U);
}

TEST_F(LinuxUpdaterControllerTest, while_an_alert_is_up_there_is_no_second_one)
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

TEST_F(LinuxUpdaterControllerTest, a_user_who_asked_sees_that_it_looks_until_the_answer_is_there)
{
    alerts.whileShown = [this] { EXPECT_FALSE(progress.isShown); };
    controller->checkForUpdates();
    EXPECT_TRUE(progress.isShown);
    controller->checkForUpdates();
    EXPECT_TRUE(progress.isShown);
    EXPECT_EQ(progress.timesShown, 2); // to the front
    answer(feed("12"));
    EXPECT_EQ(alerts.shown.size(), 1U);
    EXPECT_FALSE(progress.isShown);
}

TEST_F(LinuxUpdaterControllerTest, a_check_by_itself_is_not_shown_before_a_user_asks)
{
    controller->start();
    loop.runFor(Seconds(61));
    EXPECT_FALSE(progress.isShown);
    controller->checkForUpdates();
    EXPECT_TRUE(progress.isShown);
}

TEST_F(LinuxUpdaterControllerTest, a_cancelled_check_ends_without_a_word_and_can_be_asked_for_again)
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

TEST_F(LinuxUpdaterControllerTest, it_may_go_while_a_check_is_under_way_and_while_an_alert_is_up)
{
    controller->checkForUpdates();
    source.answer(feed("13"));
    alerts.whileShown = [this] { controller.reset(); };
    alerts.answer = Alerts::kFirstButton;
    loop.runPosted();
    EXPECT_THAT(workspace.openedURLs, testing::ElementsAre("https://example.org/get"));
}

TEST_F(LinuxUpdaterControllerTest, when_it_goes_it_drops_the_check)
{
    controller->checkForUpdates();
    controller.reset();
    EXPECT_TRUE(source.dropped);
    loop.runFor(kDay);
    EXPECT_TRUE(alerts.shown.empty());
}

} // namespace
} // namespace haloric
