// A process that connects to the X server in place of the test: to the server, and to whoever asks it, the windows made
// over that connection belong to another program. It does nothing else, and ends with this object.
#pragma once

#include <string>

#include <sys/types.h>

namespace haloric {

class ForeignProcess {
public:
    // Connects to `display` (":3"). Throws std::runtime_error when that fails.
    explicit ForeignProcess(const std::string& display);
    ~ForeignProcess();
    ForeignProcess(const ForeignProcess&) = delete;
    ForeignProcess& operator=(const ForeignProcess&) = delete;

    pid_t pid() const { return m_pid; }

    // The connected socket; the caller owns it. Once.
    int takeSocket();

private:
    pid_t m_pid = -1;
    int m_socket = -1;
};

} // namespace haloric
