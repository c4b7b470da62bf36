// Answers the lines that other processes of the same user send to a listening socket, on the main loop. No peer can
// block the loop; a peer that sends no whole line in time is disconnected. Main thread.
#pragma once

#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/posix/PosixDescriptor.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace haloric {

class InstanceServer {
public:
    // Returns the bytes of the reply to a line. An empty reply closes the connection.
    using Answer = std::function<std::string(std::string_view line)>;

    struct Limits {
        std::size_t lineLength = 100; // bytes
        std::size_t peers = 16;       // at the same time; further ones are disconnected
        Seconds patience{2};          // from a peer's connection to its disconnection
    };

    // `listeningDescriptor` is non-blocking; it and the loop outlive the server. Peers of users other than `user` are
    // disconnected unread.
    InstanceServer(LinuxRunLoop& runLoop, int listeningDescriptor, uid_t user, Answer answer)
        : InstanceServer(runLoop, listeningDescriptor, user, std::move(answer), Limits())
    {
    }
    InstanceServer(LinuxRunLoop& runLoop, int listeningDescriptor, uid_t user, Answer answer, Limits limits);
    InstanceServer(const InstanceServer&) = delete;
    InstanceServer& operator=(const InstanceServer&) = delete;

    std::size_t peerCount() const { return m_peers.size(); }

    // Ends all conversations without closing the connections. For a program that ends: a peer that waits for its end
    // sees it when the sockets are closed.
    std::vector<PosixDescriptor> takeSockets();

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
