#include "hosts/sim/windows/SimWindowServerCalls.h"

#include <algorithm>
#include <utility>

namespace haloric {

namespace {

constexpr WindowServerCalls::ConnectionID kConnection = 7;

} // namespace

class SimWindowServerCalls::Transaction final : public WindowServerTransaction {
public:
    explicit Transaction(SimWindowServerCalls& calls) : m_calls(calls) { ++m_calls.m_transactions; }
    ~Transaction() override { --m_calls.m_transactions; }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void move(WindowNumber window, Point topLeft) override { m_moves.emplace_back(window, topLeft); }

    void commit() override
    {
        SimDesktop& desktop = m_calls.m_desktop;
        for (const auto& [number, topLeft] : m_moves) {
            SimWindow* window = desktop.model.windows.find(number);
            // A connection moves only its own windows.
            if (!window || window->owner != SimModel::kOwnProcess || desktop.faults.transactionsLie)
                continue;
            window->frame.x = topLeft.x;
            window->frame.y = topLeft.y;
            desktop.journal.noteOverlay(SimJournal::Kind::overlayCarried, static_cast<std::int64_t>(number),
                                        window->frame);
        }
    }

private:
    SimWindowServerCalls& m_calls;
    std::vector<std::pair<WindowNumber, Point>> m_moves;
};

SimWindowServerCalls::SimWindowServerCalls(SimDesktop& desktop)
    : m_desktop(desktop),
      m_subscription(desktop.notifier.windowServer.subscribe([this](WindowServerEvent event, WindowNumber window) {
          if (window == m_watched)
              notify(event, window);
      }))
{
}

Subscription SimWindowServerCalls::load(NotificationHandler handler)
{
    if (m_desktop.faults.libraryMissing)
        m_missingEntries.insert(kSymbols.begin(), kSymbols.end());
    else
        m_missingEntries = m_desktop.faults.missingEntries;
    m_handler = std::move(handler);
    return Subscription([this] { m_handler = nullptr; });
}

bool SimWindowServerCalls::has(Entry entry) const { return m_handler && !m_missingEntries.contains(symbol(entry)); }

WindowServerCalls::ConnectionID SimWindowServerCalls::mainConnection() { return kConnection; }

std::optional<Rect> SimWindowServerCalls::getBounds(ConnectionID connection, WindowNumber window)
{
    if (connection != kConnection || fails(Entry::getBounds))
        return std::nullopt;
    const SimWindow* found = m_desktop.model.windows.find(window);
    return found ? std::optional(found->frame) : std::nullopt;
}

bool SimWindowServerCalls::registerProc(WindowServerEvent event)
{
    if (fails(Entry::registerProc))
        return false;
    m_registrations.push_back(event);
    return true;
}

bool SimWindowServerCalls::removeProc(WindowServerEvent event)
{
    if (fails(Entry::removeProc))
        return false;
    std::erase(m_registrations, event);
    return true;
}

bool SimWindowServerCalls::request(ConnectionID connection, WindowNumber window)
{
    if (connection != kConnection || fails(Entry::request))
        return false;
    m_watched = window;
    m_outstandingDeliveries = 0;
    ++m_requests;
    return true;
}

std::unique_ptr<WindowServerTransaction> SimWindowServerCalls::create(ConnectionID connection)
{
    if (connection != kConnection || fails(Entry::create))
        return nullptr;
    return std::make_unique<Transaction>(*this);
}

void SimWindowServerCalls::notify(WindowServerEvent event, WindowNumber window)
{
    if (!m_handler)
        return;
    SimRunLoop& runLoop = m_desktop.runLoop;
    for (auto registered = std::ranges::count(m_registrations, event); registered > 0; --registered) {
        const std::size_t before = runLoop.pendingEventCount();
        m_handler(event, window);
        if (runLoop.pendingEventCount() == before)
            continue;
        ++m_outstandingDeliveries;
        runLoop.post([weak = m_anchor.ref(), request = m_requests] { // runs right after what the handler posted
            if (auto* self = weak.get(); self && self->m_requests == request)
                --self->m_outstandingDeliveries;
        });
    }
}

bool SimWindowServerCalls::fails(Entry entry) { return m_desktop.faults.failsNow(symbol(entry)); }

} // namespace haloric
