// Reports when the system's interactive screenshot interface is open, from key and mouse events. It never delays,
// changes or consumes an event. Main thread. Without permission to listen it reports nothing.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Time.h"
#include "foundation/WeakAnchor.h"
#include "platform/InputMonitors.h"
#include "platform/RunLoop.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace haloric {

class ScreenshotHotkeyMonitor {
public:
    static constexpr Seconds kTimeout{30.0};
    static constexpr Seconds kEndAfterMouseUp{0.5};

    // The adapters outlive the monitor.
    ScreenshotHotkeyMonitor(RunLoop& runLoop, InputMonitors& input);

    // Called with the new value whenever `active` changes, never during an event. Set before `start`.
    std::function<void(bool)> onChange;

    // Installs the event tap; does nothing if one is installed.
    void start();

    // Whether the screenshot interface is believed to be open.
    bool active() const { return m_active; }

private:
    void handle(const TapEvent& event);
    void handleKeyDown(const TapEvent& event);
    void set(bool active); // takes effect on a later turn of the main loop
    void apply(bool active);

    RunLoop& m_runLoop;
    InputMonitors& m_input;
    bool m_active = false;
    std::unique_ptr<EventTap> m_tap;
    Subscription m_timeoutTimer;
    WeakAnchor<ScreenshotHotkeyMonitor> m_anchor{*this};
};

} // namespace haloric
