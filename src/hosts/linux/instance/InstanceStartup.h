// How this start of the program deals with one that runs on the same display already: it takes the seat, or hands its
// command over, and says on its streams what came of it. Blocks for some seconds at most. Main thread.
#pragma once

#include "app/InstanceCommand.h"
#include "foundation/Time.h"
#include "hosts/linux/instance/InstanceClient.h"
#include "hosts/linux/instance/InstanceLock.h"
#include "hosts/linux/instance/InstancePaths.h"

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

    // The streams outlive it. Without a place no instance is ever reached.
    InstanceStartup(std::optional<InstancePaths> place, Streams streams, Seconds patience = Seconds(5))
        : m_place(std::move(place)),
          m_streams(streams),
          m_patience(patience)
    {
    }

    // Hands over the command; the exit code, or none when no instance runs.
    std::optional<int> command(const InstanceCommand& command);

    // As above, but that no instance runs is told and counts as not reached.
    int requireCommand(const InstanceCommand& command);

    struct Arrival {
        std::unique_ptr<InstanceLock> seat; // null where the place does not do
        std::optional<int> exitCode;        // set when another instance runs, which has been asked to reopen
    };

    // For a start that means to run.
    Arrival arrive();

private:
    std::optional<InstancePaths> m_place;
    Streams m_streams;
    Seconds m_patience;
};

} // namespace haloric
