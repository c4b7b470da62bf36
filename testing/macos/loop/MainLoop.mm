#include "loop/MainLoop.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>
#include <vector>

#include <pthread.h>

using substitute::raise;

NSRunLoopMode const NSDefaultRunLoopMode = @"kCFRunLoopDefaultMode";
NSRunLoopMode const NSRunLoopCommonModes = @"kCFRunLoopCommonModes";
NSRunLoopMode const NSEventTrackingRunLoopMode = @"NSEventTrackingRunLoopMode";
NSRunLoopMode const NSModalPanelRunLoopMode = @"NSModalPanelRunLoopMode";
extern "C" const CFRunLoopMode kCFRunLoopCommonModes = (CFRunLoopMode) @"kCFRunLoopCommonModes";
extern "C" const CFRunLoopMode kCFRunLoopDefaultMode = (CFRunLoopMode) @"kCFRunLoopDefaultMode";

using substitute::demandMain;

static const pthread_t g_main = pthread_self();
void substitute::demandMain(const char* what)
{
    if (!pthread_equal(pthread_self(), g_main))
        raise("%s off the main thread", what);
}

// ---- timers

@interface RTTimer : NSTimer {
@public
    double due, interval, toleranceIs;
    bool repeats, valid;
    void (^block)(NSTimer*);
    unsigned long order;
}
@end
@implementation NSTimer
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval repeats:(BOOL)repeats block:(void (^)(NSTimer*))block
{
    static std::atomic<unsigned long> orders;
    RTTimer* made = [[RTTimer alloc] init];
    made->interval = std::max(interval, 0.0001);
    made->due = substitute::now() + std::max(interval, 0.0);
    made->repeats = repeats;
    made->valid = true;
    made->block = block;
    made->order = ++orders;
    return made;
}
@end
static NSMutableArray<RTTimer*>* timers()
{
    static NSMutableArray* const all = [NSMutableArray array];
    return all;
}
@implementation RTTimer
- (BOOL)isValid
{
    return valid;
}
- (void)setTolerance:(NSTimeInterval)value
{
    toleranceIs = value;
}
- (NSTimeInterval)tolerance
{
    return toleranceIs;
}
- (NSTimeInterval)timeInterval
{
    return repeats ? interval : 0;
}
- (void)invalidate
{
    demandMain("-[NSTimer invalidate]");
    valid = false;
    block = nil; // as the system does: the block goes now, even when it is running
    [timers() removeObjectIdenticalTo:self];
}
@end

// ---- sources

@implementation RTSource
- (instancetype)init
{
    if ((self = [super init]))
        valid = true;
    return self;
}
- (void)signal
{
    ++pending;
    substitute::wake();
}
@end
static NSMutableArray<RTSource*>* sources()
{
    static NSMutableArray* const all = [NSMutableArray array];
    return all;
}

// ---- the loop

namespace {
struct Loop {
    std::mutex lock;
    std::condition_variable changed;
    std::deque<std::function<void()>> posted;
    bool woken = false;
};
Loop& loop()
{
    static auto* one = new Loop;
    return *one;
}
bool isCommon(NSString* mode)
{
    return [mode isEqualToString:NSDefaultRunLoopMode] || [mode isEqualToString:NSEventTrackingRunLoopMode] ||
           [mode isEqualToString:NSModalPanelRunLoopMode];
}
} // namespace

void substitute::wake()
{
    {
        const std::lock_guard guard(loop().lock);
        loop().woken = true;
    }
    loop().changed.notify_all();
}
void substitute::onMain(std::function<void()> call)
{
    {
        const std::lock_guard guard(loop().lock);
        loop().posted.push_back(std::move(call));
    }
    loop().changed.notify_all();
}
long substitute::timersOnLoop() { return static_cast<long>(timers().count); }
long substitute::sourcesOnLoop() { return static_cast<long>(sources().count); }

