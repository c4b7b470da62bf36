// Mouse monitors and event taps of the simulated desktop.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/InputMonitors.h"

namespace haloric {

class SimInputMonitors final : public InputMonitors {
public:
    explicit SimInputMonitors(SimDesktop& desktop) : m_desktop(desktop) {}

    Subscription addGlobalMouseMonitor(EventMask mask, MouseHandler handler) override;
    Subscription addLocalMouseMonitor(EventMask mask, MouseHandler handler) override;
    std::uint64_t pressedMouseButtons() const override { return m_desktop.model.pressedButtons; }
    std::unique_ptr<EventTap> createEventTap(const EventTapDescription& description, TapHandler handler) override;

private:
    class Tap;

    Subscription addMonitor(SimMouseTarget target, EventMask mask, MouseHandler handler);

    SimDesktop& m_desktop;
};

} // namespace haloric
