#include "overlay/ScreenshotHotkeyMonitor.h"

namespace haloric {

namespace {

// Virtual key numbers of the ANSI layout.
constexpr std::int64_t kKeycode4 = 21;
constexpr std::int64_t kKeycode5 = 23;
constexpr std::int64_t kKeycodeEscape = 53;

bool opensScreenshotInterface(const TapEvent& key)
{
    // Control only selects where the picture goes.
    constexpr std::uint64_t kHeld = ModifierFlags::kCommand | ModifierFlags::kShift;
    const bool modifiers = (key.flags & (kHeld | ModifierFlags::kOption)) == kHeld;
    return modifiers && (key.keyCode == kKeycode4 || key.keyCode == kKeycode5);
}

} // namespace

ScreenshotHotkeyMonitor::ScreenshotHotkeyMonitor(RunLoop& runLoop, InputMonitors& input)
    : m_runLoop(runLoop),
      m_input(input)
{
}

void ScreenshotHotkeyMonitor::start()
{
    if (m_tap)
        return;
    const EventTapDescription description{TapLocation::session, TapPlacement::headInsert, TapOptions::listenOnly,
                                          maskOf(EventType::keyDown) | maskOf(EventType::leftMouseUp)};
    m_tap = m_input.createEventTap(description, m_anchor.bind(&ScreenshotHotkeyMonitor::handle));
    if (!m_tap)
        return;
    m_tap->addToMainRunLoop();
    m_tap->enable();
}

void ScreenshotHotkeyMonitor::handle(const TapEvent& event)
{
    switch (event.type) {
    case EventType::tapDisabledByTimeout:
    case EventType::tapDisabledByUserInput:
        if (m_tap)
            m_tap->enable();
        return;
    case EventType::keyDown:
        handleKeyDown(event);
        return;
    case EventType::leftMouseUp:
        if (m_active)
            m_runLoop.postAfter(kEndAfterMouseUp, m_anchor.bind(&ScreenshotHotkeyMonitor::set, false));
        return;
    default:
        return;
    }
}

void ScreenshotHotkeyMonitor::handleKeyDown(const TapEvent& event)
{
    if (opensScreenshotInterface(event))
        set(true);
    else if (m_active && event.keyCode == kKeycodeEscape)
        set(false);
}

void ScreenshotHotkeyMonitor::set(bool active)
{
    m_runLoop.post(m_anchor.bind(&ScreenshotHotkeyMonitor::apply, active));
}

void ScreenshotHotkeyMonitor::apply(bool active)
{
    // A repeated shortcut resets the timer too: then only Escape or the mouse ends the active state.
    m_timeoutTimer.reset();
    if (active == m_active)
        return;
    m_active = active;
    if (active)
        m_timeoutTimer = m_runLoop.scheduleOnce(kTimeout, m_anchor.bind(&ScreenshotHotkeyMonitor::set, false));
    if (const auto handler = onChange) // a copy, because the handler may replace itself
        handler(active);
}

} // namespace haloric
