// Gets a feed over HTTPS, within limits of size, time and redirections, each of which must lead to HTTPS again. Sends
// no cookies and keeps nothing. Main thread; needs Qt's event loop.
#pragma once

#include "hosts/x11/update/AppcastSource.h"

#include <chrono>
#include <cstddef>
#include <memory>

class QNetworkAccessManager;

namespace haloric {

class X11AppcastFetcher final : public AppcastSource {
public:
    struct Limits {
        std::size_t size = std::size_t{1} << 20; // bytes
        std::chrono::milliseconds time{15'000};  // from the request to the last byte, over all redirections
        int redirections = 5;
        bool allowsPlainLoopback = false; // for tests: plain HTTP from this machine to itself
    };

    X11AppcastFetcher() : X11AppcastFetcher(Limits()) {}
    explicit X11AppcastFetcher(const Limits& limits);
    ~X11AppcastFetcher() override;

    Subscription fetch(const std::string& address, std::function<void(const AppcastDownload&)> done) override;

private:
    class Transfer;

    Limits m_limits;
    std::shared_ptr<QNetworkAccessManager> m_manager;
};

} // namespace haloric
