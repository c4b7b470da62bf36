// Events from outside: screens, Spaces, settings, the screenshot interface.
#include "unit/overlay/OverlayControllerFixture.h"

namespace haloric {
namespace {

class OverlayControllerEventsTest : public OverlayControllerFixture {
protected:
    void pressScreenshotKey(std::int64_t keyCode) { input.sendToTap({EventType::keyDown, keyCode, 0x120000}); }

    static constexpr std::int64_t kKey4 = 21;
    static constexpr std::int64_t kEscape = 53;
};

TEST_F(OverlayControllerEventsTest, a_screen_change_rebuilds_the_dim_windows_and_lays_out)
{
    edit([](Settings& s) { s.dimEnabled = true; });
    controller->setState(focused());
    const Record oldDim = dim(1);
    const Record oldAppDim = appDim(1);
    toolkit.forgetCalls();
    screens.set({kPrimary});
    screens.announceChange();
    EXPECT_FALSE(oldDim->alive);
    EXPECT_FALSE(oldAppDim->alive);
    EXPECT_EQ(oldDim->calls, Calls{"orderOut"});
    EXPECT_EQ(oldAppDim->calls, Calls{"orderOut"});
    ASSERT_EQ(controller->dimWindows().size(), 1U);
    ASSERT_EQ(controller->appDimWindows().size(), 1U);
    EXPECT_EQ(controller->dimWindows()[0]->frame(), kPrimary.frame);
    EXPECT_TRUE(controller->dimWindows()[0]->isVisible());
    EXPECT_EQ(controller->dimViews()[0]->settings, store.settings());
    EXPECT_EQ(controller->appDimViews()[0]->settings, store.settings());
    EXPECT_EQ(highlight()->count("orderFront"), 1U);
    EXPECT_TRUE(isOnTop(highlight()));
}

TEST_F(OverlayControllerEventsTest, new_dim_windows_take_turns_with_new_per_application_ones)
{
    screens.announceChange();
    ASSERT_EQ(toolkit.windows.size(), 9U);
    EXPECT_EQ(toolkit.windows[5]->contentView, controller->dimViews()[0].get());
    EXPECT_EQ(toolkit.windows[6]->contentView, controller->appDimViews()[0].get());
    EXPECT_EQ(toolkit.windows[7]->contentView, controller->dimViews()[1].get());
    EXPECT_EQ(toolkit.windows[8]->contentView, controller->appDimViews()[1].get());
}

TEST_F(OverlayControllerEventsTest, a_screen_change_orders_the_highlight_to_the_front)
{
    controller->setState(focused());
    toolkit.forgetCalls();
    screens.announceChange();
    EXPECT_EQ(highlight()->calls, Calls{"orderFront"});
}

TEST_F(OverlayControllerEventsTest, a_space_change_takes_everything_off_and_shows_it_again)
{
    edit([](Settings& s) { s.dimEnabled = true; });
    controller->setState(focused());
    toolkit.forgetCalls();
    workspace.announce(WorkspaceNotification::activeSpaceDidChange);
    EXPECT_EQ(highlight()->calls, (Calls{"orderOut", "orderFront"}));
    EXPECT_EQ(dim(0)->calls, (Calls{"orderOut", "orderFront"}));
    EXPECT_EQ(dim(1)->calls, (Calls{"orderOut", "orderFront"}));
    EXPECT_EQ(appDim(0)->calls.front(), "orderOut");
    EXPECT_TRUE(isOnTop(highlight()));

    edit([](Settings& s) { s.dimScope = DimScope::selectedApps; });
    toolkit.forgetCalls();
    workspace.announce(WorkspaceNotification::activeSpaceDidChange);
    EXPECT_EQ(appDim(1)->calls, (Calls{"orderOut", "orderFront"}));
}

TEST_F(OverlayControllerEventsTest, a_space_change_that_is_followed_by_no_window_is_remembered)
{
    controller->setState(focused());
    edit([](Settings& s) { s.borderEnabled = s.glowEnabled = s.pulseEnabled = false; });
    workspace.announce(WorkspaceNotification::activeSpaceDidChange);
    EXPECT_FALSE(anythingVisible());
    edit([](Settings& s) { s.borderEnabled = true; });
    EXPECT_TRUE(isOnTop(highlight()));
}

TEST_F(OverlayControllerEventsTest, settings_arrive_on_a_later_turn_of_the_main_loop)
{
    controller->setState(focused());
    toolkit.forgetCalls();
    store.update([](Settings& s) { s.cornerRadius = 3; });
    EXPECT_TRUE(highlight()->calls.empty());
    EXPECT_EQ(controller->highlightView().settings.cornerRadius, 11);
    runLoop.runPosted();
    EXPECT_EQ(highlight()->calls, Calls{"display"});
    EXPECT_EQ(controller->highlightView().settings.cornerRadius, 3);
    for (std::size_t screen = 0; screen < 2; ++screen) {
        EXPECT_EQ(controller->dimViews()[screen]->settings.cornerRadius, 3);
        EXPECT_EQ(controller->appDimViews()[screen]->settings.cornerRadius, 3);
        EXPECT_EQ(dim(screen)->count("display"), 1U);
        EXPECT_EQ(appDim(screen)->count("display"), 1U);
    }
}

TEST_F(OverlayControllerEventsTest, the_first_settings_arrive_on_a_later_turn_as_well)
{
    controller.reset();
    toolkit.windows.clear();
    OverlayController fresh({runLoop, workspace, screens, toolkit, input, windowServer, windowList, log}, store);
    EXPECT_EQ(highlight()->calls, Calls{"setContentView"});
    runLoop.runPosted();
    EXPECT_EQ(highlight()->calls, (Calls{"setContentView", "display", "orderOut"}));
}

TEST_F(OverlayControllerEventsTest, several_settings_arrive_in_their_order)
{
    controller->setState(focused());
    store.update([](Settings& s) { s.glowRadius = 30; });
    store.update([](Settings& s) { s.glowRadius = 20; });
    runLoop.runPosted();
    EXPECT_EQ(controller->highlightView().settings.glowRadius, 20);
    EXPECT_EQ(highlight()->frame, kFocused.insetBy(-44));
}

TEST_F(OverlayControllerEventsTest, the_screenshot_interface_hides_everything_while_it_is_up)
{
    edit([](Settings& s) { s.dimEnabled = true; });
    controller->setState(focused());
    pressScreenshotKey(kKey4);
    EXPECT_FALSE(controller->screenshotUIVisible());
    runLoop.runPosted();
    EXPECT_TRUE(controller->screenshotUIVisible());
    EXPECT_FALSE(anythingVisible());
    controller->setState(focused(kFocused.translatedBy(5, 5)));
    EXPECT_FALSE(anythingVisible());
    pressScreenshotKey(kEscape);
    runLoop.runPosted();
    EXPECT_FALSE(controller->screenshotUIVisible());
    EXPECT_EQ(toolkit.stack.size(), 3U);
    EXPECT_TRUE(isOnTop(highlight()));
    EXPECT_EQ(highlight()->frame, kFocused.insetBy(-40).translatedBy(5, 5));
}

TEST_F(OverlayControllerEventsTest, the_screenshot_interface_ends_per_application_dimming_for_its_time)
{
    edit([](Settings& s) {
        s.dimEnabled = true;
        s.dimScope = DimScope::selectedApps;
    });
    controller->setState(focused());
    pressScreenshotKey(kKey4);
    runLoop.runPosted();
    EXPECT_FALSE(controller->appDimTimerRunning());
    input.sendToTap({EventType::leftMouseUp, 0, 0});
    runLoop.runFor(Seconds(0.5));
    EXPECT_TRUE(appDim(0)->visible);
    EXPECT_TRUE(controller->appDimTimerRunning());
}

TEST_F(OverlayControllerEventsTest, nothing_reaches_a_destroyed_controller)
{
    edit([](Settings& s) {
        s.dimEnabled = true;
        s.dimScope = DimScope::selectedApps;
    });
    controller->setState(focused());
    store.update([](Settings& s) { s.cornerRadius = 3; });
    pressScreenshotKey(kKey4);
    const auto windows = toolkit.windows;
    controller.reset();
    toolkit.forgetCalls();
    screens.announceChange();
    workspace.announce(WorkspaceNotification::activeSpaceDidChange);
    runLoop.runFor(Seconds(1));
    for (const Record& window : windows)
        EXPECT_TRUE(window->calls.empty());
    EXPECT_EQ(screens.observerCount(), 0U);
    EXPECT_EQ(workspace.observerCount(WorkspaceNotification::activeSpaceDidChange), 0U);
    EXPECT_EQ(runLoop.armedTimerCount(), 0U);
}

} // namespace
} // namespace haloric
