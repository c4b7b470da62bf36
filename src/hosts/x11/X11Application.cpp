#include "hosts/x11/X11Application.h"

#include <unistd.h>

namespace haloric {

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
        m_delegate->applicationShouldHandleReopen(false); // there is no handling of the platform's own
}

ProcessID X11Application::processID() const { return static_cast<ProcessID>(getpid()); }

} // namespace haloric
