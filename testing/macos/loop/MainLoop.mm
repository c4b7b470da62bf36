#include "loop/MainLoop.h"

#include "foundation/Balance.h"
#include "loop/Modes.h"
#include "loop/Sources.h"
#include "loop/Timers.h"
#include "platform/RunLoop.h"
#include "world/Backing.h"

#include <algorithm>
#include <deque>
#include <limits>
#include <map>
#include <mutex>
#include <utility>

#include <pthread.h>

using substitute::raise;

namespace {

constexpr double kNever = std::numeric_limits<double>::infinity();

// With a backing, its loop runs the calls. Its events are never nested, so its
// order is that of a serial main queue.
haloric::Task taskOf(std::function<void()> call)
{
    return [call = std::move(call)] {
        @autoreleasepool {
            call();
        }
    };
}

struct Call {
    std::function<void()> run;
    bool isBlock = false; // of the main queue
};

// What other threads put in; the lock is held for no call.
struct Pending {
    std::mutex lock;
    std::deque<Call> calls;
    std::multimap<double, std::function<void()>> blocksAt;
};

Pending& pending()
{
    static auto* const one = new Pending; // threads may still post when the process ends
    return *one;
}

const pthread_t g_main = pthread_self();
bool g_insideBlock = false; // of the main queue

// Blocks whose instant has come go behind the others.
void takeDueBlocks(Pending& all, double now)
{
    while (!all.blocksAt.empty() && all.blocksAt.begin()->first <= now) {
        all.calls.push_back({std::move(all.blocksAt.begin()->second), true});
        all.blocksAt.erase(all.blocksAt.begin());
    }
}

// The first call that may run now, of the first `count` ones; those before it
// stay.
Call takeCall(std::size_t& count)
{
    Pending& all = pending();
    const std::lock_guard guard(all.lock);
    count = std::min(count, all.calls.size());
    const auto end = all.calls.begin() + static_cast<std::ptrdiff_t>(count);
    const auto found =
        std::find_if(all.calls.begin(), end, [](const Call& call) { return !(call.isBlock && g_insideBlock); });
    if (found == end) {
        count = 0;
        return {};
    }
    Call taken = std::move(*found);
    all.calls.erase(found);
    --count;
    return taken;
}

void run(Call& call)
{
    const bool before = std::exchange(g_insideBlock, g_insideBlock || call.isBlock);
    call.run();
    g_insideBlock = before;
}

// What is pending now, not what these calls add.
bool runCalls()
{
    std::size_t count = 0;
    {
        const std::lock_guard guard(pending().lock);
        takeDueBlocks(pending(), substitute::now());
        count = pending().calls.size();
    }
    bool any = false;
    while (count > 0) {
        @autoreleasepool {
            Call call = takeCall(count);
            if (!call.run)
                break;
            run(call);
            any = true;
        }
    }
    return any;
}

bool runDue(NSString* mode)
{
    bool any = false;
    @autoreleasepool {
        any = substitute::isCommonMode(mode) && runCalls();
        any = substitute::fireTimers(mode) || any;
        any = substitute::performSources(mode) || any;
    }
    return any;
}

double nextBlock(NSString* mode)
{
    if (!substitute::isCommonMode(mode) || g_insideBlock)
        return kNever;
    const std::lock_guard guard(pending().lock);
    return pending().blocksAt.empty() ? kNever : pending().blocksAt.begin()->first;
}

} // namespace

namespace substitute {

bool isMain() { return pthread_equal(pthread_self(), g_main); }

void demandMain(const char* what)
{
    if (!isMain())
        raise("%s off the main thread", what);
}

void wake() { clock().wake(); }

void onMain(std::function<void()> call)
{
    if (const Backing* behind = backing()) {
        behind->adapters.runLoop.post(taskOf(std::move(call)));
        return;
    }
    {
        const std::lock_guard guard(pending().lock);
        pending().calls.push_back({std::move(call), false});
    }
    wake();
}

void onMainQueue(std::function<void()> block)
{
    if (backing()) {
        onMain(std::move(block));
        return;
    }
    {
        const std::lock_guard guard(pending().lock);
        pending().calls.push_back({std::move(block), true});
    }
    wake();
}

void onMainQueueAt(double instant, std::function<void()> block)
{
    if (const Backing* behind = backing()) {
        behind->adapters.runLoop.postAfter(haloric::Seconds(instant - now()), taskOf(std::move(block)));
        return;
    }
    {
        const std::lock_guard guard(pending().lock);
        pending().blocksAt.emplace(instant, std::move(block));
    }
    wake();
}

std::size_t pendingCalls()
{
    const std::lock_guard guard(pending().lock);
    return pending().calls.size() + pending().blocksAt.size();
}

bool turn(NSString* mode, double limit)
{
    demandMain("the main run loop");
    while (!runDue(mode)) {
        const double now = substitute::now();
        if (now >= limit)
            return false;
        const double due = std::min(nextTimer(mode), nextBlock(mode));
        if (due > now)
            clock().waitUntil(std::min(limit, due));
    }
    return true;
}

void turnUntilIdle()
{
    while (turn(NSDefaultRunLoopMode, now())) {
    }
}

} // namespace substitute

@implementation NSRunLoop

+ (NSRunLoop*)mainRunLoop
{
    static NSRunLoop* const one = substitute::permanent([] { return [[NSRunLoop alloc] init]; });
    return one;
}

+ (NSRunLoop*)currentRunLoop
{
    substitute::demandMain("+[NSRunLoop currentRunLoop]");
    return [self mainRunLoop];
}

// runMode:beforeDate: returns NO at once if the mode has no timer and no
// source.
- (BOOL)runMode:(NSRunLoopMode)mode beforeDate:(NSDate*)date
{
    if (!substitute::isCommonMode(mode) && !substitute::hasTimers(mode) && !substitute::hasSources(mode))
        return NO;
    substitute::turn(mode, substitute::now() + date.timeIntervalSinceNow);
    return YES;
}

@end
