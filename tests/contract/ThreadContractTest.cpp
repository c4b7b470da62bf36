// Work that crosses threads: posts and counts from other threads, and queues that end while they have work.
#include "contract/HostContract.h"
#include "platform/VideoLinks.h"

#include <chrono>
#include <mutex>
#include <thread>

namespace haloric {
namespace {

class ThreadContract : public HostContract {
protected:
    // Runs `work` on several threads at a time, each with its number, while the main loop runs.
    void runOnThreads(const std::function<void(int)>& work)
    {
        std::atomic<int> running = kThreads;
        std::vector<std::thread> threads;
        for (int number = 0; number < kThreads; ++number) {
            threads.emplace_back([&, number] {
                work(number);
                --running;
            });
        }
        while (running > 0)
            host->turnFor(Seconds(0.001));
        for (std::thread& thread : threads)
            thread.join();
    }

    // Keeps the present thread busy for a moment.
    static void takeTime()
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(5);
        while (std::chrono::steady_clock::now() < end) {
        }
    }

    static constexpr int kThreads = 3;
    static constexpr int kTimes = 200;
};

TEST_P(ThreadContract, posts_of_other_threads_run_on_the_main_thread_in_the_order_of_each)
{
    const auto mainThread = std::this_thread::get_id();
    std::vector<std::vector<int>> ran(kThreads); // main thread
    bool elsewhere = false;
    runOnThreads([&](int number) {
        for (int time = 0; time < kTimes; ++time) {
            host->runLoop().post([&, number, time] {
                ran[static_cast<std::size_t>(number)].push_back(time);
                elsewhere = elsewhere || std::this_thread::get_id() != mainThread;
            });
        }
    });

    for (const std::vector<int>& order : ran) {
        EXPECT_TRUE(host->waitUntil([&] { return order.size() == kTimes; }));
        EXPECT_TRUE(std::ranges::is_sorted(order));
    }
    EXPECT_FALSE(elsewhere);
}

TEST_P(ThreadContract, a_delayed_post_of_another_thread_runs_not_before_its_time)
{
    const Seconds start = host->runLoop().systemUptime();
    Seconds ran{-1};
    std::thread([&] {
        host->runLoop().postAfter(Seconds(0.03), [&] { ran = host->runLoop().systemUptime(); });
    }).join();

    EXPECT_TRUE(host->waitUntil([&] { return ran >= Seconds(0); }));
    EXPECT_GE((ran - start).count(), 0.0299);
}

TEST_P(ThreadContract, counts_of_other_threads_reach_the_handler_on_the_main_thread)
{
    if (!host->videoLinks())
        return;
    const auto mainThread = std::this_thread::get_id();
    std::atomic<int> added = 0;
    int seen = 0; // of `added`, by the last call
    int calls = 0;
    bool elsewhere = false;
    const auto source = host->videoLinks()->makeDataAddSource([&] {
        ++calls;
        seen = added;
        elsewhere = elsewhere || std::this_thread::get_id() != mainThread;
    });
    source->resume();
    runOnThreads([&](int) {
        for (int time = 0; time < kTimes; ++time) {
            ++added;
            source->add(1);
        }
    });

    EXPECT_TRUE(host->waitUntil([&] { return seen == kThreads * kTimes; })) << "a call follows the last count";
    EXPECT_LE(calls, kThreads * kTimes);
    EXPECT_FALSE(elsewhere);
}

TEST_P(ThreadContract, counts_that_arrive_while_the_main_thread_is_busy_are_one_call)
{
    if (!host->videoLinks())
        return;
    int calls = 0;
    const auto source = host->videoLinks()->makeDataAddSource([&] { ++calls; });
    source->resume();
    std::thread([&] {
        for (int time = 0; time < kTimes; ++time)
            source->add(1);
    }).join(); // the main loop does not run meanwhile

    EXPECT_TRUE(host->waitUntil([&] { return calls > 0; }));
    host->turnFor(Seconds(0.05));
    EXPECT_EQ(calls, 1);
}

TEST_P(ThreadContract, a_cancelled_source_is_silent_while_another_thread_goes_on_adding)
{
    if (!host->videoLinks())
        return;
    int calls = 0;
    const auto source = host->videoLinks()->makeDataAddSource([&] { ++calls; });
    source->resume();
    std::atomic<bool> adding = false;
    std::atomic<bool> stop = false;
    std::thread thread([&adding, &stop, source] {
        for (; !stop; adding = true)
            source->add(1);
    });
    while (!adding)
        std::this_thread::yield();
    EXPECT_TRUE(host->waitUntil([&] { return calls > 0; }));
    source->cancel();
    const int when = calls;

    host->turnFor(Seconds(0.02));
    EXPECT_EQ(calls, when);
    stop = true;
    thread.join();
    host->turnFor(Seconds(0.02));
    EXPECT_EQ(calls, when);
}

TEST_P(ThreadContract, a_queue_that_ends_while_it_is_busy_runs_every_block_once_and_in_order)
{
    auto queue = host->serialQueues().make("com.kestrow.haloric.contract.busy", QualityOfService::utility);
    std::mutex lock;
    std::vector<int> order; // guarded
    const auto length = [&] {
        const std::lock_guard guard(lock);
        return order.size();
    };
    for (int number = 0; number < 5; ++number) {
        queue->async([&, number] {
            takeTime();
            const std::lock_guard guard(lock);
            order.push_back(number);
        });
    }
    queue.reset();

    EXPECT_TRUE(host->waitUntil([&] { return length() == 5; }));
    host->turnFor(Seconds(0.02));
    const std::lock_guard guard(lock);
    EXPECT_EQ(order, (std::vector{0, 1, 2, 3, 4}));
}

TEST_P(ThreadContract, what_the_last_blocks_of_a_queue_post_arrives)
{
    auto queue = host->serialQueues().make("com.kestrow.haloric.contract.last", QualityOfService::utility);
    int arrived = 0; // main thread
    for (int number = 0; number < 3; ++number) {
        queue->async([&] {
            takeTime();
            host->runLoop().post([&] { ++arrived; });
        });
    }
    queue.reset();

    EXPECT_TRUE(host->waitUntil([&] { return arrived == 3; }));
}

TEST_P(ThreadContract, a_queue_may_end_in_a_task_that_it_has_posted)
{
    auto queue = host->serialQueues().make("com.kestrow.haloric.contract.self", QualityOfService::utility);
    std::atomic<int> ran = 0;
    queue->async([&] { host->runLoop().post([&] { queue.reset(); }); });
    queue->async([&] {
        takeTime();
        ++ran;
    });

    EXPECT_TRUE(host->waitUntil([&] { return !queue && ran == 1; }));
}

INSTANTIATE_TEST_SUITE_P(Hosts, ThreadContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