static bool runDue()
{
    bool any = false;
    // The main queue: what is there now, not what these add.
    std::size_t batch;
    {
        const std::lock_guard guard(loop().lock);
        batch = loop().posted.size();
    }
    for (; batch > 0; --batch) {
        std::function<void()> call;
        {
            const std::lock_guard guard(loop().lock);
            call = std::move(loop().posted.front());
            loop().posted.pop_front();
        }
        call();
        any = true;
    }
    // Timers in the order of their dates.
    const double at = substitute::now();
    std::vector<RTTimer*> due;
    for (RTTimer* timer in timers())
        if (timer->due <= at)
            due.push_back(timer);
    std::ranges::sort(due,
                      [](RTTimer* a, RTTimer* b) { return a->due != b->due ? a->due < b->due : a->order < b->order; });
    for (RTTimer* timer : due) {
        if (!timer->valid)
            continue;
        if (timer->repeats)
            while (timer->due <= at)
                timer->due += timer->interval;
        const void* calling = (__bridge void*)timer->block; // strict: the loop retains the timer, but not the block
        ((__bridge void (^__unsafe_unretained)(NSTimer*))calling)(timer);
        if (!timer->repeats && timer->valid)
            [timer invalidate];
        any = true;
    }
    for (RTSource* source in [sources() copy]) {
        while (source->pending > 0 && source->valid && [sources() containsObject:source]) {
            --source->pending;
            if (source->perform)
                source->perform();
            any = true;
        }
    }
    return any;
}

bool substitute::turn(NSString* mode, double limit)
{
    demandMain("the main run loop");
    if (!isCommon(mode))
        raise("mode %s is not there", mode.UTF8String);
    for (;;) {
        @autoreleasepool {
            if (runDue())
                return true;
        }
        double until = limit;
        for (RTTimer* timer in timers())
            until = std::min(until, timer->due);
        const double left = until - now();
        std::unique_lock guard(loop().lock);
        if (!loop().posted.empty())
            continue;
        if (std::exchange(loop().woken, false))
            continue;
        if (left <= 0) {
            if (until < limit)
                continue;
            return false;
        }
        loop().changed.wait_for(guard, std::chrono::duration<double>(std::min(left, 1.0)),
                                [] { return loop().woken || !loop().posted.empty(); });
        loop().woken = false;
    }
}

@implementation NSRunLoop
+ (NSRunLoop*)mainRunLoop
{
    static NSRunLoop* const one = [[NSRunLoop alloc] init];
    return one;
}
+ (NSRunLoop*)currentRunLoop
{
    demandMain("+[NSRunLoop currentRunLoop]");
    return [self mainRunLoop];
}
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode
{
    demandMain("-[NSRunLoop addTimer:forMode:]");
    if (![mode isEqualToString:NSRunLoopCommonModes])
        raise("a timer in mode %s alone", mode.UTF8String);
    if (timer.valid && ![timers() containsObject:(RTTimer*)timer])
        [timers() addObject:(RTTimer*)timer];
    substitute::wake();
}
- (BOOL)runMode:(NSRunLoopMode)mode beforeDate:(NSDate*)date
{
    return substitute::turn(mode, substitute::now() + date.timeIntervalSinceNow);
}
@end

extern "C" {
CFRunLoopRef CFRunLoopGetMain() { return (__bridge CFRunLoopRef)NSRunLoop.mainRunLoop; }
void CFRunLoopAddSource(CFRunLoopRef, CFRunLoopSourceRef source, CFRunLoopMode mode)
{
    demandMain("CFRunLoopAddSource"); // allowed elsewhere on a Mac; the host promises the main thread
    if (!source)
        raise("CFRunLoopAddSource: null");
    RTSource* one = (__bridge RTSource*)(void*)source;
    if (![sources() containsObject:one])
        [sources() addObject:one];
    substitute::wake();
}
void CFRunLoopRemoveSource(CFRunLoopRef, CFRunLoopSourceRef source, CFRunLoopMode)
{
    demandMain("CFRunLoopRemoveSource");
    [sources() removeObjectIdenticalTo:(__bridge RTSource*)(void*)source];
}
}
