#include "hosts/linux/shell/QtStatusItems.h"

#include "hosts/linux/qt/QtImages.h"
#include "hosts/linux/qt/QtText.h"

#include <utility>

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QSystemTrayIcon>

namespace haloric {

QtStatusItem::QtStatusItem(TrayWatcher& watcher)
{
    qApp->installEventFilter(this);
    if (watcher.wasSeen())
        appear();
    else
        m_whenSeen = watcher.onSeen([this] { appear(); });
}

QtStatusItem::~QtStatusItem() = default;

void QtStatusItem::appear()
{
    m_icon = std::make_unique<QSystemTrayIcon>();
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        // DoubleClick is reported only if the menu was closed between the two clicks.
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
            openMenu();
    });
    m_icon->setToolTip(qtText(m_toolTip));
    if (m_menu)
        m_icon->setContextMenu(&m_menu->menu());
    showImage();
}

// An item without an image is hidden.
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

// Opens beside the item if its position is known, otherwise at the pointer.
void QtStatusItem::openMenu()
{
    if (!m_menu)
        return;
    const QRect place = m_icon->geometry();
    m_menu->menu().popup(place.isValid() ? place.bottomLeft() : QCursor::pos());
}

std::unique_ptr<StatusItem> QtStatusItems::make(double) { return std::make_unique<QtStatusItem>(m_watcher); }

} // namespace haloric
