// An HTTP server of a test's own, on a port that the system finds free, which sends what it is given, byte by byte.
#pragma once

#include "hosts/posix/PosixDescriptor.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace haloric {

class LoopbackServer {
public:
    // Gives the whole reply, head and body, to a request for a path. Runs on the server's thread.
    using Reply = std::function<std::string(const std::string& path)>;

    explicit LoopbackServer(Reply reply);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    std::string address(const std::string& path = "/") const;

    // The requests, head lines included, in order.
    std::vector<std::string> requests() const;

    enum class Ending {
        byClient, // once it has the whole reply
        never,    // as if more were to come
        atOnce,   // whether it has the whole reply or not
    };
    void setEnding(Ending ending) { m_ending = ending; }

    static std::string reply(const std::string& status, const std::string& headers, const std::string& body);
    static std::string feed(const std::string& body) { return reply("200 OK", "", body); }
    static std::string redirection(const std::string& target)
    {
        return reply("302 Found", "Location: " + target + "\r\n", "");
    }

private:
    void serve();
    void serve(PosixDescriptor peer);

    Reply m_reply;
    PosixDescriptor m_listening;
    std::uint16_t m_port = 0;
    std::atomic<bool> m_ends = false;
    std::atomic<Ending> m_ending = Ending::byClient;
    mutable std::mutex m_lock; // guards the next
    std::vector<std::string> m_requests;
    std::vector<PosixDescriptor> m_open;
    std::thread m_thread;
};

} // namespace haloric
