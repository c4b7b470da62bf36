#include "hosts/linux/loop/LinuxRunLoop.h"

#include <thread>
#include <vector>

#include <unistd.h>

#include <poll.h>

namespace haloric {
namespace {

class LinuxRunLoopTest : public testing::Test {
protected:
    LinuxRunLoop loop;
    std::vector<int> ran;

    Task note(int number)
    {
        return [this, number] { ran.push_back(number); };
    }

    void turnUntilRan(std::size_t count)
    {
        while (ran.size() < count)
            loop.turn(Seconds(10));
    }
};

TEST_F(LinuxRunLoopTest, posted_tasks_run_in_their_order_and_not_inside_the_call)
{
    loop.post(note(1));
    loop.post(note(2));
    EXPECT_TRUE(ran.empty());
    loop.turn(Seconds(0));
    EXPECT_EQ(ran, (std::vector{1, 2}));
}

TEST_F(LinuxRunLoopTest, a_post_from_the_thread_that_made_the_loop_wakes_the_thread_that_runs_it)
{
    for (int round = 0; round < 50; ++round) { // whether the other thread waits already is left to chance
        std::thread waiting([this] { loop.run(); });
        loop.post([this] { loop.post([this] { loop.stop(); }); });
        waiting.join();
    }
}

TEST_F(LinuxRunLoopTest, a_task_posted_by_a_task_runs_on_the_next_turn)
{
    loop.post([&] { loop.post(note(1)); });
    loop.turn(Seconds(0));
    EXPECT_TRUE(ran.empty());
    loop.turn(Seconds(10));
    EXPECT_EQ(ran, std::vector{1});
}

TEST_F(LinuxRunLoopTest, a_task_posted_by_the_handler_of_a_descriptor_runs_in_the_same_turn_and_wakes_nothing)
{
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    const auto watch = loop.watch(ends[0], [&] {
        char byte = 0;
        EXPECT_EQ(read(ends[0], &byte, 1), 1);
        loop.post(note(1));
    });
    ASSERT_EQ(write(ends[1], "x", 1), 1);
    loop.turn(Seconds(10));
    EXPECT_EQ(ran, std::vector{1});
    pollfd descriptor{loop.pollableDescriptor(), POLLIN, 0};
    EXPECT_EQ(poll(&descriptor, 1, 0), 0);
    close(ends[0]);
    close(ends[1]);
}

TEST_F(LinuxRunLoopTest, tasks_behind_one_that_turns_the_loop_run_from_there)
{
    std::string order;
    loop.post([&] {
        loop.turn(Seconds(0));
        order += "first";
    });
    loop.post([&] { order += "second "; });
    loop.turn(Seconds(0));
    EXPECT_EQ(order, "second first");
}

TEST_F(LinuxRunLoopTest, a_loop_around_it_is_woken_for_what_a_turn_under_way_has_left)
{
    const auto isReadable = [this] {
        pollfd set{loop.pollableDescriptor(), POLLIN, 0};
        return poll(&set, 1, 0) == 1;
    };
    bool woken = false;
    loop.post([&] {
        EXPECT_FALSE(loop.prepareToWait());
        woken = isReadable();
    });
    loop.post([] {});
    loop.turn(Seconds(0));
    EXPECT_TRUE(woken);
    loop.turn(Seconds(0));
    EXPECT_TRUE(loop.prepareToWait());
    EXPECT_FALSE(isReadable());
}

TEST_F(LinuxRunLoopTest, a_task_posted_by_another_thread_ends_the_wait)
{
    std::thread other([&] { loop.post(note(1)); });
    turnUntilRan(1);
    other.join();
    EXPECT_EQ(ran, std::vector{1});
}

TEST_F(LinuxRunLoopTest, equal_and_earlier_deadlines_run_in_order)
{
    const auto later = loop.scheduleOnce(Seconds(0.002), note(2));
    const auto sooner = loop.scheduleOnce(Seconds(0.001), note(1));
    loop.postAfter(Seconds(0.003), note(3));
    turnUntilRan(3);
    EXPECT_EQ(ran, (std::vector{1, 2, 3}));
}

TEST_F(LinuxRunLoopTest, a_cancelled_timer_does_not_fire)
{
    auto cancelled = loop.scheduleOnce(Seconds(0.001), note(1));
    cancelled.reset();
    loop.postAfter(Seconds(0.002), note(2));
    turnUntilRan(1);
    EXPECT_EQ(ran, std::vector{2});
}

TEST_F(LinuxRunLoopTest, a_repeating_timer_may_cancel_itself_while_it_fires)
{
    Subscription timer;
    timer = loop.scheduleRepeating(Seconds(0.001), Seconds(0), [&] {
        ran.push_back(1);
        if (ran.size() == 2)
            timer.reset();
    });
    turnUntilRan(2);
    loop.postAfter(Seconds(0.003), note(9));
    turnUntilRan(3);
    EXPECT_EQ(ran, (std::vector{1, 1, 9}));
}

TEST_F(LinuxRunLoopTest, a_timer_with_tolerance_joins_the_wake_up_of_the_next_one)
{
    const auto tolerant = loop.scheduleRepeating(Seconds(0.001), Seconds(10), note(1));
    const auto exact = loop.scheduleOnce(Seconds(0.005), note(2));
    loop.turn(Seconds(10)); // one wake-up serves both
    EXPECT_EQ(ran, (std::vector{1, 2}));
}

TEST_F(LinuxRunLoopTest, a_watched_descriptor_is_reported_until_the_watch_is_cancelled)
{
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    Subscription watch = loop.watch(ends[0], note(1));
    ASSERT_EQ(write(ends[1], "x", 1), 1);
    loop.turn(Seconds(10));
    EXPECT_EQ(ran, std::vector{1});
    watch.reset();
    loop.turn(Seconds(0));
    EXPECT_EQ(ran, std::vector{1});
    close(ends[0]);
    close(ends[1]);
}

TEST_F(LinuxRunLoopTest, hooks_are_asked_again_while_one_finds_work)
{
    int rounds = 0;
    const auto hook = loop.onBeforeWait([&] { return ++rounds < 3; });
    loop.turn(Seconds(0));
    EXPECT_EQ(rounds, 3);
}

TEST_F(LinuxRunLoopTest, a_hook_that_never_ends_does_not_keep_posted_work_from_running)
{
    const auto hook = loop.onBeforeWait([] { return true; });
    loop.post(note(1));
    loop.turn(Seconds(10));
    EXPECT_EQ(ran.front(), 1);
}

TEST_F(LinuxRunLoopTest, stop_ends_the_run)
{
    loop.postAfter(Seconds(0.001), [&] { loop.stop(); });
    loop.run();
}

TEST_F(LinuxRunLoopTest, every_hook_is_asked_in_each_round)
{
    std::string asked;
    const auto first = loop.onBeforeWait([&] {
        asked += "a";
        return asked.size() < 3;
    });
    const auto second = loop.onBeforeWait([&] {
        asked += "b";
        return false;
    });
    loop.turn(Seconds(0));
    EXPECT_EQ(asked, "abab");
}

TEST_F(LinuxRunLoopTest, a_timer_wakes_a_wait_inside_the_turn_that_has_read_its_descriptor)
{
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    pollfd set{loop.pollableDescriptor(), POLLIN, 0};
    const auto timer = loop.scheduleOnce(Seconds(0.001), note(1));
    ASSERT_TRUE(loop.prepareToWait());
    ASSERT_EQ(poll(&set, 1, 10'000), 1) << "the timer is due, and first in the turn's order";
    bool wakes = false;
    const auto watch = loop.watch(ends[0], [&] {
        char byte = 0;
        EXPECT_EQ(read(ends[0], &byte, 1), 1);
        EXPECT_TRUE(ran.empty());
        EXPECT_TRUE(loop.prepareToWait());
        wakes = poll(&set, 1, 10'000) == 1;
    });
    ASSERT_EQ(write(ends[1], "x", 1), 1);
    loop.turn(Seconds(0));
    EXPECT_TRUE(wakes);
    EXPECT_EQ(ran, std::vector{1});
    close(ends[0]);
    close(ends[1]);
}

} // namespace
} // namespace haloric
