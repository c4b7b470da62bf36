// Reference counts, weak references, pools and blocks, as the compiler uses them.
#include "macos/support/Probe.h"

#include "runtime/ObjectiveCAbi.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

extern "C" id objc_autorelease(id);
extern "C" id objc_retain(id);
extern "C" void objc_release(id);

@interface Holder : NSObject
@property(nonatomic) Probe* strong;
@property(nonatomic, weak) Probe* weak;
@property(copy) NSString* text;
@property(nonatomic, copy) int (^block)(int);
@end
@implementation Holder
@end

namespace {

Probe* made(int* ended) { return [Probe countingIn:ended]; }

TEST(References, an_object_ends_with_its_last_reference)
{
    int ended = 0;
    {
        Probe* one = made(&ended);
        Probe* two = one;
        one = nil;
        EXPECT_EQ(ended, 0);
        EXPECT_NE(two, nil);
        two = nil;
        EXPECT_EQ(ended, 1);
    }
    EXPECT_EQ(ended, 1);
}

TEST(References, members_of_an_object_are_released_with_it)
{
    int ended = 0;
    Holder* holder = [[Holder alloc] init];
    @autoreleasepool {
        holder.strong = made(&ended);
    }
    EXPECT_EQ(ended, 0);
    holder = nil;
    EXPECT_EQ(ended, 1);
}

TEST(References, threads_share_an_object)
{
    int ended = 0;
    {
        Probe* shared = made(&ended);
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([shared] {
                for (int turn = 0; turn < 1000; ++turn) {
                    Probe* mine = shared;
                    (void)mine;
                }
            });
        for (std::thread& thread : threads)
            thread.join();
    }
    EXPECT_EQ(ended, 1);
}

TEST(ReferencesDeathTest, an_object_that_is_released_too_often_ends_the_program)
{
    EXPECT_DEATH(
        {
            Probe* one = made(nullptr);
            objc_retain(one);
            const void* bare = (__bridge void*)one;
            for (int i = 0; i < 3; ++i)
                objc_release((__bridge id)bare);
        },
        "released too often|AddressSanitizer");
}

TEST(WeakReferences, become_nil_when_the_object_ends)
{
    int ended = 0;
    Probe* __weak weak = nil;
    @autoreleasepool {
        Probe* one = made(&ended);
        weak = one;
        EXPECT_NE(weak, nil);
        one = nil;
    }
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(weak, nil);
}

TEST(WeakReferences, of_a_member_become_nil_too_and_may_end_first)
{
    int ended = 0;
    Holder* holder = [[Holder alloc] init];
    @autoreleasepool {
        Probe* one = made(&ended);
        holder.weak = one;
        {
            Probe* __weak second = one;
            Probe* __weak third = second;
            EXPECT_EQ(third, one);
        }
        EXPECT_EQ(holder.weak, one);
    }
    EXPECT_EQ(holder.weak, nil);
    EXPECT_EQ(ended, 1);
}

TEST(Pools, an_autoreleased_object_lives_until_its_pool_is_drained)
{
    int ended = 0;
    @autoreleasepool {
        objc_autorelease(objc_retain(made(&ended)));
        EXPECT_EQ(ended, 0);
        @autoreleasepool {
        }
        EXPECT_EQ(ended, 0);
    }
    EXPECT_EQ(ended, 1);
}

TEST(Pools, a_result_that_its_caller_takes_over_sees_no_pool)
{
    int ended = 0;
    {
        Probe* taken = made(&ended);
        (void)taken;
    }
    EXPECT_EQ(ended, 1);
}

TEST(PoolsDeathTest, an_object_that_is_autoreleased_without_a_pool_ends_the_program)
{
    EXPECT_DEATH(std::thread([] { objc_autorelease(objc_retain(made(nullptr))); }).join(), "no pool in place");
}

TEST(Blocks, a_block_on_the_heap_keeps_what_it_captures)
{
    int ended = 0;
    int (^block)() = nil;
    {
        Probe* one = made(&ended);
        [one setNumber:5];
        block = [^{
          return [one number];
        } copy];
    }
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(block(), 5);
    block = nil;
    EXPECT_EQ(ended, 1);
}

TEST(Blocks, a_shared_variable_is_one_for_the_block_and_its_function)
{
    __block int count = 1;
    void (^raise)() = [^{
      ++count;
    } copy];
    raise();
    ++count;
    raise();
    EXPECT_EQ(count, 4);
}

TEST(Blocks, a_shared_object_is_released_with_the_last_block)
{
    int ended = 0;
    int* const count = &ended;
    @autoreleasepool {
        __block Probe* shared = nil;
        void (^set)() = [^{
          shared = made(count);
        } copy];
        set();
        EXPECT_NE(shared, nil);
        EXPECT_EQ(ended, 0);
    }
    EXPECT_EQ(ended, 1);
}

TEST(Blocks, a_block_captures_an_object_of_cpp_by_its_copy_constructor)
{
    const auto text = std::make_shared<std::string>("held");
    {
        std::string (^block)() = [^{
          return *text;
        } copy];
        EXPECT_GE(text.use_count(), 2);
        EXPECT_EQ(block(), "held");
    }
    EXPECT_EQ(text.use_count(), 1);
}

TEST(Blocks, a_property_that_copies_takes_a_block_from_the_stack)
{
    Holder* holder = [[Holder alloc] init];
    const int added = 3;
    holder.block = ^(int to) {
      return to + added;
    };
    EXPECT_EQ(holder.block(4), 7);
}

TEST(Properties, a_copied_text_is_independent_of_its_origin)
{
    Holder* holder = [[Holder alloc] init];
    holder.text = @"one";
    EXPECT_TRUE([holder.text isEqualToString:@"one"]);
    holder.text = nil;
    EXPECT_EQ(holder.text, nil);
}

} // namespace
