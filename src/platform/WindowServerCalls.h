// The eight entries of the window server's private interface as typed calls. Each of them may be missing and must not
// be called then. Rectangles and points are in global space. Main thread, except for the notification handler.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "foundation/Subscription.h"
#include "platform/WindowServerEvents.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace haloric {

// Moves of the program's own windows that take effect together. Destroying it releases it.
class WindowServerTransaction {
public:
    virtual ~WindowServerTransaction() = default;

    virtual void move(WindowNumber window, Point topLeft) = 0;
    virtual void commit() = 0;
};

class WindowServerCalls {
public:
    enum class Entry : std::uint8_t {
        mainConnection,
        getBounds,
        registerProc,
        removeProc,
        request,
        create,
        move,
        commit,
    };

    // The name under which macOS exports each entry, in the order of `Entry`.
    static constexpr std::array kSymbols{
        "SLSMainConnectionID",
        "SLSGetWindowBounds",
        "SLSRegisterNotifyProc",
        "SLSRemoveNotifyProc",
        "SLSRequestNotificationsForWindows",
        "SLSTransactionCreate",
        "SLSTransactionMoveWindowWithGroup",
        "SLSTransactionCommit",
    };
    static constexpr const char* symbol(Entry entry) { return kSymbols[static_cast<std::size_t>(entry)]; }

    using ConnectionID = std::int32_t;
    using NotificationHandler = std::function<void(WindowServerEvent, WindowNumber)>;

    virtual ~WindowServerCalls() = default;

    // Looks the entries up; before, all of them are missing. Notifications of registered events go to `handler`, on
    // any thread and possibly during a call. Resetting the result waits for notifications that are under way, drops
    // later ones and gives the entries back. One result exists at a time, and this object outlives it.
    virtual Subscription load(NotificationHandler handler) = 0;

    virtual bool has(Entry entry) const = 0;

    virtual ConnectionID mainConnection() = 0;

    // A window's frame; no value on an error.
    virtual std::optional<Rect> getBounds(ConnectionID connection, WindowNumber window) = 0;

    // Starts and ends the notifications of one event. False on an error.
    virtual bool registerProc(WindowServerEvent event) = 0;
    virtual bool removeProc(WindowServerEvent event) = 0;

    // Notifies of this window in place of the previous one; WindowNumber::none: of no window. False on an error.
    virtual bool request(ConnectionID connection, WindowNumber window) = 0;

    // Null on an error.
    virtual std::unique_ptr<WindowServerTransaction> create(ConnectionID connection) = 0;
};

} // namespace haloric
