#include "support/LoopbackServer.h"

#include <array>
#include <stdexcept>
#include <string_view>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace haloric {

LoopbackServer::LoopbackServer(Reply reply) : m_reply(std::move(reply)), m_listening(socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const raw = reinterpret_cast<sockaddr*>(&address);
    if (bind(m_listening.number(), raw, size) != 0 || listen(m_listening.number(), 8) != 0 ||
        getsockname(m_listening.number(), raw, &size) != 0)
        throw std::runtime_error("cannot listen on the loopback address");
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { serve(); });
}

LoopbackServer::~LoopbackServer()
{
    m_ends = true;
    shutdown(m_listening.number(), SHUT_RDWR); // wakes the thread
    m_thread.join();
}

std::string LoopbackServer::address(const std::string& path) const
{
    return "http://127.0.0.1:" + std::to_string(m_port) + path;
}

std::vector<std::string> LoopbackServer::requests() const
{
    const std::lock_guard guard(m_lock);
    return m_requests;
}

std::string LoopbackServer::reply(const std::string& status, const std::string& headers, const std::string& body)
{
    const bool hasLength = headers.find("Content-Length") != std::string::npos;
    return "HTTP/1.1 " + status + "\r\nConnection: close\r\n" + headers +
           (hasLength ? "" : "Content-Length: " + std::to_string(body.size()) + "\r\n") + "\r\n" + body;
}

void LoopbackServer::serve()
{
    while (!m_ends) {
        PosixDescriptor peer(accept(m_listening.number(), nullptr, nullptr));
        if (peer.isOpen())
            serve(std::move(peer));
    }
}

void LoopbackServer::serve(PosixDescriptor peer)
{
    std::string request;
    std::array<char, 4096> part;
    while (request.find("\r\n\r\n") == std::string::npos) {
        const ssize_t count = recv(peer.number(), part.data(), part.size(), 0);
        if (count <= 0)
            return;
        request.append(part.data(), static_cast<std::size_t>(count));
    }
    {
        const std::lock_guard guard(m_lock);
        m_requests.push_back(request);
    }
    const auto begin = request.find(' ') + 1;
    std::string reply = m_reply(request.substr(begin, request.find(' ', begin) - begin));
    for (std::string_view rest = reply; !rest.empty();) {
        const ssize_t count = send(peer.number(), rest.data(), rest.size(), MSG_NOSIGNAL);
        if (count <= 0)
            return;
        rest.remove_prefix(static_cast<std::size_t>(count));
    }
    if (m_ending == Ending::never) {
        m_open.push_back(std::move(peer));
        return;
    }
    // A client that sees the end before it has read the reply may ask once more.
    while (m_ending == Ending::byClient && recv(peer.number(), part.data(), part.size(), 0) > 0) {
    }
}

} // namespace haloric
