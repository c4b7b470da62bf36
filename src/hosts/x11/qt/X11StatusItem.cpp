#include "hosts/x11/qt/X11StatusItem.h"

#include "hosts/x11/qt/X11Images.h"
#include "hosts/x11/qt/X11Text.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QSystemTrayIcon>

namespace haloric {

X11StatusItem::X11StatusItem(X11TrayHosts& hosts)
{
    qApp->installEventFilter(this);
    if (hosts.wereSeen())
        appear();
    else
        m_whenSeen = hosts.onSeen([this] { appear(); });
}

X11StatusItem::~X11StatusItem() = default;

void X11StatusItem::appear()
{
    m_icon = std::make_unique<QSystemTrayIcon>();
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        // The second click of two quick ones comes here only when the menu has gone again in between.
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
            openMenu();
    });
    m_icon->setToolTip(qtText(m_toolTip));
    if (m_menu)
        m_icon->setContextMenu(&m_menu->menu());
    showImage();
}

// Without a picture there is nothing to show.
void X11StatusItem::showImage()
{
    if (!m_icon)
        return;
    m_icon->setIcon(X11Images::icon(m_image, QApplication::palette()));
    m_icon->setVisible(!m_icon->icon().isNull());
}

void X11StatusItem::setImage(const Image& image)
{
    m_image = image;
    showImage();
}

void X11StatusItem::setToolTip(const std::string& text)
{
    m_toolTip = text;
    if (m_icon)
        m_icon->setToolTip(qtText(text));
}

void X11StatusItem::setMenu(const MenuModel& menu, MenuDelegate& delegate)
{
    auto replaced = std::exchange(m_menu, std::make_unique<X11Menu>(menu, delegate));
    if (m_icon)
        m_icon->setContextMenu(&m_menu->menu());
}

void X11StatusItem::menuItemsChanged()
{
    if (m_menu)
        m_menu->update();
}

bool X11StatusItem::eventFilter(QObject* object, QEvent* event)
{
    if (object == qApp && event->type() == QEvent::ApplicationPaletteChange) {
        showImage();
        if (m_menu)
            m_menu->updateImages();
    }
    return QObject::eventFilter(object, event);
}

// Beside the item, where its place is known.
void X11StatusItem::openMenu()
{
    if (!m_menu)
        return;
    const QRect place = m_icon->geometry();
    m_menu->menu().popup(place.isValid() ? place.bottomLeft() : QCursor::pos());
}

} // namespace haloric
