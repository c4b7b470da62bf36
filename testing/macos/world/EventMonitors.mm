// Event monitors.
#include "foundation/Balance.h"
#include "loop/MainLoop.h"
#include "platform/InputMonitors.h"
#include "world/Backing.h"
#include "world/World.h"

#import <AppKit/AppKit.h>

using substitute::raise;
using substitute::text;
using substitute::World;
using Lock = std::lock_guard<std::recursive_mutex>;

@interface RTMonitor : NSObject {
@public
    NSEventMask mask;
    bool global;
    id block;
    haloric::Subscription behind; // with a backing
}
- (void)take:(NSEvent*)event;
@end
@implementation RTMonitor
- (void)take:(NSEvent*)event
{
    const void* calling = (__bridge void*)block; // strict: the event's way keeps no block
    if (global)
        ((__bridge void (^__unsafe_unretained)(NSEvent*))calling)(event);
    else
        ((__bridge NSEvent * (^__unsafe_unretained)(NSEvent*)) calling)(event);
}
@end
static NSMutableArray<RTMonitor*>* monitors()
{
    static NSMutableArray* const all = substitute::permanent([] { return [NSMutableArray array]; });
    return all;
}
static const substitute::Counted counted("event monitors", [] { return static_cast<long>(monitors().count); });
static haloric::InputMonitors::MouseHandler takerFor(RTMonitor* monitor);
@implementation NSEvent {
@public
    NSEventType _type;
}
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent*))block
{
    RTMonitor* made = [[RTMonitor alloc] init];
    made->mask = mask;
    made->global = true;
    made->block = [(id)block copy];
    [monitors() addObject:made];
    if (const substitute::Backing* backing = substitute::backing())
        made->behind =
            backing->adapters.input.addGlobalMouseMonitor(static_cast<haloric::EventMask>(mask), takerFor(made));
    return made;
}
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* (^)(NSEvent*))block
{
    RTMonitor* made = [[RTMonitor alloc] init];
    made->mask = mask;
    made->block = [(id)block copy];
    [monitors() addObject:made];
    if (const substitute::Backing* backing = substitute::backing())
        made->behind =
            backing->adapters.input.addLocalMouseMonitor(static_cast<haloric::EventMask>(mask), takerFor(made));
    return made;
}
+ (void)removeMonitor:(id)monitor
{
    if (![monitors() containsObject:monitor])
        raise("removeMonitor: of one that is not there");
    ((RTMonitor*)monitor)->block = nil;
    ((RTMonitor*)monitor)->behind.reset();
    [monitors() removeObjectIdenticalTo:monitor];
}
+ (NSUInteger)pressedMouseButtons
{
    if (const substitute::Backing* backing = substitute::backing())
        return backing->adapters.input.pressedMouseButtons();
    return World::the().buttons;
}
- (NSEventType)type
{
    return _type;
}
@end
static NSEvent* eventOf(NSEventType type)
{
    NSEvent* event = [[NSEvent alloc] init];
    event->_type = type;
    return event;
}
static haloric::InputMonitors::MouseHandler takerFor(RTMonitor* monitor)
{
    RTMonitor* __unsafe_unretained bare = monitor; // it owns its subscription behind
    return [bare](haloric::EventType type) {
        RTMonitor* const taking = bare;
        @autoreleasepool {
            [taking take:eventOf(static_cast<NSEventType>(type))];
        }
    };
}
void World::button(int type, bool down)
{
    buttons = down ? 1 : 0;
    tap(type, 0, 0);
    substitute::onMain([type] {
        NSEvent* event = eventOf(static_cast<NSEventType>(type));
        for (RTMonitor* one in [monitors() copy]) {
            if (!one->global || !(one->mask & (1ull << type)) || !one->block)
                continue;
            [one take:event];
        }
    });
}
