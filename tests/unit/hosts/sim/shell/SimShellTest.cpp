// The small adapters: application, alerts, defaults, processes, journal.
#include "hosts/sim/shell/SimAlerts.h"
#include "hosts/sim/shell/SimApplication.h"
#include "hosts/sim/shell/SimProcesses.h"
#include "hosts/sim/shell/SimUserDefaults.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

TEST(SimApplication, its_key_window_is_its_focused_one_while_it_is_frontmost)
{
    SimDesktopFixture desk;
    SimApplication application(desk.desktop);
    SimApp& own = *desk.desktop.model.app(SimModel::kOwnProcess);
    EXPECT_FALSE(application.keyWindow());
    SimWindow& window = desk.open(own, "settings", {100, 100, 400, 300});
    application.activateIgnoringOtherApps();

    const auto key = application.keyWindow();
    ASSERT_TRUE(key);
    EXPECT_EQ(key->frame, (Rect{100, 500, 400, 300}));
    EXPECT_EQ(key->contentLayoutHeight, 272);
    EXPECT_EQ(key->number, static_cast<std::int64_t>(window.number));
    EXPECT_TRUE(key->visible);
    EXPECT_FALSE(key->overlay);
    desk.launch("Editor");
    EXPECT_FALSE(application.keyWindow());
}

TEST(SimApplication, it_terminates_once_and_tells_its_delegate)
{
    struct Delegate : ApplicationDelegate {
        int launched = 0;
        int terminated = 0;
        void applicationDidFinishLaunching() override { ++launched; }
        void applicationWillTerminate() override { ++terminated; }
    } delegate;
    SimDesktopFixture desk;
    SimApplication application(desk.desktop);
    application.setDelegate(&delegate);
    application.run();
    application.terminate();
    application.terminate();

    EXPECT_EQ(delegate.launched, 1);
    EXPECT_EQ(delegate.terminated, 1);
    EXPECT_TRUE(application.hasTerminated());
}

TEST(SimAlerts, answers_come_as_scripted_and_then_by_the_last_button)
{
    SimDesktopFixture desk;
    SimAlerts alerts(desk.desktop);
    AlertModel alert;
    alert.messageText = "Sure?";
    alert.buttons = {"Yes", "No", "Maybe"};
    alerts.willAnswer(1);

    EXPECT_EQ(alerts.runModal(alert), Alerts::kFirstButton + 1);
    EXPECT_EQ(alerts.runModal(alert), Alerts::kFirstButton + 2);
    EXPECT_EQ(desk.desktop.journal.entries().back().text, "Sure? [Maybe]");
}

TEST(SimUserDefaults, a_save_that_fails_leaves_what_was_stored)
{
    SimDesktopFixture desk;
    SimUserDefaults defaults(desk.desktop);
    defaults.setData("k", "old");
    desk.desktop.faults.savesFail = true;
    defaults.setData("k", "new");

    EXPECT_EQ(defaults.data("k"), "old");
}

TEST(SimProcesses, a_launch_fails_when_told_or_for_an_unknown_program)
{
    SimDesktopFixture desk;
    SimProcesses processes(desk.desktop);
    EXPECT_TRUE(processes.launch("/bin/sh", {"-c", "true"}));
    EXPECT_FALSE(processes.launch("/nowhere", {}));
    desk.desktop.faults.launchesFail = true;
    EXPECT_FALSE(processes.launch("/bin/sh", {}));
    EXPECT_EQ(desk.desktop.journal.entries()[0].text, "/bin/sh [-c] [true]");
}

TEST(SimJournal, lines_have_time_kind_and_frame)
{
    SimDesktopFixture desk;
    desk.desktop.runLoop.runFor(Seconds(1.5));
    desk.desktop.journal.note(SimJournal::Kind::log, "a line");
    desk.desktop.journal.noteOverlay(SimJournal::Kind::overlayMoved, 7, {1, 2, 30.5, 40});

    const auto& entries = desk.desktop.journal.entries();
    EXPECT_EQ(SimJournal::line(entries[0]), "    1.5000  log: a line");
    EXPECT_EQ(SimJournal::line(entries[1]), "    1.5000  overlay moved: #7 at 1, 2 size 30.5 x 40");
}

TEST(SimJournal, the_digest_tells_journals_apart_with_and_without_entries)
{
    const auto digestOf = [](const char* text, bool keeps) {
        SimDesktopFixture desk;
        desk.desktop.journal.setKeepsEntries(keeps);
        desk.desktop.journal.note(SimJournal::Kind::log, text);
        EXPECT_EQ(desk.desktop.journal.entries().size(), keeps ? 1u : 0u);
        EXPECT_EQ(desk.desktop.journal.count(SimJournal::Kind::log), 1u);
        return desk.desktop.journal.digest();
    };
    EXPECT_EQ(digestOf("a", true), digestOf("a", false));
    EXPECT_NE(digestOf("a", true), digestOf("b", true));
}

} // namespace
} // namespace haloric
