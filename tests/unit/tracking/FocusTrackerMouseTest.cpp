#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

class FocusTrackerMouseTest : public FocusTrackerFixture {};

TEST_F(FocusTrackerMouseTest, holding_the_mouse_keeps_it_alive)
{
    start();
    input.pressedButtons = 1;
    input.sendGlobal(EventType::leftMouseDown);
    frames(10);
    EXPECT_TRUE(tracker->isFastTracking());
    input.pressedButtons = 0; // without an event
    frames(0.55);
    EXPECT_TRUE(tracker->isFastTracking());
    EXPECT_NEAR(secondsUntilSlow(), 0.06, 0.03);
}

TEST_F(FocusTrackerMouseTest, a_release_that_a_frame_finds_refreshes)
{
    start();
    input.pressedButtons = 1;
    input.sendGlobal(EventType::leftMouseDown);
    links.frame();
    input.pressedButtons = 0;
    const auto queries = queryCount();
    links.frame();
    run();
    EXPECT_EQ(queryCount(), queries + 1);
    links.frame();
    run();
    EXPECT_EQ(queryCount(), queries + 1);
}

TEST_F(FocusTrackerMouseTest, every_mouse_press_starts_it)
{
    start();
    for (const auto event : {EventType::leftMouseDown, EventType::rightMouseDown, EventType::otherMouseDown}) {
        leaveFastTracking();
        const auto queries = queryCount();
        input.sendGlobal(event);
        EXPECT_TRUE(tracker->isFastTracking());
        run();
        EXPECT_EQ(queryCount(), queries) << "a press starts no query";
        leaveFastTracking();
        input.sendLocal(event);
        EXPECT_TRUE(tracker->isFastTracking());
    }
}

TEST_F(FocusTrackerMouseTest, a_press_restarts_the_settling)
{
    start();
    frames(0.5);
    input.sendGlobal(EventType::leftMouseDown); // and the button is up again before anyone looks
    EXPECT_NEAR(secondsUntilSlow(), 0.6, 0.04);
}

TEST_F(FocusTrackerMouseTest, every_mouse_release_starts_it_and_refreshes)
{
    start();
    for (const auto event : {EventType::leftMouseUp, EventType::rightMouseUp, EventType::otherMouseUp}) {
        leaveFastTracking();
        const auto queries = queryCount();
        input.sendGlobal(event);
        EXPECT_TRUE(tracker->isFastTracking());
        run();
        EXPECT_EQ(queryCount(), queries + 1);
        EXPECT_NEAR(secondsUntilSlow(), 0.6, 0.02);
    }
}

TEST_F(FocusTrackerMouseTest, a_release_restarts_the_settling_and_counts_as_movement)
{
    start();
    frames(0.5);
    input.sendLocal(EventType::leftMouseUp);
    EXPECT_NEAR(secondsUntilSlow(), 0.6, 0.02);
}

TEST_F(FocusTrackerMouseTest, it_ends_2_seconds_after_the_release_when_the_window_never_rests)
{
    start();
    input.pressedButtons = 1;
    input.sendGlobal(EventType::leftMouseDown);
    frames(3.0, [this] { drag(); });
    input.pressedButtons = 0;
    input.sendGlobal(EventType::leftMouseUp);
    EXPECT_NEAR(secondsUntilSlow([this] { drag(); }), 2.0, 0.02);
}

TEST_F(FocusTrackerMouseTest, it_ends_2_seconds_after_a_frame_finds_the_release_when_the_window_never_rests)
{
    start();
    input.pressedButtons = 1;
    frames(3.0, [this] { drag(); });
    input.pressedButtons = 0;
    EXPECT_NEAR(secondsUntilSlow([this] { drag(); }), 2.0, 0.04);
}

TEST_F(FocusTrackerMouseTest, a_release_while_another_button_is_pressed_does_nothing)
{
    start();
    leaveFastTracking();
    const auto queries = queryCount();
    input.pressedButtons = 2;
    input.sendGlobal(EventType::leftMouseUp);
    EXPECT_FALSE(tracker->isFastTracking());
    run();
    EXPECT_EQ(queryCount(), queries);
}

} // namespace
} // namespace haloric
