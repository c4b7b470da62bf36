// Hotkeys that a test presses. Records every call, in order; installing and registering can be made to fail.
#pragma once

#include "foundation/Task.h"
#include "platform/Hotkeys.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace haloric {

class FakeHotkeys final : public Hotkeys {
public:
    bool refusesHandlers = false; // installing fails
    bool isTaken = false;         // registering fails
    Task whileRegistering;

    std::vector<std::string> calls;
    std::vector<HotkeyEventType> handledTypes; // of each installation
    std::vector<std::pair<Hotkey, std::uint32_t>> registrations;

    EventHandlerRef installEventHandler(HotkeyEventType type, std::function<std::int32_t()> handler) override
    {
        const EventHandlerRef reference{++m_last};
        calls.push_back("install " + std::to_string(m_last));
        handledTypes.push_back(type);
        if (refusesHandlers)
            return EventHandlerRef::none;
        m_handlers[reference] = std::move(handler);
        return reference;
    }

    void removeEventHandler(EventHandlerRef handler) override
    {
        calls.push_back("remove " + std::to_string(static_cast<std::uint64_t>(handler)));
        m_handlers.erase(handler);
    }

    HotkeyRef registerHotkey(const Hotkey& hotkey, std::uint32_t options) override
    {
        const HotkeyRef reference{++m_last};
        calls.push_back("register " + std::to_string(m_last));
        registrations.emplace_back(hotkey, options);
        if (whileRegistering)
            whileRegistering();
        if (isTaken)
            return HotkeyRef::none;
        m_registered[reference] = hotkey;
        return reference;
    }

    void unregisterHotkey(HotkeyRef hotkey) override
    {
        calls.push_back("unregister " + std::to_string(static_cast<std::uint64_t>(hotkey)));
        m_registered.erase(hotkey);
    }

    std::size_t registeredCount() const { return m_registered.size(); }
    std::size_t handlerCount() const { return m_handlers.size(); }

    // Presses the combination and returns the result of each handler; empty if the combination is not registered.
    std::vector<std::int32_t> press()
    {
        std::vector<std::int32_t> answers;
        if (m_registered.empty())
            return answers;
        const auto handlers = m_handlers; // a handler may remove itself
        for (const auto& [reference, handler] : handlers)
            answers.push_back(handler());
        return answers;
    }

private:
    std::uint64_t m_last = 0;
    std::map<EventHandlerRef, std::function<std::int32_t()>> m_handlers;
    std::map<HotkeyRef, Hotkey> m_registered;
};

} // namespace haloric
