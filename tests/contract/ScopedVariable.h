// Sets an environment variable for the lifetime of this object and then restores the previous value. No other thread
// may read the environment when it is made or destroyed.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace haloric {

class ScopedVariable {
public:
    ScopedVariable(std::string name, const std::string& value) : m_name(std::move(name))
    {
        if (const char* before = std::getenv(m_name.c_str()))
            m_before = before;
        setenv(m_name.c_str(), value.c_str(), 1);
    }

    ~ScopedVariable()
    {
        if (m_before)
            setenv(m_name.c_str(), m_before->c_str(), 1);
        else
            unsetenv(m_name.c_str());
    }

    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    std::string m_name;
    std::optional<std::string> m_before;
};

} // namespace haloric
