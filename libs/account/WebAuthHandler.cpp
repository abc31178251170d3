#include "account/WebAuthHandler.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace HalcAccount {

namespace {

const QByteArray kReply =
    "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n"
    "<html><body style='font-family: sans-serif; text-align: center; padding: 40px;'>"
    "<h2>Authentication complete!</h2><p>You can close this tab and return to the application.</p>"
    "</body></html>";

} // namespace

WebAuthHandler::WebAuthHandler(QObject *parent)
    : QObject(parent)
    , m_server(new QTcpServer(this))
{
    connect(m_server, &QTcpServer::newConnection, this, &WebAuthHandler::onNewConnection);
}

WebAuthHandler::~WebAuthHandler() = default;

QString WebAuthHandler::start()
{
    if (!m_server->isListening()) {
        // The loopback interface only: nothing else on the network can hand us tokens.
        if (!m_server->listen(QHostAddress::LocalHost, kPreferredPort) &&
            !m_server->listen(QHostAddress::LocalHost, 0))
            return QString();
        m_port = m_server->serverPort();
    }
    return redirectUri();
}

QString WebAuthHandler::redirectUri() const
{
    return QStringLiteral("http://localhost:%1/callback").arg(m_port);
}

void WebAuthHandler::onNewConnection()
{
    QTcpSocket *socket = m_server->nextPendingConnection();
    if (!socket)
        return;
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
        // The rest of the request, if it comes in pieces, is not a second callback.
        disconnect(socket, &QTcpSocket::readyRead, this, nullptr);
        // The first chunk is taken to hold the request line; only its target matters.
        const QString request = QString::fromUtf8(socket->readAll());
        const qsizetype first = request.indexOf(u' ');
        const qsizetype second = first < 0 ? -1 : request.indexOf(u' ', first + 1);
        const QString target =
            first < 0 ? QString() : request.mid(first + 1, second < 0 ? -1 : second - first - 1);
        const QUrl url(QStringLiteral("http://localhost:%1%2").arg(m_port).arg(target));

        socket->write(kReply);
        socket->flush();
        socket->disconnectFromHost();
        emit callbackReceived(url);
        if (m_server->isListening())
            m_server->close();
    });
}

} // namespace HalcAccount
