#include "hosts/linux/qt/QtForeground.h"

#include <QEvent>

namespace haloric {

void QtForeground::bring(QWidget& window)
{
    if (!window.isVisible()) {
        expect(window);
        window.show();
        window.activateWindow();
        return;
    }
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    window.activateWindow();
    requestFocus(window);
}

void QtForeground::expect(QWidget& window)
{
    window.installEventFilter(this);
    m_expected.insert(&window);
}

bool QtForeground::eventFilter(QObject* object, QEvent* event)
{
    const auto type = event->type();
    if (type == QEvent::Paint && m_expected.contains(object))
        requestFocus(static_cast<QWidget&>(*object));
    else if (type == QEvent::WindowActivate || type == QEvent::Hide)
        m_expected.erase(object);
    return QObject::eventFilter(object, event);
}

void QtForeground::requestFocus(QWidget& window)
{
    m_expected.erase(&window);
    if (m_request)
        m_request(window.winId());
}

} // namespace haloric
