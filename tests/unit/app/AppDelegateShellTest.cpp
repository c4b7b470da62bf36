// How the delegate hooks up the status item, the hotkey and the settings window.
#include "unit/app/AppDelegateFixture.h"

namespace haloric {
namespace {

class AppDelegateShellTest : public AppDelegateFixture {
protected:
    void setHotkeyEnabled(bool enabled)
    {
        store.update([enabled](Settings& settings) { settings.hotkeyEnabled = enabled; });
    }
};

TEST_F(AppDelegateShellTest, launching_makes_the_tracker_then_the_item_then_the_hotkey_and_then_checks_trust)
{
    setHotkeyEnabled(true);
    accessibility.trusted = false;
    Calls order;
    statusItems.whileMaking = [&] {
        order.emplace_back("status item");
        EXPECT_NE(delegate->overlays(), nullptr);
        ASSERT_NE(delegate->tracker(), nullptr);
        EXPECT_TRUE(delegate->tracker()->onChange);
        EXPECT_TRUE(delegate->tracker()->onPulse);
        EXPECT_FALSE(hotkeyManager.onTrigger);
    };
    hotkeys.whileRegistering = [&] {
        order.emplace_back("hotkey");
        EXPECT_TRUE(hotkeyManager.onTrigger);
        EXPECT_NE(delegate->statusBar(), nullptr);
        EXPECT_TRUE(accessibility.prompts.empty());
    };
    alerts.whileShown = [&] { order.emplace_back("alert"); };
    launch();
    EXPECT_EQ(order, (Calls{"status item", "hotkey", "alert"}));
    EXPECT_FALSE(delegate->trackerRunning());
}

TEST_F(AppDelegateShellTest, the_overlays_are_made_before_the_tracker)
{
    std::vector<std::string> queuesBefore; // of each window that is made, the queue that the tracker requests
    toolkit.whileMaking = [&] { queuesBefore.push_back(queues.lastLabel()); };
    launch();
    ASSERT_FALSE(queuesBefore.empty());
    EXPECT_EQ(queuesBefore.front(), "");
    EXPECT_EQ(queues.lastLabel(), "com.kestrow.haloric.accessibility");
}

TEST_F(AppDelegateShellTest, there_is_no_status_item_before_launching_has_finished)
{
    EXPECT_EQ(delegate->statusBar(), nullptr);
    EXPECT_TRUE(statusItems.items.empty());
    EXPECT_TRUE(hotkeys.calls.empty());
}

TEST_F(AppDelegateShellTest, the_status_bar_gets_the_tracker)
{
    launch();
    EXPECT_EQ(&delegate->statusBar()->tracker(), delegate->tracker());
}

TEST_F(AppDelegateShellTest, a_hotkey_that_is_on_is_registered_before_the_tracker_starts)
{
    setHotkeyEnabled(true);
    launch();
    EXPECT_EQ(hotkeys.registeredCount(), 1U);
    EXPECT_FALSE(delegate->trackerRunning());
}

TEST_F(AppDelegateShellTest, a_hotkey_that_is_off_is_not_registered)
{
    launch();
    EXPECT_TRUE(hotkeys.calls.empty());
}

TEST_F(AppDelegateShellTest, the_hotkey_follows_its_setting_at_once)
{
    launch();
    setHotkeyEnabled(true);
    EXPECT_EQ(hotkeys.registeredCount(), 1U);
    setHotkeyEnabled(false);
    EXPECT_EQ(hotkeys.registeredCount(), 0U);
    EXPECT_EQ(hotkeys.handlerCount(), 0U);
}

TEST_F(AppDelegateShellTest, the_same_value_twice_in_a_row_counts_once)
{
    launch();
    hotkeyManager.enable(); // directly, so that a needless call is seen
    setHotkeyEnabled(false);
    store.update([](Settings& settings) { settings.glowRadius = 31; });
    EXPECT_EQ(hotkeys.registeredCount(), 1U);

    hotkeyManager.disable();
    setHotkeyEnabled(true);
    hotkeyManager.disable();
    setHotkeyEnabled(true);
    EXPECT_EQ(hotkeys.registeredCount(), 0U);
}

TEST_F(AppDelegateShellTest, pressing_the_hotkey_opens_the_settings_window)
{
    setHotkeyEnabled(true);
    launch();
    hotkeys.press();
    ASSERT_EQ(formWindows.windows.size(), 1U);
    EXPECT_TRUE(formWindows.windows.front()->visible);
}

TEST_F(AppDelegateShellTest, opening_the_application_again_opens_the_settings_window_and_nothing_else)
{
    launch();
    const std::size_t overlays = toolkit.windows.size();
    for (const bool hasVisibleWindows : {false, true})
        EXPECT_FALSE(delegate->applicationShouldHandleReopen(hasVisibleWindows));
    ASSERT_EQ(formWindows.windows.size(), 1U);
    EXPECT_TRUE(formWindows.windows.front()->visible);
    EXPECT_EQ(toolkit.windows.size(), overlays);
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_TRUE(panels.aboutPanels.empty());
}

TEST_F(AppDelegateShellTest, a_press_after_the_delegate_is_destroyed_does_nothing)
{
    setHotkeyEnabled(true);
    launch();
    delegate.reset();
    hotkeys.press();
    EXPECT_TRUE(formWindows.windows.empty());
    setHotkeyEnabled(false); // without effect: the delegate is destroyed
    EXPECT_EQ(hotkeys.registeredCount(), 1U);
}

TEST_F(AppDelegateShellTest, quitting_keeps_the_status_item_and_the_hotkey_until_the_process_ends)
{
    setHotkeyEnabled(true);
    launch();
    runLoop.runPosted();
    delegate->applicationWillTerminate();
    EXPECT_TRUE(statusItems.items.front()->alive);
    EXPECT_EQ(hotkeys.registeredCount(), 1U);
}

using AppDelegateDeathTest = AppDelegateFixture;

TEST_F(AppDelegateDeathTest, a_reopening_before_there_is_a_status_bar_stops_the_process)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(delegate->applicationShouldHandleReopen(false), "");
}

} // namespace
} // namespace haloric
