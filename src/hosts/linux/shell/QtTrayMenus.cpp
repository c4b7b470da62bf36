#include "hosts/linux/shell/QtTrayMenus.h"

#include "hosts/linux/qt/QtText.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QScreen>
#include <QToolTip>

namespace haloric {

namespace {

// Qt's coordinates of a point in pixels of the root window: it keeps the origin of each screen and scales the rest.
QPoint qtPoint(int x, int y)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        const QRect area = screen->geometry();
        const double scale = screen->devicePixelRatio();
        const QPointF offset = QPointF(QPoint(x, y) - area.topLeft()) / scale;
        if (QRectF(QPointF(0, 0), QSizeF(area.size())).contains(offset))
            return area.topLeft() + offset.toPoint();
    }
    return QCursor::pos();
}

QPoint belowOf(const PixelRect& place) { return qtPoint(place.x, std::max(place.y, place.maxY() - 1)); }

} // namespace

QtTrayMenu::QtTrayMenu() { qApp->installEventFilter(this); }

void QtTrayMenu::setMenu(const MenuModel& menu, MenuDelegate& delegate)
{
    m_menu = std::make_unique<QtMenu>(menu, delegate);
}

void QtTrayMenu::menuItemsChanged()
{
    if (m_menu)
        m_menu->update();
}

void QtTrayMenu::open(const PixelRect& beside)
{
    if (m_menu)
        m_menu->menu().popup(belowOf(beside));
}

void QtTrayMenu::showToolTip(const std::string& text, const PixelRect& beside)
{
    QToolTip::showText(belowOf(beside), qtText(text));
}

void QtTrayMenu::hideToolTip() { QToolTip::hideText(); }

bool QtTrayMenu::eventFilter(QObject* object, QEvent* event)
{
    if (object == qApp && event->type() == QEvent::ApplicationPaletteChange && m_menu)
        m_menu->updateImages();
    return QObject::eventFilter(object, event);
}

} // namespace haloric
