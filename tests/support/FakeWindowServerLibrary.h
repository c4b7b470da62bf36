// A window server library whose eight entries are real functions that act on the one live fake, and note every call.
// Main thread; one exists at a time, because the entries carry no context. Tests link haloric_fake_window_server.
//
// Calls read like "SLSRegisterNotifyProc(proc, 806, null)"; transactions are tx1, tx2 … in the order of creation.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "platform/WindowServerLibrary.h"
#include "windowserver/WindowServerEntries.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class FakeWindowServerLibrary final : public WindowServerLibrary {
public:
    static constexpr std::int32_t kConnection = 77;
    static constexpr std::int32_t kFailureCode = 1000;

    FakeWindowServerLibrary();
    ~FakeWindowServerLibrary() override;

    static FakeWindowServerLibrary& live(); // throws when there is none

    // What the library offers; set before it is opened.
    bool canBeOpened = true;
    std::set<std::string, std::less<>> missingSymbols;

    // The windows that the server knows, in global space.
    std::map<WindowNumber, Rect> bounds;

    // A committed move puts a known window at the asked point plus `moveOffset`, unless moves are ignored.
    bool ignoresMoves = false;
    Point moveOffset;

    // Everything that was called, in order. `entryCalls` leaves out opening, closing and finding.
    std::vector<std::string> calls;
    std::vector<std::string> entryCalls() const;
    std::size_t callCount(std::string_view entry) const; // since the fake was made
    void forgetCalls() { calls.clear(); }

    // Called inside every entry, with its name, after the call was noted and before it has an effect.
    std::function<void(const std::string& entry)> onEntry;

    // Makes an entry give an error code, or a null transaction: always, or on its n-th call from now (1 is the next).
    void failAlways(const std::string& entry) { m_alwaysFailing.insert(entry); }
    void failOnCall(const std::string& entry, std::size_t n) { m_failingCalls[entry].insert(callCount(entry) + n); }
    void stopFailing();

    // Calls the procedure that is registered for `event` as the server does, also when the window is not (or no
    // longer) the one asked for. False when none is registered.
    bool notify(std::uint32_t event, WindowNumber windowID);

    // Calls the procedure that was registered last, whatever it was registered for, and even if it was removed.
    void notifyRaw(std::uint32_t event, const void* data, std::int64_t length);

    // The state that the server was brought into.
    std::set<std::uint32_t> registeredEvents() const;
    const std::vector<WindowNumber>& requestedWindows() const { return m_requestedWindows; }
    std::size_t createdTransactions() const { return m_transactions.size(); }
    std::size_t releasedTransactions() const { return m_releasedTransactions; }

    // WindowServerLibrary
    std::unique_ptr<OpenedLibrary> open(const char* path, int mode) override;
    void release(void* transaction) override;

private:
    friend struct FakeWindowServerEntryFunctions;

    struct Transaction {
        std::string name;
        std::map<WindowNumber, Point> moves;
        bool released = false;
    };

    bool note(const std::string& entry, const std::string& arguments); // whether the call is to succeed
    Transaction* find(void* transaction);
    void commit(Transaction& transaction);

    std::map<std::string, std::size_t, std::less<>> m_callCounts;
    std::set<std::string> m_alwaysFailing;
    std::map<std::string, std::set<std::size_t>> m_failingCalls;
    std::map<std::uint32_t, WindowServerEntries::NotifyProc> m_procedures;
    WindowServerEntries::NotifyProc m_lastProcedure = nullptr;
    std::vector<WindowNumber> m_requestedWindows;
    std::vector<std::unique_ptr<Transaction>> m_transactions;
    std::size_t m_releasedTransactions = 0;
};

} // namespace haloric
