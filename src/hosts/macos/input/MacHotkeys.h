// System-wide hotkeys of the Carbon event manager, on the application's event target.
#pragma once

#include "platform/Hotkeys.h"

#include <map>
#include <memory>

namespace haloric {

class MacHotkeys final : public Hotkeys {
public:
    EventHandlerRef installEventHandler(HotkeyEventType type, std::function<std::int32_t()> handler) override;
    void removeEventHandler(EventHandlerRef handler) override;
    HotkeyRef registerHotkey(const Hotkey& hotkey, std::uint32_t options) override;
    void unregisterHotkey(HotkeyRef hotkey) override;

private:
    // The event manager keeps their addresses.
    std::map<EventHandlerRef, std::unique_ptr<const std::function<std::int32_t()>>> m_handlers;
};

} // namespace haloric
