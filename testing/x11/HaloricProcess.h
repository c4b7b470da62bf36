// The program, running on a test's desktop with settings chosen by the test. The destructor ends it.
#pragma once

#include "testing/x11/ChildProcess.h"
#include "testing/x11/DesktopObserver.h"
#include "testing/x11/X11Session.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace haloric {

class HaloricProcess {
public:
    // Starts the program `file` in `session`'s environment with `added` variables. `settings` is written to the stored
    // record as JSON; empty: the stored record stays. `session` outlives the object.
    HaloricProcess(X11Session& session, const std::string& settings = {},
                   const std::vector<std::string>& arguments = {}, const Environment& added = {},
                   const std::filesystem::path& file = program());

    // The program that was built.
    static std::filesystem::path program() { return HALORIC_PROGRAM; }

    // A start of `program` with these arguments in this environment, its output captured.
    static ChildProcess::Options start(const std::vector<std::string>& arguments, const Environment& environment,
                                       const std::filesystem::path& program = HaloricProcess::program());

    // The file of the stored record in that environment.
    static std::filesystem::path settingsFile(const Environment& environment);

    pid_t pid() const { return m_process.pid(); }
    ChildProcess& process() { return m_process; }

    // The override-redirect windows that the program shows now, bottom to top.
    std::vector<RootChild> overlays() { return m_session.observer().overlaysOf(pid()); }

    // Waits for the highlight of `frame`: a window of the program with the same centre that covers it. No value if the
    // program ends or `timeout` passes first.
    std::optional<RootChild> waitForHighlight(const ScreenRect& frame, std::chrono::milliseconds timeout = kTimeout);

    // Waits until the program shows no window.
    [[nodiscard]] bool waitForNothing(std::chrono::milliseconds timeout = kTimeout);

    // Ends the program by SIGTERM and returns its exit code.
    int stop() { return m_process.terminate(); }

private:
    X11Session& m_session;
    ChildProcess m_process;
};

} // namespace haloric
