// Every expectation in a state in which it holds and in one in which it fails.
#include "unit/hosts/sim/scenario/ScenarioFixture.h"

namespace haloric {
namespace {

struct Case {
    std::string step;   // the expectation
    std::string before; // steps before it, after the editor has come
    bool holds;
};

class Expectations : public testing::TestWithParam<Case> {};

TEST_P(Expectations, hold_or_fail)
{
    const auto& [step, before, holds] = GetParam();
    const std::string comma = before.empty() ? "" : ", ";
    const std::string setup = R"({"settings": {"tintEnabled": true}})";
    auto played = playScenario(kEditorSteps + ", " + before + comma + step, setup);
    EXPECT_EQ(played.failure.empty(), holds) << played.failure;
}

const std::string kDim = R"({"do": "settings", "change": {"dimEnabled": true}}, {"do": "wait", "after": 0.1})";
const std::string kDimApps = R"({"do": "settings", "change": {"dimEnabled": true, "dimScope": "selectedApps",
    "dimApps": ["org.example.Chat"]}}, {"do": "launch", "app": "Chat"},
    {"do": "open", "app": "Chat", "window": "friends", "frame": [900, 100, 300, 300]},
    {"do": "focus", "window": "draft"}, {"do": "wait", "after": 1})";
const std::string kCarry =
    R"({"do": "mark"}, {"do": "drag", "window": "draft", "to": [300, 200], "seconds": 0.2}, {"do": "wait", "after": 1})";

INSTANTIATE_TEST_SUITE_P(
    Highlight, Expectations,
    testing::Values(
        Case{R"({"do": "expectHighlight", "around": "draft"})", "", true},
        Case{R"({"do": "expectHighlight", "frame": [200, 150, 700, 500]})", "", true},
        Case{R"({"do": "expectHighlight", "frame": [203, 150, 700, 500]})", "", false},
        Case{R"({"do": "expectHighlight", "frame": [203, 150, 700, 500], "within": 4})", "", true},
        Case{R"({"do": "expectHighlight"})", R"({"do": "minimise", "window": "draft"}, {"do": "rest"})", false},
        Case{R"({"do": "expectNoHighlight"})", R"({"do": "minimise", "window": "draft"}, {"do": "rest"})", true},
        Case{R"({"do": "expectNoHighlight"})", "", false}, Case{R"({"do": "expectTint", "height": 28})", "", true},
        Case{R"({"do": "expectTint", "height": 29})", "", false}));

INSTANTIATE_TEST_SUITE_P(Dimming, Expectations,
                         testing::Values(Case{R"({"do": "expectDim", "hole": "draft"})", kDim, true},
                                         Case{R"({"do": "expectDim", "hole": "draft"})", "", false},
                                         Case{R"({"do": "expectDim", "hole": "friends"})", kDimApps, false},
                                         Case{R"({"do": "expectNoDim"})", "", true},
                                         Case{R"({"do": "expectNoDim"})", kDim, false},
                                         Case{R"({"do": "expectNoDim"})", kDimApps, false},
                                         Case{R"({"do": "expectAppDim", "dimmed": ["friends"]})", kDimApps, true},
                                         Case{R"({"do": "expectAppDim", "dimmed": []})", kDimApps, false},
                                         Case{R"({"do": "expectAppDim", "dimmed": ["draft"]})", kDimApps, false},
                                         Case{R"({"do": "expectAppDim", "dimmed": []})", kDim, false}));

INSTANTIATE_TEST_SUITE_P(
    Rest, Expectations,
    testing::Values(
        Case{R"({"do": "expectTracking", "speed": "slow"})", "", true},
        Case{R"({"do": "expectTracking", "speed": "fast"})", "", false},
        Case{R"({"do": "expectTracking", "speed": "stopped"})", R"({"do": "terminate"})", true},
        Case{R"({"do": "expectFastPath", "state": "untried"})", "", true},
        Case{R"({"do": "expectFastPath", "state": "verified"})", kCarry, true},
        Case{R"({"do": "expectFastPath", "state": "givenUp"})", kCarry, false},
        Case{R"({"do": "expectCount", "of": "carried", "atLeast": 5, "atMost": 100})", kCarry, true},
        Case{R"({"do": "expectCount", "of": "carried", "exactly": 0})", kCarry, false},
        Case{R"({"do": "expectCount", "of": "carried", "atLeast": 1000})", kCarry, false},
        Case{R"({"do": "expectCount", "of": "carried", "atMost": 1})", kCarry, false},
        Case{R"({"do": "expectCount", "of": "pulses", "exactly": 1})", "", true},
        Case{R"({"do": "expectCount", "of": "saves", "exactly": 1})", kDim, true},
        Case{R"({"do": "expectLog", "line": "WindowServer fast path: focused-window notifications enabled"})", "",
             true},
        Case{R"({"do": "expectLog", "line": "WindowServer fast path", "times": 0})", "", true},
        Case{R"({"do": "expectLog", "line": "nothing of the kind"})", "", false},
        Case{R"({"do": "expectAlert", "message": "Haloric needs Accessibility access"})", "", false},
        Case{R"({"do": "expectURL", "start": "x-apple"})", "", false},
        Case{R"({"do": "expectSetting", "is": {"dimEnabled": true}})", kDim, true},
        Case{R"({"do": "expectSetting", "is": {"dimEnabled": false}})", kDim, false}));

} // namespace
} // namespace haloric
