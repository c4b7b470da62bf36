#include "hosts/sim/desktop/SimPointer.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace haloric {

namespace {

struct ButtonEvents {
    EventType down;
    EventType up;
};

constexpr std::array<ButtonEvents, 3> kEvents{{
    {EventType::leftMouseDown, EventType::leftMouseUp},
    {EventType::rightMouseDown, EventType::rightMouseUp},
    {EventType::otherMouseDown, EventType::otherMouseUp},
}};

std::uint64_t bitOf(SimButton button) { return std::uint64_t{1} << static_cast<unsigned>(button); }

double between(double from, double to, double fraction) { return from + (to - from) * fraction; }

} // namespace

SimMouseTarget SimPointer::target() const
{
    return m_model.frontmost == SimModel::kOwnProcess ? SimMouseTarget::ownWindow : SimMouseTarget::otherApplication;
}

void SimPointer::press(SimButton button)
{
    if (m_model.pressedButtons & bitOf(button))
        return;
    m_model.pressedButtons |= bitOf(button);
    m_notifier.postMouse(kEvents[static_cast<std::size_t>(button)].down, target());
}

void SimPointer::release(SimButton button)
{
    if (!(m_model.pressedButtons & bitOf(button)))
        return;
    if (button == SimButton::left)
        m_drag.reset();
    m_model.pressedButtons &= ~bitOf(button);
    m_notifier.postMouse(kEvents[static_cast<std::size_t>(button)].up, target());
}

void SimPointer::releaseAll()
{
    for (const auto button : {SimButton::left, SimButton::right, SimButton::other})
        release(button);
}

void SimPointer::drag(const SimWindow& window, const Rect& target, Seconds duration, double rate)
{
    endDrag();
    press(SimButton::left);
    const int steps = std::max(1, static_cast<int>(std::lround(duration.count() * rate)));
    m_drag = Drag{window.number, window.frame, target, 0, steps, duration / steps};
    ++m_dragCount;
    scheduleStep();
}

void SimPointer::endDrag()
{
    if (m_drag)
        release(SimButton::left);
}

SimWindow* SimPointer::draggedWindow() const { return m_drag ? m_model.windows.find(m_drag->window) : nullptr; }

void SimPointer::scheduleStep()
{
    m_runLoop.postAfter(m_drag->interval, m_anchor.bind([count = m_dragCount](SimPointer& self) {
        if (self.m_drag && self.m_dragCount == count)
            self.takeStep();
    }));
}

void SimPointer::takeStep()
{
    const double fraction = static_cast<double>(++m_drag->step) / m_drag->steps;
    const Rect& from = m_drag->from;
    const Rect& to = m_drag->to;
    if (SimWindow* window = draggedWindow(); window && !window->minimised) {
        // Screens show whole points; a drag reports them.
        m_windows.setFrame(*window, m_drag->step == m_drag->steps
                                        ? to
                                        : Rect{std::round(between(from.x, to.x, fraction)),
                                               std::round(between(from.y, to.y, fraction)),
                                               std::round(between(from.width, to.width, fraction)),
                                               std::round(between(from.height, to.height, fraction))});
    }
    if (m_drag->step < m_drag->steps)
        scheduleStep();
    else
        release(SimButton::left);
}

} // namespace haloric
