#include "hosts/sim/scenario/checks/SimOracle.h"

namespace haloric {
namespace {

struct OracleFixture {
    SimDesktop desktop;
    Settings settings;
    SimOracle oracle{desktop.model, settings};
    SimApp* editor = nullptr;
    SimWindow* draft = nullptr;

    OracleFixture()
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
    OracleFixture fixture;

    EXPECT_EQ(fixture.oracle.focusedFrame(), (Rect{100, 450, 400, 300}));
    EXPECT_EQ(fixture.oracle.margin(), 40); // twice the glow's 18 and 4
    EXPECT_EQ(fixture.oracle.highlightFrame(), (Rect{60, 410, 480, 380}));
    fixture.settings.glowEnabled = false;
    EXPECT_EQ(fixture.oracle.margin(), 32);
    fixture.settings.pulseEnabled = false;
    EXPECT_EQ(fixture.oracle.margin(), 2);
}

TEST(SimOracle, nothing_is_expected_of_windows_that_deserve_no_highlight)
{
    for (const auto spoil : std::vector<void (*)(OracleFixture&)>{
             [](OracleFixture& d) { d.desktop.model.trusted = false; },
             [](OracleFixture& d) { d.desktop.applications.hide(*d.editor); },
             [](OracleFixture& d) { d.desktop.windows.minimise(*d.draft); },
             [](OracleFixture& d) { d.desktop.windows.setLayer(*d.draft, 3); },
             [](OracleFixture& d) { d.draft->role = "AXSheet"; },
             [](OracleFixture& d) {
                 d.desktop.windows.setFrame(*d.draft, {0, 0, 1, 400});
             },
             [](OracleFixture& d) { d.desktop.windows.close(*d.draft); },
             [](OracleFixture& d) { d.desktop.spaces.switchTo(2); },
         }) {
        OracleFixture fixture;
        ASSERT_TRUE(fixture.oracle.focusedFrame());
        spoil(fixture);
        EXPECT_FALSE(fixture.oracle.focusedFrame());
        EXPECT_FALSE(fixture.oracle.highlightFrame());
    }
}

TEST(SimOracle, a_full_screen_window_may_have_no_highlight)
{
    OracleFixture fixture;
    fixture.desktop.windows.enterFullScreen(*fixture.draft);
    EXPECT_TRUE(fixture.oracle.highlightFrame());

    fixture.settings.hideWhenFullScreen = true;
    EXPECT_FALSE(fixture.oracle.highlightFrame());
    EXPECT_TRUE(fixture.oracle.focusedFrame());
}

TEST(SimOracle, nothing_is_expected_of_a_hung_application_or_without_screens)
{
    OracleFixture fixture;
    EXPECT_TRUE(fixture.oracle.canTell());
    fixture.desktop.applications.setResponsive(*fixture.editor, false);
    EXPECT_FALSE(fixture.oracle.canTell());
    fixture.desktop.model.trusted = false;
    EXPECT_TRUE(fixture.oracle.canTell());
    fixture.desktop.model.screens.clear();
    EXPECT_FALSE(fixture.oracle.canTell());
}

TEST(SimOracle, per_application_dimming_is_expected_back_to_front)
{
    OracleFixture fixture;
    fixture.settings.dimApps = {"org.example.Chat"};
    SimApp& chat = fixture.desktop.applications.launch("Chat", "org.example.Chat");
    SimWindow friends;
    friends.frame = {600, 100, 200, 200};
    fixture.desktop.windows.open(chat, friends);
    fixture.desktop.windows.focus(*fixture.draft);
    fixture.open("twin", {101, 51, 400, 300}); // within two points of the focused window
    fixture.desktop.windows.focus(*fixture.draft);

    const Rect focused{100, 450, 400, 300};
    const std::vector<AppDimView::Window> expected{
        {{600, 500, 200, 200}, true}, {focused, false}, {focused, false}, {focused, false}};
    EXPECT_EQ(fixture.oracle.appDimWindows(fixture.desktop.model.screens[0]), expected);
}

} // namespace
} // namespace haloric
