// The main run loop: modes, timers, sources and the main dispatch queue. Only one loop exists. Main thread, unless a
// comment says otherwise.
#pragma once

#include "foundation/Foundation.h"
#include "loop/Clock.h"

#import <QuartzCore/QuartzCore.h>

#include <functional>

namespace substitute {

// Runs in a later turn of the loop, in the common modes. Any thread.
void onMain(std::function<void()> call);

// One turn in a mode: returns true once anything was done, false when the time `limit` of `now()` is reached.
bool turn(NSString* mode, double limit);

void wake(); // any thread
long timersOnLoop();
long sourcesOnLoop();
void demandMain(const char* what); // ends the program on another thread

} // namespace substitute

// A source for `CFRunLoopAddSource`.
@interface RTSource : NSObject {
@public
    std::function<void()> perform; // main thread
    bool valid;
    int pending;
}
- (void)signal; // any thread: calls `perform` on the main thread while the source is on the loop
@end
