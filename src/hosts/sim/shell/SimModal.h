// How long a modal dialog of the simulated desktop stays open. Without a user it is answered at once, by script. With
// one, the main loop runs until the user ends the dialog.
#pragma once

#include "foundation/Task.h"
#include "hosts/sim/loop/SimRunLoop.h"

namespace haloric {

class SimModal {
public:
    // Called from the main loop once a dialog is open; empty for no user.
    Task user;

    explicit SimModal(SimRunLoop& runLoop) : m_runLoop(runLoop) {}

    void end() { m_isOpen = false; }

    // Returns once the user has ended the dialog, or nothing is left to run.
    void run()
    {
        if (!user)
            return;
        m_isOpen = true;
        m_runLoop.post(user);
        while (m_isOpen && m_runLoop.runNext()) {
        }
    }

private:
    SimRunLoop& m_runLoop;
    bool m_isOpen = false;
};

} // namespace haloric
