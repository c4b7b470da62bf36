// Plays a whole scenario from its beginning.
#pragma once

#include "hosts/sim/scenario/SimScenario.h"
#include "hosts/sim/scenario/steps/SimPlayer.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace haloric {

class SimReplay {
public:
    explicit SimReplay(const SimScenario& scenario, const SimAdapterFactory& makeAdapters = nullptr);

    // Called after each step, with its index.
    std::function<void(SimPlayer&, std::size_t)> onStep;

    // What went wrong, with the place; absent when all went well. Throws SimScenarioError for a step that cannot be
    // played.
    std::optional<std::string> play();

    SimPlayer& player() { return *m_player; }

private:
    const SimScenario& m_scenario;
    std::unique_ptr<SimPlayer> m_player;
};

} // namespace haloric
