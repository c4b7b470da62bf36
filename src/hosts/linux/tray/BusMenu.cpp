#include "hosts/linux/tray/BusMenu.h"

#include <cerrno>

namespace haloric {

namespace {

constexpr const char* kMenuInterface = "com.canonical.dbusmenu";
constexpr std::uint32_t kVersion = 3;
constexpr std::uint32_t kRevision = 1; // of the layout, which does not change

std::int32_t idAt(std::size_t index) { return static_cast<std::int32_t>(index); }

BusMessage replyTo(sd_bus_message* call)
{
    sd_bus_message* reply = nullptr;
    return sd_bus_message_new_method_return(call, &reply) < 0 ? nullptr : BusMessage(reply);
}

int send(const BusMessage& reply, int result)
{
    return result < 0 ? result : sd_bus_send(nullptr, reply.get(), nullptr);
}

int readNames(sd_bus_message* call, std::set<std::string, std::less<>>& names)
{
    int result = sd_bus_message_enter_container(call, 'a', "s");
    const char* name = nullptr;
    while (result >= 0 && (result = sd_bus_message_read(call, "s", &name)) > 0)
        names.insert(name);
    return result < 0 ? result : sd_bus_message_exit_container(call);
}

std::vector<std::int32_t> readIds(sd_bus_message* call)
{
    const void* ids = nullptr;
    std::size_t size = 0;
    if (sd_bus_message_read_array(call, 'i', &ids, &size) <= 0 || size == 0)
        return {};
    const auto* first = static_cast<const std::int32_t*>(ids);
    return {first, first + size / sizeof(std::int32_t)};
}

int appendIds(sd_bus_message* message, const std::vector<std::int32_t>& ids)
{
    return sd_bus_message_append_array(message, 'i', ids.data(), ids.size() * sizeof(std::int32_t));
}

int unknownItem(sd_bus_error* error)
{
    return sd_bus_error_set_const(error, SD_BUS_ERROR_INVALID_ARGS, "No such item");
}

int text(sd_bus*, const char*, const char*, const char* name, sd_bus_message* reply, void*, sd_bus_error*)
{
    return sd_bus_message_append(reply, "s", std::string_view(name) == "Status" ? "normal" : "ltr");
}

int version(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*)
{
    return sd_bus_message_append(reply, "u", kVersion);
}

int noTexts(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*)
{
    return sd_bus_message_append(reply, "as", 0);
}

} // namespace

BusMenu::BusMenu(LinuxRunLoop& runLoop, const MenuModel& model, MenuDelegate& delegate)
    : m_runLoop(runLoop),
      m_model(model),
      m_delegate(delegate)
{
    m_nodes.emplace_back();
    number(model.items, 0);
}

void BusMenu::number(const std::vector<MenuItem>& items, std::int32_t parent)
{
    for (std::size_t index = 0; index < items.size(); ++index) {
        const std::int32_t id = idAt(m_nodes.size());
        Position position = m_nodes[static_cast<std::size_t>(parent)].position;
        position.push_back(index);
        m_nodes.push_back({std::move(position), {}, busMenuPicture(items[index]), {}});
        m_nodes[static_cast<std::size_t>(parent)].children.push_back(id);
        number(items[index].submenu, id);
    }
}

void BusMenu::setBus(sd_bus* bus)
{
    m_object.reset();
    m_bus = bus;
    for (Node& node : m_nodes)
        node.shown.clear();
    sd_bus_slot* slot = nullptr;
    if (bus && sd_bus_add_object_vtable(bus, &slot, kPath, kMenuInterface, table(), this) >= 0)
        m_object.reset(slot);
}

BusMenu::Node* BusMenu::node(std::int32_t id)
{
    return id >= 0 && id < idAt(m_nodes.size()) ? &m_nodes[static_cast<std::size_t>(id)] : nullptr;
}

BusMenuProperties BusMenu::properties(std::int32_t id)
{
    if (id == 0)
        return {{"children-display", std::string("submenu")}};
    const Node& found = *node(id);
    const MenuItem* item = itemAt(m_model, found.position);
    return item ? busMenuProperties(*item, found.picture) : BusMenuProperties{};
}

// a{sv}
int BusMenu::appendProperties(sd_bus_message* message, std::int32_t id, const Names& names)
{
    node(id)->shown = properties(id);
    int result = sd_bus_message_open_container(message, 'a', "{sv}");
    for (const auto& [name, value] : node(id)->shown) {
        if (result >= 0 && (names.empty() || names.contains(name)))
            result = appendProperty(message, name, value);
    }
    return result < 0 ? result : sd_bus_message_close_container(message);
}

// (ia{sv}av); a negative depth: all levels
int BusMenu::appendLayout(sd_bus_message* message, std::int32_t id, std::int32_t depth, const Names& names)
{
    int result = sd_bus_message_open_container(message, 'r', "ia{sv}av");
    result = result < 0 ? result : sd_bus_message_append(message, "i", id);
    result = result < 0 ? result : appendProperties(message, id, names);
    result = result < 0 ? result : sd_bus_message_open_container(message, 'a', "v");
    if (depth != 0) {
        for (const std::int32_t child : node(id)->children) {
            result = result < 0 ? result : sd_bus_message_open_container(message, 'v', "(ia{sv}av)");
            result = result < 0 ? result : appendLayout(message, child, depth - 1, names);
            result = result < 0 ? result : sd_bus_message_close_container(message);
        }
    }
    result = result < 0 ? result : sd_bus_message_close_container(message);
    return result < 0 ? result : sd_bus_message_close_container(message);
}

int BusMenu::getLayout(sd_bus_message* call, void* self, sd_bus_error* error)
{
    auto& menu = *static_cast<BusMenu*>(self);
    std::int32_t parent = 0;
    std::int32_t depth = 0;
    Names names;
    int result = sd_bus_message_read(call, "ii", &parent, &depth);
    result = result < 0 ? result : readNames(call, names);
    if (result < 0)
        return result;
    if (!menu.node(parent))
        return unknownItem(error);
    const BusMessage reply = replyTo(call);
    result = reply ? sd_bus_message_append(reply.get(), "u", kRevision) : -ENOMEM;
    return send(reply, result < 0 ? result : menu.appendLayout(reply.get(), parent, depth, names));
}

int BusMenu::getGroupProperties(sd_bus_message* call, void* self, sd_bus_error*)
{
    auto& menu = *static_cast<BusMenu*>(self);
    std::vector<std::int32_t> ids = readIds(call);
    Names names;
    int result = readNames(call, names);
    if (ids.empty()) {
        for (std::size_t index = 0; index < menu.m_nodes.size(); ++index)
            ids.push_back(idAt(index));
    }
    const BusMessage reply = replyTo(call);
    if (result < 0 || !reply)
        return result < 0 ? result : -ENOMEM;
    result = sd_bus_message_open_container(reply.get(), 'a', "(ia{sv})");
    for (const std::int32_t id : ids) {
        if (!menu.node(id))
            continue;
        result = result < 0 ? result : sd_bus_message_open_container(reply.get(), 'r', "ia{sv}");
        result = result < 0 ? result : sd_bus_message_append(reply.get(), "i", id);
        result = result < 0 ? result : menu.appendProperties(reply.get(), id, names);
        result = result < 0 ? result : sd_bus_message_close_container(reply.get());
    }
    return send(reply, result < 0 ? result : sd_bus_message_close_container(reply.get()));
}

int BusMenu::getProperty(sd_bus_message* call, void* self, sd_bus_error* error)
{
    auto& menu = *static_cast<BusMenu*>(self);
    std::int32_t id = 0;
    const char* name = nullptr;
    const int result = sd_bus_message_read(call, "is", &id, &name);
    if (result < 0)
        return result;
    if (!menu.node(id))
        return unknownItem(error);
    const BusMenuProperties all = menu.properties(id);
    const auto found = all.find(name);
    if (found == all.end())
        return sd_bus_error_set_const(error, SD_BUS_ERROR_UNKNOWN_PROPERTY, "The property has its default value");
    const BusMessage reply = replyTo(call);
    return send(reply, reply ? appendValue(reply.get(), found->second) : -ENOMEM);
}

int BusMenu::event(sd_bus_message* call, void* self, sd_bus_error* error)
{
    auto& menu = *static_cast<BusMenu*>(self);
    std::int32_t id = 0;
    const char* what = nullptr;
    const int result = sd_bus_message_read(call, "is", &id, &what);
    if (result < 0)
        return result;
    if (!menu.node(id))
        return unknownItem(error);
    menu.handle(id, what);
    return sd_bus_reply_method_return(call, nullptr);
}

// a(isvu); replies with the unknown items.
int BusMenu::eventGroup(sd_bus_message* call, void* self, sd_bus_error*)
{
    auto& menu = *static_cast<BusMenu*>(self);
    std::vector<std::int32_t> unknown;
    int result = sd_bus_message_enter_container(call, 'a', "(isvu)");
    while (result >= 0 && (result = sd_bus_message_enter_container(call, 'r', "isvu")) > 0) {
        std::int32_t id = 0;
        const char* what = nullptr;
        result = sd_bus_message_read(call, "is", &id, &what);
        if (result >= 0 && menu.node(id))
            menu.handle(id, what);
        else
            unknown.push_back(id);
        result = result < 0 ? result : sd_bus_message_skip(call, "vu");
        result = result < 0 ? result : sd_bus_message_exit_container(call);
    }
    const BusMessage reply = replyTo(call);
    return send(reply, result < 0 ? result : reply ? appendIds(reply.get(), unknown) : -ENOMEM);
}

int BusMenu::aboutToShow(sd_bus_message* call, void* self, sd_bus_error* error)
{
    auto& menu = *static_cast<BusMenu*>(self);
    std::int32_t id = 0;
    const int result = sd_bus_message_read(call, "i", &id);
    if (result < 0)
        return result;
    if (!menu.node(id))
        return unknownItem(error);
    return sd_bus_reply_method_return(call, "b", int{menu.prepare()});
}

// Replies with the items that need an update, and the unknown ones.
int BusMenu::aboutToShowGroup(sd_bus_message* call, void* self, sd_bus_error*)
{
    auto& menu = *static_cast<BusMenu*>(self);
    std::vector<std::int32_t> changed;
    std::vector<std::int32_t> unknown;
    const bool isChanged = menu.prepare();
    for (const std::int32_t id : readIds(call)) {
        if (!menu.node(id))
            unknown.push_back(id);
        else if (isChanged)
            changed.push_back(id);
    }
    const BusMessage reply = replyTo(call);
    int result = reply ? appendIds(reply.get(), changed) : -ENOMEM;
    return send(reply, result < 0 ? result : appendIds(reply.get(), unknown));
}

// Lets the delegate change the items before they are shown. True if it did.
bool BusMenu::prepare()
{
    m_delegate.menuNeedsUpdate();
    bool isChanged = false;
    for (std::size_t index = 1; index < m_nodes.size(); ++index)
        isChanged = m_nodes[index].shown != properties(idAt(index)) || isChanged;
    itemsChanged();
    return isChanged;
}

// An action may run a loop until the user has answered, so it waits until sd-bus has returned.
void BusMenu::handle(std::int32_t id, const std::string& event)
{
    if (event == "clicked" && id > 0)
        m_runLoop.post(m_anchor.bind(&BusMenu::perform, id));
}

void BusMenu::perform(std::int32_t id)
{
    const auto self = m_anchor.ref();
    if (const MenuItem* item = itemAt(m_model, node(id)->position))
        performAction(*item);
    if (self.get()) {
        node(id)->shown.clear(); // the panel has toggled the mark itself
        announce(id);
    }
}

void BusMenu::itemsChanged()
{
    for (std::size_t index = 1; index < m_nodes.size(); ++index) {
        if (!m_nodes[index].shown.empty())
            announce(idAt(index));
    }
}

// Sends the properties that differ from those last sent. False if there are none, or no connection.
bool BusMenu::announce(std::int32_t id)
{
    BusMenuProperties now = properties(id);
    Node& item = *node(id);
    if (!m_bus || now == item.shown)
        return false;
    sd_bus_message* raw = nullptr;
    if (sd_bus_message_new_signal(m_bus, &raw, kPath, kMenuInterface, "ItemsPropertiesUpdated") < 0)
        return false;
    const BusMessage signal(raw);
    int result = sd_bus_message_open_container(raw, 'a', "(ia{sv})");
    result = result < 0 ? result : sd_bus_message_open_container(raw, 'r', "ia{sv}");
    result = result < 0 ? result : sd_bus_message_append(raw, "i", id);
    result = result < 0 ? result : sd_bus_message_open_container(raw, 'a', "{sv}");
    for (const auto& [name, value] : now) {
        const auto before = item.shown.find(name);
        if (result >= 0 && (before == item.shown.end() || before->second != value))
            result = appendProperty(raw, name, value);
    }
    for (int level = 0; level < 3; ++level)
        result = result < 0 ? result : sd_bus_message_close_container(raw);
    result = result < 0 ? result : sd_bus_message_open_container(raw, 'a', "(ias)");
    result = result < 0 ? result : sd_bus_message_open_container(raw, 'r', "ias");
    result = result < 0 ? result : sd_bus_message_append(raw, "i", id);
    result = result < 0 ? result : sd_bus_message_open_container(raw, 'a', "s");
    for (const auto& [name, value] : item.shown) {
        if (result >= 0 && !now.contains(name))
            result = sd_bus_message_append(raw, "s", name.c_str());
    }
    for (int level = 0; level < 3; ++level)
        result = result < 0 ? result : sd_bus_message_close_container(raw);
    item.shown = std::move(now);
    return result >= 0 && sd_bus_send(m_bus, raw, nullptr) >= 0;
}

const sd_bus_vtable* BusMenu::table()
{
    static const sd_bus_vtable entries[] = {
        SD_BUS_VTABLE_START(0),
        SD_BUS_PROPERTY("Version", "u", version, 0, SD_BUS_VTABLE_PROPERTY_CONST),
        SD_BUS_PROPERTY("TextDirection", "s", text, 0, SD_BUS_VTABLE_PROPERTY_CONST),
        SD_BUS_PROPERTY("Status", "s", text, 0, SD_BUS_VTABLE_PROPERTY_CONST),
        SD_BUS_PROPERTY("IconThemePath", "as", noTexts, 0, SD_BUS_VTABLE_PROPERTY_CONST),
        SD_BUS_METHOD("GetLayout", "iias", "u(ia{sv}av)", &BusMenu::getLayout, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("GetGroupProperties", "aias", "a(ia{sv})", &BusMenu::getGroupProperties,
                      SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("GetProperty", "is", "v", &BusMenu::getProperty, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("Event", "isvu", "", &BusMenu::event, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("EventGroup", "a(isvu)", "ai", &BusMenu::eventGroup, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("AboutToShow", "i", "b", &BusMenu::aboutToShow, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("AboutToShowGroup", "ai", "aiai", &BusMenu::aboutToShowGroup, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_SIGNAL("ItemsPropertiesUpdated", "a(ia{sv})a(ias)", 0),
        SD_BUS_SIGNAL("LayoutUpdated", "ui", 0),
        SD_BUS_SIGNAL("ItemActivationRequested", "iu", 0),
        SD_BUS_VTABLE_END};
    return entries;
}

} // namespace haloric
