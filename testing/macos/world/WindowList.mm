// The window list of Core Graphics.
#include "world/World.h"

#import <CoreGraphics/CoreGraphics.h>

using substitute::raise;
using substitute::text;
using substitute::World;
using Lock = std::lock_guard<std::recursive_mutex>;

extern "C" {
const CFStringRef kCGWindowLayer = CFSTR("kCGWindowLayer"), kCGWindowOwnerPID = CFSTR("kCGWindowOwnerPID"),
                  kCGWindowAlpha = CFSTR("kCGWindowAlpha"), kCGWindowNumber = CFSTR("kCGWindowNumber"),
                  kCGWindowBounds = CFSTR("kCGWindowBounds");

CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption options, CGWindowID relative)
{
    const Lock guard(World::the().lock);
    NSMutableArray* list = [NSMutableArray array];
    for (const auto& window : World::the().windows) {
        if (options & kCGWindowListOptionIncludingWindow
                ? window.number != relative
                : options & kCGWindowListOptionOnScreenOnly && !window.onScreen)
            continue;
        [list addObject:@{
            @"kCGWindowLayer" : @(window.layer),
            @"kCGWindowOwnerPID" : @(window.pid),
            @"kCGWindowAlpha" : @1.0,
            @"kCGWindowNumber" : @(window.number),
            @"kCGWindowBounds" : @{
                @"X" : @(window.frame.origin.x),
                @"Y" : @(window.frame.origin.y),
                @"Width" : @(window.frame.size.width),
                @"Height" : @(window.frame.size.height)
            },
        }];
    }
    return (CFArrayRef)CFBridgingRetain(list);
}
} // extern "C"
