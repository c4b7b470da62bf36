#include "loop/Timers.h"

#include "foundation/Balance.h"
#include "loop/MainLoop.h"
#include "loop/Modes.h"
#include "platform/RunLoop.h"
#include "world/Backing.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <vector>

using substitute::demandMain;
using substitute::raise;

@interface RTTimer : NSTimer {
@public
    double due;       // the fire date, in seconds of substitute::now()
    double interval;  // seconds
    double tolerance; // seconds
    bool repeats;
    bool valid;
    substitute::Modes modes;
    unsigned long order; // of creation
    void (^block)(NSTimer*);
    haloric::Subscription behind; // with a backing: its timer
}
@end

namespace {

constexpr double kShortestInterval = 0.0001; // seconds; timerWithTimeInterval:repeats:block: uses it instead of
                                             // 0 or less

double g_lateness = 0;

// A backing's loop keeps each interval as the program asks for it, so that a
// story has the same instants there as on the backing's own timers.
double shortestInterval() { return substitute::backing() ? 0 : kShortestInterval; }

// Those on the loop, which retains them.
std::vector<RTTimer*>& timers()
{
    static auto* const all = new std::vector<RTTimer*>;
    return *all;
}

const substitute::Counted counted("timers on the run loop", [] { return static_cast<long>(timers().size()); });

double fireTimeOf(RTTimer* timer) { return timer->due + g_lateness * timer->tolerance; }

std::vector<RTTimer*> timersOf(NSString* mode)
{
    std::vector<RTTimer*> found;
    for (RTTimer* timer : timers())
        if (timer->modes.contains(mode))
            found.push_back(timer);
    return found;
}

// The next date follows from the first one: firings that were missed are
// skipped, and lateness does not add up (NSTimer, "a repeating timer
// reschedules itself").
void moveToNextDate(RTTimer* timer, double now)
{
    const double missed = std::floor((now - timer->due) / timer->interval);
    timer->due += (std::max(missed, 0.0) + 1) * timer->interval;
}

void fire(RTTimer* timer, double now)
{
    if (timer->repeats)
        moveToNextDate(timer, now);
    // Strict: the loop retains the timer meanwhile, but nothing retains its
    // block.
    const void* calling = (__bridge void*)timer->block;
    ((__bridge void (^__unsafe_unretained)(NSTimer*))calling)(timer);
    if (!timer->repeats && timer->valid)
        [timer invalidate]; // -[NSTimer fire]: a timer that does not repeat is
                            // invalidated after it has fired
}

// With a backing, its loop keeps the date of a timer that is on the loop.
void armBehind(RTTimer* timer)
{
    haloric::RunLoop& loop = substitute::backing()->adapters.runLoop;
    const haloric::Task fireTimer = [timer] {
        RTTimer* const firing = timer; // the task ends when the timer is invalidated
        @autoreleasepool {
            fire(firing, substitute::now());
        }
    };
    if (timer->repeats)
        timer->behind =
            loop.scheduleRepeating(haloric::Seconds(timer->interval), haloric::Seconds(timer->tolerance), fireTimer);
    else
        timer->behind = loop.scheduleOnce(haloric::Seconds(timer->due - substitute::now()), fireTimer);
}

} // namespace

@implementation NSTimer

+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval repeats:(BOOL)repeats block:(void (^)(NSTimer*))block
{
    static std::atomic<unsigned long> orders;
    if (!block)
        raise("+[NSTimer timerWithTimeInterval:repeats:block:]: the block is nil");
    RTTimer* made = [[RTTimer alloc] init];
    made->interval = interval > 0 ? interval : shortestInterval();
    made->due = substitute::now() + made->interval;
    made->repeats = repeats;
    made->valid = true;
    made->block = block;
    made->order = ++orders;
    return made;
}

@end

@implementation RTTimer

- (BOOL)isValid
{
    return valid;
}

- (void)setTolerance:(NSTimeInterval)value
{
    if (value < 0)
        raise("-[NSTimer setTolerance:]: %g is negative", value);
    tolerance = value;
}

- (NSTimeInterval)tolerance
{
    return tolerance;
}

- (NSTimeInterval)timeInterval
{
    return repeats ? interval : 0; // NSTimer.timeInterval: 0 for a timer that does not repeat
}

// NSTimer.invalidate: on the thread of the loop; the timer leaves it, and its
// block is released. Strict: even while the block runs.
- (void)invalidate
{
    demandMain("-[NSTimer invalidate]");
    RTTimer* const kept = self; // by the caller at least
    valid = false;
    block = nil;
    behind.reset();
    std::erase(timers(), kept);
}

@end

namespace substitute {

void setTimerLateness(double part) { g_lateness = part; }

bool hasTimers(NSString* mode) { return !timersOf(mode).empty(); }

double nextTimer(NSString* mode)
{
    double next = std::numeric_limits<double>::infinity();
    for (RTTimer* timer : timersOf(mode))
        next = std::min(next, fireTimeOf(timer));
    return next;
}

bool fireTimers(NSString* mode)
{
    const double now = substitute::now();
    std::vector<RTTimer*> due = timersOf(mode);
    std::erase_if(due, [now](RTTimer* timer) { return fireTimeOf(timer) > now; });
    std::ranges::sort(due,
                      [](RTTimer* a, RTTimer* b) { return a->due != b->due ? a->due < b->due : a->order < b->order; });
    for (RTTimer* timer : due)
        if (timer->valid) // an earlier one may have invalidated it
            fire(timer, now);
    return !due.empty();
}

} // namespace substitute

@implementation NSRunLoop (Timers)

// The loop retains the timer; a timer that is not valid is not added.
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode
{
    demandMain("-[NSRunLoop addTimer:forMode:]");
    RTTimer* const one = (RTTimer*)timer;
    if (!one)
        raise("-[NSRunLoop addTimer:forMode:]: the timer is nil");
    if (!one->valid)
        return;
    one->modes.add(mode);
    if (std::ranges::find(timers(), one) == timers().end()) {
        timers().push_back(one);
        if (substitute::backing())
            armBehind(one);
    }
    substitute::wake();
}

@end
