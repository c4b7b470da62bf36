// How processes deal with signals is inherited by the programs they start. Any thread.
#pragma once

namespace haloric::PosixSignals {

// Nothing is blocked or ignored any more, and no handler is left. For a forked process that is about to become another
// program: only calls that are safe in a signal handler are made.
void reset();

} // namespace haloric::PosixSignals
