// The menu bar, windows with forms, hotkeys and panels of the simulated desktop.
#include "hosts/sim/form/SimFormWindows.h"
#include "hosts/sim/input/SimHotkeys.h"
#include "hosts/sim/shell/SimLoginItemService.h"
#include "hosts/sim/shell/SimPanels.h"
#include "hosts/sim/shell/SimStatusItems.h"
#include "hosts/sim/windows/SimApplicationCatalog.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using Value = SimFormWindows::Value;

struct Delegate : MenuDelegate {
    int updates = 0;
    void menuNeedsUpdate() override { ++updates; }
};

MenuItem itemOf(const std::string& title, int& chosen)
{
    MenuItem item;
    item.title = title;
    item.action = MenuAction{"", MenuTarget::controller, [&chosen](const MenuItem&) { ++chosen; }};
    return item;
}

TEST(SimStatusItems, the_menu_is_brought_up_to_date_before_something_is_chosen_in_it)
{
    SimDesktopFixture desk;
    SimStatusItems statusItems(desk.desktop);
    const auto item = statusItems.make(StatusItems::kSquareLength);
    int chosen = 0;
    MenuModel menu{{itemOf("Border", chosen)}};
    Delegate delegate;
    item->setMenu(menu, delegate);
    EXPECT_TRUE(statusItems.choose("Border"));
    EXPECT_EQ(delegate.updates, 1);
    EXPECT_EQ(chosen, 1);
}

TEST(SimStatusItems, only_what_a_user_could_choose_is_chosen)
{
    SimDesktopFixture desk;
    SimStatusItems statusItems(desk.desktop);
    EXPECT_FALSE(statusItems.choose("Border")); // there is no menu
    const auto item = statusItems.make(StatusItems::kSquareLength);
    int chosen = 0;
    MenuModel menu{{itemOf("disabled", chosen), itemOf("hidden", chosen), itemOf("heading", chosen)}};
    menu.items[0].isEnabled = false;
    menu.items[1].isHidden = true;
    menu.items[2].action.reset();
    menu.items[2].submenu.push_back(itemOf("inside", chosen));
    Delegate delegate;
    item->setMenu(menu, delegate);
    for (const char* title : {"disabled", "hidden", "heading", "missing"})
        EXPECT_FALSE(statusItems.choose(title)) << title;
    EXPECT_EQ(chosen, 0);
    EXPECT_TRUE(statusItems.choose("inside"));
    EXPECT_EQ(chosen, 1);
}

class SimFormWindowsTest : public testing::Test {
protected:
    FormModel form()
    {
        FormSection section{.id = "all", .title = "All", .rows = {}, .footer = "", .onAppear = [this] { ++appeared; }};
        section.rows.push_back({"toggle", FormToggle{"T", false, isEnabled, [this](bool on) { isOn = on; }}});
        section.rows.push_back({"slider", FormSlider{"S", 1, 0, 10, 1, [this](double value) { slider = value; }}});
        section.rows.push_back(
            {"picker", FormPicker{"P", {"a", "b"}, 0, [this](std::size_t option) { picked = option; }}});
        section.rows.push_back({"menu", FormMenu{"M", {{"one", [this] { ++performed; }}}}});
        FormModel model;
        model.sections.push_back(section);
        model.buttons.push_back({"button", FormButton{"B", [this] { ++performed; }}});
        return model;
    }

    std::unique_ptr<FormWindow> make() { return windows.make({"Settings", 7, false, {440, 560}}, form()); }

    SimDesktopFixture desk;
    SimFormWindows windows{desk.desktop};
    bool isEnabled = true;
    int appeared = 0;
    bool isOn = false;
    double slider = 0;
    std::size_t picked = 0;
    int performed = 0;
};

TEST_F(SimFormWindowsTest, a_window_comes_up_centred_with_the_focus)
{
    const auto window = make();
    EXPECT_FALSE(window->isVisible());
    window->center();
    window->makeKeyAndOrderFront();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(appeared, 1);
    const SimWindow* shown = desk.desktop.model.windows.named("Settings");
    ASSERT_TRUE(shown);
    const Rect screen = desk.desktop.model.screens.front().frame;
    EXPECT_EQ(shown->frame, (Rect{(screen.width - 440) / 2, (screen.height - 588) / 2, 440, 588}));
    EXPECT_EQ(desk.desktop.model.frontmost, SimModel::kOwnProcess);
}

