// System-wide hotkeys of the simulated desktop. Keys of SimKeyboard call their handlers.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/Hotkeys.h"

#include <map>

namespace haloric {

class SimHotkeys final : public Hotkeys {
public:
    explicit SimHotkeys(SimDesktop& desktop);

    // The only event type that is delivered is kPressed.
    EventHandlerRef installEventHandler(HotkeyEventType type, std::function<std::int32_t()> handler) override;
    void removeEventHandler(EventHandlerRef handler) override { m_handlers.erase(handler); }
    HotkeyRef registerHotkey(const Hotkey& hotkey, std::uint32_t options) override;
    void unregisterHotkey(HotkeyRef hotkey) override;

private:
    struct Handler {
        HotkeyEventType type;
        std::function<std::int32_t()> call;
    };

    void keyPressed(const TapEvent& event);
    void deliver(HotkeyEventType type);

    SimDesktop& m_desktop;
    std::uint64_t m_last = 0;
    std::map<EventHandlerRef, Handler> m_handlers; // the newest last
    std::map<HotkeyRef, Hotkey> m_hotkeys;
    Subscription m_keys;
};

} // namespace haloric
