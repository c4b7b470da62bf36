#include "unit/hosts/posix/WindowServerModule.h"

#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <thread>

namespace {

using Procedure = void (*)(std::uint32_t, const void*, std::int64_t, void*);

struct Rectangle {
    double x, y, width, height;
};

struct Spot {
    double x, y;
};

struct Server {
    std::mutex lock;
    std::map<std::string, std::int32_t> failures;
    std::map<std::uint32_t, Procedure> procedures;
    WindowServerModuleState state{0, 0, 0, 10, 20, 1, 1};
    std::thread burst;

    std::int32_t resultOf(const char* entry)
    {
        const std::lock_guard guard(lock);
        const auto found = failures.find(entry);
        return found == failures.end() ? 0 : found->second;
    }
};

Server& server()
{
    static Server instance;
    return instance;
}

} // namespace

extern "C" {

void moduleReset()
{
    const std::lock_guard guard(server().lock);
    server().failures.clear();
    server().procedures.clear();
    server().state = {0, 0, 0, 10, 20, 1, 1};
}

void moduleFail(const char* entry, std::int32_t result)
{
    const std::lock_guard guard(server().lock);
    server().failures[entry] = result;
}

WindowServerModuleState moduleState()
{
    const std::lock_guard guard(server().lock);
    server().state.registeredEvents = static_cast<std::int32_t>(server().procedures.size());
    return server().state;
}

void moduleNotify(std::uint32_t event, std::uint32_t window)
{
    Procedure procedure = nullptr;
    {
        const std::lock_guard guard(server().lock);
        const auto found = server().procedures.find(event);
        if (found == server().procedures.end())
            return;
        procedure = found->second;
    }
    procedure(event, &window, sizeof window, nullptr);
}

void moduleStartBurst(std::int32_t count)
{
    server().burst = std::thread([count] {
        for (std::int32_t index = 0; index < count; ++index)
            moduleNotify(index % 3 ? 806 : 807, 42 + static_cast<std::uint32_t>(index % 2));
    });
}

void moduleJoinBurst() { server().burst.join(); }

std::int32_t SLSMainConnectionID() { return 7; }

std::int32_t SLSGetWindowBounds(std::int32_t connection, std::uint32_t window, Rectangle* bounds)
{
    const std::int32_t result = server().resultOf("SLSGetWindowBounds");
    const std::lock_guard guard(server().lock);
    const Rectangle zero{};
    server().state.boundsWereZeroed &= std::memcmp(bounds, &zero, sizeof zero) == 0 ? 1 : 0;
    *bounds = {server().state.windowX, server().state.windowY, 400, 300};
    return connection == 7 && window == 42 ? result : 1000;
}

std::int32_t SLSRegisterNotifyProc(Procedure procedure, std::uint32_t event, void* context)
{
    const std::int32_t result = server().resultOf("SLSRegisterNotifyProc");
    const std::lock_guard guard(server().lock);
    server().state.contextsWereNull &= context ? 0 : 1;
    if (result == 0)
        server().procedures[event] = procedure;
    return result;
}

std::int32_t SLSRemoveNotifyProc(Procedure, std::uint32_t event, void* context)
{
    const std::int32_t result = server().resultOf("SLSRemoveNotifyProc");
    const std::lock_guard guard(server().lock);
    server().state.contextsWereNull &= context ? 0 : 1;
    if (result == 0)
        server().procedures.erase(event);
    return result;
}

std::int32_t SLSRequestNotificationsForWindows(std::int32_t, const std::uint32_t*, std::int32_t count)
{
    const std::int32_t result = server().resultOf("SLSRequestNotificationsForWindows");
    const std::lock_guard guard(server().lock);
    if (result == 0)
        server().state.requestedWindows = count;
    return result;
}

void* SLSTransactionCreate(std::int32_t)
{
    return server().resultOf("SLSTransactionCreate") == 0 ? new Spot{} : nullptr;
}

std::int32_t SLSTransactionMoveWindowWithGroup(void* transaction, std::uint32_t, Spot origin)
{
    *static_cast<Spot*>(transaction) = origin;
    return server().resultOf("SLSTransactionMoveWindowWithGroup");
}

std::int32_t SLSTransactionCommit(void* transaction, std::int32_t zero)
{
    const std::int32_t result = server().resultOf("SLSTransactionCommit");
    const std::lock_guard guard(server().lock);
    if (zero == 0) {
        server().state.windowX = static_cast<Spot*>(transaction)->x;
        server().state.windowY = static_cast<Spot*>(transaction)->y;
        ++server().state.transactionsCommitted;
    }
    return result;
}

void moduleReleaseTransaction(void* transaction) { delete static_cast<Spot*>(transaction); }

} // extern "C"
