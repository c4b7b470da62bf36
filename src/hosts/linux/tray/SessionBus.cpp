#include "hosts/linux/tray/SessionBus.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string_view>

#include <poll.h>
#include <sys/epoll.h>
#include <unistd.h>

namespace haloric {

namespace {

constexpr Seconds kFirstRetry{1};
constexpr Seconds kLongestRetry{60};
constexpr int kMessagesPerTurn = 32; // a peer that floods the connection must not hold the loop

bool isSet(const char* name)
{
    const char* value = std::getenv(name);
    return value && !std::string_view(value).empty();
}

bool hasAddress() { return isSet("DBUS_SESSION_BUS_ADDRESS") || isSet("XDG_RUNTIME_DIR"); }

} // namespace

SessionBus::SessionBus(LinuxRunLoop& runLoop)
    : m_runLoop(runLoop),
      m_poll(epoll_create1(EPOLL_CLOEXEC)),
      m_retryDelay(kFirstRetry)
{
    if (m_poll < 0 || !hasAddress())
        return;
    m_beforeWait = runLoop.onBeforeWait([this] { return takeIn(); });
    open();
}

SessionBus::~SessionBus()
{
    m_watch.reset();
    m_bus.reset();
    if (m_poll >= 0)
        close(m_poll);
}

void SessionBus::open()
{
    sd_bus* bus = nullptr;
    if (sd_bus_open_user(&bus) < 0) {
        retryLater();
        return;
    }
    m_bus.reset(bus);
    epoll_event event{};
    m_events = 0;
    if (epoll_ctl(m_poll, EPOLL_CTL_ADD, sd_bus_get_fd(bus), &event) < 0) {
        m_bus.reset();
        retryLater();
        return;
    }
    m_watch = m_runLoop.watch(m_poll, [this] { takeIn(); });
    m_opened.publish();
}

void SessionBus::lose()
{
    m_watch.reset();
    m_timeoutTimer.reset();
    m_timeout = UINT64_MAX;
    m_lost.publish();
    m_bus.reset(); // closes the descriptor, which leaves the epoll set
    retryLater();
}

void SessionBus::retryLater()
{
    m_retry = m_runLoop.scheduleOnce(m_retryDelay, [this] { open(); });
    m_retryDelay = std::min(m_retryDelay * 2, kLongestRetry);
}

// True if messages were handled.
bool SessionBus::takeIn()
{
    if (!m_bus)
        return false;
    const bool worked = process();
    if (m_bus)
        arm();
    return worked;
}

bool SessionBus::process()
{
    for (int count = 0; count < kMessagesPerTurn; ++count) {
        const int result = sd_bus_process(m_bus.get(), nullptr);
        if (result == -EBUSY) // this is a turn of the loop inside one of its callbacks
            return false;
        if (result < 0) {
            lose();
            return true;
        }
        if (result == 0)
            return count > 0;
    }
    return true;
}

void SessionBus::arm()
{
    if (sd_bus_is_ready(m_bus.get()) > 0)
        m_retryDelay = kFirstRetry;
    selectEvents();
    scheduleTimeout();
}

void SessionBus::selectEvents()
{
    const int wanted = sd_bus_get_events(m_bus.get());
    const std::uint32_t events = ((wanted & POLLIN) != 0 ? std::uint32_t{EPOLLIN} : 0U) |
                                 ((wanted & POLLOUT) != 0 ? std::uint32_t{EPOLLOUT} : 0U);
    if (wanted < 0 || events == m_events)
        return;
    epoll_event event{};
    event.events = events;
    if (epoll_ctl(m_poll, EPOLL_CTL_MOD, sd_bus_get_fd(m_bus.get()), &event) == 0)
        m_events = events;
}

void SessionBus::scheduleTimeout()
{
    std::uint64_t timeout = UINT64_MAX;
    if (sd_bus_get_timeout(m_bus.get(), &timeout) < 0 || timeout == m_timeout)
        return;
    m_timeout = timeout;
    m_timeoutTimer.reset();
    if (timeout == UINT64_MAX)
        return;
    const Seconds delay = Seconds(static_cast<double>(timeout) / 1e6) - m_runLoop.systemUptime();
    m_timeoutTimer = m_runLoop.scheduleOnce(std::max(delay, Seconds(0)), [this] {
        m_timeout = UINT64_MAX;
        takeIn();
    });
}

} // namespace haloric
