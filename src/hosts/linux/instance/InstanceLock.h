// The lock that lets one instance run on each display, and the socket by which later starts reach it. The kernel
// releases the lock when the process ends, however it ends, so a socket without a locked file is a leftover. Any
// thread.
#pragma once

#include "hosts/posix/PosixDescriptor.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace haloric {

class Processes;

// The files of the instance on one display, in a folder that only the user can access.
struct InstancePaths {
    std::filesystem::path socket;
    std::filesystem::path lock;

    // `display` has the form of the variable DISPLAY; all screens of a server share one instance. The folder is
    // $XDG_RUNTIME_DIR. If that is unset or writable by others, it is a new folder of the user below `fallback`. Absent
    // if that one is not private either, or `display` is empty.
    static std::optional<InstancePaths> find(const Processes& processes, std::string_view display,
                                             const std::filesystem::path& fallback = "/tmp");
};

class InstanceLock {
public:
    enum class State {
        taken,       // by this object, which listens
        occupied,    // by another
        unavailable, // the files cannot be created
    };

    // Does not block. Listens as soon as it has the lock.
    explicit InstanceLock(InstancePaths paths);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    State state() const { return m_state; }

    // A non-blocking socket; -1 unless the lock is taken.
    int listeningDescriptor() const { return m_listening.number(); }

private:
    bool listen();

    InstancePaths m_paths;
    PosixDescriptor m_lock;
    PosixDescriptor m_listening;
    State m_state = State::unavailable;
};

} // namespace haloric
