// A change in the settings window is stored and visible: around that window, which has the focus, and on the desktop.
#include "testing/x11/Key.h"
#include "x11/program/shell/SettingsForm.h"

#include <cstdio>

namespace haloric {
namespace {

constexpr Pixel kDesktop = X11Session::kDesktopColor;
constexpr Pixel kBlack = 0x000000;
constexpr Pixel kRed = 0xFF0000;
constexpr Pixel kYellow = 0xFFFF00;

// Each effect has its own colour, not used at first.
constexpr const char* kEverything = R"({"pulseEnabled": false, "dimEnabled": true,
    "borderColor": {"useAccent": true, "custom": {"r": 1, "g": 0, "b": 0, "a": 1}},
    "glowColor": {"useAccent": true, "custom": {"r": 0, "g": 1, "b": 0, "a": 1}},
    "tintColor": {"useAccent": true, "custom": {"r": 1, "g": 1, "b": 0, "a": 1}}})";

class SettingsEffects : public SettingsForm {
protected:
    // One key on one control: the change of the record, and the pixel's colour afterwards (no value: any other one).
    struct Change {
        const char* control;
        std::uint32_t key;
        void (*edit)(Settings& record);
        Spot spot;
        std::optional<Pixel> color;
    };

    void expectChange(const Change& change)
    {
        using Clock = std::chrono::steady_clock;
        const auto& [control, key, edit, spot, color] = change;
        goTo(control);
        Settings expected = stored().value();
        edit(expected);
        const Pixel before = settled({spot.x, spot.y, 1, 1}).at(spot.x, spot.y);
        ASSERT_TRUE(!color || colorDistance(*color, before) > kTolerance) << control << " has nothing to change";
        const auto start = Clock::now();
        press(key);
        ASSERT_TRUE(color ? waitForPixel(spot.x, spot.y, *color) : waitForOtherPixel(spot.x, spot.y, before))
            << control;
        // Recorded only: a slow machine fails no test.
        const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(Clock::now() - start).count();
        RecordProperty(std::string(control) + "_milliseconds", std::to_string(milliseconds));
        std::printf("%-24s %3d ms from the key to the pixel\n", control, static_cast<int>(milliseconds));
        ASSERT_TRUE(waitForStored([&](const Settings& now) { return now == expected; })) << control;
    }

    // Chooses a colour by a well and closes the dialog, which is highlighted while it is open.
    void chooseColor(const std::string& well, const std::string& title, RGBA (*color)(const Settings&))
    {
        goTo(well);
        const RGBA before = color(stored().value());
        ASSERT_TRUE(chooseInDialog(title));
        EXPECT_TRUE(waitForStored([&](const Settings& now) { return color(now) != before; }));
        press(Key::kEscape);
        ASSERT_TRUE(shell->waitUntilActive());
        chosen = pixelOf(color(stored().value()));
    }

    Pixel chosen = 0; // by chooseColor()
};
INSTANTIATE_TEST_SUITE_P(Desktops, SettingsEffects, testing::Values(kOpenboxPicom), nameOf);

