// The timers of the main loop. Main thread.
#pragma once

#import <Foundation/Foundation.h>

namespace substitute {

// Fires the timers of the mode that are due, in the order of their dates. True
// if any was.
bool fireTimers(NSString* mode);

// The earliest date at which a timer of the mode fires, in seconds of `now()`;
// infinite if there is none.
double nextTimer(NSString* mode);

bool hasTimers(NSString* mode);

// A timer may fire at any time between its date and its date plus its tolerance
// (NSTimer.tolerance): at which part of that span timers fire, from 0 to 1. 0
// at the start.
void setTimerLateness(double part);

} // namespace substitute
