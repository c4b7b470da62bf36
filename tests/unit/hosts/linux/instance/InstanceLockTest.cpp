#include "hosts/linux/instance/InstanceLock.h"

#include "unit/hosts/linux/instance/InstanceFolder.h"

#include <atomic>
#include <latch>
#include <optional>
#include <thread>
#include <vector>

#include <sys/stat.h>
#include <sys/wait.h>

namespace haloric {
namespace {

using State = InstanceLock::State;

struct InstanceLockTest : testing::Test, InstanceFolder {};

TEST_F(InstanceLockTest, the_first_takes_it_and_can_be_reached)
{
    const InstanceLock seat(place);
    EXPECT_EQ(seat.state(), State::taken);
    EXPECT_TRUE(connected().isOpen());
    struct stat status {};
    ASSERT_EQ(stat(place.socket.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(InstanceLockTest, the_second_finds_it_occupied_and_the_first_keeps_its_socket)
{
    const InstanceLock first(place);
    {
        const InstanceLock second(place);
        EXPECT_EQ(second.state(), State::occupied);
        EXPECT_EQ(second.listeningDescriptor(), -1);
    }
    EXPECT_TRUE(connected().isOpen());
}

TEST_F(InstanceLockTest, it_is_free_again_with_its_holder)
{
    std::optional<InstanceLock> first(place);
    first.reset();
    EXPECT_FALSE(connected().isOpen());
    EXPECT_EQ(InstanceLock(place).state(), State::taken);
}

TEST_F(InstanceLockTest, what_a_killed_holder_left_is_no_obstacle)
{
    const pid_t child = fork();
    if (child == 0) {
        const InstanceLock seat(place);
        _exit(seat.state() == State::taken ? 0 : 1); // nothing is cleaned up
    }
    int status = -1;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(std::filesystem::exists(place.socket));
    const InstanceLock seat(place);
    EXPECT_EQ(seat.state(), State::taken);
    EXPECT_TRUE(connected().isOpen());
}

TEST_F(InstanceLockTest, of_many_at_once_one_gets_it)
{
    constexpr int kStarts = 8;
    std::latch start(kStarts);
    std::latch allTried(kStarts);
    std::atomic<int> taken = 0;
    std::atomic<int> occupied = 0;
    std::vector<std::thread> threads;
    for (int index = 0; index < kStarts; ++index) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            const InstanceLock seat(place);
            taken += seat.state() == State::taken ? 1 : 0;
            occupied += seat.state() == State::occupied ? 1 : 0;
            allTried.arrive_and_wait();
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(occupied, kStarts - 1);
}

TEST_F(InstanceLockTest, a_place_that_does_not_do_is_unavailable)
{
    EXPECT_EQ(InstanceLock({folder.path() / "gone" / "s", folder.path() / "gone" / "l"}).state(), State::unavailable);
    const std::string tooLong(150, 'x');
    EXPECT_EQ(InstanceLock({folder.path() / tooLong, place.lock}).state(), State::unavailable);
    std::filesystem::remove(place.lock);
    std::filesystem::create_symlink("/dev/null", place.lock);
    EXPECT_EQ(InstanceLock(place).state(), State::unavailable);
}

} // namespace
} // namespace haloric
