#include "hosts/sim/scenario/random/SimRandomSteps.h"

#include <iterator>
#include <numeric>

namespace haloric {

namespace {

using Random = SimRandomArguments;

struct Choice {
    int weight;
    std::string_view kind;
    Random::Arguments (Random::*arguments)();
};

// What happens, and how often in relation to the rest.
constexpr Choice kChoices[] = {
    {14, "drag", &Random::drag},
    {12, "focus", &Random::anyWindow},
    {10, "click", &Random::anyWindow},
    {10, "open", &Random::open},
    {8, "activate", &Random::anyApp},
    {8, "move", &Random::move},
    {8, "settings", &Random::settings},
    {6, "resize", &Random::resize},
    {6, "wait", &Random::none},
    {6, "close", &Random::anyWindow},
    {5, "space", &Random::space},
    {4, "launch", &Random::launch},
    {4, "minimise", &Random::anyWindow},
    {4, "restore", &Random::minimisedWindow},
    {4, "release", &Random::button},
    {3, "press", &Random::button},
    {3, "leaveFullScreen", &Random::fullScreenWindow},
    {3, "hide", &Random::anyApp},
    {3, "show", &Random::hiddenApp},
    {3, "escape", &Random::none},
    {3, "responsive", &Random::answer},
    {2, "fullScreen", &Random::anyWindow},
    {2, "screenshot", &Random::none},
    {2, "key", &Random::key},
    {2, "menu", &Random::menu},
    {2, "control", &Random::control},
    {1, "reopen", &Random::none},
    {2, "decoration", &Random::decoration},
    {2, "trust", &Random::trust},
    {1, "alpha", &Random::alpha},
    {1, "layer", &Random::layer},
    {1, "sendToSpace", &Random::sendToSpace},
    {1, "quit", &Random::otherApp},
    {1, "plug", &Random::plug},
    {1, "unplug", &Random::unplug},
    {1, "resizeScreen", &Random::resizeScreen},
    // Faults.
    {1, "responsive", &Random::hang},
    {1, "observable", &Random::observable},
    {1, "ready", &Random::observable},
    {1, "disableTap", &Random::disableTap},
    {1, "failCall", &Random::failCall},
    {1, "timeOutCall", &Random::timeOutCall},
    {1, "missWindowLists", &Random::missWindowLists},
    {1, "refuseNotifications", &Random::refuseNotifications},
    {1, "failSaves", &Random::failSaves},
    {1, "wallClock", &Random::wallClock},
    {1, "notify", &Random::notify},
};

} // namespace

SimRandomSteps::SimRandomSteps(std::uint64_t seed, Sabotage sabotage) : m_dice(seed), m_sabotage(sabotage) {}

SimStep SimRandomSteps::next(const SimDesktop& desktop)
{
    m_arguments.lookAt(desktop);
    ++m_steps;
    SimStep step;
    step.after = delay();
    if (m_steps % kStepsBetweenRests == 0) {
        step.kind = findSimStepKind("rest");
        return step;
    }
    if (m_sabotage == Sabotage::transactionsLie && m_dice.chance(0.02)) {
        step.kind = findSimStepKind("transactionsLie");
        step.arguments = {{"value", true}};
        return step;
    }
    static const int total = std::accumulate(std::begin(kChoices), std::end(kChoices), 0,
                                             [](int sum, const Choice& choice) { return sum + choice.weight; });
    while (true) {
        int rest = static_cast<int>(m_dice.below(static_cast<std::size_t>(total)));
        const Choice* choice = kChoices;
        for (; rest >= choice->weight; ++choice)
            rest -= choice->weight;
        auto arguments = (m_arguments.*choice->arguments)();
        if (!arguments)
            continue;
        step.kind = findSimStepKind(choice->kind);
        step.arguments = std::move(*arguments);
        return step;
    }
}

double SimRandomSteps::delay()
{
    const double kind = m_dice.fraction();
    if (kind < 0.2)
        return 0;
    if (kind < 0.75)
        return m_dice.milliseconds(0, 0.04);
    if (kind < 0.97)
        return m_dice.milliseconds(0.04, 0.3);
    return m_dice.milliseconds(0.3, 1.5);
}

} // namespace haloric
