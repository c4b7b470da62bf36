#include "hosts/linux/tray/TrayStatusItems.h"

#include "foundation/ProductIdentity.h"
#include "hosts/linux/files/XdgFolders.h"
#include "platform/Processes.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace haloric {

namespace {

// A watcher replies within milliseconds; the XEmbed tray is used while it does not, without a flicker while it does.
constexpr Seconds kWatcherPatience{1};

// Its name, or empty.
std::string installedSymbolicIcon(const Processes& processes)
{
    const std::string name = std::string(ProductIdentity::kIdentifier) + "-symbolic";
    const std::string file = "/icons/hicolor/symbolic/apps/" + name + ".svg";
    const auto folders = XdgFolders::data(processes);
    const bool isInstalled = std::ranges::any_of(folders, [&file](const std::string& folder) {
        std::error_code ignored;
        return std::filesystem::exists(folder + file, ignored);
    });
    return isInstalled ? name : "";
}

} // namespace

TrayStatusItem::TrayStatusItem(const NotifierItem::Parts& parts, std::unique_ptr<EmbeddedIcon> icon,
                               std::unique_ptr<TrayMenu> menu)
    : m_runLoop(parts.runLoop),
      m_watcher(parts.watcher),
      m_item(parts,
             [this](int x, int y) {
                 m_menu->open({x, y, 0, 0});
             }),
      m_icon(std::move(icon)),
      m_menu(std::move(menu))
{
    m_whenHostsChange = m_watcher.onChange([this] { chooseTray(); });
    m_press = m_icon->onPress([this](const PixelRect& place) {
        m_menu->hideToolTip();
        m_menu->open(place);
    });
    m_rest = m_icon->onRest([this](const PixelRect& place) { m_menu->showToolTip(m_toolTip, place); });
    m_leave = m_icon->onLeave([this](const PixelRect&) { m_menu->hideToolTip(); });
    chooseTray();
}

void TrayStatusItem::chooseTray()
{
    m_patience.reset();
    if (!m_hasImage || m_watcher.hasHost())
        m_icon->setVisible(false);
    else if (m_watcher.isQueryPending())
        m_patience = m_runLoop.scheduleOnce(kWatcherPatience, [this] { m_icon->setVisible(true); });
    else
        m_icon->setVisible(true);
}

void TrayStatusItem::setImage(const Image& image)
{
    m_hasImage = !std::holds_alternative<std::monostate>(image);
    m_item.setImage(image);
    m_icon->setImage(image);
    chooseTray();
}

void TrayStatusItem::setToolTip(const std::string& text)
{
    m_toolTip = text;
    m_item.setToolTip(text);
}

void TrayStatusItem::setMenu(const MenuModel& menu, MenuDelegate& delegate)
{
    m_item.setMenu(menu, delegate);
    m_menu->setMenu(menu, delegate);
}

void TrayStatusItem::menuItemsChanged()
{
    m_item.menuItemsChanged();
    m_menu->menuItemsChanged();
}

TrayStatusItems::TrayStatusItems(LinuxRunLoop& runLoop, EmbeddedIcons& icons, TrayMenus& menus,
                                 const Processes& processes)
    : m_runLoop(runLoop),
      m_icons(icons),
      m_menus(menus),
      m_iconName(installedSymbolicIcon(processes)),
      m_bus(runLoop),
      m_watcher(m_bus)
{
}

std::unique_ptr<StatusItem> TrayStatusItems::make(double)
{
    return std::make_unique<TrayStatusItem>(
        NotifierItem::Parts{.runLoop = m_runLoop, .bus = m_bus, .watcher = m_watcher, .iconName = m_iconName},
        m_icons.make(), m_menus.make());
}

} // namespace haloric
