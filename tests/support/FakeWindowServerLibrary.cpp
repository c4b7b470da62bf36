#include "support/FakeWindowServerLibrary.h"

#include "support/FakeWindowServerEntryFunctions.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <stdexcept>

namespace haloric {
namespace {

FakeWindowServerLibrary* g_live = nullptr;

class FakeOpenedLibrary final : public OpenedLibrary {
public:
    ~FakeOpenedLibrary() override
    {
        if (g_live)
            g_live->calls.emplace_back("close()");
    }

    void* find(const char* symbol) const override
    {
        auto& library = FakeWindowServerLibrary::live();
        library.calls.push_back("find(" + std::string(symbol) + ")");
        return library.missingSymbols.contains(symbol) ? nullptr : FakeWindowServerEntryFunctions::address(symbol);
    }
};

} // namespace

FakeWindowServerLibrary::FakeWindowServerLibrary()
{
    if (g_live)
        throw std::logic_error("a second window server library was made");
    g_live = this;
}

FakeWindowServerLibrary::~FakeWindowServerLibrary() { g_live = nullptr; }

FakeWindowServerLibrary& FakeWindowServerLibrary::live()
{
    if (!g_live)
        throw std::logic_error("a window server entry was called without a live library");
    return *g_live;
}

std::vector<std::string> FakeWindowServerLibrary::entryCalls() const
{
    std::vector<std::string> result;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(result),
                 [](const std::string& call) { return call.starts_with("SLS") || call.starts_with("release"); });
    return result;
}

std::size_t FakeWindowServerLibrary::callCount(std::string_view entry) const
{
    const auto found = m_callCounts.find(entry);
    return found == m_callCounts.end() ? 0 : found->second;
}

void FakeWindowServerLibrary::stopFailing()
{
    m_alwaysFailing.clear();
    m_failingCalls.clear();
}

bool FakeWindowServerLibrary::notify(std::uint32_t event, WindowNumber windowID)
{
    const auto found = m_procedures.find(event);
    if (found == m_procedures.end())
        return false;
    // The server's records are longer than the number that they begin with.
    std::array<std::byte, 12> data{};
    std::memcpy(data.data(), &windowID, sizeof windowID);
    found->second(event, data.data(), static_cast<std::int64_t>(data.size()), nullptr);
    return true;
}

void FakeWindowServerLibrary::notifyRaw(std::uint32_t event, const void* data, std::int64_t length)
{
    if (!m_lastProcedure)
        throw std::logic_error("no notification procedure was ever registered");
    m_lastProcedure(event, data, length, nullptr);
}

std::set<std::uint32_t> FakeWindowServerLibrary::registeredEvents() const
{
    std::set<std::uint32_t> events;
    for (const auto& [event, procedure] : m_procedures)
        events.insert(event);
    return events;
}

std::unique_ptr<OpenedLibrary> FakeWindowServerLibrary::open(const char* path, int mode)
{
    calls.push_back("open(" + std::string(path) + ", " + std::to_string(mode) + ")");
    return canBeOpened ? std::make_unique<FakeOpenedLibrary>() : nullptr;
}

void FakeWindowServerLibrary::release(void* transaction)
{
    Transaction* known = find(transaction);
    calls.push_back("release(" + (known ? known->name : "unknown") + ")");
    if (!known)
        throw std::logic_error("released what is no transaction, or a transaction twice");
    known->released = true;
    ++m_releasedTransactions;
}

bool FakeWindowServerLibrary::note(const std::string& entry, const std::string& arguments)
{
    calls.push_back(entry + "(" + arguments + ")");
    const std::size_t count = ++m_callCounts[entry];
    if (onEntry)
        onEntry(entry);
    return !m_alwaysFailing.contains(entry) && !m_failingCalls[entry].contains(count);
}

FakeWindowServerLibrary::Transaction* FakeWindowServerLibrary::find(void* transaction)
{
    for (const auto& known : m_transactions)
        if (known.get() == transaction && !known->released)
            return known.get();
    return nullptr;
}

void FakeWindowServerLibrary::commit(Transaction& transaction)
{
    if (ignoresMoves)
        return;
    for (const auto& [window, point] : transaction.moves) {
        if (const auto found = bounds.find(window); found != bounds.end()) {
            found->second.x = point.x + moveOffset.x;
            found->second.y = point.y + moveOffset.y;
        }
    }
}

} // namespace haloric
