// The signals that ask a program to end, as work on the main loop. Made before any other thread, because threads
// inherit which signals are held back. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "hosts/x11/X11RunLoop.h"

namespace haloric {

class X11TerminationSignals {
public:
    // From now on SIGTERM, SIGINT and SIGHUP wait for `watch`, so nothing may block the main thread for long any more.
    X11TerminationSignals();
    ~X11TerminationSignals();
    X11TerminationSignals(const X11TerminationSignals&) = delete;
    X11TerminationSignals& operator=(const X11TerminationSignals&) = delete;

    // Writing to a reader that has gone is an error then instead of the end.
    static void ignoreBrokenPipes();

    // Calls `terminate` for each of them.
    Subscription watch(X11RunLoop& runLoop, Task terminate);

private:
    int m_descriptor;
};

} // namespace haloric
