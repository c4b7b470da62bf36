// Calls one closure once per refresh of a display. It takes the screen's own display link where the system has one,
// else the older video display link, whose thread hands its frames over to the main thread. Main thread.
#pragma once

#include "foundation/Ids.h"
#include "foundation/Task.h"
#include "foundation/WeakAnchor.h"
#include "platform/DisplayLinks.h"
#include "platform/Screens.h"

#include <memory>

namespace haloric {

class FocusDisplayDriver {
public:
    // `tick` may destroy the driver. The adapter outlives it.
    FocusDisplayDriver(DisplayLinks& displayLinks, Task tick);
    ~FocusDisplayDriver();
    FocusDisplayDriver(const FocusDisplayDriver&) = delete;
    FocusDisplayDriver& operator=(const FocusDisplayDriver&) = delete;

    // Follows this screen from now on, in place of the one before. When no link can be made the driver is silent.
    void start(const Screen& screen, DisplayID displayID);
    void stop();

private:
    void startModern(const Screen& screen);
    void startLegacy(DisplayID displayID);
    void displayTick() const;

    DisplayLinks& m_displayLinks;
    std::shared_ptr<const Task> m_tick; // shared, so that a tick that destroys the driver outlives its own call
    std::unique_ptr<ScreenDisplayLink> m_modernLink;
    std::unique_ptr<VideoDisplayLink> m_legacyLink;
    std::shared_ptr<DataAddSource> m_legacySource;
    WeakAnchor<const FocusDisplayDriver> m_anchor{*this};
};

} // namespace haloric
