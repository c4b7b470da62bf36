// The window server's private interface on the simulated desktop. Notifications arrive as events of their own, between
// those of the main loop, as if another thread had sent them.
#pragma once

#include "foundation/WeakAnchor.h"
#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/WindowServerCalls.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace haloric {

class SimWindowServerCalls final : public WindowServerCalls {
public:
    explicit SimWindowServerCalls(SimDesktop& desktop);
    SimWindowServerCalls(const SimWindowServerCalls&) = delete;
    SimWindowServerCalls& operator=(const SimWindowServerCalls&) = delete;

    Subscription load(NotificationHandler handler) override;
    bool has(Entry entry) const override;
    ConnectionID mainConnection() override;
    std::optional<Rect> getBounds(ConnectionID connection, WindowNumber window) override;
    bool registerProc(WindowServerEvent event) override;
    bool removeProc(WindowServerEvent event) override;
    bool request(ConnectionID connection, WindowNumber window) override;
    std::unique_ptr<WindowServerTransaction> create(ConnectionID connection) override;

    // Calls the handler at once if the event is registered, for a window that need not be the watched one.
    void notify(WindowServerEvent event, WindowNumber window);

    // Tasks that the handler has posted to the main loop since the last request and that have not run yet.
    std::size_t outstandingDeliveries() const { return m_outstandingDeliveries; }

    std::size_t registrationCount() const { return m_registrations.size(); }
    std::size_t openTransactions() const { return m_transactions; }

private:
    class Transaction;

    bool fails(Entry entry);

    SimDesktop& m_desktop;
    NotificationHandler m_handler; // empty while nothing is loaded
    std::set<std::string, std::less<>> m_missingEntries;
    std::vector<WindowServerEvent> m_registrations;
    WindowNumber m_watched = WindowNumber::none;
    std::size_t m_transactions = 0;
    std::size_t m_outstandingDeliveries = 0;
    std::uint64_t m_requests = 0;
    Subscription m_subscription;
    WeakAnchor<SimWindowServerCalls> m_anchor{*this};
};

} // namespace haloric
