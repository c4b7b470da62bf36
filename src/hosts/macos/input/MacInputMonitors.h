// Mouse monitors of AppKit and event taps of Core Graphics.
#pragma once

#include "platform/InputMonitors.h"

namespace haloric {

class MacInputMonitors final : public InputMonitors {
public:
    Subscription addGlobalMouseMonitor(EventMask mask, MouseHandler handler) override;
    Subscription addLocalMouseMonitor(EventMask mask, MouseHandler handler) override;
    std::uint64_t pressedMouseButtons() const override;
    std::unique_ptr<EventTap> createEventTap(const EventTapDescription& description, TapHandler handler) override;
};

} // namespace haloric
