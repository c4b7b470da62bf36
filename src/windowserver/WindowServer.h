// The program's only way to the window server's private interface: movement notifications of one window, a
// window's frame, and moves in one transaction. Everything is looked up by name at run time; what is missing or
// fails is said once in the log, and callers have a fallback.
//
// Main thread, but for the notification procedure, which the window server calls on a thread of its own.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "foundation/WeakAnchor.h"
#include "platform/Log.h"
#include "platform/Processes.h"
#include "platform/RunLoop.h"
#include "platform/WindowServerLibrary.h"
#include "windowserver/LiveInstance.h"
#include "windowserver/WindowServerChanges.h"
#include "windowserver/WindowServerEntries.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace haloric {

class WindowServer {
public:
    using Changes = WindowServerChanges;
    using ChangeHandler = std::function<void(WindowNumber, Changes)>;

    static constexpr const char* kFrameworkPath = "/System/Library/PrivateFrameworks/SkyLight.framework/SkyLight";
    static constexpr const char* kDisableVariable = "HALORIC_DISABLE_WINDOWSERVER_FAST_PATH";

    // Opens the library, unless the environment forbids it. The adapters outlive the bridge. One bridge exists at a
    // time, because the notification procedure carries no context.
    WindowServer(WindowServerLibrary& library, const Processes& processes, RunLoop& runLoop, Log& log);

    // Takes its registrations back and waits for notifications that are under way; later ones are dropped, and so is
    // a delivery that has been posted.
    ~WindowServer();
    WindowServer(const WindowServer&) = delete;
    WindowServer& operator=(const WindowServer&) = delete;

    // Watches one window in place of the previous one, or none (WindowNumber::none, empty handler). True when
    // notifications are in force or were stopped; false when the caller must use its fallback. The handler runs on
    // the main thread, at most once a turn, with all changes since the last time.
    bool observe(WindowNumber windowID, ChangeHandler onChange);

    // A window's frame in global space (origin top left of the primary display, y downward); absent when the window
    // is gone, the interface is missing, or the frame is not finite or not larger than one point.
    std::optional<Rect> bounds(WindowNumber windowID) const;

    // Moves a window of this program, so that its top left corner is at `point` (global space), in one transaction.
    // True when it was committed.
    bool move(WindowNumber windowID, Point point);

private:
    static void notificationProcedure(std::uint32_t event, const void* data, std::int64_t length, void* context);
    void receive(std::uint32_t event, WindowNumber windowID); // any thread
    void deliver(std::uint64_t epoch, WindowNumber windowID);

    bool registerEvents();
    bool requestNotifications(std::int32_t connection, WindowNumber windowID) const;
    void stopNotifications();                                // a failure counts as one
    void removeRegistrations();                              // failures do not count
    bool failNotifications();                                // gives false
    const char* tryMove(WindowNumber windowID, Point point); // the reason why it failed, or null

    WindowServerLibrary& m_library;
    RunLoop& m_runLoop;
    Log& m_log;

    std::unique_ptr<OpenedLibrary> m_framework;
    WindowServerEntries m_entries;
    std::vector<std::uint32_t> m_registeredEvents;
    ChangeHandler m_onChange;

    std::mutex m_lock; // guards the next four, and is never held while calling out
    WindowNumber m_watchedID = WindowNumber::none;
    std::uint64_t m_epoch = 0;
    Changes m_pending;
    bool m_deliveryPending = false;

    bool m_loggedNotifications = false;
    bool m_loggedDelivery = false;
    bool m_loggedMovementFailure = false;
    bool m_notificationsFailed = false;

    WeakAnchor<WindowServer> m_anchor{*this};
    LiveInstance<WindowServer> m_live{*this};
};

} // namespace haloric
