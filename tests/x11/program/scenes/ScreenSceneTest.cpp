// Screens that are added and removed while the program runs.
#include "x11/program/scenes/Scene.h"

namespace haloric {
namespace {

constexpr const char* kDimAll =
    R"({"pulseEnabled": false, "glowEnabled": false, "dimEnabled": true, "dimOpacity": 0.5})";
constexpr int kSecondWidth = 1024;

class ScreenScene : public testing::Test {
protected:
    X11Session session{WindowManager::openbox, Compositor::picom, {.kind = X11ServerKind::dummy}};
    const int firstWidth = session.observer().capture().area().width;
    std::unique_ptr<TestClient> client = session.makeClient();

    void SetUp() override
    {
        ASSERT_TRUE(session.server().xrandr({"--addmode", "DUMMY1", "1024x768"}));
        ASSERT_TRUE(client->showFocused());
    }

    bool plugIn()
    {
        return session.server().xrandr(
            {"--output", "DUMMY1", "--mode", "1024x768", "--pos", std::to_string(firstWidth) + "x0"});
    }
    bool unplug() { return session.server().xrandr({"--output", "DUMMY1", "--off"}); }

    bool waitForDark(int x, int y)
    {
        return session.waitForPixels(nameOfTest() + "-screens", {x, y, 1, 1}, [&](const ScreenImage& now) {
            return colorDistance(now.at(x, y), blended(0x000000, X11Session::kDesktopColor, 0.5)) <= kTolerance;
        });
    }

    // Only the left edge: the window manager may leave the rest of the window outside the screen.
    bool waitForLeftBorder()
    {
        return session.observer().waitUntil([&] {
            const ScreenRect frame = client->visibleFrame();
            const ScreenRect spot{frame.x + 1, frame.y + frame.height / 2, 1, 1};
            return colorDistance(session.observer().capture(spot).at(spot.x, spot.y), kAccent) <= kTolerance;
        });
    }
};

TEST_F(ScreenScene, an_added_screen_is_dimmed_and_the_dimming_of_a_removed_one_ends)
{
    HaloricProcess haloric(session, kDimAll);
    const auto log = [&haloric] { return haloric.process().standardError(); };
    ASSERT_TRUE(waitForDark(50, 50)) << log();
    const auto windowsBefore = haloric.overlays().size();
    ASSERT_TRUE(plugIn());
    EXPECT_TRUE(waitForDark(firstWidth + kSecondWidth / 2, 300)) << log();
    EXPECT_TRUE(waitForLeftBorder()) << log();
    ASSERT_TRUE(unplug());
    EXPECT_TRUE(session.observer().waitUntil([&] { return haloric.overlays().size() == windowsBefore; })) << log();
    EXPECT_TRUE(waitForDark(50, 50)) << log();
    EXPECT_TRUE(waitForLeftBorder()) << log();
    EXPECT_EQ(haloric.stop(), 0) << log();
}

TEST_F(ScreenScene, the_highlight_follows_the_window_to_another_screen_and_back_when_that_is_removed)
{
    ASSERT_TRUE(plugIn());
    HaloricProcess haloric(session, kStill);
    const auto log = [&haloric] { return haloric.process().standardError(); };
    ASSERT_TRUE(waitForLeftBorder()) << log();
    ASSERT_TRUE(client->moveTo(firstWidth + 100, 150));
    EXPECT_TRUE(waitForLeftBorder()) << log();
    ASSERT_TRUE(unplug());
    ASSERT_TRUE(session.observer().waitUntil([&] { return client->content().x < firstWidth; }));
    EXPECT_TRUE(waitForLeftBorder()) << log();
}

} // namespace
} // namespace haloric
