// An item in the tray, with a menu that any click opens. Its picture has the colour of the palette's text. Main thread.
#pragma once

#include "hosts/linux/shell/QtMenu.h"
#include "hosts/linux/shell/TrayWatcher.h"
#include "platform/StatusItems.h"

#include <memory>
#include <optional>
#include <string>

#include <QObject>

class QSystemTrayIcon;

namespace haloric {

class QtStatusItem final : public QObject, public StatusItem {
public:
    // Appears when `hosts` has seen a tray. The hosts outlive it.
    explicit QtStatusItem(TrayWatcher& hosts);
    ~QtStatusItem() override;

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
    std::unique_ptr<QtMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon; // null while there is no tray
    Subscription m_whenSeen;
};

} // namespace haloric
