#include "hosts/linux/tray/BusMenuProperties.h"

#include "drawing/raster/ImageRaster.h"
#include "drawing/raster/Png.h"

#include <algorithm>
#include <type_traits>

namespace haloric {

namespace {

constexpr double kPictureSide = 16;                                // pixels
constexpr SystemColors kColors{.separator = {0.5, 0.5, 0.5, 0.5}}; // visible on light and on dark menus

// An underscore would mark an access key; two of them show one.
std::string label(const std::string& title)
{
    std::string text;
    for (const char character : title)
        text += character == '_' ? std::string("__") : std::string(1, character);
    return text;
}

} // namespace

BusMenuProperties busMenuProperties(const MenuItem& item, const std::string& picture)
{
    BusMenuProperties properties;
    if (item.isHidden)
        properties["visible"] = false;
    if (item.isSeparator) {
        properties["type"] = std::string("separator");
        return properties;
    }
    properties["label"] = label(item.title);
    if (!item.isEnabled)
        properties["enabled"] = false;
    if (item.isCheckable) {
        properties["toggle-type"] = std::string("checkmark");
        properties["toggle-state"] = std::int32_t{item.isOn};
    }
    if (!item.submenu.empty())
        properties["children-display"] = std::string("submenu");
    if (!item.keyEquivalent.empty())
        properties["shortcut"] = BusMenuShortcut{{"Control", item.keyEquivalent}};
    if (!picture.empty())
        properties["icon-data"] = BusMenuPicture{picture};
    return properties;
}

std::string busMenuPicture(const MenuItem& item)
{
    const auto* drawn = std::get_if<DrawnImage>(&item.image);
    if (!drawn)
        return {};
    const double side = std::max(drawn->size.width, drawn->size.height);
    if (!(side > 0))
        return {};
    return Png::encode(ImageRaster::render(*drawn, kPictureSide / side, kColors).buffer());
}

int appendValue(sd_bus_message* message, const BusMenuValue& value)
{
    return std::visit(
        [message](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, bool>) {
                return sd_bus_message_append(message, "v", "b", int{held});
            } else if constexpr (std::is_same_v<Held, std::int32_t>) {
                return sd_bus_message_append(message, "v", "i", held);
            } else if constexpr (std::is_same_v<Held, std::string>) {
                return sd_bus_message_append(message, "v", "s", held.c_str());
            } else if constexpr (std::is_same_v<Held, BusMenuShortcut>) {
                int result = sd_bus_message_open_container(message, 'v', "aas");
                result = result < 0 ? result : sd_bus_message_open_container(message, 'a', "as");
                result = result < 0 ? result : sd_bus_message_open_container(message, 'a', "s");
                for (const std::string& key : held.keys)
                    result = result < 0 ? result : sd_bus_message_append(message, "s", key.c_str());
                for (int level = 0; level < 3; ++level)
                    result = result < 0 ? result : sd_bus_message_close_container(message);
                return result;
            } else {
                int result = sd_bus_message_open_container(message, 'v', "ay");
                result =
                    result < 0 ? result : sd_bus_message_append_array(message, 'y', held.png.data(), held.png.size());
                return result < 0 ? result : sd_bus_message_close_container(message);
            }
        },
        value);
}

int appendProperty(sd_bus_message* message, const std::string& name, const BusMenuValue& value)
{
    int result = sd_bus_message_open_container(message, 'e', "sv");
    result = result < 0 ? result : sd_bus_message_append(message, "s", name.c_str());
    result = result < 0 ? result : appendValue(message, value);
    return result < 0 ? result : sd_bus_message_close_container(message);
}

} // namespace haloric
