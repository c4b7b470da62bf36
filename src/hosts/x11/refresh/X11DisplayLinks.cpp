#include "hosts/x11/refresh/X11DisplayLinks.h"

#include "hosts/x11/refresh/X11DataAddSource.h"
#include "hosts/x11/refresh/X11PresentClock.h"
#include "hosts/x11/refresh/X11ScreenLink.h"

#include <xcb/present.h>

namespace haloric {

X11DisplayLinks::X11DisplayLinks(X11Connection& connection, RunLoop& runLoop, const X11Scale& scale)
    : m_connection(connection),
      m_runLoop(runLoop),
      m_scale(scale),
      m_presentAvailable(connection.has(&xcb_present_id))
{
}

std::unique_ptr<ScreenDisplayLink> X11DisplayLinks::makeScreenLink(const Screen& screen, Task tick)
{
    std::unique_ptr<X11PresentClock> clock;
    if (m_presentAvailable)
        clock = std::make_unique<X11PresentClock>(m_connection, m_scale.current().fromScreenSpace(screen.frame));
    return std::make_unique<X11ScreenLink>(m_runLoop, std::move(clock), screen.maximumFramesPerSecond, std::move(tick));
}

std::shared_ptr<DataAddSource> X11DisplayLinks::makeDataAddSource(Task handler)
{
    return std::make_shared<X11DataAddSource>(m_runLoop, std::move(handler));
}

} // namespace haloric
