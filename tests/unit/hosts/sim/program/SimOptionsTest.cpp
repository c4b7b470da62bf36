#include "hosts/sim/program/SimOptions.h"

#include <vector>

namespace haloric {
namespace {

using Action = SimOptions::Action;

std::string problemOf(const std::vector<const char*>& arguments)
{
    std::string problem;
    EXPECT_FALSE(SimOptions::parse(arguments, problem));
    return problem;
}

SimOptions parsed(const std::vector<const char*>& arguments)
{
    std::string problem;
    const auto options = SimOptions::parse(arguments, problem);
    EXPECT_TRUE(options) << problem;
    return options.value_or(SimOptions());
}

TEST(SimOptions, a_scenario_is_replayed_with_or_without_pictures)
{
    EXPECT_EQ(parsed({"story.json"}).action, Action::replay);
    const SimOptions options = parsed({"story.json", "--frames", "pictures"});
    EXPECT_EQ(options.scenario, "story.json");
    EXPECT_EQ(options.frames, "pictures");
}

TEST(SimOptions, a_seed_plays_random_scenarios)
{
    const SimOptions options = parsed(
        {"--seed", "7", "--steps", "300", "--episode", "2", "--shortened", "s.json", "--sabotage", "transactions-lie"});
    EXPECT_EQ(options.action, Action::random);
    EXPECT_EQ(options.random.seed, 7u);
    EXPECT_EQ(options.random.steps, 300u);
    EXPECT_EQ(options.random.episode, 2u);
    EXPECT_EQ(options.shortened, "s.json");
    EXPECT_EQ(options.random.sabotage, SimRandomSteps::Sabotage::transactionsLie);
}

TEST(SimOptions, help_version_and_schema_need_nothing_else)
{
    EXPECT_EQ(parsed({"--help"}).action, Action::help);
    EXPECT_EQ(parsed({"story.json", "-h"}).action, Action::help);
    EXPECT_EQ(parsed({"--version"}).action, Action::version);
    EXPECT_EQ(parsed({"--schema"}).action, Action::schema);
}

TEST(SimOptions, wrong_arguments_are_named)
{
    EXPECT_EQ(problemOf({}), "give a scenario file, or --seed");
    EXPECT_EQ(problemOf({"--fast"}), "unknown argument: --fast");
    EXPECT_EQ(problemOf({"a.json", "b.json"}), "unknown argument: b.json");
    EXPECT_EQ(problemOf({"a.json", "--seed", "1"}), "give a scenario file, or --seed");
    EXPECT_EQ(problemOf({"--seed"}), "bad value for --seed");
    EXPECT_EQ(problemOf({"--seed", "1x"}), "bad value for --seed");
    EXPECT_EQ(problemOf({"--seed", "1", "--steps", "-3"}), "bad value for --steps");
    EXPECT_EQ(problemOf({"a.json", "--frames"}), "bad value for --frames");
    EXPECT_EQ(problemOf({"--seed", "1", "--sabotage", "other"}), "bad value for --sabotage");
}

} // namespace
} // namespace haloric
