// The functions of the window server's library, which the program looks up at
// run time.
#include "foundation/Balance.h"
#include "loop/MainLoop.h"
#include "world/World.h"

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
}
@interface RTTransaction : NSObject {
@public
    std::vector<std::pair<unsigned, CGPoint>> moves;
}
@end
@implementation RTTransaction
@end
extern "C" {
#define PRIVATE __attribute__((visibility("default"), used))
PRIVATE std::int32_t SLSMainConnectionID() { return 7; }
PRIVATE std::int32_t SLSGetWindowBounds(std::int32_t, std::uint32_t number, CGRect* rect)
{
    const Lock guard(World::the().lock);
    const auto* w = World::the().find(number);
    if (!w)
        return 1000;
    *rect = w->frame;
    return 0;
}
PRIVATE std::int32_t SLSRegisterNotifyProc(decltype(Proc::call) call, std::uint32_t event, void* context)
{
    g_procs.push_back({call, event, context});
    return 0;
}
PRIVATE std::int32_t SLSRemoveNotifyProc(decltype(Proc::call) call, std::uint32_t event, void* context)
{
    return std::erase_if(g_procs,
                         [&](const Proc& p) { return p.call == call && p.event == event && p.context == context; }) == 1
               ? 0
               : 1000;
}
PRIVATE std::int32_t SLSRequestNotificationsForWindows(std::int32_t, const std::uint32_t* numbers, std::int32_t count)
{
    g_watched = std::set<unsigned>(numbers, numbers + count);
    return 0;
}
PRIVATE void* SLSTransactionCreate(std::int32_t)
{
    return const_cast<void*>(CFBridgingRetain([[RTTransaction alloc] init]));
}
PRIVATE std::int32_t SLSTransactionMoveWindowWithGroup(void* t, std::uint32_t number, CGPoint origin)
{
    ((__bridge RTTransaction*)t)->moves.emplace_back(number, origin);
    return 0;
}
PRIVATE std::int32_t SLSTransactionCommit(void* t, std::int32_t)
{
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
    if (isPrivate && World::the().libraryMissing)
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
}
}
