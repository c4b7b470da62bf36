// An HTTPS server of a test's own, on a port that the system finds free. It works while Qt's event loop is turned.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace haloric {

class TlsServer {
public:
    // Makes a key and a certificate that vouches for itself, for whom the name tells: "IP:127.0.0.1" or "DNS:…".
    // `reply` gives the whole reply, head and body. Throws std::runtime_error when either cannot be made.
    TlsServer(const std::string& name, std::function<std::string()> reply);
    ~TlsServer();
    TlsServer(const TlsServer&) = delete;
    TlsServer& operator=(const TlsServer&) = delete;

    std::string address() const;     // by number
    std::string certificate() const; // PEM
    int requests() const;            // that were heard through the encryption

private:
    struct State;

    std::unique_ptr<State> m_state;
};

} // namespace haloric
