// What is changed in the settings window is on the screen, around that window itself, which has the focus then.
#include "x11/shell/SettingsForm.h"
#include "x11/support/Key.h"

namespace haloric {
namespace {

class SettingsEffects : public SettingsForm {
protected:
    int middleX() { return frame().x + frame().width / 2; }
};
INSTANTIATE_TEST_SUITE_P(Desktops, SettingsEffects, testing::Values(kOpenboxPicom), nameOf);

TEST_P(SettingsEffects, the_border_is_as_wide_and_as_coloured_as_the_settings_say)
{
    open();
    const int x = middleX();
    const int outer = frame().bottom() - 2;
    ASSERT_TRUE(waitForPixel(x, outer, kAccent));
    ASSERT_TRUE(waitForOtherPixel(x, frame().bottom() - 10, kAccent));
    goTo("borderWidth");
    press(Key::kEnd);
    EXPECT_TRUE(waitForPixel(x, frame().bottom() - 10, kAccent));
    goTo("accent");
    ASSERT_TRUE(chooseColor("Accent color"));
    ASSERT_TRUE(waitForStored([](const Settings& now) { return now.accent != Settings::defaults().accent; }));
    press(Key::kReturn);
    ASSERT_TRUE(shell->waitUntilActive());
    EXPECT_TRUE(waitForPixel(x, outer, pixelOf(stored()->accent)));
    goTo("borderEnabled");
    press(Key::kSpace);
    EXPECT_TRUE(waitForOtherPixel(x, outer, pixelOf(stored()->accent)));
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

} // namespace
} // namespace haloric
