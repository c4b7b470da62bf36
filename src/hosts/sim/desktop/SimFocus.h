// The focus on the simulated desktop: the frontmost application, and each application's focused window.
#pragma once

#include "hosts/sim/desktop/SimModel.h"
#include "hosts/sim/desktop/SimNotifier.h"

namespace haloric {

class SimFocus {
public:
    SimFocus(SimModel& model, SimNotifier& notifier) : m_model(model), m_notifier(notifier) {}

    // Makes an application frontmost; null: none.
    void setFrontmost(const SimApp* app);

    // Gives a window the focus within its application; null: no window has it.
    void setFocused(SimApp& app, const SimWindow* window);

    // Restores the invariants after a change: moves the focus off windows that can no longer have it, and replaces a
    // frontmost application that is gone or hidden, if another one is on screen.
    void settle();

    // The application of the front window on screen becomes frontmost, as after a Space switch.
    void followFrontWindow();

private:
    const SimApp* ownerOfFrontWindow() const;

    SimModel& m_model;
    SimNotifier& m_notifier;
};

} // namespace haloric
