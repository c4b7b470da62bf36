// How the view reports changes, and its controls after its destruction.
#include "unit/settings/SettingsViewFixture.h"

namespace haloric {
namespace {

class SettingsViewChangeTest : public SettingsViewFixture {
protected:
    std::vector<FormModel> forms;

    SettingsViewChangeTest()
    {
        view->setOnFormChange([this] { forms.push_back(view->form()); });
    }
};

TEST_F(SettingsViewChangeTest, nothing_is_reported_before_a_change)
{
    view->form();
    EXPECT_TRUE(forms.empty());
}

TEST_F(SettingsViewChangeTest, an_edit_in_the_form_gives_one_new_form)
{
    control<FormSlider>("cornerRadius").set(5);
    ASSERT_EQ(forms.size(), 1U);
    EXPECT_EQ(controlOf<FormSlider>(forms[0], "cornerRadius").label, "Corner radius: 5 pt");
    EXPECT_EQ(controlOf<FormSlider>(forms[0], "cornerRadius").value, 5);
}

TEST_F(SettingsViewChangeTest, a_write_from_elsewhere_gives_a_new_form)
{
    store.update([](Settings& s) { s.glowEnabled = false; });
    ASSERT_EQ(forms.size(), 1U);
    EXPECT_FALSE(controlOf<FormToggle>(forms[0], "glowEnabled").isOn);
}

TEST_F(SettingsViewChangeTest, the_form_tells_while_changes_are_not_saved)
{
    EXPECT_EQ(view->form().notice, "");
    defaults.refusal =
        PlatformError{.localizedDescription = "The disk is full.", .localizedRecoverySuggestion = "Make some room."};
    control<FormSlider>("cornerRadius").set(5);
    ASSERT_FALSE(forms.empty());
    EXPECT_EQ(forms.back().notice, "Your changes are not saved. The disk is full. Make some room.");
    defaults.refusal.reset();
    control<FormSlider>("cornerRadius").set(6);
    EXPECT_EQ(forms.back().notice, "");
}

TEST_F(SettingsViewChangeTest, appearing_on_screen_gives_a_new_form_with_the_current_state)
{
    accessibility.trusted = false;
    loginItems.currentStatus = LoginItemStatus::enabled;
    section("general").onAppear();
    ASSERT_EQ(forms.size(), 1U);
    EXPECT_TRUE(controlOf<FormToggle>(forms[0], "launchAtLogin").isOn);
    EXPECT_EQ(forms[0].buttons.at(1).id, "grantAccessibility");
}

TEST_F(SettingsViewChangeTest, the_switch_for_the_login_item_gives_a_new_form)
{
    control<FormToggle>("launchAtLogin").set(true);
    ASSERT_EQ(forms.size(), 1U);
    EXPECT_TRUE(controlOf<FormToggle>(forms[0], "launchAtLogin").isOn);
}

TEST_F(SettingsViewChangeTest, controls_of_an_older_form_still_work)
{
    const FormModel old = view->form();
    store.update([](Settings& s) { s.borderWidth = 9; });
    controlOf<FormToggle>(old, "dimEnabled").set(true);
    EXPECT_EQ(store.settings(), defaultsBut([](Settings& s) {
                  s.borderWidth = 9;
                  s.dimEnabled = true;
              }));
}

TEST_F(SettingsViewChangeTest, the_handler_may_replace_itself)
{
    view->setOnFormChange([this] { view->setOnFormChange([this] { forms.push_back(view->form()); }); });
    control<FormToggle>("dimEnabled").set(true);
    EXPECT_TRUE(forms.empty());
    control<FormToggle>("dimEnabled").set(false);
    EXPECT_EQ(forms.size(), 1U);
}

TEST_F(SettingsViewChangeTest, the_handler_may_be_removed)
{
    view->setOnFormChange(nullptr);
    control<FormToggle>("dimEnabled").set(true);
    EXPECT_TRUE(forms.empty());
}

TEST_F(SettingsViewChangeTest, the_handler_may_destroy_the_view)
{
    view->setOnFormChange([this] { view.reset(); });
    control<FormToggle>("dimEnabled").set(true);
    EXPECT_TRUE(store.settings().dimEnabled);
    EXPECT_EQ(view, nullptr);
}

TEST_F(SettingsViewChangeTest, once_the_view_is_destroyed_its_controls_do_nothing_and_it_reports_nothing)
{
    accessibility.trusted = false;
    applications.launch("org.example.mail", "Mail");
    store.update([](Settings& s) {
        s.dimScope = DimScope::selectedApps;
        s.dimApps = {"org.example.notes"};
    });
    const FormModel form = view->form();
    defaults.writes.clear();
    const auto offered = controlOf<FormMenu>(form, "addRunningApp").items();
    forms.clear();
    view.reset();

    controlOf<FormToggle>(form, "dimEnabled").set(true);
    controlOf<FormToggle>(form, "borderColor.useAccent").set(false);
    controlOf<FormToggle>(form, "launchAtLogin").set(true);
    controlOf<FormSlider>(form, "borderWidth").set(5);
    controlOf<FormColorWell>(form, "accent").set({1, 1, 1, 1});
    controlOf<FormColorWell>(form, "glowColor.custom").set({1, 1, 1, 1});
    controlOf<FormPicker>(form, "dimScope").choose(0);
    controlOf<FormListRow>(form, "dimApps/org.example.notes").remove();
    offered.at(0).perform();
    EXPECT_TRUE(controlOf<FormMenu>(form, "addRunningApp").items().empty());
    for (const char* id : {"chooseApplication", "resetToDefaults", "grantAccessibility", "restart", "quit"})
        controlOf<FormButton>(form, id).perform();
    sectionOf(form, "general").onAppear();

    EXPECT_TRUE(defaults.writes.empty());
    EXPECT_TRUE(loginItems.changes.empty());
    EXPECT_TRUE(panels.openPanels.empty());
    EXPECT_TRUE(accessibility.prompts.empty());
    EXPECT_EQ(restarts, 0);
    EXPECT_FALSE(application.terminated);
    store.setSettings(Settings::defaults());
    EXPECT_TRUE(forms.empty());
}

TEST_F(SettingsViewChangeTest, a_handler_that_replaces_itself_lives_until_it_returns)
{
    auto mark = std::make_shared<int>(0);
    bool alive = false;
    view->setOnFormChange([this, mark, &alive] {
        const std::weak_ptr<int> self = mark;
        view->setOnFormChange(nullptr);
        alive = !self.expired();
    });
    mark.reset();
    control<FormToggle>("dimEnabled").set(true);
    EXPECT_TRUE(alive);
}

} // namespace
} // namespace haloric
