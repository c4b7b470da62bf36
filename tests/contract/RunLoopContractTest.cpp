#include "contract/HostContract.h"
#include "platform/DisplayLinks.h"
#include "platform/Screens.h"
#include "platform/VideoLinks.h"

#include <atomic>
#include <thread>
#include <vector>

namespace haloric {
namespace {

class RunLoopContract : public HostContract {};

TEST_P(RunLoopContract, posted_tasks_run_later_and_in_their_order)
{
    std::vector<int> order;
    for (int i = 0; i < 5; ++i)
        host->runLoop().post([&order, i] { order.push_back(i); });
    EXPECT_TRUE(order.empty());

    EXPECT_TRUE(host->waitUntil([&] { return order.size() == 5; }));
    EXPECT_EQ(order, (std::vector{0, 1, 2, 3, 4}));
}

TEST_P(RunLoopContract, a_task_that_posts_runs_the_new_one_on_a_later_turn)
{
    std::vector<int> order;
    host->runLoop().post([&] {
        host->runLoop().post([&] { order.push_back(2); });
        order.push_back(1);
    });

    EXPECT_TRUE(host->waitUntil([&] { return order.size() == 2; }));
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST_P(RunLoopContract, a_delayed_task_does_not_run_before_its_time)
{
    const Seconds start = host->runLoop().systemUptime();
    Seconds ran{-1};
    host->runLoop().postAfter(Seconds(0.05), [&] { ran = host->runLoop().systemUptime(); });

    EXPECT_TRUE(host->waitUntil([&] { return ran >= Seconds(0); }));
    EXPECT_GE((ran - start).count(), 0.0499);
}

TEST_P(RunLoopContract, equal_deadlines_run_in_the_order_in_which_they_were_scheduled)
{
    std::vector<int> order;
    for (int i = 0; i < 3; ++i)
        host->runLoop().postAfter(Seconds(0.02), [&order, i] { order.push_back(i); });

    EXPECT_TRUE(host->waitUntil([&] { return order.size() == 3; }));
    EXPECT_EQ(order, (std::vector{0, 1, 2}));
}

TEST_P(RunLoopContract, a_timer_fires_once_and_not_when_it_was_cancelled)
{
    int fired = 0;
    int cancelled = 0;
    const Subscription kept = host->runLoop().scheduleOnce(Seconds(0.01), [&] { ++fired; });
    Subscription dropped = host->runLoop().scheduleOnce(Seconds(0.01), [&] { ++cancelled; });
    dropped.reset();

    EXPECT_TRUE(host->waitUntil([&] { return fired == 1; }));
    host->turnFor(Seconds(0.05));
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(cancelled, 0);
}

TEST_P(RunLoopContract, a_repeating_timer_fires_until_it_is_cancelled)
{
    int fired = 0;
    Subscription timer = host->runLoop().scheduleRepeating(Seconds(0.01), Seconds(0.005), [&] { ++fired; });
    EXPECT_TRUE(host->waitUntil([&] { return fired >= 3; }));
    timer.reset();
    const int when = fired;

    host->turnFor(Seconds(0.05));
    EXPECT_EQ(fired, when);
}

TEST_P(RunLoopContract, uptime_does_not_run_backwards_and_the_calendar_is_of_this_century)
{
    const Seconds before = host->runLoop().systemUptime();
    host->turnFor(Seconds(0.01));

    EXPECT_GT(host->runLoop().systemUptime(), before);
    EXPECT_GT(host->runLoop().wallClock(), Seconds(1'000'000'000));
}

TEST_P(RunLoopContract, a_serial_queue_runs_its_blocks_in_order_and_can_post_to_the_main_thread)
{
    const auto queue = host->serialQueues().make("com.kestrow.haloric.contract.order", QualityOfService::utility);
    std::vector<int> order; // used on the queue only until `answered`
    bool answered = false;  // main thread
    for (int i = 0; i < 20; ++i)
        queue->async([&order, i] { order.push_back(i); });
    queue->async([&] { host->runLoop().post([&] { answered = true; }); });
    EXPECT_FALSE(answered);

    EXPECT_TRUE(host->waitUntil([&] { return answered; }));
    ASSERT_EQ(order.size(), 20u);
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(order[static_cast<std::size_t>(i)], i);
}

TEST_P(RunLoopContract, a_serial_queue_never_runs_a_block_inside_the_submitting_call)
{
    const auto queue = host->serialQueues().make("com.kestrow.haloric.contract.later", QualityOfService::utility);
    const auto submitter = std::this_thread::get_id();
    bool isSubmitting = true; // touched on this thread only
    std::atomic<int> inside = 0;
    std::atomic<int> ran = 0;
    for (int i = 0; i < 3; ++i) {
        queue->async([&] {
            if (std::this_thread::get_id() == submitter && isSubmitting)
                ++inside;
            ++ran;
        });
    }
    isSubmitting = false;

    EXPECT_TRUE(host->waitUntil([&] { return ran == 3; }));
    EXPECT_EQ(inside, 0);
}

TEST_P(RunLoopContract, blocks_of_a_serial_queue_that_ends_still_run)
{
    auto queue = host->serialQueues().make("com.kestrow.haloric.contract.end", QualityOfService::utility);
    std::atomic<int> ran = 0;
    for (int i = 0; i < 3; ++i)
        queue->async([&] { ++ran; });
    queue.reset();

    EXPECT_TRUE(host->waitUntil([&] { return ran == 3; }));
}

TEST_P(RunLoopContract, a_data_add_source_adds_up_and_falls_silent_when_cancelled)
{
    if (!host->videoLinks())
        return;
    int calls = 0;
    const auto source = host->videoLinks()->makeDataAddSource([&] { ++calls; });
    source->resume();
    source->add(1);
    source->add(1);
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(host->waitUntil([&] { return calls > 0; }));
    EXPECT_EQ(calls, 1);

    source->add(1);
    source->cancel();
    host->turnFor(Seconds(0.05));
    EXPECT_EQ(calls, 1);
}

TEST_P(RunLoopContract, a_screen_link_ticks_until_it_is_invalidated)
{
    int ticks = 0;
    const auto link = host->displayLinks().makeScreenLink(host->screens().all()[0], [&] { ++ticks; });
    if (!host->makesLinksFromScreens())
        GTEST_SKIP() << "this system makes links from display numbers";
    ASSERT_TRUE(link);
    host->turnFor(Seconds(0.05));
    EXPECT_EQ(ticks, 0) << "not before it is on the run loop";

    link->addToMainRunLoop();
    EXPECT_TRUE(host->waitUntil([&] { return ticks >= 3; }));
    link->invalidate();
    const int when = ticks;
    host->turnFor(Seconds(0.1));
    EXPECT_EQ(ticks, when);
}

TEST_P(RunLoopContract, a_video_link_calls_its_handler_until_it_stops)
{
    if (!host->videoLinks()) {
        EXPECT_TRUE(host->makesLinksFromScreens()) << "no link of either kind";
        return;
    }
    const auto display = host->screens().all()[0].displayID;
    ASSERT_TRUE(display);
    const auto link = host->videoLinks()->makeVideoLink(*display);
    ASSERT_TRUE(link);
    std::atomic<int> frames = 0; // the link's thread counts
    EXPECT_TRUE(link->setOutputHandler([&frames] {
        ++frames;
        return 0;
    }));
    host->turnFor(Seconds(0.05));
    EXPECT_EQ(frames, 0) << "not before it is started";

    EXPECT_TRUE(link->start());
    EXPECT_TRUE(host->waitUntil([&] { return frames >= 3; }));
    link->stop();
    const int when = frames;
    host->turnFor(Seconds(0.1));
    EXPECT_EQ(frames, when);
}

TEST_P(RunLoopContract, an_unknown_display_has_no_video_link)
{
    if (host->videoLinks()) {
        EXPECT_EQ(host->videoLinks()->makeVideoLink(DisplayID{0x7ffffff1}), nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, RunLoopContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
