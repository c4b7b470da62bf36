// Decides once whether the program can update itself, and owns the updater for the rest of the run. One per process,
// made at first use. Main thread.
#pragma once

#include "menubar/UpdaterGate.h"
#include "platform/UpdaterFramework.h"

#include <memory>

namespace haloric {

class Bundle;

class UpdaterManager {
public:
    // Starts the updater when the program runs from an application bundle that names a feed; the framework then checks
    // by its schedule.
    UpdaterManager(const Bundle& bundle, UpdaterFramework& framework);
    UpdaterManager(const UpdaterManager&) = delete;
    UpdaterManager& operator=(const UpdaterManager&) = delete;

    bool isAvailable() const { return m_controller != nullptr; }

    UpdaterGate& gate() { return m_gate; }

private:
    UpdaterGate m_gate; // before the controller, which refers to it
    std::shared_ptr<UpdaterController> m_controller;
};

} // namespace haloric
