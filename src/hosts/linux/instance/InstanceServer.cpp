#include "hosts/linux/instance/InstanceServer.h"

#include "hosts/linux/instance/UnixSocket.h"

#include <array>
#include <cerrno>
#include <utility>

#include <sys/socket.h>

namespace haloric {
namespace {

// Before accepting again after the process ran out of descriptors or memory.
constexpr Seconds kPause{1};

// Between two attempts to send the rest of a reply to a slow reader.
constexpr Seconds kResendInterval{0.02};

} // namespace

InstanceServer::InstanceServer(LinuxRunLoop& runLoop, int listeningDescriptor, uid_t user, Answer answer, Limits limits)
    : m_runLoop(runLoop),
      m_listening(listeningDescriptor),
      m_user(user),
      m_answer(std::move(answer)),
      m_limits(limits)
{
    startAccepting();
}

std::vector<PosixDescriptor> InstanceServer::takeSockets()
{
    std::vector<PosixDescriptor> sockets;
    for (auto& [number, peer] : std::exchange(m_peers, {})) {
        peer.watch.reset(); // while its descriptor is open
        sockets.push_back(std::move(peer.socket));
    }
    return sockets;
}

void InstanceServer::startAccepting()
{
    m_watch = m_runLoop.watch(m_listening, [this] { accept(); });
}

void InstanceServer::accept()
{
    // One peer a turn, so that many peers do not starve the loop's other work.
    PosixDescriptor socket(accept4(m_listening, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (socket.isOpen()) {
        admit(std::move(socket));
    } else if (errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM) {
        // The peer stays in the queue; watching on would wake the loop continuously.
        m_watch.reset();
        m_pause = m_runLoop.scheduleOnce(kPause, [this] { startAccepting(); });
    }
}

void InstanceServer::admit(PosixDescriptor socket)
{
    if (m_peers.size() >= m_limits.peers || peerUser(socket.number()) != m_user)
        return;
    const std::uint64_t number = ++m_lastNumber;
    Peer& peer = m_peers[number];
    peer.socket = std::move(socket);
    peer.watch = m_runLoop.watch(peer.socket.number(), [this, number] { receive(number); });
    peer.end = m_runLoop.scheduleOnce(m_limits.patience, [this, number] { m_peers.erase(number); });
}

void InstanceServer::receive(std::uint64_t number)
{
    const auto found = m_peers.find(number);
    if (found == m_peers.end())
        return;
    Peer& peer = found->second;
    // After the answer the peer only closes the connection; further bytes end it here.
    if (!takeIn(peer) || peer.answered) {
        m_peers.erase(found);
        return;
    }
    const auto end = peer.received.find('\n');
    if (end == std::string::npos && peer.received.size() <= m_limits.lineLength)
        return;
    if (end == peer.received.size() - 1 && end <= m_limits.lineLength)
        peer.unsent = m_answer(std::string_view(peer.received).substr(0, end));
    peer.answered = true;
    if (peer.unsent.empty())
        m_peers.erase(found);
    else
        send(number);
}

bool InstanceServer::takeIn(Peer& peer)
{
    std::array<char, 256> part;
    const ssize_t count = recv(peer.socket.number(), part.data(), part.size(), 0);
    if (count < 0)
        return errno == EAGAIN || errno == EINTR;
    peer.received.append(part.data(), static_cast<std::size_t>(count));
    return count > 0;
}

void InstanceServer::send(std::uint64_t number)
{
    const auto found = m_peers.find(number);
    if (found == m_peers.end())
        return;
    Peer& peer = found->second;
    const ssize_t count = ::send(peer.socket.number(), peer.unsent.data(), peer.unsent.size(), MSG_NOSIGNAL);
    if (count < 0 && errno != EAGAIN && errno != EINTR) {
        m_peers.erase(found);
        return;
    }
    peer.unsent.erase(0, count > 0 ? static_cast<std::size_t>(count) : 0);
    if (!peer.unsent.empty())
        peer.resend = m_runLoop.scheduleOnce(kResendInterval, [this, number] { send(number); });
}

} // namespace haloric
