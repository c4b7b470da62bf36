// Whether there is a tray for an item: a system tray of the XEmbed protocol, or a host of status notifier items on the
// session bus. Main thread.
//
// Qt chooses between the two kinds when the first item is made, and keeps that choice. In a starting session, trays and
// programs start in any order, so no item is made before a tray exists. Qt also makes a blocking call to the session
// bus; while a query to the watcher is pending, no tray is reported, because Qt would block on it.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Task.h"

#include <QDBusServiceWatcher>
#include <QObject>

namespace haloric {

// The system tray of the XEmbed protocol. The display server's part of the host implements it.
class EmbeddingTray {
public:
    virtual ~EmbeddingTray() = default;

    // Whether there is a tray now. Asks the display server.
    virtual bool exists() const = 0;

    // Called after a tray has appeared.
    virtual Subscription onAppear(Task handler) = 0;
};

// Whether a host of status notifier items is on the session bus. Queries it without blocking, because the watcher on
// the bus may hang. Without a session bus there is no host.
class StatusNotifierWatcher final : public QObject {
    Q_OBJECT

public:
    // `onChange` is called after each change of the results below; never inside the constructor.
    explicit StatusNotifierWatcher(Task onChange);

    // A host is registered.
    bool hasHost() const { return m_hasHost; }

    // A query is pending. A blocking call to the watcher would hang.
    bool isQueryPending() const { return m_isQueryPending; }

private Q_SLOTS:
    void query();

private:
    void conclude(bool hasHost);

    Task m_onChange;
    QDBusServiceWatcher m_services;
    int m_lastQuery = 0;
    bool m_isQueryPending = false;
    bool m_hasHost = false;
};

class TrayWatcher {
public:
    // The tray outlives it.
    explicit TrayWatcher(EmbeddingTray& tray);
    TrayWatcher(const TrayWatcher&) = delete;
    TrayWatcher& operator=(const TrayWatcher&) = delete;

    // Whether a tray has been seen. It stays true: an existing item finds the next tray by itself.
    bool wasSeen() const { return m_wasSeen; }

    // Called once, when the first tray is seen.
    Subscription onSeen(Task handler) { return m_seen.subscribe(std::move(handler)); }

private:
    void look();

    EmbeddingTray& m_tray;
    bool m_wasSeen = false;
    Publisher<> m_seen;
    StatusNotifierWatcher m_notifier;
    Subscription m_whenTrayAppears;
};

} // namespace haloric
