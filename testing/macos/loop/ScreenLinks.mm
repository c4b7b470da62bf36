// Display links of a screen, on the main loop.
#include "loop/DisplayLinks.h"
#include "loop/MainLoop.h"
#include "platform/DisplayLinks.h"
#include "runtime/ObjectiveCAbi.h"
#include "world/Backing.h"

#include <memory>
#include <utility>

using substitute::raise;

@interface RTScreenLink : CADisplayLink {
@public
    id target; // retained until it is invalidated
               // (displayLinkWithTarget:selector:)
    SEL action;
    NSTimer* timer;
    CAFrameRateRange range;
    std::unique_ptr<haloric::ScreenDisplayLink> behind; // with a backing
    RTScreenLink* keptByLoop;                           // with a backing: itself
}
@end

@implementation CADisplayLink
@end

namespace {

void callTarget(RTScreenLink* __unsafe_unretained link)
{
    // Strict: nothing retains the target meanwhile, so it may be released inside
    // its own call.
    void* const target = (__bridge void*)link->target;
    const auto imp = rt_lookup(static_cast<rt_id>(target), reinterpret_cast<rt_SEL>(link->action));
    reinterpret_cast<void (*)(void*, SEL, void*)>(imp)(target, link->action, (__bridge void*)link);
}

} // namespace

@implementation RTScreenLink

- (void)setPreferredFrameRateRange:(CAFrameRateRange)value
{
    // CAFrameRateRangeMake: the preferred rate lies in the range, or is 0.
    if (value.minimum > value.maximum ||
        (value.preferred != 0 && (value.preferred < value.minimum || value.preferred > value.maximum)))
        raise("-[CADisplayLink setPreferredFrameRateRange:]: %g to %g with %g "
              "preferred",
              value.minimum, value.maximum, value.preferred);
    range = value;
}

// The loop retains the link, which ticks until it is invalidated.
- (void)addToRunLoop:(NSRunLoop*)loop forMode:(NSRunLoopMode)mode
{
    if (!target || timer || keptByLoop)
        return;
    RTScreenLink* const kept = self;
    if (behind) {
        keptByLoop = kept;
        behind->addToMainRunLoop();
        return;
    }
    timer = [NSTimer timerWithTimeInterval:1 / substitute::framesPerSecond
                                   repeats:YES
                                     block:^(NSTimer*) {
                                       callTarget(kept);
                                     }];
    [loop addTimer:timer forMode:mode];
}

- (void)invalidate
{
    substitute::demandMain("-[CADisplayLink invalidate]");
    RTScreenLink* const kept = std::exchange(keptByLoop, nil); // to the end of this
    if (behind)
        behind->invalidate();
    NSTimer* const gone = std::exchange(timer, nil);
    target = nil;
    [gone invalidate];
}

@end

namespace substitute {

double framesPerSecond = 60;

CADisplayLink* makeScreenLink(id target, SEL action, const haloric::Screen* screen)
{
    RTScreenLink* const made = [[RTScreenLink alloc] init];
    made->target = target;
    made->action = action;
    if (screen) {
        RTScreenLink* __unsafe_unretained link = made; // which owns the link behind
        made->behind = backing()->adapters.displayLinks.makeScreenLink(*screen, [link] {
            RTScreenLink* const ticking = link;
            @autoreleasepool {
                callTarget(ticking);
            }
        });
    }
    return made;
}

} // namespace substitute

extern "C" CAFrameRateRange CAFrameRateRangeMake(float minimum, float maximum, float preferred)
{
    CAFrameRateRange range;
    range.minimum = minimum;
    range.maximum = maximum;
    range.preferred = preferred;
    return range;
}
