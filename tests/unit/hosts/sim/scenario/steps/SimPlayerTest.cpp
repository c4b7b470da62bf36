#include "unit/hosts/sim/scenario/ScenarioFixture.h"

#include "hosts/sim/scenario/session/SimFailure.h"

namespace haloric {
namespace {

using testing::HasSubstr;

std::string journalOf(SimPlayer& player)
{
    std::string text;
    for (const auto& entry : player.desktop().journal.entries())
        text += SimJournal::line(entry) + "\n";
    return text;
}

const std::string kStory = kEditorSteps + R"(,
    {"do": "drag", "window": "draft", "to": [600, 300], "seconds": 0.5},
    {"do": "settings", "after": 0.2, "change": {"dimEnabled": true}},
    {"do": "rest"})";

TEST(SimPlayer, the_same_story_gives_the_same_journal)
{
    auto first = playScenario(kStory);
    const std::string once = journalOf(first.player());
    first = {};
    auto second = playScenario(kStory);

    EXPECT_EQ(journalOf(second.player()), once);
    EXPECT_THAT(once, HasSubstr("step: drag"));
    EXPECT_THAT(once, HasSubstr("overlay carried: #1 at "));
    EXPECT_THAT(once, HasSubstr("save: Haloric.settings.v1"));
}

TEST(SimPlayer, the_journal_has_nothing_but_visible_changes)
{
    auto played = playScenario(kEditorSteps);
    const auto before = played.player().desktop().journal.entries().size();

    played.player().advance(Seconds(10)); // polls and queries, but nothing changes

    EXPECT_EQ(played.player().desktop().journal.entries().size(), before);
}

TEST(SimPlayer, a_step_at_an_instant_that_has_passed_is_refused)
{
    EXPECT_THROW(playScenario(R"({"do": "wait", "at": 2}, {"do": "wait", "at": 1})"), SimScenarioError);
}

TEST(SimPlayer, a_scenario_that_lasts_longer_than_a_day_is_refused)
{
    EXPECT_THROW(playScenario(R"({"do": "wait", "at": 86400}, {"do": "wait", "after": 0.001})"), SimScenarioError);
}

TEST(SimPlayer, steps_come_at_their_instants_and_after_their_delays)
{
    auto played = playScenario(R"({"do": "wait", "at": 2}, {"do": "wait", "after": 0.5}, {"do": "wait", "at": 3})");

    EXPECT_EQ(played.player().now(), Seconds(3));
}

TEST(SimPlayer, an_unknown_name_is_an_error_that_names_the_step)
{
    try {
        playScenario(R"({"do": "wait"}, {"do": "focus", "window": "ghost"})");
        FAIL() << "nothing was thrown";
    } catch (const SimScenarioError& error) {
        EXPECT_STREQ(error.what(), "test: step 2 (focus): there is no window \"ghost\"");
    }
}

TEST(SimPlayer, an_application_or_a_window_of_the_same_name_is_an_error)
{
    EXPECT_THROW(playScenario(kEditorSteps + R"(, {"do": "launch", "app": "Editor"})"), SimScenarioError);
    EXPECT_THROW(
        playScenario(kEditorSteps + R"(, {"do": "open", "app": "Editor", "window": "draft", "frame": [0,0,9,9]})"),
        SimScenarioError);
    EXPECT_THROW(playScenario(R"({"do": "plug", "screen": 1, "frame": [0, 0, 800, 600]})"), SimScenarioError);
    EXPECT_THROW(playScenario(R"({"do": "space", "to": 9})"), SimScenarioError);
}

TEST(SimPlayer, a_setting_of_the_wrong_type_is_an_error)
{
    EXPECT_THROW(playScenario(R"({"do": "settings", "change": {"borderWidth": "thick"}})"), SimScenarioError);
}

TEST(SimPlayer, a_failure_names_step_and_instant)
{
    auto played = playScenario(kEditorSteps + R"(, {"do": "expectNoHighlight"})");

    EXPECT_EQ(played.failure, "test: step 4 (expectNoHighlight) at 3.0000 s: the highlight is on screen");
}

TEST(SimPlayer, a_setup_reaches_the_desktop)
{
    auto played = playScenario("", R"({"version": 13, "trusted": false, "spaces": 5, "bundlePath": "/opt/x",
        "environment": {"A": "b"}, "missingEntries": ["SLSGetWindowBounds"], "libraryMissing": true,
        "eventTapRefused": true, "videoLinksFail": true, "settings": {"borderWidth": 7},
        "screens": [{"screen": 4, "frame": [0, 0, 800, 600], "rate": 120, "scale": 1}]})");
    SimSession& session = played.player().session();

    EXPECT_EQ(session.displayLinks.makeScreenLink(session.screens.all()[0], [] {}), nullptr);
    EXPECT_FALSE(session.accessibility.isProcessTrusted());
    EXPECT_TRUE(session.desktop().spaces.exists(5));
    EXPECT_EQ(session.bundle.path(), "/opt/x");
    EXPECT_EQ(session.processes.environmentVariable("A"), "b");
    const auto loaded = session.windowServerCalls.load([](WindowServerEvent, WindowNumber) {});
    EXPECT_FALSE(session.windowServerCalls.has(WindowServerCalls::Entry::mainConnection));
    EXPECT_EQ(session.input.createEventTap({}, [](const TapEvent&) {}), nullptr);
    EXPECT_EQ(session.displayLinks.makeVideoLink(DisplayID{4}), nullptr);
    EXPECT_EQ(session.settingsStore().settings().borderWidth, 7);
    ASSERT_EQ(session.screens.all().size(), 1u);
    EXPECT_EQ(session.screens.all()[0], (Screen{{0, 0, 800, 600}, DisplayID{4}, 120, 1}));
    EXPECT_TRUE(session.desktop().faults.missingEntries.contains("SLSGetWindowBounds"));
}

// The desktop's own adapters behind another factory, which counts what reaches them.
struct CountingAdapters final : SimProgramAdapters {
    SimSession& session;
    int& changes;

    CountingAdapters(SimSession& session_, int& changes_) : session(session_), changes(changes_) {}
    ApplicationDependencies dependencies() override { return session.ownDependencies(); }
    bool changeControl(std::string_view id, const SimFormWindows::Value& value) override
    {
        ++changes;
        return session.formWindows.change(id, value);
    }
};

TEST(SimPlayer, the_program_runs_on_the_adapters_that_a_factory_makes)
{
    int made = 0;
    int changes = 0;
    const auto makeAdapters = [&](SimSession& session) {
        ++made;
        return std::make_unique<CountingAdapters>(session, changes);
    };
    const SimScenario scenario = SimScenario::parse(R"({"title": "test", "steps": [
        {"do": "reopen"},
        {"do": "control", "id": "borderEnabled", "on": false},
        {"do": "control", "id": "borderEnabled", "on": true}]})",
                                                    "test");
    SimReplay replay(scenario, makeAdapters);

    EXPECT_EQ(replay.play(), std::nullopt);
    EXPECT_EQ(made, 1);
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace haloric
