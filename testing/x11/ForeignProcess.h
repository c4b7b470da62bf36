// A process that connects to the X server on behalf of the test, so that the X server attributes the windows created
// over that connection to another program. It does nothing else. The destructor ends it.
#pragma once

#include <string>

#include <sys/types.h>

namespace haloric {

class ForeignProcess {
public:
    // Connects to `display`, for instance ":3". Throws std::runtime_error when that fails.
    explicit ForeignProcess(const std::string& display);
    ~ForeignProcess();
    ForeignProcess(const ForeignProcess&) = delete;
    ForeignProcess& operator=(const ForeignProcess&) = delete;

    pid_t pid() const { return m_pid; }

    // The connected socket, owned by the caller from now on. Call it once.
    int takeSocket();

private:
    pid_t m_pid = -1;
    int m_socket = -1;
};

} // namespace haloric
