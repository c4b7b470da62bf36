// How this start of the program deals with an instance that may already run on the same display: it takes the instance
// lock or sends its command, and reports the outcome on its streams. Blocks for some seconds at most. Main thread.
#pragma once

#include "app/InstanceCommand.h"
#include "foundation/Time.h"
#include "hosts/linux/instance/InstanceClient.h"
#include "hosts/linux/instance/InstanceLock.h"

#include <filesystem>
#include <functional>
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

    // The socket of an instance that runs on the display, with other paths than this start has; empty if it cannot be
    // reached by one. No value without such an instance.
    using Finder = std::function<std::optional<std::filesystem::path>()>;

    // The streams outlive it. Commands go to the instance at the paths, or else to the one that `elsewhere` finds.
    InstanceStartup(std::optional<InstancePaths> paths, Streams streams, Seconds patience = Seconds(5),
                    Finder elsewhere = {})
        : m_paths(std::move(paths)),
          m_streams(streams),
          m_patience(patience),
          m_elsewhere(std::move(elsewhere))
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

    // For a start that is to run on the display: takes the lock at the paths.
    Arrival arrive();

    // After that: makes sure that no instance with other paths runs on the display. `claim` claims the display for this
    // start and returns no value, or else finds the instance that has it. Returns an exit code as `arrive` does.
    std::optional<int> giveWay(const Finder& claim);

    // Where this start listens once it has the lock; empty without paths.
    std::filesystem::path socket() const { return m_paths ? m_paths->socket : std::filesystem::path(); }

private:
    InstanceClient::Outcome ask(const InstanceCommand& command) const;
    InstanceClient::Outcome ask(const std::filesystem::path& socket, const InstanceCommand& command) const;
    int reportUnreachable();

    std::optional<InstancePaths> m_paths;
    Streams m_streams;
    Seconds m_patience;
    Finder m_elsewhere;
};

} // namespace haloric
