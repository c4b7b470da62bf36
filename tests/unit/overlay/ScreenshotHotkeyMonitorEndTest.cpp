// How the state of the screenshot interface ends, and when it is reported.
#include "unit/overlay/ScreenshotHotkeyMonitorFixture.h"

namespace haloric {
namespace {

using ScreenshotHotkeyMonitorEndTest = ScreenshotHotkeyMonitorFixture;

TEST_F(ScreenshotHotkeyMonitorEndTest, escape_reports_false_only_while_active)
{
    monitor->start();
    key(kEscape);
    runLoop.runPosted();
    EXPECT_TRUE(reports.empty());
    activate();
    key(kEscape);
    runLoop.runPosted();
    EXPECT_EQ(reports, (Reports{true, false}));
    EXPECT_EQ(runLoop.armedTimerCount(), 0U);
}

TEST_F(ScreenshotHotkeyMonitorEndTest, escape_before_the_report_is_ignored)
{
    monitor->start();
    key(kKey4, kCommand | kShift);
    key(kEscape); // not active yet
    runLoop.runPosted();
    EXPECT_EQ(reports, Reports{true});
    EXPECT_TRUE(monitor->active());
}

TEST_F(ScreenshotHotkeyMonitorEndTest, a_mouse_up_ends_it_half_a_second_later)
{
    monitor->start();
    activate();
    mouseUp();
    runLoop.runFor(Seconds(0.499));
    EXPECT_EQ(reports, Reports{true});
    runLoop.runFor(Seconds(0.001));
    EXPECT_EQ(reports, (Reports{true, false}));
}

TEST_F(ScreenshotHotkeyMonitorEndTest, the_end_after_a_mouse_up_is_not_taken_back)
{
    monitor->start();
    activate();
    mouseUp();
    runLoop.runFor(Seconds(0.1));
    key(kEscape);
    runLoop.runFor(Seconds(0.1));
    activate();
    EXPECT_EQ(reports, (Reports{true, false, true}));
    runLoop.runFor(Seconds(0.299));
    EXPECT_EQ(reports, (Reports{true, false, true}));
    runLoop.runFor(Seconds(0.001)); // half a second after the mouse button
    EXPECT_EQ(reports, (Reports{true, false, true, false}));
}

TEST_F(ScreenshotHotkeyMonitorEndTest, a_mouse_up_before_the_report_is_ignored)
{
    monitor->start();
    key(kKey4, kCommand | kShift);
    mouseUp(); // not active yet
    runLoop.runFor(Seconds(1));
    EXPECT_EQ(reports, Reports{true});
    EXPECT_TRUE(monitor->active());
}

TEST_F(ScreenshotHotkeyMonitorEndTest, a_mouse_up_while_inactive_does_nothing)
{
    monitor->start();
    mouseUp();
    EXPECT_EQ(runLoop.pendingEventCount(), 0U);
    activate();
    runLoop.runFor(Seconds(1));
    EXPECT_EQ(reports, Reports{true});
}

TEST_F(ScreenshotHotkeyMonitorEndTest, it_ends_by_itself_after_thirty_seconds)
{
    monitor->start();
    activate();
    runLoop.runFor(Seconds(29.999));
    EXPECT_EQ(reports, Reports{true});
    runLoop.runFor(Seconds(0.001));
    EXPECT_EQ(reports, (Reports{true, false}));
    runLoop.runFor(Seconds(60));
    EXPECT_EQ(reports, (Reports{true, false}));
}

TEST_F(ScreenshotHotkeyMonitorEndTest, its_state_and_its_time_limit_are_set_before_the_report)
{
    std::vector<std::size_t> timers;
    monitor->onChange = [&](bool visible) {
        reports.push_back(visible);
        EXPECT_EQ(monitor->active(), visible);
        timers.push_back(runLoop.armedTimerCount());
    };
    monitor->start();
    activate();
    key(kEscape);
    runLoop.runPosted();
    EXPECT_EQ(reports, (Reports{true, false}));
    EXPECT_EQ(timers, (std::vector<std::size_t>{1, 0}));
}

TEST_F(ScreenshotHotkeyMonitorEndTest, a_repeated_shortcut_takes_the_time_limit_away)
{
    monitor->start();
    activate();
    EXPECT_EQ(runLoop.armedTimerCount(), 1U);
    activate();
    EXPECT_EQ(runLoop.armedTimerCount(), 0U);
    runLoop.runFor(Seconds(120));
    EXPECT_EQ(reports, Reports{true});
    mouseUp();
    runLoop.runFor(Seconds(0.5));
    EXPECT_EQ(reports, (Reports{true, false}));
}

TEST_F(ScreenshotHotkeyMonitorEndTest, the_first_of_two_mouse_ups_ends_it)
{
    monitor->start();
    activate();
    mouseUp();
    runLoop.runFor(Seconds(0.3));
    mouseUp();
    runLoop.runFor(Seconds(0.2));
    EXPECT_EQ(reports, (Reports{true, false}));
    activate();
    runLoop.runFor(Seconds(0.3)); // half a second after the second one
    EXPECT_EQ(reports, (Reports{true, false, true, false}));
}

TEST_F(ScreenshotHotkeyMonitorEndTest, escape_ends_it_with_any_modifiers)
{
    monitor->start();
    for (const std::uint64_t modifiers : {kShift, kControl, kOption, kCommand, kCommand | kShift | kOption}) {
        reports.clear();
        activate();
        key(kEscape, modifiers);
        runLoop.runPosted();
        EXPECT_EQ(reports, (Reports{true, false})) << modifiers;
    }
}

TEST_F(ScreenshotHotkeyMonitorEndTest, a_listener_that_replaces_itself_lives_until_it_returns)
{
    auto mark = std::make_shared<int>(0);
    bool alive = false;
    monitor->onChange = [this, mark, &alive](bool) {
        const std::weak_ptr<int> self = mark;
        monitor->onChange = nullptr;
        alive = !self.expired();
    };
    mark.reset();
    monitor->start();
    activate();
    EXPECT_TRUE(alive);
}

} // namespace
} // namespace haloric
