// Display links of Core Video, each on a thread.
#include "foundation/Balance.h"
#include "loop/DisplayLinks.h"
#include "loop/MainLoop.h"

#import <CoreVideo/CoreVideo.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
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

- (void)output
{
    @autoreleasepool {
        CVOptionFlags out = 0;
        handler((__bridge CVDisplayLinkRef)self, nullptr, nullptr, 0, &out);
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

- (CVReturn)start
{
    if (!handler)
        return kCVReturnDisplayLinkCallbacksNotSet;
    if (runs.exchange(true))
        return kCVReturnDisplayLinkAlreadyRunning;
    ++g_running;
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
    if (!substitute::knowsDisplay(display))
        return kCVReturnInvalidDisplay;
    *made = (CVDisplayLinkRef)CFBridgingRetain([[RTVideoLink alloc] init]);
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
