#pragma once

#include "server/HttpExchange.h"
#include "server/ServerOptions.h"

#include <QObject>
#include <QUrl>

#include <memory>

class QTimer;

namespace OmbrelServer {

class AccountService;
class AuthService;
class ChannelService;
class HttpFrontEnd;
class ServerDatabase;
class SharingService;
class SignInLimiter;
class SyncService;
class SyncStore;
class TokenService;

// The whole server: its database, its services and the HTTP front end that routes to them.
class Server : public QObject {
    Q_OBJECT
public:
    explicit Server(ServerOptions options, QObject *parent = nullptr);
    ~Server() override;

    // Opens the data folder and starts listening; false with a reason in error.
    bool start(QString *error);
    quint16 port() const { return m_port; }
    // http://127.0.0.1:port, or https when TLS is on.
    QUrl baseUrl() const;
    // The lines of environment that point the program at this server.
    QString environmentText() const;

private:
    HttpResponse handle(const HttpRequest &request);

    ServerOptions m_options;
    quint16 m_port = 0;
    std::unique_ptr<ServerDatabase> m_db;
    std::unique_ptr<SignInLimiter> m_limiter;
    std::unique_ptr<TokenService> m_tokens;
    std::unique_ptr<AuthService> m_auth;
    std::unique_ptr<AccountService> m_account;
    std::unique_ptr<SyncStore> m_store;
    std::unique_ptr<SharingService> m_sharing;
    std::unique_ptr<SyncService> m_sync;
    std::unique_ptr<ChannelService> m_channel;
    HttpFrontEnd *m_front = nullptr;
    QTimer *m_purgeTimer = nullptr;
};

} // namespace OmbrelServer
