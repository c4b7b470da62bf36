// A listen-only event tap with its source in the main run loop's common modes. Events pass it unchanged.
#pragma once

#include "hosts/macos/base/CFOwned.h"
#include "platform/InputMonitors.h"

#import <CoreGraphics/CoreGraphics.h>

namespace haloric {

class MacEventTap final : public EventTap {
public:
    // Null when the process may not watch input.
    static std::unique_ptr<MacEventTap> make(const EventTapDescription& description, InputMonitors::TapHandler handler);

    ~MacEventTap() override;
    MacEventTap(const MacEventTap&) = delete;
    MacEventTap& operator=(const MacEventTap&) = delete;

    void addToMainRunLoop() override;
    void enable() override;

private:
    explicit MacEventTap(InputMonitors::TapHandler handler);

    static CGEventRef take(CGEventTapProxy proxy, CGEventType type, CGEventRef event, void* context);

    const InputMonitors::TapHandler m_handler;
    CFOwned<CFMachPortRef> m_port;
};

} // namespace haloric
