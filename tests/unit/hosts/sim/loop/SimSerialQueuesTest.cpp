#include "hosts/sim/loop/SimSerialQueues.h"

#include <string>

namespace haloric {
namespace {

class SimSerialQueuesTest : public testing::Test {
protected:
    SimRunLoop loop;
    SimSerialQueues queues{loop};
    std::unique_ptr<SerialQueue> queue = queues.make("test", QualityOfService::userInitiated);
    std::vector<std::pair<std::string, double>> journal;

    void note(const std::string& what) { journal.emplace_back(what, loop.systemUptime().count()); }
};

TEST_F(SimSerialQueuesTest, a_block_that_takes_time_delays_what_it_posts_but_not_the_main_loop)
{
    queue->async([&] {
        loop.spend(Seconds(0.25));
        loop.post([&] { note("answer"); });
    });
    loop.postAfter(Seconds(0.1), [&] { note("main"); });
    loop.runFor(Seconds(1));
    EXPECT_EQ(journal, (std::vector<std::pair<std::string, double>>{{"main", 0.1}, {"answer", 0.25}}));
}

TEST_F(SimSerialQueuesTest, blocks_run_one_after_the_other)
{
    queue->async([&] {
        note("first");
        loop.spend(Seconds(0.2));
    });
    queue->async([&] { note("second"); });
    loop.runFor(Seconds(1));
    EXPECT_EQ(journal, (std::vector<std::pair<std::string, double>>{{"first", 0.0}, {"second", 0.2}}));
}

TEST_F(SimSerialQueuesTest, blocks_submitted_before_the_queue_is_destroyed_still_run)
{
    queue->async([&] { note("ran"); });
    queue.reset();
    loop.runPosted();
    EXPECT_EQ(journal.size(), 1U);
}

TEST_F(SimSerialQueuesTest, suspended_queues_hold_their_blocks_back)
{
    queues.setSuspended(true);
    queue->async([&] { note("ran"); });
    loop.runFor(Seconds(1));
    EXPECT_TRUE(journal.empty());
    queues.setSuspended(false);
    loop.runPosted();
    EXPECT_EQ(journal.size(), 1U);
}

TEST(SimSerialQueues, what_a_block_holds_is_released_on_the_queue)
{
    SimRunLoop runLoop;
    SimSerialQueues queues(runLoop);
    const auto queue = queues.make("q", QualityOfService::utility);
    bool releasedInside = false;
    std::shared_ptr<void> held(nullptr, [&](void*) { releasedInside = queues.isInsideBlock(); });
    queue->async([held = std::move(held)] {});
    EXPECT_EQ(queues.waitingBlocks(), 1u);
    runLoop.runPosted();

    EXPECT_TRUE(releasedInside);
    EXPECT_EQ(queues.waitingBlocks(), 0u);
}

} // namespace
} // namespace haloric
