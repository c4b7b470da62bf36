// Scenarios made of the bytes of an input: sound setups, and steps of every kind with permitted arguments, likely and
// unlikely ones. Each plays to its end or to a message.
#include "fuzz/Fuzzing.h"
#include "hosts/sim/scenario/SimReplay.h"
#include "hosts/sim/scenario/session/SimFailure.h"
#include "hosts/sim/scenario/session/SimSetup.h"

#include <array>

namespace {

using namespace haloric;

constexpr std::size_t kMostSteps = 12;

class ScenarioMaker {
public:
    explicit ScenarioMaker(FuzzInput& input) : m_input(input) {}

    SimJson scenario()
    {
        SimJson setup = someOf(SimSetup::parameters());
        SimJson steps =
            SimJson::array({{{"do", "launch"}, {"app", "A"}},
                            {{"do", "open"}, {"app", "A"}, {"window", "u"}, {"frame", {200, 150, 700, 500}}}});
        const auto& kinds = allSimStepKinds();
        while (!m_input.isEmpty() && steps.size() < kMostSteps) {
            const SimStepKind& kind = *kinds[m_input.below(kinds.size())];
            SimJson step = someOf(kind.parameters);
            step["do"] = kind.name;
            step["after"] = seconds();
            steps.push_back(std::move(step));
        }
        return {{"title", "fuzzed"}, {"skipsUnknownNames", true}, {"setup", setup}, {"steps", steps}};
    }

private:
    SimJson someOf(const std::vector<SimParameter>& parameters)
    {
        SimJson object = SimJson::object();
        for (const SimParameter& parameter : parameters) {
            if (parameter.presence == SimPresence::required || m_input.below(4) == 1)
                object[std::string(parameter.name)] = value(parameter);
        }
        return object;
    }

    SimJson value(const SimParameter& parameter)
    {
        switch (parameter.type) {
        case SimType::text:
            return parameter.choices.empty() ? word()
                                             : std::string(parameter.choices[m_input.below(parameter.choices.size())]);
        case SimType::number:
            return isDuration(parameter) ? seconds() : number(parameter);
        case SimType::integer:
            return static_cast<std::int64_t>(number(parameter));
        case SimType::flag:
            return m_input.flag();
        case SimType::point:
        case SimType::size:
            return numbers(parameter, 2);
        case SimType::rect:
            return numbers(parameter, 4);
        case SimType::texts:
            return listOf([&] { return SimJson(word()); });
        case SimType::integers:
            return listOf([&] { return SimJson(m_input.below(4)); });
        case SimType::object:
            return parameter.name == "environment" ? SimJson{{word(), word()}} : settings();
        case SimType::screens:
            return listOf([&] { return someOf(simScreenParameters()); });
        }
        return {};
    }

    static bool isDuration(const SimParameter& parameter)
    {
        return parameter.range && parameter.range->most == kSimSeconds.most;
    }

    double seconds() { return m_input.byte() / 256.0; }

    double number(const SimParameter& parameter)
    {
        constexpr std::array kUsual{0.0, 1.0, 2.0, 3.0, 0.5, 28.0, 60.0, 120.0, 400.0, 1440.0};
        constexpr std::array kUnusual{-0.0, -1.0, 1e-6, 1e6, -1e6, 32767.0, 4294967295.0, -1e9, 1e9, 1e-300};
        const std::uint8_t choice = m_input.byte();
        const double made = choice < 160 ? kUsual[choice % kUsual.size()] : kUnusual[choice % kUnusual.size()];
        const SimRange range = parameter.range.value_or(parameter.type == SimType::integer ? kSimIntegers : kSimPoints);
        constexpr double kFastest = 240; // permitted rates are higher, but would keep the fuzzer from running others
        return std::clamp(made, range.least, parameter.name == "rate" ? kFastest : range.most);
    }

    SimJson numbers(const SimParameter& parameter, std::size_t count)
    {
        SimJson list = SimJson::array();
        for (; count > 0; --count)
            list.push_back(number(parameter));
        return list;
    }

    template <class Make>
    SimJson listOf(const Make& make)
    {
        SimJson list = SimJson::array();
        for (std::size_t count = m_input.below(4); count > 0; --count)
            list.push_back(make());
        return list;
    }

    // Names of applications and windows, of items of the menu and controls of the form, and others.
    std::string word()
    {
        constexpr std::array kWords{"A",
                                    "B",
                                    "Haloric",
                                    "u",
                                    "v",
                                    "w",
                                    "AXWindow",
                                    "AXSheet",
                                    "AXFocusedWindowChanged",
                                    "Settings…",
                                    "Quit Haloric",
                                    "borderEnabled",
                                    "glowRadius",
                                    "dimScope",
                                    "",
                                    "org.example.A"};
        return kWords[m_input.below(kWords.size())];
    }

    SimJson settings()
    {
        constexpr std::array kNumbers{"cornerRadius", "borderWidth", "glowRadius", "glowOpacity",
                                      "tintOpacity",  "tintHeight",  "dimOpacity"};
        constexpr std::array kFlags{"borderEnabled", "glowEnabled",        "tintEnabled",  "dimEnabled",
                                    "pulseEnabled",  "hideWhenFullScreen", "hotkeyEnabled"};
        constexpr std::array kValues{0.0, 1.0, 18.0, -1.0, 1000.0, 1e9, 1e308, -1e308, 5e-324};
        SimJson change{{kFlags[m_input.below(kFlags.size())], m_input.flag()},
                       {kNumbers[m_input.below(kNumbers.size())], kValues[m_input.below(kValues.size())]}};
        if (m_input.flag())
            change["dimScope"] = m_input.flag() ? "selectedApps" : "allWindows";
        if (m_input.flag())
            change["dimApps"] = listOf([&] { return SimJson("org.example." + word()); });
        return change;
    }

    FuzzInput& m_input;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const std::string text = ScenarioMaker(input).scenario().dump();
    try {
        const SimScenario scenario = SimScenario::parse(text, "input");
        SimReplay(scenario).play();
    } catch (const SimScenarioError& error) {
        // What the maker makes is sound, so only its steps may be impossible.
        fuzzRequire(std::string_view(error.what()).starts_with("input: step "), error.what());
    }
    return 0;
}
