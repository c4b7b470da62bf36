// A local HTTPS server on a free port. It runs while Qt's event loop is turned.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace haloric {

class TlsServer {
public:
    // Creates a key and a self-signed certificate for `name`: "IP:127.0.0.1" or "DNS:…". `reply` returns the whole
    // reply, head and body. Throws std::runtime_error on failure.
    TlsServer(const std::string& name, std::function<std::string()> reply);
    ~TlsServer();
    TlsServer(const TlsServer&) = delete;
    TlsServer& operator=(const TlsServer&) = delete;

    std::string address() const;     // with the numeric host
    std::string certificate() const; // PEM
    int requests() const;            // that were decrypted

private:
    struct State;

    std::unique_ptr<State> m_state;
};

} // namespace haloric
