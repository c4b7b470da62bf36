// The window list of Core Graphics.
#include "platform/WindowInfoSource.h"
#include "world/Backing.h"
#include "world/World.h"

#import <CoreGraphics/CoreGraphics.h>

using substitute::raise;
using substitute::text;
using substitute::World;
using Lock = std::lock_guard<std::recursive_mutex>;

namespace {
struct ObjectFor {
    id operator()(std::monostate) const { return nil; }
    id operator()(haloric::OtherWindowInfoValue) const { return @"other"; }
    id operator()(std::int64_t value) const { return @(static_cast<long long>(value)); }
    id operator()(double value) const { return @(value); }
    id operator()(const haloric::Rect& r) const
    {
        return @{@"X" : @(r.x), @"Y" : @(r.y), @"Width" : @(r.width), @"Height" : @(r.height)};
    }
};
} // namespace
static NSDictionary* entryFor(const haloric::WindowInfo& info)
{
    NSMutableDictionary* entry = [NSMutableDictionary dictionary];
    const auto put = [entry](NSString* key, const haloric::WindowInfoValue& value) {
        if (id object = std::visit(ObjectFor(), value))
            entry[key] = object;
    };
    put(@"kCGWindowLayer", info.layer);
    put(@"kCGWindowOwnerPID", info.ownerPID);
    put(@"kCGWindowAlpha", info.alpha);
    put(@"kCGWindowNumber", info.number);
    put(@"kCGWindowBounds", info.bounds);
    return entry;
}
static CFArrayRef copyBehind(CGWindowListOption options, CGWindowID relative)
{
    const auto windows = substitute::backing()->adapters.windowInfoSource.copyWindowInfo(
        haloric::WindowListOptions{options}, haloric::WindowNumber{relative});
    if (!windows)
        return nullptr;
    NSMutableArray* list = [NSMutableArray array];
    for (const haloric::WindowInfo& info : *windows)
        [list addObject:entryFor(info)];
    return (CFArrayRef)CFBridgingRetain(list);
}

extern "C" {
const CFStringRef kCGWindowLayer = CFSTR("kCGWindowLayer"), kCGWindowOwnerPID = CFSTR("kCGWindowOwnerPID"),
                  kCGWindowAlpha = CFSTR("kCGWindowAlpha"), kCGWindowNumber = CFSTR("kCGWindowNumber"),
                  kCGWindowBounds = CFSTR("kCGWindowBounds");

CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption options, CGWindowID relative)
{
    if (substitute::backing())
        return copyBehind(options, relative);
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
