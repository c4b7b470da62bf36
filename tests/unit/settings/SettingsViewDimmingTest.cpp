// The list of the applications whose windows are dimmed.
#include "unit/settings/SettingsViewFixture.h"

namespace haloric {
namespace {

class SettingsViewDimmingTest : public SettingsViewFixture {
protected:
    SettingsViewDimmingTest()
    {
        applications.launch("org.example.notes", "Notes");
        applications.launch("org.example.mail", "Mail");
        applications.install("org.example.music", "/Applications/Music.app", "Music.app");
        store.update([](Settings& s) { s.dimScope = DimScope::selectedApps; });
        defaults.writes.clear();
    }

    const Texts& dimApps() const { return store.settings().dimApps; }
    void setDimApps(const Texts& apps)
    {
        store.update([&](Settings& s) { s.dimApps = apps; });
        defaults.writes.clear();
    }

    Texts offered() const
    {
        Texts titles;
        for (const FormMenuItem& item : control<FormMenu>("addRunningApp").items())
            titles.push_back(item.title);
        return titles;
    }
};

TEST_F(SettingsViewDimmingTest, the_list_with_its_menu_button_and_footer_is_there_for_selected_apps)
{
    setDimApps({"org.example.notes", "org.example.mail"});
    EXPECT_EQ(idsOf(section("dim").rows),
              (Texts{"dimEnabled", "dimColor", "dimOpacity", "dimScope", "dimApps/org.example.notes",
                     "dimApps/org.example.mail", "addRunningApp", "chooseApplication"}));
    EXPECT_EQ(section("dim").footer, "Only windows of the selected apps are dimmed while they're not in focus.");
    EXPECT_EQ(control<FormMenu>("addRunningApp").label, "Add Running App");
    EXPECT_EQ(control<FormButton>("chooseApplication").label, "Choose Application…");
}

TEST_F(SettingsViewDimmingTest, with_all_windows_dimmed_the_list_is_hidden_but_kept)
{
    setDimApps({"org.example.notes"});
    control<FormPicker>("dimScope").choose(0);
    EXPECT_EQ(idsOf(section("dim").rows), (Texts{"dimEnabled", "dimColor", "dimOpacity", "dimScope"}));
    EXPECT_EQ(section("dim").footer, "");
    EXPECT_EQ(dimApps(), Texts{"org.example.notes"});
    control<FormPicker>("dimScope").choose(1);
    EXPECT_TRUE(hasRow("dimApps/org.example.notes"));
}

TEST_F(SettingsViewDimmingTest, the_list_is_there_whether_dimming_is_enabled_or_not)
{
    for (const bool isOn : {true, false}) {
        control<FormToggle>("dimEnabled").set(isOn);
        EXPECT_TRUE(hasRow("addRunningApp"));
    }
}

TEST_F(SettingsViewDimmingTest, a_row_shows_the_application_s_icon_and_name_and_a_button_that_removes_it)
{
    setDimApps({"org.example.music"});
    const auto row = control<FormListRow>("dimApps/org.example.music");
    EXPECT_EQ(std::get<FileIcon>(row.icon), FileIcon{"/Applications/Music.app"});
    EXPECT_EQ(row.iconSize, (Size{18, 18}));
    EXPECT_EQ(row.title, "Music");
    EXPECT_EQ(std::get<SymbolImage>(row.removeImage), SymbolImage{"minus.circle"});
    EXPECT_EQ(row.removeLabel, "Remove Music");
}

TEST_F(SettingsViewDimmingTest, a_row_of_an_uninstalled_application_shows_its_identifier)
{
    setDimApps({"org.example.gone"});
    const auto row = control<FormListRow>("dimApps/org.example.gone");
    EXPECT_EQ(row.title, "org.example.gone");
    EXPECT_EQ(std::get<SymbolImage>(row.icon), SymbolImage{"app"});
}

TEST_F(SettingsViewDimmingTest, removing_takes_that_application_out_of_the_list)
{
    setDimApps({"org.example.notes", "org.example.mail", "org.example.music"});
    control<FormListRow>("dimApps/org.example.mail").remove();
    EXPECT_EQ(dimApps(), (Texts{"org.example.notes", "org.example.music"}));
    EXPECT_EQ(defaults.writes.size(), 1U);
}

TEST_F(SettingsViewDimmingTest, an_application_stored_twice_has_two_rows_and_is_removed_at_once)
{
    setDimApps({"org.example.mail", "org.example.notes", "org.example.mail"});
    const Texts ids = idsOf(section("dim").rows);
    EXPECT_EQ(Texts(ids.begin() + 4, ids.begin() + 7),
              (Texts{"dimApps/org.example.mail", "dimApps/org.example.notes", "dimApps#2/org.example.mail"}));
    control<FormListRow>("dimApps#2/org.example.mail").remove();
    EXPECT_EQ(dimApps(), Texts{"org.example.notes"});
}

TEST_F(SettingsViewDimmingTest, the_menu_offers_running_applications_that_are_not_in_the_list)
{
    EXPECT_EQ(offered(), (Texts{"Mail", "Notes"}));
    setDimApps({"org.example.mail"});
    EXPECT_EQ(offered(), Texts{"Notes"});
    setDimApps({"org.example.mail", "org.example.notes"});
    EXPECT_EQ(offered(), Texts{});
}

TEST_F(SettingsViewDimmingTest, the_menu_never_offers_the_application_itself_another_twice_or_one_that_is_not_regular)
{
    applications.launch("com.kestrow.haloric", "Haloric");
    applications.launch("org.example.mail", "Mail");
    applications.install("org.example.agent", "/Applications/Agent.app", "Agent");
    applications.running.push_back({ActivationPolicy::accessory, "org.example.agent"});
    EXPECT_EQ(offered(), (Texts{"Mail", "Notes"}));
}

TEST_F(SettingsViewDimmingTest, the_menu_is_read_again_each_time_it_opens)
{
    const FormMenu menu = control<FormMenu>("addRunningApp");
    EXPECT_EQ(menu.items().size(), 2U);
    applications.running.pop_back();
    EXPECT_EQ(menu.items().size(), 1U);
}

TEST_F(SettingsViewDimmingTest, a_form_asks_for_no_application)
{
    setDimApps({"org.example.mail", "org.example.notes"});
    applications.questions = 0;
    for (const double value : {1.0, 2.0, 3.0})
        control<FormSlider>("borderWidth").set(value);
    EXPECT_EQ(applications.questions, 0);
}

TEST_F(SettingsViewDimmingTest, names_and_icons_are_read_again_when_the_form_comes_on_screen)
{
    setDimApps({"org.example.gone"});
    applications.install("org.example.gone", "/Applications/Found.app", "Found");
    EXPECT_EQ(control<FormListRow>("dimApps/org.example.gone").title, "org.example.gone");
    section("general").onAppear();
    EXPECT_EQ(control<FormListRow>("dimApps/org.example.gone").title, "Found");
}

TEST_F(SettingsViewDimmingTest, choosing_from_the_menu_appends_that_application)
{
    setDimApps({"org.example.music"});
    control<FormMenu>("addRunningApp").items().at(1).perform();
    control<FormMenu>("addRunningApp").items().at(0).perform();
    EXPECT_EQ(dimApps(), (Texts{"org.example.music", "org.example.notes", "org.example.mail"}));
}

TEST_F(SettingsViewDimmingTest, adding_an_application_again_changes_nothing)
{
    const auto items = control<FormMenu>("addRunningApp").items();
    items.at(0).perform();
    items.at(0).perform();
    EXPECT_EQ(dimApps(), Texts{"org.example.mail"});
    EXPECT_EQ(defaults.writes.size(), 1U) << "not even a write";
}

TEST_F(SettingsViewDimmingTest, identifiers_are_compared_exactly)
{
    view->addDimApp("org.example.mail");
    view->addDimApp("org.example.Mail");
    EXPECT_EQ(dimApps(), (Texts{"org.example.mail", "org.example.Mail"}));
}

TEST_F(SettingsViewDimmingTest, the_open_panel_offers_applications)
{
    control<FormButton>("chooseApplication").perform();
    EXPECT_EQ(panels.openPanels, std::vector{(OpenPanel{ContentType::applicationBundle, "/Applications", "Add"})});
}

TEST_F(SettingsViewDimmingTest, the_application_chosen_in_the_open_panel_is_added)
{
    panels.chosenPath = "/Applications/Music.app";
    control<FormButton>("chooseApplication").perform();
    EXPECT_EQ(dimApps(), Texts{"org.example.music"});
    control<FormButton>("chooseApplication").perform();
    EXPECT_EQ(dimApps(), Texts{"org.example.music"}) << "a second time it is in the list";
}

TEST_F(SettingsViewDimmingTest, cancelling_the_open_panel_adds_nothing)
{
    control<FormButton>("chooseApplication").perform();
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(SettingsViewDimmingTest, a_chosen_bundle_without_an_identifier_adds_nothing)
{
    panels.chosenPath = "/Applications/Nameless.app";
    control<FormButton>("chooseApplication").perform();
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(SettingsViewDimmingTest, changes_made_while_the_open_panel_is_shown_are_kept)
{
    panels.chosenPath = "/Applications/Music.app";
    panels.whileOpen = [this] { view->addDimApp("org.example.mail"); };
    control<FormButton>("chooseApplication").perform();
    EXPECT_EQ(dimApps(), (Texts{"org.example.mail", "org.example.music"}));
}

TEST_F(SettingsViewDimmingTest, a_choice_made_after_the_view_is_destroyed_adds_nothing)
{
    panels.chosenPath = "/Applications/Music.app";
    panels.whileOpen = [this] { view.reset(); };
    control<FormButton>("chooseApplication").perform();
    EXPECT_TRUE(defaults.writes.empty());
}

} // namespace
} // namespace haloric
