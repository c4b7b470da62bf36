#include "hosts/linux/update/AppcastFetcher.h"

#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QObject>
#include <QPointer>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QTimer>
#include <QUrl>

#include <utility>

namespace haloric {
namespace {

bool isAllowed(const QUrl& url)
{
    if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty())
        return false;
    const bool isLoopback = url.host() == QLatin1String("localhost") || QHostAddress(url.host()).isLoopback();
    return url.scheme() == QLatin1String("https") || (isLoopback && url.scheme() == QLatin1String("http"));
}

QSslConfiguration trustIn(const std::string& authorities)
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    if (!authorities.empty())
        configuration.setCaCertificates(QSslCertificate::fromData(QByteArray::fromStdString(authorities)));
    return configuration;
}

QNetworkRequest requestFor(const QUrl& url, const QSslConfiguration& trust)
{
    QNetworkRequest request(url);
    request.setSslConfiguration(trust);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setRawHeader("Accept-Encoding", "identity"); // so that the size limit holds for the decoded text
    request.setRawHeader("Accept", "application/rss+xml, application/xml, text/xml");
    request.setHeader(QNetworkRequest::UserAgentHeader, QLatin1String("Haloric"));
    return request;
}

} // namespace

class AppcastFetcher::Transfer {
public:
    Transfer(std::shared_ptr<QNetworkAccessManager> manager, const Limits& limits, const QSslConfiguration& trust,
             std::function<void(const AppcastDownload&)> done)
        : m_manager(std::move(manager)),
          m_limits(limits),
          m_trust(trust),
          m_done(std::move(done))
    {
        m_deadline.setSingleShot(true);
        QObject::connect(&m_deadline, &QTimer::timeout, &m_context,
                         [this] { fail("The update feed did not arrive in time."); });
        m_deadline.start(m_limits.time);
    }
    ~Transfer() { drop(); }
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    void start(const QUrl& url)
    {
        if (!isAllowed(url)) {
            fail("The address of the update feed is not a secure one (https).");
            return;
        }
        drop();
        m_received.clear();
        m_url = url;
        m_reply = m_manager->get(requestFor(url, m_trust));
        QObject::connect(m_reply, &QNetworkReply::readyRead, &m_context, [this] { take(); });
        QObject::connect(m_reply, &QNetworkReply::finished, &m_context, [this] { finish(); });
    }

private:
    void take()
    {
        m_received += m_reply->readAll();
        if (static_cast<std::size_t>(m_received.size()) > m_limits.size)
            fail("The update feed is too large.");
    }

    void finish()
    {
        if (m_concluded)
            return;
        const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        const QUrl target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
        if (!target.isEmpty()) {
            redirect(m_url.resolved(target));
        } else if (m_reply->error() == QNetworkReply::SslHandshakeFailedError) {
            fail("The server of the update feed cannot be trusted: " + m_reply->errorString().toStdString());
        } else if (m_reply->error() != QNetworkReply::NoError) {
            fail("The update feed cannot be reached: " + m_reply->errorString().toStdString());
        } else if (status != 200) {
            fail("The server of the update feed answered with status " + std::to_string(status) + ".");
        } else {
            take();
            conclude({.bytes = m_received.toStdString(), .error = {}});
        }
    }

    void redirect(const QUrl& target)
    {
        if (++m_redirections > m_limits.redirections)
            fail("The update feed is redirected too often.");
        else if (m_url.scheme() == QLatin1String("https") && target.scheme() != QLatin1String("https"))
            fail("The update feed is redirected to an address that is not secure (https).");
        else
            start(target);
    }

    void fail(std::string error) { conclude({.bytes = {}, .error = std::move(error)}); }

    void conclude(AppcastDownload download)
    {
        if (std::exchange(m_concluded, true))
            return;
        m_deadline.stop();
        drop();
        QTimer::singleShot(0, &m_context, [this, download = std::move(download)] {
            const auto done = std::move(m_done);
            // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): `done` may destroy the object that holds it
            const AppcastDownload result = download;
            done(result);
        });
    }

    void drop()
    {
        if (!m_reply)
            return;
        m_reply->disconnect(&m_context);
        m_reply->abort();
        m_reply->deleteLater();
        m_reply = nullptr;
    }

    std::shared_ptr<QNetworkAccessManager> m_manager;
    Limits m_limits;
    QSslConfiguration m_trust;
    std::function<void(const AppcastDownload&)> m_done;
    QPointer<QNetworkReply> m_reply;
    QUrl m_url;
    QByteArray m_received;
    int m_redirections = 0;
    bool m_concluded = false;
    QTimer m_deadline;
    QObject m_context;
};

AppcastFetcher::AppcastFetcher(const Limits& limits, std::string authorities)
    : m_limits(limits),
      m_authorities(std::move(authorities)),
      m_manager(std::make_shared<QNetworkAccessManager>())
{
}

AppcastFetcher::~AppcastFetcher() = default;

Subscription AppcastFetcher::fetch(const std::string& address, std::function<void(const AppcastDownload&)> done)
{
    auto transfer = std::make_shared<Transfer>(m_manager, m_limits, trustIn(m_authorities), std::move(done));
    transfer->start(QUrl(QString::fromStdString(address), QUrl::StrictMode));
    return Subscription([transfer]() mutable { transfer.reset(); });
}

} // namespace haloric
