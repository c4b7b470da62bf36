// The program's connection to the user's session bus, on the program's run loop. Nothing here blocks: connecting, calls
// and replies are asynchronous. After the bus has gone, or where there is none yet, it is tried again: after one second
// at first, then at growing intervals of at most a minute. Main thread.
#pragma once

#include "foundation/Publisher.h"
#include "hosts/linux/loop/LinuxRunLoop.h"

#include <cstdint>
#include <memory>
#include <optional>

#include <systemd/sd-bus.h>

namespace haloric {

class SessionBus {
public:
    // Connects to the bus that the environment names: DBUS_SESSION_BUS_ADDRESS, or "bus" in XDG_RUNTIME_DIR. The run
    // loop outlives it.
    explicit SessionBus(LinuxRunLoop& runLoop);
    ~SessionBus();
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    // Null without a connection. Messages may be sent at once: sd-bus queues them until the bus has accepted the
    // connection. Do not run a nested loop inside a callback of sd-bus, because it would not handle messages.
    sd_bus* raw() const { return m_bus.get(); }

    // Called after a connection was made; not for the one that exists at the time of the call.
    Subscription onOpen(Task handler) { return m_opened.subscribe(std::move(handler)); }

    // Called before a lost connection is released. Subscribers drop their slots and messages.
    Subscription onLost(Task handler) { return m_lost.subscribe(std::move(handler)); }

private:
    struct Close {
        void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
    };

    void open();
    void lose();
    void retryLater();
    bool takeIn();
    bool process();
    void arm();
    void selectEvents();
    void scheduleTimeout();

    LinuxRunLoop& m_runLoop;
    std::unique_ptr<sd_bus, Close> m_bus;
    int m_poll = -1;                      // epoll set of the bus's descriptor, because sd-bus also waits for writing
    std::uint32_t m_events = 0;           // selected in that set
    std::uint64_t m_timeout = UINT64_MAX; // microseconds of CLOCK_MONOTONIC, as sd-bus states it
    Seconds m_retryDelay;
    Publisher<> m_opened;
    Publisher<> m_lost;
    Subscription m_watch;
    Subscription m_beforeWait;
    Subscription m_timeoutTimer;
    Subscription m_retry;
};

} // namespace haloric
