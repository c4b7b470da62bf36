#include "hosts/x11/shell/X11QtWindowWatcher.h"

#include <QGuiApplication>
#include <QPlatformSurfaceEvent>
#include <QWindow>

namespace haloric {

X11QtWindowWatcher::X11QtWindowWatcher(X11OwnWindows& ownWindows) : m_ownWindows(ownWindows)
{
    qGuiApp->installEventFilter(this);
}

bool X11QtWindowWatcher::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::PlatformSurface && object->isWindowType()) {
        const auto id = static_cast<xcb_window_t>(static_cast<QWindow*>(object)->winId());
        if (static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() == QPlatformSurfaceEvent::SurfaceCreated)
            m_ownWindows.add(id);
        else
            m_ownWindows.remove(id);
    }
    return QObject::eventFilter(object, event);
}

} // namespace haloric
