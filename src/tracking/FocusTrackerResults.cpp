// What the tracker does with the answer to a query, and how it finds its own focused window without one.
#include "tracking/FocusTracker.h"

#include "platform/Application.h"
#include "platform/Workspace.h"

namespace haloric {

namespace {

constexpr double kSmallestSide = 1; // points; smaller windows are helpers that nobody sees
constexpr double kSmallestOwnTitleBar = 1;

} // namespace

void FocusTracker::apply(const AXFocusWorker::QueryResult& result, ProcessID pid)
{
    const auto frontmost = m_platform.workspace.frontmostApplication();
    if (!frontmost || frontmost->pid != pid || frontmost->hidden) {
        refresh(Force::yes);
        return;
    }
    if (const auto* snapshot = std::get_if<AXFocusWorker::Snapshot>(&result))
        applyFocused(*snapshot, pid);
    else if (std::holds_alternative<AXFocusWorker::NoWindow>(result))
        forgetWindow(pid);
    else if (m_currentWindowID == WindowNumber::none)
        publish(FocusState::cleared(pid)); // it did not answer in time, and nobody watches its window
}

void FocusTracker::applyFocused(const AXFocusWorker::Snapshot& snapshot, ProcessID pid)
{
    const auto frame = frameOf(snapshot, pid);
    // Written so that a size that is no number is too small as well.
    if (!frame || !(frame->width > kSmallestSide) || !(frame->height > kSmallestSide)) {
        forgetWindow(pid);
        return;
    }
    const bool sameFrame = m_state.frame == frame;
    setCurrentWindowID(snapshot.windowID);
    publish({frame, pid, snapshot.identity, snapshot.titleBar});
    if (!sameFrame)
        startFastTracking();
    pulseAfterFocus(snapshot.identity);
}

std::optional<Rect> FocusTracker::frameOf(const AXFocusWorker::Snapshot& snapshot, ProcessID pid) const
{
    if (snapshot.windowID != WindowNumber::none)
        return m_frames.ordinaryWindowFrame(snapshot.windowID, pid);
    return snapshot.axBounds ? m_frames.frame(*snapshot.axBounds) : std::nullopt;
}

// Asking oneself through Accessibility would wait for the main thread, which does the asking.
void FocusTracker::refreshOwnWindow(ProcessID pid)
{
    setCurrentWindowID(WindowNumber::none);
    auto window = m_platform.application.keyWindow();
    if (!window)
        window = m_platform.application.mainWindow();
    if (!window || window->overlay || !window->visible) {
        publish(FocusState::cleared(pid));
        return;
    }
    const double height = window->frame.height - window->contentLayoutHeight;
    const auto titleBar =
        height > kSmallestOwnTitleBar ? FocusState::TitleBar::height(height) : FocusState::TitleBar::none();
    const auto identity = static_cast<WindowIdentity>(window->number);
    publish({window->frame, pid, identity, titleBar});
    pulseAfterFocus(identity);
}

void FocusTracker::pulseAfterFocus(WindowIdentity identity)
{
    if (m_pulse.focused(identity) && onPulse)
        onPulse();
}

} // namespace haloric
