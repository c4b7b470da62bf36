// Dispatch: the main queue, serial queues and sources that add data.
#include "loop/MainLoop.h"
#include "macos/support/ManualClock.h"
#include "macos/support/Probe.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

#include <dispatch/dispatch.h>

namespace haloric {
namespace {

dispatch_queue_t makeQueue() { return dispatch_queue_create("test", DISPATCH_QUEUE_SERIAL); }

// Behind every block that was submitted.
void finish(dispatch_queue_t queue)
{
    dispatch_sync(queue, ^{
                  });
}

TEST(MainQueue, blocks_run_in_a_later_turn_in_their_order)
{
    __block std::string order;
    for (const char* name : {"a", "b", "c"})
        dispatch_async(dispatch_get_main_queue(), ^{
          order += name;
        });
    EXPECT_EQ(order, "");
    substitute::turnUntilIdle();
    EXPECT_EQ(order, "abc");
}

TEST(MainQueue, a_loop_inside_a_block_runs_no_other_block)
{
    __block std::string order;
    dispatch_async(dispatch_get_main_queue(), ^{
      order += "a";
      substitute::onMain([] {});
      substitute::turnUntilIdle(); // as an alert that is open
      order += "A";
    });
    dispatch_async(dispatch_get_main_queue(), ^{
      order += "b";
    });
    substitute::turnUntilIdle();
    EXPECT_EQ(order, "aAb");
}

TEST(MainQueue, a_delayed_block_runs_at_its_time_and_equal_times_in_order)
{
    ManualClock clock;
    const double start = clock.now();
    std::string order;
    std::string* const names = &order;
    double last = 0;
    double* const instant = &last;
    const auto after = [&](double seconds, const char* name) {
        const auto when = dispatch_time(DISPATCH_TIME_NOW, static_cast<int64_t>(seconds * 1e9));
        dispatch_after(when, dispatch_get_main_queue(), ^{
          *names += name;
          *instant = substitute::now() - start;
        });
    };
    after(2, "c");
    after(1, "a");
    after(1, "b");
    while (substitute::turn(NSDefaultRunLoopMode, start + 3)) {
    }
    EXPECT_EQ(order, "abc");
    EXPECT_NEAR(last, 2, 1e-6);
}

TEST(MainQueue, a_block_is_released_after_it_has_run)
{
    int ended = 0;
    @autoreleasepool {
        Probe* captured = [Probe countingIn:&ended];
        dispatch_async(dispatch_get_main_queue(), ^{
          (void)captured;
        });
    }
    EXPECT_EQ(ended, 0);
    substitute::turnUntilIdle();
    EXPECT_EQ(ended, 1);
}

TEST(SerialQueues, blocks_run_on_another_thread_one_after_the_other)
{
    dispatch_queue_t queue = makeQueue();
    __block int inside = 0;
    __block int runs = 0;
    __block bool elsewhere = true;
    const auto main = std::this_thread::get_id();
    for (int i = 0; i < 100; ++i)
        dispatch_async(queue, ^{
          elsewhere = elsewhere && std::this_thread::get_id() != main && ++inside == 1;
          ++runs;
          --inside;
        });
    finish(queue);
    EXPECT_EQ(runs, 100);
    EXPECT_TRUE(elsewhere);
}

TEST(SerialQueues, a_queue_lives_until_its_blocks_have_run)
{
    ManualClock clock;
    std::string order;
    std::string* const names = &order;
    @autoreleasepool {
        dispatch_queue_t queue = makeQueue();
        dispatch_async(queue, ^{
          *names += "a";
        });
        dispatch_async(queue, ^{
          *names += "b";
        });
    }
    EXPECT_EQ(order, "");
    substitute::turnUntilIdle();
    EXPECT_EQ(order, "ab");
}

TEST(SerialQueues, without_threads_blocks_run_on_the_main_loop_in_their_order)
{
    ManualClock clock;
    dispatch_queue_t queue = makeQueue();
    __block std::string order;
    dispatch_async(queue, ^{
      order += "a";
      dispatch_async(dispatch_get_main_queue(), ^{
        order += "c";
      });
    });
    dispatch_async(queue, ^{
      order += "b";
    });
    EXPECT_EQ(order, "");
    dispatch_sync(queue, ^{
      order += "|";
    });
    EXPECT_EQ(order, "ab|");
    substitute::turnUntilIdle();
    EXPECT_EQ(order, "ab|c");
}

TEST(SerialQueuesDeathTest, waiting_for_the_own_queue_ends_the_program)
{
    EXPECT_DEATH(
        {
            dispatch_queue_t queue = makeQueue();
            dispatch_sync(queue, ^{
              finish(queue);
            });
        },
        "already owned by current thread");
}

class DataSources : public testing::Test {
protected:
    dispatch_source_t make(void (^handler)())
    {
        dispatch_source_t source =
            dispatch_source_create(DISPATCH_SOURCE_TYPE_DATA_ADD, 0, 0, dispatch_get_main_queue());
        dispatch_source_set_event_handler(source, handler);
        return source;
    }
};

TEST_F(DataSources, what_is_added_before_the_handler_runs_is_one_call)
{
    __block std::string calls;
    __block dispatch_source_t __weak weak = nil;
    dispatch_source_t source = make(^{
      calls += std::to_string(dispatch_source_get_data(weak)) + " ";
    });
    weak = source;
    dispatch_source_merge_data(source, 2);
    substitute::turnUntilIdle();
    EXPECT_EQ(calls, ""); // it is created inactive
    dispatch_resume(source);
    dispatch_source_merge_data(source, 3);
    substitute::turnUntilIdle();
    std::thread([source] { dispatch_source_merge_data(source, 1); }).join();
    substitute::turnUntilIdle();
    EXPECT_EQ(calls, "5 1 ");
}

TEST_F(DataSources, no_call_follows_a_cancellation)
{
    __block int calls = 0;
    dispatch_source_t source = make(^{
      ++calls;
    });
    dispatch_resume(source);
    dispatch_source_merge_data(source, 1);
    dispatch_source_cancel(source);
    substitute::turnUntilIdle();
    dispatch_source_merge_data(source, 1);
    substitute::turnUntilIdle();
    EXPECT_EQ(calls, 0);
}

using DataSourcesDeathTest = DataSources;

TEST_F(DataSourcesDeathTest, a_source_that_is_released_without_having_been_resumed_ends_the_program)
{
    EXPECT_DEATH(
        {
            @autoreleasepool {
                make(^{
                });
            }
        },
        "Release of an inactive object");
}

} // namespace
} // namespace haloric
