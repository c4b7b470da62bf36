// Display links of screens and of Core Video.
#include "loop/DisplayLinks.h"
#include "loop/MainLoop.h"
#include "macos/support/ManualClock.h"
#include "macos/support/Probe.h"

#import <CoreVideo/CoreVideo.h>

#include <gtest/gtest.h>

#include <atomic>

namespace haloric {
namespace {

constexpr CGDirectDisplayID kDisplay = 1;

void run(double seconds)
{
    const double end = substitute::now() + seconds;
    while (substitute::turn(NSDefaultRunLoopMode, end)) {
    }
}

TEST(ScreenLinks, a_link_ticks_on_the_loop_and_keeps_its_target_until_it_is_invalidated)
{
    ManualClock clock;
    int ended = 0;
    @autoreleasepool {
        Probe* target = [Probe countingIn:&ended];
        Probe* __weak weak = target;
        CADisplayLink* link = substitute::makeScreenLink(target, @selector(tick:));
        target = nil;
        [link addToRunLoop:NSRunLoop.mainRunLoop forMode:NSRunLoopCommonModes];
        run(0.505);
        @autoreleasepool {
            EXPECT_EQ([weak number], 30);
        }
        EXPECT_EQ(ended, 0);
        [link invalidate];
        EXPECT_EQ(ended, 1);
    }
}

TEST(VideoLinks, a_link_calls_its_handler_on_a_thread_until_it_is_stopped)
{
    std::atomic<int> frames{0};
    std::atomic<int>* const count = &frames;
    CVDisplayLinkRef link = nullptr;
    ASSERT_EQ(CVDisplayLinkCreateWithCGDisplay(kDisplay, &link), kCVReturnSuccess);
    CVDisplayLinkSetOutputHandler(
        link, ^(CVDisplayLinkRef, const CVTimeStamp*, const CVTimeStamp*, CVOptionFlags, CVOptionFlags*) {
          if (++*count == 2)
              substitute::onMain([] {});
          return kCVReturnSuccess;
        });
    EXPECT_EQ(CVDisplayLinkStart(link), kCVReturnSuccess);
    EXPECT_EQ(CVDisplayLinkStart(link), kCVReturnDisplayLinkAlreadyRunning);
    EXPECT_TRUE(substitute::turn(NSDefaultRunLoopMode, substitute::now() + 60));
    EXPECT_EQ(CVDisplayLinkStop(link), kCVReturnSuccess);
    EXPECT_EQ(CVDisplayLinkStop(link), kCVReturnDisplayLinkNotRunning);
    EXPECT_GE(frames, 2);
    CFRelease(link);
}

TEST(VideoLinks, without_threads_the_handler_runs_on_the_main_loop)
{
    ManualClock clock;
    __block int frames = 0;
    CVDisplayLinkRef link = nullptr;
    ASSERT_EQ(CVDisplayLinkCreateWithCGDisplay(kDisplay, &link), kCVReturnSuccess);
    CVDisplayLinkSetOutputHandler(
        link, ^(CVDisplayLinkRef, const CVTimeStamp*, const CVTimeStamp*, CVOptionFlags, CVOptionFlags*) {
          ++frames;
          return kCVReturnSuccess;
        });
    CVDisplayLinkStart(link);
    run(0.505);
    CVDisplayLinkStop(link);
    EXPECT_EQ(frames, 30);
    CFRelease(link);
}

TEST(VideoLinks, a_display_that_is_gone_has_no_link)
{
    CVDisplayLinkRef link = nullptr;
    EXPECT_NE(CVDisplayLinkCreateWithCGDisplay(99, &link), kCVReturnSuccess);
    EXPECT_EQ(link, nullptr);
}

} // namespace
} // namespace haloric
