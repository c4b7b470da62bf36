#include "hosts/linux/loop/LinuxSerialQueues.h"

#include <atomic>
#include <future>
#include <thread>

#include <pthread.h>

namespace haloric {
namespace {

std::unique_ptr<SerialQueue> makeQueue()
{
    return LinuxSerialQueues().make("com.kestrow.haloric.accessibility", QualityOfService::userInitiated);
}

TEST(LinuxSerialQueues, blocks_run_in_order_on_one_other_thread)
{
    const auto queue = makeQueue();
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    for (int index = 0; index < 100; ++index) {
        queue->async([&, index] {
            order.push_back(index);
            threads.push_back(std::this_thread::get_id());
        });
    }
    std::promise<void> done;
    queue->async([&] { done.set_value(); });
    done.get_future().wait();
    EXPECT_TRUE(std::ranges::is_sorted(order));
    EXPECT_EQ(order.size(), 100U);
    EXPECT_EQ(std::ranges::count(threads, threads.front()), 100);
    EXPECT_NE(threads.front(), std::this_thread::get_id());
}

TEST(LinuxSerialQueues, the_thread_bears_the_last_part_of_the_label)
{
    const auto queue = makeQueue();
    std::promise<std::string> name;
    queue->async([&] {
        char text[32] = {};
        pthread_getname_np(pthread_self(), text, sizeof text);
        name.set_value(text);
    });
    EXPECT_EQ(name.get_future().get(), "accessibility");
}

TEST(LinuxSerialQueues, the_end_of_a_queue_waits_for_what_was_submitted)
{
    std::atomic<int> ran = 0;
    auto queue = makeQueue();
    for (int index = 0; index < 20; ++index)
        queue->async([&] { ++ran; });
    queue.reset();
    EXPECT_EQ(ran, 20);
}

TEST(LinuxSerialQueues, a_block_may_submit_another)
{
    auto queue = makeQueue();
    std::promise<void> done;
    queue->async([&] { queue->async([&] { done.set_value(); }); });
    done.get_future().wait();
}

TEST(LinuxSerialQueues, what_a_block_holds_is_released_on_the_queue)
{
    auto queue = makeQueue();
    std::promise<std::thread::id> released;
    auto held = std::shared_ptr<int>(new int, [&](const int* value) {
        delete value;
        released.set_value(std::this_thread::get_id());
    });
    queue->async([alone = std::move(held)] {});
    EXPECT_NE(released.get_future().get(), std::this_thread::get_id());
}

} // namespace
} // namespace haloric
