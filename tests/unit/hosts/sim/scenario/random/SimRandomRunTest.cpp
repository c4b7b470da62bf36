#include "hosts/sim/scenario/random/SimRandomRun.h"

namespace haloric {
namespace {

SimRandomRun::Result run(std::uint64_t seed, std::uint64_t steps)
{
    return SimRandomRun({.seed = seed, .steps = steps}).run();
}

TEST(SimRandomRun, the_same_seed_gives_the_same_journals)
{
    const auto first = run(5, 2000);
    const auto second = run(5, 2000);

    EXPECT_EQ(first.steps, 2000u);
    EXPECT_EQ(first.digest, second.digest);
}

TEST(SimRandomRun, another_seed_gives_other_journals) { EXPECT_NE(run(5, 400).digest, run(6, 400).digest); }

TEST(SimRandomRun, an_episode_is_the_same_when_played_separately)
{
    const auto alone = SimRandomRun({.seed = 5, .steps = 10'000, .episode = 0}).run();

    EXPECT_EQ(alone.steps, SimRandomRun::kStepsAnEpisode);
    EXPECT_EQ(alone.digest, run(5, SimRandomRun::kStepsAnEpisode).digest);
}

TEST(SimRandomRun, random_steps_reach_every_state_that_the_checkers_look_at)
{
    const auto coverage = run(1, 40'000).coverage;

    EXPECT_EQ(coverage.rests, 1000u);
    EXPECT_GT(coverage.highlighted, 200u);
    EXPECT_GT(coverage.dimmed, 50u);
    EXPECT_GT(coverage.applicationsDimmed, 50u);
    EXPECT_GT(coverage.nothingShown, 50u);
    EXPECT_GT(coverage.fastPathVerified, 100u);
    EXPECT_GT(coverage.fastPathGivenUp, 50u);
    EXPECT_GT(coverage.severalScreens, 200u);
    EXPECT_GT(coverage.hungFrontmost, 5u);
    EXPECT_GT(coverage.carriedMoves, 5000u);
    EXPECT_GT(coverage.pulses, 1000u);
}

TEST(SimRandomRun, a_run_of_some_steps_plays_each_verb_but_expectations)
{
    std::map<std::string_view, int> played;
    SimDesktop desktop;
    desktop.model.screens = {{DisplayID{1}, {0, 0, 1440, 900}, 60, 1}, {DisplayID{2}, {1440, 0, 800, 600}, 60, 1}};
    SimApp& app = desktop.applications.launch("App", std::nullopt);
    app.hidden = true;
    app.responsive = false;
    for (const char* name : {"a", "b", "Haloric Settings"}) {
        SimWindow window;
        window.name = name;
        window.frame = {0, 0, 100, 100};
        desktop.windows.open(app, window);
    }
    desktop.model.windows.named("a")->minimised = true;
    desktop.model.windows.named("b")->fullScreenOrigin.emplace();
    SimRandomSteps random(1);
    for (int i = 0; i < 10'000; ++i)
        ++played[random.next(desktop).kind->name];

    for (const SimStepKind* kind : allSimStepKinds()) {
        const bool passive = kind->name.starts_with("expect") || kind->name == "mark" || kind->name == "terminate" ||
                             kind->name == "transactionsLie";
        EXPECT_EQ(played.contains(kind->name), !passive) << kind->name;
    }
}

} // namespace
} // namespace haloric
