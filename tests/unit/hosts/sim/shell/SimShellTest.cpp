// The adapters of a few lines each.
#include "hosts/sim/shell/SimAlerts.h"
#include "hosts/sim/shell/SimLoginItemService.h"
#include "hosts/sim/shell/SimPanels.h"
#include "hosts/sim/shell/SimProcesses.h"
#include "hosts/sim/shell/SimUserDefaults.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

TEST(SimAlerts, answers_come_as_scripted_and_then_by_the_last_button)
{
    SimDesktopFixture fixture;
    SimAlerts alerts(fixture.desktop);
    AlertModel alert;
    alert.messageText = "Sure?";
    alert.buttons = {"Yes", "No", "Maybe"};
    alerts.willAnswer(1);

    EXPECT_EQ(alerts.runModal(alert), Alerts::kFirstButton + 1);
    EXPECT_EQ(alerts.runModal(alert), Alerts::kFirstButton + 2);
    EXPECT_EQ(fixture.desktop.journal.entries().back().text, "Sure? [Maybe]");
}

TEST(SimLoginItemService, a_fault_leaves_the_registration_as_it_is)
{
    SimDesktopFixture fixture;
    SimLoginItemService service(fixture.desktop);
    EXPECT_FALSE(service.registerApplication());
    EXPECT_EQ(service.status(), LoginItemStatus::enabled);
    fixture.desktop.faults.loginItemsFail = true;
    EXPECT_TRUE(service.unregisterApplication());
    EXPECT_EQ(service.status(), LoginItemStatus::enabled);
}

TEST(SimPanels, the_open_panel_is_answered_by_script_and_then_cancelled)
{
    SimDesktopFixture fixture;
    SimPanels panels(fixture.desktop);
    panels.willChoose("/Applications/Notes.app");
    EXPECT_EQ(panels.runModalOpenPanel({}), "/Applications/Notes.app");
    EXPECT_EQ(panels.runModalOpenPanel({}), std::nullopt);
}

TEST(SimUserDefaults, a_save_that_fails_leaves_what_was_stored)
{
    SimDesktopFixture fixture;
    SimUserDefaults defaults(fixture.desktop);
    defaults.setData("k", "old");
    fixture.desktop.faults.savesFail = true;
    defaults.setData("k", "new");

    EXPECT_EQ(defaults.data("k"), "old");
}

TEST(SimProcesses, a_launch_fails_by_fault_or_for_an_unknown_program)
{
    SimDesktopFixture fixture;
    SimProcesses processes(fixture.desktop);
    EXPECT_TRUE(processes.launch("/bin/sh", {"-c", "true"}));
    EXPECT_FALSE(processes.launch("/nowhere", {}));
    fixture.desktop.faults.launchesFail = true;
    EXPECT_FALSE(processes.launch("/bin/sh", {}));
    EXPECT_EQ(fixture.desktop.journal.entries()[0].text, "/bin/sh [-c] [true]");
}

} // namespace
} // namespace haloric
