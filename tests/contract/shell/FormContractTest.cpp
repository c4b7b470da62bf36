// Windows with forms, and every kind of control.
#include "contract/shell/ShellContract.h"
#include "platform/FormWindows.h"
#include "platform/WindowStyle.h"

namespace haloric {
namespace {

constexpr Color kBlue{0, 0.4, 1, 1};
constexpr Color kRed{1, 0.2, 0, 1};

class FormContract : public ShellContract {
protected:
    FormSection controls()
    {
        FormSection section{.id = "controls", .title = "Controls"};
        if (hasRowBefore)
            section.rows.push_back({"before", FormToggle{.label = "Before", .set = [](bool) {}}});
        section.rows.push_back({"toggle", FormToggle{.label = "Border", .isOn = isOn, .set = [this](bool on) {
                                                         isOn = on;
                                                         note("toggle");
                                                     }}});
        section.rows.push_back(
            {"disabled", FormToggle{.label = "Login", .isEnabled = false, .set = [this](bool) { note("disabled"); }}});
        section.rows.push_back({"slider", FormSlider{.label = "Width: " + std::to_string(static_cast<int>(width)),
                                                     .value = width,
                                                     .minimum = 1,
                                                     .maximum = 13,
                                                     .step = 0.5,
                                                     .set = [this](double value) {
                                                         width = value;
                                                         note("slider");
                                                     }}});
        section.rows.push_back(
            {"well", FormColorWell{.label = "Colour", .color = color, .set = [this](const Color& chosen) {
                                       color = chosen;
                                       note("well");
                                   }}});
        section.rows.push_back({"picker", FormPicker{.label = "Scope",
                                                     .options = {"All windows", "Other apps"},
                                                     .selected = scope,
                                                     .choose = [this](std::size_t option) {
                                                         scope = option;
                                                         note("picker");
                                                     }}});
        section.onAppear = [this] { ++appearances; };
        return section;
    }

    FormModel form()
    {
        FormSection list{.id = "list", .title = "Applications"};
        if (hasApplication) {
            list.rows.push_back({"application", FormListRow{.icon = {},
                                                            .iconSize = {18, 18},
                                                            .title = "Editor",
                                                            .removeImage = SymbolImage{"minus.circle"},
                                                            .removeLabel = "Remove Editor",
                                                            .remove = [this] {
                                                                hasApplication = false;
                                                                note("remove");
                                                            }}});
        }
        const auto items = [this] {
            return std::vector<FormMenuItem>{{"Terminal", [this] { note("Terminal"); }},
                                             {"Mail & News", [this] { note("Mail & News"); }}};
        };
        list.rows.push_back({"menu", FormMenu{.label = "Add", .items = items}});
        return {{controls(), list}, {{"button", FormButton{"Reset", [this] { note("button"); }}}}};
    }

    void note(const std::string& what)
    {
        noted.push_back(what);
        if (whenNoted)
            whenNoted();
        else if (window)
            window->setForm(form());
    }

    void showWindow()
    {
        const FormWindowConfiguration configuration{"Contract",
                                                    WindowStyle::kTitled | WindowStyle::kClosable |
                                                        WindowStyle::kMiniaturizable,
                                                    false,
                                                    {440, 620}};
        window = shell->forms().formWindows().make(configuration, form());
        window->center();
        window->makeKeyAndOrderFront();
        ASSERT_TRUE(shell->waitUntil([&] { return shell->forms().control("button").has_value(); }));
    }

    bool isNoted(const std::string& what)
    {
        return shell->waitUntil([&] { return noted == std::vector{what}; });
    }

    ContractValue valueOf(const std::string& id)
    {
        const auto control = shell->forms().control(id);
        return control ? control->value : ContractValue();
    }

