// Child processes that are only noted, and an environment that the test sets.
#pragma once

#include "platform/Processes.h"

#include <map>
#include <string>
#include <vector>

namespace haloric {

class FakeProcesses final : public Processes {
public:
    struct Launch {
        std::string executable;
        std::vector<std::string> arguments;
        friend bool operator==(const Launch&, const Launch&) = default;
    };

    std::map<std::string, std::string> environment;
    std::vector<Launch> launches;
    bool refusesToLaunch = false;

    bool launch(const std::string& executable, const std::vector<std::string>& arguments) override
    {
        launches.push_back({executable, arguments});
        return !refusesToLaunch;
    }

    std::optional<std::string> environmentVariable(const char* name) const override
    {
        const auto found = environment.find(name);
        return found == environment.end() ? std::nullopt : std::optional(found->second);
    }
};

} // namespace haloric
