#include "fakes/FakeWindowServerCalls.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <utility>

namespace haloric {

namespace {

template <class... Values>
std::string list(const Values&... values)
{
    std::ostringstream text;
    std::string_view separator;
    ((text << std::exchange(separator, ", ") << values), ...);
    return text.str();
}

std::uint32_t numberOf(WindowServerEvent event) { return static_cast<std::uint32_t>(event); }
std::uint32_t numberOf(WindowNumber window) { return static_cast<std::uint32_t>(window); }

} // namespace

class FakeWindowServerCalls::Transaction final : public WindowServerTransaction {
public:
    explicit Transaction(FakeWindowServerCalls& server)
        : m_server(server),
          m_name("tx" + std::to_string(++server.m_createdTransactions))
    {
    }
    ~Transaction() override
    {
        m_server.calls.push_back("release(" + m_name + ")");
        ++m_server.m_releasedTransactions;
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void move(WindowNumber window, Point topLeft) override
    {
        if (m_server.note(Entry::move, list(m_name, numberOf(window), topLeft.x, topLeft.y)))
            m_moves[window] = topLeft;
    }

    void commit() override
    {
        if (!m_server.note(Entry::commit, m_name) || m_server.ignoresMoves)
            return;
        for (const auto& [window, topLeft] : m_moves) {
            if (const auto found = m_server.bounds.find(window); found != m_server.bounds.end()) {
                found->second.x = topLeft.x + m_server.moveOffset.x;
                found->second.y = topLeft.y + m_server.moveOffset.y;
            }
        }
    }

private:
    FakeWindowServerCalls& m_server;
    std::string m_name;
    std::map<WindowNumber, Point> m_moves;
};

std::vector<std::string> FakeWindowServerCalls::entryCalls() const
{
    std::vector<std::string> result;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(result),
                 [](const std::string& call) { return call != "load()" && call != "unload()"; });
    return result;
}

std::size_t FakeWindowServerCalls::callCount(std::string_view entry) const
{
    const auto found = m_callCounts.find(entry);
    return found == m_callCounts.end() ? 0 : found->second;
}

void FakeWindowServerCalls::stopFailing()
{
    m_alwaysFailing.clear();
    m_failingCalls.clear();
}

bool FakeWindowServerCalls::notify(WindowServerEvent event, WindowNumber window)
{
    return m_registered.contains(event) && notifyAnyway(event, window);
}

bool FakeWindowServerCalls::notifyAnyway(WindowServerEvent event, WindowNumber window)
{
    if (!m_handler)
        return false;
    m_handler(event, window);
    return true;
}

std::vector<WindowNumber> FakeWindowServerCalls::requestedWindows() const
{
    return m_requestedWindow == WindowNumber::none ? std::vector<WindowNumber>{} : std::vector{m_requestedWindow};
}

bool FakeWindowServerCalls::note(Entry entry, const std::string& arguments)
{
    const std::string name = symbol(entry);
    calls.push_back(name + "(" + arguments + ")");
    const std::size_t count = ++m_callCounts[name];
    if (onEntry)
        onEntry(name);
    return !m_alwaysFailing.contains(name) && !m_failingCalls[name].contains(count);
}

Subscription FakeWindowServerCalls::load(NotificationHandler handler)
{
    calls.emplace_back("load()");
    m_handler = std::move(handler);
    return Subscription([this] {
        calls.emplace_back("unload()");
        m_handler = nullptr;
    });
}

bool FakeWindowServerCalls::has(Entry entry) const
{
    return m_handler && canBeOpened && !missingSymbols.contains(symbol(entry));
}

WindowServerCalls::ConnectionID FakeWindowServerCalls::mainConnection()
{
    note(Entry::mainConnection, "");
    return kConnection;
}

std::optional<Rect> FakeWindowServerCalls::getBounds(ConnectionID connection, WindowNumber window)
{
    const bool succeeds = note(Entry::getBounds, list(connection, numberOf(window)));
    const auto found = bounds.find(window);
    return succeeds && found != bounds.end() ? std::optional(found->second) : std::nullopt;
}

bool FakeWindowServerCalls::registerProc(WindowServerEvent event)
{
    const bool succeeds = note(Entry::registerProc, list(numberOf(event)));
    if (succeeds)
        m_registered.insert(event);
    return succeeds;
}

bool FakeWindowServerCalls::removeProc(WindowServerEvent event)
{
    const bool succeeds = note(Entry::removeProc, list(numberOf(event)));
    if (succeeds)
        m_registered.erase(event);
    return succeeds;
}

bool FakeWindowServerCalls::request(ConnectionID connection, WindowNumber window)
{
    const bool succeeds = note(
        Entry::request, list(connection, window == WindowNumber::none ? "none" : std::to_string(numberOf(window))));
    if (succeeds)
        m_requestedWindow = window;
    return succeeds;
}

std::unique_ptr<WindowServerTransaction> FakeWindowServerCalls::create(ConnectionID connection)
{
    return note(Entry::create, list(connection)) ? std::make_unique<Transaction>(*this) : nullptr;
}

} // namespace haloric
