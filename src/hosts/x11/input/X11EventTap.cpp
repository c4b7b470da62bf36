#include "hosts/x11/input/X11EventTap.h"

namespace haloric {

X11EventTap::X11EventTap(X11RawInput& input, EventMask mask, InputMonitors::TapHandler handler)
    : m_input(input),
      m_mask(mask),
      m_handler(std::move(handler))
{
}

void X11EventTap::addToMainRunLoop()
{
    m_keys = m_input.onKeyDown([this](const TapEvent& event) { deliver(event); });
    m_buttons = m_input.onButton([this](EventType type) {
        TapEvent event;
        event.type = type;
        deliver(event);
    });
}

void X11EventTap::deliver(const TapEvent& event) const
{
    if (m_enabled && (m_mask & maskOf(event.type)) != 0)
        m_handler(event);
}

} // namespace haloric
