// Downloads a feed over HTTPS, within limits of size, time and redirections. Every redirection must lead to HTTPS.
// Plain HTTP is allowed only for loopback addresses. Sends no cookies and caches nothing. Main thread; needs Qt's event
// loop.
#pragma once

#include "hosts/linux/update/UpdaterDependencies.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

class QNetworkAccessManager;

namespace haloric {

class AppcastFetcher final : public AppcastSource {
public:
    struct Limits {
        std::size_t size = std::size_t{1} << 20; // bytes
        std::chrono::milliseconds time{15'000};  // from the request to the last byte, including redirections
        int redirections = 5;
    };

    AppcastFetcher() : AppcastFetcher(Limits()) {}

    // `authorities` are the trusted root certificates in PEM; empty: those of the system.
    explicit AppcastFetcher(const Limits& limits, std::string authorities = {});
    ~AppcastFetcher() override;

    Subscription fetch(const std::string& address, std::function<void(const AppcastDownload&)> done) override;

private:
    class Transfer;

    Limits m_limits;
    std::string m_authorities; // in PEM
    std::shared_ptr<QNetworkAccessManager> m_manager;
};

} // namespace haloric
