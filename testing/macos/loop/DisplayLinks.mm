// Display links: of Core Video on a thread of their own, and of a screen on the main loop.
#include "loop/MainLoop.h"
#include "runtime/ObjectiveCAbi.h"

#import <CoreVideo/CoreVideo.h>

#include <atomic>
#include <chrono>
#include <thread>

using substitute::raise;

@interface RTVideoLink : NSObject {
@public
    std::thread thread;
    std::atomic<bool> runs;
    CVReturn (^handler)(CVDisplayLinkRef, const CVTimeStamp*, const CVTimeStamp*, CVOptionFlags, CVOptionFlags*);
}
@end
@implementation RTVideoLink
- (void)dealloc
{
    if (runs)
        raise("a display link is released while it runs");
}
@end
namespace substitute {
bool knowsDisplay(unsigned number);
double framesPerSecond = 60;
}

extern "C" {
CVReturn CVDisplayLinkCreateWithCGDisplay(CGDirectDisplayID display, CVDisplayLinkRef* made)
{
    if (!substitute::knowsDisplay(display))
        return -6661;
    *made = (CVDisplayLinkRef)CFBridgingRetain([[RTVideoLink alloc] init]);
    return 0;
}
CVReturn CVDisplayLinkSetOutputHandler(CVDisplayLinkRef link, CVDisplayLinkOutputHandler handler)
{
    RTVideoLink* one = (__bridge RTVideoLink*)(void*)link;
    if (one->runs)
        return -6670;
    one->handler = [(id)handler copy];
    return 0;
}
CVReturn CVDisplayLinkStart(CVDisplayLinkRef link)
{
    RTVideoLink* __unsafe_unretained one = (__bridge RTVideoLink*)(void*)link;
    if (one->runs)
        return -6671;
    if (!one->handler)
        return -6670;
    one->runs = true;
    one->thread = std::thread([one, link] {
        while (one->runs) {
            @autoreleasepool {
                CVOptionFlags out = 0;
                one->handler(link, nullptr, nullptr, 0, &out);
            }
            std::this_thread::sleep_for(std::chrono::duration<double>(1 / substitute::framesPerSecond));
        }
    });
    return 0;
}
CVReturn CVDisplayLinkStop(CVDisplayLinkRef link)
{
    RTVideoLink* one = (__bridge RTVideoLink*)(void*)link;
    if (!one->runs.exchange(false))
        return -6672;
    if (one->thread.get_id() == std::this_thread::get_id())
        one->thread.detach();
    else
        one->thread.join();
    return 0;
}
}

@interface RTScreenLink : CADisplayLink {
@public
    id target;
    SEL action;
    NSTimer* timer;
    CAFrameRateRange range;
}
@end
@implementation CADisplayLink
@end
@implementation RTScreenLink
- (void)setPreferredFrameRateRange:(CAFrameRateRange)value
{
    range = value;
}
- (void)addToRunLoop:(NSRunLoop*)loop forMode:(NSRunLoopMode)mode
{
    if (!target || timer)
        return;
    RTScreenLink* __unsafe_unretained me = self;
    RTScreenLink* keeps = self; // the loop keeps the link
    timer = [NSTimer timerWithTimeInterval:1 / substitute::framesPerSecond
                                   repeats:YES
                                     block:^(NSTimer*) {
                                       (void)keeps;
                                       // Strict: the target may be let go of inside its own call.
                                       reinterpret_cast<void (*)(void*, SEL, void*)>(
                                           rt_lookup(reinterpret_cast<rt_id>((__bridge void*)me->target),
                                                     reinterpret_cast<rt_SEL>(me->action)))(
                                           (__bridge void*)me->target, me->action, (__bridge void*)me);
                                     }];
    [loop addTimer:timer forMode:mode];
}
- (void)invalidate
{
    NSTimer* gone = timer;
    timer = nil;
    target = nil;
    [gone invalidate];
}
@end
namespace substitute {
CADisplayLink* makeScreenLink(id target, SEL action)
{
    RTScreenLink* made = [[RTScreenLink alloc] init];
    made->target = target;
    made->action = action;
    return made;
}
}

extern "C" CAFrameRateRange CAFrameRateRangeMake(float minimum, float maximum, float preferred)
{
    CAFrameRateRange r;
    r.minimum = minimum;
    r.maximum = maximum;
    r.preferred = preferred;
    return r;
}
