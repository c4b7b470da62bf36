#include "x11/qt/NotifierHost.h"

#include "testing/x11/Deadline.h"

#include <algorithm>
#include <stdexcept>

#include <gio/gio.h>

namespace haloric {

namespace {

constexpr const char* kWatcher = "org.kde.StatusNotifierWatcher";
constexpr const char* kWatcherPath = "/StatusNotifierWatcher";
constexpr const char* kItemPath = "/StatusNotifierItem";
constexpr const char* kItem = "org.kde.StatusNotifierItem";
constexpr const char* kMenu = "com.canonical.dbusmenu";
constexpr const char* kInterface = R"(<node><interface name="org.kde.StatusNotifierWatcher">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <signal name="StatusNotifierHostRegistered"/>
</interface></node>)";

struct Unref {
    void operator()(GVariant* value) const { g_variant_unref(value); }
};
using Value = std::unique_ptr<GVariant, Unref>;

std::string textAt(GVariant* dictionary, const char* key)
{
    const char* text = nullptr;
    return g_variant_lookup(dictionary, key, "&s", &text) ? text : "";
}

bool flagAt(GVariant* dictionary, const char* key, bool otherwise)
{
    gboolean flag = FALSE;
    return g_variant_lookup(dictionary, key, "b", &flag) ? flag != FALSE : otherwise;
}

std::string shortcutOf(GVariant* properties)
{
    const Value chords(g_variant_lookup_value(properties, "shortcut", G_VARIANT_TYPE("aas")));
    std::string text;
    if (!chords || g_variant_n_children(chords.get()) == 0)
        return text;
    const Value keys(g_variant_get_child_value(chords.get(), 0));
    for (gsize index = 0; index < g_variant_n_children(keys.get()); ++index) {
        const Value key(g_variant_get_child_value(keys.get(), index));
        text += (index > 0 ? "+" : "") + std::string(g_variant_get_string(key.get(), nullptr));
    }
    return text;
}

// `layout` is (ia{sv}av).
void append(std::vector<NotifierHost::Item>& items, GVariant* layout)
{
    const Value id(g_variant_get_child_value(layout, 0));
    const Value properties(g_variant_get_child_value(layout, 1));
    const Value children(g_variant_get_child_value(layout, 2));
    gint32 state = 0;
    g_variant_lookup(properties.get(), "toggle-state", "i", &state);
    const Value icon(g_variant_lookup_value(properties.get(), "icon-data", nullptr));
    items.push_back({.id = g_variant_get_int32(id.get()),
                     .label = textAt(properties.get(), "label"),
                     .isEnabled = flagAt(properties.get(), "enabled", true),
                     .isVisible = flagAt(properties.get(), "visible", true),
                     .hasToggle = textAt(properties.get(), "toggle-type") == "checkmark",
                     .isOn = state == 1,
                     .shortcut = shortcutOf(properties.get()),
                     .hasIcon = icon && g_variant_get_size(icon.get()) > 0});
    for (gsize index = 0; index < g_variant_n_children(children.get()); ++index) {
        const Value boxed(g_variant_get_child_value(children.get(), index));
        const Value child(g_variant_get_variant(boxed.get()));
        append(items, child.get());
    }
}

} // namespace

struct NotifierHost::Bus {
    GMainContext* context = g_main_context_new();
    GDBusConnection* connection = nullptr;
    std::string itemOwner;

    explicit Bus(const std::string& address)
    {
        g_main_context_push_thread_default(context);
        const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        connection = g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, nullptr);
        if (!connection)
            throw std::runtime_error("the message bus does not answer");
    }

    ~Bus()
    {
        g_object_unref(connection);
        g_main_context_pop_thread_default(context);
        g_main_context_unref(context);
    }

    // Handles the calls that have arrived for the host.
    void takeIn() const
    {
        while (g_main_context_iteration(context, FALSE) != FALSE) {
        }
    }

    bool waitUntil(const std::function<bool()>& predicate) const
    {
        const Deadline deadline(kTimeout);
        while (!predicate()) {
            if (deadline.isOver())
                return false;
            takeIn();
            call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.Peer", "Ping", nullptr);
        }
        return true;
    }

    // The reply to a call; null on failure. Handles calls for the host while it waits.
    Value call(const std::string& destination, const char* path, const char* interface, const char* method,
               GVariant* arguments) const
    {
        struct Answer {
            GVariant* value = nullptr;
            bool isThere = false;
        } answer;
        const auto finish = [](GObject* source, GAsyncResult* result, gpointer data) {
            auto* given = static_cast<Answer*>(data);
            given->value = g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, nullptr);
            given->isThere = true;
        };
        g_dbus_connection_call(connection, destination.c_str(), path, interface, method, arguments, nullptr,
                               G_DBUS_CALL_FLAGS_NONE, -1, nullptr, finish, &answer);
        while (!answer.isThere)
            g_main_context_iteration(context, TRUE);
        return Value(answer.value);
    }

    Value property(const char* name) const
    {
        const Value boxed =
            call(itemOwner, kItemPath, "org.freedesktop.DBus.Properties", "Get", g_variant_new("(ss)", kItem, name));
        if (!boxed)
            return nullptr;
        const Value inner(g_variant_get_child_value(boxed.get(), 0));
        return Value(g_variant_get_variant(inner.get()));
    }
};

