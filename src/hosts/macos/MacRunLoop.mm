#include "hosts/macos/MacRunLoop.h"

#include "hosts/macos/MacConversions.h"

#import <Foundation/Foundation.h>

namespace haloric {
namespace {

constexpr Seconds kNoTolerance{0};

Subscription addTimer(Seconds interval, Seconds tolerance, BOOL repeats, const Task& task)
{
    const auto fire = ^(NSTimer*) {
      const Task running = task; // it may invalidate its own timer, and end this block with it
      running();
    };
    NSTimer* timer = [NSTimer timerWithTimeInterval:interval.count() repeats:repeats block:fire];
    timer.tolerance = tolerance.count();
    [NSRunLoop.mainRunLoop addTimer:timer forMode:NSRunLoopCommonModes];
    return Subscription([timer] { [timer invalidate]; });
}

} // namespace

Seconds MacRunLoop::systemUptime() const { return Seconds(NSProcessInfo.processInfo.systemUptime); }

Seconds MacRunLoop::wallClock() const { return Seconds(NSDate.date.timeIntervalSince1970); }

void MacRunLoop::post(Task task)
{
    dispatch_async(dispatch_get_main_queue(), ^{
      task();
    });
}

void MacRunLoop::postAfter(Seconds delay, Task task)
{
    dispatch_after(dispatchTimeAfter(delay), dispatch_get_main_queue(), ^{
      task();
    });
}

Subscription MacRunLoop::scheduleOnce(Seconds delay, Task task) { return addTimer(delay, kNoTolerance, NO, task); }

Subscription MacRunLoop::scheduleRepeating(Seconds interval, Seconds tolerance, Task task)
{
    return addTimer(interval, tolerance, YES, task);
}

} // namespace haloric