TEST_P(SettingsEffects, each_control_changes_only_its_field_and_the_screen_follows)
{
    open(kEverything);
    ASSERT_TRUE(waitForPixel(onBorder().x, onBorder().y, kAccent)); // the title bar is painted by then
    const Pixel title = pixelAt(onTitle().x, onTitle().y);
    const Spot corner{frame().x + 1, frame().bottom() - 2};
    const Pixel dimmed = blended(kBlack, kDesktop, 0.9);
    const Change changes[] = {
        {"cornerRadius", Key::kHome, [](Settings& s) { s.cornerRadius = 0; }, corner, kAccent},
        {"borderColor.useAccent", Key::kSpace, [](Settings& s) { s.borderColor.useAccent = false; }, onBorder(), kRed},
        {"glowColor.useAccent", Key::kSpace, [](Settings& s) { s.glowColor.useAccent = false; }, onGlow(), {}},
        {"glowRadius", Key::kEnd, [](Settings& s) { s.glowRadius = 60; }, onGlow(30), {}},
        {"glowOpacity", Key::kHome, [](Settings& s) { s.glowOpacity = 0.1; }, onGlow(), {}},
        {"tintEnabled", Key::kSpace, [](Settings& s) { s.tintEnabled = true; }, onTitle(),
         blended(kAccent, title, 0.25)},
        {"tintColor.useAccent", Key::kSpace, [](Settings& s) { s.tintColor.useAccent = false; }, onTitle(),
         blended(kYellow, title, 0.25)},
        {"tintOpacity", Key::kEnd, [](Settings& s) { s.tintOpacity = 0.8; }, onTitle(), blended(kYellow, title, 0.8)},
        {"dimOpacity", Key::kEnd, [](Settings& s) { s.dimOpacity = 0.9; }, onDesktop(), dimmed},
        {"dimScope", Key::kDown, [](Settings& s) { s.dimScope = DimScope::selectedApps; }, onDesktop(), kDesktop},
        {"dimScope", Key::kUp, [](Settings& s) { s.dimScope = DimScope::allWindows; }, onDesktop(), dimmed},
        {"tintEnabled", Key::kSpace, [](Settings& s) { s.tintEnabled = false; }, onTitle(), title},
        {"borderWidth", Key::kEnd, [](Settings& s) { s.borderWidth = 12; }, onBorder(10), kRed},
        {"borderEnabled", Key::kSpace, [](Settings& s) { s.borderEnabled = false; }, onBorder(), {}},
        {"glowEnabled", Key::kSpace, [](Settings& s) { s.glowEnabled = false; }, onGlow(), dimmed},
        {"dimEnabled", Key::kSpace, [](Settings& s) { s.dimEnabled = false; }, onDesktop(), kDesktop},
    };
    for (const Change& change : changes)
        ASSERT_NO_FATAL_FAILURE(expectChange(change));
}

TEST_P(SettingsEffects, a_chosen_accent_colours_effects_without_their_own_colour)
{
    open();
    chooseColor("accent", "Accent color", [](const Settings& now) { return now.accent; });
    EXPECT_TRUE(waitForPixel(onBorder().x, onBorder().y, chosen));
}

TEST_P(SettingsEffects, a_chosen_colour_of_the_dimming_covers_the_desktop)
{
    open(R"({"pulseEnabled": false, "dimEnabled": true, "dimColor": {"r": 1, "g": 1, "b": 1, "a": 1}})");
    ASSERT_TRUE(waitForPixel(onDesktop().x, onDesktop().y, blended(0xFFFFFF, kDesktop, 0.35)));
    chooseColor("dimColor", "Dim color", [](const Settings& now) { return now.dimColor; });
    EXPECT_TRUE(waitForPixel(onDesktop().x, onDesktop().y, blended(chosen, kDesktop, 0.35)));
}

TEST_P(SettingsEffects, a_chosen_colour_of_the_border_replaces_the_accent)
{
    open(R"({"pulseEnabled": false,
             "borderColor": {"useAccent": false, "custom": {"r": 1, "g": 1, "b": 1, "a": 1}}})");
    ASSERT_TRUE(waitForPixel(onBorder().x, onBorder().y, 0xFFFFFF));
    chooseColor("borderColor.custom", "Border color", [](const Settings& now) { return now.borderColor.custom; });
    EXPECT_TRUE(waitForPixel(onBorder().x, onBorder().y, chosen));
}

TEST_P(SettingsEffects, the_fallback_height_applies_to_a_window_that_draws_its_own_decoration)
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

TEST_P(SettingsEffects, a_full_screen_window_is_not_highlighted_once_that_is_switched_on)
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

TEST_P(SettingsEffects, the_pulse_runs_outward_from_the_focused_window_once_it_is_switched_on)
{
    constexpr int kPulseReach = 15; // the ring passes here; the border lies inside the window
    open(R"({"pulseEnabled": false, "glowEnabled": false})");
    const ScreenRect around = client->visibleFrame();
    const ScreenRect spot{around.x - kPulseReach - 2, around.y + around.height / 2, 5, 1};
    ASSERT_EQ(session.observer().capture(spot).at(spot.x, spot.y), kDesktop);
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
