// Controls of the settings window used by the pointer: the stored record and the screen after each motion.
#include "testing/x11/Key.h"
#include "x11/program/shell/SettingsForm.h"

namespace haloric {
namespace {

constexpr double kLeast = 1;
constexpr double kMost = 12;
constexpr double kStep = 0.5;
constexpr int kSteps = 22;

class SettingsPointer : public SettingsForm {
protected:
    // The border covers at most so many pixels at the window's edges.
    static constexpr int kBorderReach = 16;

    // The half of the window with the controls, and the part of the other half beside a control.
    ScreenRect controls()
    {
        const ScreenRect all = shell->content();
        return {all.x + all.width / 2, all.y, all.width / 2 - kBorderReach, all.height - kBorderReach};
    }
    ScreenRect labelBeside(const ScreenRect& control)
    {
        const ScreenRect all = shell->content();
        return {all.x + kBorderReach, control.y, all.width / 2 - kBorderReach, control.height};
    }

    using Predicate = std::function<bool(const Settings&)>;

    // The picture of the controls after a key whose effect has been stored and painted.
    ScreenImage controlsAfter(std::uint32_t key, const Predicate& isStored)
    {
        press(key);
        EXPECT_TRUE(waitForStored(isStored));
        waitUntilIdle();
        return session.observer().capture(controls());
    }

    static Predicate isWidth(double value)
    {
        return [value](const Settings& now) { return std::abs(now.borderWidth - value) < 1e-9; };
    }
    bool waitForLabel(const ScreenImage& wanted)
    {
        return session.waitForPixels(nameOfTest() + "-label", wanted.area(),
                                     [&](const ScreenImage& now) { return now == wanted; });
    }
};
INSTANTIATE_TEST_SUITE_P(Desktops, SettingsPointer, testing::Values(kOpenbox), nameOf);

TEST_P(SettingsPointer, a_dragged_slider_stores_each_step_and_label_and_border_follow)
{
    open();
    goTo("borderWidth");
    const ScreenImage atLeast = controlsAfter(Key::kHome, isWidth(kLeast));
    const ScreenRect track = boundsOfDifference(atLeast, controlsAfter(Key::kEnd, isWidth(kMost)));
    const int knob = track.height / 2; // the handle is round; includes its ring
    const int y = track.y + knob;
    const int length = track.width - 2 * knob;
    ASSERT_GT(length, kSteps * 3) << "too short to distinguish the steps";

    // The label's picture at each value, reached by the keyboard.
    std::map<int, ScreenImage> labels;
    for (int step = 0; step <= kSteps; ++step) {
        controlsAfter(step == 0 ? Key::kHome : Key::kRight, isWidth(kLeast + step * kStep));
        labels[step] = session.observer().capture(labelBeside(track));
        ASSERT_TRUE(step == 0 || labels[step] != labels[step - 1]);
    }

    TestInput& input = session.input();
    input.moveTo(track.x + knob + length, y);
    input.press();
    for (const int step : {22, 15, 16, 3, 8, 0, 10}) {
        const double width = kLeast + step * kStep;
        input.moveTo(track.x + knob + step * length / kSteps, y);
        EXPECT_TRUE(waitForStored(isWidth(width))) << width;
        EXPECT_TRUE(waitForLabel(labels[step])) << width;
        const int middle = frame().x + frame().width / 2;
        EXPECT_TRUE(waitForPixel(middle, frame().bottom() - static_cast<int>(width), kAccent)) << width;
        EXPECT_TRUE(waitForOtherPixel(middle, frame().bottom() - static_cast<int>(width) - 3, kAccent)) << width;
    }
    for (const auto& [x, width] : {std::pair{track.x - 400, kLeast}, std::pair{track.right() + 400, kMost}}) {
        input.moveTo(x, y + 100);
        EXPECT_TRUE(waitForStored(isWidth(width))) << "beyond the end of the slider";
    }
    input.release();
    input.moveTo(track.x + track.width / 2, y);
    waitUntilIdle();
    EXPECT_EQ(stored()->borderWidth, kMost) << "the button is released";
}

TEST_P(SettingsPointer, a_click_turns_each_toggle)
{
    open();
    for (const auto& [name, field] : kToggles) {
        const bool wasOn = stored().value().*field;
        const auto is = [field = field](bool isOn) {
            return [field, isOn](const Settings& now) { return now.*field == isOn; };
        };
        goTo(name);
        const ScreenImage turned = controlsAfter(Key::kSpace, is(!wasOn));
        const ScreenRect place = boundsOfDifference(turned, controlsAfter(Key::kSpace, is(wasOn)));
        session.input().clickAt(place.x + place.width / 2, place.y + place.height / 2);
        EXPECT_TRUE(waitForStored(is(!wasOn))) << name;
    }
}

} // namespace
} // namespace haloric
