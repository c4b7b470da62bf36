// Scenario files with any bytes: each is refused with a message or is written and read back the same, and plays to its
// end or to a message.
#include "fuzz/Fuzzing.h"
#include "hosts/sim/scenario/SimReplay.h"
#include "hosts/sim/scenario/session/SimFailure.h"

#include <optional>

namespace {

using namespace haloric;

std::optional<SimScenario> parsed(std::string_view text)
{
    try {
        return SimScenario::parse(text, "input");
    } catch (const SimScenarioError& error) {
        fuzzRequire(std::string_view(error.what()).starts_with("input"), "the message begins with the source");
        return std::nullopt;
    }
}

// Long ones are permitted, but would keep the fuzzer from running others.
bool isShort(const SimScenario& scenario)
{
    constexpr double kLongest = 20; // seconds of virtual time
    double seconds = 0;
    for (const SimStep& step : scenario.steps)
        seconds += step.after + step.at.value_or(0) + step.arguments.value("seconds", 0.0);
    return seconds <= kLongest && scenario.steps.size() <= 20;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto scenario = parsed(fuzzText(data, size));
    if (!scenario)
        return 0;
    const std::string text = scenario->toJson().dump();
    fuzzRequire(SimScenario::parse(text, "input").toJson().dump() == text, "what is written is read back the same");
    if (!isShort(*scenario))
        return 0;
    try {
        SimReplay(*scenario).play();
    } catch (const SimScenarioError&) {
        // a step that cannot be played
    }
    return 0;
}
