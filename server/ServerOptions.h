#pragma once

#include <QHostAddress>
#include <QString>
#include <QStringList>

namespace OmbrelServer {

// How one server runs. The defaults are what the program expects when no variable redirects it.
struct ServerOptions {
    QString dataDir;
    QHostAddress address = QHostAddress::LocalHost;
    quint16 port = 8080; // 0: the system chooses
    QString channelDir;  // empty: no update channel
    QString tlsCertificate;
    QString tlsKey;
    QString realm = QStringLiteral("halcyra");
    QString clientId = QStringLiteral("0123456789abcdef0123456789abcdef");
    int accessTokenSeconds = 15 * 60;
    qint64 maxBodyBytes = 8 * 1024 * 1024;
    int maxFailedSignIns = 5; // per e-mail address and client address, within the window below
    int failedSignInWindowSeconds = 15 * 60;
    bool verbose = false;
};

// Reads the command line of ombrel-server; on a bad line returns false and says why in error.
bool parseServerArguments(const QStringList &arguments, ServerOptions *options, QString *error);

} // namespace OmbrelServer
