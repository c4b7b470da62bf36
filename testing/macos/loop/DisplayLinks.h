// How tests set the refresh of the screens. Main thread.
#pragma once

#include "platform/Screens.h"

#import <QuartzCore/QuartzCore.h>

namespace substitute {

extern double framesPerSecond; // of every display; 60 at the start

// What -[NSScreen displayLinkWithTarget:selector:] returns. `screen`: the one of
// the backing; null without a backing.
CADisplayLink* makeScreenLink(id target, SEL action, const haloric::Screen* screen = nullptr);

// Whether the display is connected; the world defines it.
bool knowsDisplay(unsigned number);

} // namespace substitute
