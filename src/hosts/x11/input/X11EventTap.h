// A listener to the desktop's key presses and mouse buttons. The system never disables it. Main thread.
#pragma once

#include "hosts/x11/input/X11RawInput.h"
#include "platform/InputMonitors.h"

namespace haloric {

class X11EventTap final : public EventTap {
public:
    // The input outlives it. `mask` as in EventTapDescription.
    X11EventTap(X11RawInput& input, EventMask mask, InputMonitors::TapHandler handler);

    // Events come once it is on the loop and enabled.
    void addToMainRunLoop() override;
    void enable() override { m_enabled = true; }

private:
    void deliver(const TapEvent& event) const;

    X11RawInput& m_input;
    EventMask m_mask;
    InputMonitors::TapHandler m_handler;
    bool m_enabled = false;
    Subscription m_keys;
    Subscription m_buttons;
};

} // namespace haloric
