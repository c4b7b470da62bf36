// The signals that ask a program to end, as work on the main loop. Made before any other thread, because threads
// inherit which signals are held back. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "hosts/linux/loop/LinuxRunLoop.h"

namespace haloric {

class TerminationSignals {
public:
    // From now on SIGTERM, SIGINT and SIGHUP wait for `watch`, so nothing may block the main thread for long any more.
    TerminationSignals();
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    // Writing to a reader that has gone is an error then instead of the end.
    static void ignoreBrokenPipes();

    // Calls `terminate` for each of them.
    Subscription watch(LinuxRunLoop& runLoop, Task terminate);

private:
    int m_descriptor;
};

} // namespace haloric
