// Fast mode: a tick once per frame of the display that holds the focused window, and the decision when the window has
// settled after the mouse was released. Main thread.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "foundation/Task.h"
#include "foundation/Time.h"
#include "platform/DisplayLinks.h"
#include "platform/InputMonitors.h"
#include "platform/RunLoop.h"
#include "platform/Screens.h"
#include "tracking/FocusDisplayDriver.h"

#include <optional>

namespace haloric {

class FastTracking {
public:
    static constexpr Seconds kMinimumSettling{0.6};
    static constexpr Seconds kMaximumSettling{2.0};
    static constexpr Seconds kStillness{0.25}; // no movement for this long: the window rests

    enum class Settling {
        held,     // a mouse button is pressed
        released, // the buttons were found released just now
        moving,
        settled,
    };
    enum class Resync { ifScreenChanged, always };

    // The adapters outlive this object.
    FastTracking(RunLoop& runLoop, const Screens& screens, DisplayLinks& displayLinks, VideoLinks* videoLinks,
                 const InputMonitors& input)
        : m_runLoop(runLoop),
          m_screens(screens),
          m_displayLinks(displayLinks),
          m_videoLinks(videoLinks),
          m_input(input)
    {
    }

    bool isActive() const { return m_displayDriver.has_value(); }

    // Starts on the display that holds most of `frame` (screen space). `tick` may stop it. Only while not active.
    void start(Task tick, const Rect& frame);
    void stop();

    // Moves to the display that holds most of `frame`; does nothing when not active.
    void updateTrackingScreen(const Rect& frame, Resync resync);

    void noteMovement();
    void notePress();
    void noteRelease();

    // Called once per tick.
    Settling settle();

private:
    RunLoop& m_runLoop;
    const Screens& m_screens;
    DisplayLinks& m_displayLinks;
    VideoLinks* m_videoLinks;
    const InputMonitors& m_input;
    std::optional<FocusDisplayDriver> m_displayDriver;
    std::optional<DisplayID> m_trackingScreenID;
    std::optional<Seconds> m_settlingStarted; // system uptime, as is the next
    Seconds m_lastMovement{0};
};

} // namespace haloric
