#include "hosts/linux/tray/NotifierWatcher.h"

namespace haloric {

namespace {

constexpr const char* kWatcher = "org.kde.StatusNotifierWatcher";
constexpr const char* kWatcherPath = "/StatusNotifierWatcher";
constexpr const char* kOwnerChanges = "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
                                      "member='NameOwnerChanged',arg0='org.kde.StatusNotifierWatcher'";
// Without the sender: messages bear a unique name, which sd-bus does not compare with a well-known one.
constexpr const char* kHostChanges = "type='signal',interface='org.kde.StatusNotifierWatcher',"
                                     "path='/StatusNotifierWatcher'";
constexpr std::uint64_t kNoTimeout = UINT64_MAX;

// A call that starts no service: where no watcher runs, none is wanted. Null without memory.
BusMessage callOf(sd_bus* bus, const char* interface, const char* member)
{
    sd_bus_message* message = nullptr;
    if (sd_bus_message_new_method_call(bus, &message, kWatcher, kWatcherPath, interface, member) < 0)
        return nullptr;
    sd_bus_message_set_auto_start(message, 0);
    return BusMessage(message);
}

} // namespace

NotifierWatcher::NotifierWatcher(SessionBus& bus) : m_bus(bus)
{
    m_whenOpened = bus.onOpen([this] { listen(); });
    m_whenLost = bus.onLost([this] { forget(); });
    if (bus.raw())
        listen();
}

void NotifierWatcher::listen()
{
    sd_bus_slot* slot = nullptr;
    if (sd_bus_add_match_async(m_bus.raw(), &slot, kOwnerChanges, &NotifierWatcher::ownerChanged, nullptr, this) >= 0)
        m_owner.reset(slot);
    if (sd_bus_add_match_async(m_bus.raw(), &slot, kHostChanges, &NotifierWatcher::hostsChanged, nullptr, this) >= 0)
        m_signals.reset(slot);
    query();
}

void NotifierWatcher::forget()
{
    m_owner.reset();
    m_signals.reset();
    conclude(false);
}

int NotifierWatcher::ownerChanged(sd_bus_message* message, void* self, sd_bus_error*)
{
    const char* name = nullptr;
    const char* before = nullptr;
    const char* now = nullptr;
    if (sd_bus_message_read(message, "sss", &name, &before, &now) < 0)
        return 0;
    auto& watcher = *static_cast<NotifierWatcher*>(self);
    if (*now == '\0') {
        watcher.conclude(false);
        return 0;
    }
    watcher.query();
    watcher.m_appeared.publish();
    return 0;
}

int NotifierWatcher::hostsChanged(sd_bus_message* message, void* self, sd_bus_error*)
{
    if (sd_bus_message_is_signal(message, kWatcher, "StatusNotifierHostRegistered") > 0 ||
        sd_bus_message_is_signal(message, kWatcher, "StatusNotifierHostUnregistered") > 0)
        static_cast<NotifierWatcher*>(self)->query();
    return 0;
}

void NotifierWatcher::query()
{
    const BusMessage message = callOf(m_bus.raw(), "org.freedesktop.DBus.Properties", "Get");
    sd_bus_slot* slot = nullptr;
    if (!message || sd_bus_message_append(message.get(), "ss", kWatcher, "IsStatusNotifierHostRegistered") < 0 ||
        sd_bus_call_async(m_bus.raw(), &slot, message.get(), &NotifierWatcher::replied, this, kNoTimeout) < 0) {
        conclude(false);
        return;
    }
    m_query.reset(slot); // replaces an earlier query, whose answer no longer counts
    m_changed.publish();
}

int NotifierWatcher::replied(sd_bus_message* message, void* self, sd_bus_error*)
{
    int hasHost = 0;
    const bool isAnswer = sd_bus_message_is_method_error(message, nullptr) == 0 &&
                          sd_bus_message_enter_container(message, 'v', "b") > 0 &&
                          sd_bus_message_read(message, "b", &hasHost) > 0;
    static_cast<NotifierWatcher*>(self)->conclude(isAnswer && hasHost != 0);
    return 0;
}

void NotifierWatcher::conclude(bool hasHost)
{
    m_query.reset();
    m_hasHost = hasHost;
    m_changed.publish();
}

void NotifierWatcher::registerItem(const std::string& name)
{
    if (!m_bus.raw())
        return;
    const BusMessage message = callOf(m_bus.raw(), kWatcher, "RegisterStatusNotifierItem");
    if (message && sd_bus_message_append(message.get(), "s", name.c_str()) >= 0) {
        sd_bus_message_set_expect_reply(message.get(), 0);
        sd_bus_send(m_bus.raw(), message.get(), nullptr);
    }
}

} // namespace haloric
