#include "hosts/sim/form/SimFormWindows.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using Value = SimFormWindows::Value;

class SimFormWindowsTest : public testing::Test {
protected:
    FormModel form()
    {
        FormSection section{.id = "all", .title = "All", .rows = {}, .footer = "", .onAppear = [this] { ++appeared; }};
        section.rows.push_back({"toggle", FormToggle{"T", false, isEnabled, [this](bool on) { isOn = on; }}});
        section.rows.push_back({"slider", FormSlider{"S", 1, 0, 10, 1, [this](double value) { slider = value; }}});
        section.rows.push_back(
            {"picker", FormPicker{"P", {"a", "b"}, 0, [this](std::size_t option) { picked = option; }}});
        section.rows.push_back({"menu", FormMenu{"M", [this] { return menuItems(); }}});
        FormModel model;
        model.sections.push_back(section);
        model.buttons.push_back({"button", FormButton{"B", [this] { ++performed; }}});
        return model;
    }

    std::vector<FormMenuItem> menuItems()
    {
        return {{"one", [this] { ++performed; }}};
    }

    std::unique_ptr<FormWindow> make() { return windows.make({"Settings", 7, false, {440, 560}}, form()); }

    SimDesktopFixture fixture;
    SimFormWindows windows{fixture.desktop};
    bool isEnabled = true;
    int appeared = 0;
    bool isOn = false;
    double slider = 0;
    std::size_t picked = 0;
    int performed = 0;
};

TEST_F(SimFormWindowsTest, a_window_opens_centred_with_the_focus)
{
    const auto window = make();
    EXPECT_FALSE(window->isVisible());
    window->center();
    window->makeKeyAndOrderFront();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(appeared, 1);
    const SimWindow* shown = fixture.desktop.model.windows.named("Settings");
    ASSERT_TRUE(shown);
    const Rect screen = fixture.desktop.model.screens.front().frame;
    EXPECT_EQ(shown->frame, (Rect{(screen.width - 440) / 2, (screen.height - 588) / 2, 440, 588}));
    EXPECT_EQ(fixture.desktop.model.frontmost, SimModel::kOwnProcess);
}

TEST_F(SimFormWindowsTest, a_closed_window_reopens_where_it_was)
{
    const auto window = make();
    window->makeKeyAndOrderFront();
    fixture.desktop.windows.setFrame(*fixture.desktop.model.windows.named("Settings"), {30, 40, 440, 588});
    fixture.desktop.windows.close(*fixture.desktop.model.windows.named("Settings"));
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(windows.change("toggle", true));
    window->makeKeyAndOrderFront();
    EXPECT_EQ(fixture.desktop.model.windows.named("Settings")->frame, (Rect{30, 40, 440, 588}));
    EXPECT_EQ(appeared, 2);
}

TEST_F(SimFormWindowsTest, controls_take_what_a_user_can_give_them)
{
    const auto window = make();
    window->makeKeyAndOrderFront();
    EXPECT_TRUE(windows.change("toggle", true));
    EXPECT_TRUE(isOn);
    EXPECT_TRUE(windows.change("slider", 25.0));
    EXPECT_EQ(slider, 10);
    EXPECT_TRUE(windows.change("picker", std::string("b")));
    EXPECT_EQ(picked, 1U);
    EXPECT_TRUE(windows.change("menu", std::string("one")));
    EXPECT_TRUE(windows.change("button", Value()));
    EXPECT_EQ(performed, 2);
}

TEST_F(SimFormWindowsTest, controls_refuse_other_values)
{
    isEnabled = false;
    const auto window = make();
    window->makeKeyAndOrderFront();
    EXPECT_FALSE(windows.change("toggle", true));
    EXPECT_FALSE(windows.change("slider", true));
    EXPECT_FALSE(windows.change("picker", std::string("c")));
    EXPECT_FALSE(windows.change("button", 1.0));
    EXPECT_FALSE(windows.change("missing", Value()));
}

TEST_F(SimFormWindowsTest, a_destroyed_window_leaves_the_desktop)
{
    auto window = make();
    window->makeKeyAndOrderFront();
    window.reset();
    EXPECT_FALSE(fixture.desktop.model.windows.named("Settings"));
    EXPECT_EQ(windows.control("toggle"), nullptr);
}

} // namespace
} // namespace haloric
