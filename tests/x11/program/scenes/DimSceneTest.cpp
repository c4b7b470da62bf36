// Dimming of everything outside the focused window, or of selected applications.
#include "x11/program/scenes/Scene.h"

namespace haloric {
namespace {

constexpr double kOpacity = 0.5;
constexpr const char* kDimAll =
    R"({"pulseEnabled": false, "glowEnabled": false, "dimEnabled": true, "dimOpacity": 0.5})";
constexpr const char* kDimOther =
    R"({"pulseEnabled": false, "glowEnabled": false, "dimEnabled": true, "dimOpacity": 0.5,
        "dimScope": "selectedApps", "dimApps": ["Dimmed"]})";

class DimScene : public Scene {
protected:
    // Waits until the pixel has the colour `bare` dimmed.
    bool waitForDimmed(int x, int y, Pixel bare) { return waitForPixel(x, y, blended(0x000000, bare, kOpacity)); }
};
INSTANTIATE_TEST_SUITE_P(Desktops, DimScene, testing::Values(kOpenboxPicom, kXfwm4), nameOf);

TEST_P(DimScene, everything_outside_the_focused_window_is_dimmed_and_the_window_is_not)
{
    const auto other = openFocused({.title = "other", .content = {1100, 300, 500, 400}, .color = 0xF0E0D0});
    const auto client = openFocused();
    const ScreenRect frame = client->visibleFrame();
    const ScreenImage before = settled(grown(frame, 10));
    const int middleY = frame.y + frame.height / 2;
    startAround(*client, kDimAll);
    EXPECT_TRUE(waitForDimmed(100, 900, X11Session::kDesktopColor)) << log();
    EXPECT_TRUE(waitForDimmed(1300, 500, 0xF0E0D0)) << log();
    EXPECT_TRUE(waitForDimmed(frame.x - 3, middleY, before.at(frame.x - 3, middleY))) << log();
    EXPECT_EQ(differences(before, settled(frame), grown(frame, -kCornerRadius)), 0);
}

TEST_P(DimScene, the_hole_follows_the_focus)
{
    const auto other = openFocused({.title = "other", .content = {1100, 300, 500, 400}, .color = 0xF0E0D0});
    const auto client = openFocused({.color = 0xC0F0C0});
    startAround(*client, kDimAll);
    EXPECT_TRUE(waitForDimmed(1300, 500, 0xF0E0D0)) << log();
    ASSERT_TRUE(other->focus());
    EXPECT_TRUE(waitForPixel(1300, 500, 0xF0E0D0)) << log();
    EXPECT_TRUE(waitForDimmed(600, 450, 0xC0F0C0)) << log();
}

TEST_P(DimScene, a_focused_window_that_is_kept_above_others_is_not_dimmed_and_everything_else_is)
{
    const auto other = openFocused({.title = "other", .content = {1100, 300, 500, 400}, .color = 0xF0E0D0});
    const auto client = openFocused({.content = {300, 250, 600, 400}, .color = 0xC0F0C0});
    ASSERT_TRUE(client->setState("_NET_WM_STATE_ABOVE", true));
    startAround(*client, kDimAll);
    EXPECT_TRUE(waitForDimmed(1300, 500, 0xF0E0D0)) << log();
    EXPECT_TRUE(waitForDimmed(100, 900, X11Session::kDesktopColor)) << log();
    EXPECT_TRUE(waitForPixel(600, 450, 0xC0F0C0)) << log();
}

TEST_P(DimScene, only_windows_of_selected_applications_are_dimmed)
{
    const auto dimmed =
        openFocused({.title = "dimmed", .className = "Dimmed", .content = {1100, 300, 500, 400}, .color = 0xF0E0D0});
    const auto spared = openFocused({.title = "spared", .content = {300, 700, 500, 300}, .color = 0xD0D0F0});
    const auto client = openFocused({.content = {300, 200, 600, 400}});
    startAround(*client, kDimOther);
    EXPECT_TRUE(waitForDimmed(1300, 500, 0xF0E0D0)) << log();
    EXPECT_TRUE(waitForPixel(500, 900, 0xD0D0F0)) << log();
    EXPECT_TRUE(waitForPixel(100, 900, X11Session::kDesktopColor)) << log();
}

TEST_P(DimScene, a_window_of_a_selected_application_is_not_dimmed_while_it_has_the_focus)
{
    const auto client = openFocused({.title = "plain"});
    const auto dimmed =
        openFocused({.title = "dimmed", .className = "Dimmed", .content = {1100, 300, 500, 400}, .color = 0xF0E0D0});
    ASSERT_TRUE(client->focus());
    startAround(*client, kDimOther);
    EXPECT_TRUE(waitForDimmed(1300, 500, 0xF0E0D0)) << log();
    ASSERT_TRUE(dimmed->focus());
    EXPECT_TRUE(waitForPixel(1300, 500, 0xF0E0D0)) << log();
}

TEST_P(DimScene, the_dimming_follows_a_window_that_moves_without_the_focus)
{
    const auto dimmed =
        openFocused({.title = "dimmed", .className = "Dimmed", .content = {1100, 300, 500, 300}, .color = 0xF0E0D0});
    const auto client = openFocused();
    startAround(*client, kDimOther);
    EXPECT_TRUE(waitForDimmed(1300, 400, 0xF0E0D0)) << log();
    ASSERT_TRUE(dimmed->moveTo(1100, 700));
    EXPECT_TRUE(waitForDimmed(1300, 850, 0xF0E0D0)) << log();
    EXPECT_TRUE(waitForPixel(1300, 400, X11Session::kDesktopColor)) << log();
}

TEST_P(DimScene, nothing_is_dimmed_without_a_focused_window)
{
    const ScreenImage empty = settled({0, 0, 1920, 1080});
    const auto client = openFocused();
    startAround(*client, kDimAll);
    EXPECT_TRUE(waitForDimmed(100, 900, X11Session::kDesktopColor)) << log();
    ASSERT_TRUE(client->close());
    EXPECT_TRUE(waitForPicture(empty));
}

} // namespace
} // namespace haloric
