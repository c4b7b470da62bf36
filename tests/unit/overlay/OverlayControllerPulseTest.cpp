// The pulse: a timer that moves the ring from the window outward.
#include "unit/overlay/OverlayControllerFixture.h"

namespace haloric {
namespace {

class OverlayControllerPulseTest : public OverlayControllerFixture {
protected:
    // Small instants, so that they are exact to the nanosecond.
    OverlayControllerPulseTest() { runLoop.setWallClockOrigin(Seconds(0)); }

    double progress() const { return controller->highlightView().pulseProgress; }
};

TEST_F(OverlayControllerPulseTest, needs_a_focused_window_and_the_users_wish)
{
    controller->pulse();
    EXPECT_FALSE(controller->pulseRunning());
    controller->setState(focused());
    store.update([](Settings& s) { s.pulseEnabled = false; });
    controller->pulse();
    EXPECT_FALSE(controller->pulseRunning());
    store.update([](Settings& s) { s.pulseEnabled = true; });
    controller->pulse();
    EXPECT_TRUE(controller->pulseRunning());
}

TEST_F(OverlayControllerPulseTest, advances_with_time_sixty_times_a_second)
{
    controller->setState(focused());
    toolkit.forgetCalls();
    controller->pulse();
    EXPECT_EQ(progress(), 0);
    EXPECT_TRUE(highlight()->calls.empty());
    runLoop.runFor(Seconds(1.0 / 60 + 0.001));
    EXPECT_NEAR(progress(), 1.0 / 60 / 0.55, 1e-6);
    EXPECT_EQ(highlight()->calls, Calls{"display parts"});
    runLoop.runFor(Seconds(0.275 - 1.0 / 60));
    EXPECT_NEAR(progress(), 16.0 / 60 / 0.55, 1e-6);
    EXPECT_EQ(highlight()->count("display parts"), 16U);
    EXPECT_EQ(highlight()->count("display"), 0U);
}

TEST_F(OverlayControllerPulseTest, its_timer_is_exact)
{
    controller->setState(focused());
    controller->pulse();
    EXPECT_THAT(runLoop.armedTolerances(), testing::ElementsAre(Seconds(0)));
}

TEST_F(OverlayControllerPulseTest, redraws_what_changed_between_two_steps)
{
    controller->setState(focused());
    controller->pulse();
    runLoop.runFor(Seconds(2.5 / 60));
    const HighlightView& view = controller->highlightView();
    ASSERT_EQ(highlight()->displayedParts.size(), 2U);
    const double second = progress();
    EXPECT_FALSE(highlight()->displayedParts[1].empty());
    // The steps are whole nanoseconds, so that the first is only approximate.
    const auto expected = view.pulseDamage(second / 2, second);
    ASSERT_EQ(highlight()->displayedParts[1].size(), expected.size());
    EXPECT_NEAR(highlight()->displayedParts[1][0].height, expected[0].height, 1e-4);
}

TEST_F(OverlayControllerPulseTest, ends_after_0_55_seconds_and_stops_its_timer)
{
    controller->setState(focused());
    controller->pulse();
    runLoop.runFor(Seconds(0.55));
    EXPECT_TRUE(controller->pulseRunning());
    EXPECT_GT(progress(), 0.9);
    toolkit.forgetCalls();
    runLoop.runFor(Seconds(0.02));
    EXPECT_EQ(progress(), 0);
    EXPECT_FALSE(controller->pulseRunning());
    EXPECT_EQ(runLoop.armedTimerCount(), 0U);
    ASSERT_EQ(highlight()->calls, Calls{"display parts"});
    EXPECT_FALSE(highlight()->displayedParts[0].empty()); // the last ring is wiped away
}

TEST_F(OverlayControllerPulseTest, a_second_pulse_starts_again_from_the_beginning)
{
    controller->setState(focused());
    controller->pulse();
    runLoop.runFor(Seconds(0.4));
    EXPECT_GT(progress(), 0.6);
    controller->pulse();
    EXPECT_EQ(runLoop.armedTimerCount(), 1U);
    runLoop.runFor(Seconds(1.5 / 60));
    EXPECT_NEAR(progress(), 1.0 / 60 / 0.55, 1e-6);
    runLoop.runFor(Seconds(0.5));
    EXPECT_TRUE(controller->pulseRunning());
    runLoop.runFor(Seconds(0.1));
    EXPECT_FALSE(controller->pulseRunning());
}

TEST_F(OverlayControllerPulseTest, a_clock_that_is_set_back_ends_it)
{
    controller->setState(focused());
    controller->pulse();
    runLoop.runFor(Seconds(0.1));
    runLoop.setWallClockOrigin(Seconds(-3600));
    runLoop.runFor(Seconds(0.02));
    EXPECT_FALSE(controller->pulseRunning());
    EXPECT_EQ(progress(), 0);
}

TEST_F(OverlayControllerPulseTest, does_nothing_after_the_controller_is_destroyed)
{
    controller->setState(focused());
    controller->pulse();
    controller.reset();
    runLoop.runFor(Seconds(1));
    EXPECT_EQ(runLoop.armedTimerCount(), 0U);
}

} // namespace
} // namespace haloric
