// Makes up what might happen next on a simulated desktop, with rare faults. The same seed and the same desktop give
// the same steps.
#pragma once

#include "hosts/sim/scenario/random/SimRandomArguments.h"
#include "hosts/sim/scenario/steps/SimStep.h"

namespace haloric {

class SimRandomSteps {
public:
    // Whether faults that the program cannot cope with may happen as well, to see the checkers find them.
    enum class Sabotage { none, transactionsLie };

    // Between two looks at the desktop at rest, in steps.
    static constexpr std::size_t kStepsBetweenRests = 40;

    explicit SimRandomSteps(std::uint64_t seed, Sabotage sabotage = Sabotage::none);
    SimRandomSteps(const SimRandomSteps&) = delete;
    SimRandomSteps& operator=(const SimRandomSteps&) = delete;

    // A desktop to begin with, as in a scenario file.
    SimJson setup() { return m_arguments.setup(); }

    SimStep next(const SimDesktop& desktop);

private:
    double delay(); // seconds

    SimDice m_dice;
    SimRandomArguments m_arguments{m_dice};
    Sabotage m_sabotage;
    std::size_t m_steps = 0;
};

} // namespace haloric
