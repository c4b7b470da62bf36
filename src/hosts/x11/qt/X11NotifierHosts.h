// Tells when a host of status notifier items is on the session bus. Without a session bus, never. Main thread.
#pragma once

#include "foundation/Task.h"

#include <QDBusServiceWatcher>
#include <QObject>

namespace haloric {

class X11NotifierHosts final : public QObject {
    Q_OBJECT

public:
    // `onFound` may be called again for the same host; never from within the constructor.
    explicit X11NotifierHosts(Task onFound);

private Q_SLOTS:
    void found();

private:
    void ask();

    Task m_onFound;
    QDBusServiceWatcher m_watchers;
};

} // namespace haloric
