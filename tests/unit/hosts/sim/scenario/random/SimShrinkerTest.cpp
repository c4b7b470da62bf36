#include "hosts/sim/scenario/random/SimShrinker.h"

#include "hosts/sim/scenario/random/SimRandomRun.h"

#include <algorithm>

namespace haloric {
namespace {

SimStep stepOf(const char* verb, double after)
{
    SimStep step;
    step.kind = findSimStepKind(verb);
    step.after = after;
    return step;
}

bool has(const SimScenario& scenario, std::string_view verb)
{
    return std::ranges::any_of(scenario.steps, [&](const SimStep& step) { return step.kind->name == verb; });
}

TEST(SimShrinker, only_the_steps_that_matter_are_left)
{
    SimScenario scenario;
    for (int i = 0; i < 50; ++i)
        scenario.steps.push_back(stepOf(i == 17 ? "escape" : i == 41 ? "screenshot" : "wait", 0.1));
    const SimShrinker shrinker([](const SimScenario& s) { return has(s, "escape") && has(s, "screenshot"); });

    const SimScenario shorter = shrinker.shrink(scenario);

    ASSERT_EQ(shorter.steps.size(), 2u);
    EXPECT_EQ(shorter.steps[0].kind->name, "escape");
    EXPECT_EQ(shorter.steps[1].kind->name, "screenshot");
}

TEST(SimShrinker, the_time_before_a_step_is_kept)
{
    SimScenario scenario;
    for (int i = 0; i < 4; ++i)
        scenario.steps.push_back(stepOf(i == 3 ? "escape" : "wait", 0.25));
    const SimShrinker shrinker([](const SimScenario& s) { return has(s, "escape"); });

    const SimScenario shorter = shrinker.shrink(scenario);

    ASSERT_EQ(shorter.steps.size(), 1u);
    EXPECT_EQ(shorter.steps[0].after, 1.0);
}

TEST(SimShrinker, the_setup_keeps_only_what_matters)
{
    SimScenario scenario;
    scenario.setup = {{"version", 13}, {"trusted", false}, {"spaces", 4}};
    const SimShrinker shrinker([](const SimScenario& s) { return s.setup.contains("trusted"); });

    EXPECT_EQ(shrinker.shrink(scenario).setup, (SimJson{{"trusted", false}}));
}

// The checkers find a window server that reports a move of an overlay without making it, and the episode is shortened
// to a scenario of a few steps that still fails.
TEST(SimShrinker, a_planted_fault_is_found_and_shortened)
{
    const auto result = SimRandomRun({.seed = 1,
                                      .steps = 20'000,
                                      .episode = std::nullopt,
                                      .sabotage = SimRandomSteps::Sabotage::transactionsLie})
                            .run();
    ASSERT_TRUE(result.failure);
    EXPECT_THAT(result.failure->message, testing::HasSubstr("the highlight is at"));
    EXPECT_THAT(result.failure->command, testing::StartsWith("haloric-sim --seed 1 --episode "));

    const SimScenario shorter = SimShrinker(&SimShrinker::failsWhenPlayed).shrink(result.failure->scenario);

    EXPECT_LE(shorter.steps.size(), 12u);
    EXPECT_LT(shorter.steps.size(), result.failure->scenario.steps.size());
    EXPECT_TRUE(has(shorter, "transactionsLie"));
    EXPECT_TRUE(SimShrinker::failsWhenPlayed(SimScenario::parse(shorter.toJson().dump(), "shortened")));
    SimScenario honest = shorter;
    std::erase_if(honest.steps, [](const SimStep& step) { return step.kind->name == "transactionsLie"; });
    EXPECT_FALSE(SimShrinker::failsWhenPlayed(honest)) << "without the fault the scenario holds";
}

} // namespace
} // namespace haloric
