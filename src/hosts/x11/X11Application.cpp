#include "hosts/x11/X11Application.h"

#include <unistd.h>

namespace haloric {

namespace {

ProcessID ownProcess() { return static_cast<ProcessID>(getpid()); }

} // namespace

std::optional<OwnWindow> X11ApplicationWindows::key() const
{
    const X11Client* active = m_clients.active();
    return active && active->pid == ownProcess() ? std::optional(describe(*active)) : std::nullopt;
}

std::optional<OwnWindow> X11ApplicationWindows::main() const
{
    const X11Client* last = m_clients.mainWindow(ownProcess());
    return last ? std::optional(describe(*last)) : std::nullopt;
}

OwnWindow X11ApplicationWindows::describe(const X11Client& client) const
{
    const X11Space& space = m_scale.current();
    const PixelRect frame = client.visibleFrame();
    const int titleBar = client.geometry.decoration ? client.geometry.decoration->top : 0;
    return {.frame = space.toScreenSpace(frame),
            .contentLayoutHeight = (frame.height - titleBar) / space.pixelsPerPoint,
            .number = static_cast<std::int64_t>(client.window),
            .visible = client.isSeenOn(m_clients.state().currentDesktop)};
}

void X11Application::run()
{
    if (m_terminated)
        return;
    m_launched = true;
    if (m_delegate)
        m_delegate->applicationDidFinishLaunching();
    if (m_reopensOnceLaunched)
        reopen();
    if (!m_terminated) // a stop before the loop runs would be forgotten
        m_loop.run();
}

void X11Application::terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    if (m_delegate && m_launched)
        m_delegate->applicationWillTerminate();
    m_loop.stop();
}

std::optional<OwnWindow> X11Application::keyWindow() const { return m_windows ? m_windows->key() : std::nullopt; }

std::optional<OwnWindow> X11Application::mainWindow() const { return m_windows ? m_windows->main() : std::nullopt; }

void X11Application::reopen()
{
    if (!m_launched)
        m_reopensOnceLaunched = true;
    else if (m_delegate && !m_terminated)
        m_delegate->applicationShouldHandleReopen(false); // Linux has no default handling
}

ProcessID X11Application::processID() const { return ownProcess(); }

} // namespace haloric
