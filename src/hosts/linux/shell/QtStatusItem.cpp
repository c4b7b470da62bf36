#include "hosts/linux/shell/QtStatusItem.h"

#include "hosts/linux/qt/QtImages.h"
#include "hosts/linux/qt/QtText.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QSystemTrayIcon>

namespace haloric {

QtStatusItem::QtStatusItem(TrayWatcher& hosts)
{
    qApp->installEventFilter(this);
    if (hosts.wereSeen())
        appear();
    else
        m_whenSeen = hosts.onSeen([this] { appear(); });
}

QtStatusItem::~QtStatusItem() = default;

void QtStatusItem::appear()
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
void QtStatusItem::showImage()
{
    if (!m_icon)
        return;
    m_icon->setIcon(QtImages::icon(m_image, QApplication::palette()));
    m_icon->setVisible(!m_icon->icon().isNull());
}

void QtStatusItem::setImage(const Image& image)
{
    m_image = image;
    showImage();
}

void QtStatusItem::setToolTip(const std::string& text)
{
    m_toolTip = text;
    if (m_icon)
        m_icon->setToolTip(qtText(text));
}

void QtStatusItem::setMenu(const MenuModel& menu, MenuDelegate& delegate)
{
    auto replaced = std::exchange(m_menu, std::make_unique<QtMenu>(menu, delegate));
    if (m_icon)
        m_icon->setContextMenu(&m_menu->menu());
}

void QtStatusItem::menuItemsChanged()
{
    if (m_menu)
        m_menu->update();
}

bool QtStatusItem::eventFilter(QObject* object, QEvent* event)
{
    if (object == qApp && event->type() == QEvent::ApplicationPaletteChange) {
        showImage();
        if (m_menu)
            m_menu->updateImages();
    }
    return QObject::eventFilter(object, event);
}

// Beside the item, where its place is known.
void QtStatusItem::openMenu()
{
    if (!m_menu)
        return;
    const QRect place = m_icon->geometry();
    m_menu->menu().popup(place.isValid() ? place.bottomLeft() : QCursor::pos());
}

} // namespace haloric
