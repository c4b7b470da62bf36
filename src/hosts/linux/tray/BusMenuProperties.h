// The properties of a menu item in the protocol com.canonical.dbusmenu. Properties with their default value are left
// out. Any thread but for the pictures, which are drawn on the main thread.
//
// Source: the interface description of com.canonical.dbusmenu, version 3.
#pragma once

#include "platform/MenuModel.h"

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include <systemd/sd-bus.h>

namespace haloric {

struct BusMenuShortcut {
    std::vector<std::string> keys; // pressed together, modifiers first
    friend bool operator==(const BusMenuShortcut&, const BusMenuShortcut&) = default;
};

struct BusMenuPicture {
    std::string png;
    friend bool operator==(const BusMenuPicture&, const BusMenuPicture&) = default;
};

using BusMenuValue = std::variant<bool, std::int32_t, std::string, BusMenuShortcut, BusMenuPicture>;
using BusMenuProperties = std::map<std::string, BusMenuValue>; // by name

// `picture`: see `busMenuPicture`; empty for none.
BusMenuProperties busMenuProperties(const MenuItem& item, const std::string& picture);

// Append a value as a variant, and a property as an entry of a dictionary (sv). Negative on failure, as in sd-bus.
int appendValue(sd_bus_message* message, const BusMenuValue& value);
int appendProperty(sd_bus_message* message, const std::string& name, const BusMenuValue& value);

// The item's drawn image as a PNG file of 16 × 16 pixels; empty without one.
std::string busMenuPicture(const MenuItem& item);

} // namespace haloric
