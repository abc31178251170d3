#include "server/Server.h"

#include "server/AccountService.h"
#include "server/AuthService.h"
#include "server/ChannelService.h"
#include "server/HttpFrontEnd.h"
#include "server/ServerDatabase.h"
#include "server/SharingService.h"
#include "server/SignInLimiter.h"
#include "server/SigningSecret.h"
#include "server/SyncService.h"
#include "server/SyncStore.h"
#include "server/TokenService.h"

#include <QDir>
#include <QFile>
#include <QSslCertificate>
#include <QSslKey>
#include <QTimer>

namespace OmbrelServer {

Server::Server(ServerOptions options, QObject *parent)
    : QObject(parent)
    , m_options(std::move(options))
{
}

Server::~Server() = default;

bool Server::start(QString *error)
{
    if (m_options.dataDir.isEmpty() || !QDir().mkpath(m_options.dataDir)) {
        *error = QStringLiteral("cannot make the data folder %1").arg(m_options.dataDir);
        return false;
    }
    m_db = std::make_unique<ServerDatabase>();
    if (!m_db->open(QDir(m_options.dataDir).filePath(QStringLiteral("server.db")))) {
        *error = QStringLiteral("cannot open the database in %1").arg(m_options.dataDir);
        return false;
    }
    const QByteArray key = SigningSecret::loadOrCreate(m_options.dataDir);
    if (key.isEmpty()) {
        *error = QStringLiteral("cannot read or make the signing key in %1").arg(m_options.dataDir);
        return false;
    }
    m_limiter =
        std::make_unique<SignInLimiter>(m_options.maxFailedSignIns, m_options.failedSignInWindowSeconds);
    m_tokens = std::make_unique<TokenService>(m_db.get(), key, m_options.realm, m_options.clientId,
                                              m_options.accessTokenSeconds);
    m_auth = std::make_unique<AuthService>(m_db.get(), m_tokens.get(), m_limiter.get(), m_options);
    m_store = std::make_unique<SyncStore>(m_db.get());
    m_sharing = std::make_unique<SharingService>(m_db.get(), m_store.get());
    m_account = std::make_unique<AccountService>(m_db.get(), m_tokens.get(), m_sharing.get(), m_store.get());
    m_sync = std::make_unique<SyncService>(m_db.get(), m_store.get(), m_sharing.get(), m_tokens.get());
    m_channel = std::make_unique<ChannelService>(m_options.channelDir);

    m_front = new HttpFrontEnd([this](const HttpRequest &request) { return handle(request); },
                               m_options.maxBodyBytes, m_options.verbose, this);
    if (!m_options.tlsCertificate.isEmpty()) {
        QFile certFile(m_options.tlsCertificate);
        QFile keyFile(m_options.tlsKey);
        if (!certFile.open(QIODevice::ReadOnly) || !keyFile.open(QIODevice::ReadOnly)) {
            *error = QStringLiteral("cannot read the TLS certificate or key");
            return false;
        }
        const QSslCertificate cert(&certFile, QSsl::Pem);
        QSslKey tlsKey(&keyFile, QSsl::Rsa, QSsl::Pem);
        if (tlsKey.isNull()) {
            keyFile.seek(0);
            tlsKey = QSslKey(&keyFile, QSsl::Ec, QSsl::Pem);
        }
        if (cert.isNull() || tlsKey.isNull()) {
            *error = QStringLiteral("the TLS certificate or key is not PEM");
            return false;
        }
        m_front->sslSetup(cert, tlsKey);
    }
    m_port = m_front->listen(m_options.address, m_options.port);
    if (m_port == 0) {
        *error =
            QStringLiteral("cannot listen on %1:%2").arg(m_options.address.toString()).arg(m_options.port);
        return false;
    }

    m_account->purgeDueDeletions();
    m_purgeTimer = new QTimer(this);
    m_purgeTimer->setInterval(60 * 60 * 1000);
    connect(m_purgeTimer, &QTimer::timeout, this, [this] { m_account->purgeDueDeletions(); });
    m_purgeTimer->start();
    return true;
}

QUrl Server::baseUrl() const
{
    QUrl url;
    url.setScheme(m_options.tlsCertificate.isEmpty() ? QStringLiteral("http") : QStringLiteral("https"));
    const bool any = m_options.address == QHostAddress::Any || m_options.address == QHostAddress::AnyIPv4;
    url.setHost(any ? QStringLiteral("127.0.0.1") : m_options.address.toString());
    url.setPort(m_port);
    return url;
}

QString Server::environmentText() const
{
    const QString base = baseUrl().toString();
    return QStringLiteral("AUTH_BASE_URL=%1\nACCOUNT_API_URL=%1/account/v1\nSYNC_API_URL=%1/ombrel/v1\n")
               .arg(base) +
           (m_options.realm != QLatin1String("halcyra")
                ? QStringLiteral("AUTH_REALM_SLUG=%1\n").arg(m_options.realm)
                : QString()) +
           (m_options.clientId != ServerOptions().clientId
                ? QStringLiteral("AUTH_CLIENT_ID=%1\n").arg(m_options.clientId)
                : QString());
}

HttpResponse Server::handle(const HttpRequest &request)
{
    if (auto r = m_auth->handlePage(request))
        return *r;
    if (auto r = m_auth->handleApi(request))
        return *r;
    if (auto r = m_account->handle(request))
        return *r;
    if (auto r = m_sync->handle(request))
        return *r;
    if (auto r = m_channel->handle(request))
        return *r;
    return errorResponse(404, QStringLiteral("Not found"));
}

} // namespace OmbrelServer
