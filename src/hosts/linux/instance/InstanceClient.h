// Sends a command to the running instance and waits for the reply, up to a time limit. Blocks; any thread.
#pragma once

#include "app/InstanceCommand.h"
#include "foundation/Time.h"

#include <filesystem>
#include <optional>

namespace haloric {

class InstanceClient {
public:
    enum class State {
        answered,
        absent, // no process listens
        silent, // the listener belongs to another user, or no whole reply came in time
    };

    struct Outcome {
        State state = State::absent;
        InstanceReply reply; // if answered
    };

    explicit InstanceClient(std::filesystem::path socket, Seconds patience = Seconds(5))
        : m_socket(std::move(socket)),
          m_patience(patience)
    {
    }

    // After a request to quit it returns when the instance has ended, or on timeout.
    Outcome ask(const InstanceCommand& command) const;

private:
    std::filesystem::path m_socket;
    Seconds m_patience;
};

} // namespace haloric
