#include "hosts/linux/shell/TrayWatcher.h"

#include <limits>
#include <utility>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>

namespace haloric {

namespace {

constexpr const char* kService = "org.kde.StatusNotifierWatcher";
constexpr const char* kPath = "/StatusNotifierWatcher";
constexpr int kNoTimeout = std::numeric_limits<int>::max(); // as libdbus defines it

// Without this test, connecting to an absent bus would start one.
bool hasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

} // namespace

StatusNotifierWatcher::StatusNotifierWatcher(Task onChange) : m_onChange(std::move(onChange))
{
    if (!hasSessionBus())
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    m_services.setConnection(bus);
    m_services.addWatchedService(kService);
    connect(&m_services, &QDBusServiceWatcher::serviceRegistered, this, [this] { query(); });
    connect(&m_services, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        ++m_lastQuery;
        conclude(false);
    });
    bus.connect(kService, kPath, kService, "StatusNotifierHostRegistered", this, SLOT(query()));
    query();
}

// If the name has no owner, the bus replies with an error.
void StatusNotifierWatcher::query()
{
    QDBusMessage message = QDBusMessage::createMethodCall(kService, kPath, "org.freedesktop.DBus.Properties", "Get");
    message << QString(kService) << QString("IsStatusNotifierHostRegistered");
    message.setAutoStartService(false);
    m_isQueryPending = true;
    auto* pending = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message, kNoTimeout), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this,
            [this, number = ++m_lastQuery](QDBusPendingCallWatcher* call) {
                const QDBusPendingReply<QDBusVariant> reply = *call;
                call->deleteLater();
                if (number == m_lastQuery)
                    conclude(!reply.isError() && reply.value().variant().toBool());
            });
}

void StatusNotifierWatcher::conclude(bool hasHost)
{
    m_isQueryPending = false;
    m_hasHost = hasHost;
    m_onChange();
}

TrayWatcher::TrayWatcher(EmbeddingTray& tray)
    : m_tray(tray),
      m_notifier([this] { look(); }),
      m_whenTrayAppears(tray.onAppear([this] { look(); }))
{
    look();
}

void TrayWatcher::look()
{
    if (m_wasSeen || m_notifier.isQueryPending() || (!m_notifier.hasHost() && !m_tray.exists()))
        return;
    m_wasSeen = true;
    m_seen.publish();
}

} // namespace haloric
