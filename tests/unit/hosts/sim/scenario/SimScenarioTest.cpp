#include "hosts/sim/scenario/SimScenario.h"
#include "hosts/sim/scenario/session/SimFailure.h"
#include "hosts/sim/scenario/session/SimSetup.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace haloric {
namespace {

using testing::HasSubstr;

std::string contentsOf(const std::filesystem::path& path)
{
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string errorOf(const std::string& text)
{
    try {
        SimScenario::parse(text, "story.json");
    } catch (const SimScenarioError& error) {
        return error.what();
    }
    return "";
}

std::string errorOfStep(const std::string& step)
{
    return errorOf(R"({"title": "t", "steps": [{"do": "wait"}, )" + step + "]}");
}

TEST(SimScenario, a_file_that_is_not_json_is_refused_with_its_name_and_the_place)
{
    EXPECT_THAT(errorOf("{\"title\": "), testing::AllOf(HasSubstr("story.json: not JSON"), HasSubstr("line 1")));
}

TEST(SimScenario, a_scenario_without_title_or_steps_is_refused)
{
    EXPECT_EQ(errorOf("{\"steps\": []}"), "story.json: \"title\" is missing");
    EXPECT_EQ(errorOf("{\"title\": \"t\"}"), "story.json: \"steps\" is missing or not a list");
    EXPECT_EQ(errorOf("[]"), "story.json: expected an object, found []");
}

TEST(SimScenario, an_unknown_verb_is_named_with_its_step)
{
    EXPECT_EQ(errorOfStep(R"({"do": "dance"})"), "story.json: step 2: unknown verb \"dance\"");
}

TEST(SimScenario, a_step_without_a_verb_is_named)
{
    EXPECT_EQ(errorOfStep("{}"), "story.json: step 2: expected an object with a verb under \"do\"");
}

TEST(SimScenario, an_argument_of_the_wrong_type_is_named_with_step_and_verb)
{
    EXPECT_EQ(errorOfStep(R"({"do": "space", "to": "left"})"),
              "story.json: step 2 (space), \"to\": expected an integer, found \"left\"");
    EXPECT_THAT(errorOfStep(R"({"do": "move", "window": "w", "to": [1]})"), HasSubstr("expected a point [x, y]"));
    EXPECT_THAT(errorOfStep(R"({"do": "trust", "value": 1})"), HasSubstr("expected true or false, found 1"));
    EXPECT_THAT(errorOfStep(R"({"do": "press", "button": "middle"})"), HasSubstr("unknown value \"middle\""));
    EXPECT_THAT(errorOfStep(R"({"do": "key", "code": 1, "modifiers": [1]})"), HasSubstr("expected a list of texts"));
    EXPECT_THAT(errorOfStep(R"({"do": "settings", "change": []})"), HasSubstr("expected an object"));
    EXPECT_THAT(errorOfStep(R"({"do": "wait", "after": "soon"})"), HasSubstr("expected a number"));
}

TEST(SimScenario, a_number_out_of_range_is_named_with_step_verb_and_range)
{
    EXPECT_EQ(errorOfStep(R"({"do": "wait", "after": -1})"),
              "story.json: step 2 (wait), \"after\": expected numbers from 0 to 86400, found -1");
    EXPECT_THAT(errorOfStep(R"({"do": "wait", "at": 1e300})"), HasSubstr("found 1e+300"));
    EXPECT_THAT(errorOfStep(R"({"do": "drag", "window": "w", "seconds": 1e9})"), HasSubstr("\"seconds\": expected"));
    EXPECT_THAT(errorOfStep(R"({"do": "drag", "window": "w", "seconds": 1, "rate": 0})"), HasSubstr("\"rate\""));
    EXPECT_THAT(errorOfStep(R"({"do": "move", "window": "w", "to": [0, -1e7]})"),
                HasSubstr("from -1000000 to 1000000"));
    EXPECT_THAT(errorOfStep(R"({"do": "space", "to": 9223372036854775808})"), HasSubstr("\"to\": expected"));
    EXPECT_THAT(errorOfStep(R"({"do": "notify", "event": -1, "number": 0})"), HasSubstr("from 0 to 4294967295"));
    EXPECT_THAT(errorOfStep(R"({"do": "plug", "screen": 2, "frame": [0, 0, 1, 1], "rate": 1e12})"),
                HasSubstr("\"rate\": expected numbers from 0.1 to 10000"));
}

TEST(SimScenario, a_number_beyond_the_range_of_a_double_is_refused)
{
    EXPECT_THAT(errorOfStep(R"({"do": "wait", "after": 1e400})"), HasSubstr("story.json: not JSON: "));
}

TEST(SimScenario, what_is_nested_deeply_is_refused)
{
    const std::string deep = std::string(100'000, '[') + std::string(100'000, ']');
    EXPECT_EQ(errorOf(R"({"title": )" + deep + "}"), "story.json: nested deeper than 64 levels");
    EXPECT_EQ(errorOf(std::string(100'000, '[')), "story.json: nested deeper than 64 levels");
}

TEST(SimScenario, a_missing_and_an_unknown_argument_are_named)
{
    EXPECT_EQ(errorOfStep(R"({"do": "focus"})"), "story.json: step 2 (focus): \"window\" is missing");
    EXPECT_EQ(errorOfStep(R"({"do": "wait", "long": 1})"), "story.json: step 2 (wait): unknown member \"long\"");
}

TEST(SimScenario, a_wrong_setup_is_named)
{
    EXPECT_EQ(errorOf(R"({"title": "t", "setup": {"version": true}, "steps": []})"),
              "story.json: setup, \"version\": expected an integer, found true");
    EXPECT_THAT(errorOf(R"({"title": "t", "setup": {"screens": [{"screen": 1}]}, "steps": []})"),
                HasSubstr("screen 1: \"frame\" is missing"));
    EXPECT_THAT(errorOf(R"({"title": "t", "setup": {"environment": {"A": 1}}, "steps": []})"),
                HasSubstr("\"A\" is not a text"));
}

TEST(SimScenario, what_is_written_is_read_back_the_same)
{
    const auto text = R"({"title": "t", "story": "s", "setup": {"trusted": false}, "skipsUnknownNames": true,
        "steps": [{"do": "wait", "at": 0.25}, {"do": "launch", "app": "A", "after": 0.1}]})";
    const SimScenario once = SimScenario::parse(text, "a");
    const SimScenario twice = SimScenario::parse(once.toJson().dump(), "b");

    EXPECT_EQ(once.toJson(), SimJson::parse(text));
    EXPECT_EQ(twice.toJson(), once.toJson());
}

TEST(SimScenario, the_schema_in_the_repository_is_the_one_in_force)
{
    EXPECT_EQ(contentsOf(HALORIC_SCENARIOS "/schema.json"), SimScenario::schemaText())
        << "write it again: haloric-sim --schema > scenarios/schema.json";
}

TEST(SimScenario, the_schema_has_every_verb_and_argument)
{
    const SimJson schema = SimScenario::schema();
    const SimJson& alternatives = schema["properties"]["steps"]["items"]["oneOf"];
    ASSERT_EQ(alternatives.size(), allSimStepKinds().size());
    for (std::size_t i = 0; i < alternatives.size(); ++i) {
        EXPECT_EQ(alternatives[i]["properties"]["do"]["const"], allSimStepKinds()[i]->name);
        for (const SimParameter& parameter : allSimStepKinds()[i]->parameters)
            EXPECT_TRUE(alternatives[i]["properties"].contains(parameter.name)) << parameter.name;
    }
}

TEST(SimScenario, every_story_ends_in_an_expectation_or_a_look_at_the_desktop_at_rest)
{
    std::size_t stories = 0;
    for (const auto& file : std::filesystem::directory_iterator(HALORIC_SCENARIOS)) {
        if (file.path().filename() == "schema.json")
            continue;
        const SimScenario scenario = SimScenario::parse(contentsOf(file), file.path().filename().string());
        const std::string_view last = scenario.steps.back().kind->name;
        EXPECT_TRUE(last == "rest" || last.starts_with("expect")) << file.path();
        EXPECT_FALSE(scenario.story.empty()) << file.path();
        ++stories;
    }
    EXPECT_GE(stories, 15u);
}

TEST(SimScenario, the_documentation_lists_every_verb_and_setup_member)
{
    const std::string document = contentsOf(HALORIC_SCENARIOS "/../docs/simulation.md");
    for (const SimStepKind* kind : allSimStepKinds())
        EXPECT_THAT(document, HasSubstr("| `" + std::string(kind->name) + "` | " + std::string(kind->help) + " |"));
    for (const SimParameter& member : SimSetup::parameters())
        EXPECT_THAT(document, HasSubstr("| `" + std::string(member.name) + "` | "));
}

TEST(SimScenario, verbs_are_unique)
{
    std::set<std::string_view> names;
    for (const SimStepKind* kind : allSimStepKinds())
        EXPECT_TRUE(names.insert(kind->name).second) << kind->name;
}

} // namespace
} // namespace haloric
