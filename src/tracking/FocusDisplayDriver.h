// Calls one closure once per refresh of a display: by a link that the screen makes, or by the older video display link,
// whose thread passes its frames to the main thread. Main thread.
#pragma once

#include "foundation/Ids.h"
#include "foundation/Task.h"
#include "foundation/WeakAnchor.h"
#include "platform/DisplayLinks.h"
#include "platform/Screens.h"
#include "platform/VideoLinks.h"

#include <memory>

namespace haloric {

class FocusDisplayDriver {
public:
    // Video links are used if there are any, display links otherwise. `tick` may destroy the driver. The adapters
    // outlive it.
    FocusDisplayDriver(DisplayLinks& displayLinks, VideoLinks* videoLinks, Task tick);
    ~FocusDisplayDriver();
    FocusDisplayDriver(const FocusDisplayDriver&) = delete;
    FocusDisplayDriver& operator=(const FocusDisplayDriver&) = delete;

    // Follows this screen instead of the previous one. Never ticks if no link can be made.
    void start(const Screen& screen, DisplayID displayID);
    void stop();

private:
    void startModern(const Screen& screen);
    void startLegacy(VideoLinks& videoLinks, DisplayID displayID);
    void displayTick() const;

    DisplayLinks& m_displayLinks;
    VideoLinks* m_videoLinks;
    std::shared_ptr<const Task> m_tick; // shared, so that a tick that destroys the driver outlives its own call
    std::unique_ptr<ScreenDisplayLink> m_modernLink;
    std::unique_ptr<VideoDisplayLink> m_legacyLink;
    std::shared_ptr<DataAddSource> m_legacySource;
    WeakAnchor<const FocusDisplayDriver> m_anchor{*this};
};

} // namespace haloric
