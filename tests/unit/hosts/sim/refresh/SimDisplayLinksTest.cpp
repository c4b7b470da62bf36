#include "hosts/sim/refresh/SimDisplayLinks.h"
#include "hosts/sim/refresh/SimScreens.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

TEST(SimDisplayLinks, a_screen_link_ticks_on_the_screens_refresh_grid)
{
    SimDesktopFixture desk;
    desk.desktop.model.screens[0].framesPerSecond = 100;
    SimDisplayLinks links(desk.desktop);
    SimScreens screens(desk.desktop);
    std::vector<std::int64_t> ticks; // milliseconds
    const auto link = links.makeScreenLink(screens.all()[0], [&] {
        ticks.push_back(std::chrono::round<std::chrono::milliseconds>(desk.desktop.runLoop.now()).count());
    });
    desk.desktop.runLoop.runFor(Seconds(0.003));
    link->addToMainRunLoop();
    EXPECT_EQ(links.runningLinks(), 1);
    desk.desktop.runLoop.runFor(Seconds(0.03));

    EXPECT_THAT(ticks, testing::ElementsAre(10, 20, 30));
    link->invalidate();
    EXPECT_EQ(links.runningLinks(), 0);
    desk.desktop.runLoop.runFor(Seconds(0.1));
    EXPECT_EQ(ticks.size(), 3u);
}

TEST(SimDisplayLinks, a_video_link_calls_its_handler_until_it_stops)
{
    SimDesktopFixture desk;
    desk.desktop.systemVersion = 13;
    desk.desktop.model.screens[0].framesPerSecond = 100;
    SimDisplayLinks links(desk.desktop);
    EXPECT_FALSE(links.screenLinksAvailable());
    EXPECT_EQ(links.makeVideoLink(DisplayID{9}), nullptr);
    int frames = 0;
    const auto link = links.makeVideoLink(DisplayID{1});
    ASSERT_TRUE(link);
    EXPECT_TRUE(link->setOutputHandler([&] {
        ++frames;
        return 0;
    }));
    EXPECT_TRUE(link->start());
    desk.desktop.runLoop.runFor(Seconds(0.1));
    EXPECT_EQ(frames, 10);
    link->stop();
    desk.desktop.runLoop.runFor(Seconds(0.1));
    EXPECT_EQ(frames, 10);
    desk.desktop.faults.videoLinksFail = true;
    EXPECT_EQ(links.makeVideoLink(DisplayID{1}), nullptr);
}

TEST(SimDisplayLinks, a_screen_that_is_gone_makes_no_link)
{
    SimDesktopFixture desk;
    SimDisplayLinks links(desk.desktop);
    const Screen gone = SimScreens(desk.desktop).all()[0];
    EXPECT_NE(links.makeScreenLink(gone, [] {}), nullptr);
    desk.desktop.model.screens = {{DisplayID{2}, {0, 0, 1440, 900}, 60, 1}};
    EXPECT_EQ(links.makeScreenLink(gone, [] {}), nullptr);
}

TEST(SimDisplayLinks, links_of_both_kinds_end_with_their_screen)
{
    SimDesktopFixture desk;
    desk.desktop.model.screens.push_back({DisplayID{2}, {1440, 0, 1440, 900}, 60, 1});
    SimDisplayLinks links(desk.desktop);
    SimScreens screens(desk.desktop);
    int ticks = 0;
    int frames = 0;
    const auto screenLink = links.makeScreenLink(screens.all()[1], [&] { ++ticks; });
    const auto videoLink = links.makeVideoLink(DisplayID{2});
    videoLink->setOutputHandler([&] { return ++frames, 0; });
    screenLink->addToMainRunLoop();
    videoLink->start();
    desk.run();
    ASSERT_GT(ticks, 0);
    ASSERT_EQ(frames, ticks);

    const int before = ticks;
    desk.desktop.model.screens.pop_back();
    desk.run();
    EXPECT_EQ(ticks, before);
    EXPECT_EQ(frames, before);
    EXPECT_EQ(links.runningLinks(), 0);
}

TEST(SimDisplayLinks, a_link_may_be_destroyed_by_its_own_tick)
{
    SimDesktopFixture desk;
    SimDisplayLinks links(desk.desktop);
    SimScreens screens(desk.desktop);
    std::unique_ptr<ScreenDisplayLink> link;
    int ticks = 0;
    link = links.makeScreenLink(screens.all()[0], [&] {
        ++ticks;
        link.reset();
    });
    link->addToMainRunLoop();
    desk.desktop.runLoop.runFor(Seconds(0.1));

    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(links.runningLinks(), 0);
}

} // namespace
} // namespace haloric
