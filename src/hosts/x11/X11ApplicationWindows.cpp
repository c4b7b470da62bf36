#include "hosts/x11/X11ApplicationWindows.h"

#include <unistd.h>

namespace haloric {

namespace {

ProcessID ownProcess() { return static_cast<ProcessID>(getpid()); }

} // namespace

std::optional<OwnWindow> X11ApplicationWindows::key() const
{
    const auto active = m_clients.active();
    return active && active->pid == ownProcess() ? std::optional(describe(*active)) : std::nullopt;
}

std::optional<OwnWindow> X11ApplicationWindows::main() const
{
    const auto last = m_clients.mainWindow(ownProcess());
    return last ? std::optional(describe(*last)) : std::nullopt;
}

OwnWindow X11ApplicationWindows::describe(const X11Client& client) const
{
    const X11Space space = m_scale.current();
    const PixelRect frame = client.visibleFrame();
    const int titleBar = client.geometry.decoration ? client.geometry.decoration->top : 0;
    return {.frame = space.toScreenSpace(frame),
            .contentLayoutHeight = (frame.height - titleBar) / space.pixelsPerPoint,
            .number = static_cast<std::int64_t>(client.window),
            .visible = client.isSeenOn(m_clients.state().currentDesktop)};
}

} // namespace haloric
