// Dispatch queues: the main queue, and serial queues with a thread each.
#include "foundation/Balance.h"
#include "loop/MainLoop.h"
#include "platform/SerialQueue.h"
#include "world/Backing.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

#include <dispatch/dispatch.h>

using substitute::raise;

extern "C" void* objc_autoreleasePoolPush();
extern "C" void objc_autoreleasePoolPop(void*);

@interface RTQueue : NSObject <OS_dispatch_queue> {
@public
    std::string label;
    bool isMain;
}
- (void)put:(std::function<void()>)call;
- (void)runNow:(dispatch_block_t)block;
@end

@implementation RTQueue {
    std::mutex _lock;
    std::condition_variable _changed;
    std::deque<std::function<void()>> _work;
    std::thread _thread;
    bool _ends;
    bool _runsInline;                              // a call, without threads
    std::unique_ptr<haloric::SerialQueue> _behind; // with a backing: says when calls run
}

- (void)start
{
    // The thread has the queue by a bare pointer: dealloc joins it.
    RTQueue* __unsafe_unretained me = self;
    _thread = std::thread([me] {
        void* pool = objc_autoreleasePoolPush(); // a queue's own pool is drained at
                                                 // no certain time
        while (std::function<void()> call = [me take])
            call();
        objc_autoreleasePoolPop(pool);
    });
}

- (std::function<void()>)take
{
    std::unique_lock guard(_lock);
    _changed.wait(guard, [&] { return _ends || !_work.empty(); });
    if (_work.empty())
        return {};
    std::function<void()> call = std::move(_work.front());
    _work.pop_front();
    return call;
}

- (void)put:(std::function<void()>)call
{
    if (isMain) {
        substitute::onMainQueue(std::move(call));
        return;
    }
    {
        const std::lock_guard guard(_lock);
        _work.push_back(std::move(call));
        if (substitute::clock().hasThreads()) {
            if (!_thread.joinable())
                [self start];
        } else {
            [self runOneLater];
        }
    }
    _changed.notify_all();
}

// Without threads.
- (void)runOneLater
{
    const substitute::Backing* backing = substitute::backing();
    if (!backing) {
        RTQueue* const kept = self;
        substitute::onMain([kept] { [kept runOneInline]; });
        return;
    }
    if (!_behind)
        _behind = backing->adapters.serialQueues.make(label, haloric::QualityOfService::userInitiated);
    RTQueue* __weak queue = self; // which owns the queue behind, and dispatch_sync may have run the call
    _behind->async([queue] { [queue runOneInline]; });
}

// Without threads.
- (bool)runOneInline
{
    std::function<void()> call;
    {
        const std::lock_guard guard(_lock);
        if (_work.empty() || _runsInline) // dispatch_sync has run it, or the loop
                                          // runs inside a call of this queue
            return false;
        call = std::move(_work.front());
        _work.pop_front();
    }
    _runsInline = true;
    @autoreleasepool {
        call();
    }
    _runsInline = false;
    return true;
}

// dispatch_sync: behind everything that was submitted before.
- (void)runNow:(dispatch_block_t)block
{
    if (isMain)
        raise("dispatch_sync on the main queue: the host never waits for it");
    if (_runsInline || (_thread.joinable() && _thread.get_id() == std::this_thread::get_id()))
        raise("BUG IN CLIENT OF LIBDISPATCH: dispatch_sync called on queue already "
              "owned by current thread");
    if (!substitute::clock().hasThreads()) {
        while ([self runOneInline]) {
        }
        block();
        return;
    }
    std::mutex lock;
    std::condition_variable changed;
    bool done = false;
    dispatch_block_t __unsafe_unretained call = block; // it does not escape: this waits for it
    [self put:[&] {
        call();
        const std::lock_guard guard(lock);
        done = true;
        changed.notify_all();
    }];
    std::unique_lock guard(lock);
    changed.wait(guard, [&] { return done; });
}

- (void)dealloc
{
    {
        const std::lock_guard guard(_lock);
        _ends = true;
    }
    _changed.notify_all();
    if (!_thread.joinable())
        return;
    if (_thread.get_id() == std::this_thread::get_id())
        _thread.detach();
    else
        _thread.join();
}

@end

namespace {

RTQueue* queueFrom(dispatch_queue_t queue, const char* caller)
{
    if (!queue)
        raise("%s: the queue is null", caller);
    return (RTQueue*)queue;
}

// The block as a call that releases it on the queue, right after it has run.
std::function<void()> callOf(dispatch_block_t block)
{
    struct Kept {
        dispatch_block_t block;
    };
    const auto kept = std::make_shared<Kept>(Kept{[block copy]});
    return [kept] {
        const dispatch_block_t running = std::exchange(kept->block, nil);
        running();
    };
}

} // namespace

extern "C" {

dispatch_queue_t dispatch_get_main_queue()
{
    static RTQueue* const one = substitute::permanent([] {
        RTQueue* made = [[RTQueue alloc] init];
        made->isMain = true;
        made->label = "com.apple.main-thread";
        return made;
    });
    return one;
}

dispatch_queue_attr_t dispatch_queue_attr_make_with_qos_class(dispatch_queue_attr_t attributes, dispatch_qos_class_t,
                                                              int)
{
    return attributes; // the class of service changes no result
}

dispatch_queue_t dispatch_queue_create(const char* label, dispatch_queue_attr_t attributes)
{
    if (attributes != DISPATCH_QUEUE_SERIAL)
        raise("dispatch_queue_create: only serial queues are implemented");
    RTQueue* const made = [[RTQueue alloc] init];
    made->label = label ? label : "";
    return made;
}

// dispatch_async: the queue is retained until the block has run.
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block)
{
    RTQueue* const target = queueFrom(queue, "dispatch_async");
    if (!block)
        raise("dispatch_async: the block is null");
    if (target->isMain) {
        [target put:callOf(block)];
        return;
    }
    const CFTypeRef reference = CFBridgingRetain(target);
    [target put:[call = callOf(block), reference] {
        call();
        CFRelease(reference);
    }];
}

void dispatch_sync(dispatch_queue_t queue, dispatch_block_t __attribute__((noescape)) block)
{
    [queueFrom(queue, "dispatch_sync") runNow:block];
}

dispatch_time_t dispatch_time(dispatch_time_t when, int64_t delta)
{
    const auto start = when == DISPATCH_TIME_NOW ? static_cast<dispatch_time_t>(substitute::now() * 1e9) : when;
    return start + static_cast<dispatch_time_t>(delta);
}

void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block)
{
    if (!queueFrom(queue, "dispatch_after")->isMain)
        raise("dispatch_after: only the main queue is implemented");
    if (!block)
        raise("dispatch_after: the block is null");
    substitute::onMainQueueAt(static_cast<double>(when) * 1e-9, callOf(block));
}

} // extern "C"
