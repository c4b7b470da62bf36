#include "unit/hosts/linux/update/TlsServer.h"

#include <array>
#include <cstdio>
#include <stdexcept>
#include <utility>

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>

namespace haloric {
namespace {

// The key, followed by the certificate.
std::string makeIdentity(const std::string& name)
{
    const std::string command = "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -noenc -days 2 "
                                "-subj /CN=test -addext subjectAltName=" +
                                name + " -keyout - -out - 2>/dev/null";
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
    std::string text;
    std::array<char, 4096> part;
    while (const std::size_t count = output ? std::fread(part.data(), 1, part.size(), output.get()) : 0)
        text.append(part.data(), count);
    if (text.find("BEGIN CERTIFICATE") == std::string::npos)
        throw std::runtime_error("openssl makes no certificate");
    return text;
}

} // namespace

struct TlsServer::State {
    std::string identity;
    std::function<std::string()> reply;
    int requests = 0;
    QSslServer server;

    void serve(QSslSocket& peer)
    {
        auto request = std::make_shared<QByteArray>();
        QObject::connect(&peer, &QSslSocket::readyRead, &server, [this, &peer, request] {
            request->append(peer.readAll());
            if (!request->endsWith("\r\n\r\n"))
                return;
            request->clear();
            ++requests;
            peer.write(QByteArray::fromStdString(reply()));
            peer.disconnectFromHost();
        });
    }
};

TlsServer::TlsServer(const std::string& name, std::function<std::string()> reply) : m_state(std::make_unique<State>())
{
    m_state->identity = makeIdentity(name);
    m_state->reply = std::move(reply);
    const QByteArray pem = QByteArray::fromStdString(m_state->identity);
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setPrivateKey(QSslKey(pem, QSsl::Ec));
    configuration.setLocalCertificateChain(QSslCertificate::fromData(pem));
    m_state->server.setSslConfiguration(configuration);
    QObject::connect(&m_state->server, &QSslServer::pendingConnectionAvailable, &m_state->server,
                     [state = m_state.get()] {
                         while (auto* peer = qobject_cast<QSslSocket*>(state->server.nextPendingConnection()))
                             state->serve(*peer);
                     });
    if (!m_state->server.listen(QHostAddress::LocalHost))
        throw std::runtime_error("cannot listen on the loopback address");
}

TlsServer::~TlsServer() = default;

std::string TlsServer::address() const
{
    return "https://127.0.0.1:" + std::to_string(m_state->server.serverPort()) + "/";
}

std::string TlsServer::certificate() const { return m_state->identity; }

int TlsServer::requests() const { return m_state->requests; }

} // namespace haloric
