// A window server whose windows and failures a test sets, and that notes every call. Entries are named by their
// symbols. Main thread, except for `notify`. Tests link haloric_fake_window_server.
//
// Calls read like "SLSRegisterNotifyProc(806)"; transactions are tx1, tx2 … in the order of creation.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "platform/WindowServerCalls.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class FakeWindowServerCalls final : public WindowServerCalls {
public:
    static constexpr ConnectionID kConnection = 77;

    // What the server offers; set before it is loaded.
    bool canBeOpened = true;
    std::set<std::string, std::less<>> missingSymbols;

    // The windows that the server knows, in global space.
    std::map<WindowNumber, Rect> bounds;

    // A committed move puts a known window at the requested point plus `moveOffset`, unless moves are ignored.
    bool ignoresMoves = false;
    Point moveOffset;

    // All calls in order. `entryCalls` leaves out loading and unloading.
    std::vector<std::string> calls;
    std::vector<std::string> entryCalls() const;
    std::size_t callCount(std::string_view entry) const; // since the fake was created
    void forgetCalls() { calls.clear(); }

    // Called inside every entry, with its name, after the call was noted and before it has an effect.
    std::function<void(const std::string& entry)> onEntry;

    // Makes an entry fail: always, or on its n-th call from now (1 is the next).
    void failAlways(const std::string& entry) { m_alwaysFailing.insert(entry); }
    void failOnCall(const std::string& entry, std::size_t n) { m_failingCalls[entry].insert(callCount(entry) + n); }
    void stopFailing();

    // Notifies as the server does if the event is registered, for any window. False if the event is not registered.
    bool notify(WindowServerEvent event, WindowNumber window);

    // Notifies whether the event is registered or not. False if there is no handler.
    bool notifyAnyway(WindowServerEvent event, WindowNumber window);

    // The state that the calls have produced.
    const std::set<WindowServerEvent>& registeredEvents() const { return m_registered; }
    std::vector<WindowNumber> requestedWindows() const;
    std::size_t createdTransactions() const { return m_createdTransactions; }
    std::size_t releasedTransactions() const { return m_releasedTransactions; }

    // WindowServerCalls
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

    bool note(Entry entry, const std::string& arguments); // true if the call is to succeed

    std::map<std::string, std::size_t, std::less<>> m_callCounts;
    std::set<std::string> m_alwaysFailing;
    std::map<std::string, std::set<std::size_t>> m_failingCalls;
    NotificationHandler m_handler;
    std::set<WindowServerEvent> m_registered;
    WindowNumber m_requestedWindow = WindowNumber::none;
    std::size_t m_createdTransactions = 0;
    std::size_t m_releasedTransactions = 0;
};

} // namespace haloric
