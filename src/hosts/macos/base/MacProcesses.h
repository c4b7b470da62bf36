// Child processes as NSTask, and this process's environment.
#pragma once

#include "platform/Processes.h"

namespace haloric {

class MacProcesses final : public Processes {
public:
    // The program inherits the environment, standard output and standard error; its standard input is empty.
    bool launch(const std::string& executable, const std::vector<std::string>& arguments) override;

    std::optional<std::string> environmentVariable(const char* name) const override;
};

} // namespace haloric
