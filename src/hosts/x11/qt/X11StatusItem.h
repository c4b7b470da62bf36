// An item in the tray, with a menu that any click opens. Its picture has the colour of the palette's text. Main thread.
#pragma once

#include "hosts/x11/qt/X11Menu.h"
#include "hosts/x11/qt/X11TrayHosts.h"
#include "platform/StatusItems.h"

#include <memory>
#include <optional>
#include <string>

#include <QObject>

class QSystemTrayIcon;

namespace haloric {

class X11StatusItem final : public QObject, public StatusItem {
public:
    // Appears when `hosts` has seen a tray. The hosts outlive it.
    explicit X11StatusItem(X11TrayHosts& hosts);
    ~X11StatusItem() override;

    // StatusItem
    bool hasButton() const override { return true; }
    void setImage(const Image& image) override;
    void setToolTip(const std::string& text) override;
    void setMenu(const MenuModel& menu, MenuDelegate& delegate) override;
    void menuItemsChanged() override;

private:
    bool eventFilter(QObject* object, QEvent* event) override;
    void appear();
    void showImage();
    void openMenu();

    Image m_image;
    std::string m_toolTip;
    std::unique_ptr<X11Menu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon; // null while there is no tray
    Subscription m_whenSeen;
};

} // namespace haloric
