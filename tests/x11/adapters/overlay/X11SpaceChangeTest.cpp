// The space of points changes under overlays that are shown: another primary monitor, another text resolution.
#include "x11/adapters/ScreenAdapters.h"

namespace haloric {
namespace {

struct X11SpaceChangeTest : testing::Test {
    X11Session session{WindowManager::none};
    ScreenAdapters adapters{session};
    PatchView view;

    // At (100, 380) on the root, of 200 x 100 pixels.
    std::unique_ptr<ToolkitWindow> window = adapters.make(view, {100, 600, 200, 100});

    void SetUp() override
    {
        window->orderFront();
        ASSERT_TRUE(standsAt({100, 380, 200, 100}));
    }

    bool standsAt(const ScreenRect& rect)
    {
        return adapters.waitUntil([&] { return adapters.rectOf(*window) == rect; });
    }

    void setTextResolution(int dotsPerInch)
    {
        session.observer().setText(session.observer().root(), "RESOURCE_MANAGER",
                                   "Xft.dpi:\t" + std::to_string(dotsPerInch) + "\n");
        session.observer().synchronize();
    }
};

TEST_F(X11SpaceChangeTest, an_overlay_keeps_its_frame_on_another_primary_monitor)
{
    ASSERT_TRUE(session.server().xrandr({"--setmonitor", "left", "720/200x1080/280+0+0", "screen"}));
    ASSERT_TRUE(session.server().xrandr({"--setmonitor", "*right", "1200/300x900/250+720+100", "none"}));
    // 900 points high, from (720, 100) on: the frame's top is 700 points above the bottom.
    EXPECT_TRUE(standsAt({820, 300, 200, 100}));
    EXPECT_EQ(window->frame(), (Rect{100, 600, 200, 100}));
}

TEST_F(X11SpaceChangeTest, an_overlay_keeps_its_frame_at_another_text_resolution)
{
    const int draws = view.draws;
    view.patches = {{{0, 0, 50, 20}, kRed}};
    setTextResolution(192); // the root is 540 points high
    EXPECT_TRUE(standsAt({200, -320, 400, 200}));
    EXPECT_TRUE(adapters.waitUntil([&] { return view.draws > draws; }));
    setTextResolution(96);
    EXPECT_TRUE(standsAt({100, 380, 200, 100}));
}

TEST_F(X11SpaceChangeTest, an_overlay_that_is_hidden_is_placed_as_well)
{
    window->orderOut();
    setTextResolution(192);
    EXPECT_TRUE(standsAt({200, -320, 400, 200}));
}

} // namespace
} // namespace haloric
