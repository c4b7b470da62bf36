// A menu on the session bus, which a panel shows (com.canonical.dbusmenu). Main thread.
//
// Items have the numbers 1, 2, … in the order of the menu, those of a submenu after the item that opens it; 0 is the
// menu itself. The model's items keep their number, order and nesting, so only properties are announced as changed.
#pragma once

#include "foundation/WeakAnchor.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/linux/tray/BusMenuProperties.h"
#include "hosts/linux/tray/BusTypes.h"
#include "platform/MenuDelegate.h"
#include "platform/MenuModel.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace haloric {

class BusMenu {
public:
    static constexpr const char* kPath = "/MenuBar";

    // All three outlive it.
    BusMenu(LinuxRunLoop& runLoop, const MenuModel& model, MenuDelegate& delegate);
    BusMenu(const BusMenu&) = delete;
    BusMenu& operator=(const BusMenu&) = delete;

    // Exports the menu on a connection; null: the connection is gone. Panels are not told: announce the menu in the
    // item that has it.
    void setBus(sd_bus* bus);

    // Announces the items that show something else than before.
    void itemsChanged();

private:
    using Position = std::vector<std::size_t>; // the index at each level
    struct Node {
        Position position;
        std::vector<std::int32_t> children;
        std::string picture;     // rendered once: images do not change
        BusMenuProperties shown; // as last sent; empty before a panel has asked
    };
    using Names = std::set<std::string, std::less<>>; // of the wanted properties; empty: all

    static const sd_bus_vtable* table();
    static int getLayout(sd_bus_message* call, void* self, sd_bus_error* error);
    static int getGroupProperties(sd_bus_message* call, void* self, sd_bus_error* error);
    static int getProperty(sd_bus_message* call, void* self, sd_bus_error* error);
    static int event(sd_bus_message* call, void* self, sd_bus_error* error);
    static int eventGroup(sd_bus_message* call, void* self, sd_bus_error* error);
    static int aboutToShow(sd_bus_message* call, void* self, sd_bus_error* error);
    static int aboutToShowGroup(sd_bus_message* call, void* self, sd_bus_error* error);

    void number(const std::vector<MenuItem>& items, std::int32_t parent);
    Node* node(std::int32_t id);
    BusMenuProperties properties(std::int32_t id);
    int appendProperties(sd_bus_message* message, std::int32_t id, const Names& names);
    int appendLayout(sd_bus_message* message, std::int32_t id, std::int32_t depth, const Names& names);
    bool prepare();
    void handle(std::int32_t id, const std::string& event);
    void perform(std::int32_t id);
    bool announce(std::int32_t id);

    LinuxRunLoop& m_runLoop;
    const MenuModel& m_model;
    MenuDelegate& m_delegate;
    sd_bus* m_bus = nullptr;
    BusSlot m_object;
    std::vector<Node> m_nodes;
    WeakAnchor<BusMenu> m_anchor{*this};
};

} // namespace haloric
