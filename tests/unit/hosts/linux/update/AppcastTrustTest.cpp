// The trust in servers: a feed is accepted only from a server with a trusted certificate.
#include "hosts/linux/update/AppcastFetcher.h"

#include "support/LoopbackServer.h"
#include "unit/hosts/linux/update/QtTestLoop.h"
#include "unit/hosts/linux/update/TlsServer.h"

#include <optional>

namespace haloric {
namespace {

struct AppcastTrustTest : testing::Test {
    QtTestLoop loop;
    std::string answer = LoopbackServer::feed("<rss/>");

    AppcastDownload fetch(const std::string& address, const std::string& authorities)
    {
        AppcastFetcher fetcher(AppcastFetcher::Limits(), authorities);
        std::optional<AppcastDownload> result;
        const auto subscription = fetcher.fetch(address, [&](const AppcastDownload& download) { result = download; });
        EXPECT_TRUE(loop.waitUntil([&] { return result.has_value(); })) << address;
        return result.value_or(AppcastDownload());
    }

    void expectDistrust(const TlsServer& server, const std::string& authorities, const std::string& reason)
    {
        const auto download = fetch(server.address(), authorities);
        EXPECT_THAT(download.error, testing::StartsWith("The server of the update feed cannot be trusted: "));
        EXPECT_THAT(download.error, testing::HasSubstr(reason));
        EXPECT_EQ(download.bytes, "");
        EXPECT_EQ(server.requests(), 0) << "it was even asked";
    }
};

TEST_F(AppcastTrustTest, a_feed_is_accepted_from_a_server_with_a_trusted_certificate)
{
    const TlsServer server("IP:127.0.0.1", [this] { return answer; });
    const auto download = fetch(server.address(), server.certificate());
    EXPECT_EQ(download.error, "");
    EXPECT_EQ(download.bytes, "<rss/>");
    EXPECT_EQ(server.requests(), 1);
}

TEST_F(AppcastTrustTest, a_server_with_an_untrusted_certificate_is_refused)
{
    const TlsServer server("IP:127.0.0.1", [this] { return answer; });
    expectDistrust(server, {}, "self-signed"); // the authorities of the system
    const TlsServer another("IP:127.0.0.1", [this] { return answer; });
    expectDistrust(server, another.certificate(), "self-signed");
}

TEST_F(AppcastTrustTest, a_certificate_for_another_host_is_refused)
{
    const TlsServer server("DNS:elsewhere.example.org", [this] { return answer; });
    expectDistrust(server, server.certificate(), "host name");
}

TEST_F(AppcastTrustTest, a_redirection_from_a_secure_server_to_plain_http_is_refused_even_on_this_machine)
{
    const LoopbackServer plain([this](const std::string&) { return answer; });
    answer = LoopbackServer::redirection(plain.address());
    const TlsServer server("IP:127.0.0.1", [this] { return answer; });
    const auto download = fetch(server.address(), server.certificate());
    EXPECT_EQ(download.error, "The update feed is redirected to an address that is not secure (https).");
    EXPECT_EQ(download.bytes, "");
    EXPECT_EQ(server.requests(), 1);
    EXPECT_TRUE(plain.requests().empty());
}

TEST_F(AppcastTrustTest, a_redirection_to_another_secure_server_is_followed_only_if_that_is_trusted)
{
    const TlsServer stranger("IP:127.0.0.1", [] { return LoopbackServer::feed("strange"); });
    const TlsServer server("IP:127.0.0.1", [&] { return LoopbackServer::redirection(stranger.address()); });
    EXPECT_EQ(fetch(server.address(), server.certificate() + stranger.certificate()).bytes, "strange");
    const auto download = fetch(server.address(), server.certificate());
    EXPECT_THAT(download.error, testing::StartsWith("The server of the update feed cannot be trusted: "));
    EXPECT_EQ(stranger.requests(), 1);
}

} // namespace
} // namespace haloric
