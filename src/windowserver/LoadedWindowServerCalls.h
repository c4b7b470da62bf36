// The window server's private interface from a library that is opened at run time, its entries looked up by name.
// Main thread, except for the notification procedure, which the window server calls on a thread of its own.
#pragma once

#include "platform/WindowServerCalls.h"
#include "platform/WindowServerLibrary.h"
#include "windowserver/LiveInstance.h"
#include "windowserver/WindowServerEntries.h"

namespace haloric {

class LoadedWindowServerCalls final : public WindowServerCalls {
public:
    static constexpr const char* kFrameworkPath = "/System/Library/PrivateFrameworks/SkyLight.framework/SkyLight";

    // Opens nothing yet. The library outlives it. One object loads at a time, because the notification procedure
    // carries no context.
    explicit LoadedWindowServerCalls(WindowServerLibrary& library) : m_library(library) {}

    Subscription load(NotificationHandler handler) override;
    bool has(Entry entry) const override;
    ConnectionID mainConnection() override;
    std::optional<Rect> getBounds(ConnectionID connection, WindowNumber window) override;
    bool registerProc(WindowServerEvent event) override;
    bool removeProc(WindowServerEvent event) override;
    bool request(ConnectionID connection, WindowNumber window) override;
    std::unique_ptr<WindowServerTransaction> create(ConnectionID connection) override;

private:
    class Transaction;

    struct Receiver {
        explicit Receiver(NotificationHandler newHandler) : handler(std::move(newHandler)) {}
        NotificationHandler handler;
        LiveInstance<Receiver> live{*this};
    };

    static void notificationProcedure(std::uint32_t event, const void* data, std::int64_t length, void* context);
    void unload();

    WindowServerLibrary& m_library;
    std::unique_ptr<OpenedLibrary> m_framework;
    WindowServerEntries m_entries;
    std::optional<Receiver> m_receiver;
};

} // namespace haloric
