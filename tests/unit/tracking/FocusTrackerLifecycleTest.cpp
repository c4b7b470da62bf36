#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FocusTrackerLifecycleTest : public FocusTrackerFixture {};

TEST_F(FocusTrackerLifecycleTest, making_one_starts_nothing)
{
    run();
    EXPECT_FALSE(tracker->isRunning());
    EXPECT_EQ(tracker->state(), FocusState::blank());
    EXPECT_EQ(loop.armedTimerCount(), 0U);
    EXPECT_THAT(accessibility.calls, IsEmpty());
    EXPECT_EQ(queues.lastLabel(), "com.kestrow.haloric.accessibility");
    EXPECT_EQ(queues.lastQuality(), QualityOfService::userInitiated);
}

TEST_F(FocusTrackerLifecycleTest, starting_finds_the_focused_window)
{
    start();
    EXPECT_TRUE(tracker->isRunning());
    EXPECT_THAT(journal, ElementsAre("cleared 7", "7/42 100,400 400x300", "pulse"));
    EXPECT_EQ(tracker->state().titleBar, FocusState::TitleBar::height(28));
    EXPECT_TRUE(tracker->isFastTracking());
}

TEST_F(FocusTrackerLifecycleTest, starting_observes_the_system_once)
{
    start();
    tracker->start();
    for (const auto notification : kWorkspaceNotifications)
        EXPECT_EQ(workspace.observerCount(notification), 1U);
    EXPECT_EQ(screens.observerCount(), 1U);
    EXPECT_THAT(input.globalMasks, ElementsAre(0x600001EU));
    EXPECT_THAT(input.localMasks, ElementsAre(0x600001EU));
    EXPECT_EQ(loop.armedTimerCount(), 1U);
}

TEST_F(FocusTrackerLifecycleTest, every_workspace_notification_counts_as_a_change_of_the_frontmost_application)
{
    start();
    for (const auto notification : kWorkspaceNotifications) {
        journal.clear();
        workspace.announce(notification);
        EXPECT_THAT(takeJournal(), ElementsAre("blank"));
        EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
        run();
        EXPECT_THAT(takeJournal(), ElementsAre("7/42 100,400 400x300", "pulse"));
    }
}

TEST_F(FocusTrackerLifecycleTest, the_poll_refreshes_every_0_15_seconds)
{
    start();
    loop.runFor(Seconds(0.149));
    EXPECT_EQ(queryCount(), 1U);
    loop.runFor(Seconds(0.002));
    EXPECT_EQ(queryCount(), 2U);
    loop.runFor(Seconds(1.5));
    EXPECT_EQ(queryCount(), 12U);
}

TEST_F(FocusTrackerLifecycleTest, the_poll_allows_the_system_to_join_wake_ups)
{
    start();
    EXPECT_THAT(loop.armedTolerances(), ElementsAre(Seconds(0.075)));
}

TEST_F(FocusTrackerLifecycleTest, it_works_without_listeners)
{
    tracker->onChange = nullptr;
    tracker->onPulse = nullptr;
    start();
    EXPECT_EQ(describe(tracker->state()), "7/42 100,400 400x300");
}

TEST_F(FocusTrackerLifecycleTest, a_listener_that_replaces_itself_lives_until_it_returns)
{
    auto change = std::make_shared<int>(0);
    auto pulse = std::make_shared<int>(0);
    int alive = 0;
    tracker->onChange = [this, change, &alive](const FocusState&) {
        const std::weak_ptr<int> self = change;
        tracker->onChange = nullptr;
        alive += self.expired() ? 0 : 1;
    };
    tracker->onPulse = [this, pulse, &alive] {
        const std::weak_ptr<int> self = pulse;
        tracker->onPulse = nullptr;
        alive += self.expired() ? 0 : 1;
    };
    change.reset();
    pulse.reset();
    start();
    EXPECT_EQ(alive, 2);
}

} // namespace
} // namespace haloric
