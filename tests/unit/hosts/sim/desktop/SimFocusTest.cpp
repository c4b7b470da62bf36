#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(SimFocus, the_last_application_started_is_frontmost_and_its_last_window_focused)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    desk.open(editor, "a");
    desk.open(editor, "b");

    EXPECT_EQ(desk.frontmost(), "Editor");
    EXPECT_EQ(desk.focusedIn(editor), "b");
}

TEST(SimFocus, nothing_is_told_inside_the_verb_that_causes_it)
{
    SimDesktopFixture desk;
    desk.open(desk.launch("Editor"), "a");
    EXPECT_THAT(desk.workspace, IsEmpty());
    EXPECT_THAT(desk.heard, IsEmpty());

    desk.run();
    EXPECT_THAT(desk.workspace, ElementsAre(WorkspaceNotification::didActivateApplication));
    EXPECT_THAT(desk.heard,
                ElementsAre("Editor AXWindowCreated", "Editor AXFocusedWindowChanged", "Editor AXMainWindowChanged"));
}

TEST(SimFocus, closing_the_focused_window_focuses_the_next_one_of_the_application)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    desk.open(editor, "a");
    desk.open(editor, "b");
    desk.settle();

    desk.desktop.windows.close(*desk.desktop.model.windows.named("b"));
    desk.run();
    EXPECT_EQ(desk.focusedIn(editor), "a");
    EXPECT_THAT(desk.heard, Contains("Editor AXUIElementDestroyed"));
    EXPECT_THAT(desk.heard, Contains("Editor AXFocusedWindowChanged"));
}

TEST(SimFocus, hiding_the_frontmost_application_brings_the_one_behind_it_forward)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    desk.open(editor, "a");
    SimApp& browser = desk.launch("Browser");
    desk.open(browser, "page");

    desk.desktop.applications.hide(browser);
    EXPECT_EQ(desk.frontmost(), "Editor");
    EXPECT_EQ(desk.focusedIn(browser), "page") << "it keeps its focus for later";
    desk.desktop.applications.activate(browser);
    EXPECT_EQ(desk.frontmost(), "Browser");
    EXPECT_FALSE(browser.hidden);
}

TEST(SimFocus, hiding_the_only_application_leaves_it_frontmost)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    desk.open(editor, "a");

    desk.desktop.applications.hide(editor);
    EXPECT_EQ(desk.frontmost(), "Editor");
    EXPECT_TRUE(editor.hidden);
}

TEST(SimFocus, an_application_that_quits_takes_its_windows_along)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    desk.open(editor, "a");
    desk.open(editor, "b");
    desk.settle();

    desk.desktop.applications.quit(editor);
    desk.run();
    EXPECT_EQ(desk.frontmost(), "");
    EXPECT_THAT(desk.desktop.model.windows.frontToBack(), IsEmpty());
    EXPECT_THAT(desk.workspace, ElementsAre(WorkspaceNotification::didTerminateApplication));
}

TEST(SimFocus, a_hung_application_reports_late_and_in_order)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    SimWindow& window = desk.open(editor, "a");
    desk.settle();

    desk.desktop.applications.setResponsive(editor, false);
    desk.desktop.windows.setFrame(window, {150, 100, 400, 300});
    desk.desktop.windows.setFrame(window, {150, 100, 500, 300});
    desk.run();
    EXPECT_THAT(desk.heard, IsEmpty());
    EXPECT_EQ(desk.serverEvents.size(), 2u) << "the window server needs no answer of it";

    desk.desktop.applications.setResponsive(editor, true);
    desk.run();
    EXPECT_THAT(desk.heard, ElementsAre("Editor AXWindowMoved", "Editor AXWindowResized"));
}

TEST(SimFocus, with_jitter_sources_overtake_each_other_but_each_keeps_its_order)
{
    bool overtaken = false;
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        SimDesktopFixture desk;
        SimWindow& window = desk.open(desk.launch("Editor"), "a");
        desk.settle();
        desk.desktop.notifier.setJitter(seed, Seconds(0.02));
        std::vector<std::string> order;
        const auto first = desk.desktop.notifier.accessibility.subscribe(
            [&](ProcessID, const std::string& name) { order.push_back(name); });
        const auto second = desk.desktop.notifier.windowServer.subscribe(
            [&](std::uint32_t event, WindowNumber) { order.push_back(std::to_string(event)); });
        desk.desktop.windows.setFrame(window, {150, 120, 500, 400});
        desk.run();

        ASSERT_EQ(order.size(), 4u);
        const auto place = [&](const char* name) { return std::ranges::find(order, name) - order.begin(); };
        EXPECT_LT(place("AXWindowMoved"), place("AXWindowResized"));
        EXPECT_LT(place("806"), place("807"));
        overtaken = overtaken || place("AXWindowMoved") < place("806");
    }
    EXPECT_TRUE(overtaken);
}

} // namespace
} // namespace haloric
