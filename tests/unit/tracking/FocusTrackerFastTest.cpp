#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FocusTrackerFastTest : public FocusTrackerFixture {};

TEST_F(FocusTrackerFastTest, each_frame_publishes_where_the_window_is)
{
    start();
    journal.clear();
    place(kWindow, {101, 100, 400, 300});
    links.frame();
    place(kWindow, {102, 100, 400, 300});
    links.frame();
    links.frame();
    EXPECT_THAT(journal, ElementsAre("7/42 101,400 400x300", "7/42 102,400 400x300"));
    EXPECT_EQ(tracker->state().titleBar, FocusState::TitleBar::height(28));
}

TEST_F(FocusTrackerFastTest, each_frame_falls_back_to_the_window_list)
{
    dropWindowServer();
    start();
    journal.clear();
    place(kWindow, {101, 100, 400, 300});
    links.frame();
    EXPECT_THAT(journal, ElementsAre("7/42 101,400 400x300"));
}

TEST_F(FocusTrackerFastTest, a_frame_without_a_watched_window_only_settles)
{
    focusNothing(kEditor);
    start();
    journal.clear();
    windowInfo.calls.clear();
    links.frame();
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_THAT(windowInfo.calls, IsEmpty());
}

TEST_F(FocusTrackerFastTest, a_window_that_was_closed_is_cleared_and_queried)
{
    start();
    journal.clear();
    destroyWindow(kWindow);
    links.frame();
    EXPECT_THAT(journal, ElementsAre("cleared 7"));
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
    run();
    EXPECT_EQ(queryCount(), 2U);
}

TEST_F(FocusTrackerFastTest, a_window_dragged_to_another_screen_takes_the_link_along)
{
    start();
    EXPECT_THAT(links.screenLinks, ElementsAre(kPrimary));
    place(kWindow, {800, 100, 400, 300}); // equal parts on both
    links.frame();
    EXPECT_EQ(links.screenLinks.size(), 1U);
    place(kWindow, {801, 100, 400, 300});
    links.frame();
    EXPECT_THAT(links.screenLinks, ElementsAre(kPrimary, kSecondary));
    EXPECT_EQ(links.runningLinkCount(), 1U);
}

TEST_F(FocusTrackerFastTest, it_ends_0_6_seconds_after_a_start_at_rest)
{
    start();
    EXPECT_NEAR(secondsUntilSlow(), 0.6, 0.02);
}

TEST_F(FocusTrackerFastTest, it_ends_2_seconds_after_a_start_when_the_window_never_rests)
{
    start();
    EXPECT_NEAR(secondsUntilSlow([this] { drag(); }), 2.0, 0.02);
}

TEST_F(FocusTrackerFastTest, it_ends_a_quarter_of_a_second_after_the_last_movement)
{
    start();
    frames(1.0, [this] { drag(); });
    EXPECT_NEAR(secondsUntilSlow(), 0.25, 0.02);
}

TEST_F(FocusTrackerFastTest, only_a_changed_frame_counts_as_movement)
{
    start();
    frames(0.5);
    for (const double distance : {10.0, 15.0, 20.0}) {
        const auto button = std::make_shared<FakeAXElement>();
        button->set("AXPosition", Point{108, 100 + distance});
        button->set("AXSize", Size{14, 16});
        editorWindow->set("AXCloseButton", AXElement(button));
        notify("AXWindowResized");
        run();
        EXPECT_EQ(tracker->state().titleBar, FocusState::TitleBar::height(2 * (distance + 8)));
    }
    EXPECT_NEAR(secondsUntilSlow(), 0.1, 0.02);
}

TEST_F(FocusTrackerFastTest, a_frame_that_appears_or_disappears_counts_as_movement)
{
    start();
    frames(0.5);
    focusNothing(kEditor);
    notify("AXUIElementDestroyed");
    run();
    EXPECT_EQ(tracker->state().frame, std::nullopt);
    EXPECT_NEAR(secondsUntilSlow(), 0.25, 0.02);
}

TEST_F(FocusTrackerFastTest, ending_refreshes_once)
{
    start();
    frames(0.55);
    run();
    const auto queries = queryCount();
    loop.runFor(Seconds(0.04));
    const auto polled = queryCount() - queries;
    loop.runFor(Seconds(0.02));
    links.frame();
    EXPECT_FALSE(tracker->isFastTracking());
    run();
    EXPECT_EQ(queryCount(), queries + polled + 2) << "the poll at 0.6 s, and this one";
}

TEST_F(FocusTrackerFastTest, an_application_or_space_switch_starts_it)
{
    start();
    leaveFastTracking();
    activate(kMail);
    EXPECT_TRUE(tracker->isFastTracking());
    leaveFastTracking();
    workspace.announce(WorkspaceNotification::activeSpaceDidChange);
    EXPECT_TRUE(tracker->isFastTracking());
}

TEST_F(FocusTrackerFastTest, ticks_come_on_the_legacy_link_too)
{
    useVideoLinks();
    start();
    journal.clear();
    EXPECT_THAT(links.videoLinks, ElementsAre(DisplayID{1}));
    place(kWindow, {101, 100, 400, 300});
    links.frame();
    links.deliverSources();
    EXPECT_THAT(journal, ElementsAre("7/42 101,400 400x300"));
}

TEST_F(FocusTrackerFastTest, without_any_link_the_poll_keeps_working)
{
    useVideoLinks();
    links.refusesLinks = true;
    start();
    journal.clear();
    place(kWindow, {101, 100, 400, 300});
    poll();
    EXPECT_THAT(journal, ElementsAre("7/42 101,400 400x300"));
}

} // namespace
} // namespace haloric
