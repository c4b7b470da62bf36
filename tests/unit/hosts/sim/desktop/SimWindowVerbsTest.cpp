#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Pair;

TEST(SimWindowVerbs, a_move_and_a_resize_are_told_apart)
{
    SimDesktopFixture desk;
    SimWindow& window = desk.open(desk.launch("Editor"), "a");
    desk.settle();

    desk.desktop.windows.setFrame(window, {150, 100, 400, 300});
    desk.run();
    EXPECT_THAT(desk.serverEvents, ElementsAre(Pair(806u, window.number)));
    EXPECT_THAT(desk.heard, ElementsAre("Editor AXWindowMoved"));
    desk.settle();
    desk.desktop.windows.setFrame(window, {150, 100, 450, 300});
    desk.run();
    EXPECT_THAT(desk.serverEvents, ElementsAre(Pair(807u, window.number)));
    EXPECT_THAT(desk.heard, ElementsAre("Editor AXWindowResized"));
    desk.settle();
    desk.desktop.windows.setFrame(window, window.frame);
    desk.run();
    EXPECT_TRUE(desk.serverEvents.empty() && desk.heard.empty());
}

TEST(SimWindowVerbs, a_minimised_window_leaves_the_screen_and_the_focus)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    SimWindow& window = desk.open(editor, "a");
    desk.settle();

    desk.desktop.windows.minimise(window);
    desk.run();
    EXPECT_FALSE(desk.desktop.model.isOnScreen(window));
    EXPECT_EQ(desk.focusedIn(editor), "");
    EXPECT_THAT(desk.serverEvents, ElementsAre(Pair(816u, window.number)));
    EXPECT_THAT(desk.heard, Contains("Editor AXWindowMiniaturized"));

    desk.desktop.windows.restore(window);
    desk.run();
    EXPECT_TRUE(desk.desktop.model.isOnScreen(window));
    EXPECT_EQ(desk.focusedIn(editor), "a");
    EXPECT_THAT(desk.heard, Contains("Editor AXWindowDeminiaturized"));
}

TEST(SimWindowVerbs, full_screen_takes_a_space_of_its_own_and_gives_it_back)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    SimWindow& window = desk.open(editor, "a");
    desk.settle();

    desk.desktop.windows.enterFullScreen(window);
    desk.run();
    EXPECT_EQ(window.frame, (Rect{0, 0, 1440, 900}));
    EXPECT_EQ(desk.desktop.model.activeSpace, window.space);
    EXPECT_TRUE(desk.desktop.spaces.exists(window.space));
    EXPECT_THAT(desk.workspace, Contains(WorkspaceNotification::activeSpaceDidChange));

    const SimSpaceID own = window.space;
    desk.desktop.windows.leaveFullScreen(window);
    EXPECT_EQ(window.frame, (Rect{100, 100, 400, 300}));
    EXPECT_EQ(desk.desktop.model.activeSpace, 1);
    EXPECT_FALSE(desk.desktop.spaces.exists(own));
    EXPECT_EQ(desk.focusedIn(editor), "a");
}

TEST(SimWindowVerbs, closing_or_minimising_a_full_screen_window_goes_back_to_where_it_came_from)
{
    for (const bool closes : {true, false}) {
        SimDesktopFixture desk;
        SimWindow& window = desk.open(desk.launch("Editor"), "a");
        desk.desktop.windows.enterFullScreen(window);
        if (closes)
            desk.desktop.windows.close(window);
        else
            desk.desktop.windows.minimise(window);
        EXPECT_EQ(desk.desktop.model.activeSpace, 1);
    }
}

TEST(SimWindowVerbs, focusing_a_window_of_another_space_goes_there)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    SimWindow& here = desk.open(editor, "a");
    desk.desktop.spaces.switchTo(2);
    EXPECT_EQ(desk.focusedIn(editor), "");
    SimApp& browser = desk.launch("Browser");
    desk.open(browser, "page");

    desk.desktop.windows.focus(here);
    EXPECT_EQ(desk.desktop.model.activeSpace, 1);
    EXPECT_EQ(desk.frontmost(), "Editor");
    EXPECT_EQ(desk.focusedIn(editor), "a");
    EXPECT_EQ(desk.focusedIn(browser), "");
}

TEST(SimWindowVerbs, windows_of_a_higher_layer_stay_in_front)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    SimWindow& panel = desk.open(editor, "panel");
    SimWindow& page = desk.open(editor, "page");
    desk.desktop.windows.setLayer(panel, 3);
    desk.desktop.model.windows.raise(page.number);

    EXPECT_EQ(desk.desktop.model.windows.frontToBack().front().get(), &panel);
    desk.desktop.windows.setLayer(panel, 0);
    desk.desktop.model.windows.raise(page.number);
    EXPECT_EQ(desk.desktop.model.windows.frontToBack().front().get(), &page);
}

TEST(SimScreenVerbs, windows_of_an_unplugged_screen_move_to_the_primary_one)
{
    SimDesktopFixture desk;
    desk.desktop.screens.plug({DisplayID{2}, {1440, 0, 800, 600}, 60, 1});
    SimWindow& window = desk.open(desk.launch("Editor"), "a", {1600, 50, 400, 300});
    desk.settle();
    int told = 0;
    const auto observer = desk.desktop.notifier.screens.subscribe([&] { ++told; });

    desk.desktop.screens.unplug(DisplayID{2});
    EXPECT_TRUE(desk.desktop.notifier.screensPending());
    desk.run();
    EXPECT_EQ(window.frame, (Rect{1040, 50, 400, 300}));
    EXPECT_THAT(desk.serverEvents, ElementsAre(Pair(806u, window.number)));
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(desk.desktop.notifier.screensPending());
}

TEST(SimScreenVerbs, when_the_primary_screen_goes_the_next_one_becomes_the_origin)
{
    SimDesktopFixture desk;
    desk.desktop.screens.plug({DisplayID{2}, {1440, 100, 800, 600}, 60, 1});
    SimWindow& window = desk.open(desk.launch("Editor"), "a", {1600, 150, 400, 300});
    desk.settle();

    desk.desktop.screens.unplug(DisplayID{1});
    desk.run();
    EXPECT_EQ(desk.desktop.model.screens[0].frame, (Rect{0, 0, 800, 600}));
    EXPECT_EQ(window.frame, (Rect{160, 50, 400, 300})) << "where it was on its screen";
    EXPECT_TRUE(desk.serverEvents.empty()) << "nothing moved";
}

TEST(SimScreenVerbs, a_full_screen_window_follows_its_screens_size)
{
    SimDesktopFixture desk;
    SimWindow& window = desk.open(desk.launch("Editor"), "a");
    desk.desktop.windows.enterFullScreen(window);

    desk.desktop.screens.resize(DisplayID{1}, {1280, 800});
    EXPECT_EQ(window.frame, (Rect{0, 0, 1280, 800}));
}

} // namespace
} // namespace haloric
