// What is changed in the settings window is on the screen, around that window itself, which has the focus then.
#include "testing/x11/Key.h"
#include "x11/program/shell/SettingsForm.h"

namespace haloric {
namespace {

class SettingsEffects : public SettingsForm {
protected:
    int middleX() { return frame().x + frame().width / 2; }
};
INSTANTIATE_TEST_SUITE_P(Desktops, SettingsEffects, testing::Values(kOpenboxPicom), nameOf);

TEST_P(SettingsEffects, the_border_is_as_wide_as_the_settings_say)
{
    open();
    const int x = middleX();
    const int outer = frame().bottom() - 2;
    ASSERT_TRUE(waitForPixel(x, outer, kAccent));
    ASSERT_TRUE(waitForOtherPixel(x, frame().bottom() - 10, kAccent));
    goTo("borderWidth");
    press(Key::kEnd);
    EXPECT_TRUE(waitForPixel(x, frame().bottom() - 10, kAccent));
    goTo("borderEnabled");
    press(Key::kSpace);
    EXPECT_TRUE(waitForOtherPixel(x, outer, kAccent));
}

TEST_P(SettingsEffects, the_glow_reaches_as_far_as_its_radius_and_can_be_turned_off)
{
    open();
    const int x = frame().right() + 30;
    const int y = frame().y + frame().height / 2;
    ASSERT_TRUE(waitForPixel(x, y, X11Session::kDesktopColor));
    goTo("glowRadius");
    press(Key::kEnd);
    EXPECT_TRUE(waitForOtherPixel(x, y, X11Session::kDesktopColor));
    goTo("glowEnabled");
    press(Key::kSpace);
    EXPECT_TRUE(waitForPixel(x, y, X11Session::kDesktopColor));
}

TEST_P(SettingsEffects, tint_and_dimming_are_as_strong_as_the_settings_say)
{
    open();
    const int titleX = frame().x + frame().width / 4;
    const int titleY = (frame().y + shell->content().y) / 2;
    ASSERT_TRUE(waitForPixel(middleX(), frame().bottom() - 2, kAccent)); // and the title bar is painted by then
    const Pixel title = pixelAt(titleX, titleY);
    goTo("tintEnabled");
    press(Key::kSpace);
    EXPECT_TRUE(waitForPixel(titleX, titleY, blended(kAccent, title, 0.25)));
    goTo("tintOpacity");
    press(Key::kEnd);
    EXPECT_TRUE(waitForPixel(titleX, titleY, blended(kAccent, title, 0.8)));
    goTo("dimEnabled");
    press(Key::kSpace);
    EXPECT_TRUE(waitForPixel(1700, 900, blended(0, X11Session::kDesktopColor, 0.35)));
    goTo("dimOpacity");
    press(Key::kEnd);
    EXPECT_TRUE(waitForPixel(1700, 900, blended(0, X11Session::kDesktopColor, 0.9)));
}

TEST_P(SettingsEffects, the_fallback_height_counts_where_a_window_decorates_itself)
{
    constexpr Pixel kInside = 0xE0E0E0;
    constexpr int kBelowTheDefault = 45;
    open(R"({"pulseEnabled": false, "tintEnabled": true})");
    const auto own = openFocused({.content = {100, 200, 400, 300},
                                  .color = kInside,
                                  .decoration = TestClient::Decoration::none,
                                  .gtkFrameExtents = std::array<std::uint32_t, 4>{0, 0, 0, 0}});
    const int x = own->content().x + 100;
    const int y = own->content().y;
    ASSERT_TRUE(waitForPixel(x, y + 15, blended(kAccent, kInside, 0.25)));
    ASSERT_TRUE(waitForPixel(x, y + kBelowTheDefault, kInside));
    ASSERT_TRUE(shell->openSettings());
    goTo("tintHeight");
    press(Key::kEnd);
    ASSERT_TRUE(waitForStored([](const Settings& now) { return now.tintHeight == 60; }));
    ASSERT_TRUE(own->focus());
    EXPECT_TRUE(waitForPixel(x, y + kBelowTheDefault, blended(kAccent, kInside, 0.25)));
}

TEST_P(SettingsEffects, a_window_that_fills_the_screen_is_left_alone_once_that_is_switched_on)
{
    open();
    goTo("hideWhenFullScreen");
    press(Key::kSpace);
    ASSERT_TRUE(waitForStored([](const Settings& now) { return now.hideWhenFullScreen; }));
    ASSERT_TRUE(client->focus());
    ASSERT_TRUE(waitForBorder(*client));
    ASSERT_TRUE(client->setFullScreen(true));
    EXPECT_TRUE(haloric->waitForNothing()) << log();
}

TEST_P(SettingsEffects, the_pulse_runs_out_from_the_focused_window_once_it_is_switched_on)
{
    constexpr int kPulseReach = 15; // the ring passes here; the border lies inside the window
    open(R"({"pulseEnabled": false, "glowEnabled": false})");
    const ScreenRect around = client->visibleFrame();
    const ScreenRect spot{around.x - kPulseReach - 2, around.y + around.height / 2, 5, 1};
    ASSERT_EQ(session.observer().capture(spot).at(spot.x, spot.y), X11Session::kDesktopColor);
    goTo("pulseEnabled");
    press(Key::kSpace);
    ASSERT_TRUE(waitForStored([](const Settings& now) { return now.pulseEnabled; }));
    const ScreenImage before = session.observer().capture(spot);
    ASSERT_TRUE(client->focus());
    EXPECT_TRUE(
        session.waitForPixels(nameOfTest() + "-pulse", spot, [&](const ScreenImage& now) { return now != before; }));
    EXPECT_TRUE(
        session.waitForPixels(nameOfTest() + "-pulse", spot, [&](const ScreenImage& now) { return now == before; }));
}

} // namespace
} // namespace haloric
