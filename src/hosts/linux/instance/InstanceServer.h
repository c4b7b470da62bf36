// Answers the lines that other processes of the same user send to a listening socket, on the main loop. Nothing that a
// peer does, or leaves undone, blocks the loop; what sends no whole line in time is cut off. Main thread.
#pragma once

#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/posix/PosixDescriptor.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include <sys/types.h>

namespace haloric {

class InstanceServer {
public:
    // Gives the bytes of the reply to a line; the connection is closed when there are none.
    using Answer = std::function<std::string(std::string_view line)>;

    struct Limits {
        std::size_t lineLength = 100; // bytes
        std::size_t peers = 16;       // at the same time; those beyond are cut off
        Seconds patience{2};          // with one peer, from its coming to its going
    };

    // `listeningDescriptor` does not block; it and the loop outlive the server. Peers of other users than `user` are
    // cut off unheard.
    InstanceServer(LinuxRunLoop& runLoop, int listeningDescriptor, uid_t user, Answer answer)
        : InstanceServer(runLoop, listeningDescriptor, user, std::move(answer), Limits())
    {
    }
    InstanceServer(LinuxRunLoop& runLoop, int listeningDescriptor, uid_t user, Answer answer, Limits limits);
    InstanceServer(const InstanceServer&) = delete;
    InstanceServer& operator=(const InstanceServer&) = delete;

    std::size_t peerCount() const { return m_peers.size(); }

private:
    struct Peer {
        PosixDescriptor socket;
        std::string received;
        std::string unsent;
        bool answered = false;
        Subscription watch;
        Subscription end;
        Subscription resend;
    };
    using Peers = std::map<std::uint64_t, Peer>;

    void startAccepting();
    void accept();
    void admit(PosixDescriptor socket);
    void receive(std::uint64_t number);
    bool takeIn(Peer& peer);
    void send(std::uint64_t number);

    LinuxRunLoop& m_runLoop;
    int m_listening;
    uid_t m_user;
    Answer m_answer;
    Limits m_limits;
    Subscription m_watch;
    Subscription m_pause;
    std::uint64_t m_lastNumber = 0;
    Peers m_peers;
};

} // namespace haloric
