// Event monitors.
#include "foundation/Balance.h"
#include "loop/MainLoop.h"
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
}
@end
@implementation RTMonitor
@end
static NSMutableArray<RTMonitor*>* monitors()
{
    static NSMutableArray* const all = substitute::permanent([] { return [NSMutableArray array]; });
    return all;
}
static const substitute::Counted counted("event monitors", [] { return static_cast<long>(monitors().count); });
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
    return made;
}
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* (^)(NSEvent*))block
{
    RTMonitor* made = [[RTMonitor alloc] init];
    made->mask = mask;
    made->block = [(id)block copy];
    [monitors() addObject:made];
    return made;
}
+ (void)removeMonitor:(id)monitor
{
    if (![monitors() containsObject:monitor])
        raise("removeMonitor: of one that is not there");
    ((RTMonitor*)monitor)->block = nil;
    [monitors() removeObjectIdenticalTo:monitor];
}
+ (NSUInteger)pressedMouseButtons
{
    return World::the().buttons;
}
- (NSEventType)type
{
    return _type;
}
@end
void World::button(int type, bool down)
{
    buttons = down ? 1 : 0;
    tap(type, 0, 0);
    substitute::onMain([type] {
        NSEvent* event = [[NSEvent alloc] init];
        event->_type = static_cast<NSEventType>(type);
        for (RTMonitor* one in [monitors() copy]) {
            if (!one->global || !(one->mask & (1ull << type)) || !one->block)
                continue;
            const void* calling = (__bridge void*)one->block; // strict
            ((__bridge void (^__unsafe_unretained)(NSEvent*))calling)(event);
        }
    });
}
