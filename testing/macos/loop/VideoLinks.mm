// Display links of Core Video, each on a thread.
#include "platform/VideoLinks.h"
#include "foundation/Balance.h"
#include "loop/DisplayLinks.h"
#include "loop/MainLoop.h"
#include "world/Backing.h"

#import <CoreVideo/CoreVideo.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>

using substitute::raise;

namespace {

std::atomic<long> g_running{0};
const substitute::Counted counted("video links that run", [] { return g_running.load(); });

} // namespace

@interface RTVideoLink : NSObject {
@public
    CVDisplayLinkOutputHandler handler;
    std::atomic<bool> runs;
    std::unique_ptr<haloric::VideoDisplayLink> behind; // with a backing
}
- (CVReturn)start;
- (CVReturn)stop;
@end

@implementation RTVideoLink {
    std::thread _thread;
    std::mutex _lock;
    std::condition_variable _stopped;
    NSTimer* _timer; // in place of the thread, if the clock has none
}

- (CVReturn)output
{
    @autoreleasepool {
        CVOptionFlags out = 0;
        return handler((__bridge CVDisplayLinkRef)self, nullptr, nullptr, 0, &out);
    }
}

- (void)runThread
{
    RTVideoLink* __unsafe_unretained me = self; // stop joins the thread
    _thread = std::thread([me] {
        const std::chrono::duration<double> frame(1 / substitute::framesPerSecond);
        while (me->runs) {
            [me output];
            std::unique_lock guard(me->_lock);
            me->_stopped.wait_for(guard, frame, [me] { return !me->runs; });
        }
    });
}

- (void)runTimer
{
    RTVideoLink* __unsafe_unretained me = self;
    _timer = [NSTimer timerWithTimeInterval:1 / substitute::framesPerSecond
                                    repeats:YES
                                      block:^(NSTimer*) {
                                        [me output];
                                      }];
    [NSRunLoop.mainRunLoop addTimer:_timer forMode:NSRunLoopCommonModes];
}

- (CVReturn)startBehind
{
    RTVideoLink* __unsafe_unretained me = self; // which owns the link behind
    behind->setOutputHandler([me] { return static_cast<std::int32_t>([me output]); });
    return behind->start() ? kCVReturnSuccess : kCVReturnError;
}

- (CVReturn)start
{
    if (!handler)
        return kCVReturnDisplayLinkCallbacksNotSet;
    if (runs.exchange(true))
        return kCVReturnDisplayLinkAlreadyRunning;
    ++g_running;
    if (behind)
        return [self startBehind];
    if (substitute::clock().hasThreads())
        [self runThread];
    else
        [self runTimer];
    return kCVReturnSuccess;
}

- (CVReturn)stop
{
    {
        const std::lock_guard guard(_lock);
        if (!runs.exchange(false))
            return kCVReturnDisplayLinkNotRunning;
    }
    --g_running;
    _stopped.notify_all();
    if (behind)
        behind->stop();
    [_timer invalidate];
    _timer = nil;
    if (!_thread.joinable())
        return kCVReturnSuccess;
    if (_thread.get_id() == std::this_thread::get_id())
        raise("CVDisplayLinkStop in the link's own output handler");
    _thread.join();
    return kCVReturnSuccess;
}

- (void)dealloc
{
    if (runs)
        raise("a display link is released while it runs");
}

@end

namespace {

RTVideoLink* linkFrom(CVDisplayLinkRef link, const char* caller)
{
    if (!link)
        raise("%s: the link is null", caller);
    return (__bridge RTVideoLink*)(void*)link;
}

} // namespace

extern "C" {

CVReturn CVDisplayLinkCreateWithCGDisplay(CGDirectDisplayID display, CVDisplayLinkRef* made)
{
    RTVideoLink* const link = [[RTVideoLink alloc] init];
    const substitute::Backing* backing = substitute::backing();
    if (backing)
        link->behind = backing->videoLinks.makeVideoLink(haloric::DisplayID{display});
    if (backing ? !link->behind : !substitute::knowsDisplay(display))
        return kCVReturnInvalidDisplay;
    *made = (CVDisplayLinkRef)CFBridgingRetain(link);
    return kCVReturnSuccess;
}

CVReturn CVDisplayLinkSetOutputHandler(CVDisplayLinkRef link, CVDisplayLinkOutputHandler handler)
{
    RTVideoLink* const one = linkFrom(link, "CVDisplayLinkSetOutputHandler");
    if (one->runs)
        raise("CVDisplayLinkSetOutputHandler: the link runs");
    one->handler = [(id)handler copy];
    return kCVReturnSuccess;
}

CVReturn CVDisplayLinkStart(CVDisplayLinkRef link) { return [linkFrom(link, "CVDisplayLinkStart") start]; }

CVReturn CVDisplayLinkStop(CVDisplayLinkRef link) { return [linkFrom(link, "CVDisplayLinkStop") stop]; }

} // extern "C"
