#include "tracking/FastTracking.h"

#include "fakes/FakeDisplayLinks.h"
#include "fakes/FakeInputMonitors.h"
#include "fakes/FakeScreens.h"
#include "hosts/sim/loop/SimRunLoop.h"

namespace haloric {
namespace {

using Settling = FastTracking::Settling;
using Resync = FastTracking::Resync;

const Screen kFirst{{0, 0, 1000, 800}, DisplayID{1}, 60, 1};
const Screen kSecond{{1000, 0, 1000, 800}, DisplayID{2}, 120, 1};

class FastTrackingTest : public testing::Test {
protected:
    SimRunLoop loop;
    FakeScreens screens{{kFirst, kSecond}};
    FakeDisplayLinks links;
    FakeInputMonitors input;
    FastTracking fast{loop, screens, links, nullptr, input};

    void start(const Rect& frame = {})
    {
        fast.start([] {}, frame);
    }
    void pass(double seconds) { loop.runFor(Seconds(seconds)); }
    std::vector<Screen> linked() const { return links.screenLinks; }
};

TEST_F(FastTrackingTest, it_is_active_from_start_to_stop)
{
    EXPECT_FALSE(fast.isActive());
    start();
    EXPECT_TRUE(fast.isActive());
    EXPECT_EQ(links.runningLinkCount(), 1U);
    fast.stop();
    EXPECT_FALSE(fast.isActive());
    EXPECT_EQ(links.runningLinkCount(), 0U);
}

TEST_F(FastTrackingTest, it_is_synchronised_to_the_screen_with_the_larger_part)
{
    start({900, 100, 300, 300});
    EXPECT_EQ(linked(), (std::vector{kSecond}));
}

TEST_F(FastTrackingTest, a_later_screen_must_hold_more_than_the_best_before_it)
{
    const Screen below{{1000, 0, 1000, 400}, DisplayID{2}, 120, 1};
    const Screen above{{1000, 400, 1000, 400}, DisplayID{3}, 75, 1};
    screens.set({kFirst, below, above});
    start({920, 290, 300, 200}); // 80x200 on the first, 220x110 on the second, 220x90 on the third
    EXPECT_EQ(linked(), (std::vector{below}));
}

TEST_F(FastTrackingTest, equal_parts_and_no_frame_choose_the_first_screen)
{
    start({900, 100, 200, 300});
    fast.updateTrackingScreen({}, Resync::always);
    EXPECT_EQ(linked(), (std::vector{kFirst, kFirst}));
}

TEST_F(FastTrackingTest, another_screen_moves_the_link_and_the_same_one_keeps_it)
{
    start({0, 0, 300, 300});
    fast.updateTrackingScreen({100, 0, 300, 300}, Resync::ifScreenChanged);
    EXPECT_EQ(linked(), (std::vector{kFirst}));
    fast.updateTrackingScreen({1100, 0, 300, 300}, Resync::ifScreenChanged);
    EXPECT_EQ(linked(), (std::vector{kFirst, kSecond}));
    fast.updateTrackingScreen({1100, 0, 300, 300}, Resync::always);
    EXPECT_EQ(linked(), (std::vector{kFirst, kSecond, kSecond}));
    EXPECT_EQ(links.runningLinkCount(), 1U);
}

TEST_F(FastTrackingTest, a_screen_without_a_display_number_changes_nothing)
{
    start({0, 0, 300, 300});
    screens.set({kFirst, {{1000, 0, 1000, 800}, std::nullopt, 60, 1}});
    fast.updateTrackingScreen({1100, 0, 300, 300}, Resync::always);
    EXPECT_EQ(linked(), (std::vector{kFirst}));
    screens.set({});
    fast.updateTrackingScreen({1100, 0, 300, 300}, Resync::always);
    EXPECT_EQ(linked(), (std::vector{kFirst}));
}

TEST_F(FastTrackingTest, an_inactive_one_follows_no_screen)
{
    fast.updateTrackingScreen({0, 0, 300, 300}, Resync::always);
    EXPECT_TRUE(linked().empty());
}

TEST_F(FastTrackingTest, a_screen_that_gets_its_number_back_is_linked_again)
{
    start();
    fast.stop();
    screens.set({{kFirst.frame, std::nullopt, 60, 1}});
    start();
    screens.set({kFirst});
    fast.updateTrackingScreen({}, Resync::ifScreenChanged);
    EXPECT_EQ(linked(), (std::vector{kFirst, kFirst}));
}

TEST_F(FastTrackingTest, the_bounds_of_settling_are_reached_by_equality)
{
    start();
    pass(0.35);
    fast.noteMovement();
    pass(0.25);
    EXPECT_EQ(fast.settle(), Settling::settled);
    pass(1.4);
    fast.noteMovement();
    EXPECT_EQ(fast.settle(), Settling::settled);
}

TEST_F(FastTrackingTest, it_settles_after_0_6_seconds_when_nothing_has_moved)
{
    start();
    pass(0.59);
    EXPECT_EQ(fast.settle(), Settling::moving);
    pass(0.02);
    EXPECT_EQ(fast.settle(), Settling::settled);
}

TEST_F(FastTrackingTest, movement_keeps_it_going_for_a_quarter_of_a_second)
{
    start();
    pass(0.5);
    fast.noteMovement();
    pass(0.24);
    EXPECT_EQ(fast.settle(), Settling::moving);
    pass(0.02);
    EXPECT_EQ(fast.settle(), Settling::settled);
}

TEST_F(FastTrackingTest, it_settles_after_2_seconds_whatever_moves)
{
    start();
    pass(1.99);
    fast.noteMovement();
    EXPECT_EQ(fast.settle(), Settling::moving);
    pass(0.02);
    fast.noteMovement();
    EXPECT_EQ(fast.settle(), Settling::settled);
}

TEST_F(FastTrackingTest, a_pressed_button_holds_it_and_settling_restarts_after_the_release)
{
    start();
    pass(0.5);
    input.pressedButtons = 1;
    EXPECT_EQ(fast.settle(), Settling::held);
    pass(100);
    EXPECT_EQ(fast.settle(), Settling::held);
    input.pressedButtons = 0;
    EXPECT_EQ(fast.settle(), Settling::released);
    pass(0.59);
    EXPECT_EQ(fast.settle(), Settling::moving);
    pass(0.02);
    EXPECT_EQ(fast.settle(), Settling::settled);
}

TEST_F(FastTrackingTest, a_start_while_a_button_is_pressed_waits_for_the_release)
{
    input.pressedButtons = 1;
    start();
    input.pressedButtons = 0;
    pass(10);
    EXPECT_EQ(fast.settle(), Settling::released);
    EXPECT_EQ(fast.settle(), Settling::moving);
}

TEST_F(FastTrackingTest, a_noted_press_means_the_release_is_still_to_be_found)
{
    start();
    pass(1);
    fast.notePress();
    EXPECT_EQ(fast.settle(), Settling::released);
}

TEST_F(FastTrackingTest, a_noted_release_counts_as_the_start_of_settling_and_as_movement)
{
    start();
    pass(10);
    fast.noteRelease();
    EXPECT_EQ(fast.settle(), Settling::moving);
    pass(0.61);
    EXPECT_EQ(fast.settle(), Settling::settled);
}

TEST_F(FastTrackingTest, every_start_begins_a_new_settling)
{
    start();
    fast.stop();
    pass(10);
    start();
    EXPECT_EQ(fast.settle(), Settling::moving);
}

} // namespace
} // namespace haloric
