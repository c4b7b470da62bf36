// How the monitor of the screenshot shortcuts interprets events.
#include "unit/overlay/ScreenshotHotkeyMonitorFixture.h"

namespace haloric {
namespace {

using ScreenshotHotkeyMonitorTest = ScreenshotHotkeyMonitorFixture;

TEST_F(ScreenshotHotkeyMonitorTest, start_installs_one_listening_tap_for_keys_and_left_mouse_ups)
{
    monitor->start();
    monitor->start();
    ASSERT_EQ(input.tapDescriptions.size(), 1U);
    const EventTapDescription& tap = input.tapDescriptions.front();
    EXPECT_EQ(tap.location, TapLocation::session);
    EXPECT_EQ(tap.placement, TapPlacement::headInsert);
    EXPECT_EQ(tap.options, TapOptions::listenOnly);
    EXPECT_EQ(tap.mask, 1028U);
    EXPECT_EQ(input.tapCalls, (Calls{"addToMainRunLoop", "enable"}));
}

TEST_F(ScreenshotHotkeyMonitorTest, nothing_is_installed_before_start)
{
    EXPECT_TRUE(input.tapDescriptions.empty());
    EXPECT_FALSE(monitor->active());
}

TEST_F(ScreenshotHotkeyMonitorTest, a_refused_tap_is_silent_and_may_be_tried_again)
{
    input.refusesTaps = true;
    monitor->start();
    EXPECT_TRUE(input.tapCalls.empty());
    input.refusesTaps = false;
    monitor->start();
    EXPECT_EQ(input.tapDescriptions.size(), 2U);
    activate();
    EXPECT_EQ(reports, Reports{true});
}

TEST_F(ScreenshotHotkeyMonitorTest, both_shortcuts_report_true_once)
{
    for (const std::int64_t code : {kKey4, kKey5}) {
        reports.clear();
        makeMonitor();
        monitor->start();
        key(code, kCommand | kShift);
        runLoop.runPosted();
        EXPECT_EQ(reports, Reports{true});
        EXPECT_TRUE(monitor->active());
        key(code, kCommand | kShift);
        runLoop.runPosted();
        EXPECT_EQ(reports, Reports{true});
    }
}

TEST_F(ScreenshotHotkeyMonitorTest, a_report_is_never_made_during_the_event)
{
    monitor->start();
    key(kKey4, kCommand | kShift);
    EXPECT_TRUE(reports.empty());
    EXPECT_FALSE(monitor->active());
    runLoop.runPosted();
    key(kEscape);
    EXPECT_EQ(reports, Reports{true});
    EXPECT_TRUE(monitor->active());
    runLoop.runPosted();
    EXPECT_EQ(reports, (Reports{true, false}));
}

TEST_F(ScreenshotHotkeyMonitorTest, option_must_be_up_and_control_does_not_matter)
{
    monitor->start();
    key(kKey4, kCommand | kShift | kOption);
    key(kKey4, kCommand);
    key(kKey4, kShift);
    key(kKey4);
    runLoop.runPosted();
    EXPECT_TRUE(reports.empty());
    key(kKey4, kCommand | kShift | kControl | 0x10000 | 0x100);
    runLoop.runPosted();
    EXPECT_EQ(reports, Reports{true});
}

TEST_F(ScreenshotHotkeyMonitorTest, other_keys_with_command_and_shift_report_nothing)
{
    monitor->start();
    for (const std::int64_t code : {kKey3, std::int64_t{22}, std::int64_t{5}, std::int64_t{7}, std::int64_t{53}})
        key(code, kCommand | kShift);
    runLoop.runPosted();
    EXPECT_TRUE(reports.empty());
}

TEST_F(ScreenshotHotkeyMonitorTest, a_disabled_tap_is_enabled_again_and_nothing_else_happens)
{
    monitor->start();
    activate();
    input.tapCalls.clear();
    input.sendToTap({EventType::tapDisabledByTimeout, 0, 0});
    input.sendToTap({EventType::tapDisabledByUserInput, 0, 0});
    runLoop.runPosted();
    EXPECT_EQ(input.tapCalls, (Calls{"enable", "enable"}));
    EXPECT_EQ(reports, Reports{true});
}

TEST_F(ScreenshotHotkeyMonitorTest, other_events_are_ignored)
{
    monitor->start();
    activate();
    for (const EventType type : {EventType::leftMouseDown, EventType::rightMouseUp, EventType::otherMouseUp})
        input.sendToTap({type, kEscape, kCommand | kShift});
    runLoop.runFor(Seconds(1));
    EXPECT_EQ(reports, Reports{true});
}

TEST_F(ScreenshotHotkeyMonitorTest, without_a_handler_it_still_keeps_its_state)
{
    monitor->onChange = nullptr;
    monitor->start();
    activate();
    EXPECT_TRUE(monitor->active());
}

TEST_F(ScreenshotHotkeyMonitorTest, nothing_happens_after_its_end)
{
    monitor->start();
    activate();
    mouseUp();
    key(kEscape);
    monitor.reset();
    EXPECT_EQ(input.tapCalls.back(), "free");
    runLoop.runFor(Seconds(60));
    EXPECT_EQ(reports, Reports{true});
    EXPECT_EQ(runLoop.armedTimerCount(), 0U);
}

} // namespace
} // namespace haloric
