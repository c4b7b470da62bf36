#include "hosts/sim/loop/SimRunLoop.h"

#include <set>
#include <thread>
#include <vector>

namespace haloric {
namespace {

class SimRunLoopTest : public testing::Test {
protected:
    SimRunLoop loop;
    std::vector<int> ran;
    Task note(int number)
    {
        return [this, number] { ran.push_back(number); };
    }
};

TEST_F(SimRunLoopTest, nothing_runs_inside_the_call_that_posts_it)
{
    loop.post(note(1));
    EXPECT_TRUE(ran.empty());
    loop.runPosted();
    EXPECT_EQ(ran, std::vector{1});
}

TEST_F(SimRunLoopTest, work_that_another_thread_posts_runs_in_its_order)
{
    std::thread([this] {
        loop.post(note(1));
        loop.postAfter(Seconds(1), note(3));
        loop.post(note(2));
    }).join();
    EXPECT_TRUE(loop.runNext());
    EXPECT_TRUE(loop.runNext());
    EXPECT_EQ(ran, (std::vector{1, 2}));
    loop.runFor(Seconds(1));
    EXPECT_EQ(ran, (std::vector{1, 2, 3}));
}

TEST_F(SimRunLoopTest, equal_deadlines_run_in_the_order_in_which_they_were_scheduled)
{
    loop.postAfter(Seconds(1), note(1));
    const auto timer = loop.scheduleOnce(Seconds(1), note(2));
    loop.postAfter(Seconds(1), note(3));
    loop.runFor(Seconds(1));
    EXPECT_EQ(ran, (std::vector{1, 2, 3}));
}

TEST_F(SimRunLoopTest, deadlines_run_in_order_and_see_their_own_instant)
{
    std::vector<double> instants;
    loop.postAfter(Seconds(0.3), [&] { instants.push_back(loop.systemUptime().count()); });
    loop.postAfter(Seconds(0.1), [&] { instants.push_back(loop.systemUptime().count()); });
    loop.runFor(Seconds(1));
    EXPECT_EQ(instants, (std::vector{0.1, 0.3}));
    EXPECT_EQ(loop.systemUptime().count(), 1.0);
}

TEST_F(SimRunLoopTest, a_repeating_timer_fires_at_its_interval_until_it_is_cancelled)
{
    auto timer = loop.scheduleRepeating(Seconds(0.15), Seconds(0.075), note(1));
    loop.runFor(Seconds(0.5));
    EXPECT_EQ(ran.size(), 3U);
    timer.reset();
    loop.runFor(Seconds(1));
    EXPECT_EQ(ran.size(), 3U);
    EXPECT_EQ(loop.armedTimerCount(), 0U);
}

TEST_F(SimRunLoopTest, a_timer_may_cancel_itself_while_it_fires)
{
    Subscription timer;
    timer = loop.scheduleRepeating(Seconds(0.1), Seconds(0), [&] {
        ran.push_back(1);
        timer.reset();
    });
    loop.runFor(Seconds(1));
    EXPECT_EQ(ran, std::vector{1});
}

TEST_F(SimRunLoopTest, cancelling_a_timer_that_has_fired_does_nothing)
{
    auto timer = loop.scheduleOnce(Seconds(0.1), note(1));
    EXPECT_EQ(loop.armedTimerCount(), 1U);
    loop.runFor(Seconds(0.2));
    EXPECT_EQ(loop.armedTimerCount(), 0U);
    timer.reset();
    EXPECT_EQ(loop.armedTimerCount(), 0U);
}

TEST_F(SimRunLoopTest, the_tolerances_of_the_armed_timers_are_listed)
{
    const auto once = loop.scheduleOnce(Seconds(0.1), note(1));
    auto tolerant = loop.scheduleRepeating(Seconds(0.1), Seconds(0.05), note(2));
    const auto exact = loop.scheduleRepeating(Seconds(0.1), Seconds(0), note(3));
    EXPECT_EQ(loop.armedTolerances(), (std::multiset<Seconds>{Seconds(0), Seconds(0), Seconds(0.05)}));
    loop.runFor(Seconds(0.2));
    EXPECT_EQ(loop.armedTolerances(), (std::multiset<Seconds>{Seconds(0), Seconds(0.05)}));
    tolerant.reset();
    EXPECT_EQ(loop.armedTolerances(), std::multiset<Seconds>{Seconds(0)});
}

TEST(SimRunLoop, pending_events_can_be_queried_and_discarded)
{
    SimRunLoop runLoop;
    EXPECT_FALSE(runLoop.nextDue());
    int ran = 0;
    const Subscription timer = runLoop.scheduleOnce(Seconds(1), [&] { ++ran; });
    runLoop.postAfter(Seconds(0.5), [&] { ++ran; });
    EXPECT_EQ(runLoop.nextDue(), std::chrono::milliseconds(500));

    runLoop.discardPending();
    runLoop.runFor(Seconds(2));
    EXPECT_EQ(ran, 0);
}

} // namespace
} // namespace haloric
