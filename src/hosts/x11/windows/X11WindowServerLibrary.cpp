#include "hosts/x11/windows/X11WindowServerLibrary.h"

#include <array>
#include <string_view>
#include <type_traits>
#include <utility>

namespace haloric {

namespace {

using Entries = WindowServerEntries;
using Transaction = X11WindowServer::Transaction;

constexpr std::int32_t kSuccess = 0;
constexpr std::int32_t kFailure = 1000;
constexpr std::int32_t kConnection = 1;

X11WindowServer* liveServer = nullptr;

std::int32_t result(bool succeeded) { return succeeded ? kSuccess : kFailure; }

std::int32_t mainConnectionID() { return kConnection; }

std::int32_t getWindowBounds(std::int32_t, std::uint32_t window, Entries::CRect* bounds)
{
    const auto found = liveServer ? liveServer->bounds(window) : std::nullopt;
    if (found)
        *bounds = {found->x, found->y, found->width, found->height};
    return result(found.has_value());
}

std::int32_t registerNotifyProc(Entries::NotifyProc procedure, std::uint32_t event, void*)
{
    if (!liveServer)
        return kFailure;
    liveServer->addProcedure(procedure, event);
    return kSuccess;
}

std::int32_t removeNotifyProc(Entries::NotifyProc procedure, std::uint32_t event, void*)
{
    return result(liveServer && liveServer->removeProcedure(procedure, event));
}

std::int32_t requestNotificationsForWindows(std::int32_t, const std::uint32_t* windows, std::int32_t count)
{
    const std::size_t size = windows && count > 0 ? static_cast<std::size_t>(count) : 0;
    return result(liveServer && liveServer->requestNotifications({windows, size}));
}

void* transactionCreate(std::int32_t) { return liveServer ? liveServer->createTransaction().release() : nullptr; }

std::int32_t transactionMoveWindowWithGroup(void* transaction, std::uint32_t window, Entries::CPoint origin)
{
    X11WindowServer::move(*static_cast<Transaction*>(transaction), window, {origin.x, origin.y});
    return kSuccess;
}

std::int32_t transactionCommit(void* transaction, std::int32_t)
{
    if (!liveServer)
        return kFailure;
    liveServer->commit(*static_cast<Transaction*>(transaction));
    return kSuccess;
}

template <class Function>
std::pair<std::string_view, void*> symbol(std::string_view name, Function function, Function Entries::*)
{
    return {name, reinterpret_cast<void*>(function)};
}

class BuiltInLibrary final : public OpenedLibrary {
public:
    void* find(const char* wanted) const override
    {
        static const std::array symbols{
            symbol("SLSMainConnectionID", &mainConnectionID, &Entries::mainConnection),
            symbol("SLSGetWindowBounds", &getWindowBounds, &Entries::getBounds),
            symbol("SLSRegisterNotifyProc", &registerNotifyProc, &Entries::registerProc),
            symbol("SLSRemoveNotifyProc", &removeNotifyProc, &Entries::removeProc),
            symbol("SLSRequestNotificationsForWindows", &requestNotificationsForWindows, &Entries::request),
            symbol("SLSTransactionCreate", &transactionCreate, &Entries::create),
            symbol("SLSTransactionMoveWindowWithGroup", &transactionMoveWindowWithGroup, &Entries::move),
            symbol("SLSTransactionCommit", &transactionCommit, &Entries::commit),
        };
        for (const auto& [name, address] : symbols) {
            if (name == wanted)
                return address;
        }
        return nullptr;
    }
};

} // namespace

X11WindowServerLibrary::X11WindowServerLibrary(X11Connection& connection, const char* display,
                                               const X11Clients& clients, const X11Scale& scale)
    : m_server(connection, display, clients, scale)
{
    liveServer = &m_server;
}

X11WindowServerLibrary::~X11WindowServerLibrary() { liveServer = nullptr; }

std::unique_ptr<OpenedLibrary> X11WindowServerLibrary::open(const char*, int)
{
    return std::make_unique<BuiltInLibrary>();
}

void X11WindowServerLibrary::release(void* transaction)
{
    m_server.recycle(std::unique_ptr<Transaction>(static_cast<Transaction*>(transaction)));
}

} // namespace haloric
