#include "hosts/sim/scenario/random/SimShrinker.h"

#include "hosts/sim/scenario/SimReplay.h"
#include "hosts/sim/scenario/session/SimFailure.h"

#include <algorithm>

namespace haloric {

namespace {

// Leaves out `count` steps from `first` on; the time before them is kept, since what follows may depend on it.
SimScenario without(const SimScenario& scenario, std::size_t first, std::size_t count)
{
    SimScenario shorter = scenario;
    const auto begin = shorter.steps.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = begin + static_cast<std::ptrdiff_t>(count);
    if (end != shorter.steps.end()) {
        for (auto i = begin; i != end; ++i)
            end->after += i->after;
    }
    shorter.steps.erase(begin, end);
    return shorter;
}

} // namespace

bool SimShrinker::failsWhenPlayed(const SimScenario& scenario)
{
    try {
        SimReplay replay(scenario);
        replay.player().desktop().journal.setKeepsEntries(false);
        return replay.play().has_value();
    } catch (const SimScenarioError&) {
        return false;
    }
}

SimScenario SimShrinker::shrink(SimScenario scenario) const
{
    shrinkSteps(scenario);
    shrinkSetup(scenario);
    return scenario;
}

// Removes smaller and smaller pieces, until no single step can be left out.
void SimShrinker::shrinkSteps(SimScenario& scenario) const
{
    std::size_t piece = std::max<std::size_t>(1, scenario.steps.size() / 2);
    while (true) {
        bool shortened = false;
        std::size_t first = 0;
        while (first < scenario.steps.size()) {
            const std::size_t count = std::min(piece, scenario.steps.size() - first);
            SimScenario shorter = without(scenario, first, count);
            if (m_fails(shorter)) {
                scenario = std::move(shorter);
                shortened = true;
            } else {
                first += count;
            }
        }
        if (piece == 1 && !shortened)
            return;
        piece = std::max<std::size_t>(1, piece / 2);
    }
}

void SimShrinker::shrinkSetup(SimScenario& scenario) const
{
    const SimJson setup = scenario.setup;
    for (const auto& [key, value] : setup.items()) {
        SimScenario simpler = scenario;
        simpler.setup.erase(key);
        if (m_fails(simpler))
            scenario = std::move(simpler);
    }
}

} // namespace haloric
