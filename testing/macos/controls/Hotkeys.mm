// Hotkeys of Carbon.
#include "controls/Menus.h"
#include "foundation/Balance.h"
#include "loop/MainLoop.h"

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
};
static std::vector<Handler*> g_handlers;
static std::map<void*, std::pair<unsigned, unsigned>> g_hotkeys;
static const substitute::Counted countedHandlers("handlers of Carbon events",
                                                 [] { return static_cast<long>(g_handlers.size()); });
static const substitute::Counted countedHotkeys("hotkeys", [] { return static_cast<long>(g_hotkeys.size()); });
EventTargetRef GetApplicationEventTarget() { return reinterpret_cast<EventTargetRef>(8); }
OSStatus InstallEventHandler(EventTargetRef, EventHandlerUPP call, ItemCount, const EventTypeSpec*, void* context,
                             EventHandlerRef* made)
{
    auto* h = new Handler{call, context};
    g_handlers.push_back(h);
    *made = reinterpret_cast<EventHandlerRef>(h);
    return noErr;
}
OSStatus RemoveEventHandler(EventHandlerRef h)
{
    if (std::erase(g_handlers, reinterpret_cast<Handler*>(h)) != 1)
        raise("RemoveEventHandler: not installed");
    delete reinterpret_cast<Handler*>(h);
    return noErr;
}
OSStatus RegisterEventHotKey(UInt32 code, UInt32 modifiers, EventHotKeyID, EventTargetRef, OptionBits,
                             EventHotKeyRef* made)
{
    auto* k = new int;
    g_hotkeys[k] = {code, modifiers};
    *made = reinterpret_cast<EventHotKeyRef>(k);
    return noErr;
}
OSStatus UnregisterEventHotKey(EventHotKeyRef k)
{
    if (!g_hotkeys.erase(k))
        raise("UnregisterEventHotKey: not registered");
    delete reinterpret_cast<int*>(k);
    return noErr;
}
}
namespace substitute {
long hotkeys() { return static_cast<long>(g_hotkeys.size()); }
void pressHotkey()
{
    onMain([] {
        for (Handler* h : std::vector(g_handlers))
            h->call(nullptr, nullptr, h->context);
    });
}
}
