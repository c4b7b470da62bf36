#include "hosts/sim/input/SimHotkeys.h"

#include <algorithm>
#include <string>
#include <utility>

namespace haloric {

namespace {

// The modifier flags of a key event as the modifiers of a hotkey.
std::uint32_t hotkeyModifiers(std::uint64_t flags)
{
    constexpr std::pair<std::uint64_t, std::uint32_t> kMasks[] = {{ModifierFlags::kCommand, HotkeyModifiers::kCommand},
                                                                  {ModifierFlags::kShift, HotkeyModifiers::kShift},
                                                                  {ModifierFlags::kOption, HotkeyModifiers::kOption},
                                                                  {ModifierFlags::kControl, HotkeyModifiers::kControl}};
    std::uint32_t modifiers = 0;
    for (const auto& [flag, modifier] : kMasks)
        modifiers |= (flags & flag) != 0 ? modifier : 0;
    return modifiers;
}

} // namespace

SimHotkeys::SimHotkeys(SimDesktop& desktop)
    : m_desktop(desktop),
      m_keys(desktop.notifier.tap.subscribe([this](const TapEvent& event) { keyPressed(event); }))
{
}

EventHandlerRef SimHotkeys::installEventHandler(HotkeyEventType type, std::function<std::int32_t()> handler)
{
    const EventHandlerRef reference{++m_last};
    m_handlers[reference] = {type, std::move(handler)};
    return reference;
}

HotkeyRef SimHotkeys::registerHotkey(const Hotkey& hotkey, std::uint32_t)
{
    const auto isSame = [&hotkey](const auto& entry) {
        return entry.second.keyCode == hotkey.keyCode && entry.second.modifiers == hotkey.modifiers;
    };
    if (std::ranges::any_of(m_hotkeys, isSame))
        return HotkeyRef::none;
    const HotkeyRef reference{++m_last};
    m_hotkeys[reference] = hotkey;
    m_desktop.journal.note(SimJournal::Kind::shell, "hotkey " + std::to_string(hotkey.number) + " registered");
    return reference;
}

void SimHotkeys::unregisterHotkey(HotkeyRef hotkey)
{
    const auto found = m_hotkeys.find(hotkey);
    if (found == m_hotkeys.end())
        return;
    m_desktop.journal.note(SimJournal::Kind::shell, "hotkey " + std::to_string(found->second.number) + " unregistered");
    m_hotkeys.erase(found);
}

void SimHotkeys::keyPressed(const TapEvent& event)
{
    const auto isPressed = [&event](const auto& entry) {
        return static_cast<std::int64_t>(entry.second.keyCode) == event.keyCode &&
               entry.second.modifiers == hotkeyModifiers(event.flags);
    };
    if (event.type == EventType::keyDown && std::ranges::any_of(m_hotkeys, isPressed))
        deliver(kPressed);
}

void SimHotkeys::deliver(HotkeyEventType type)
{
    const auto handlers = m_handlers; // a handler may install and remove others
    for (auto handler = handlers.rbegin(); handler != handlers.rend(); ++handler) {
        const auto& [reference, installed] = *handler;
        if (m_handlers.contains(reference) && installed.type == type && installed.call() == kNoError)
            return; // consumed
    }
}

} // namespace haloric
