#include "tracking/FastTracking.h"

#include "foundation/ScreenChoice.h"

#include <utility>

namespace haloric {

void FastTracking::start(Task tick, const Rect& frame)
{
    m_lastMovement = m_runLoop.systemUptime();
    m_settlingStarted = m_input.pressedMouseButtons() == 0 ? std::optional(m_lastMovement) : std::nullopt;
    m_displayDriver.emplace(m_displayLinks, m_videoLinks, std::move(tick));
    updateTrackingScreen(frame, Resync::always);
}

void FastTracking::stop()
{
    m_displayDriver.reset();
    m_trackingScreenID.reset();
    m_settlingStarted.reset();
}

void FastTracking::updateTrackingScreen(const Rect& frame, Resync resync)
{
    if (!isActive())
        return;
    const Screen* screen = screenHoldingMost(frame, m_screens.all());
    if (!screen || !screen->displayID)
        return;
    if (resync == Resync::ifScreenChanged && m_trackingScreenID == screen->displayID)
        return;
    m_trackingScreenID = screen->displayID;
    m_displayDriver->start(*screen, *screen->displayID);
}

void FastTracking::noteMovement() { m_lastMovement = m_runLoop.systemUptime(); }

void FastTracking::notePress() { m_settlingStarted.reset(); }

void FastTracking::noteRelease()
{
    m_lastMovement = m_runLoop.systemUptime();
    m_settlingStarted = m_lastMovement;
}

FastTracking::Settling FastTracking::settle()
{
    const Seconds now = m_runLoop.systemUptime();
    if (m_input.pressedMouseButtons() != 0) {
        m_settlingStarted.reset();
        return Settling::held;
    }
    if (!m_settlingStarted) {
        m_settlingStarted = now;
        return Settling::released;
    }
    const Seconds elapsed = now - *m_settlingStarted;
    const Seconds still = now - m_lastMovement;
    const bool settled = elapsed >= kMinimumSettling && (elapsed >= kMaximumSettling || still >= kStillness);
    return settled ? Settling::settled : Settling::moving;
}

} // namespace haloric
