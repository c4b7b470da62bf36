// The connection to a bus that is absent, silent or goes away. A socket of the test plays the bus.
#include "hosts/linux/tray/SessionBus.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace haloric {
namespace {

constexpr Seconds kPatience{20};

class ScopedAddress {
public:
    explicit ScopedAddress(const std::string& address)
    {
        if (const char* before = std::getenv("DBUS_SESSION_BUS_ADDRESS"))
            m_before = before;
        setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    }
    ~ScopedAddress()
    {
        if (m_before.empty())
            unsetenv("DBUS_SESSION_BUS_ADDRESS");
        else
            setenv("DBUS_SESSION_BUS_ADDRESS", m_before.c_str(), 1);
    }
    ScopedAddress(const ScopedAddress&) = delete;
    ScopedAddress& operator=(const ScopedAddress&) = delete;

private:
    std::string m_before;
};

// A listening socket that accepts connections and never says anything.
class SilentBus {
public:
    explicit SilentBus(const std::string& path) : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(bind(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(m_socket, 4), 0);
    }
    ~SilentBus() { close(m_socket); }
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;

    void hangUp() { close(accept(m_socket, nullptr, nullptr)); }

private:
    int m_socket;
};

struct SessionBusTest : testing::Test {
    std::string folder = [] {
        std::string pattern = std::filesystem::temp_directory_path() / "haloric-bus-XXXXXX";
        return std::string(mkdtemp(pattern.data()));
    }();
    std::string socketPath = folder + "/bus";
    ScopedAddress address{"unix:path=" + socketPath};
    LinuxRunLoop runLoop;

    ~SessionBusTest() override { std::filesystem::remove_all(folder); }

    bool turnUntil(const std::function<bool()>& holds)
    {
        const Seconds end = runLoop.systemUptime() + kPatience;
        while (!holds()) {
            if (runLoop.systemUptime() > end)
                return false;
            runLoop.turn(Seconds(0.05));
        }
        return true;
    }
};

TEST_F(SessionBusTest, a_bus_that_starts_later_is_found)
{
    SessionBus bus(runLoop);
    EXPECT_EQ(bus.raw(), nullptr);
    bool isOpen = false;
    const auto opened = bus.onOpen([&isOpen] { isOpen = true; });
    const SilentBus silent(socketPath);
    EXPECT_TRUE(turnUntil([&] { return isOpen; }));
    EXPECT_NE(bus.raw(), nullptr);
}

TEST_F(SessionBusTest, a_bus_that_hangs_up_is_lost_and_tried_again)
{
    SilentBus silent(socketPath);
    SessionBus bus(runLoop);
    ASSERT_NE(bus.raw(), nullptr);
    int losses = 0;
    bool hadConnection = false;
    bool isOpen = false;
    const auto lost = bus.onLost([&] {
        ++losses;
        hadConnection = bus.raw() != nullptr;
    });
    const auto opened = bus.onOpen([&isOpen] { isOpen = true; });
    silent.hangUp();
    EXPECT_TRUE(turnUntil([&] { return losses == 1; }));
    EXPECT_TRUE(hadConnection);
    EXPECT_EQ(bus.raw(), nullptr);
    EXPECT_TRUE(turnUntil([&] { return isOpen; }));
}

TEST_F(SessionBusTest, a_silent_bus_does_not_hold_the_loop)
{
    const SilentBus silent(socketPath);
    const SessionBus bus(runLoop);
    bool wasCalled = false;
    runLoop.post([&wasCalled] { wasCalled = true; });
    EXPECT_TRUE(turnUntil([&] { return wasCalled; }));
}

TEST_F(SessionBusTest, an_address_that_cannot_be_used_gives_no_connection)
{
    const ScopedAddress other("autolaunch:");
    const SessionBus bus(runLoop);
    EXPECT_EQ(bus.raw(), nullptr);
}

} // namespace
} // namespace haloric
