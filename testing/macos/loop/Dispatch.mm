// Dispatch queues and sources.
#include "loop/MainLoop.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
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
    std::mutex lock;
    std::condition_variable changed;
    std::deque<std::function<void()>> work;
    std::thread thread;
    bool ends, main;
    std::string label;
}
@end
@implementation RTQueue
- (void)start
{
    // The thread keeps the queue by a bare pointer: dealloc joins it.
    RTQueue* __unsafe_unretained me = self;
    thread = std::thread([me] {
        void* pool = objc_autoreleasePoolPush(); // drained at no certain time
        for (;;) {
            std::function<void()> call;
            {
                std::unique_lock guard(me->lock);
                me->changed.wait(guard, [&] { return me->ends || !me->work.empty(); });
                if (me->work.empty())
                    break;
                call = std::move(me->work.front());
                me->work.pop_front();
            }
            call();
        }
        objc_autoreleasePoolPop(pool);
    });
}
- (void)put:(std::function<void()>)call
{
    if (main) {
        substitute::onMain(std::move(call));
        return;
    }
    {
        const std::lock_guard guard(lock);
        if (!thread.joinable())
            [self start];
        work.push_back(std::move(call));
    }
    changed.notify_all();
}
- (void)dealloc
{
    {
        const std::lock_guard guard(lock);
        ends = true;
    }
    changed.notify_all();
    if (thread.joinable()) {
        if (thread.get_id() == std::this_thread::get_id())
            thread.detach();
        else
            thread.join();
    }
}
@end

@interface RTDataSource : NSObject <OS_dispatch_source> {
@public
    std::mutex lock;
    uintptr_t data;
    bool running, cancelled, scheduled;
    dispatch_block_t handler;
}
@end
@implementation RTDataSource
- (void)schedule
{ // locked
    if (!running || cancelled || !data || scheduled)
        return;
    scheduled = true;
    RTDataSource* me = self;
    substitute::onMain([me] {
        dispatch_block_t __unsafe_unretained calling = nil;
        {
            const std::lock_guard guard(me->lock);
            me->scheduled = false;
            if (me->cancelled || !me->running)
                return;
            me->data = 0;
            calling = me->handler;
        }
        if (calling)
            calling();
    });
}
- (void)dealloc
{
    if (!running)
        raise("BUG IN CLIENT OF LIBDISPATCH: Release of an inactive object");
}
@end

extern "C" {
struct dispatch_source_type_s {
    int kind;
};
const struct dispatch_source_type_s _dispatch_source_type_data_add = {1};

dispatch_queue_t dispatch_get_main_queue()
{
    static RTQueue* const one = [] {
        RTQueue* made = [[RTQueue alloc] init];
        made->main = true;
        return made;
    }();
    return one;
}
dispatch_queue_t dispatch_get_global_queue(intptr_t, uintptr_t)
{
    static RTQueue* const one = [[RTQueue alloc] init];
    return one;
}
dispatch_queue_attr_t dispatch_queue_attr_make_with_qos_class(dispatch_queue_attr_t attr, dispatch_qos_class_t, int)
{
    return attr;
}
dispatch_queue_t dispatch_queue_create(const char* label, dispatch_queue_attr_t)
{
    RTQueue* made = [[RTQueue alloc] init];
    made->label = label ? label : "";
    return made;
}
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block)
{
    if (!queue || !block)
        raise("dispatch_async: null");
    // The block is given back on the queue, right after it has run.
    struct Keep {
        dispatch_block_t block;
    };
    auto keep = std::make_shared<Keep>(Keep{[block copy]});
    RTQueue* kept = (RTQueue*)queue;
    if (kept->main)
        [kept put:[keep] {
            auto running = std::move(keep->block);
            running();
        }];
    else { // the queue lives until its blocks have run
        CFTypeRef reference = CFBridgingRetain(kept);
        [kept put:[keep, reference] {
            keep->block();
            keep->block = nil;
            CFRelease(reference);
        }];
    }
}
void dispatch_sync(dispatch_queue_t queue, dispatch_block_t __attribute__((noescape)) block)
{
    RTQueue* kept = (RTQueue*)queue;
    if (kept->thread.joinable() && kept->thread.get_id() == std::this_thread::get_id())
        raise("BUG IN CLIENT OF LIBDISPATCH: dispatch_sync called on queue already owned by current thread");
    if (kept->main)
        raise("dispatch_sync on the main queue");
    std::mutex m;
    std::condition_variable c;
    bool done = false;
    dispatch_block_t __unsafe_unretained call = block;
    [kept put:[&] {
        call();
        {
            const std::lock_guard guard(m);
            done = true;
            c.notify_all();
        }
    }];
    std::unique_lock guard(m);
    c.wait(guard, [&] { return done; });
}
dispatch_time_t dispatch_time(dispatch_time_t when, int64_t delta)
{
    return (when ? when : static_cast<dispatch_time_t>(substitute::now() * 1e9)) + delta;
}
void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block)
{
    // One thread keeps the time for all; equal times go in the order of the calls.
    struct Clock {
        std::mutex lock;
        std::condition_variable changed;
        std::multimap<dispatch_time_t, std::pair<dispatch_queue_t, dispatch_block_t>> waiting;
        Clock()
        {
            std::thread([this] {
                std::unique_lock guard(lock);
                for (;;) {
                    const auto at = static_cast<dispatch_time_t>(substitute::now() * 1e9);
                    while (!waiting.empty() && waiting.begin()->first <= at) {
                        @autoreleasepool {
                            auto one = std::move(waiting.begin()->second);
                            waiting.erase(waiting.begin());
                            dispatch_async(one.first, one.second);
                        }
                    }
                    if (waiting.empty())
                        changed.wait(guard);
                    else
                        changed.wait_for(guard, std::chrono::nanoseconds(waiting.begin()->first - at));
                }
            }).detach();
        }
    };
    static auto* clock = new Clock;
    {
        const std::lock_guard guard(clock->lock);
        clock->waiting.emplace(when, std::pair{queue, (dispatch_block_t)[block copy]});
    }
    clock->changed.notify_all();
}
dispatch_source_t dispatch_source_create(dispatch_source_type_t type, uintptr_t, uintptr_t, dispatch_queue_t queue)
{
    if (type != &_dispatch_source_type_data_add || !((RTQueue*)queue)->main)
        raise("dispatch_source_create: only data-add sources on the main queue are there");
    return [[RTDataSource alloc] init];
}
void dispatch_source_set_event_handler(dispatch_source_t source, dispatch_block_t handler)
{
    ((RTDataSource*)source)->handler = [handler copy];
}
void dispatch_source_merge_data(dispatch_source_t source, uintptr_t value)
{
    RTDataSource* one = (RTDataSource*)source;
    const std::lock_guard guard(one->lock);
    one->data += value;
    [one schedule];
}
void dispatch_source_cancel(dispatch_source_t source)
{
    RTDataSource* one = (RTDataSource*)source;
    dispatch_block_t gone = nil;
    const std::lock_guard guard(one->lock);
    one->cancelled = true;
    std::swap(gone, one->handler); // the system lets go of it, even when it is running
}
void dispatch_resume(dispatch_object_t object)
{
    RTDataSource* one = (RTDataSource*)object;
    const std::lock_guard guard(one->lock);
    if (one->running)
        raise("BUG IN CLIENT OF LIBDISPATCH: Over-resume of an object");
    one->running = true;
    [one schedule];
}
}
