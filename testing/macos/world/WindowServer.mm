// The functions of the window server's library, which the program looks up at
// run time.
#include "foundation/Balance.h"
#include "loop/MainLoop.h"
#include "platform/WindowServerCalls.h"
#include "world/Backing.h"
#include "world/World.h"

#include <algorithm>
#include <memory>
#include <set>
#include <string_view>
#include <utility>

#include <dlfcn.h>

using substitute::raise;
using substitute::text;
using substitute::World;
using Lock = std::lock_guard<std::recursive_mutex>;

namespace {
struct Proc {
    void (*call)(std::uint32_t, const void*, std::int64_t, void*);
    std::uint32_t event;
    void* context;
};
std::vector<Proc> g_procs;
std::set<unsigned> g_watched;
bool g_lacksSymbols = false;
std::set<std::string>& missingSymbols()
{
    static auto* const all = new std::set<std::string>;
    return *all;
}
bool lacks(const char* symbol) { return missingSymbols().contains(symbol); }
const substitute::Counted counted("notification procedures of the window server",
                                  [] { return static_cast<long>(g_procs.size()); });

// ---- with a backing

haloric::Subscription g_loaded;
std::size_t g_deliveries = 0;

haloric::WindowServerCalls& callsBehind() { return substitute::backing()->adapters.windowServerCalls; }

// The backing notifies once for each registration; each time another one of the event's procedures is called.
void deliver(haloric::WindowServerEvent event, haloric::WindowNumber window)
{
    std::vector<Proc> procs;
    for (const Proc& proc : g_procs)
        if (proc.event == static_cast<std::uint32_t>(event))
            procs.push_back(proc);
    if (procs.empty())
        return;
    const Proc& proc = procs[g_deliveries++ % procs.size()];
    const auto number = static_cast<std::uint32_t>(window);
    proc.call(proc.event, &number, sizeof number, proc.context);
}

bool isLibraryMissing()
{
    g_loaded.reset();
    g_loaded = callsBehind().load(deliver);
    const auto& symbols = haloric::WindowServerCalls::kSymbols;
    std::set<std::string> missing;
    for (std::size_t entry = 0; entry < std::size(symbols); ++entry)
        if (!callsBehind().has(static_cast<haloric::WindowServerCalls::Entry>(entry)))
            missing.emplace(symbols[entry]);
    const bool isAll = missing.size() == std::size(symbols);
    substitute::setMissingSymbols(std::move(missing));
    return isAll;
}
} // namespace
@interface RTTransaction : NSObject {
@public
    std::vector<std::pair<unsigned, CGPoint>> moves;
    std::unique_ptr<haloric::WindowServerTransaction> behind; // with a backing
}
@end
@implementation RTTransaction
@end
extern "C" {
#define PRIVATE __attribute__((visibility("default"), used))
PRIVATE std::int32_t SLSMainConnectionID() { return substitute::backing() ? callsBehind().mainConnection() : 7; }
PRIVATE std::int32_t SLSGetWindowBounds(std::int32_t connection, std::uint32_t number, CGRect* rect)
{
    if (substitute::backing()) {
        const auto bounds = callsBehind().getBounds(connection, haloric::WindowNumber{number});
        if (bounds)
            *rect = CGRectMake(bounds->x, bounds->y, bounds->width, bounds->height);
        return bounds ? 0 : 1000;
    }
    const Lock guard(World::the().lock);
    const auto* w = World::the().find(number);
    if (!w)
        return 1000;
    *rect = w->frame;
    return 0;
}
PRIVATE std::int32_t SLSRegisterNotifyProc(decltype(Proc::call) call, std::uint32_t event, void* context)
{
    if (substitute::backing() && !callsBehind().registerProc(haloric::WindowServerEvent{event}))
        return 1000;
    g_procs.push_back({call, event, context});
    return 0;
}
PRIVATE std::int32_t SLSRemoveNotifyProc(decltype(Proc::call) call, std::uint32_t event, void* context)
{
    const auto found = std::ranges::find_if(
        g_procs, [&](const Proc& p) { return p.call == call && p.event == event && p.context == context; });
    if (found == g_procs.end())
        return 1000;
    if (substitute::backing() && !callsBehind().removeProc(haloric::WindowServerEvent{event}))
        return 1000;
    g_procs.erase(found);
    return 0;
}
PRIVATE std::int32_t SLSRequestNotificationsForWindows(std::int32_t connection, const std::uint32_t* numbers,
                                                       std::int32_t count)
{
    if (substitute::backing())
        return callsBehind().request(connection, haloric::WindowNumber{count > 0 ? numbers[0] : 0}) ? 0 : 1000;
    g_watched = std::set<unsigned>(numbers, numbers + count);
    return 0;
}
PRIVATE void* SLSTransactionCreate(std::int32_t connection)
{
    RTTransaction* made = [[RTTransaction alloc] init];
    if (substitute::backing() && !(made->behind = callsBehind().create(connection)))
        return nullptr;
    return const_cast<void*>(CFBridgingRetain(made));
}
PRIVATE std::int32_t SLSTransactionMoveWindowWithGroup(void* t, std::uint32_t number, CGPoint origin)
{
    RTTransaction* transaction = (__bridge RTTransaction*)t;
    if (transaction->behind)
        transaction->behind->move(haloric::WindowNumber{number}, {origin.x, origin.y});
    else
        transaction->moves.emplace_back(number, origin);
    return 0;
}
PRIVATE std::int32_t SLSTransactionCommit(void* t, std::int32_t)
{
    if (((__bridge RTTransaction*)t)->behind) {
        ((__bridge RTTransaction*)t)->behind->commit();
        return 0;
    }
    const Lock guard(World::the().lock);
    for (const auto& [number, origin] : ((__bridge RTTransaction*)t)->moves)
        if (auto* w = World::the().find(number))
            w->frame.origin = origin;
    return 0;
}
// The loader knows the private framework as this program.
void* __real_dlopen(const char* path, int mode);
void* __wrap_dlopen(const char* path, int mode)
{
    const bool isPrivate = path && std::string_view(path).starts_with("/System/Library/PrivateFrameworks/");
    if (isPrivate && (substitute::backing() ? isLibraryMissing() : World::the().libraryMissing))
        return nullptr;
    return __real_dlopen(isPrivate ? nullptr : path, mode);
}
void* __real_dlsym(void* library, const char* symbol);
// The sanitizers' runtime calls it before it is ready itself.
__attribute__((no_sanitize("address", "thread", "undefined"))) void* __wrap_dlsym(void* library, const char* symbol)
{
    return g_lacksSymbols && lacks(symbol) ? nullptr : __real_dlsym(library, symbol);
}
}

namespace substitute {
void World::server(unsigned event, unsigned number)
{
    if (!g_watched.contains(number))
        return;
    for (const Proc& proc : std::vector(g_procs))
        if (proc.event == event)
            onMain([proc, event, number] {
                std::uint32_t n = number;
                proc.call(event, &n, 4, proc.context);
            });
}
void setMissingSymbols(std::set<std::string> symbols)
{
    missingSymbols() = std::move(symbols);
    g_lacksSymbols = !missingSymbols().empty();
}
void forgetWindowServerClients()
{
    g_procs.clear();
    g_watched.clear();
    g_loaded.reset();
}
}
