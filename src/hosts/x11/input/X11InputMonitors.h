// Mouse monitors and event taps over XInput raw events. Main thread.
#pragma once

#include "hosts/x11/input/X11OwnWindows.h"
#include "hosts/x11/input/X11RawInput.h"
#include "platform/InputMonitors.h"

namespace haloric {

class X11InputMonitors final : public InputMonitors {
public:
    // Both outlive it.
    X11InputMonitors(X11RawInput& input, const X11OwnWindows& ownWindows);

    Subscription addGlobalMouseMonitor(EventMask mask, MouseHandler handler) override;
    Subscription addLocalMouseMonitor(EventMask mask, MouseHandler handler) override;
    std::uint64_t pressedMouseButtons() const override { return m_input.pressedButtons(); }

    // X needs no permission: null only if the server has no raw events. The location and the placement have no
    // meaning here, every tap only listens, and the server never disables one.
    std::unique_ptr<EventTap> createEventTap(const EventTapDescription& description, TapHandler handler) override;

private:
    void deliver(EventType type);

    X11RawInput& m_input;
    const X11OwnWindows& m_ownWindows;
    bool m_pressIsOurs = false; // a release goes where the press went
    Publisher<EventType> m_global;
    Publisher<EventType> m_local;
    Subscription m_buttons;
};

} // namespace haloric
