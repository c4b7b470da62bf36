// The one seat that a display has for a running instance. Whoever holds its lock has it; the lock goes with the
// process, however that ends, so that a socket which is left behind is known for what it is. Any thread.
#pragma once

#include "hosts/linux/instance/InstancePaths.h"
#include "hosts/posix/PosixDescriptor.h"

namespace haloric {

class InstanceLock {
public:
    enum class State {
        taken,       // by this object, which listens
        occupied,    // by another
        unavailable, // the place does not do
    };

    // Does not block. Listens as soon as it has the lock.
    explicit InstanceLock(InstancePaths place);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    State state() const { return m_state; }

    // A socket that does not block; -1 unless the seat is taken.
    int listeningDescriptor() const { return m_listening.number(); }

private:
    bool listen();

    InstancePaths m_place;
    PosixDescriptor m_lock;
    PosixDescriptor m_listening;
    State m_state = State::unavailable;
};

} // namespace haloric
