#include "hosts/sim/scenario/SimReplay.h"

#include "hosts/sim/scenario/session/SimFailure.h"

#include <cstdio>

namespace haloric {

namespace {

std::string atInstant(const SimPlayer& player)
{
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, " at %.4f s: ", player.now().count());
    return buffer;
}

} // namespace

SimReplay::SimReplay(const SimScenario& scenario, const SimAdapterFactory& makeAdapters)
    : m_scenario(scenario),
      m_player(std::make_unique<SimPlayer>(
          SimSetup::fromJson(scenario.setup, "setup"),
          scenario.skipsUnknownNames ? SimPlayer::UnknownNames::skip : SimPlayer::UnknownNames::fail, makeAdapters))
{
}

std::optional<std::string> SimReplay::play()
{
    for (std::size_t i = 0; i < m_scenario.steps.size(); ++i) {
        const SimStep& step = m_scenario.steps[i];
        try {
            m_player->play(step);
        } catch (const SimScenarioError& error) {
            throw SimScenarioError(step.place + ": " + error.what());
        } catch (const SimFailure& failure) {
            return step.place + atInstant(*m_player) + failure.what();
        }
        if (onStep)
            onStep(*m_player, i);
    }
    return std::nullopt;
}

} // namespace haloric
