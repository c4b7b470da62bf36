// Scaled desktops: the border's width is scaled, and its outer edge is exactly the window's edge.
#include "x11/program/scenes/Scene.h"

#include <algorithm>
#include <array>
#include <string>

namespace haloric {
namespace {

// At 120 dpi (scale 1.25) with this glow, the highlight's window would begin 47.5 pixels before the frame.
constexpr const char* kOffTheGrid = R"({"pulseEnabled": false, "glowRadius": 17})";

class ScaleScene : public Scene {
protected:
    // Before the program starts.
    void setTextResolution(int dotsPerInch)
    {
        session.observer().setText(session.observer().root(), "RESOURCE_MANAGER",
                                   "Xft.dpi:\t" + std::to_string(dotsPerInch) + "\n");
        session.observer().synchronize();
    }

    // Waits until the outermost `whole` rows of pixels at each edge have the border's colour, and the row at depth
    // `all` has it at none.
    bool waitForRows(TestClient& client, int whole, int all)
    {
        return session.waitForPixels(nameOfTest() + "-rows", {0, 0, 1920, 1080}, [&](const ScreenImage& now) {
            const ScreenRect frame = client.visibleFrame();
            for (int depth = 0; depth < whole; ++depth) {
                if (accents(now, frame, depth) != kEdges)
                    return false;
            }
            return accents(now, frame, all) == 0;
        });
    }

private:
    static constexpr int kEdges = 4;

    // The number of edges whose row at that depth has the border's colour.
    static int accents(const ScreenImage& image, const ScreenRect& frame, int depth)
    {
        const int middleX = frame.x + frame.width / 2;
        const int middleY = frame.y + frame.height / 2;
        const std::array<Pixel, kEdges> row{
            image.at(frame.x + depth, middleY), image.at(frame.right() - 1 - depth, middleY),
            image.at(middleX, frame.y + depth), image.at(middleX, frame.bottom() - 1 - depth)};
        return static_cast<int>(std::count_if(row.begin(), row.end(),
                                              [](Pixel pixel) { return colorDistance(pixel, kAccent) <= kTolerance; }));
    }
};
INSTANTIATE_TEST_SUITE_P(Desktops, ScaleScene, testing::Values(kOpenboxPicom, kXfwm4, kOpenbox), nameOf);

TEST_P(ScaleScene, at_twice_the_scale_the_border_is_twice_as_wide)
{
    setTextResolution(192);
    const auto client = openFocused();
    startAround(*client);
    EXPECT_TRUE(waitForRows(*client, 6, 6)) << log();
    ASSERT_TRUE(client->setContent({411, 277, 603, 401}));
    EXPECT_TRUE(waitForRows(*client, 6, 6)) << log();
}

TEST_P(ScaleScene, at_a_fractional_scale_the_border_lies_on_the_edges)
{
    setTextResolution(120);
    const auto client = openFocused();
    startAround(*client, kOffTheGrid);
    EXPECT_TRUE(waitForRows(*client, 3, 4)) << log(); // 3.75 pixels wide
    ASSERT_TRUE(client->setContent({411, 277, 603, 401}));
    EXPECT_TRUE(waitForRows(*client, 3, 4)) << log();
}

TEST_P(ScaleScene, at_a_fractional_scale_the_border_stays_on_the_edges_while_the_window_is_dragged)
{
    setTextResolution(120);
    const auto client = openFocused();
    startAround(*client, kOffTheGrid);
    ASSERT_TRUE(session.dragByTitleBar(*client, 151, 90));
    EXPECT_TRUE(waitForRows(*client, 3, 4)) << log();
    session.input().release();
    EXPECT_TRUE(waitForRows(*client, 3, 4)) << log();
}

TEST_P(ScaleScene, the_border_follows_a_change_of_the_scale)
{
    const auto client = openFocused();
    startAround(*client);
    setTextResolution(192);
    EXPECT_TRUE(waitForRows(*client, 6, 6)) << log();
    setTextResolution(120);
    EXPECT_TRUE(waitForRows(*client, 3, 4)) << log();
    setTextResolution(96);
    EXPECT_TRUE(waitForRows(*client, 3, 3)) << log();
}

TEST_P(ScaleScene, the_border_stays_on_its_window_when_another_monitor_becomes_the_primary_one)
{
    const auto client = openFocused();
    ASSERT_TRUE(session.server().xrandr({"--setmonitor", "*left", "720/200x1080/280+0+0", "screen"}));
    startAround(*client);
    ASSERT_TRUE(session.server().xrandr({"--setmonitor", "*right", "1200/300x900/250+720+100", "none"}));
    ASSERT_TRUE(session.server().xrandr({"--delmonitor", "left"}));
    ASSERT_TRUE(client->moveTo(733, 202));
    EXPECT_TRUE(waitForRows(*client, 3, 3)) << log();
    ASSERT_TRUE(session.dragByTitleBar(*client, 100, 50));
    EXPECT_TRUE(waitForRows(*client, 3, 3)) << log();
    session.input().release();
    EXPECT_TRUE(waitForRows(*client, 3, 3)) << log();
}

} // namespace
} // namespace haloric
