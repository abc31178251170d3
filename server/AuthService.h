#pragma once

#include "server/HttpExchange.h"

#include <optional>

namespace OmbrelServer {

class ServerDatabase;
class SignInLimiter;
class TokenService;
struct Caller;
struct ServerOptions;

// The sign-in service: the browser pages under /<realm>/account/ and the REST calls under
// /api/v1/realms/<realm>/.
class AuthService {
public:
    AuthService(ServerDatabase *db, TokenService *tokens, SignInLimiter *limiter,
                const ServerOptions &options);

    // Each answers nullopt when the path is not its own.
    std::optional<HttpResponse> handlePage(const HttpRequest &request);
    std::optional<HttpResponse> handleApi(const HttpRequest &request);

private:
    HttpResponse signInForm(const HttpRequest &request, bool signUp);
    HttpResponse signIn(const HttpRequest &request);
    HttpResponse signUp(const HttpRequest &request);
    HttpResponse finishSignIn(const HttpRequest &request, const QString &userId, const QUrl &redirect);
    HttpResponse refresh(const HttpRequest &request);
    HttpResponse currentUser(const Caller &caller);
    HttpResponse updateUser(const HttpRequest &request, const Caller &caller);
    HttpResponse changePassword(const HttpRequest &request, const Caller &caller);
    HttpResponse sessions(const Caller &caller);
    HttpResponse revokeSession(const Caller &caller, const QString &sessionId);
    // The redirect target when client id and URI may be trusted with tokens; else an invalid URL.
    QUrl checkedRedirect(const QString &clientId, const QString &redirectUri) const;

    ServerDatabase *m_db;
    TokenService *m_tokens;
    SignInLimiter *m_limiter;
    QString m_realm;
    QString m_clientId;
};

} // namespace OmbrelServer
