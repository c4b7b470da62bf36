#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Pair;

TEST(SimWindowVerbs, a_move_and_a_resize_are_reported_separately)
{
    SimDesktopFixture fixture;
    SimWindow& window = fixture.open(fixture.launch("Editor"), "a");
    fixture.settle();

    fixture.desktop.windows.setFrame(window, {150, 100, 400, 300});
    fixture.run();
    EXPECT_THAT(fixture.serverEvents, ElementsAre(Pair(WindowServerEvent::moved, window.number)));
    EXPECT_THAT(fixture.reported, ElementsAre("Editor AXWindowMoved"));
    fixture.settle();
    fixture.desktop.windows.setFrame(window, {150, 100, 450, 300});
    fixture.run();
    EXPECT_THAT(fixture.serverEvents, ElementsAre(Pair(WindowServerEvent::resized, window.number)));
    EXPECT_THAT(fixture.reported, ElementsAre("Editor AXWindowResized"));
    fixture.settle();
    fixture.desktop.windows.setFrame(window, window.frame);
    fixture.run();
    EXPECT_TRUE(fixture.serverEvents.empty() && fixture.reported.empty());
}

TEST(SimWindowVerbs, a_minimised_window_leaves_the_screen_and_the_focus)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    SimWindow& window = fixture.open(editor, "a");
    fixture.settle();

    fixture.desktop.windows.minimise(window);
    fixture.run();
    EXPECT_FALSE(fixture.desktop.model.isOnScreen(window));
    EXPECT_EQ(fixture.focusedIn(editor), "");
    EXPECT_THAT(fixture.serverEvents, ElementsAre(Pair(WindowServerEvent::orderedOut, window.number)));
    EXPECT_THAT(fixture.reported, Contains("Editor AXWindowMiniaturized"));

    fixture.desktop.windows.restore(window);
    fixture.run();
    EXPECT_TRUE(fixture.desktop.model.isOnScreen(window));
    EXPECT_EQ(fixture.focusedIn(editor), "a");
    EXPECT_THAT(fixture.reported, Contains("Editor AXWindowDeminiaturized"));
}

TEST(SimWindowVerbs, a_full_screen_window_has_its_own_space_until_it_leaves_full_screen)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    SimWindow& window = fixture.open(editor, "a");
    fixture.settle();

    fixture.desktop.windows.enterFullScreen(window);
    fixture.run();
    EXPECT_EQ(window.frame, (Rect{0, 0, 1440, 900}));
    EXPECT_EQ(fixture.desktop.model.activeSpace, window.space);
    EXPECT_TRUE(fixture.desktop.spaces.exists(window.space));
    EXPECT_THAT(fixture.workspace, Contains(WorkspaceNotification::activeSpaceDidChange));

    const SimSpaceID own = window.space;
    fixture.desktop.windows.leaveFullScreen(window);
    EXPECT_EQ(window.frame, (Rect{100, 100, 400, 300}));
    EXPECT_EQ(fixture.desktop.model.activeSpace, 1);
    EXPECT_FALSE(fixture.desktop.spaces.exists(own));
    EXPECT_EQ(fixture.focusedIn(editor), "a");
}

TEST(SimWindowVerbs, closing_or_minimising_a_full_screen_window_goes_back_to_where_it_came_from)
{
    for (const bool closes : {true, false}) {
        SimDesktopFixture fixture;
        SimWindow& window = fixture.open(fixture.launch("Editor"), "a");
        fixture.desktop.windows.enterFullScreen(window);
        if (closes)
            fixture.desktop.windows.close(window);
        else
            fixture.desktop.windows.minimise(window);
        EXPECT_EQ(fixture.desktop.model.activeSpace, 1);
    }
}

TEST(SimWindowVerbs, focusing_a_window_of_another_space_goes_there)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    SimWindow& here = fixture.open(editor, "a");
    fixture.desktop.spaces.switchTo(2);
    EXPECT_EQ(fixture.focusedIn(editor), "");
    SimApp& browser = fixture.launch("Browser");
    fixture.open(browser, "page");

    fixture.desktop.windows.focus(here);
    EXPECT_EQ(fixture.desktop.model.activeSpace, 1);
    EXPECT_EQ(fixture.frontmost(), "Editor");
    EXPECT_EQ(fixture.focusedIn(editor), "a");
    EXPECT_EQ(fixture.focusedIn(browser), "");
}

TEST(SimWindowVerbs, windows_of_a_higher_layer_stay_in_front)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    SimWindow& panel = fixture.open(editor, "panel");
    SimWindow& page = fixture.open(editor, "page");
    fixture.desktop.windows.setLayer(panel, 3);
    fixture.desktop.model.windows.raise(page.number);

    EXPECT_EQ(fixture.desktop.model.windows.frontToBack().front().get(), &panel);
    fixture.desktop.windows.setLayer(panel, 0);
    fixture.desktop.model.windows.raise(page.number);
    EXPECT_EQ(fixture.desktop.model.windows.frontToBack().front().get(), &page);
}

} // namespace
} // namespace haloric
