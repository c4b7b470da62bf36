#include "hosts/sim/refresh/SimDisplayLinks.h"
#include "hosts/sim/refresh/SimScreens.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

TEST(SimDisplayLinks, a_screen_link_ticks_on_the_screens_refresh_grid)
{
    SimDesktopFixture fixture;
    fixture.desktop.model.screens[0].framesPerSecond = 100;
    SimDisplayLinks links(fixture.desktop);
    SimScreens screens(fixture.desktop);
    std::vector<std::int64_t> ticks; // milliseconds
    const auto link = links.makeScreenLink(screens.all()[0], [&] {
        ticks.push_back(std::chrono::round<std::chrono::milliseconds>(fixture.desktop.runLoop.now()).count());
    });
    fixture.desktop.runLoop.runFor(Seconds(0.003));
    link->addToMainRunLoop();
    EXPECT_EQ(links.runningLinks(), 1);
    fixture.desktop.runLoop.runFor(Seconds(0.03));

    EXPECT_THAT(ticks, testing::ElementsAre(10, 20, 30));
    link->invalidate();
    EXPECT_EQ(links.runningLinks(), 0);
    fixture.desktop.runLoop.runFor(Seconds(0.1));
    EXPECT_EQ(ticks.size(), 3u);
}

TEST(SimDisplayLinks, a_video_link_calls_its_handler_until_it_stops)
{
    SimDesktopFixture fixture;
    fixture.desktop.model.screens[0].framesPerSecond = 100;
    SimDisplayLinks links(fixture.desktop);
    EXPECT_EQ(links.makeVideoLink(DisplayID{9}), nullptr);
    int frames = 0;
    const auto link = links.makeVideoLink(DisplayID{1});
    ASSERT_TRUE(link);
    EXPECT_TRUE(link->setOutputHandler([&] {
        ++frames;
        return 0;
    }));
    EXPECT_TRUE(link->start());
    fixture.desktop.runLoop.runFor(Seconds(0.1));
    EXPECT_EQ(frames, 10);
    link->stop();
    fixture.desktop.runLoop.runFor(Seconds(0.1));
    EXPECT_EQ(frames, 10);
    fixture.desktop.faults.videoLinksFail = true;
    EXPECT_EQ(links.makeVideoLink(DisplayID{1}), nullptr);
}

TEST(SimDisplayLinks, screens_make_no_links_before_version_14)
{
    SimDesktopFixture fixture;
    SimDisplayLinks links(fixture.desktop);
    EXPECT_TRUE(links.makesLinksFromScreens());
    fixture.desktop.systemVersion = 13;
    EXPECT_FALSE(links.makesLinksFromScreens());
    EXPECT_EQ(links.makeScreenLink(SimScreens(fixture.desktop).all()[0], [] {}), nullptr);
    EXPECT_NE(links.makeVideoLink(DisplayID{1}), nullptr);
}

TEST(SimDisplayLinks, a_screen_that_is_gone_makes_no_link)
{
    SimDesktopFixture fixture;
    SimDisplayLinks links(fixture.desktop);
    const Screen gone = SimScreens(fixture.desktop).all()[0];
    EXPECT_NE(links.makeScreenLink(gone, [] {}), nullptr);
    fixture.desktop.model.screens = {{DisplayID{2}, {0, 0, 1440, 900}, 60, 1}};
    EXPECT_EQ(links.makeScreenLink(gone, [] {}), nullptr);
}

TEST(SimDisplayLinks, links_of_both_kinds_end_with_their_screen)
{
    SimDesktopFixture fixture;
    fixture.desktop.model.screens.push_back({DisplayID{2}, {1440, 0, 1440, 900}, 60, 1});
    SimDisplayLinks links(fixture.desktop);
    SimScreens screens(fixture.desktop);
    int ticks = 0;
    int frames = 0;
    const auto screenLink = links.makeScreenLink(screens.all()[1], [&] { ++ticks; });
    const auto videoLink = links.makeVideoLink(DisplayID{2});
    videoLink->setOutputHandler([&] { return ++frames, 0; });
    screenLink->addToMainRunLoop();
    videoLink->start();
    fixture.run();
    ASSERT_GT(ticks, 0);
    ASSERT_EQ(frames, ticks);

    const int before = ticks;
    fixture.desktop.model.screens.pop_back();
    fixture.run();
    EXPECT_EQ(ticks, before);
    EXPECT_EQ(frames, before);
    EXPECT_EQ(links.runningLinks(), 0);
}

TEST(SimDisplayLinks, a_link_may_be_destroyed_by_its_own_tick)
{
    SimDesktopFixture fixture;
    SimDisplayLinks links(fixture.desktop);
    SimScreens screens(fixture.desktop);
    std::unique_ptr<ScreenDisplayLink> link;
    int ticks = 0;
    link = links.makeScreenLink(screens.all()[0], [&] {
        ++ticks;
        link.reset();
    });
    link->addToMainRunLoop();
    fixture.desktop.runLoop.runFor(Seconds(0.1));

    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(links.runningLinks(), 0);
}

} // namespace
} // namespace haloric
