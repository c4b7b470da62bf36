// The colour wells of the settings window: each changes its field through the dialog, and with it what is on the
// screen.
#include "testing/x11/Key.h"
#include "x11/program/shell/SettingsForm.h"

namespace haloric {
namespace {

constexpr Pixel kDesktop = X11Session::kDesktopColor;

class SettingsColors : public SettingsForm {
protected:
    using Color = RGBA (*)(const Settings&);

    // Chooses a colour in a well and closes the dialog, which has the highlight while it is open.
    void choose(const std::string& name, const std::string& title, Color color)
    {
        goTo(name);
        const RGBA before = color(stored().value());
        ASSERT_TRUE(chooseColor(title)) << name;
        EXPECT_TRUE(waitForStored([&](const Settings& now) { return color(now) != before; })) << name;
        press(Key::kReturn);
        ASSERT_TRUE(shell->waitUntilActive()) << name;
        chosen = pixelOf(color(stored().value()));
    }

    bool shows(const Spot& spot, Pixel pixel) { return waitForPixel(spot.x, spot.y, pixel); }

    Pixel chosen = 0; // last
};
INSTANTIATE_TEST_SUITE_P(Desktops, SettingsColors, testing::Values(kOpenboxPicom), nameOf);

TEST_P(SettingsColors, the_accent_colours_what_has_no_colour_of_its_own)
{
    open();
    choose("accent", "Accent color", [](const Settings& now) { return now.accent; });
    EXPECT_TRUE(shows(onBorder(), chosen));
}

TEST_P(SettingsColors, border_glow_and_tint_take_their_own_colours)
{
    constexpr Pixel kWhite = 0xFFFFFF;
    open(R"({"pulseEnabled": false,
             "borderColor": {"useAccent": false, "custom": {"r": 1, "g": 1, "b": 1, "a": 1}},
             "glowColor": {"useAccent": false, "custom": {"r": 1, "g": 1, "b": 1, "a": 1}},
             "tintColor": {"useAccent": false, "custom": {"r": 1, "g": 1, "b": 1, "a": 1}}})");
    ASSERT_TRUE(shows(onBorder(), kWhite));
    choose("borderColor.custom", "Custom color", [](const Settings& now) { return now.borderColor.custom; });
    EXPECT_TRUE(shows(onBorder(), chosen));

    const auto redOf = [](Pixel pixel) { return static_cast<int>(pixel >> 16); };
    const Pixel glowing = pixelAt(onGlow().x, onGlow().y);
    const double share = double(redOf(glowing) - redOf(kDesktop)) / (redOf(kWhite) - redOf(kDesktop));
    ASSERT_GT(share, 0.2);
    choose("glowColor.custom", "Custom color", [](const Settings& now) { return now.glowColor.custom; });
    EXPECT_TRUE(shows(onGlow(), blended(chosen, kDesktop, share)));

    const Pixel title = pixelAt(onTitle().x, onTitle().y);
    goTo("tintEnabled");
    press(Key::kSpace);
    EXPECT_TRUE(shows(onTitle(), blended(kWhite, title, 0.25)));
    choose("tintColor.custom", "Custom color", [](const Settings& now) { return now.tintColor.custom; });
    EXPECT_TRUE(shows(onTitle(), blended(chosen, title, 0.25)));
}

TEST_P(SettingsColors, the_dimming_takes_its_colour)
{
    open(R"({"pulseEnabled": false, "dimEnabled": true, "dimColor": {"r": 1, "g": 1, "b": 1, "a": 1}})");
    ASSERT_TRUE(shows(onDesktop(), blended(0xFFFFFF, kDesktop, 0.35)));
    choose("dimColor", "Dim color", [](const Settings& now) { return now.dimColor; });
    EXPECT_TRUE(shows(onDesktop(), blended(chosen, kDesktop, 0.35)));
}

} // namespace
} // namespace haloric
