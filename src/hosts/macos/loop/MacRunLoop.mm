#include "hosts/macos/loop/MacRunLoop.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/base/OwnPool.h"

#import <Foundation/Foundation.h>

#include <utility>

namespace haloric {
namespace {

constexpr Seconds kNoTolerance{0};

// By value: a block that is handed a reference keeps the reference, not the task.
Subscription addTimer(Seconds interval, Seconds tolerance, BOOL repeats, Task task)
{
    const auto fire = ^(NSTimer*) {
      const Task running = task; // it may invalidate its own timer, and end this block with it
      withOwnPool(running);
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
      withOwnPool(task);
    });
}

void MacRunLoop::postAfter(Seconds delay, Task task)
{
    dispatch_after(dispatchTimeAfter(delay), dispatch_get_main_queue(), ^{
      withOwnPool(task);
    });
}

Subscription MacRunLoop::scheduleOnce(Seconds delay, Task task)
{
    return addTimer(delay, kNoTolerance, NO, std::move(task));
}

Subscription MacRunLoop::scheduleRepeating(Seconds interval, Seconds tolerance, Task task)
{
    return addTimer(interval, tolerance, YES, std::move(task));
}

} // namespace haloric
