// The process's one bridge to the window server, made when somebody first asks for it: a program that follows no
// window and moves none neither opens the private library nor says anything about it. Main thread.
#pragma once

#include "windowserver/WindowServer.h"

#include <optional>

namespace haloric {

class SharedWindowServer {
public:
    // Makes no call yet. The adapters outlive this object.
    SharedWindowServer(WindowServerLibrary& library, const Processes& processes, RunLoop& runLoop, Log& log)
        : m_library(library),
          m_processes(processes),
          m_runLoop(runLoop),
          m_log(log)
    {
    }

    // To be asked only to call the bridge at once, because this makes it. The same bridge every time, for as long as
    // this object lives.
    WindowServer& get() { return m_bridge ? *m_bridge : m_bridge.emplace(m_library, m_processes, m_runLoop, m_log); }

private:
    WindowServerLibrary& m_library;
    const Processes& m_processes;
    RunLoop& m_runLoop;
    Log& m_log;
    std::optional<WindowServer> m_bridge;
};

} // namespace haloric
