#include "hosts/linux/loop/LinuxSerialQueues.h"

#include "hosts/linux/loop/LinuxRunLoop.h"

#include <memory>
#include <thread>
#include <vector>

namespace haloric {
namespace {

struct LinuxSerialQueuesTest : testing::Test {
    LinuxRunLoop loop;
    std::unique_ptr<SerialQueue> queue =
        LinuxSerialQueues(loop).make("com.kestrow.haloric.accessibility", QualityOfService::userInitiated);
    std::vector<int> order;
};

TEST_F(LinuxSerialQueuesTest, blocks_run_on_the_main_thread_in_their_order)
{
    std::vector<std::thread::id> threads;
    for (int index = 0; index < 100; ++index) {
        queue->async([&, index] {
            order.push_back(index);
            threads.push_back(std::this_thread::get_id());
        });
    }
    EXPECT_TRUE(order.empty()) << "not within the submission";
    loop.turn(Seconds(0));
    EXPECT_TRUE(std::ranges::is_sorted(order));
    EXPECT_EQ(order.size(), 100U);
    EXPECT_EQ(std::ranges::count(threads, std::this_thread::get_id()), 100);
}

TEST_F(LinuxSerialQueuesTest, blocks_and_posted_tasks_run_in_one_order)
{
    queue->async([&] { order.push_back(1); });
    loop.post([&] { order.push_back(2); });
    queue->async([&] { order.push_back(3); });
    loop.turn(Seconds(0));
    EXPECT_THAT(order, testing::ElementsAre(1, 2, 3));
}

TEST_F(LinuxSerialQueuesTest, the_end_of_a_queue_runs_what_was_submitted_once)
{
    for (int index = 0; index < 3; ++index)
        queue->async([&, index] { order.push_back(index); });
    queue.reset();
    EXPECT_THAT(order, testing::ElementsAre(0, 1, 2));
    loop.turn(Seconds(0));
    EXPECT_EQ(order.size(), 3U);
}

TEST_F(LinuxSerialQueuesTest, the_end_of_one_queue_leaves_the_blocks_of_others)
{
    const auto other = LinuxSerialQueues(loop).make("", QualityOfService::utility);
    other->async([&] { order.push_back(1); });
    queue->async([&] { order.push_back(2); });
    queue.reset();
    EXPECT_THAT(order, testing::ElementsAre(2));
    loop.turn(Seconds(0));
    EXPECT_THAT(order, testing::ElementsAre(2, 1));
}

TEST_F(LinuxSerialQueuesTest, a_block_may_submit_another_which_runs_after_it)
{
    queue->async([&] {
        queue->async([&] { order.push_back(2); });
        order.push_back(1);
    });
    while (order.size() < 2)
        loop.turn(Seconds(1));
    EXPECT_THAT(order, testing::ElementsAre(1, 2));
}

TEST_F(LinuxSerialQueuesTest, what_a_block_holds_is_released_when_it_has_run)
{
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> released = held;
    queue->async([kept = std::move(held)] {});
    EXPECT_FALSE(released.expired());
    loop.turn(Seconds(0));
    EXPECT_TRUE(released.expired());
}

} // namespace
} // namespace haloric
