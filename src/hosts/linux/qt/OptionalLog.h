// Lines of the log that are written only on request: when the environment variable HALORIC_VERBOSE is "1". Any thread.
#pragma once

#include "platform/Log.h"
#include "platform/Processes.h"

namespace haloric {

class OptionalLog final : public Log {
public:
    static constexpr const char* kVariable = "HALORIC_VERBOSE";

    // `log` outlives it.
    OptionalLog(Log& log, const Processes& processes)
        : m_log(log),
          m_isOn(processes.environmentVariable(kVariable) == "1")
    {
    }

    void line(std::string_view text) override
    {
        if (m_isOn)
            m_log.line(text);
    }

private:
    Log& m_log;
    bool m_isOn;
};

} // namespace haloric
