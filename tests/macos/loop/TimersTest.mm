// Timers and the modes of the run loop, on a clock that the tests move.
#include "loop/Timers.h"
#include "loop/MainLoop.h"
#include "loop/Sources.h"
#include "macos/support/ManualClock.h"
#include "macos/support/Probe.h"

#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace haloric {
namespace {

class Timers : public testing::Test {
protected:
    ~Timers() override { substitute::setTimerLateness(0); }

    NSTimer* add(double interval, BOOL repeats, void (^block)(NSTimer*), NSRunLoopMode mode = NSRunLoopCommonModes)
    {
        NSTimer* timer = [NSTimer timerWithTimeInterval:interval repeats:repeats block:block];
        [NSRunLoop.mainRunLoop addTimer:timer forMode:mode];
        return timer;
    }

    // In the mode, for this many seconds.
    void run(double seconds, NSString* mode = NSDefaultRunLoopMode)
    {
        const double end = clock.now() + seconds;
        while (substitute::turn(mode, end)) {
        }
    }

    ManualClock clock;
    const double start = clock.now();
};

TEST_F(Timers, a_timer_fires_once_at_its_date_and_leaves_the_loop)
{
    int ended = 0;
    __block double fired = 0;
    @autoreleasepool {
        Probe* captured = [Probe countingIn:&ended];
        NSTimer* timer = add(0.5, NO, ^(NSTimer* own) {
          fired = clock.now() - start;
          EXPECT_TRUE(own.valid);
          (void)captured;
        });
        captured = nil;
        run(2);
        EXPECT_FALSE(timer.valid);
    }
    EXPECT_DOUBLE_EQ(fired, 0.5);
    EXPECT_EQ(ended, 1);
}

TEST_F(Timers, a_repeating_timer_keeps_to_its_first_date)
{
    __block std::vector<double> times;
    NSTimer* timer = add(1, YES, ^(NSTimer*) {
      times.push_back(clock.now() - start);
      if (times.size() == 2)
          clock.pass(0.4); // late work moves no date
    });
    run(4.5);
    [timer invalidate];
    EXPECT_EQ(times, (std::vector<double>{1, 2, 3, 4}));
}

TEST_F(Timers, firings_that_were_missed_are_skipped)
{
    __block std::vector<double> times;
    NSTimer* timer = add(1, YES, ^(NSTimer*) {
      times.push_back(clock.now() - start);
    });
    clock.pass(3.25);
    run(2);
    [timer invalidate];
    EXPECT_EQ(times, (std::vector<double>{3.25, 4, 5}));
}

TEST_F(Timers, a_timer_that_invalidates_itself_releases_its_block_at_once)
{
    int ended = 0;
    int* const whenEnded = &ended;
    @autoreleasepool {
        Probe* captured = [Probe countingIn:&ended];
        add(0.1, YES, ^(NSTimer* own) {
          (void)captured;
          int* const count = whenEnded; // the block, and what it captures, ends in the next line
          [own invalidate];
          EXPECT_EQ(*count, 1);
        });
        captured = nil;
    }
    run(1);
    EXPECT_EQ(ended, 1);
}

TEST_F(Timers, an_earlier_timer_can_invalidate_a_later_one_of_the_same_turn)
{
    __block NSTimer* second = nil;
    __block int fired = 0;
    add(0.1, NO, ^(NSTimer*) {
      [second invalidate];
    });
    second = add(0.1, NO, ^(NSTimer*) {
      ++fired;
    });
    clock.pass(1);
    run(1);
    EXPECT_EQ(fired, 0);
    second = nil;
}

TEST_F(Timers, equal_dates_fire_in_the_order_of_creation)
{
    __block std::string order;
    for (const char* name : {"a", "b", "c"})
        add(0.1, NO, ^(NSTimer*) {
          order += name;
        });
    run(1);
    EXPECT_EQ(order, "abc");
}

TEST_F(Timers, an_interval_of_zero_is_a_ten_thousandth_of_a_second)
{
    __block double fired = 0;
    add(0, NO, ^(NSTimer*) {
      fired = clock.now() - start;
    });
    run(1);
    EXPECT_NEAR(fired, 0.0001, 1e-9);
}

TEST_F(Timers, the_tolerance_delays_a_firing_but_no_later_date)
{
    substitute::setTimerLateness(1);
    __block std::vector<double> times;
    NSTimer* timer = add(1, YES, ^(NSTimer*) {
      times.push_back(clock.now() - start);
    });
    timer.tolerance = 0.25;
    run(3.5);
    [timer invalidate];
    EXPECT_EQ(times, (std::vector<double>{1.25, 2.25, 3.25}));
}

TEST_F(Timers, a_timer_of_the_default_mode_waits_while_a_menu_is_tracked)
{
    __block int usual = 0;
    __block int common = 0;
    add(
        0.1, NO,
        ^(NSTimer*) {
          ++usual;
        },
        NSDefaultRunLoopMode);
    add(0.1, NO, ^(NSTimer*) {
      ++common;
    });
    run(1, NSEventTrackingRunLoopMode);
    EXPECT_EQ(usual, 0);
    EXPECT_EQ(common, 1);
    run(1);
    EXPECT_EQ(usual, 1);
}

TEST_F(Timers, a_mode_without_timers_and_sources_returns_at_once)
{
    EXPECT_FALSE([NSRunLoop.mainRunLoop runMode:@"private" beforeDate:NSDate.distantFuture]);
    EXPECT_EQ(clock.now(), start);
}

TEST_F(Timers, a_source_is_served_once_for_each_signal_while_it_is_on_the_loop)
{
    int served = 0;
    RTSource* source = [[RTSource alloc] init];
    source->perform = [&served] { ++served; };
    const auto reference = (__bridge CFRunLoopSourceRef)source;
    [source signal];
    run(0.1);
    EXPECT_EQ(served, 0);
    CFRunLoopAddSource(CFRunLoopGetMain(), reference, kCFRunLoopCommonModes);
    [source signal];
    run(0.1, NSModalPanelRunLoopMode);
    EXPECT_EQ(served, 2);
    CFRunLoopRemoveSource(CFRunLoopGetMain(), reference, kCFRunLoopCommonModes);
    [source signal];
    run(0.1);
    EXPECT_EQ(served, 2);
}

TEST_F(Timers, the_machines_clock_waits_for_another_thread)
{
    substitute::setClock(nullptr);
    bool woken = false;
    std::thread other([&woken] { substitute::onMain([&woken] { woken = true; }); });
    EXPECT_TRUE(substitute::turn(NSDefaultRunLoopMode, substitute::now() + 60));
    other.join();
    EXPECT_TRUE(woken);
}

using TimersDeathTest = Timers;

TEST_F(TimersDeathTest, invalidating_a_timer_on_another_thread_ends_the_program)
{
    EXPECT_DEATH(
        {
            NSTimer* timer = add(1, NO,
                                 ^(NSTimer*){
                                 });
            std::thread([timer] { [timer invalidate]; }).join();
        },
        "off the main thread");
}

} // namespace
} // namespace haloric
