// The program's only way to the window server's private interface: movement notifications of one window, a
// window's frame, and moves in one transaction. Missing entries and failures are logged, and callers have a fallback.
//
// Main thread; notifications arrive on any thread.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "foundation/WeakAnchor.h"
#include "platform/Log.h"
#include "platform/Processes.h"
#include "platform/RunLoop.h"
#include "platform/WindowServerCalls.h"
#include "windowserver/WindowServerChanges.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <mutex>
#include <optional>
#include <vector>

namespace haloric {

class WindowServer {
public:
    using Changes = WindowServerChanges;
    using ChangeHandler = std::function<void(WindowNumber, Changes)>;

    static constexpr const char* kDisableVariable = "HALORIC_DISABLE_WINDOWSERVER_FAST_PATH";

    // Loads the calls, unless the environment forbids it. The adapters outlive the bridge.
    WindowServer(WindowServerCalls& calls, const Processes& processes, RunLoop& runLoop, Log& log);

    // Removes its registrations and waits for notifications that are under way. Later ones are dropped, and so is a
    // delivery that has been posted.
    ~WindowServer();
    WindowServer(const WindowServer&) = delete;
    WindowServer& operator=(const WindowServer&) = delete;

    // Watches one window in place of the previous one; WindowNumber::none with an empty handler: no window. True if
    // notifications are in force or were stopped; false if the caller must use its fallback. The handler runs on the
    // main thread, at most once a turn, with all changes since the last time.
    bool observe(WindowNumber windowID, ChangeHandler onChange);

    // A window's frame in global space (origin top left of the primary display, y downward). No value if the window
    // is gone, an entry is missing, or the frame is not finite or not larger than one point.
    std::optional<Rect> bounds(WindowNumber windowID) const;

    // Moves a window of this program in one transaction, its top left corner to `point` (global space). True if the
    // transaction was committed.
    bool move(WindowNumber windowID, Point point);

private:
    void receive(WindowServerEvent event, WindowNumber windowID); // any thread
    void deliver(std::uint64_t epoch, WindowNumber windowID);

    bool hasAll(std::initializer_list<WindowServerCalls::Entry> entries) const;
    bool registerEvents();
    void stopNotifications();                                // a failure ends the notifications for good
    void removeRegistrations();                              // failures are ignored
    bool failNotifications();                                // returns false
    const char* tryMove(WindowNumber windowID, Point point); // the reason of the failure, or null

    WindowServerCalls& m_calls;
    RunLoop& m_runLoop;
    Log& m_log;

    bool m_canNotify = false;
    bool m_canGetBounds = false;
    bool m_canMove = false;
    std::vector<WindowServerEvent> m_registeredEvents;
    ChangeHandler m_onChange;

    std::mutex m_lock; // guards the next four; not held during calls to other objects
    WindowNumber m_watchedID = WindowNumber::none;
    std::uint64_t m_epoch = 0;
    Changes m_pending;
    bool m_deliveryPending = false;

    bool m_loggedNotifications = false;
    bool m_loggedDelivery = false;
    bool m_loggedMovementFailure = false;
    bool m_notificationsFailed = false;

    WeakAnchor<WindowServer> m_anchor{*this};
    Subscription m_loaded; // last, so that no notification arrives while the rest is destroyed
};

} // namespace haloric
