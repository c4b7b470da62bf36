// The switch that starts the application at login.
#include "unit/settings/SettingsViewFixture.h"

namespace haloric {
namespace {

class SettingsViewLoginItemTest : public SettingsViewFixture {
protected:
    const PlatformError kError{"SMAppServiceErrorDomain", 1, "Operation not permitted", ""};

    FormToggle toggle() const { return control<FormToggle>("launchAtLogin"); }
    void appear() const { section("general").onAppear(); }
};

TEST_F(SettingsViewLoginItemTest, it_first_shows_the_value_that_the_view_was_made_with)
{
    EXPECT_FALSE(toggle().isOn);
    view = std::make_unique<SettingsView>(platform(), store, true);
    EXPECT_TRUE(toggle().isOn);
    EXPECT_TRUE(view->launchAtLogin());
}

TEST_F(SettingsViewLoginItemTest, it_shows_the_real_state_when_the_section_appears)
{
    loginItems.currentStatus = LoginItemStatus::enabled;
    EXPECT_FALSE(toggle().isOn);
    appear();
    EXPECT_TRUE(toggle().isOn);
    loginItems.currentStatus = LoginItemStatus::requiresApproval;
    appear();
    EXPECT_FALSE(toggle().isOn);
    EXPECT_TRUE(loginItems.changes.empty()) << "appearing changes nothing";
}

TEST_F(SettingsViewLoginItemTest, a_host_may_say_that_it_waits_for_approval)
{
    auto dependencies = platform();
    dependencies.texts.approvalFooter = "Approve it.";
    view = std::make_unique<SettingsView>(dependencies, store, false);
    loginItems.currentStatus = LoginItemStatus::requiresApproval;
    appear();
    EXPECT_EQ(section("general").footer, "Approve it.");
    loginItems.currentStatus = LoginItemStatus::enabled;
    appear();
    EXPECT_EQ(section("general").footer, "");
}

TEST_F(SettingsViewLoginItemTest, no_other_section_is_notified_of_its_appearance)
{
    for (const FormSection& section : view->form().sections)
        EXPECT_EQ(static_cast<bool>(section.onAppear), section.id == "general") << section.id;
}

TEST_F(SettingsViewLoginItemTest, it_registers_and_unregisters_the_application)
{
    toggle().set(true);
    EXPECT_TRUE(toggle().isOn);
    toggle().set(false);
    EXPECT_FALSE(toggle().isOn);
    EXPECT_EQ(loginItems.changes, (Texts{"register", "unregister"}));
    EXPECT_TRUE(alerts.errorsShown.empty());
    EXPECT_TRUE(defaults.writes.empty()) << "it is not part of the record";
}

TEST_F(SettingsViewLoginItemTest, a_failure_is_shown_in_an_alert_and_the_toggle_is_reset)
{
    loginItems.error = kError;
    std::vector<bool> shown;
    view->setOnFormChange([&] { shown.push_back(toggle().isOn); });
    toggle().set(true);
    EXPECT_EQ(alerts.errorsShown, std::vector{kError});
    EXPECT_EQ(shown, std::vector{false}) << "the control shows the user's choice and must be reset";
}

TEST_F(SettingsViewLoginItemTest, a_failure_to_unregister_leaves_it_on)
{
    loginItems.currentStatus = LoginItemStatus::enabled;
    appear();
    loginItems.error = kError;
    toggle().set(false);
    EXPECT_EQ(alerts.errorsShown, std::vector{kError});
    EXPECT_TRUE(toggle().isOn);
}

TEST_F(SettingsViewLoginItemTest, a_registration_that_waits_for_approval_shows_as_off_without_an_alert)
{
    loginItems.statusOnceRegistered = LoginItemStatus::requiresApproval;
    toggle().set(true);
    EXPECT_FALSE(toggle().isOn);
    EXPECT_TRUE(alerts.errorsShown.empty());
}

TEST_F(SettingsViewLoginItemTest, during_the_change_it_shows_the_user_s_choice)
{
    std::vector<bool> shown;
    loginItems.whileChanging = [&] { shown.push_back(toggle().isOn); };
    toggle().set(true);
    EXPECT_EQ(shown, std::vector{true});
}

TEST_F(SettingsViewLoginItemTest, in_a_bundle_it_is_enabled_without_a_footer)
{
    EXPECT_TRUE(toggle().isEnabled);
    EXPECT_EQ(section("general").footer, "");
}

TEST_F(SettingsViewLoginItemTest, outside_a_bundle_it_is_disabled_and_the_footer_gives_the_reason)
{
    bundle.bundlePath = "/build/bin";
    loginItems.currentStatus = LoginItemStatus::enabled;
    appear();
    EXPECT_FALSE(toggle().isEnabled);
    EXPECT_FALSE(toggle().isOn);
    EXPECT_EQ(section("general").footer, "Launch at login is available when running from Haloric.app.");
}

TEST_F(SettingsViewLoginItemTest, outside_a_bundle_setting_it_changes_nothing)
{
    bundle.bundlePath = "/build/bin";
    toggle().set(true);
    EXPECT_FALSE(toggle().isOn);
    EXPECT_TRUE(loginItems.changes.empty());
}

TEST_F(SettingsViewLoginItemTest, the_view_may_be_destroyed_while_its_alert_is_shown)
{
    alerts.whileErrorShown = [this] { view.reset(); };
    loginItems.error = kError;
    int forms = 0;
    view->setOnFormChange([&] { ++forms; });
    toggle().set(true);
    EXPECT_EQ(view, nullptr);
    EXPECT_EQ(forms, 0);
}

} // namespace
} // namespace haloric
