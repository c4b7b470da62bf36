// The program itself, running on a test's desktop with settings of the test's choice.
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
    // Starts the program in `session`'s environment and what is `added` to it. `settings` is the stored record as JSON;
    // empty: what is stored stays. `file` is the program, where it is not the one that was built.
    HaloricProcess(X11Session& session, const std::string& settings = {},
                   const std::vector<std::string>& arguments = {}, const Environment& added = {},
                   const std::filesystem::path& file = program());

    static std::filesystem::path program() { return HALORIC_PROGRAM; }

    // Where the program finds the record that this environment gives it.
    static std::filesystem::path settingsFile(const Environment& environment);

    pid_t pid() const { return m_process.pid(); }
    ChildProcess& process() { return m_process; }

    // The windows that the program shows right now, bottom to top.
    std::vector<RootChild> overlays() { return m_session.observer().overlaysOf(pid()); }

    // Waits until a window of the program is on the screen whose middle is the middle of `frame`, and which is no
    // smaller: the highlight. The window, or none.
    std::optional<RootChild> waitForHighlight(const ScreenRect& frame, std::chrono::milliseconds patience = kPatience);

    // Waits until the program shows no window at all.
    [[nodiscard]] bool waitForNothing(std::chrono::milliseconds patience = kPatience);

    // Ends the program by SIGTERM; its exit code.
    int stop() { return m_process.terminate(); }

private:
    X11Session& m_session;
    ChildProcess m_process;
};

} // namespace haloric
