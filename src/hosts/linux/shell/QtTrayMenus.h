// The menu of an icon in a tray of the XEmbed protocol, and its tooltip. Main thread.
#pragma once

#include "hosts/linux/shell/QtMenu.h"
#include "hosts/linux/tray/TrayMenu.h"

#include <memory>
#include <string>

#include <QObject>

namespace haloric {

// Its images have the text colour of the application's palette. Requires QtApplication.
class QtTrayMenu final : public QObject, public TrayMenu {
public:
    QtTrayMenu();

    // TrayMenu
    void setMenu(const MenuModel& menu, MenuDelegate& delegate) override;
    void menuItemsChanged() override;
    void open(const PixelRect& beside) override;
    void showToolTip(const std::string& text, const PixelRect& beside) override;
    void hideToolTip() override;

private:
    bool eventFilter(QObject* object, QEvent* event) override;

    std::unique_ptr<QtMenu> m_menu;
};

class QtTrayMenus final : public TrayMenus {
public:
    std::unique_ptr<TrayMenu> make() override { return std::make_unique<QtTrayMenu>(); }
};

} // namespace haloric
