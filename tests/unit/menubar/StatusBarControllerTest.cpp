#include "menubar/MenuBarIcon.h"
#include "unit/menubar/StatusBarFixture.h"

#include <any>

namespace haloric {
namespace {

using StatusBarControllerTest = StatusBarFixture;

TEST_F(StatusBarControllerTest, the_item_is_square_with_an_icon_a_tooltip_and_then_the_menu)
{
    make();
    ASSERT_EQ(statusItems.items.size(), 1U);
    EXPECT_EQ(item().length, -2.0);
    EXPECT_EQ(item().calls, (Calls{"setImage", "setToolTip", "setMenu"}));
    EXPECT_TRUE(std::get<DrawnImage>(item().image).isTemplate);
    EXPECT_EQ(std::get<DrawnImage>(item().image).size, MenuBarIcon::make().size);
    EXPECT_EQ(item().toolTip, "Haloric");
    EXPECT_EQ(item().menu, &controller->menu());
    EXPECT_EQ(item().delegate, controller.get());
}

TEST_F(StatusBarControllerTest, an_item_without_a_button_gets_only_the_menu)
{
    statusItems.haveButtons = false;
    make();
    EXPECT_EQ(item().calls, Calls{"setMenu"});
}

TEST_F(StatusBarControllerTest, the_menu_is_right_before_it_is_attached)
{
    store.update([](Settings& settings) { settings.glowEnabled = false; });
    make();
    const auto& items = item().menuAsAttached.items;
    ASSERT_NE(SimMenuSearch::find(items, "Border"), nullptr);
    EXPECT_TRUE(SimMenuSearch::find(items, "Border")->isOn);
    EXPECT_FALSE(SimMenuSearch::find(items, "Glow")->isOn);
}

TEST_F(StatusBarControllerTest, the_updater_is_first_used_when_the_menu_is_built)
{
    bool existedBefore = true;
    statusItems.whileMaking = [&] { existedBefore = updater.has_value(); };
    make();
    EXPECT_FALSE(existedBefore);
    EXPECT_TRUE(updater.has_value());
}

TEST_F(StatusBarControllerTest, the_tracker_is_kept)
{
    make();
    EXPECT_EQ(&controller->tracker(), &tracker);
}

TEST_F(StatusBarControllerTest, a_change_of_the_settings_reaches_the_menu_on_a_later_turn_of_the_loop)
{
    make();
    runLoop.runPosted();
    item().calls.clear();
    store.update([](Settings& settings) { settings.dimEnabled = true; });
    EXPECT_TRUE(item().calls.empty());
    EXPECT_FALSE(SimMenuSearch::find(controller->menu().items, "Dim other windows")->isOn);
    runLoop.runPosted();
    EXPECT_EQ(item().calls, Calls{"menuItemsChanged"});
    EXPECT_TRUE(SimMenuSearch::find(item().menuAsReported.items, "Dim other windows")->isOn)
        << "read before the report";
    EXPECT_TRUE(SimMenuSearch::find(controller->menu().items, "Dim other windows")->isOn);
}

TEST_F(StatusBarControllerTest, the_settings_at_the_start_sync_the_menu_as_well)
{
    make();
    EXPECT_EQ(std::ranges::count(item().calls, "menuItemsChanged"), 0);
    runLoop.runPosted();
    EXPECT_EQ(std::ranges::count(item().calls, "menuItemsChanged"), 1);
}

TEST_F(StatusBarControllerTest, changes_of_one_turn_reach_the_menu_together)
{
    make();
    runLoop.runPosted();
    item().calls.clear();
    store.update([](Settings& settings) { settings.dimEnabled = true; });
    store.update([](Settings& settings) { settings.glowEnabled = false; });
    runLoop.runPosted();
    EXPECT_EQ(item().calls, Calls{"menuItemsChanged"});
    EXPECT_TRUE(SimMenuSearch::find(controller->menu().items, "Dim other windows")->isOn);
    EXPECT_FALSE(SimMenuSearch::find(controller->menu().items, "Glow")->isOn);
}

TEST_F(StatusBarControllerTest, a_change_of_the_settings_reads_the_state_of_the_system_once_a_second)
{
    make();
    runLoop.runPosted();
    loginItems.currentStatus = LoginItemStatus::enabled;
    accessibility.trusted = false;
    const auto isOn = [this] { return SimMenuSearch::find(controller->menu().items, "Launch at Login")->isOn; };
    const auto isHidden = [this] {
        return SimMenuSearch::find(controller->menu().items, "Grant Accessibility Permission…")->isHidden;
    };
    runLoop.runFor(Seconds(0.9));
    store.update([](Settings& settings) { settings.dimEnabled = true; });
    runLoop.runPosted();
    EXPECT_FALSE(isOn());
    EXPECT_TRUE(isHidden());
    runLoop.runFor(Seconds(0.2));
    store.update([](Settings& settings) { settings.dimEnabled = false; });
    runLoop.runPosted();
    EXPECT_TRUE(isOn());
    EXPECT_FALSE(isHidden());
}

TEST_F(StatusBarControllerTest, the_menu_opens_with_the_state_of_the_system_at_that_moment)
{
    make();
    loginItems.currentStatus = LoginItemStatus::enabled;
    accessibility.trusted = false;
    EXPECT_TRUE(statusItems.item("Launch at Login").isOn);
    EXPECT_FALSE(statusItems.item("Grant Accessibility Permission…").isHidden);
}

TEST_F(StatusBarControllerTest, opening_the_menu_brings_it_up_to_date)
{
    make();
    store.update([](Settings& settings) { settings.borderEnabled = false; });
    item().delegate->menuNeedsUpdate();
    EXPECT_FALSE(SimMenuSearch::find(item().menu->items, "Border")->isOn);
}

TEST_F(StatusBarControllerTest, each_toggle_inverts_only_its_field_and_saves_the_record)
{
    make();
    const std::vector<std::pair<const char*, bool Settings::*>> toggles{
        {"Border", &Settings::borderEnabled},
        {"Glow", &Settings::glowEnabled},
        {"Title-bar tint", &Settings::tintEnabled},
        {"Dim other windows", &Settings::dimEnabled},
        {"Pulse on focus change", &Settings::pulseEnabled}};
    for (const auto& [title, field] : toggles) {
        Settings expected = store.settings();
        expected.*field = !(expected.*field);
        ASSERT_TRUE(statusItems.choose(title));
        EXPECT_EQ(store.settings(), expected) << title;
        EXPECT_EQ(SettingsStore(defaults).settings(), expected) << title;
        EXPECT_EQ(statusItems.item(title).isOn, expected.*field);
        ASSERT_TRUE(statusItems.choose(title));
        expected.*field = !(expected.*field);
        EXPECT_EQ(store.settings(), expected) << title;
    }
}

TEST_F(StatusBarControllerTest, choosing_teal_makes_it_the_accent_and_saves_it)
{
    make();
    ASSERT_TRUE(statusItems.choose("Teal"));
    EXPECT_EQ(store.settings().accent, (RGBA{0.35, 0.78, 0.98, 1}));
    EXPECT_EQ(SettingsStore(defaults).settings().accent, (RGBA{0.35, 0.78, 0.98, 1}));
}

TEST_F(StatusBarControllerTest, a_preset_that_represents_no_colour_is_ignored)
{
    make();
    const std::size_t saves = defaults.writes.size();
    MenuItem sender = statusItems.item("Teal");
    for (const std::any& object : {std::any(), std::any(std::string("Teal")), std::any(Color{1, 0, 0, 1})}) {
        sender.representedObject = object;
        sender.action->perform(sender);
    }
    EXPECT_EQ(store.settings(), Settings::defaults());
    EXPECT_EQ(defaults.writes.size(), saves);
}

TEST_F(StatusBarControllerTest, launch_at_login_registers_and_unregisters)
{
    make();
    runLoop.runPosted();
    item().calls.clear();
    ASSERT_TRUE(statusItems.choose("Launch at Login"));
    EXPECT_EQ(loginItems.changes, Calls{"register"});
    EXPECT_EQ(item().calls, Calls{"menuItemsChanged"});
    EXPECT_TRUE(SimMenuSearch::find(controller->menu().items, "Launch at Login")->isOn);
    ASSERT_TRUE(statusItems.choose("Launch at Login"));
    EXPECT_EQ(loginItems.changes, (Calls{"register", "unregister"}));
    EXPECT_FALSE(SimMenuSearch::find(controller->menu().items, "Launch at Login")->isOn);
    EXPECT_TRUE(alerts.errorsShown.empty());
}

TEST_F(StatusBarControllerTest, a_login_item_that_cannot_be_changed_is_an_alert_and_then_shows_its_real_state)
{
    make();
    item().calls.clear();
    alerts.whileErrorShown = [this] { EXPECT_TRUE(item().calls.empty()); };
    loginItems.error = PlatformError{"SMAppServiceErrorDomain", 1, "Operation not permitted", ""};
    ASSERT_TRUE(statusItems.choose("Launch at Login"));
    EXPECT_EQ(alerts.errorsShown, std::vector<PlatformError>{*loginItems.error});
    EXPECT_EQ(item().calls, Calls{"menuItemsChanged"});
    EXPECT_FALSE(SimMenuSearch::find(controller->menu().items, "Launch at Login")->isOn);
}

TEST_F(StatusBarControllerTest, a_registration_that_waits_for_approval_is_requested_again)
{
    loginItems.currentStatus = LoginItemStatus::requiresApproval;
    make();
    ASSERT_TRUE(statusItems.choose("Launch at Login"));
    EXPECT_EQ(loginItems.changes, Calls{"register"});
}

TEST_F(StatusBarControllerTest, the_grant_prompts_and_opens_the_settings_of_the_system_without_an_alert)
{
    accessibility.trusted = false;
    make();
    ASSERT_TRUE(statusItems.choose("Grant Accessibility Permission…"));
    EXPECT_EQ(accessibility.prompts, std::vector<bool>{true});
    EXPECT_EQ(workspace.openedURLs,
              Calls{"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"});
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(StatusBarControllerTest, about_is_ordered_front_after_the_application_with_the_versions_of_the_bundle)
{
    int activationsBefore = 0;
    panels.whileAboutShown = [&] { activationsBefore = application.activations; };
    bundle.info["CFBundleShortVersionString"] = "1.4";
    bundle.info["CFBundleVersion"] = "212";
    make();
    ASSERT_TRUE(statusItems.choose("About Haloric"));
    EXPECT_EQ(activationsBefore, 1);
    EXPECT_EQ(application.activations, 1);
    EXPECT_EQ(panels.aboutPanels,
              (std::vector<AboutPanel>{{"Haloric", "1.4", "212", "Makes the focused window unmistakable.", 11}}));
}

TEST_F(StatusBarControllerTest, versions_that_are_missing_or_no_text_have_substitutes)
{
    make();
    ASSERT_TRUE(statusItems.choose("About Haloric"));
    bundle.otherInfo = {"CFBundleShortVersionString", "CFBundleVersion"};
    ASSERT_TRUE(statusItems.choose("About Haloric"));
    ASSERT_EQ(panels.aboutPanels.size(), 2U);
    for (const AboutPanel& panel : panels.aboutPanels) {
        EXPECT_EQ(panel.applicationVersion, "dev");
        EXPECT_EQ(panel.version, "");
    }
}

TEST_F(StatusBarControllerTest, checking_for_updates_calls_the_updater)
{
    bundle.info["SUFeedURL"] = "https://example.org/appcast.xml";
    make();
    ASSERT_TRUE(statusItems.choose("Check for Updates…"));
    EXPECT_EQ(updaterFramework.checks, 1);
}

TEST_F(StatusBarControllerTest, quit_terminates_the_application)
{
    make();
    ASSERT_TRUE(statusItems.choose("Quit Haloric"));
    EXPECT_TRUE(application.terminated);
}

TEST_F(StatusBarControllerTest, nothing_reaches_a_destroyed_controller)
{
    make();
    const MenuModel kept = controller->menu();
    controller.reset();
    EXPECT_FALSE(item().alive);
    runLoop.runPosted();
    EXPECT_EQ(std::ranges::count(item().calls, "menuItemsChanged"), 0);
    for (const MenuItem& sender : kept.items)
        if (sender.action && sender.action->target == MenuTarget::controller)
            sender.action->perform(sender);
    EXPECT_EQ(store.settings(), Settings::defaults());
    EXPECT_TRUE(formWindows.windows.empty());
    EXPECT_TRUE(panels.aboutPanels.empty());
}

} // namespace
} // namespace haloric
