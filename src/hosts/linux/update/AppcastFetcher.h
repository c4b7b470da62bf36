// Gets a feed over HTTPS, within limits of size, time and redirections, each of which must lead to HTTPS again. Plain
// HTTP will do where a feed lies on this machine itself: nothing of it leaves the machine. Sends no cookies and keeps
// nothing. Main thread; needs Qt's event loop.
#pragma once

#include "hosts/linux/update/AppcastSource.h"

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
        std::chrono::milliseconds time{15'000};  // from the request to the last byte, over all redirections
        int redirections = 5;
    };

    AppcastFetcher() : AppcastFetcher(Limits()) {}

    // `authorities` are the certificates, in PEM, of who may vouch for a server; empty: those of the system.
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
