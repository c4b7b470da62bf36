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
    if (!m_terminated) // a stop before the loop runs would be forgotten
        m_runLoop.run();
}

void X11Application::terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    if (m_delegate && m_launched)
        m_delegate->applicationWillTerminate();
    m_runLoop.stop();
}

void X11Application::reopen()
{
    if (m_delegate && m_launched && !m_terminated)
        m_delegate->applicationShouldHandleReopen(false); // there is no handling of the platform's own
}

ProcessID X11Application::processID() const { return static_cast<ProcessID>(getpid()); }

} // namespace haloric
