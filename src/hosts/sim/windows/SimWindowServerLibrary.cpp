#include "hosts/sim/windows/SimWindowServerLibrary.h"

#include <cassert>
#include <optional>
#include <string>

namespace haloric {

namespace {

constexpr std::int32_t kSuccess = 0;
constexpr std::int32_t kFailure = 1000;
constexpr std::int32_t kIllegalArgument = 1001;
constexpr std::int32_t kConnection = 7;

struct CRect {
    double x, y, width, height;
};
struct CPoint {
    double x, y;
};
struct Move {
    WindowNumber window;
    CPoint origin;
};
struct Transaction {
    std::vector<Move> moves;
};

} // namespace

SimWindowServerLibrary* SimWindowServerLibrary::s_live = nullptr;

// The platform's functions. Each works on the one live library.
struct SimWindowServerLibrary::Entries {
    static std::int32_t mainConnection() { return kConnection; }

    static std::int32_t getBounds(std::int32_t connection, std::uint32_t number, CRect* bounds)
    {
        if (connection != kConnection || !bounds || s_live->fails("SLSGetWindowBounds"))
            return kFailure;
        const SimWindow* window = s_live->m_desktop.model.windows.find(static_cast<WindowNumber>(number));
        if (!window)
            return kIllegalArgument;
        *bounds = {window->frame.x, window->frame.y, window->frame.width, window->frame.height};
        return kSuccess;
    }

    static std::int32_t registerProc(Procedure procedure, std::uint32_t event, void* context)
    {
        if (s_live->fails("SLSRegisterNotifyProc"))
            return kFailure;
        s_live->m_registrations.push_back({procedure, event, context});
        return kSuccess;
    }

    static std::int32_t removeProc(Procedure procedure, std::uint32_t event, void* context)
    {
        if (s_live->fails("SLSRemoveNotifyProc"))
            return kFailure;
        std::erase(s_live->m_registrations, Registration{procedure, event, context});
        return kSuccess;
    }

    static std::int32_t request(std::int32_t connection, const std::uint32_t* windows, std::int32_t count)
    {
        if (connection != kConnection || s_live->fails("SLSRequestNotificationsForWindows"))
            return kFailure;
        s_live->m_watched.clear();
        s_live->m_outstandingDeliveries = 0;
        ++s_live->m_choices;
        for (std::int32_t i = 0; i < count; ++i)
            s_live->m_watched.insert(static_cast<WindowNumber>(windows[i]));
        return kSuccess;
    }

    static void* create(std::int32_t connection)
    {
        if (connection != kConnection || s_live->fails("SLSTransactionCreate"))
            return nullptr;
        ++s_live->m_transactions;
        return new Transaction;
    }

    static std::int32_t move(void* transaction, std::uint32_t window, CPoint origin)
    {
        static_cast<Transaction*>(transaction)->moves.push_back({static_cast<WindowNumber>(window), origin});
        return kSuccess;
    }

    static std::int32_t commit(void* transaction, std::int32_t)
    {
        SimDesktop& desktop = s_live->m_desktop;
        for (const Move& move : static_cast<Transaction*>(transaction)->moves) {
            SimWindow* window = desktop.model.windows.find(move.window);
            // A connection moves its own windows only.
            if (!window || window->owner != SimModel::kOwnProcess || desktop.faults.transactionsLie)
                continue;
            window->frame.x = move.origin.x;
            window->frame.y = move.origin.y;
            desktop.journal.noteOverlay(SimJournal::Kind::overlayCarried, static_cast<std::int64_t>(move.window),
                                        window->frame);
        }
        return kSuccess;
    }
};

class SimWindowServerLibrary::Opened final : public OpenedLibrary {
public:
    explicit Opened(const SimFaults& faults) : m_faults(faults) {}

    void* find(const char* symbol) const override
    {
        const std::string_view name(symbol);
        if (m_faults.missingEntries.contains(name))
            return nullptr;
        if (name == "SLSMainConnectionID")
            return reinterpret_cast<void*>(&Entries::mainConnection);
        if (name == "SLSGetWindowBounds")
            return reinterpret_cast<void*>(&Entries::getBounds);
        if (name == "SLSRegisterNotifyProc")
            return reinterpret_cast<void*>(&Entries::registerProc);
        if (name == "SLSRemoveNotifyProc")
            return reinterpret_cast<void*>(&Entries::removeProc);
        if (name == "SLSRequestNotificationsForWindows")
            return reinterpret_cast<void*>(&Entries::request);
        if (name == "SLSTransactionCreate")
            return reinterpret_cast<void*>(&Entries::create);
        if (name == "SLSTransactionMoveWindowWithGroup")
            return reinterpret_cast<void*>(&Entries::move);
        if (name == "SLSTransactionCommit")
            return reinterpret_cast<void*>(&Entries::commit);
        return nullptr;
    }

private:
    const SimFaults& m_faults;
};

SimWindowServerLibrary::SimWindowServerLibrary(SimDesktop& desktop) : m_desktop(desktop)
{
    assert(!s_live);
    s_live = this;
    m_subscription = desktop.notifier.windowServer.subscribe([this](std::uint32_t event, WindowNumber window) {
        if (m_watched.contains(window)) {
            const auto number = static_cast<std::uint32_t>(window);
            notify(event, &number, sizeof number);
        }
    });
}

SimWindowServerLibrary::~SimWindowServerLibrary() { s_live = nullptr; }

std::unique_ptr<OpenedLibrary> SimWindowServerLibrary::open(const char* /*path*/, int /*mode*/)
{
    if (m_desktop.faults.libraryMissing)
        return nullptr;
    return std::make_unique<Opened>(m_desktop.faults);
}

void SimWindowServerLibrary::release(void* transaction)
{
    --m_transactions;
    delete static_cast<Transaction*>(transaction);
}

void SimWindowServerLibrary::notify(std::uint32_t event, const void* data, std::int64_t length)
{
    SimRunLoop& runLoop = m_desktop.runLoop;
    const auto registrations = m_registrations;
    for (const auto& registration : registrations) {
        if (registration.event != event)
            continue;
        const std::size_t before = runLoop.pendingEventCount();
        registration.procedure(event, data, length, registration.context);
        if (runLoop.pendingEventCount() == before)
            continue;
        ++m_outstandingDeliveries;
        runLoop.post([weak = m_anchor.ref(), choice = m_choices] { // comes right after what the procedure posted
            if (auto* self = weak.get(); self && self->m_choices == choice)
                --self->m_outstandingDeliveries;
        });
    }
}

bool SimWindowServerLibrary::fails(std::string_view symbol) { return m_desktop.faults.failsNow(symbol); }

} // namespace haloric
