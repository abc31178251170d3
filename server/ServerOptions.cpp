#include "server/ServerOptions.h"

#include <QCommandLineParser>

namespace OmbrelServer {

bool parseServerArguments(const QStringList &arguments, ServerOptions *options, QString *error)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Sign-in, account, sync and update-channel services for Halcyra Ombrel."));
    parser.addHelpOption();
    const QCommandLineOption data(
        QStringLiteral("data"), QStringLiteral("Folder of the database and secret."), QStringLiteral("DIR"));
    const QCommandLineOption listen(QStringLiteral("listen"),
                                    QStringLiteral("Address and port to listen on."),
                                    QStringLiteral("HOST:PORT"), QStringLiteral("127.0.0.1:8080"));
    const QCommandLineOption channel(QStringLiteral("channel"),
                                     QStringLiteral("Folder served at /ombrel/stable/."),
                                     QStringLiteral("DIR"));
    const QCommandLineOption cert(QStringLiteral("tls-cert"), QStringLiteral("PEM certificate for HTTPS."),
                                  QStringLiteral("FILE"));
    const QCommandLineOption key(QStringLiteral("tls-key"), QStringLiteral("PEM private key for HTTPS."),
                                 QStringLiteral("FILE"));
    const QCommandLineOption realm(QStringLiteral("realm"), QStringLiteral("Realm of the sign-in service."),
                                   QStringLiteral("SLUG"), options->realm);
    const QCommandLineOption clientId(QStringLiteral("client-id"),
                                      QStringLiteral("The one client id sign-in accepts."),
                                      QStringLiteral("ID"), options->clientId);
    const QCommandLineOption lifetime(
        QStringLiteral("token-minutes"), QStringLiteral("Lifetime of an access token."),
        QStringLiteral("MINUTES"), QString::number(options->accessTokenSeconds / 60));
    const QCommandLineOption verbose(QStringLiteral("verbose"), QStringLiteral("Log every request."));
    parser.addOptions({data, listen, channel, cert, key, realm, clientId, lifetime, verbose});
    if (!parser.parse(arguments)) {
        *error = parser.errorText();
        return false;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        *error = parser.helpText();
        return false;
    }
    if (!parser.isSet(data)) {
        *error = QStringLiteral("--data DIR is required");
        return false;
    }
    options->dataDir = parser.value(data);

    const QString where = parser.value(listen);
    const qsizetype colon = where.lastIndexOf(QLatin1Char(':'));
    bool portOk = false;
    const uint port = colon > 0 ? where.mid(colon + 1).toUInt(&portOk) : 0;
    QString host = colon > 0 ? where.left(colon) : QString();
    if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']')))
        host = host.mid(1, host.size() - 2);
    const QHostAddress address(host == QLatin1String("localhost") ? QStringLiteral("127.0.0.1") : host);
    if (!portOk || port > 65535 || address.isNull()) {
        *error = QStringLiteral("--listen wants HOST:PORT, such as 127.0.0.1:8080");
        return false;
    }
    options->address = address;
    options->port = quint16(port);

    options->channelDir = parser.value(channel);
    options->tlsCertificate = parser.value(cert);
    options->tlsKey = parser.value(key);
    if (options->tlsCertificate.isEmpty() != options->tlsKey.isEmpty()) {
        *error = QStringLiteral("--tls-cert and --tls-key go together");
        return false;
    }
    options->realm = parser.value(realm);
    options->clientId = parser.value(clientId);
    bool minutesOk = false;
    const int minutes = parser.value(lifetime).toInt(&minutesOk);
    if (!minutesOk || minutes < 1 || minutes > 24 * 60) {
        *error = QStringLiteral("--token-minutes wants a number from 1 to 1440");
        return false;
    }
    options->accessTokenSeconds = minutes * 60;
    options->verbose = parser.isSet(verbose);
    return true;
}

} // namespace OmbrelServer
