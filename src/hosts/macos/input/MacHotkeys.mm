#include "hosts/macos/input/MacHotkeys.h"

#include "menubar/HotkeyManager.h"

#import <Carbon/Carbon.h>

#include <utility>

namespace haloric {
namespace {

static_assert(Hotkeys::kPressed == HotkeyEventType{kEventClassKeyboard, kEventHotKeyPressed});
static_assert(Hotkeys::kNoError == noErr);
static_assert(HotkeyModifiers::kCommand == cmdKey);
static_assert(HotkeyModifiers::kShift == shiftKey);
static_assert(HotkeyModifiers::kOption == optionKey);
static_assert(HotkeyModifiers::kControl == controlKey);
static_assert(HotkeyManager::kHotkey.keyCode == kVK_ANSI_F);

OSStatus takeEvent(EventHandlerCallRef, EventRef, void* context)
{
    if (!context)
        return noErr;
    const auto handler = *static_cast<const std::function<std::int32_t()>*>(context); // it may remove itself
    return handler();
}

// The references of platform/Hotkeys.h are the event manager's pointers, as numbers.
template <class Reference, class Pointer>
Reference referenceFrom(Pointer pointer)
{
    return Reference{reinterpret_cast<std::uint64_t>(pointer)};
}

} // namespace

EventHandlerRef MacHotkeys::installEventHandler(HotkeyEventType type, std::function<std::int32_t()> handler)
{
    auto kept = std::make_unique<const std::function<std::int32_t()>>(std::move(handler));
    const EventTypeSpec spec{type.eventClass, type.kind};
    void* const context = const_cast<std::function<std::int32_t()>*>(kept.get());
    ::EventHandlerRef installed = nullptr;
    if (InstallEventHandler(GetApplicationEventTarget(), &takeEvent, 1, &spec, context, &installed) != noErr)
        return EventHandlerRef::none;
    const auto reference = referenceFrom<EventHandlerRef>(installed);
    m_handlers[reference] = std::move(kept);
    return reference;
}

void MacHotkeys::removeEventHandler(EventHandlerRef handler)
{
    RemoveEventHandler(reinterpret_cast<::EventHandlerRef>(handler));
    m_handlers.erase(handler);
}

HotkeyRef MacHotkeys::registerHotkey(const Hotkey& hotkey, std::uint32_t options)
{
    const EventHotKeyID identity{hotkey.signature, hotkey.number};
    EventHotKeyRef registered = nullptr;
    const OSStatus status = RegisterEventHotKey(hotkey.keyCode, hotkey.modifiers, identity, GetApplicationEventTarget(),
                                                options, &registered);
    return status == noErr ? referenceFrom<HotkeyRef>(registered) : HotkeyRef::none;
}

void MacHotkeys::unregisterHotkey(HotkeyRef hotkey) { UnregisterEventHotKey(reinterpret_cast<EventHotKeyRef>(hotkey)); }

} // namespace haloric
