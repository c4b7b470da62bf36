#include "hosts/x11/input/X11InputMonitors.h"

namespace haloric {

namespace {

bool isPress(EventType type)
{
    return type == EventType::leftMouseDown || type == EventType::rightMouseDown || type == EventType::otherMouseDown;
}

std::function<void(const EventType&)> limitedTo(EventMask mask, InputMonitors::MouseHandler handler)
{
    return [mask, handler = std::move(handler)](EventType type) {
        if ((mask & maskOf(type)) != 0)
            handler(type);
    };
}

class X11EventTap final : public EventTap {
public:
    X11EventTap(X11RawInput& input, EventMask mask, InputMonitors::TapHandler handler)
        : m_input(input),
          m_mask(mask),
          m_handler(std::move(handler))
    {
    }

    void addToMainRunLoop() override
    {
        m_keys = m_input.onKeyDown([this](const TapEvent& event) { deliver(event); });
        m_buttons = m_input.onButton([this](EventType type) {
            TapEvent event;
            event.type = type;
            deliver(event);
        });
    }

    void enable() override { m_enabled = true; }

private:
    void deliver(const TapEvent& event) const
    {
        if (!m_enabled || (m_mask & maskOf(event.type)) == 0)
            return;
        const InputMonitors::TapHandler handler = m_handler; // it may destroy this tap
        handler(event);
    }

    X11RawInput& m_input;
    EventMask m_mask;
    InputMonitors::TapHandler m_handler;
    bool m_enabled = false;
    Subscription m_keys;
    Subscription m_buttons;
};

} // namespace

X11InputMonitors::X11InputMonitors(X11RawInput& input, const X11OwnWindows& ownWindows)
    : m_input(input),
      m_ownWindows(ownWindows),
      m_buttons(input.onButton([this](EventType type) { deliver(type); }))
{
}

Subscription X11InputMonitors::addGlobalMouseMonitor(EventMask mask, MouseHandler handler)
{
    return m_global.subscribe(limitedTo(mask, std::move(handler)));
}

Subscription X11InputMonitors::addLocalMouseMonitor(EventMask mask, MouseHandler handler)
{
    return m_local.subscribe(limitedTo(mask, std::move(handler)));
}

void X11InputMonitors::deliver(EventType type)
{
    if (isPress(type))
        m_pressIsOurs = m_ownWindows.areUnderPointer();
    (m_pressIsOurs ? m_local : m_global).publish(type);
}

std::unique_ptr<EventTap> X11InputMonitors::createEventTap(const EventTapDescription& description, TapHandler handler)
{
    if (!m_input.isAvailable())
        return nullptr;
    return std::make_unique<X11EventTap>(m_input, description.mask, std::move(handler));
}

} // namespace haloric