NotifierHost::NotifierHost(const Environment& environment, Presence presence)
{
    ChildProcess::Options options{{"dbus-daemon", "--session", "--nofork", "--print-address=1"}, environment, {}, -1};
    m_daemon = std::make_unique<ChildProcess>(options);
    const auto address = m_daemon->waitForLine("unix:");
    if (!address)
        throw std::runtime_error("the message bus does not start: " + m_daemon->standardError());
    m_address = *address;
    m_bus = std::make_unique<Bus>(m_address);
    if (presence == Presence::present)
        appear();
}

NotifierHost::~NotifierHost() = default;

void NotifierHost::appear()
{
    GDBusInterfaceVTable table{};
    table.method_call = [](GDBusConnection*, const gchar* sender, const gchar*, const gchar*, const gchar*, GVariant*,
                           GDBusMethodInvocation* invocation, gpointer data) {
        static_cast<Bus*>(data)->itemOwner = sender;
        g_dbus_method_invocation_return_value(invocation, nullptr);
    };
    table.get_property = [](GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* name, GError**,
                            gpointer) -> GVariant* {
        if (std::string_view(name) == "ProtocolVersion")
            return g_variant_new_int32(0);
        if (std::string_view(name) == "IsStatusNotifierHostRegistered")
            return g_variant_new_boolean(TRUE);
        return g_variant_new_strv(nullptr, 0);
    };
    GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(kInterface, nullptr);
    g_dbus_connection_register_object(m_bus->connection, kWatcherPath, node->interfaces[0], &table, m_bus.get(),
                                      nullptr, nullptr);
    g_dbus_node_info_unref(node);
    m_bus->call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                g_variant_new("(su)", kWatcher, 0U));
}

void NotifierHost::disappear()
{
    // Not by the call that handles messages, so that pending calls for the host stay unanswered.
    const Value released(g_dbus_connection_call_sync(
        m_bus->connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ReleaseName",
        g_variant_new("(s)", kWatcher), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
}

bool NotifierHost::waitUntil(const std::function<bool()>& predicate) { return m_bus->waitUntil(predicate); }

bool NotifierHost::waitForItem()
{
    return m_bus->waitUntil([this] { return !m_bus->itemOwner.empty(); });
}

std::string NotifierHost::toolTip()
{
    const Value value = m_bus->property("ToolTip"); // (icon, pictures, title, text)
    if (!value)
        return {};
    const Value title(g_variant_get_child_value(value.get(), 2));
    return g_variant_get_string(title.get(), nullptr);
}

bool NotifierHost::hasPicture()
{
    const Value pictures = m_bus->property("IconPixmap");
    const Value name = m_bus->property("IconName");
    return (pictures && g_variant_n_children(pictures.get()) > 0) ||
           (name && *g_variant_get_string(name.get(), nullptr) != '\0');
}

void NotifierHost::activate()
{
    m_bus->call(m_bus->itemOwner, kItemPath, kItem, "Activate", g_variant_new("(ii)", 100, 100));
}

std::vector<NotifierHost::Item> NotifierHost::menu()
{
    std::vector<Item> items;
    const Value path = m_bus->property("Menu");
    if (!path)
        return items;
    const Value answer = m_bus->call(m_bus->itemOwner, g_variant_get_string(path.get(), nullptr), kMenu, "GetLayout",
                                     g_variant_new("(ii@as)", 0, -1, g_variant_new_strv(nullptr, 0)));
    if (answer) {
        const Value layout(g_variant_get_child_value(answer.get(), 1));
        append(items, layout.get());
    }
    return items;
}

std::optional<NotifierHost::Item> NotifierHost::item(const std::string& label)
{
    const auto items = menu();
    const auto found = std::ranges::find(items, label, &Item::label);
    return found == items.end() ? std::nullopt : std::optional(*found);
}

bool NotifierHost::waitForItem(const std::string& label, const std::function<bool(const Item&)>& predicate)
{
    return m_bus->waitUntil([&] {
        const auto found = item(label);
        return found && predicate(*found);
    });
}

void NotifierHost::click(const std::string& label)
{
    const auto found = item(label);
    const Value path = m_bus->property("Menu");
    if (found && path) {
        m_bus->call(m_bus->itemOwner, g_variant_get_string(path.get(), nullptr), kMenu, "Event",
                    g_variant_new("(isvu)", found->id, "clicked", g_variant_new_int32(0), 0U));
    }
}

} // namespace haloric
