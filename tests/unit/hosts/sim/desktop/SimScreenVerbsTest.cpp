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

} // namespace
} // namespace haloric
