#include "windowserver/WindowServer.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace haloric {

namespace {

using Entry = WindowServerCalls::Entry;

WindowServerChanges changeFrom(WindowServerEvent event)
{
    switch (event) {
    case WindowServerEvent::moved:
        return WindowServerChanges::moved;
    case WindowServerEvent::resized:
        return WindowServerChanges::resized;
    case WindowServerEvent::destroyed:
    case WindowServerEvent::orderedOut:
        return WindowServerChanges::other;
    }
    return {}; // numbers of other events
}

} // namespace

WindowServer::WindowServer(WindowServerCalls& calls, const Processes& processes, RunLoop& runLoop, Log& log)
    : m_calls(calls),
      m_runLoop(runLoop),
      m_log(log)
{
    if (processes.environmentVariable(kDisableVariable) == "1") {
        m_log.line("WindowServer fast path disabled; using display-linked fallback");
        return;
    }
    m_loaded = m_calls.load([this](WindowServerEvent event, WindowNumber windowID) { receive(event, windowID); });
    m_canNotify = hasAll({Entry::mainConnection, Entry::registerProc, Entry::removeProc, Entry::request});
    m_canGetBounds = hasAll({Entry::mainConnection, Entry::getBounds});
    m_canMove = hasAll({Entry::mainConnection, Entry::create, Entry::move, Entry::commit});
    if (!m_canNotify || !m_canGetBounds)
        m_log.line("WindowServer notifications unavailable; using display-linked fallback");
}

WindowServer::~WindowServer() { removeRegistrations(); }

bool WindowServer::hasAll(std::initializer_list<Entry> entries) const
{
    return std::ranges::all_of(entries, [this](Entry entry) { return m_calls.has(entry); });
}

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
    if (m_notificationsFailed || !m_canNotify)
        return false;

    const auto connection = m_calls.mainConnection();
    if (!m_calls.request(connection, WindowNumber::none))
        return failNotifications();
    if (windowID == WindowNumber::none) {
        stopNotifications();
        return true;
    }
    if (!registerEvents() || !m_calls.request(connection, windowID)) {
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
    for (const WindowServerEvent event : kWindowServerEvents) {
        if (!m_calls.registerProc(event))
            return false;
        m_registeredEvents.push_back(event);
    }
    return true;
}

void WindowServer::stopNotifications()
{
    for (const WindowServerEvent event : std::exchange(m_registeredEvents, {})) {
        if (!m_calls.removeProc(event)) {
            failNotifications();
            return;
        }
    }
}

void WindowServer::removeRegistrations()
{
    for (const WindowServerEvent event : std::exchange(m_registeredEvents, {}))
        m_calls.removeProc(event);
}

bool WindowServer::failNotifications()
{
    m_notificationsFailed = true;
    m_log.line("WindowServer notification call failed; using display-linked fallback");
    return false;
}

void WindowServer::receive(WindowServerEvent event, WindowNumber windowID)
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

std::optional<Rect> WindowServer::bounds(WindowNumber windowID) const
{
    if (windowID == WindowNumber::none || !m_canGetBounds)
        return std::nullopt;
    const auto rect = m_calls.getBounds(m_calls.mainConnection(), windowID);
    if (!rect)
        return std::nullopt;
    const bool finite =
        std::isfinite(rect->x) && std::isfinite(rect->y) && std::isfinite(rect->width) && std::isfinite(rect->height);
    return finite && rect->width > 1.0 && rect->height > 1.0 ? rect : std::nullopt;
}

bool WindowServer::move(WindowNumber windowID, Point point)
{
    if (windowID == WindowNumber::none || !std::isfinite(point.x) || !std::isfinite(point.y))
        return false;
    const char* reason = tryMove(windowID, point);
    if (!reason)
        return true;
    if (!std::exchange(m_loggedMovementFailure, true))
        m_log.line(std::string("WindowServer overlay transaction failed: ") + reason);
    return false;
}

const char* WindowServer::tryMove(WindowNumber windowID, Point point)
{
    if (!m_canMove)
        return "required symbol unavailable";
    const auto transaction = m_calls.create(m_calls.mainConnection());
    if (!transaction)
        return "transaction creation failed";
    transaction->move(windowID, point);
    transaction->commit();
    return nullptr;
}

} // namespace haloric
