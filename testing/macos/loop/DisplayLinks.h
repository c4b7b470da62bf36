// How tests set the refresh of the screens. Main thread.
#pragma once

#import <QuartzCore/QuartzCore.h>

namespace substitute {

extern double framesPerSecond; // of every display; 60 at the start

// What -[NSScreen displayLinkWithTarget:selector:] returns.
CADisplayLink* makeScreenLink(id target, SEL action);

// Whether the display is connected; the world defines it.
bool knowsDisplay(unsigned number);

} // namespace substitute
