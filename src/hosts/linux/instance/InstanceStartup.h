// How this start of the program deals with an instance that may already run on the same display: it takes the instance
// lock or sends its command, and reports the outcome on its streams. Blocks for some seconds at most. Main thread.
#pragma once

#include "app/InstanceCommand.h"
#include "foundation/Time.h"
#include "hosts/linux/instance/InstanceClient.h"
#include "hosts/linux/instance/InstanceLock.h"

#include <memory>
#include <optional>
#include <ostream>
#include <string>

namespace haloric {

class InstanceStartup {
public:
    struct Streams {
        std::ostream& output;
        std::ostream& errors;
    };

    // Exit codes.
    static constexpr int kDone = 0;
    static constexpr int kRefused = 1;
    static constexpr int kNotReached = 3;

    // The streams outlive it. Without paths no instance is reached.
    InstanceStartup(std::optional<InstancePaths> paths, Streams streams, Seconds patience = Seconds(5))
        : m_paths(std::move(paths)),
          m_streams(streams),
          m_patience(patience)
    {
    }

    // Sends the command. Returns the exit code; no value if no instance runs.
    std::optional<int> command(const InstanceCommand& command);

    // As above, but reports an error and returns kNotReached if no instance runs.
    int requireCommand(const InstanceCommand& command);

    struct Arrival {
        std::unique_ptr<InstanceLock> lock; // null if it is unavailable
        std::optional<int> exitCode;        // set if another instance runs; it has been asked to reopen
    };

    // For a start that is to run on the display.
    Arrival arrive();

private:
    std::optional<InstancePaths> m_paths;
    Streams m_streams;
    Seconds m_patience;
};

} // namespace haloric
