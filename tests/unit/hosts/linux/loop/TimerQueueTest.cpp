#include "hosts/linux/loop/TimerQueue.h"

#include <vector>

namespace haloric {
namespace {

using namespace std::chrono_literals;
using Instant = TimerQueue::Instant;

class TimerQueueTest : public testing::Test {
protected:
    TimerQueue queue;
    Instant start{1h};
    std::vector<int> ran;

    Task note(int number)
    {
        return [this, number] { ran.push_back(number); };
    }
};

TEST_F(TimerQueueTest, an_empty_queue_asks_for_no_wake_up) { EXPECT_EQ(queue.nextWake(), std::nullopt); }

TEST_F(TimerQueueTest, equal_deadlines_run_in_the_order_in_which_they_were_added)
{
    const auto first = queue.add(start + 1s, {}, {}, note(1));
    queue.post(start + 1s, note(2));
    const auto third = queue.add(start + 1s, {}, {}, note(3));
    queue.runDue(start + 1s);
    EXPECT_EQ(ran, (std::vector{1, 2, 3}));
}

TEST_F(TimerQueueTest, missed_beats_are_left_out_and_the_rhythm_is_kept)
{
    const auto timer = queue.add(start + 1s, 1s, {}, note(1));
    queue.runDue(start + 3500ms);
    EXPECT_EQ(ran.size(), 1U);
    EXPECT_EQ(queue.nextWake(), start + 4s);
}

TEST_F(TimerQueueTest, the_wake_up_is_as_late_as_every_tolerance_allows)
{
    const auto tolerant = queue.add(start + 100ms, 1s, 75ms, note(1));
    EXPECT_EQ(queue.nextWake(), start + 100ms);
    const auto within = queue.add(start + 150ms, {}, {}, note(2));
    EXPECT_EQ(queue.nextWake(), start + 150ms);
    const auto beyond = queue.add(start + 160ms, {}, {}, note(3));
    EXPECT_EQ(queue.nextWake(), start + 150ms);
}

TEST_F(TimerQueueTest, a_timer_added_by_a_task_waits_for_the_next_call)
{
    queue.post(start, [&] { queue.post(start, note(1)); });
    queue.runDue(start);
    EXPECT_TRUE(ran.empty());
    queue.runDue(start);
    EXPECT_EQ(ran, std::vector{1});
}

} // namespace
} // namespace haloric
