// Which sections, controls and buttons there are, in which order, with which texts.
#include "unit/settings/SettingsViewFixture.h"

#include <set>

namespace haloric {
namespace {

using SettingsViewLayoutTest = SettingsViewFixture;
using Texts = std::vector<std::string>;

std::string labelOf(const FormRow& row)
{
    return std::visit(
        [](const auto& control) {
            if constexpr (requires { control.label; })
                return control.label;
            else
                return control.title;
        },
        row.control);
}

Texts labelsOf(const std::vector<FormRow>& rows)
{
    Texts labels;
    for (const FormRow& row : rows)
        labels.push_back(labelOf(row));
    return labels;
}

TEST_F(SettingsViewLayoutTest, the_sections_stand_in_their_order)
{
    Texts titles;
    for (const FormSection& section : view->form().sections)
        titles.push_back(section.title);
    EXPECT_EQ(titles, (Texts{"General", "Border", "Glow", "Title-bar tint", "Dim other windows", "Pulse", "Shortcut"}));
}

TEST_F(SettingsViewLayoutTest, each_section_has_its_controls_in_order)
{
    EXPECT_EQ(idsOf(section("general").rows), (Texts{"accent", "cornerRadius", "hideWhenFullScreen", "launchAtLogin"}));
    EXPECT_EQ(idsOf(section("border").rows),
              (Texts{"borderEnabled", "borderColor.useAccent", "borderColor.custom", "borderWidth"}));
    EXPECT_EQ(idsOf(section("glow").rows),
              (Texts{"glowEnabled", "glowColor.useAccent", "glowColor.custom", "glowRadius", "glowOpacity"}));
    EXPECT_EQ(idsOf(section("tint").rows),
              (Texts{"tintEnabled", "tintColor.useAccent", "tintColor.custom", "tintOpacity", "tintHeight"}));
    EXPECT_EQ(idsOf(section("dim").rows), (Texts{"dimEnabled", "dimColor", "dimOpacity", "dimScope"}));
    EXPECT_EQ(idsOf(section("pulse").rows), Texts{"pulseEnabled"});
    EXPECT_EQ(idsOf(section("shortcut").rows), Texts{"hotkeyEnabled"});
}

TEST_F(SettingsViewLayoutTest, each_control_has_its_label)
{
    EXPECT_EQ(labelsOf(section("general").rows), (Texts{"Accent color", "Corner radius: 11 pt",
                                                        "Hide highlight for full-screen windows", "Launch at login"}));
    EXPECT_EQ(labelsOf(section("border").rows),
              (Texts{"Enabled", "Use accent color", "Custom color", "Width: 3.0 pt"}));
    EXPECT_EQ(labelsOf(section("glow").rows),
              (Texts{"Enabled", "Use accent color", "Custom color", "Radius: 18 pt", "Intensity: 80%"}));
    EXPECT_EQ(labelsOf(section("tint").rows),
              (Texts{"Enabled", "Use accent color", "Custom color", "Opacity: 25%", "Fallback height: 28 pt"}));
    EXPECT_EQ(labelsOf(section("dim").rows), (Texts{"Enabled", "Dim color", "Strength: 35%", "Apply to"}));
    EXPECT_EQ(labelsOf(section("pulse").rows), Texts{"Pulse when focus changes or Space switches"});
    EXPECT_EQ(labelsOf(section("shortcut").rows), Texts{"Open Settings with ⌃⌥⌘F from anywhere"});
}

TEST_F(SettingsViewLayoutTest, two_sections_always_have_a_footer)
{
    EXPECT_EQ(section("tint").footer,
              "Height matches each window's title bar automatically; the fallback applies when it can't be measured. "
              "Windows without a title bar aren't tinted.");
    EXPECT_EQ(section("shortcut").footer, "Handy when the menu-bar icon is hidden behind the notch.");
    for (const char* id : {"general", "border", "glow", "dim", "pulse"})
        EXPECT_EQ(section(id).footer, "") << id;
}

TEST_F(SettingsViewLayoutTest, the_buttons_stand_in_a_row_below)
{
    accessibility.trusted = false;
    EXPECT_EQ(labelsOf(view->form().buttons),
              (Texts{"Reset to Defaults", "Grant Accessibility…", "Restart", "Quit Haloric"}));
    EXPECT_EQ(idsOf(view->form().buttons), (Texts{"resetToDefaults", "grantAccessibility", "restart", "quit"}));
}

TEST_F(SettingsViewLayoutTest, the_grant_is_offered_only_while_the_process_is_not_trusted)
{
    EXPECT_FALSE(hasRow("grantAccessibility"));
    accessibility.trusted = false;
    EXPECT_TRUE(hasRow("grantAccessibility"));
    accessibility.trusted = true;
    EXPECT_FALSE(hasRow("grantAccessibility"));
    EXPECT_TRUE(accessibility.prompts.empty()) << "showing the form does not prompt";
}

TEST_F(SettingsViewLayoutTest, no_two_rows_have_the_same_id)
{
    accessibility.trusted = false;
    store.update([](Settings& s) {
        s.dimScope = DimScope::selectedApps;
        s.dimApps = {"org.example.a", "2/org.example.a", "org.example.a", "org.example.a", ""};
    });
    const Texts ids = idsOf(allRows(view->form()));
    EXPECT_EQ(std::set(ids.begin(), ids.end()).size(), ids.size());
}

TEST_F(SettingsViewLayoutTest, showing_the_form_writes_nothing)
{
    view->form();
    EXPECT_TRUE(defaults.writes.empty());
    EXPECT_TRUE(loginItems.changes.empty());
}

TEST_F(SettingsViewLayoutTest, without_anything_to_grant_there_is_no_button_for_it)
{
    accessibility.trusted = false;
    accessibility.grantable = false;
    EXPECT_FALSE(hasRow("grantAccessibility"));
}

TEST_F(SettingsViewLayoutTest, a_host_has_its_own_words_for_what_only_it_has)
{
    auto dependencies = platform();
    dependencies.texts = {.loginItemToolTip = "",
                          .loginItemFooter = "Install it.",
                          .approvalFooter = "",
                          .pulseLabel = "Pulse",
                          .shortcutLabel = "Open with F1",
                          .shortcutFooter = "Handy."};
    bundle.bundlePath = "/usr/bin";
    view = std::make_unique<SettingsView>(dependencies, store, false);
    EXPECT_EQ(section("general").footer, "Install it.");
    EXPECT_EQ(control<FormToggle>("pulseEnabled").label, "Pulse");
    EXPECT_EQ(control<FormToggle>("hotkeyEnabled").label, "Open with F1");
    EXPECT_EQ(section("shortcut").footer, "Handy.");
}

TEST_F(SettingsViewLayoutTest, a_colour_panel_names_what_it_colours)
{
    const std::pair<const char*, const char*> expected[] = {{"accent", "Accent color"},
                                                            {"borderColor.custom", "Border color"},
                                                            {"glowColor.custom", "Glow color"},
                                                            {"tintColor.custom", "Title-bar tint color"},
                                                            {"dimColor", "Dim color"}};
    for (const auto& [id, title] : expected)
        EXPECT_EQ(control<FormColorWell>(id).title, title);
}

} // namespace
} // namespace haloric
