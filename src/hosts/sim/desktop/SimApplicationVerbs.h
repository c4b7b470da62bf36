// What users and applications do to applications.
#pragma once

#include "hosts/sim/desktop/SimFocus.h"
#include "hosts/sim/desktop/SimWindowVerbs.h"

#include <optional>
#include <string>

namespace haloric {

class SimApplicationVerbs {
public:
    SimApplicationVerbs(SimModel& model, SimNotifier& notifier, SimFocus& focus, SimWindowVerbs& windows)
        : m_model(model),
          m_notifier(notifier),
          m_focus(focus),
          m_windows(windows)
    {
    }

    // Starts an application without windows and makes it frontmost.
    SimApp& launch(std::string name, std::optional<std::string> bundleID);

    // Ends an application and closes its windows. Haloric itself cannot be ended this way.
    void quit(SimApp& app);

    // Shows it when it is hidden, and goes to its windows' Space when it has none on the active one.
    void activate(SimApp& app);

    void hide(SimApp& app);
    void show(SimApp& app);

    // While an application does not respond, Accessibility calls to it time out, and its notifications wait.
    void setResponsive(SimApp& app, bool responsive);

private:
    SimModel& m_model;
    SimNotifier& m_notifier;
    SimFocus& m_focus;
    SimWindowVerbs& m_windows;
    std::int32_t m_lastPID = static_cast<std::int32_t>(SimModel::kOwnProcess);
};

} // namespace haloric
