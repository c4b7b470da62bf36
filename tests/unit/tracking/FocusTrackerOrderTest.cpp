// What has happened by the time that something else does.
#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;

class FocusTrackerOrderTest : public FocusTrackerFixture {};

TEST_F(FocusTrackerOrderTest, a_result_does_not_wait_for_the_observation)
{
    accessibility.onCreateObserver = [this] { loop.spend(Seconds(0.25)); };
    tracker->start();
    loop.runFor(Seconds(0.1));
    EXPECT_THAT(journal, ElementsAre("cleared 7", "7/42 100,400 400x300", "pulse"));
    EXPECT_TRUE(tracker->isQueryInFlight());
    EXPECT_THAT(observer(0).runLoop, testing::IsEmpty());
}

TEST_F(FocusTrackerOrderTest, the_observation_is_installed_before_a_follow_up_starts)
{
    startUntilResultIsUnderWay();
    askForRefresh();
    run();
    EXPECT_EQ(queryCount(), 2U);
    EXPECT_EQ(accessibility.observers.size(), 1U) << "the follow-up makes no other";
    EXPECT_TRUE(observer(0).onRunLoop);
}

TEST_F(FocusTrackerOrderTest, a_window_is_watched_before_it_is_published)
{
    std::vector<WindowNumber> watched;
    tracker->onChange = [&](const FocusState& state) {
        if (state.frame)
            watched.push_back(tracker->currentWindowID());
    };
    start();
    focus(kEditor, addWindow(kEditor, kOtherWindow, {200, 200, 300, 300}));
    poll();
    EXPECT_THAT(watched, ElementsAre(kWindow, kOtherWindow));
}

TEST_F(FocusTrackerOrderTest, a_window_is_watched_no_longer_when_its_end_is_published)
{
    start();
    std::vector<WindowNumber> watched;
    tracker->onChange = [&](const FocusState&) { watched.push_back(tracker->currentWindowID()); };
    focusNothing(kEditor);
    poll();
    focus(kEditor, editorWindow);
    poll();
    destroyWindow(kWindow);
    links.frame();
    EXPECT_THAT(watched, ElementsAre(WindowNumber::none, kWindow, WindowNumber::none));
}

TEST_F(FocusTrackerOrderTest, a_window_that_loses_its_number_is_watched_no_longer)
{
    start();
    editorWindow->number = {AXError::failure, WindowNumber::none};
    poll();
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
    EXPECT_THAT(library.requestedWindows(), testing::IsEmpty());
    EXPECT_EQ(describe(tracker->state()), "7/1042 100,400 400x300");
}

TEST_F(FocusTrackerOrderTest, everything_is_observed_before_the_first_state)
{
    std::vector<std::size_t> observed;
    tracker->onChange = [&](const FocusState&) {
        if (!observed.empty())
            return;
        for (const auto notification : kWorkspaceNotifications)
            observed.push_back(workspace.observerCount(notification));
        observed.insert(observed.end(), {screens.observerCount(), input.globalMonitorCount(), input.localMonitorCount(),
                                         loop.armedTimerCount()});
    };
    start();
    EXPECT_EQ(observed.size(), 7U);
    EXPECT_THAT(observed, Each(1U));
}

TEST_F(FocusTrackerOrderTest, a_switch_to_an_own_window_ticks_on_the_screen_that_holds_it)
{
    start();
    leaveFastTracking();
    links.screenLinks.clear();
    application.key = OwnWindow{{1300, 200, 420, 500}, 472, 5, true, false};
    activate(kOwn);
    EXPECT_THAT(links.screenLinks, ElementsAre(kSecondary));
}

TEST_F(FocusTrackerOrderTest, a_frame_that_appears_counts_as_movement)
{
    focusNothing(kEditor);
    start();
    frames(0.5);
    focus(kEditor, editorWindow);
    notify("AXFocusedWindowChanged");
    run();
    ASSERT_NE(tracker->state().frame, std::nullopt);
    EXPECT_NEAR(secondsUntilSlow(), 0.25, 0.02);
}

TEST_F(FocusTrackerOrderTest, the_tick_that_finds_the_window_gone_settles_as_well)
{
    start();
    frames(1.9, [this] { drag(); });
    loop.runFor(Seconds(0.2));
    ASSERT_TRUE(tracker->isFastTracking());
    destroyWindow(kWindow);
    links.frame();
    EXPECT_EQ(tracker->state(), FocusState::cleared(kEditor));
    EXPECT_FALSE(tracker->isFastTracking()) << "two seconds have passed";
}

TEST_F(FocusTrackerOrderTest, the_time_limit_of_an_element_is_set_before_it_is_first_read)
{
    std::vector<std::string> early;
    const auto isLimited = [this](const FakeAXElementRef& element) {
        return std::ranges::any_of(accessibility.timeouts,
                                   [&](const auto& timeout) { return timeout.first == AXElement(element); });
    };
    accessibility.onRead = [&](std::string_view name) {
        if (name == "AXFocusedWindow" && !isLimited(axApplication(kEditor)))
            early.emplace_back(name);
        if (name == "AXRole" && !isLimited(editorWindow))
            early.emplace_back(name);
        const auto* button = std::get_if<AXElement>(&editorWindow->attributes.at("AXCloseButton").value);
        const bool buttonLimited = std::ranges::any_of(
            accessibility.timeouts, [&](const auto& timeout) { return button && timeout.first == *button; });
        if (name == "AXSize" && !buttonLimited)
            early.emplace_back(name);
    };
    start();
    EXPECT_THAT(early, testing::IsEmpty());
    EXPECT_THAT(accessibility.calls, Contains("AXSize"));
}

TEST_F(FocusTrackerOrderTest, frames_count_from_the_upper_edge_of_a_first_screen_that_does_not_start_at_zero)
{
    screens.set({{{0, -150, 1000, 800}, DisplayID{1}, 60, 1}});
    start();
    EXPECT_THAT(journal, Contains("7/42 100,250 400x300"));
    place(kWindow, {101, 100, 400, 300});
    links.frame();
    EXPECT_EQ(describe(tracker->state()), "7/42 101,250 400x300");
}

} // namespace
} // namespace haloric
