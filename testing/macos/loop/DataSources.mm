// Dispatch sources that add up data, on the main queue.
#include "loop/MainLoop.h"

#include <mutex>
#include <utility>

#include <dispatch/dispatch.h>

using substitute::raise;

@interface RTDataSource : NSObject <OS_dispatch_source>
- (void)setHandler:(dispatch_block_t)handler;
- (void)add:(uintptr_t)value;
- (uintptr_t)data;
- (void)resume;
- (void)cancel;
@end

@implementation RTDataSource {
    std::mutex _lock;
    uintptr_t _added;     // since the last call of the handler
    uintptr_t _delivered; // to the handler that runs
    bool _running;
    bool _cancelled;
    bool _scheduled;
    dispatch_block_t _handler;
}

// Values that are merged before the handler runs are added up, and it runs once
// for them (DISPATCH_SOURCE_TYPE_DATA_ADD). The lock is held.
- (void)schedule
{
    if (!_running || _cancelled || _added == 0 || _scheduled)
        return;
    _scheduled = true;
    RTDataSource* const kept = self;
    substitute::onMainQueue([kept] { [kept deliver]; });
}

- (void)deliver
{
    dispatch_block_t __unsafe_unretained calling = nil; // strict: a handler that cancels its source ends itself
    {
        const std::lock_guard guard(_lock);
        _scheduled = false;
        if (_cancelled || !_running)
            return;
        _delivered = std::exchange(_added, 0);
        calling = _handler;
    }
    if (calling)
        calling();
}

- (void)setHandler:(dispatch_block_t)handler
{
    const std::lock_guard guard(_lock);
    _handler = [handler copy];
}

- (void)add:(uintptr_t)value
{
    const std::lock_guard guard(_lock);
    _added += value;
    [self schedule];
}

- (uintptr_t)data
{
    const std::lock_guard guard(_lock);
    return _delivered;
}

// A source is created inactive (dispatch_source_create).
- (void)resume
{
    const std::lock_guard guard(_lock);
    if (_running)
        raise("BUG IN CLIENT OF LIBDISPATCH: Over-resume of an object");
    _running = true;
    [self schedule];
}

// dispatch_source_cancel: no further call of the handler, which is released;
// one that runs is not interrupted. Strict: it is released at once, even when
// it runs.
- (void)cancel
{
    dispatch_block_t released = nil; // outside the lock
    const std::lock_guard guard(_lock);
    _cancelled = true;
    std::swap(released, _handler);
}

- (void)dealloc
{
    if (!_running)
        raise("BUG IN CLIENT OF LIBDISPATCH: Release of an inactive object");
}

@end

struct dispatch_source_type_s {
    int kind;
};

namespace {

RTDataSource* sourceFrom(id source, const char* caller)
{
    if (!source)
        raise("%s: the source is null", caller);
    return (RTDataSource*)source;
}

} // namespace

extern "C" {

const struct dispatch_source_type_s _dispatch_source_type_data_add = {1};

dispatch_source_t dispatch_source_create(dispatch_source_type_t type, uintptr_t, uintptr_t, dispatch_queue_t queue)
{
    if (type != DISPATCH_SOURCE_TYPE_DATA_ADD || queue != dispatch_get_main_queue())
        raise("dispatch_source_create: only sources that add data, on the main "
              "queue, are implemented");
    return [[RTDataSource alloc] init];
}

void dispatch_source_set_event_handler(dispatch_source_t source, dispatch_block_t handler)
{
    [sourceFrom(source, "dispatch_source_set_event_handler") setHandler:handler];
}

void dispatch_source_merge_data(dispatch_source_t source, uintptr_t value)
{
    [sourceFrom(source, "dispatch_source_merge_data") add:value];
}

uintptr_t dispatch_source_get_data(dispatch_source_t source)
{
    return [sourceFrom(source, "dispatch_source_get_data") data];
}

void dispatch_source_cancel(dispatch_source_t source) { [sourceFrom(source, "dispatch_source_cancel") cancel]; }

void dispatch_resume(dispatch_object_t object) { [sourceFrom(object, "dispatch_resume") resume]; }

} // extern "C"
