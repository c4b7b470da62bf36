#include "hosts/linux/shell/StatusNotifierWatcher.h"

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
constexpr int kNoTimeout = std::numeric_limits<int>::max(); // as the bus defines it

// Looking for a bus that is not there would start one.
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
    m_watchers.setConnection(bus);
    m_watchers.addWatchedService(kService);
    connect(&m_watchers, &QDBusServiceWatcher::serviceRegistered, this, [this] { ask(); });
    connect(&m_watchers, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        ++m_question;
        conclude(false);
    });
    bus.connect(kService, kPath, kService, "StatusNotifierHostRegistered", this, SLOT(ask()));
    ask();
}

// Where nobody has the name, the bus itself answers, by an error.
void StatusNotifierWatcher::ask()
{
    QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, "org.freedesktop.DBus.Properties", "Get");
    question << QString(kService) << QString("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    m_isAsking = true;
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question, kNoTimeout), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
            [this, number = ++m_question](QDBusPendingCallWatcher* call) {
                const QDBusPendingReply<QDBusVariant> reply = *call;
                call->deleteLater();
                if (number == m_question)
                    conclude(!reply.isError() && reply.value().variant().toBool());
            });
}

void StatusNotifierWatcher::conclude(bool areThere)
{
    m_isAsking = false;
    m_areThere = areThere;
    m_onChange();
}

} // namespace haloric
