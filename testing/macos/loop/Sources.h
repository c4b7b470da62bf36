// Sources of the main loop, as Core Foundation has them.
#pragma once

#import <Foundation/Foundation.h>

#include <functional>

// A CFRunLoopSource. `perform` runs on the main thread, once for each `signal`,
// while the source is on the loop in the current mode.
@interface RTSource : NSObject {
@public
    std::function<void()> perform;    // main thread
    std::function<void(bool)> placed; // called when it comes on the loop (true) or leaves it; may be empty
    bool valid;
}
- (void)signal;     // any thread
- (BOOL)pending;    // any thread: whether a signal has not been served
- (BOOL)takeSignal; // main thread
@end

namespace substitute {

// Serves the signalled sources of the mode. True if any was.
bool performSources(NSString* mode);
bool hasSources(NSString* mode);

} // namespace substitute
