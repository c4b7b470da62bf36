// Spaces of the simulated desktop: each window belongs to one, and one is on screen.
#pragma once

#include "hosts/sim/desktop/SimFocus.h"

namespace haloric {

class SimSpaces {
public:
    SimSpaces(SimModel& model, SimNotifier& notifier, SimFocus& focus)
        : m_model(model),
          m_notifier(notifier),
          m_focus(focus)
    {
    }

    // A window that is being dragged comes along.
    void switchTo(SimSpaceID space, SimWindow* dragged = nullptr);

    // Moves a window to another Space without going there.
    void sendWindow(SimWindow& window, SimSpaceID space);

    // A new Space behind the last one, for a full-screen window.
    SimSpaceID makeSpace() { return ++m_model.lastSpace; }

    // Whether there is such a Space: an ordinary one, or a full-screen window's.
    bool exists(SimSpaceID space) const;

private:
    SimModel& m_model;
    SimNotifier& m_notifier;
    SimFocus& m_focus;
};

} // namespace haloric
