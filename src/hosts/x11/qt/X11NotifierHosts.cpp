#include "hosts/x11/qt/X11NotifierHosts.h"

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

// Looking for a bus that is not there would start one.
bool hasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

} // namespace

X11NotifierHosts::X11NotifierHosts(Task onFound) : m_onFound(std::move(onFound))
{
    if (!hasSessionBus())
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    m_watchers.setConnection(bus);
    m_watchers.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    m_watchers.addWatchedService(kService);
    connect(&m_watchers, &QDBusServiceWatcher::serviceRegistered, this, [this] { ask(); });
    bus.connect(kService, kPath, kService, "StatusNotifierHostRegistered", this, SLOT(found()));
    ask();
}

void X11NotifierHosts::ask()
{
    QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, "org.freedesktop.DBus.Properties", "Get");
    question << QString(kService) << QString("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* call) {
        const QDBusPendingReply<QDBusVariant> reply = *call;
        call->deleteLater();
        if (!reply.isError() && reply.value().variant().toBool())
            found();
    });
}

void X11NotifierHosts::found() { m_onFound(); }

} // namespace haloric
