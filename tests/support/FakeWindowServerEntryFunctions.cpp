#include "support/FakeWindowServerEntryFunctions.h"

#include <array>
#include <sstream>
#include <utility>

namespace haloric {
namespace {

using Functions = FakeWindowServerEntryFunctions;

FakeWindowServerLibrary& live() { return FakeWindowServerLibrary::live(); }

template <class... Values>
std::string list(const Values&... values)
{
    std::ostringstream text;
    const char* separator = "";
    ((text << separator << values, separator = ", "), ...);
    return text.str();
}

std::int32_t answer(bool succeeds) { return succeeds ? 0 : FakeWindowServerLibrary::kFailureCode; }

// The arguments of registering and removing a procedure.
std::string registration(Functions::NotifyProc procedure, std::uint32_t event, const void* context)
{
    return list(procedure ? "proc" : "null", event, context ? "context" : "null");
}

} // namespace

std::int32_t Functions::mainConnection()
{
    live().note("SLSMainConnectionID", "");
    return FakeWindowServerLibrary::kConnection;
}

std::int32_t Functions::getBounds(std::int32_t connection, std::uint32_t window, WindowServerEntries::CRect* out)
{
    const bool succeeds = live().note("SLSGetWindowBounds", list(connection, window));
    const auto found = live().bounds.find(WindowNumber{window});
    if (!succeeds || found == live().bounds.end())
        return FakeWindowServerLibrary::kFailureCode;
    *out = {found->second.x, found->second.y, found->second.width, found->second.height};
    return 0;
}

std::int32_t Functions::registerProc(NotifyProc procedure, std::uint32_t event, void* context)
{
    const bool succeeds = live().note("SLSRegisterNotifyProc", registration(procedure, event, context));
    if (succeeds) {
        live().m_procedures[event] = procedure;
        live().m_lastProcedure = procedure;
    }
    return answer(succeeds);
}

std::int32_t Functions::removeProc(NotifyProc procedure, std::uint32_t event, void* context)
{
    const bool succeeds = live().note("SLSRemoveNotifyProc", registration(procedure, event, context));
    if (succeeds)
        live().m_procedures.erase(event);
    return answer(succeeds);
}

std::int32_t Functions::request(std::int32_t connection, const std::uint32_t* windows, std::int32_t count)
{
    std::vector<WindowNumber> requested;
    std::string text = windows ? "[" : "null";
    for (std::int32_t index = 0; windows && index < count; ++index) {
        requested.push_back(WindowNumber{windows[index]});
        text += (index > 0 ? " " : "") + std::to_string(windows[index]);
    }
    text += windows ? "]" : "";
    const bool succeeds = live().note("SLSRequestNotificationsForWindows", list(connection, text, count));
    if (succeeds)
        live().m_requestedWindows = std::move(requested);
    return answer(succeeds);
}

void* Functions::create(std::int32_t connection)
{
    if (!live().note("SLSTransactionCreate", list(connection)))
        return nullptr;
    auto& transactions = live().m_transactions;
    transactions.push_back(std::make_unique<FakeWindowServerLibrary::Transaction>());
    transactions.back()->name = "tx" + std::to_string(transactions.size());
    return transactions.back().get();
}

std::int32_t Functions::move(void* transaction, std::uint32_t window, WindowServerEntries::CPoint origin)
{
    auto* known = live().find(transaction);
    const bool succeeds = live().note("SLSTransactionMoveWindowWithGroup",
                                      list(known ? known->name : "unknown", window, origin.x, origin.y));
    if (succeeds && known)
        known->moves[WindowNumber{window}] = {origin.x, origin.y};
    return answer(succeeds && known);
}

std::int32_t Functions::commit(void* transaction, std::int32_t zero)
{
    auto* known = live().find(transaction);
    const bool succeeds = live().note("SLSTransactionCommit", list(known ? known->name : "unknown", zero));
    if (succeeds && known)
        live().commit(*known);
    return answer(succeeds && known);
}

void* Functions::address(std::string_view symbol)
{
    const std::array<std::pair<std::string_view, void*>, 8> entries{{
        {"SLSMainConnectionID", reinterpret_cast<void*>(&mainConnection)},
        {"SLSGetWindowBounds", reinterpret_cast<void*>(&getBounds)},
        {"SLSRegisterNotifyProc", reinterpret_cast<void*>(&registerProc)},
        {"SLSRemoveNotifyProc", reinterpret_cast<void*>(&removeProc)},
        {"SLSRequestNotificationsForWindows", reinterpret_cast<void*>(&request)},
        {"SLSTransactionCreate", reinterpret_cast<void*>(&create)},
        {"SLSTransactionMoveWindowWithGroup", reinterpret_cast<void*>(&move)},
        {"SLSTransactionCommit", reinterpret_cast<void*>(&commit)},
    }};
    for (const auto& [name, function] : entries)
        if (name == symbol)
            return function;
    return nullptr;
}

} // namespace haloric
