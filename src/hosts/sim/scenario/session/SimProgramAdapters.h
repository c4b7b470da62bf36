// The adapters that the program runs on in a session. They act on the session's desktop, so that steps and checkers
// need not know them; those of another host can be put in place of the simulated desktop's own.
#pragma once

#include "app/ApplicationDependencies.h"
#include "hosts/sim/form/SimFormWindows.h"

#include <functional>
#include <memory>
#include <string_view>

namespace haloric {

class SimSession;

class SimProgramAdapters {
public:
    virtual ~SimProgramAdapters() = default;

    // The adapters live as long as this object.
    virtual ApplicationDependencies dependencies() = 0;

    // Uses a control of a form on screen, as SimFormWindows::change.
    virtual bool changeControl(std::string_view id, const SimFormWindows::Value& value) = 0;
};

// Makes the adapters of a session whose desktop has been set up. The session outlives them. Empty: the simulated
// desktop's own.
using SimAdapterFactory = std::function<std::unique_ptr<SimProgramAdapters>(SimSession&)>;

} // namespace haloric
