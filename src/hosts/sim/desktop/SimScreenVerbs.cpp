#include "hosts/sim/desktop/SimScreenVerbs.h"

#include "foundation/ScreenChoice.h"

#include <algorithm>
#include <utility>

namespace haloric {

void SimScreenVerbs::plug(const SimScreen& screen)
{
    m_model.screens.push_back(screen);
    changed();
}

void SimScreenVerbs::unplug(DisplayID id)
{
    std::erase_if(m_model.screens, [&](const SimScreen& screen) { return screen.id == id; });
    changed();
}

void SimScreenVerbs::resize(DisplayID id, Size size)
{
    for (SimScreen& screen : m_model.screens) {
        if (screen.id == id) {
            screen.frame.width = size.width;
            screen.frame.height = size.height;
        }
    }
    changed();
}

void SimScreenVerbs::makePrimary(DisplayID id)
{
    const auto found = std::ranges::find(m_model.screens, id, &SimScreen::id);
    if (found != m_model.screens.end())
        std::rotate(m_model.screens.begin(), found, found + 1);
    changed();
}

void SimScreenVerbs::setScale(DisplayID id, double pixelsPerPoint)
{
    for (SimScreen& screen : m_model.screens) {
        if (screen.id == id) {
            const double shrunk = std::exchange(screen.scale, pixelsPerPoint) / pixelsPerPoint;
            screen.frame.width *= shrunk;
            screen.frame.height *= shrunk;
        }
    }
    changed();
}

void SimScreenVerbs::changed()
{
    if (!m_model.screens.empty()) {
        rebaseOrigin();
        bringWindowsBack();
    }
    m_notifier.postScreens();
}

void SimScreenVerbs::rebaseOrigin()
{
    const Point origin = m_model.screens.front().frame.origin();
    if (origin == Point{})
        return;
    for (SimScreen& screen : m_model.screens)
        screen.frame = screen.frame.translatedBy(-origin.x, -origin.y);
    // Nothing moved on any screen; only the coordinates changed, so no move is reported.
    for (const auto& window : m_model.windows.frontToBack()) {
        window->frame = window->frame.translatedBy(-origin.x, -origin.y);
        window->believedFrame = window->believedFrame.translatedBy(-origin.x, -origin.y);
    }
}

void SimScreenVerbs::bringWindowsBack()
{
    const Rect primary = m_model.screens.front().frame;
    for (const auto& window : m_model.windows.frontToBack()) {
        if (window->overlay)
            continue;
        if (window->fullScreenOrigin) {
            m_windows.setFrame(*window, screenHoldingMost(window->frame, m_model.screens)->frame);
            continue;
        }
        const bool seen = std::ranges::any_of(
            m_model.screens, [&](const SimScreen& screen) { return intersects(screen.frame, window->frame); });
        if (seen)
            continue;
        Rect frame = window->frame;
        frame.x = std::clamp(frame.x, primary.minX(), std::max(primary.minX(), primary.maxX() - frame.width));
        frame.y = std::clamp(frame.y, primary.minY(), std::max(primary.minY(), primary.maxY() - frame.height));
        m_windows.setFrame(*window, frame);
    }
}

} // namespace haloric
