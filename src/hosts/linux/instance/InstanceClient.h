// Asks the running instance something, and waits for the answer, at most for a set time. Blocks; any thread.
#pragma once

#include "app/InstanceCommand.h"
#include "foundation/Time.h"

#include <filesystem>
#include <optional>

namespace haloric {

class InstanceClient {
public:
    enum class State { answered, absent, silent };

    struct Outcome {
        State state = State::absent;
        InstanceReply reply; // when answered
    };

    explicit InstanceClient(std::filesystem::path socket, Seconds patience = Seconds(5))
        : m_socket(std::move(socket)),
          m_patience(patience)
    {
    }

    // `absent` when nobody listens there. A listener of another user is silent, as is one whose reply does not come
    // whole in time. Returns from a request to quit when the instance is gone, or its time is over.
    Outcome ask(const InstanceCommand& command) const;

private:
    std::filesystem::path m_socket;
    Seconds m_patience;
};

} // namespace haloric
