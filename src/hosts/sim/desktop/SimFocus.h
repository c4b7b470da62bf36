// Who has the focus on the simulated desktop: the frontmost application, and each application's own focused window.
#pragma once

#include "hosts/sim/desktop/SimModel.h"
#include "hosts/sim/desktop/SimNotifier.h"

namespace haloric {

class SimFocus {
public:
    SimFocus(SimModel& model, SimNotifier& notifier) : m_model(model), m_notifier(notifier) {}

    // Makes an application frontmost, or none of them (null).
    void setFrontmost(const SimApp* app);

    // Gives a window the focus within its application; null takes it away.
    void setFocused(SimApp& app, const SimWindow* window);

    // Puts right what a change left behind: focus on a window that cannot have it any more, and a frontmost
    // application that is gone or hidden while another one could take its place.
    void settle();

    // The application of the front window on screen becomes frontmost, as after a Space switch.
    void followFrontWindow();

private:
    const SimApp* ownerOfFrontWindow() const;

    SimModel& m_model;
    SimNotifier& m_notifier;
};

} // namespace haloric
