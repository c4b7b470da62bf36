#include "hosts/sim/scenario/checks/SimOracle.h"

namespace haloric {
namespace {

struct Desk {
    SimDesktop desktop;
    Settings settings;
    SimOracle oracle{desktop.model, settings};
    SimApp* editor = nullptr;
    SimWindow* draft = nullptr;

    Desk()
    {
        desktop.model.screens = {{DisplayID{1}, {0, 0, 1000, 800}, 60, 1}};
        editor = &desktop.applications.launch("Editor", "org.example.Editor");
        draft = open("draft", {100, 50, 400, 300});
    }

    SimWindow* open(const char* name, const Rect& frame)
    {
        SimWindow window;
        window.name = name;
        window.frame = frame;
        return &desktop.windows.open(*editor, window);
    }
};

TEST(SimOracle, the_focused_window_is_expected_in_screen_space_with_its_margin)
{
    Desk desk;

    EXPECT_EQ(desk.oracle.focusedFrame(), (Rect{100, 450, 400, 300}));
    EXPECT_EQ(desk.oracle.margin(), 40); // twice the glow's 18 and 4
    EXPECT_EQ(desk.oracle.highlightFrame(), (Rect{60, 410, 480, 380}));
    desk.settings.glowEnabled = false;
    EXPECT_EQ(desk.oracle.margin(), 32);
    desk.settings.pulseEnabled = false;
    EXPECT_EQ(desk.oracle.margin(), 2);
}

TEST(SimOracle, nothing_is_expected_of_windows_that_deserve_no_highlight)
{
    for (const auto spoil : std::vector<void (*)(Desk&)>{
             [](Desk& d) { d.desktop.model.trusted = false; },
             [](Desk& d) { d.desktop.applications.hide(*d.editor); },
             [](Desk& d) { d.desktop.windows.minimise(*d.draft); },
             [](Desk& d) { d.desktop.windows.setLayer(*d.draft, 3); },
             [](Desk& d) { d.draft->role = "AXSheet"; },
             [](Desk& d) {
                 d.desktop.windows.setFrame(*d.draft, {0, 0, 1, 400});
             },
             [](Desk& d) { d.desktop.windows.close(*d.draft); },
             [](Desk& d) { d.desktop.spaces.switchTo(2); },
         }) {
        Desk desk;
        ASSERT_TRUE(desk.oracle.focusedFrame());
        spoil(desk);
        EXPECT_FALSE(desk.oracle.focusedFrame());
        EXPECT_FALSE(desk.oracle.highlightFrame());
    }
}

TEST(SimOracle, a_full_screen_window_may_do_without)
{
    Desk desk;
    desk.desktop.windows.enterFullScreen(*desk.draft);
    EXPECT_TRUE(desk.oracle.highlightFrame());

    desk.settings.hideWhenFullScreen = true;
    EXPECT_FALSE(desk.oracle.highlightFrame());
    EXPECT_TRUE(desk.oracle.focusedFrame());
}

TEST(SimOracle, nobody_can_tell_about_a_hung_application_or_without_screens)
{
    Desk desk;
    EXPECT_TRUE(desk.oracle.canTell());
    desk.desktop.applications.setResponsive(*desk.editor, false);
    EXPECT_FALSE(desk.oracle.canTell());
    desk.desktop.model.trusted = false;
    EXPECT_TRUE(desk.oracle.canTell());
    desk.desktop.model.screens.clear();
    EXPECT_FALSE(desk.oracle.canTell());
}

TEST(SimOracle, per_application_dimming_is_expected_back_to_front)
{
    Desk desk;
    desk.settings.dimApps = {"org.example.Chat"};
    SimApp& chat = desk.desktop.applications.launch("Chat", "org.example.Chat");
    SimWindow friends;
    friends.frame = {600, 100, 200, 200};
    desk.desktop.windows.open(chat, friends);
    desk.desktop.windows.focus(*desk.draft);
    desk.open("twin", {101, 51, 400, 300}); // within two points of the focused window
    desk.desktop.windows.focus(*desk.draft);

    const Rect focused{100, 450, 400, 300};
    const std::vector<AppDimView::Window> expected{
        {{600, 500, 200, 200}, true}, {focused, false}, {focused, false}, {focused, false}};
    EXPECT_EQ(desk.oracle.appDimWindows(desk.desktop.model.screens[0]), expected);
}

} // namespace
} // namespace haloric
