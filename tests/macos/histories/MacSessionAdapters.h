// The macOS host's adapters in a session of the simulated desktop, on stand-ins whose backing is the session's own
// adapters. One exists at a time. Main thread.
#pragma once

#include "hosts/sim/scenario/session/SimProgramAdapters.h"

namespace haloric {

std::unique_ptr<SimProgramAdapters> makeMacSessionAdapters(SimSession& session);

} // namespace haloric
