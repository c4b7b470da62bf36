// Every control of the settings window changes its field of the stored record. The colour wells are in
// SettingsColorsTest.cpp.
#include "testing/x11/Key.h"
#include "x11/program/shell/SettingsForm.h"

namespace haloric {
namespace {

class SettingsControls : public SettingsForm {};
INSTANTIATE_TEST_SUITE_P(Desktops, SettingsControls, testing::Values(kOpenboxPicom), nameOf);

TEST_P(SettingsControls, each_toggle_turns_its_field_and_nothing_else)
{
    open("{}");
    Settings expected;
    for (const auto& [name, field] : kToggles) {
        goTo(name);
        press(Key::kSpace);
        expected.*field = !(expected.*field);
        ASSERT_TRUE(waitForStored([&](const Settings& now) { return now == expected; })) << name;
    }
}

struct Slider {
    const char* name;
    double Settings::*field;
    double step;
    double least;
    double most;
};

TEST_P(SettingsControls, each_slider_moves_its_field_by_a_step_and_to_its_ends)
{
    open("{}");
    constexpr Slider kSliders[] = {
        {"cornerRadius", &Settings::cornerRadius, 1, 0, 20},      {"borderWidth", &Settings::borderWidth, 0.5, 1, 12},
        {"glowRadius", &Settings::glowRadius, 1, 4, 60},          {"glowOpacity", &Settings::glowOpacity, 0.05, 0.1, 1},
        {"tintOpacity", &Settings::tintOpacity, 0.05, 0.05, 0.8}, {"tintHeight", &Settings::tintHeight, 1, 16, 60},
        {"dimOpacity", &Settings::dimOpacity, 0.05, 0.05, 0.9},
    };
    for (const auto& [name, field, step, least, most] : kSliders) {
        const auto expect = [&, name = name, field = field](std::uint32_t key, double value) {
            press(key);
            EXPECT_TRUE(waitForStored([&](const Settings& now) { return std::abs(now.*field - value) < 1e-9; }))
                << name << " is not " << value;
        };
        goTo(name);
        expect(Key::kRight, Settings::defaults().*field + step);
        expect(Key::kEnd, most);
        expect(Key::kHome, least);
    }
}

TEST_P(SettingsControls, a_colour_of_its_own_takes_the_place_of_the_accent)
{
    open();
    Settings expected = stored().value();
    const auto expectOwn = [&](const char* name, EffectColor Settings::*color) {
        goTo(name);
        press(Key::kSpace);
        (expected.*color).useAccent = false;
        EXPECT_TRUE(waitForStored([&](const Settings& now) { return now == expected; })) << name;
    };
    expectOwn("borderColor.useAccent", &Settings::borderColor);
    expectOwn("glowColor.useAccent", &Settings::glowColor);
    expectOwn("tintColor.useAccent", &Settings::tintColor);
}

TEST_P(SettingsControls, reset_brings_every_default_back)
{
    open(R"({"accent": {"r": 1, "g": 0, "b": 0, "a": 1}, "borderWidth": 8, "dimEnabled": true, "dimApps": ["x"]})");
    ASSERT_TRUE(waitForPixel(frame().x + frame().width / 2, frame().bottom() - 4, 0xFF0000));
    goTo("resetToDefaults");
    press(Key::kSpace);
    EXPECT_TRUE(waitForStored([](const Settings& now) { return now == Settings::defaults(); }));
    EXPECT_TRUE(waitForPixel(frame().x + frame().width / 2, frame().bottom() - 2, kAccent));
    EXPECT_TRUE(waitForPixel(1700, 900, X11Session::kDesktopColor));
}

} // namespace
} // namespace haloric
