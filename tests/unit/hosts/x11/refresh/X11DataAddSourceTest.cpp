#include "hosts/x11/refresh/X11DataAddSource.h"

#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/sim/loop/SimRunLoop.h"

#include <thread>

namespace haloric {
namespace {

struct X11DataAddSourceTest : testing::Test {
    LinuxRunLoop loop;
    int calls = 0;
    std::shared_ptr<X11DataAddSource> source = std::make_shared<X11DataAddSource>(loop, [this] { ++calls; });
    void turn() { loop.turn(Seconds(0)); }
};

TEST_F(X11DataAddSourceTest, counts_that_come_before_the_loop_turns_make_one_call)
{
    source->resume();
    source->add(1);
    source->add(1);
    EXPECT_EQ(calls, 0);
    turn();
    EXPECT_EQ(calls, 1);
    source->add(1);
    turn();
    EXPECT_EQ(calls, 2);
}

TEST_F(X11DataAddSourceTest, counts_from_before_the_start_wait_for_it)
{
    source->add(1);
    turn();
    EXPECT_EQ(calls, 0);
    source->resume();
    turn();
    EXPECT_EQ(calls, 1);
}

TEST_F(X11DataAddSourceTest, a_cancelled_source_stays_silent)
{
    source->resume();
    source->add(1);
    source->cancel();
    turn();
    source->add(1);
    turn();
    EXPECT_EQ(calls, 0);
}

TEST_F(X11DataAddSourceTest, a_count_of_zero_is_none)
{
    source->resume();
    source->add(0);
    turn();
    EXPECT_EQ(calls, 0);
}

TEST_F(X11DataAddSourceTest, another_thread_may_add)
{
    source->resume();
    std::thread([this] { source->add(1); }).join();
    turn();
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace haloric