    bool isOn = false;
    double width = 7;
    Color color = kBlue;
    std::size_t scope = 0;
    bool hasApplication = true;
    bool hasRowBefore = false;
    int appearances = 0;
    std::vector<std::string> noted;
    Task whenNoted;
    std::unique_ptr<FormWindow> window;
};

TEST_P(FormContract, a_window_starts_ordered_out_and_ends_with_its_owner)
{
    window = shell->forms().formWindows().make({"Contract", WindowStyle::kTitled, false, {440, 620}}, form());
    ASSERT_TRUE(window);
    EXPECT_FALSE(window->isVisible());
    shell->turnFor(Seconds(0.05));
    EXPECT_FALSE(shell->forms().control("toggle"));
    EXPECT_EQ(appearances, 0);

    showWindow();
    EXPECT_TRUE(window->isVisible());
    window.reset();
    EXPECT_TRUE(shell->waitUntil([&] { return !shell->forms().control("toggle"); }));
}

TEST_P(FormContract, sections_appear_each_time_the_window_comes_on_screen)
{
    showWindow();
    EXPECT_TRUE(shell->waitUntil([&] { return appearances > 0; }));
    window->makeKeyAndOrderFront(); // it is on screen, and may get the focus
    shell->turnFor(Seconds(0.1));
    const int first = appearances;
    window->setForm(form());
    shell->turnFor(Seconds(0.05));
    EXPECT_EQ(appearances, first);

    shell->forms().closeWindow();
    EXPECT_TRUE(shell->waitUntil([&] { return !window->isVisible(); }));
    EXPECT_FALSE(shell->forms().control("toggle"));
    window->makeKeyAndOrderFront();
    EXPECT_TRUE(shell->waitUntil([&] { return appearances > first && shell->forms().control("toggle"); }));
    EXPECT_TRUE(window->isVisible());
}

TEST_P(FormContract, every_control_shows_its_model)
{
    showWindow();
    const auto shows = [&](const char* id, const ContractControl& expected) {
        const ContractControl shown = shell->forms().control(id).value_or(ContractControl{.label = "(missing)"});
        EXPECT_EQ(shown.label, expected.label) << id;
        EXPECT_EQ(shown.isEnabled, expected.isEnabled) << id;
        EXPECT_EQ(shown.value, expected.value) << id;
        EXPECT_EQ(shown.options, expected.options) << id;
    };

    shows("toggle", {.label = "Border", .value = false});
    shows("disabled", {.label = "Login", .isEnabled = false, .value = false});
    shows("slider", {.label = "Width: 7", .value = 0.5});
    shows("well", {.label = "Colour", .value = kBlue});
    shows("picker", {.label = "Scope", .value = "All windows", .options = {"All windows", "Other apps"}});
    shows("application", {.label = "Editor"});
    shows("menu", {.label = "Add"});
    shows("button", {.label = "Reset"});
}

TEST_P(FormContract, a_toggle_calls_its_owner_with_its_new_state)
{
    showWindow();
    ASSERT_TRUE(shell->forms().use("toggle", true));
    EXPECT_TRUE(isNoted("toggle"));
    EXPECT_TRUE(isOn);
    EXPECT_EQ(valueOf("toggle"), ContractValue(true));
}

TEST_P(FormContract, a_disabled_control_cannot_be_used)
{
    showWindow();
    EXPECT_FALSE(shell->forms().use("disabled", true));
    shell->turnFor(Seconds(0.05));
    EXPECT_TRUE(noted.empty());
    EXPECT_EQ(valueOf("disabled"), ContractValue(false));
}

TEST_P(FormContract, a_slider_reports_its_whole_range)
{
    showWindow();
    for (const auto& [place, value] : {std::pair(1.0, 13.0), std::pair(0.0, 1.0), std::pair(0.5, 7.0)}) {
        ASSERT_TRUE(shell->forms().use("slider", place));
        EXPECT_TRUE(shell->waitUntil([&] { return width == value; })) << width;
        EXPECT_TRUE(shell->waitUntil([&] { return valueOf("slider") == ContractValue(place); }));
    }
    EXPECT_EQ(noted.front(), "slider");
}

TEST_P(FormContract, a_value_outside_the_range_is_shown_at_its_end_and_stays)
{
    width = 40;
    showWindow();

    EXPECT_EQ(valueOf("slider"), ContractValue(1.0));
    EXPECT_EQ(shell->forms().control("slider")->label, "Width: 40");
    shell->turnFor(Seconds(0.05));
    EXPECT_TRUE(noted.empty());
    EXPECT_EQ(width, 40);
}

TEST_P(FormContract, a_colour_well_reports_the_chosen_colour)
{
    showWindow();
    ASSERT_TRUE(shell->forms().use("well", kRed));
    EXPECT_TRUE(shell->waitUntil([&] { return valueOf("well") == ContractValue(kRed); }));

    EXPECT_NEAR(color.red, kRed.red, 1.0 / 255);
    EXPECT_NEAR(color.green, kRed.green, 1.0 / 255);
    EXPECT_NEAR(color.blue, kRed.blue, 1.0 / 255);
    EXPECT_EQ(color.alpha, 1);
}

TEST_P(FormContract, a_picker_reports_the_index_of_the_option)
{
    showWindow();
    ASSERT_TRUE(shell->forms().use("picker", "Other apps"));
    EXPECT_TRUE(isNoted("picker"));
    EXPECT_EQ(scope, 1u);
    EXPECT_EQ(valueOf("picker"), ContractValue("Other apps"));
}

TEST_P(FormContract, an_item_of_a_menu_is_performed)
{
    showWindow();
    ASSERT_TRUE(shell->forms().use("menu", "Mail & News"));
    EXPECT_TRUE(isNoted("Mail & News"));
}

TEST_P(FormContract, a_button_is_performed)
{
    showWindow();
    ASSERT_TRUE(shell->forms().use("button"));
    EXPECT_TRUE(isNoted("button"));
}

TEST_P(FormContract, the_button_of_a_list_row_takes_it_out)
{
    showWindow();
    ASSERT_TRUE(shell->forms().use("application"));
    EXPECT_TRUE(isNoted("remove"));
    EXPECT_TRUE(shell->waitUntil([&] { return !shell->forms().control("application"); }));
}

TEST_P(FormContract, a_new_form_is_shown_and_calls_nothing)
{
    showWindow();
    isOn = true;
    width = 13;
    color = kRed;
    scope = 1;
    hasApplication = false;
    window->setForm(form());

    EXPECT_TRUE(shell->waitUntil([&] { return valueOf("toggle") == ContractValue(true); }));
    EXPECT_EQ(valueOf("slider"), ContractValue(1.0));
    EXPECT_EQ(shell->forms().control("slider")->label, "Width: 13");
    EXPECT_EQ(valueOf("well"), ContractValue(kRed));
    EXPECT_EQ(valueOf("picker"), ContractValue("Other apps"));
    EXPECT_FALSE(shell->forms().control("application"));
    shell->turnFor(Seconds(0.05));
    EXPECT_TRUE(noted.empty());
}

TEST_P(FormContract, a_control_keeps_the_focus_when_rows_come_and_go)
{
    showWindow();
    ASSERT_TRUE(shell->forms().moveFocusTo("picker"));
    hasRowBefore = true;
    hasApplication = false;
    window->setForm(form());
    shell->turnFor(Seconds(0.05));

    EXPECT_TRUE(shell->forms().control("before"));
    EXPECT_EQ(shell->forms().focusedControl(), "picker");
}

TEST_P(FormContract, a_callback_keeps_what_it_captured_while_it_replaces_the_form)
{
    EndingItself ending;
    ending.end = [&] { window->setForm(FormModel{}); };
    FormModel first;
    first.sections.push_back({.id = "only", .title = "Only"});
    first.sections[0].rows.push_back(
        {"toggle", FormToggle{.label = "Replace", .set = [call = ending.callback()](bool) { call(); }}});
    first.buttons.push_back({"button", FormButton{"Replace", ending.callback()}});
    showWindow();
    for (const char* id : {"toggle", "button"}) {
        window->setForm(first);
        ASSERT_TRUE(shell->waitUntil([&] { return shell->forms().control(id).has_value(); }));
        const int before = ending.calls;
        ASSERT_TRUE(shell->forms().use(id, id == std::string("toggle") ? ContractValue(true) : ContractValue()));
        EXPECT_TRUE(shell->waitUntil([&] { return ending.calls == before + 1; }));
        EXPECT_TRUE(shell->waitUntil([&] { return !shell->forms().control(id); }));
    }
    EXPECT_TRUE(ending.keepsCaptures);
}

INSTANTIATE_TEST_SUITE_P(Hosts, FormContract, testing::ValuesIn(contractShells()), contractShellName);

} // namespace
} // namespace haloric
