#include "hosts/sim/program/SimProgram.h"

#include <filesystem>
#include <fstream>

namespace haloric {
namespace {

class SimProgramTest : public testing::Test {
protected:
    SimProgramTest() { std::filesystem::create_directories(folder()); }
    ~SimProgramTest() override { std::filesystem::remove_all(folder()); }

    static std::string folder()
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        return testing::TempDir() + "haloric-sim-" + test->name();
    }

    std::string write(const std::string& text) const
    {
        const std::string path = folder() + "/story.json";
        std::ofstream(path) << text;
        return path;
    }

    int run(SimOptions options)
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int code = SimProgram(options).run();
        output = testing::internal::GetCapturedStdout();
        errors = testing::internal::GetCapturedStderr();
        return code;
    }

    SimOptions replaying(const std::string& path) const
    {
        SimOptions options;
        options.action = SimOptions::Action::replay;
        options.scenario = path;
        return options;
    }

    std::string output;
    std::string errors;
};

TEST_F(SimProgramTest, a_good_scenario_prints_its_journal_and_succeeds)
{
    EXPECT_EQ(run(replaying(HALORIC_SCENARIOS "/application-switch.json")), 0);
    EXPECT_THAT(output, testing::HasSubstr("overlay shown: #1 at 160, 110 size 780 x 580"));
    EXPECT_EQ(errors, "");
}

TEST_F(SimProgramTest, a_failed_expectation_prints_the_journal_so_far_and_fails)
{
    EXPECT_EQ(run(replaying(write(R"({"title": "t", "steps": [{"do": "expectHighlight", "after": 1}]})"))), 1);
    EXPECT_THAT(output, testing::HasSubstr("step: expectHighlight"));
    EXPECT_THAT(errors, testing::HasSubstr("step 1 (expectHighlight) at 1.0000 s: the highlight is not on screen"));
}

TEST_F(SimProgramTest, a_bad_or_missing_file_fails_with_its_name)
{
    EXPECT_EQ(run(replaying(write("{"))), 1);
    EXPECT_THAT(errors, testing::HasSubstr("story.json: not JSON"));
    EXPECT_EQ(run(replaying(folder() + "/none.json")), 1);
    EXPECT_THAT(errors, testing::HasSubstr("none.json: cannot be read"));
    EXPECT_EQ(run(replaying(write(R"({"title": "t", "steps": [{"do": "focus", "window": "ghost"}]})"))), 1);
    EXPECT_THAT(errors, testing::HasSubstr("step 1 (focus): there is no window \"ghost\""));
    EXPECT_EQ(run(replaying(write(R"({"title": "t", "steps": [{"do": "wait", "after": 1e400}]})"))), 1);
    EXPECT_THAT(errors, testing::HasSubstr("story.json: not JSON"));
}

TEST_F(SimProgramTest, a_file_without_an_end_fails)
{
    EXPECT_EQ(run(replaying("/dev/zero")), 1);
    EXPECT_EQ(errors, "haloric-sim: /dev/zero: longer than 16 MiB\n");
}

TEST_F(SimProgramTest, random_steps_print_their_number_and_digest)
{
    SimOptions options;
    options.action = SimOptions::Action::random;
    options.random = {.seed = 3, .steps = 400};

    EXPECT_EQ(run(options), 0);
    EXPECT_THAT(output, testing::StartsWith("400 steps of seed 3 in "));
}

TEST_F(SimProgramTest, random_steps_that_fail_print_the_command_and_write_a_short_scenario)
{
    SimOptions options;
    options.action = SimOptions::Action::random;
    options.random = {.seed = 1, .steps = 20'000, .episode = {}, .sabotage = SimRandomSteps::Sabotage::transactionsLie};
    options.shortened = folder() + "/shortened.json";

    EXPECT_EQ(run(options), 1);
    EXPECT_THAT(errors, testing::HasSubstr("play it again: haloric-sim --seed 1 --episode "));
    EXPECT_EQ(run(replaying(options.shortened)), 1);
    EXPECT_THAT(errors, testing::HasSubstr("the highlight is at"));
}

TEST_F(SimProgramTest, help_version_and_schema_are_printed)
{
    SimOptions options;
    EXPECT_EQ(run(options), 0);
    EXPECT_THAT(output, testing::StartsWith("usage: haloric-sim"));
    options.action = SimOptions::Action::version;
    EXPECT_EQ(run(options), 0);
    EXPECT_THAT(output, testing::StartsWith("haloric-sim 0."));
    options.action = SimOptions::Action::schema;
    EXPECT_EQ(run(options), 0);
    EXPECT_THAT(output, testing::HasSubstr("\"$schema\""));
}

#ifdef HALORIC_SIM_HAS_PICTURES
TEST_F(SimProgramTest, a_picture_is_written_after_each_step)
{
    SimOptions options = replaying(write(R"({"title": "t", "steps": [{"do": "launch", "app": "A", "at": 0.5},
        {"do": "open", "app": "A", "window": "w", "frame": [100, 100, 300, 200]}, {"do": "wait", "after": 1}]})"));
    options.frames = folder() + "/frames/of/it";

    EXPECT_EQ(run(options), 0);
    for (const char* name : {"/0001-0000.5000.png", "/0002-0000.5000.png", "/0003-0001.5000.png"})
        EXPECT_GT(std::filesystem::file_size(options.frames + name), 100u) << name;
}

TEST_F(SimProgramTest, a_picture_that_would_be_too_large_fails)
{
    const auto playAndPaint = [&](const std::string& steps) {
        SimOptions options = replaying(write(R"({"title": "t", "steps": [)" + steps + "]}"));
        options.frames = folder() + "/frames";
        return run(options);
    };
    EXPECT_EQ(playAndPaint(R"({"do": "plug", "screen": 2, "frame": [1440, 0, 1e6, 1e6]})"), 1);
    EXPECT_THAT(errors, testing::HasSubstr("pictures show at most 16384 points each way"));
    EXPECT_EQ(playAndPaint(R"({"do": "launch", "app": "A"},
        {"do": "open", "app": "A", "window": "w", "frame": [0, 0, 1e6, 1e6]}, {"do": "wait", "after": 1})"),
              1);
    EXPECT_THAT(errors, testing::HasSubstr("pictures show at most 16384 points each way"));
}

TEST_F(SimProgramTest, a_folder_that_cannot_be_written_fails)
{
    SimOptions options = replaying(write(R"({"title": "t", "steps": [{"do": "wait"}]})"));
    options.frames = options.scenario + "/inside-a-file";

    EXPECT_EQ(run(options), 1);
    EXPECT_THAT(errors, testing::HasSubstr("cannot be written"));
}
#endif

} // namespace
} // namespace haloric
