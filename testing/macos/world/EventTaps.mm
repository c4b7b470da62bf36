// Event taps.
#include "foundation/Balance.h"
#include "loop/MainLoop.h"
#include "loop/Sources.h"
#include "platform/InputMonitors.h"
#include "world/Backing.h"
#include "world/World.h"

#import <ApplicationServices/ApplicationServices.h>

using substitute::raise;
using substitute::text;
using substitute::World;
using Lock = std::lock_guard<std::recursive_mutex>;

@interface RTCGEvent : NSObject {
@public
    int type;
    long key;
    unsigned long flags;
}
@end
@implementation RTCGEvent
@end
@interface RTPort : NSObject {
@public
    CGEventMask mask;
    CGEventTapCallBack callback;
    void* context;
    bool valid, enabled;
    RTSource* source;
    std::unique_ptr<haloric::EventTap> behind; // with a backing
}
- (void)take:(int)type key:(long)key flags:(unsigned long)flags;
@end
static NSMutableArray<RTPort*>* taps()
{
    static NSMutableArray* const all = substitute::permanent([] { return [NSMutableArray array]; });
    return all;
}
static const substitute::Counted counted("event taps", [] { return static_cast<long>(taps().count); });
@implementation RTPort
- (void)take:(int)type key:(long)key flags:(unsigned long)flags
{
    RTCGEvent* event = [[RTCGEvent alloc] init];
    event->type = type;
    event->key = key;
    event->flags = flags;
    callback(nullptr, static_cast<CGEventType>(type), (__bridge CGEventRef)event, context);
}
@end
extern "C" {
CFMachPortRef CGEventTapCreate(CGEventTapLocation location, CGEventTapPlacement placement, CGEventTapOptions options,
                               CGEventMask mask, CGEventTapCallBack callback, void* context)
{
    // CGEventTapCreate returns NULL when the process may not watch the events.
    if (World::the().tapsRefused)
        return nullptr;
    RTPort* made = [[RTPort alloc] init];
    if (const substitute::Backing* backing = substitute::backing()) {
        RTPort* __unsafe_unretained port = made; // it owns its tap behind
        made->behind = backing->adapters.input.createEventTap(
            {haloric::TapLocation{location}, haloric::TapPlacement{placement}, haloric::TapOptions{options},
             static_cast<haloric::EventMask>(mask)},
            [port](const haloric::TapEvent& event) {
                RTPort* const taking = port;
                @autoreleasepool {
                    [taking take:static_cast<int>(event.type) key:event.keyCode flags:event.flags];
                }
            });
        if (!made->behind)
            return nullptr;
    }
    made->mask = mask;
    made->callback = callback;
    made->context = context;
    made->valid = made->enabled = true;
    [taps() addObject:made]; // the window server's end
    return (CFMachPortRef)CFBridgingRetain(made);
}
CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef, CFMachPortRef port, CFIndex)
{
    RTPort* one = (__bridge RTPort*)(void*)port;
    if (!one->source)
        one->source = [[RTSource alloc] init];
    if (one->behind)
        one->source->placed = [port = one->behind.get()](bool onLoop) {
            if (onLoop)
                port->addToMainRunLoop();
        };
    return (CFRunLoopSourceRef)CFBridgingRetain(one->source);
}
void CFMachPortInvalidate(CFMachPortRef port)
{
    RTPort* one = (__bridge RTPort*)(void*)port;
    one->valid = false;
    if (one->source)
        one->source->placed = nullptr;
    one->behind.reset();
    [taps() removeObjectIdenticalTo:one];
    if (one->source) {
        one->source->valid = false;
        one->source->perform = nullptr;
        CFRunLoopRemoveSource(CFRunLoopGetMain(), (__bridge CFRunLoopSourceRef)one->source, kCFRunLoopCommonModes);
    }
}
void CGEventTapEnable(CFMachPortRef port, BOOL on)
{
    RTPort* one = (__bridge RTPort*)(void*)port;
    one->enabled = on;
    if (one->behind && on)
        one->behind->enable();
}
int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField) { return ((__bridge RTCGEvent*)(void*)event)->key; }
CGEventFlags CGEventGetFlags(CGEventRef event) { return ((__bridge RTCGEvent*)(void*)event)->flags; }
}
void World::tap(int type, long key, unsigned long flags)
{
    for (RTPort* one in taps()) {
        if (!one->enabled || !one->source || !(one->mask & (1ull << type)))
            continue;
        RTPort* __unsafe_unretained port = one;
        one->source->perform = [port, type, key, flags] { [port take:type key:key flags:flags]; };
        [one->source signal];
    }
}
