#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::Pair;

TEST(SimScreenVerbs, windows_of_an_unplugged_screen_move_to_the_primary_one)
{
    SimDesktopFixture fixture;
    fixture.desktop.screens.plug({DisplayID{2}, {1440, 0, 800, 600}, 60, 1});
    SimWindow& window = fixture.open(fixture.launch("Editor"), "a", {1600, 50, 400, 300});
    fixture.settle();
    int notified = 0;
    const auto observer = fixture.desktop.notifier.screens.subscribe([&] { ++notified; });

    fixture.desktop.screens.unplug(DisplayID{2});
    EXPECT_TRUE(fixture.desktop.notifier.screensPending());
    fixture.run();
    EXPECT_EQ(window.frame, (Rect{1040, 50, 400, 300}));
    EXPECT_THAT(fixture.serverEvents, ElementsAre(Pair(WindowServerEvent::moved, window.number)));
    EXPECT_EQ(notified, 1);
    EXPECT_FALSE(fixture.desktop.notifier.screensPending());
}

TEST(SimScreenVerbs, when_the_primary_screen_goes_the_next_one_becomes_the_origin)
{
    SimDesktopFixture fixture;
    fixture.desktop.screens.plug({DisplayID{2}, {1440, 100, 800, 600}, 60, 1});
    SimWindow& window = fixture.open(fixture.launch("Editor"), "a", {1600, 150, 400, 300});
    fixture.settle();

    fixture.desktop.screens.unplug(DisplayID{1});
    fixture.run();
    EXPECT_EQ(fixture.desktop.model.screens[0].frame, (Rect{0, 0, 800, 600}));
    EXPECT_EQ(window.frame, (Rect{160, 50, 400, 300})) << "where it was on its screen";
    EXPECT_TRUE(fixture.serverEvents.empty()) << "nothing moved";
}

TEST(SimScreenVerbs, a_full_screen_window_follows_its_screens_size)
{
    SimDesktopFixture fixture;
    SimWindow& window = fixture.open(fixture.launch("Editor"), "a");
    fixture.desktop.windows.enterFullScreen(window);

    fixture.desktop.screens.resize(DisplayID{1}, {1280, 800});
    EXPECT_EQ(window.frame, (Rect{0, 0, 1280, 800}));
}

TEST(SimScreenVerbs, another_primary_screen_changes_the_coordinates_and_moves_nothing)
{
    SimDesktopFixture fixture;
    fixture.desktop.screens.plug({DisplayID{2}, {1440, 100, 800, 600}, 60, 1});
    SimWindow& window = fixture.open(fixture.launch("Editor"), "a", {200, 150, 400, 300});
    fixture.settle();

    fixture.desktop.screens.makePrimary(DisplayID{2});
    fixture.run();
    EXPECT_EQ(fixture.desktop.model.screens[0], (SimScreen{DisplayID{2}, {0, 0, 800, 600}, 60, 1}));
    EXPECT_EQ(fixture.desktop.model.screens[1].frame.origin(), Point(-1440, -100));
    EXPECT_EQ(window.frame, (Rect{-1240, 50, 400, 300}));
    EXPECT_TRUE(fixture.serverEvents.empty());
}

TEST(SimScreenVerbs, a_screen_of_twice_the_scale_has_half_as_many_points)
{
    SimDesktopFixture fixture;
    const SimScreen before = fixture.desktop.model.screens[0];

    fixture.desktop.screens.setScale(DisplayID{1}, before.scale * 2);
    const SimScreen& now = fixture.desktop.model.screens[0];
    EXPECT_EQ(now.frame.size(), Size(before.frame.width / 2, before.frame.height / 2));
    EXPECT_EQ(now.scale, before.scale * 2);
}

} // namespace
} // namespace haloric
