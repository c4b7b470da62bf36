#include "menubar/AccentPresets.h"
#include "menubar/Swatch.h"
#include "unit/menubar/StatusBarFixture.h"

#include "drawing/RecordingCanvas.h"

#include <any>

namespace haloric {
namespace {

class StatusMenuTest : public StatusBarFixture {
protected:
    std::vector<std::string> titles() const
    {
        std::vector<std::string> result;
        for (const MenuItem& item : controller->menu().items)
            result.push_back(item.isSeparator ? "-" : item.title);
        return result;
    }
};

std::vector<RecordingCanvas::Call> drawingsOf(const Image& image)
{
    RecordingCanvas canvas;
    std::get<DrawnImage>(image).draw(canvas, {});
    return canvas.calls();
}

TEST_F(StatusMenuTest, items_stand_in_their_order)
{
    bundle.info["SUFeedURL"] = "https://example.org/appcast.xml";
    make();
    EXPECT_EQ(titles(),
              (Calls{"Haloric", "-", "Border", "Glow", "Title-bar tint", "Dim other windows", "Pulse on focus change",
                     "-", "Accent color", "Settings…", "-", "Launch at Login", "Grant Accessibility Permission…", "-",
                     "About Haloric", "Check for Updates…", "Quit Haloric"}));
}

TEST_F(StatusMenuTest, items_name_their_actions_and_targets)
{
    bundle.info["SUFeedURL"] = "https://example.org/appcast.xml";
    make();
    Calls actions;
    for (const MenuItem& item : controller->menu().items)
        if (item.action) {
            const char* target = item.action->target == MenuTarget::controller    ? "controller"
                                 : item.action->target == MenuTarget::updaterGate ? "gate"
                                                                                  : "none";
            actions.push_back(item.action->selector + " " + target + " " + item.keyEquivalent);
        }
    EXPECT_EQ(actions, (Calls{"toggleBorder controller ", "toggleGlow controller ", "toggleTint controller ",
                              "toggleDim controller ", "togglePulse controller ", "openSettings controller ,",
                              "toggleLogin controller ", "grantAX controller ", "showAbout controller ",
                              "checkForUpdates: gate ", "terminate: none q"}));
}

TEST_F(StatusMenuTest, the_heading_is_disabled_and_does_nothing)
{
    make();
    const MenuItem& heading = controller->menu().items.front();
    EXPECT_FALSE(heading.isEnabled);
    EXPECT_FALSE(heading.action);
}

TEST_F(StatusMenuTest, the_nine_presets_stand_in_the_submenu)
{
    make();
    const MenuItem& presets = statusItems.item("Accent color");
    EXPECT_FALSE(presets.action);
    const std::vector<std::pair<std::string, RGBA>> expected{
        {"Blue", {0.04, 0.52, 1, 1}},    {"Purple", {0.69, 0.32, 0.87, 1}}, {"Pink", {1, 0.18, 0.33, 1}},
        {"Red", {1, 0.23, 0.19, 1}},     {"Orange", {1, 0.58, 0, 1}},       {"Yellow", {1, 0.8, 0, 1}},
        {"Green", {0.16, 0.8, 0.25, 1}}, {"Teal", {0.35, 0.78, 0.98, 1}},   {"White", {1, 1, 1, 1}}};
    ASSERT_EQ(presets.submenu.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const MenuItem& item = presets.submenu[i];
        EXPECT_EQ(item.title, expected[i].first);
        EXPECT_EQ(std::any_cast<RGBA>(item.representedObject), expected[i].second);
        EXPECT_EQ(item.action->selector, "pickPreset:");
        EXPECT_EQ(item.action->target, MenuTarget::controller);
        EXPECT_EQ(drawingsOf(item.image), drawingsOf(swatch(expected[i].second))) << item.title;
    }
}

TEST_F(StatusMenuTest, check_marks_show_the_effects_that_are_on)
{
    make();
    const std::vector<std::pair<const char*, bool Settings::*>> effects{
        {"Border", &Settings::borderEnabled},
        {"Glow", &Settings::glowEnabled},
        {"Title-bar tint", &Settings::tintEnabled},
        {"Dim other windows", &Settings::dimEnabled},
        {"Pulse on focus change", &Settings::pulseEnabled}};
    for (const auto& [title, effect] : effects) {
        Settings settings;
        for (const auto& [other, field] : effects)
            settings.*field = field == effect;
        store.setSettings(settings);
        for (const auto& [other, field] : effects)
            EXPECT_EQ(statusItems.item(other).isOn, field == effect) << other;
    }
}

TEST_F(StatusMenuTest, only_what_can_be_switched_has_a_place_for_a_check_mark)
{
    make();
    std::vector<std::string> checkable;
    for (const MenuItem& item : controller->menu().items)
        if (item.isCheckable)
            checkable.push_back(item.title);
    EXPECT_THAT(checkable, testing::ElementsAre("Border", "Glow", "Title-bar tint", "Dim other windows",
                                                "Pulse on focus change", "Launch at Login"));
}

TEST_F(StatusMenuTest, without_an_updater_there_is_no_command_to_check)
{
    make(); // the bundle names no feed
    EXPECT_EQ(SimMenuSearch::find(controller->menu().items, "Check for Updates…"), nullptr);
    EXPECT_EQ(controller->menu().items.size(), 16U);
}

TEST_F(StatusMenuTest, from_a_build_folder_neither_login_nor_updates_are_offered)
{
    bundle.info["SUFeedURL"] = "https://example.org/appcast.xml";
    bundle.bundlePath = "/build/bin";
    loginItems.currentStatus = LoginItemStatus::enabled;
    make();
    const MenuItem& login = statusItems.item("Launch at Login");
    EXPECT_FALSE(login.isEnabled);
    EXPECT_FALSE(login.isOn);
    EXPECT_EQ(login.toolTip, "Available when running from Haloric.app");
    EXPECT_EQ(SimMenuSearch::find(controller->menu().items, "Check for Updates…"), nullptr);
}

TEST_F(StatusMenuTest, from_the_application_bundle_login_is_offered_and_shows_its_state)
{
    make();
    EXPECT_TRUE(statusItems.item("Launch at Login").isEnabled);
    EXPECT_FALSE(statusItems.item("Launch at Login").isOn);
    EXPECT_EQ(statusItems.item("Launch at Login").toolTip, "");
    loginItems.currentStatus = LoginItemStatus::enabled;
    EXPECT_TRUE(statusItems.item("Launch at Login").isOn);
    loginItems.currentStatus = LoginItemStatus::requiresApproval;
    EXPECT_FALSE(statusItems.item("Launch at Login").isOn);
}

TEST_F(StatusMenuTest, the_grant_is_offered_only_while_access_is_missing)
{
    make();
    EXPECT_TRUE(statusItems.item("Grant Accessibility Permission…").isHidden);
    accessibility.trusted = false;
    EXPECT_FALSE(statusItems.item("Grant Accessibility Permission…").isHidden);
    accessibility.trusted = true;
    EXPECT_TRUE(statusItems.item("Grant Accessibility Permission…").isHidden);
}

} // namespace
} // namespace haloric
