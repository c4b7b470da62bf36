#include "contract/shell/x11/X11ContractMenuBar.h"

#include <algorithm>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>

namespace haloric {

namespace {

QMenu* openedMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

const QLabel* shownToolTip()
{
    for (const QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->inherits("QTipLabel"))
            return qobject_cast<const QLabel*>(widget);
    return nullptr;
}

std::vector<ContractMenuItem> itemsOf(const QMenu& menu)
{
    std::vector<ContractMenuItem> items;
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator() || !action->isVisible())
            continue;
        items.push_back({QtUser::plain(action->text()), action->isEnabled(), action->isChecked()});
        if (const auto* submenu = action->menu<QMenu*>())
            items.back().submenu = itemsOf(*submenu);
    }
    return items;
}

} // namespace

// Qt shows it while the pointer rests on the icon.
std::string X11ContractMenuBar::toolTip()
{
    ScreenRect icon;
    m_user.waitFor([&] {
        icon = m_user.panel().findIcon();
        return icon.width > 0;
    });
    m_user.session().input().moveTo(icon.x + icon.width / 2 - 1, icon.y + icon.height / 2);
    m_user.session().input().moveTo(icon.x + icon.width / 2, icon.y + icon.height / 2);
    std::string text;
    m_user.waitUntil([&text] {
        const QLabel* label = shownToolTip();
        text = label ? label->text().toStdString() : "";
        return label != nullptr;
    });
    m_user.session().input().moveTo(900, 700);
    m_user.waitUntil([] { return !shownToolTip(); });
    return text;
}

bool X11ContractMenuBar::openMenu()
{
    return m_user.waitFor([this] { return m_user.panel().clickIcon(); }) &&
           m_user.waitUntil([] { return openedMenu() != nullptr; });
}

std::vector<ContractMenuItem> X11ContractMenuBar::readMenu()
{
    std::vector<ContractMenuItem> items;
    if (openMenu())
        items = itemsOf(*openedMenu());
    m_user.closeMenus();
    return items;
}

bool X11ContractMenuBar::choose(const std::vector<std::string>& titles)
{
    bool isChosen = openMenu();
    std::vector<ContractMenuItem> items = isChosen ? itemsOf(*openedMenu()) : std::vector<ContractMenuItem>();
    for (const std::string& title : titles) {
        const auto item = std::ranges::find(items, title, &ContractMenuItem::title);
        isChosen = isChosen && item != items.end() && m_user.click(title) && item->isEnabled;
        if (!isChosen)
            break;
        items = std::vector(item->submenu);
    }
    if (isChosen)
        return m_user.waitUntil([] { return openedMenu() == nullptr; });
    m_user.closeMenus();
    return false;
}

} // namespace haloric
