#include "hosts/linux/WaylandSession.h"

#include "fakes/FakeLog.h"
#include "fakes/FakeProcesses.h"
#include "hosts/linux/qt/OptionalLog.h"

namespace haloric {
namespace {

TEST(WaylandSession, it_is_recognised_by_its_display_or_its_type)
{
    using Environment = decltype(FakeProcesses::environment);
    const std::pair<Environment, bool> expected[] = {{{}, false},
                                                     {{{"XDG_SESSION_TYPE", "x11"}}, false},
                                                     {{{"WAYLAND_DISPLAY", ""}}, false},
                                                     {{{"WAYLAND_DISPLAY", "wayland-0"}}, true},
                                                     {{{"XDG_SESSION_TYPE", "wayland"}}, true}};
    for (const auto& [environment, isPresent] : expected) {
        FakeProcesses processes;
        processes.environment = environment;
        EXPECT_EQ(WaylandSession::isPresent(processes), isPresent);
    }
}

TEST(WaylandSession, its_alert_has_one_button)
{
    EXPECT_THAT(WaylandSession::alert().buttons, testing::ElementsAre("OK"));
}

TEST(OptionalLog, lines_are_written_only_on_request)
{
    FakeLog log;
    FakeProcesses processes;
    OptionalLog(log, processes).line("unasked");
    processes.environment["HALORIC_VERBOSE"] = "1";
    OptionalLog(log, processes).line("asked");
    EXPECT_THAT(log.lines, testing::ElementsAre("asked"));
}

} // namespace
} // namespace haloric
