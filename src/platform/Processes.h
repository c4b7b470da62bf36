// Child processes and the environment. Main thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class Processes {
public:
    virtual ~Processes() = default;

    // Starts a program that may outlive this one; does not wait for it. False if it cannot be started.
    virtual bool launch(const std::string& executable, const std::vector<std::string>& arguments) = 0;

    virtual std::optional<std::string> environmentVariable(const char* name) const = 0;
};

} // namespace haloric
