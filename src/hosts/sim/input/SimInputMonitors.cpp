#include "hosts/sim/input/SimInputMonitors.h"

#include <utility>

namespace haloric {

namespace {

bool isTapDisabled(EventType type)
{
    return type == EventType::tapDisabledByTimeout || type == EventType::tapDisabledByUserInput;
}

} // namespace

class SimInputMonitors::Tap final : public EventTap {
public:
    Tap(SimDesktop& desktop, EventMask mask, TapHandler handler)
        : m_desktop(desktop),
          m_mask(mask),
          m_handler(std::move(handler))
    {
    }

    void addToMainRunLoop() override
    {
        m_keys = m_desktop.notifier.tap.subscribe([this](const TapEvent& event) { receive(event); });
        m_mouse = m_desktop.notifier.mouse.subscribe([this](EventType type, SimMouseTarget) {
            receive(TapEvent{type, 0, 0});
        });
    }

    void enable() override { m_enabled = true; }

private:
    void receive(const TapEvent& event)
    {
        if (!m_enabled)
            return;
        if (isTapDisabled(event.type))
            m_enabled = false; // reported to the handler, which may enable the tap again
        else if (!(m_mask & maskOf(event.type)))
            return;
        const TapHandler handler = m_handler; // it may destroy this tap
        handler(event);
    }

    SimDesktop& m_desktop;
    EventMask m_mask;
    TapHandler m_handler;
    bool m_enabled = false;
    Subscription m_keys;
    Subscription m_mouse;
};

Subscription SimInputMonitors::addMonitor(SimMouseTarget target, EventMask mask, MouseHandler handler)
{
    return m_desktop.notifier.mouse.subscribe(
        [target, mask, handler = std::move(handler)](EventType type, SimMouseTarget hit) {
            if (hit == target && (mask & maskOf(type)))
                handler(type);
        });
}

Subscription SimInputMonitors::addGlobalMouseMonitor(EventMask mask, MouseHandler handler)
{
    return addMonitor(SimMouseTarget::otherApplication, mask, std::move(handler));
}

Subscription SimInputMonitors::addLocalMouseMonitor(EventMask mask, MouseHandler handler)
{
    return addMonitor(SimMouseTarget::ownWindow, mask, std::move(handler));
}

std::unique_ptr<EventTap> SimInputMonitors::createEventTap(const EventTapDescription& description, TapHandler handler)
{
    if (m_desktop.faults.eventTapRefused)
        return nullptr;
    return std::make_unique<Tap>(m_desktop, description.mask, std::move(handler));
}

} // namespace haloric
