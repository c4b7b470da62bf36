// Programs started with the system's own calls, and this process's environment. Main thread.
#pragma once

#include "platform/Processes.h"

namespace haloric {

class PosixProcesses final : public Processes {
public:
    // `executable` is a path. The program runs in a session of its own and is no child of this process, so it stays
    // when this one or its terminal goes, and leaves nothing to be waited for. It inherits the environment, the
    // working folder, standard output and standard error; standard input is empty, no other file is open, and no
    // signal is blocked or ignored. Returns when the program runs, or could not be started.
    bool launch(const std::string& executable, const std::vector<std::string>& arguments) override;

    std::optional<std::string> environmentVariable(const char* name) const override;
};

} // namespace haloric
