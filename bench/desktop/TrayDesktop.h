// A private desktop with openbox, picom, a tray, a focused window and the program. Failures throw std::runtime_error.
#pragma once

#include "testing/x11/ProgramShell.h"

#include <chrono>
#include <memory>
#include <optional>

namespace haloric {

using BenchClock = std::chrono::steady_clock;

inline double millisecondsSince(BenchClock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(BenchClock::now() - begin).count();
}

// Polls without a pause, which would add to the measured time. False after `timeout`.
template <class Predicate>
bool comesTrue(Predicate predicate, std::chrono::milliseconds timeout)
{
    for (const auto end = BenchClock::now() + timeout; BenchClock::now() < end;) {
        if (predicate())
            return true;
    }
    return false;
}

class TrayDesktop {
public:
    TrayDesktop(); // returns when the window is highlighted

    X11Session& session() { return m_session; }
    ProgramShell& shell() { return *m_shell; }
    double proportionalMegabytes() const; // the program's memory

    // Opens the settings by the menu. Returns the milliseconds from the key to the painted window.
    double openSettings();
    void closeSettings();

private:
    bool isPainted();

    X11Session m_session;
    std::unique_ptr<TestClient> m_client;
    TrayPanel m_panel;
    std::unique_ptr<HaloricProcess> m_haloric;
    std::optional<ProgramShell> m_shell;
};

} // namespace haloric
