// Tells whether a host of status notifier items is on the session bus. It is asked without waiting, as one that hangs
// must hold nothing up. Without a session bus there is none. Main thread.
#pragma once

#include "foundation/Task.h"

#include <QDBusServiceWatcher>
#include <QObject>

namespace haloric {

class StatusNotifierWatcher final : public QObject {
    Q_OBJECT

public:
    // `onChange` is called after each change of what follows; never from within the constructor.
    explicit StatusNotifierWatcher(Task onChange);

    // A host has said that it is there.
    bool areThere() const { return m_areThere; }

    // Somebody is there who has been asked and has not answered yet. Whoever asks and waits is held up meanwhile.
    bool areSilent() const { return m_isAsking; }

private Q_SLOTS:
    void ask();

private:
    void conclude(bool areThere);

    Task m_onChange;
    QDBusServiceWatcher m_watchers;
    int m_question = 0; // the latest
    bool m_isAsking = false;
    bool m_areThere = false;
};

} // namespace haloric
