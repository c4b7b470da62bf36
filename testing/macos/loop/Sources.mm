#include "loop/Sources.h"

#include "foundation/Balance.h"
#include "loop/MainLoop.h"
#include "loop/Modes.h"
#include "world/Backing.h"

#import <CoreFoundation/CoreFoundation.h>

#include <algorithm>
#include <atomic>
#include <vector>

using substitute::demandMain;
using substitute::raise;

namespace {

struct Entry {
    RTSource* source;
    substitute::Modes modes;
};

// The loop retains them.
std::vector<Entry>& entries()
{
    static auto* const all = new std::vector<Entry>;
    return *all;
}

const substitute::Counted counted("sources on the run loop", [] { return static_cast<long>(entries().size()); });

Entry* find(RTSource* source)
{
    const auto found = std::ranges::find(entries(), source, &Entry::source);
    return found == entries().end() ? nullptr : &*found;
}

bool isOn(RTSource* source, NSString* mode)
{
    const Entry* entry = find(source);
    return entry && source->valid && entry->modes.contains(mode);
}

// Serves its signals. True if there was one.
bool performSignals(RTSource* source, NSString* mode)
{
    bool any = false;
    while (isOn(source, mode) && [source takeSignal]) {
        const std::function<void()> perform = source->perform;
        if (perform)
            perform();
        any = true;
    }
    return any;
}

RTSource* sourceFrom(CFRunLoopSourceRef source, const char* caller)
{
    if (!source)
        raise("%s: the source is null", caller);
    return (__bridge RTSource*)(void*)source;
}

} // namespace

@implementation RTSource {
    std::atomic<int> _signals;
}

- (instancetype)init
{
    if ((self = [super init]))
        valid = true;
    return self;
}

- (void)signal
{
    ++_signals;
    if (!substitute::backing()) {
        substitute::wake();
        return;
    }
    RTSource* const kept = self;
    substitute::onMain([kept] { performSignals(kept, NSDefaultRunLoopMode); });
}

- (BOOL)pending
{
    return _signals > 0;
}

- (BOOL)takeSignal
{
    if (_signals == 0)
        return NO;
    --_signals;
    return YES;
}

@end

namespace substitute {

bool hasSources(NSString* mode)
{
    return std::ranges::any_of(entries(), [mode](const Entry& entry) { return entry.modes.contains(mode); });
}

bool performSources(NSString* mode)
{
    bool any = false;
    std::vector<RTSource*> all;
    for (const Entry& entry : entries())
        all.push_back(entry.source);
    for (RTSource* source : all)
        any = performSignals(source, mode) || any;
    return any;
}

} // namespace substitute

extern "C" {

CFRunLoopRef CFRunLoopGetMain() { return (__bridge CFRunLoopRef)NSRunLoop.mainRunLoop; }

// Core Foundation allows both on any thread. Strict: the host promises the main
// one.
void CFRunLoopAddSource(CFRunLoopRef, CFRunLoopSourceRef source, CFRunLoopMode mode)
{
    demandMain("CFRunLoopAddSource");
    RTSource* const one = sourceFrom(source, "CFRunLoopAddSource");
    const bool isNew = !find(one);
    if (isNew)
        entries().push_back({one, {}});
    find(one)->modes.add((__bridge NSString*)mode);
    if (isNew && one->placed)
        one->placed(true);
    substitute::wake();
}

void CFRunLoopRemoveSource(CFRunLoopRef, CFRunLoopSourceRef source, CFRunLoopMode mode)
{
    demandMain("CFRunLoopRemoveSource");
    RTSource* const one = sourceFrom(source, "CFRunLoopRemoveSource");
    Entry* const entry = find(one);
    if (!entry)
        return;
    entry->modes.remove((__bridge NSString*)mode);
    if (!entry->modes.isEmpty())
        return;
    std::erase_if(entries(), [one](const Entry& each) { return each.source == one; });
    if (one->placed)
        one->placed(false);
}

} // extern "C"
