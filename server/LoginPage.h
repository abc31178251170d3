#pragma once

#include <QString>

namespace OmbrelServer {

// The sign-in and sign-up pages: plain forms that work without JavaScript.
class LoginPage {
public:
    struct Link {
        QString realm;
        QString clientId;
        QString redirectUri;
    };

    static QString signIn(const Link &link, const QString &email, const QString &error);
    static QString signUp(const Link &link, const QString &email, const QString &displayName,
                          const QString &error);
    static QString message(const QString &title, const QString &text);
};

} // namespace OmbrelServer
