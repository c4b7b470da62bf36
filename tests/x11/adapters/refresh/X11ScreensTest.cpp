#include "x11/adapters/DesktopAdapters.h"

namespace haloric {
namespace {

using testing::ElementsAre;

Rect frameOf(const Screen& screen) { return screen.frame; }

std::vector<Rect> framesOf(const Screens& screens)
{
    std::vector<Rect> frames;
    for (const Screen& screen : screens.all())
        frames.push_back(frameOf(screen));
    return frames;
}

class X11ScreensTest : public testing::Test {
protected:
    bool waitForFrames(const std::vector<Rect>& frames)
    {
        return adapters.waitUntil([&] { return framesOf(adapters.screens) == frames; });
    }

    void setResources(const std::string& text)
    {
        session.observer().setText(session.observer().root(), "RESOURCE_MANAGER", text);
        session.observer().synchronize();
    }

    X11Session session{WindowManager::none, Compositor::none, {.width = 3840, .height = 1080}};
    DesktopAdapters adapters{session.display()};
    int changes = 0;
    Subscription subscription = adapters.screens.onParametersChange([this] { ++changes; });
};

TEST_F(X11ScreensTest, a_server_has_one_screen_at_first)
{
    ASSERT_EQ(adapters.screens.all().size(), 1U);
    const Screen& screen = adapters.screens.all().front();
    EXPECT_EQ(screen.frame, (Rect{0, 0, 3840, 1080}));
    EXPECT_TRUE(screen.displayID.has_value());
    EXPECT_EQ(screen.maximumFramesPerSecond, 60) << "this server tells none";
    EXPECT_EQ(screen.backingScale, 1);
}

TEST_F(X11ScreensTest, monitors_become_screens_with_the_primary_first)
{
    ASSERT_TRUE(session.server().xrandr({"--setmonitor", "left", "1920/500x1080/280+0+0", "screen"}));
    ASSERT_TRUE(session.server().xrandr({"--setmonitor", "*right", "1920/500x900/280+1920+180", "none"}));
    EXPECT_TRUE(waitForFrames({{0, 0, 1920, 900}, {-1920, 0, 1920, 1080}}));
    EXPECT_NE(adapters.screens.all()[0].displayID, adapters.screens.all()[1].displayID);
    EXPECT_EQ(adapters.scale.current().primary, (PixelRect{1920, 180, 1920, 900}));
    EXPECT_GE(changes, 1);
}

TEST_F(X11ScreensTest, a_monitor_keeps_its_number_when_others_are_added_and_removed)
{
    ASSERT_TRUE(session.server().xrandr({"--setmonitor", "left", "1920/500x1080/280+0+0", "screen"}));
    ASSERT_TRUE(waitForFrames({{0, 0, 1920, 1080}}));
    const auto number = adapters.screens.all().front().displayID;
    ASSERT_TRUE(session.server().xrandr({"--setmonitor", "*right", "1920/500x1080/280+1920+0", "none"}));
    ASSERT_TRUE(adapters.waitUntil([&] { return adapters.screens.all().size() == 2; }));
    EXPECT_EQ(adapters.screens.all()[1].displayID, number);
    ASSERT_TRUE(session.server().xrandr({"--delmonitor", "right"}));
    ASSERT_TRUE(adapters.waitUntil([&] { return adapters.screens.all().size() == 1; }));
    EXPECT_EQ(adapters.screens.all().front().displayID, number);
}

TEST_F(X11ScreensTest, the_text_resolution_scales_every_screen_at_once)
{
    setResources("Xft.dpi:\t192\n");
    EXPECT_TRUE(waitForFrames({{0, 0, 1920, 540}}));
    EXPECT_EQ(adapters.screens.all().front().backingScale, 2);
    EXPECT_EQ(adapters.scale.current().pixelsPerPoint, 2);
    EXPECT_EQ(changes, 1);
}

TEST_F(X11ScreensTest, resources_that_do_not_matter_are_no_change)
{
    setResources("Xcursor.size:\t48\n");
    adapters.settle();
    EXPECT_EQ(changes, 0);
}

TEST_F(X11ScreensTest, changes_of_one_turn_are_reported_once)
{
    setResources("Xft.dpi:\t144\n");
    setResources("Xft.dpi:\t192\n");
    setResources("Xft.dpi:\t288\n");
    EXPECT_TRUE(waitForFrames({{0, 0, 1280, 360}}));
    EXPECT_EQ(changes, 1);
}

// A server with screens that share only the keyboard and the pointer: the first has the resources.
TEST(X11SeparateScreens, the_second_one_is_scaled_by_the_resources_of_the_first)
{
    X11Session session(WindowManager::none, Compositor::none, {.arguments = {"-screen", "1", "800x600x24"}});
    const auto setResources = [&session](const char* text) {
        session.observer().setText(session.observer().root(), "RESOURCE_MANAGER", text);
        session.observer().synchronize();
    };
    setResources("Xft.dpi:\t192\n");
    DesktopAdapters adapters(session.display() + ".1");
    EXPECT_THAT(framesOf(adapters.screens), ElementsAre(Rect{0, 0, 400, 300}));
    setResources("Xft.dpi:\t96\n");
    EXPECT_TRUE(adapters.waitUntil([&] { return framesOf(adapters.screens) == std::vector<Rect>{{0, 0, 800, 600}}; }));
}

// Outputs that are really switched on and off.
TEST(X11Outputs, screens_come_and_go_with_their_outputs)
{
    X11Session session(WindowManager::none, Compositor::none,
                       {.kind = X11ServerKind::dummy, .width = 1920, .height = 1080});
    DesktopAdapters adapters(session.display());
    ASSERT_THAT(framesOf(adapters.screens), ElementsAre(Rect{0, 0, 1920, 1080}));
    EXPECT_GT(adapters.screens.all().front().maximumFramesPerSecond, 0);
    ASSERT_TRUE(session.server().xrandr({"--addmode", "DUMMY1", "1920x1080"}));
    int changes = 0;
    const auto subscription = adapters.screens.onParametersChange([&] { ++changes; });
    ASSERT_TRUE(session.server().xrandr({"--output", "DUMMY1", "--mode", "1920x1080", "--pos", "1920x0"}));
    EXPECT_TRUE(adapters.waitUntil([&] {
        return framesOf(adapters.screens) == std::vector<Rect>{{0, 0, 1920, 1080}, {1920, 0, 1920, 1080}};
    }));
    EXPECT_GE(changes, 1);
    ASSERT_TRUE(session.server().xrandr({"--output", "DUMMY1", "--off"}));
    EXPECT_TRUE(adapters.waitUntil([&] {
        return framesOf(adapters.screens) == std::vector<Rect>{{0, 0, 1920, 1080}};
    }));
}

} // namespace
} // namespace haloric
