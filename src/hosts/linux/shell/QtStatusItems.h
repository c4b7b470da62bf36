// The program's items in the desktop's tray. Each has a menu, which any click opens. Main thread.
#pragma once

#include "hosts/linux/shell/QtMenu.h"
#include "hosts/linux/shell/TrayWatcher.h"
#include "platform/StatusItems.h"

#include <memory>
#include <string>

#include <QObject>

class QSystemTrayIcon;

namespace haloric {

// Its image has the text colour of the application's palette.
class QtStatusItem final : public QObject, public StatusItem {
public:
    // Appears when `watcher` has seen a tray. The watcher outlives it.
    explicit QtStatusItem(TrayWatcher& watcher);
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

class QtStatusItems final : public StatusItems {
public:
    // Requires QtApplication. The tray outlives it.
    explicit QtStatusItems(EmbeddingTray& tray) : m_watcher(tray) {}

    // Ignores `length`: trays give each item a place as long as the tray is high.
    std::unique_ptr<StatusItem> make(double length) override;

private:
    TrayWatcher m_watcher;
};

} // namespace haloric
