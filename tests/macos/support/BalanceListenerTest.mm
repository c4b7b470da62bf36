// What the listener reports of a test that leaves something over.
#include "macos/support/BalanceListener.h"

#include "foundation/Balance.h"
#include "macos/support/Probe.h"

namespace haloric {
namespace {

TEST(Balance, names_a_timer_that_is_left_on_the_loop)
{
    @autoreleasepool {
        const auto before = substitute::balance();
        NSTimer* timer = [NSTimer timerWithTimeInterval:1
                                                repeats:YES
                                                  block:^(NSTimer*){
                                                  }];
        [NSRunLoop.mainRunLoop addTimer:timer forMode:NSRunLoopCommonModes];
        const std::string difference = BalanceListener::difference(before, substitute::balance());
        EXPECT_NE(difference.find("1 timers on the run loop"), std::string::npos) << difference;
        [timer invalidate];
    }
}

TEST(Balance, names_the_class_of_an_object_that_is_left_alive)
{
    const auto before = substitute::balance();
    CFTypeRef leaked = CFBridgingRetain([Probe countingIn:nullptr]);
    EXPECT_EQ(BalanceListener::difference(before, substitute::balance()), "  1 objects of Probe\n");
    CFRelease(leaked);
    EXPECT_EQ(BalanceListener::difference(before, substitute::balance()), "");
}

TEST(Balance, does_not_count_what_is_made_once_for_the_whole_process)
{
    const auto before = substitute::balance();
    static Probe* const one = substitute::permanent([] { return [Probe countingIn:nullptr]; });
    EXPECT_NE(one, nil);
    EXPECT_EQ(BalanceListener::difference(before, substitute::balance()), "");
}

} // namespace
} // namespace haloric