TEST_F(SimFormWindowsTest, a_window_that_was_closed_comes_back_where_it_was)
{
    const auto window = make();
    window->makeKeyAndOrderFront();
    desk.desktop.windows.setFrame(*desk.desktop.model.windows.named("Settings"), {30, 40, 440, 588});
    desk.desktop.windows.close(*desk.desktop.model.windows.named("Settings"));
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(windows.change("toggle", true));
    window->makeKeyAndOrderFront();
    EXPECT_EQ(desk.desktop.model.windows.named("Settings")->frame, (Rect{30, 40, 440, 588}));
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

TEST_F(SimFormWindowsTest, controls_refuse_the_rest)
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

TEST_F(SimFormWindowsTest, a_window_goes_with_its_owner)
{
    auto window = make();
    window->makeKeyAndOrderFront();
    window.reset();
    EXPECT_FALSE(desk.desktop.model.windows.named("Settings"));
    EXPECT_EQ(windows.control("toggle"), nullptr);
}

TEST(SimHotkeys, a_combination_reaches_its_handler_while_it_is_registered)
{
    SimDesktopFixture desk;
    SimHotkeys hotkeys(desk.desktop);
    int presses = 0;
    hotkeys.installEventHandler({}, [&presses] {
        ++presses;
        return Hotkeys::kNoError;
    });
    const auto press = [&desk](std::uint64_t flags) {
        desk.desktop.keyboard.press(3, flags);
        desk.run();
    };
    constexpr auto kAll = SimKeyboard::kControl | SimKeyboard::kOption | SimKeyboard::kCommand;
    press(kAll);
    EXPECT_EQ(presses, 0);
    const HotkeyRef hotkey = hotkeys.registerHotkey({3, 0x1900, 0, 1}, 0);
    press(kAll);
    EXPECT_EQ(presses, 1);
    press(kAll | SimKeyboard::kShift);
    press(SimKeyboard::kCommand);
    EXPECT_EQ(presses, 1);
    hotkeys.unregisterHotkey(hotkey);
    press(kAll);
    EXPECT_EQ(presses, 1);
}

TEST(SimLoginItemService, a_fault_leaves_the_registration_as_it_is)
{
    SimDesktopFixture desk;
    SimLoginItemService service(desk.desktop);
    EXPECT_FALSE(service.registerApplication());
    EXPECT_EQ(service.status(), LoginItemStatus::enabled);
    desk.desktop.faults.loginItemsFail = true;
    EXPECT_TRUE(service.unregisterApplication());
    EXPECT_EQ(service.status(), LoginItemStatus::enabled);
}

TEST(SimPanels, the_open_panel_is_answered_by_script_and_then_cancelled)
{
    SimDesktopFixture desk;
    SimPanels panels(desk.desktop);
    panels.willChoose("/Applications/Notes.app");
    EXPECT_EQ(panels.runModalOpenPanel({}), "/Applications/Notes.app");
    EXPECT_EQ(panels.runModalOpenPanel({}), std::nullopt);
}

TEST(SimApplicationCatalog, knows_the_applications_that_run)
{
    SimDesktopFixture desk;
    const SimApplicationCatalog catalog(desk.desktop);
    desk.launch("Editor");
    const auto running = catalog.runningApplications();
    EXPECT_THAT(running, testing::Contains(RunningApplication{ActivationPolicy::regular, "org.example.Editor"}));
    EXPECT_EQ(running.front().activationPolicy, ActivationPolicy::accessory); // the program itself
    EXPECT_EQ(catalog.applicationPath("org.example.Editor"), "/Applications/Editor.app");
    EXPECT_EQ(catalog.bundleIdentifier("/Applications/Editor.app"), "org.example.Editor");
    EXPECT_EQ(catalog.displayName("/Applications/Editor.app"), "Editor.app");
    EXPECT_EQ(catalog.applicationPath("org.example.Missing"), std::nullopt);
    EXPECT_EQ(catalog.compareLocalizedCaseInsensitive("editor", "EDITOR"), 0);
}

} // namespace
} // namespace haloric
