#include "windowserver/LiveInstance.h"

#include "support/JoiningThread.h"

#include <atomic>
#include <latch>
#include <memory>

namespace haloric {
namespace {

struct Server {
    int calls = 0;
    LiveInstance<Server> live{*this};
};

void call()
{
    LiveInstance<Server>::use([](Server& server) { ++server.calls; });
}

TEST(LiveInstance, a_call_reaches_the_object_that_lives)
{
    call();
    for (int generation = 0; generation < 2; ++generation) {
        const Server server;
        call();
        EXPECT_EQ(server.calls, 1);
    }
    call();
}

TEST(LiveInstance, calls_may_nest)
{
    const Server server;
    LiveInstance<Server>::use([](Server& outer) {
        call();
        ++outer.calls;
    });
    EXPECT_EQ(server.calls, 2);
}

TEST(LiveInstance, the_object_waits_for_a_call_that_has_found_it)
{
    auto server = std::make_unique<Server>();
    std::latch entered(1);
    std::latch mayLeave(1);
    std::atomic<bool> finished = false;
    const JoiningThread caller([&] {
        LiveInstance<Server>::use([&](Server& found) {
            entered.count_down();
            mayLeave.wait();
            ++found.calls;
            finished = true;
        });
    });
    entered.wait();
    const JoiningThread releaser([&] { mayLeave.count_down(); });
    server.reset();
    EXPECT_TRUE(finished);
}

} // namespace
} // namespace haloric
