// The main run loop: its modes, and the work that is due on it. No other thread
// has a run loop. Main thread, unless a comment says otherwise.
#pragma once

#include "foundation/Foundation.h"
#include "loop/Clock.h"

#include <cstddef>
#include <functional>

namespace substitute {

// Work of the system, such as the delivery of an event: runs in a later turn of
// the loop, in the common modes. Any thread.
void onMain(std::function<void()> call);

// A block of the main queue. The queue is serial, so a loop inside one of its
// blocks runs no other one. Any thread.
void onMainQueue(std::function<void()> block);
void onMainQueueAt(double instant,
                   std::function<void()> block); // of `now()`; equal instants
                                                 // in the order of the calls

// Runs what is due in the mode, and waits for it until `limit` (of `now()`).
// True if anything was run.
bool turn(NSString* mode, double limit);

// Runs what is due in the default mode, and what that makes due, until nothing
// is.
void turnUntilIdle();

// Ends the wait of `turn`. Any thread.
void wake();

bool isMain(); // any thread: whether the caller is the main one

// Ends the program on any other thread.
void demandMain(const char* what);

// Posted calls and blocks of the main queue that have not run yet.
std::size_t pendingCalls();

} // namespace substitute
