// The notification half of the bridge: watching one window, and carrying what changed to the main thread.
#include "windowserver/WindowServer.h"

#include <array>
#include <cstring>
#include <utility>

namespace haloric {
namespace {

constexpr std::array<std::uint32_t, 4> kEvents{804, 806, 807, 816};

WindowServerChanges changeFrom(std::uint32_t event)
{
    switch (event) {
    case 806:
        return WindowServerChanges::moved;
    case 807:
        return WindowServerChanges::resized;
    case 804:
    case 816:
        return WindowServerChanges::other;
    default:
        return {};
    }
}

} // namespace

bool WindowServer::observe(WindowNumber windowID, ChangeHandler onChange)
{
    {
        const std::lock_guard guard(m_lock);
        ++m_epoch;
        m_watchedID = WindowNumber::none;
        m_pending = {};
        m_deliveryPending = false;
    }
    m_onChange = nullptr;
    if (m_notificationsFailed || !m_entries.canNotify())
        return false;

    const std::int32_t connection = m_entries.mainConnection();
    if (m_entries.request(connection, nullptr, 0) != 0)
        return failNotifications();
    if (windowID == WindowNumber::none) {
        stopNotifications();
        return true;
    }
    if (!registerEvents() || !requestNotifications(connection, windowID)) {
        removeRegistrations();
        return failNotifications();
    }

    m_onChange = std::move(onChange);
    {
        const std::lock_guard guard(m_lock);
        m_watchedID = windowID;
    }
    if (!std::exchange(m_loggedNotifications, true))
        m_log.line("WindowServer fast path: focused-window notifications enabled");
    return true;
}

bool WindowServer::registerEvents()
{
    if (!m_registeredEvents.empty())
        return true;
    for (const std::uint32_t event : kEvents) {
        if (m_entries.registerProc(&notificationProcedure, event, nullptr) != 0)
            return false;
        m_registeredEvents.push_back(event);
    }
    return true;
}

bool WindowServer::requestNotifications(std::int32_t connection, WindowNumber windowID) const
{
    const auto window = static_cast<std::uint32_t>(windowID);
    return m_entries.request(connection, &window, 1) == 0;
}

void WindowServer::stopNotifications()
{
    for (const std::uint32_t event : std::exchange(m_registeredEvents, {})) {
        if (m_entries.removeProc(&notificationProcedure, event, nullptr) != 0) {
            failNotifications();
            return;
        }
    }
}

void WindowServer::removeRegistrations()
{
    for (const std::uint32_t event : std::exchange(m_registeredEvents, {}))
        m_entries.removeProc(&notificationProcedure, event, nullptr);
}

bool WindowServer::failNotifications()
{
    m_notificationsFailed = true;
    m_log.line("WindowServer notification call failed; using display-linked fallback");
    return false;
}

void WindowServer::notificationProcedure(std::uint32_t event, const void* data, std::int64_t length, void*)
{
    std::uint32_t windowID = 0;
    if (!data || length < static_cast<std::int64_t>(sizeof windowID))
        return;
    std::memcpy(&windowID, data, sizeof windowID); // the data need not be aligned

    LiveInstance<WindowServer>::use([&](WindowServer& bridge) { bridge.receive(event, WindowNumber{windowID}); });
}

void WindowServer::receive(std::uint32_t event, WindowNumber windowID)
{
    const Changes change = changeFrom(event);
    if (change.isEmpty())
        return;
    std::uint64_t epoch = 0;
    {
        const std::lock_guard guard(m_lock);
        if (m_watchedID == WindowNumber::none || m_watchedID != windowID)
            return;
        m_pending.insert(change);
        if (std::exchange(m_deliveryPending, true))
            return;
        epoch = m_epoch;
    }
    m_runLoop.post([self = m_anchor.ref(), epoch, windowID] {
        if (WindowServer* bridge = self.get())
            bridge->deliver(epoch, windowID);
    });
}

void WindowServer::deliver(std::uint64_t epoch, WindowNumber windowID)
{
    Changes changes;
    {
        const std::lock_guard guard(m_lock);
        if (m_epoch != epoch || m_watchedID != windowID)
            return;
        changes = std::exchange(m_pending, {});
        m_deliveryPending = false;
    }
    if (!m_loggedDelivery && !changes.isDisjoint({Changes::moved, Changes::resized})) {
        m_loggedDelivery = true;
        m_log.line("WindowServer fast path: received focused-window movement notification");
    }
    const ChangeHandler handler = m_onChange; // a copy, because the handler may watch another window
    if (handler)
        handler(windowID, changes);
}

} // namespace haloric
