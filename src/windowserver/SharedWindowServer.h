// The process's one bridge to the window server, created on first use: a program that follows and moves no window
// neither opens the private library nor logs anything about it. Main thread.
#pragma once

#include "windowserver/WindowServer.h"

#include <optional>

namespace haloric {

class SharedWindowServer {
public:
    // Makes no call yet. The adapters outlive this object.
    SharedWindowServer(WindowServerCalls& calls, const Processes& processes, RunLoop& runLoop, Log& log)
        : m_calls(calls),
          m_processes(processes),
          m_runLoop(runLoop),
          m_log(log)
    {
    }

    // Creates the bridge on the first call, so call it only to use the bridge at once. Returns the same bridge for as
    // long as this object lives.
    WindowServer& get() { return m_bridge ? *m_bridge : m_bridge.emplace(m_calls, m_processes, m_runLoop, m_log); }

private:
    WindowServerCalls& m_calls;
    const Processes& m_processes;
    RunLoop& m_runLoop;
    Log& m_log;
    std::optional<WindowServer> m_bridge;
};

} // namespace haloric
