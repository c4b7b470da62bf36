#include "hosts/sim/scenario/random/SimRandomRun.h"

#include "hosts/sim/scenario/session/SimFailure.h"
#include "hosts/sim/scenario/steps/SimPlayer.h"

#include <algorithm>

namespace haloric {

namespace {

// Spreads the bits of a seed and an episode's number, so that neighbours have nothing in common (the finaliser of
// SplitMix64).
std::uint64_t seedOf(std::uint64_t seed, std::uint64_t episode)
{
    std::uint64_t value = seed * 0x9e3779b97f4a7c15 + episode * 0xd1342543de82ef95 + 0x632be59bd9b4e019;
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9;
    value = (value ^ (value >> 27)) * 0x94d049bb133111eb;
    return value ^ (value >> 31);
}

} // namespace

SimRandomRun::Result SimRandomRun::run() const
{
    Result result;
    const std::uint64_t first = m_options.episode.value_or(0);
    for (std::uint64_t episode = first; result.steps < m_options.steps && !result.failure; ++episode) {
        const auto steps = std::min<std::uint64_t>(kStepsAnEpisode, m_options.steps - result.steps);
        result.failure = playEpisode(episode, m_options.episode ? kStepsAnEpisode : steps, result);
        if (m_options.episode)
            break;
    }
    return result;
}

std::optional<SimRandomRun::Failure> SimRandomRun::playEpisode(std::uint64_t episode, std::uint64_t steps,
                                                               Result& result) const
{
    SimRandomSteps random(seedOf(m_options.seed, episode), m_options.sabotage);
    SimScenario scenario;
    scenario.title = "Random episode " + std::to_string(episode) + " of seed " + std::to_string(m_options.seed);
    scenario.skipsUnknownNames = true;
    scenario.setup = random.setup();
    SimPlayer player(SimSetup::fromJson(scenario.setup, scenario.title), SimPlayer::UnknownNames::fail,
                     m_options.makeAdapters);
    player.desktop().journal.setKeepsEntries(false);
    static const SimStepKind* const rest = findSimStepKind("rest");
    try {
        for (std::uint64_t i = 0; i < steps; ++i) {
            ++result.steps;
            scenario.steps.push_back(random.next(player.desktop()));
            player.play(scenario.steps.back());
            if (scenario.steps.back().kind == rest)
                look(player, result.coverage);
        }
        result.coverage.carriedMoves += player.counts().carried;
        result.coverage.pulses += player.counts().pulses;
        result.digest = result.digest * 31 + player.desktop().journal.digest();
        return std::nullopt;
    } catch (const SimFailure& failure) {
        return Failure{episode, failure.what(), commandFor(episode), std::move(scenario)};
    }
}

void SimRandomRun::look(SimPlayer& player, Coverage& coverage)
{
    const OverlayController& overlays = *player.session().overlays();
    const SimModel& model = player.desktop().model;
    const auto visible = [](const auto& windows) { return !windows.empty() && windows.front()->isVisible(); };
    const bool highlighted = overlays.highlightWindow().isVisible();
    const bool dimmed = visible(overlays.dimWindows());
    const bool applicationsDimmed = visible(overlays.appDimWindows());
    ++coverage.rests;
    coverage.highlighted += highlighted ? 1 : 0;
    coverage.dimmed += dimmed ? 1 : 0;
    coverage.applicationsDimmed += applicationsDimmed ? 1 : 0;
    coverage.nothingShown += highlighted || dimmed || applicationsDimmed ? 0 : 1;
    coverage.fastPathVerified += overlays.highlightWindow().transactionMovesVerified() ? 1 : 0;
    coverage.fastPathGivenUp += overlays.highlightWindow().transactionMovesAvailable() ? 0 : 1;
    coverage.severalScreens += model.screens.size() > 1 ? 1 : 0;
    const SimApp* frontmost = model.frontmostApp();
    coverage.hungFrontmost += frontmost && !frontmost->responsive ? 1 : 0;
}

std::string SimRandomRun::commandFor(std::uint64_t episode) const
{
    std::string command =
        "haloric-sim --seed " + std::to_string(m_options.seed) + " --episode " + std::to_string(episode);
    if (m_options.sabotage == SimRandomSteps::Sabotage::transactionsLie)
        command += " --sabotage transactions-lie";
    return command;
}

} // namespace haloric
