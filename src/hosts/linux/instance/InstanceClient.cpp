#include "hosts/linux/instance/InstanceClient.h"

#include "hosts/linux/instance/UnixSocket.h"
#include "hosts/posix/PosixDescriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <string>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace haloric {
namespace {

using Clock = std::chrono::steady_clock;

class Conversation {
public:
    Conversation(const PosixDescriptor& socket, Clock::time_point end) : m_socket(socket.number()), m_end(end) {}

    bool send(std::string_view text) const
    {
        // One call, because the text is shorter than any socket's buffer.
        return ::send(m_socket, text.data(), text.size(), MSG_NOSIGNAL | MSG_DONTWAIT) ==
               static_cast<ssize_t>(text.size());
    }

    // The first whole reply; absent if the peer closes earlier or sends too much, or on timeout.
    std::optional<InstanceReply> receive()
    {
        std::string bytes;
        while (bytes.size() <= InstanceReply::kMaximumLength) {
            if (!takeIn(bytes))
                return {};
            if (auto reply = InstanceReply::parse(bytes))
                return reply;
        }
        return {};
    }

    void awaitEnd()
    {
        std::string rest;
        while (rest.size() <= InstanceCommand::kMaximumLength && takeIn(rest)) {
        }
    }

private:
    // Reads what is available. Returns false at the end of the stream or on timeout.
    bool takeIn(std::string& bytes) const
    {
        std::array<char, 16384> part;
        for (;;) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - Clock::now());
            pollfd readable{.fd = m_socket, .events = POLLIN, .revents = 0};
            const int ready = poll(&readable, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
            if (ready < 0 && errno == EINTR)
                continue;
            const ssize_t count = ready > 0 ? recv(m_socket, part.data(), part.size(), MSG_DONTWAIT) : 0;
            if (count < 0 && (errno == EAGAIN || errno == EINTR))
                continue;
            if (count > 0)
                bytes.append(part.data(), static_cast<std::size_t>(count));
            return count > 0;
        }
    }

    int m_socket;
    Clock::time_point m_end;
};

PosixDescriptor connectedSocket(const std::filesystem::path& path, Seconds patience)
{
    const auto address = UnixAddress::of(path);
    PosixDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!address || !socket.isOpen()) {
        errno = ENOENT;
        return {};
    }
    // Limits how long connect() waits while the queue of the listener is full.
    const auto whole = std::chrono::floor<std::chrono::microseconds>(patience).count();
    const timeval limit{.tv_sec = whole / 1'000'000, .tv_usec = whole % 1'000'000};
    setsockopt(socket.number(), SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    return connect(socket.number(), address->raw(), UnixAddress::kSize) == 0 ? std::move(socket) : PosixDescriptor();
}

} // namespace

InstanceClient::Outcome InstanceClient::ask(const InstanceCommand& command) const
{
    const auto end = Clock::now() + std::chrono::ceil<Clock::duration>(m_patience);
    const PosixDescriptor socket = connectedSocket(m_socket, m_patience);
    if (!socket.isOpen())
        return {.state = errno == EAGAIN ? State::silent : State::absent, .reply = {}};
    Conversation conversation(socket, end);
    if (peerUser(socket.number()) != geteuid() || !conversation.send(command.line() + "\n"))
        return {.state = State::silent, .reply = {}};
    auto reply = conversation.receive();
    if (!reply)
        return {.state = State::silent, .reply = {}};
    if (command.kind == InstanceCommand::Kind::quit && reply->done)
        conversation.awaitEnd();
    return {.state = State::answered, .reply = std::move(*reply)};
}

} // namespace haloric
