#include "tracking/FocusDisplayDriver.h"

#include "fakes/FakeDisplayLinks.h"

#include <memory>
#include <optional>

namespace haloric {
namespace {

using testing::ElementsAre;

constexpr DisplayID kDisplay{11};
constexpr DisplayID kOtherDisplay{12};
const Screen kScreen{{0, 0, 1440, 900}, kDisplay, 120, 2};
const Screen kOtherScreen{{1440, 0, 1920, 1080}, kOtherDisplay, 60, 1};

class FocusDisplayDriverTest : public testing::Test {
protected:
    FakeDisplayLinks links;
    int ticks = 0;
    std::optional<FocusDisplayDriver> driver{std::in_place, links, nullptr, [this] { ++ticks; }};

    void useVideoLinks()
    {
        driver.emplace(links, &links, [this] { ++ticks; });
    }
    void frame()
    {
        links.frame();
        links.deliverSources();
    }
};

TEST_F(FocusDisplayDriverTest, there_is_no_link_before_the_start)
{
    EXPECT_TRUE(links.screenLinks.empty());
    EXPECT_TRUE(links.videoLinks.empty());
}

TEST_F(FocusDisplayDriverTest, a_screens_link_ticks_at_the_screens_maximum_rate)
{
    driver->start(kScreen, kDisplay);
    EXPECT_THAT(links.screenLinks, ElementsAre(kScreen));
    EXPECT_THAT(links.rateRanges, ElementsAre(FrameRateRange{120, 120, 120}));
    EXPECT_THAT(links.calls, ElementsAre("set rate", "add"));
    EXPECT_TRUE(links.videoLinks.empty());
    frame();
    frame();
    EXPECT_EQ(ticks, 2);
}

TEST_F(FocusDisplayDriverTest, a_screen_that_was_removed_gives_no_ticks)
{
    links.refusesLinks = true;
    driver->start(kScreen, kDisplay);
    frame();
    EXPECT_EQ(ticks, 0);
    driver->stop();
    EXPECT_TRUE(links.calls.empty());
}

TEST_F(FocusDisplayDriverTest, stopping_invalidates_the_screens_link)
{
    driver->start(kScreen, kDisplay);
    driver->stop();
    driver->stop(); // no link is left
    EXPECT_THAT(links.calls, ElementsAre("set rate", "add", "invalidate"));
    frame();
    EXPECT_EQ(ticks, 0);
}

TEST_F(FocusDisplayDriverTest, starting_twice_leaves_one_link)
{
    driver->start(kScreen, kDisplay);
    driver->start(kScreen, kDisplay);
    EXPECT_EQ(links.runningLinkCount(), 1U);
    EXPECT_THAT(links.calls, ElementsAre("set rate", "add", "invalidate", "set rate", "add"));
    frame();
    EXPECT_EQ(ticks, 1);

    useVideoLinks();
    driver->start(kScreen, kDisplay);
    driver->start(kOtherScreen, kOtherDisplay);
    EXPECT_EQ(links.runningLinkCount(), 1U);
    EXPECT_EQ(links.liveSourceCount(), 1U);
    EXPECT_THAT(links.videoLinks, ElementsAre(kDisplay, kOtherDisplay));
    frame();
    EXPECT_EQ(ticks, 2);
}

TEST_F(FocusDisplayDriverTest, stopping_a_driver_that_never_started_does_nothing)
{
    driver->stop();
    useVideoLinks();
    driver->stop();
    EXPECT_TRUE(links.calls.empty());
}

TEST_F(FocusDisplayDriverTest, a_destroyed_driver_has_ended_its_link)
{
    driver->start(kScreen, kDisplay);
    driver.reset();
    EXPECT_THAT(links.calls, ElementsAre("set rate", "add", "invalidate"));
}

TEST_F(FocusDisplayDriverTest, a_video_link_ticks_through_the_data_source)
{
    useVideoLinks();
    driver->start(kScreen, kDisplay);
    EXPECT_TRUE(links.screenLinks.empty());
    EXPECT_THAT(links.calls, ElementsAre("resume source", "start"));
    links.frame();
    EXPECT_EQ(ticks, 0) << "the link's own thread only counts";
    links.deliverSources();
    EXPECT_EQ(ticks, 1);
    EXPECT_THAT(links.handlerReturns, ElementsAre(0));
}

TEST_F(FocusDisplayDriverTest, frames_that_arrive_while_the_main_thread_is_busy_make_one_tick)
{
    useVideoLinks();
    driver->start(kScreen, kDisplay);
    links.frame();
    links.frame();
    links.frame();
    links.deliverSources();
    links.deliverSources();
    EXPECT_EQ(ticks, 1);
}

TEST_F(FocusDisplayDriverTest, stopping_stops_the_video_link_and_cancels_the_source)
{
    useVideoLinks();
    driver->start(kScreen, kDisplay);
    links.frame();
    driver->stop();
    EXPECT_THAT(links.calls, ElementsAre("resume source", "start", "stop", "free link", "cancel source"));
    links.deliverSources();
    EXPECT_EQ(ticks, 0) << "a frame counted before the stop is dropped";
    EXPECT_EQ(links.liveSourceCount(), 0U);
}

TEST_F(FocusDisplayDriverTest, a_display_without_a_video_link_leaves_the_driver_silent)
{
    useVideoLinks();
    links.refusesLinks = true;
    driver->start(kScreen, kDisplay);
    EXPECT_TRUE(links.calls.empty());
    driver->stop();
    EXPECT_TRUE(links.calls.empty());
}

TEST_F(FocusDisplayDriverTest, a_refused_output_handler_leaves_the_driver_silent)
{
    useVideoLinks();
    links.refusesOutputHandlers = true;
    driver->start(kScreen, kDisplay);
    EXPECT_THAT(links.calls, ElementsAre("resume source", "cancel source", "free link"));
    EXPECT_EQ(links.liveSourceCount(), 0U);
    driver->stop();
    EXPECT_EQ(links.calls.size(), 3U);
}

TEST_F(FocusDisplayDriverTest, a_video_link_that_cannot_start_leaves_the_driver_silent)
{
    useVideoLinks();
    links.refusesToStart = true;
    driver->start(kScreen, kDisplay);
    EXPECT_THAT(links.calls, ElementsAre("resume source", "start", "cancel source", "free link"));
    EXPECT_EQ(links.liveSourceCount(), 0U);
}

TEST_F(FocusDisplayDriverTest, a_tick_may_destroy_the_driver)
{
    VideoLinks* const none = nullptr;
    for (VideoLinks* videoLinks : {none, static_cast<VideoLinks*>(&links)}) {
        int calls = 0;
        driver.emplace(links, videoLinks, [this, &calls, guard = std::make_shared<int>(1)] {
            driver.reset();
            calls += *guard; // the tick itself is still whole
        });
        driver->start(kScreen, kDisplay);
        frame();
        frame();
        EXPECT_EQ(calls, 1);
    }
}

} // namespace
} // namespace haloric
