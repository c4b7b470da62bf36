// Hotkeys of Carbon.
#include "platform/Hotkeys.h"
#include "controls/Menus.h"
#include "foundation/Balance.h"
#include "loop/MainLoop.h"
#include "world/Backing.h"

#import <Carbon/Carbon.h>

#include <map>
#include <utility>
#include <vector>

using substitute::onMain;
using substitute::raise;

extern "C" {
struct Handler {
    EventHandlerUPP call;
    void* context;
    haloric::EventHandlerRef behind; // with a backing
};
struct RegisteredKey {
    unsigned code, modifiers;
    haloric::HotkeyRef behind; // with a backing
};
static std::vector<Handler*> g_handlers;
static std::map<void*, RegisteredKey> g_hotkeys;
static const substitute::Counted countedHandlers("handlers of Carbon events",
                                                 [] { return static_cast<long>(g_handlers.size()); });
static const substitute::Counted countedHotkeys("hotkeys", [] { return static_cast<long>(g_hotkeys.size()); });
static haloric::Hotkeys* hotkeysBehind()
{
    const substitute::Backing* backing = substitute::backing();
    return backing ? &backing->adapters.hotkeys : nullptr;
}
EventTargetRef GetApplicationEventTarget() { return reinterpret_cast<EventTargetRef>(8); }
OSStatus InstallEventHandler(EventTargetRef, EventHandlerUPP call, ItemCount, const EventTypeSpec* type, void* context,
                             EventHandlerRef* made)
{
    auto* h = new Handler{call, context};
    if (haloric::Hotkeys* behind = hotkeysBehind())
        h->behind = behind->installEventHandler({type->eventClass, type->eventKind}, [call, context] {
            @autoreleasepool {
                return static_cast<std::int32_t>(call(nullptr, nullptr, context));
            }
        });
    g_handlers.push_back(h);
    *made = reinterpret_cast<EventHandlerRef>(h);
    return noErr;
}
OSStatus RemoveEventHandler(EventHandlerRef h)
{
    if (std::erase(g_handlers, reinterpret_cast<Handler*>(h)) != 1)
        raise("RemoveEventHandler: not installed");
    if (haloric::Hotkeys* behind = hotkeysBehind())
        behind->removeEventHandler(reinterpret_cast<Handler*>(h)->behind);
    delete reinterpret_cast<Handler*>(h);
    return noErr;
}
OSStatus RegisterEventHotKey(UInt32 code, UInt32 modifiers, EventHotKeyID identity, EventTargetRef, OptionBits options,
                             EventHotKeyRef* made)
{
    auto registered = haloric::HotkeyRef::none;
    if (haloric::Hotkeys* behind = hotkeysBehind()) {
        registered = behind->registerHotkey({code, modifiers, identity.signature, identity.id}, options);
        if (registered == haloric::HotkeyRef::none)
            return eventHotKeyExistsErr;
    }
    auto* k = new int;
    g_hotkeys[k] = {code, modifiers, registered};
    *made = reinterpret_cast<EventHotKeyRef>(k);
    return noErr;
}
OSStatus UnregisterEventHotKey(EventHotKeyRef k)
{
    const auto found = g_hotkeys.find(k);
    if (found == g_hotkeys.end())
        raise("UnregisterEventHotKey: not registered");
    if (haloric::Hotkeys* behind = hotkeysBehind())
        behind->unregisterHotkey(found->second.behind);
    g_hotkeys.erase(found);
    delete reinterpret_cast<int*>(k);
    return noErr;
}
}
namespace substitute {
void forgetHotkeys()
{
    for (Handler* handler : std::exchange(g_handlers, {}))
        delete handler;
    for (const auto& [key, registered] : std::exchange(g_hotkeys, {}))
        delete static_cast<int*>(key);
}
long hotkeys() { return static_cast<long>(g_hotkeys.size()); }
void pressHotkey()
{
    onMain([] {
        for (Handler* h : std::vector(g_handlers))
            h->call(nullptr, nullptr, h->context);
    });
}
}
