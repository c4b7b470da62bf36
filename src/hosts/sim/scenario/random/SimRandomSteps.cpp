#include "hosts/sim/scenario/random/SimRandomSteps.h"

#include <numeric>

namespace haloric {

struct SimRandomSteps::Choice {
    int weight;
    std::string_view verb;
    Arguments (*arguments)(SimRandomSteps&);
};

SimRandomSteps::SimRandomSteps(std::uint64_t seed, Sabotage sabotage) : m_dice(seed), m_sabotage(sabotage) {}

// What happens, and how often compared with the rest.
const std::vector<SimRandomSteps::Choice>& SimRandomSteps::choices()
{
    static const std::vector<Choice> list = [] {
        std::vector<Choice> all = everyday();
        const std::vector<Choice> rare = faults();
        all.insert(all.end(), rare.begin(), rare.end());
        return all;
    }();
    return list;
}

std::vector<SimRandomSteps::Choice> SimRandomSteps::everyday()
{
    using Self = SimRandomSteps;
    static const auto hung = [](const SimApp& app) { return !app.responsive; };
    static const auto hidden = [](const SimApp& app) { return app.hidden; };
    static const auto minimised = [](const SimWindow& window) { return window.minimised; };
    static const auto isFullScreen = [](const SimWindow& window) { return window.fullScreenOrigin.has_value(); };
    static const auto other = [](const SimApp& app) { return app.pid != SimModel::kOwnProcess; };
    return {
        {14, "drag", [](Self& s) { return s.drag(); }},
        {12, "focus", [](Self& s) { return s.anyWindow(); }},
        {10, "click", [](Self& s) { return s.anyWindow(); }},
        {10, "open", [](Self& s) { return s.open(); }},
        {8, "activate", [](Self& s) { return s.anyApp(); }},
        {8, "move", [](Self& s) { return s.move(); }},
        {8, "settings", [](Self& s) { return s.settings(); }},
        {6, "resize", [](Self& s) { return s.resize(); }},
        {6, "wait", [](Self& s) { return s.none(); }},
        {6, "close", [](Self& s) { return s.anyWindow(); }},
        {5, "space", [](Self& s) { return s.space(); }},
        {4, "launch", [](Self& s) { return s.launch(); }},
        {4, "minimise", [](Self& s) { return s.anyWindow(); }},
        {4, "restore", [](Self& s) { return s.windowWith(minimised); }},
        {4, "release",
         [](Self& s) {
             return Arguments(SimJson{{"button", s.m_dice.coin() ? "left" : "right"}});
         }},
        {3, "press",
         [](Self& s) {
             return Arguments(SimJson{{"button", s.m_dice.coin() ? "left" : "right"}});
         }},
        {3, "leaveFullScreen", [](Self& s) { return s.windowWith(isFullScreen); }},
        {3, "hide", [](Self& s) { return s.anyApp(); }},
        {3, "show", [](Self& s) { return s.appWith(hidden); }},
        {3, "escape", [](Self& s) { return s.none(); }},
        {3, "responsive", [](Self& s) { return s.withValue(s.appWith(hung), true); }},
        {2, "fullScreen", [](Self& s) { return s.anyWindow(); }},
        {2, "screenshot", [](Self& s) { return s.none(); }},
        {2, "key", [](Self& s) { return s.key(); }},
        {2, "menu", [](Self& s) { return s.menu(); }},
        {2, "control", [](Self& s) { return s.control(); }},
        {1, "reopen", [](Self& s) { return s.none(); }},
        {2, "decoration",
         [](Self& s) {
             const std::vector<std::string> kinds{"titled", "none", "client"};
             auto arguments = s.withValue(s.anyWindow(), s.m_dice.pick(kinds));
             if (arguments)
                 (*arguments)["titleBar"] = s.m_dice.between(5, 70);
             return arguments;
         }},
        {2, "trust", [](Self& s) { return s.withValue(SimJson::object(), !s.m_desktop->model.trusted); }},
        {1, "alpha", [](Self& s) { return s.withValue(s.anyWindow(), s.m_dice.coin() ? 0 : 1); }},
        {1, "layer", [](Self& s) { return s.withValue(s.anyWindow(), s.m_dice.chance(0.3) ? 3 : 0); }},
        {1, "sendToSpace", [](Self& s) { return s.sendToSpace(); }},
        {1, "quit", [](Self& s) { return s.appWith(other); }},
        {1, "plug", [](Self& s) { return s.plug(); }},
        {1, "unplug", [](Self& s) { return s.unplug(); }},
        {1, "resizeScreen", [](Self& s) { return s.resizeScreen(); }},
    };
}

std::vector<SimRandomSteps::Choice> SimRandomSteps::faults()
{
    using Self = SimRandomSteps;
    static const auto other = [](const SimApp& app) { return app.pid != SimModel::kOwnProcess; };
    return {
        {1, "responsive", [](Self& s) { return s.withValue(s.appWith(other), false); }},
        {1, "observable", [](Self& s) { return s.withValue(s.appWith(other), s.m_dice.coin()); }},
        {1, "disableTap",
         [](Self& s) {
             return Arguments(SimJson{{"reason", s.m_dice.coin() ? "timeout" : "userInput"}});
         }},
        {1, "failCall", [](Self& s) { return s.m_dice.chance(0.3) ? s.failCall() : std::nullopt; }},
        {1, "timeOutCall",
         [](Self& s) {
             return Arguments(SimJson{{"call", s.m_dice.between(1, 30)}});
         }},
        {1, "missWindowLists",
         [](Self& s) {
             return Arguments(SimJson{{"count", s.m_dice.between(1, 3)}});
         }},
        {1, "refuseNotifications", [](Self& s) { return s.refuseNotifications(); }},
        {1, "failSaves", [](Self& s) { return s.withValue(SimJson::object(), s.m_dice.coin()); }},
        {1, "wallClock",
         [](Self& s) {
             return Arguments(SimJson{{"seconds", s.m_dice.between(-4000, 4000)}});
         }},
        {1, "notify", [](Self& s) { return s.notify(); }},
    };
}

SimStep SimRandomSteps::next(const SimDesktop& desktop)
{
    m_desktop = &desktop;
    ++m_steps;
    SimStep step;
    step.after = delay();
    if (m_steps % kStepsBetweenRests == 0) {
        step.verb = findSimVerb("rest");
        return step;
    }
    if (m_sabotage == Sabotage::transactionsLie && m_dice.chance(0.02)) {
        step.verb = findSimVerb("transactionsLie");
        step.arguments = {{"value", true}};
        return step;
    }
    static const int total = std::accumulate(choices().begin(), choices().end(), 0,
                                             [](int sum, const Choice& choice) { return sum + choice.weight; });
    while (true) {
        int rest = static_cast<int>(m_dice.below(static_cast<std::size_t>(total)));
        const Choice* choice = choices().data();
        for (; rest >= choice->weight; ++choice)
            rest -= choice->weight;
        auto arguments = choice->arguments(*this);
        if (!arguments)
            continue;
        step.verb = findSimVerb(choice->verb);
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

SimRandomSteps::Arguments SimRandomSteps::withValue(Arguments arguments, SimJson value)
{
    if (arguments)
        (*arguments)["value"] = std::move(value);
    return arguments;
}

} // namespace haloric
