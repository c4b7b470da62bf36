// Each control with an effect changes the screen at once, and how soon: the times are properties of the test, as no
// test fails for being run on a slow machine.
#include "testing/x11/Key.h"
#include "x11/program/shell/SettingsForm.h"

#include <cstdio>

namespace haloric {
namespace {

constexpr const char* kEverything = R"({"pulseEnabled": false, "tintEnabled": true, "dimEnabled": true,
    "borderColor": {"useAccent": true, "custom": {"r": 1, "g": 0, "b": 0, "a": 1}},
    "glowColor": {"useAccent": true, "custom": {"r": 0, "g": 1, "b": 0, "a": 1}},
    "tintColor": {"useAccent": true, "custom": {"r": 1, "g": 1, "b": 0, "a": 1}}})";

class SettingsPixels : public SettingsForm {
protected:
    using Clock = std::chrono::steady_clock;

    void record(const std::string& name, Clock::time_point since)
    {
        const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(Clock::now() - since).count();
        RecordProperty(name + "_milliseconds", std::to_string(milliseconds));
        std::printf("%-24s %3d ms from the key to the pixel\n", name.c_str(), static_cast<int>(milliseconds));
    }

    // Presses a key on a control, and waits until the spot looks otherwise and the record is another one.
    void expectChange(const std::string& name, std::uint32_t key, const Spot& spot)
    {
        goTo(name);
        const Settings before = stored().value();
        const ScreenRect place{spot.x, spot.y, 1, 1};
        const Pixel pixel = settled(place).at(spot.x, spot.y);
        const auto start = Clock::now();
        press(key);
        ASSERT_TRUE(waitForOtherPixel(spot.x, spot.y, pixel)) << name;
        record(name, start);
        ASSERT_TRUE(waitForStored([&](const Settings& now) { return now != before; })) << name;
    }
};
INSTANTIATE_TEST_SUITE_P(Desktops, SettingsPixels, testing::Values(kOpenboxPicom), nameOf);

TEST_P(SettingsPixels, each_control_of_an_effect_changes_the_screen)
{
    open(kEverything);
    const Spot corner{frame().x + 1, frame().bottom() - 2};
    const struct {
        const char* name;
        std::uint32_t key;
        Spot spot;
    } kChanges[] = {
        {"cornerRadius", Key::kHome, corner},
        {"borderColor.useAccent", Key::kSpace, onBorder()},
        {"glowColor.useAccent", Key::kSpace, onGlow()},
        {"glowRadius", Key::kEnd, onGlow(30)},
        {"glowOpacity", Key::kHome, onGlow()},
        {"tintColor.useAccent", Key::kSpace, onTitle()},
        {"tintOpacity", Key::kEnd, onTitle()},
        {"dimOpacity", Key::kEnd, onDesktop()},
        {"dimScope", Key::kDown, onDesktop()},
        {"dimScope", Key::kUp, onDesktop()},
        {"tintEnabled", Key::kSpace, onTitle()},
        {"borderWidth", Key::kEnd, onBorder(10)}, // from now on over the title bar
        {"borderEnabled", Key::kSpace, onBorder()},
        {"glowEnabled", Key::kSpace, onGlow()},
        {"dimEnabled", Key::kSpace, onDesktop()},
    };
    for (const auto& [name, key, spot] : kChanges)
        ASSERT_NO_FATAL_FAILURE(expectChange(name, key, spot));
}

TEST_P(SettingsPixels, a_slider_is_followed_at_each_of_its_steps)
{
    open(R"({"pulseEnabled": false, "borderWidth": 1})");
    goTo("borderWidth");
    for (double width = 1.5; width <= 12; width += 0.5) {
        press(Key::kRight);
        ASSERT_TRUE(waitForStored([&](const Settings& now) { return now.borderWidth == width; }));
        const Spot inside = onBorder(static_cast<int>(width));
        EXPECT_TRUE(waitForPixel(inside.x, inside.y, kAccent)) << width;
    }
}

} // namespace
} // namespace haloric
