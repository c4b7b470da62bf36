// The row of buttons.
#include "unit/settings/SettingsViewFixture.h"

namespace haloric {
namespace {

using SettingsViewButtonsTest = SettingsViewFixture;

TEST_F(SettingsViewButtonsTest, reset_writes_the_defaults)
{
    store.setSettings(defaultsBut([](Settings& s) {
        s.borderWidth = 9;
        s.dimScope = DimScope::selectedApps;
        s.dimApps = {"org.example.mail"};
        s.accent = {1, 0, 0, 1};
    }));
    control<FormButton>("resetToDefaults").perform();
    EXPECT_EQ(store.settings(), Settings::defaults());
    EXPECT_EQ(SettingsStore(defaults).settings(), Settings::defaults());
}

TEST_F(SettingsViewButtonsTest, reset_leaves_the_login_item_alone)
{
    control<FormToggle>("launchAtLogin").set(true);
    control<FormButton>("resetToDefaults").perform();
    EXPECT_TRUE(control<FormToggle>("launchAtLogin").isOn);
    EXPECT_EQ(loginItems.changes, Texts{"register"});
}

TEST_F(SettingsViewButtonsTest, the_grant_prompts_and_opens_the_accessibility_pane)
{
    accessibility.trusted = false;
    control<FormButton>("grantAccessibility").perform();
    EXPECT_EQ(accessibility.prompts, std::vector{true});
    EXPECT_EQ(workspace.openedURLs,
              Texts{"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"});
}

TEST_F(SettingsViewButtonsTest, restart_restarts_once)
{
    control<FormButton>("restart").perform();
    EXPECT_EQ(restarts, 1);
    EXPECT_FALSE(application.terminated) << "how it ends is the restart's own affair";
}

TEST_F(SettingsViewButtonsTest, quit_terminates_the_application)
{
    control<FormButton>("quit").perform();
    EXPECT_EQ(application.calls, Texts{"terminate"});
    EXPECT_EQ(restarts, 0);
}

TEST_F(SettingsViewButtonsTest, no_button_but_reset_writes_settings)
{
    accessibility.trusted = false;
    for (const char* id : {"grantAccessibility", "restart", "quit"})
        control<FormButton>(id).perform();
    EXPECT_TRUE(defaults.writes.empty());
}

} // namespace
} // namespace haloric
