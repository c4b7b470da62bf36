// Shortens a failing scenario: leaves out steps, and parts of the setup, as long as it still fails.
#pragma once

#include "hosts/sim/scenario/SimScenario.h"

#include <functional>

namespace haloric {

class SimShrinker {
public:
    using Fails = std::function<bool(const SimScenario&)>;

    // `fails` tells whether a scenario still shows the fault, and gives the same answer each time.
    explicit SimShrinker(Fails fails) : m_fails(std::move(fails)) {}

    // Whether playing it ends in a failure of the program.
    static bool failsWhenPlayed(const SimScenario& scenario);

    // A scenario of which no single step can be left out.
    SimScenario shrink(SimScenario scenario) const;

private:
    void shrinkSteps(SimScenario& scenario) const;
    void shrinkSetup(SimScenario& scenario) const;

    Fails m_fails;
};

} // namespace haloric
