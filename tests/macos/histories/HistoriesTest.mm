// The stories of scenarios/ and random ones, played by the program on the macOS host's adapters. The stand-ins of the
// frameworks rest on the simulated desktop, which keeps the time and checks what is shown.
#include "hosts/sim/scenario/SimReplay.h"
#include "hosts/sim/scenario/random/SimRandomRun.h"
#include "hosts/sim/scenario/random/SimShrinker.h"
#include "hosts/sim/scenario/session/SimFailure.h"
#include "macos/histories/MacSessionAdapters.h"

#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

namespace haloric {
namespace {

SimScenario scenarioIn(const std::filesystem::path& file)
{
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return SimScenario::parse(text.str(), file.string());
}

std::vector<std::filesystem::path> scenarioFiles()
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(HALORIC_SCENARIOS))
        if (entry.path().extension() == ".json" && entry.path().stem() != "schema")
            files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

bool failsOnMacAdapters(const SimScenario& scenario)
{
    @autoreleasepool {
        try {
            SimReplay replay(scenario, makeMacSessionAdapters);
            replay.player().desktop().journal.setKeepsEntries(false);
            return replay.play().has_value();
        } catch (const SimScenarioError&) {
            return false;
        }
    }
}

std::uint64_t numberFrom(const char* variable, std::uint64_t otherwise)
{
    const char* text = std::getenv(variable);
    return text ? std::strtoull(text, nullptr, 10) : otherwise;
}

class MacScenario : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(MacScenario, holds_on_the_adapters_of_macOS)
{
    @autoreleasepool {
        const SimScenario scenario = scenarioIn(GetParam());
        SimReplay replay(scenario, makeMacSessionAdapters);
        const auto failure = replay.play();
        EXPECT_EQ(failure, std::nullopt);
        if (failure && std::getenv("HISTORIES_JOURNAL"))
            for (const auto& entry : replay.player().desktop().journal.entries())
                std::cout << SimJournal::line(entry) << '\n';
    }
}

// Everything that the program did to the desktop, with the instants. Left out is what the user does to a form, which
// only the simulated desktop's own forms write down, and that this host activates the application for alerts.
std::string recordOf(const SimScenario& scenario, const SimAdapterFactory& makeAdapters)
{
    @autoreleasepool {
        SimReplay replay(scenario, makeAdapters);
        replay.play();
        std::string record;
        for (const auto& entry : replay.player().desktop().journal.entries())
            if (!entry.text.starts_with("the user changes") && entry.text != "comes to the front")
                record += SimJournal::line(entry) + "\n";
        return record;
    }
}

TEST_P(MacScenario, leaves_the_same_record_as_on_the_desktops_own_adapters)
{
    if (GetParam().stem() == "menu-and-settings-window")
        return; // this host gives the focus back when the settings window closes
    const SimScenario scenario = scenarioIn(GetParam());

    EXPECT_EQ(recordOf(scenario, makeMacSessionAdapters), recordOf(scenario, nullptr));
}

INSTANTIATE_TEST_SUITE_P(Files, MacScenario, testing::ValuesIn(scenarioFiles()), [](const auto& file) {
    std::string name = file.param.stem().string();
    std::ranges::replace(name, '-', '_');
    return name;
});

SimRandomRun::Result randomRun(std::uint64_t seed, std::uint64_t steps,
                               SimRandomSteps::Sabotage sabotage = SimRandomSteps::Sabotage::none)
{
    @autoreleasepool {
        return SimRandomRun(
                   {.seed = seed, .steps = steps, .sabotage = sabotage, .makeAdapters = makeMacSessionAdapters})
            .run();
    }
}

// Another length or seed: HISTORIES_STEPS, HISTORIES_SEED.
TEST(MacRandomStories, hold_on_the_adapters_of_macOS)
{
    const auto result = randomRun(numberFrom("HISTORIES_SEED", 1), numberFrom("HISTORIES_STEPS", 20'000));

    std::cout << result.steps << " steps, " << result.coverage.rests << " rests, " << result.coverage.highlighted
              << " of them with a highlight, " << result.coverage.dimmed << " dimmed, "
              << result.coverage.applicationsDimmed << " by application, " << result.coverage.carriedMoves
              << " moves by transactions, digest " << std::hex << result.digest << std::dec << '\n';
    if (!result.failure)
        return;
    const SimScenario shorter = SimShrinker(&failsOnMacAdapters).shrink(result.failure->scenario);
    FAIL() << "episode " << result.failure->episode << ", step " << result.failure->scenario.steps.size() << ": "
           << result.failure->message << "\nshortened:\n"
           << shorter.toJson().dump(2);
}

TEST(MacRandomStories, the_same_seed_gives_the_same_journals)
{
    EXPECT_EQ(randomRun(5, 400).digest, randomRun(5, 400).digest);
}

TEST(MacRandomStories, moves_that_the_window_server_only_pretends_are_found)
{
    EXPECT_TRUE(randomRun(1, 5000, SimRandomSteps::Sabotage::transactionsLie).failure);
}

} // namespace
} // namespace haloric
