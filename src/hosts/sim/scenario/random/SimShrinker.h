// Shortens a failing scenario: removes steps and parts of the setup for as long as it still fails.
#pragma once

#include "hosts/sim/scenario/SimScenario.h"

#include <functional>

namespace haloric {

class SimShrinker {
public:
    using Fails = std::function<bool(const SimScenario&)>;

    // `fails` returns whether a scenario still shows the fault, and is deterministic.
    explicit SimShrinker(Fails fails) : m_fails(std::move(fails)) {}

    // Whether playing it ends in a failure of the program.
    static bool failsWhenPlayed(const SimScenario& scenario);

    // A scenario in which every step is needed.
    SimScenario shrink(SimScenario scenario) const;

private:
    void shrinkSteps(SimScenario& scenario) const;
    void shrinkSetup(SimScenario& scenario) const;

    Fails m_fails;
};

} // namespace haloric
