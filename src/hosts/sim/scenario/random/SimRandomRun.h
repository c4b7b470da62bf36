// Plays random scenarios: episodes of 200 steps, each on a new desktop, until one fails.
#pragma once

#include "hosts/sim/scenario/SimScenario.h"
#include "hosts/sim/scenario/random/SimRandomSteps.h"
#include "hosts/sim/scenario/session/SimProgramAdapters.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace haloric {

class SimRandomRun {
public:
    static constexpr std::size_t kStepsAnEpisode = 200;

    struct Options {
        std::uint64_t seed = 1;
        std::uint64_t steps = 10'000;
        std::optional<std::uint64_t> episode{}; // this one only
        SimRandomSteps::Sabotage sabotage = SimRandomSteps::Sabotage::none;
        SimAdapterFactory makeAdapters{}; // of every episode
    };

    struct Failure {
        std::uint64_t episode = 0;
        std::string message;
        std::string command;  // what plays it again
        SimScenario scenario; // the whole episode up to the failure
    };

    // How often the desktop at rest was found in a state, to detect runs in which nothing happened.
    struct Coverage {
        std::uint64_t rests = 0;
        std::uint64_t highlighted = 0;
        std::uint64_t dimmed = 0;
        std::uint64_t applicationsDimmed = 0;
        std::uint64_t nothingShown = 0;
        std::uint64_t fastPathVerified = 0;
        std::uint64_t fastPathGivenUp = 0;
        std::uint64_t severalScreens = 0;
        std::uint64_t hungFrontmost = 0;
        std::uint64_t carriedMoves = 0; // in all
        std::uint64_t pulses = 0;       // in all
    };

    struct Result {
        Coverage coverage;
        std::uint64_t steps = 0;
        std::uint64_t digest = 0; // of every episode's journal
        std::optional<Failure> failure;
    };

    explicit SimRandomRun(const Options& options) : m_options(options) {}

    Result run() const;

private:
    std::optional<Failure> playEpisode(std::uint64_t episode, std::uint64_t steps, Result& result) const;
    static void look(SimPlayer& player, Coverage& coverage);
    std::string commandFor(std::uint64_t episode) const;

    Options m_options;
};

} // namespace haloric
