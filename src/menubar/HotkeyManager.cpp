#include "menubar/HotkeyManager.h"

#include <utility>

namespace haloric {

void HotkeyManager::enable()
{
    if (isRegistered())
        return;
    if (m_handler == EventHandlerRef::none) { // still installed if the registration failed before
        m_handler = m_hotkeys.installEventHandler(Hotkeys::kPressed, [press = m_anchor.bind(&HotkeyManager::pressed)] {
            press();
            return Hotkeys::kNoError; // consumed
        });
    }
    m_hotKey = m_hotkeys.registerHotkey(kHotkey, 0);
}

void HotkeyManager::disable()
{
    if (m_hotKey != HotkeyRef::none)
        m_hotkeys.unregisterHotkey(std::exchange(m_hotKey, HotkeyRef::none));
    if (m_handler != EventHandlerRef::none)
        m_hotkeys.removeEventHandler(std::exchange(m_handler, EventHandlerRef::none));
}

void HotkeyManager::pressed()
{
    const Task trigger = onTrigger; // a copy, because it may replace itself
    if (trigger)
        trigger();
}

} // namespace haloric
