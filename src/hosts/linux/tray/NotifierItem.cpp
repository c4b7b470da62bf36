#include "hosts/linux/tray/NotifierItem.h"

#include "hosts/linux/tray/TrayPicture.h"

#include <array>
#include <string_view>
#include <utility>

#include <arpa/inet.h>
#include <unistd.h>

namespace haloric {

namespace {

constexpr const char* kItemPath = "/StatusNotifierItem";
constexpr const char* kItemInterface = "org.kde.StatusNotifierItem";
constexpr std::array kSides{16, 22, 24, 32, 48, 64}; // pixels, which panels use

// (iiay): width, height, and the pixels in network byte order, not premultiplied.
int appendPicture(sd_bus_message* message, const Picture& picture)
{
    std::vector<std::uint32_t> pixels = picture.pixels;
    for (std::uint32_t& pixel : pixels) {
        const std::uint32_t alpha = pixel >> 24U;
        std::uint32_t straight = alpha << 24U;
        for (unsigned shift = 0; alpha > 0 && shift < 24; shift += 8)
            straight |= ((((pixel >> shift) & 0xFFU) * 255U + alpha / 2) / alpha) << shift;
        pixel = htonl(straight);
    }
    int result = sd_bus_message_open_container(message, 'r', "iiay");
    result = result < 0 ? result : sd_bus_message_append(message, "ii", picture.width, picture.height);
    result = result < 0 ? result
                        : sd_bus_message_append_array(message, 'y', pixels.data(), pixels.size() * sizeof pixels[0]);
    return result < 0 ? result : sd_bus_message_close_container(message);
}

int menuPath(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*)
{
    return sd_bus_message_append(reply, "o", BusMenu::kPath);
}

int isMenu(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*)
{
    return sd_bus_message_append(reply, "b", 1);
}

int noWindow(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*)
{
    return sd_bus_message_append(reply, "i", 0);
}

int noPictures(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*)
{
    return sd_bus_message_append(reply, "a(iiay)", 0);
}

int ignore(sd_bus_message* call, void*, sd_bus_error*) { return sd_bus_reply_method_return(call, nullptr); }

} // namespace

NotifierItem::NotifierItem(Parts parts, Activation onActivate)
    : m_parts(std::move(parts)),
      m_onActivate(std::move(onActivate))
{
    static int count = 0;
    m_name = std::string(kItemInterface) + "-" + std::to_string(getpid()) + "-" + std::to_string(++count);
    m_whenOpened = m_parts.bus.onOpen([this] { appear(); });
    m_whenLost = m_parts.bus.onLost([this] { disappear(); });
    m_whenWatcherAppears = m_parts.watcher.onAppear([this] { m_parts.watcher.registerItem(m_name); });
    if (m_parts.bus.raw())
        appear();
}

// Without its name on the bus the panel removes the item.
NotifierItem::~NotifierItem()
{
    if (m_parts.bus.raw())
        sd_bus_release_name_async(m_parts.bus.raw(), nullptr, m_name.c_str(), nullptr, nullptr);
}

void NotifierItem::appear()
{
    sd_bus* bus = m_parts.bus.raw();
    sd_bus_slot* slot = nullptr;
    if (sd_bus_add_object_vtable(bus, &slot, kItemPath, kItemInterface, table(), this) < 0)
        return;
    m_object.reset(slot);
    if (m_menu)
        m_menu->setBus(bus);
    sd_bus_request_name_async(bus, nullptr, m_name.c_str(), 0, nullptr, nullptr);
    m_parts.watcher.registerItem(m_name);
}

void NotifierItem::disappear()
{
    m_object.reset();
    if (m_menu)
        m_menu->setBus(nullptr);
}

void NotifierItem::announce(const char* signal)
{
    if (m_parts.bus.raw())
        sd_bus_emit_signal(m_parts.bus.raw(), kItemPath, kItemInterface, signal, nullptr);
}

void NotifierItem::setImage(const Image& image)
{
    const bool wasShown = isShown();
    m_image = image;
    announce("NewIcon");
    if (isShown() != wasShown && m_parts.bus.raw())
        sd_bus_emit_signal(m_parts.bus.raw(), kItemPath, kItemInterface, "NewStatus", "s",
                           isShown() ? "Active" : "Passive");
}

void NotifierItem::setToolTip(const std::string& text)
{
    m_toolTip = text;
    announce("NewToolTip");
}

void NotifierItem::setMenu(const MenuModel& menu, MenuDelegate& delegate)
{
    m_menu = std::make_unique<BusMenu>(m_parts.runLoop, menu, delegate);
    if (m_parts.bus.raw())
        m_menu->setBus(m_parts.bus.raw());
    announce("NewMenu");
}

void NotifierItem::menuItemsChanged()
{
    if (m_menu)
        m_menu->itemsChanged();
}

int NotifierItem::text(sd_bus*, const char*, const char*, const char* property, sd_bus_message* reply, void* self,
                       sd_bus_error*)
{
    const auto& item = *static_cast<NotifierItem*>(self);
    const std::string_view name = property;
    std::string value;
    if (name == "Category")
        value = "ApplicationStatus";
    else if (name == "Id")
        value = "haloric";
    else if (name == "Title")
        value = "Haloric";
    else if (name == "Status")
        value = item.isShown() ? "Active" : "Passive";
    else if (name == "IconName")
        value = item.m_parts.iconName;
    return sd_bus_message_append(reply, "s", value.c_str());
}

int NotifierItem::pictures(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* self,
                           sd_bus_error*)
{
    const auto& item = *static_cast<NotifierItem*>(self);
    int result = sd_bus_message_open_container(reply, 'a', "(iiay)");
    if (const auto* drawn = std::get_if<DrawnImage>(&item.m_image)) {
        for (const int side : kSides)
            result = result < 0 ? result : appendPicture(reply, TrayPicture::draw(*drawn, side, std::nullopt));
    }
    return result < 0 ? result : sd_bus_message_close_container(reply);
}

int NotifierItem::toolTip(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* self,
                          sd_bus_error*)
{
    const auto& item = *static_cast<NotifierItem*>(self);
    return sd_bus_message_append(reply, "(sa(iiay)ss)", "", 0, item.m_toolTip.c_str(), "");
}

int NotifierItem::activate(sd_bus_message* call, void* self, sd_bus_error*)
{
    int x = 0;
    int y = 0;
    const int result = sd_bus_message_read(call, "ii", &x, &y);
    if (result < 0)
        return result;
    auto& item = *static_cast<NotifierItem*>(self);
    const auto open = item.m_anchor.bind([x, y](NotifierItem& that) { that.m_onActivate(x, y); });
    item.m_parts.runLoop.post(open); // after sd-bus has returned, because a menu runs a loop
    return sd_bus_reply_method_return(call, nullptr);
}

const sd_bus_vtable* NotifierItem::table()
{
    static const sd_bus_vtable entries[] = {
        SD_BUS_VTABLE_START(0),
        SD_BUS_PROPERTY("Category", "s", &NotifierItem::text, 0, 0),
        SD_BUS_PROPERTY("Id", "s", &NotifierItem::text, 0, 0),
        SD_BUS_PROPERTY("Title", "s", &NotifierItem::text, 0, 0),
        SD_BUS_PROPERTY("Status", "s", &NotifierItem::text, 0, 0),
        SD_BUS_PROPERTY("WindowId", "i", noWindow, 0, 0),
        SD_BUS_PROPERTY("IconThemePath", "s", &NotifierItem::text, 0, 0),
        SD_BUS_PROPERTY("IconName", "s", &NotifierItem::text, 0, 0),
        SD_BUS_PROPERTY("IconPixmap", "a(iiay)", &NotifierItem::pictures, 0, 0),
        SD_BUS_PROPERTY("OverlayIconName", "s", &NotifierItem::text, 0, 0),
        SD_BUS_PROPERTY("OverlayIconPixmap", "a(iiay)", noPictures, 0, 0),
        SD_BUS_PROPERTY("AttentionIconName", "s", &NotifierItem::text, 0, 0),
        SD_BUS_PROPERTY("AttentionIconPixmap", "a(iiay)", noPictures, 0, 0),
        SD_BUS_PROPERTY("AttentionMovieName", "s", &NotifierItem::text, 0, 0),
        SD_BUS_PROPERTY("ToolTip", "(sa(iiay)ss)", &NotifierItem::toolTip, 0, 0),
        SD_BUS_PROPERTY("ItemIsMenu", "b", isMenu, 0, 0),
        SD_BUS_PROPERTY("Menu", "o", menuPath, 0, 0),
        SD_BUS_METHOD("ContextMenu", "ii", "", &NotifierItem::activate, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("Activate", "ii", "", &NotifierItem::activate, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("SecondaryActivate", "ii", "", &NotifierItem::activate, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("Scroll", "is", "", ignore, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_SIGNAL("NewTitle", "", 0),
        SD_BUS_SIGNAL("NewIcon", "", 0),
        SD_BUS_SIGNAL("NewAttentionIcon", "", 0),
        SD_BUS_SIGNAL("NewOverlayIcon", "", 0),
        SD_BUS_SIGNAL("NewMenu", "", 0),
        SD_BUS_SIGNAL("NewToolTip", "", 0),
        SD_BUS_SIGNAL("NewStatus", "s", 0),
        SD_BUS_VTABLE_END};
    return entries;
}

} // namespace haloric
