#include "support/FaultProxy.h"

#include <QHostAddress>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace {

// The length of one whole HTTP message at the head of buffer (head and Content-Length body), or -1
// while it is still incomplete.
qsizetype messageLength(const QByteArray &buffer)
{
    const qsizetype headEnd = buffer.indexOf("\r\n\r\n");
    if (headEnd < 0)
        return -1;
    qsizetype total = headEnd + 4;
    for (const QByteArray &line : buffer.left(headEnd).split('\n')) {
        if (line.trimmed().toLower().startsWith("content-length:"))
            total += line.trimmed().mid(15).trimmed().toLongLong();
    }
    return buffer.size() >= total ? total : -1;
}

QByteArray statusReply(int status, const QByteArray &reason)
{
    return "HTTP/1.1 " + QByteArray::number(status) + ' ' + reason +
           "\r\nContent-Type: application/json\r\nContent-Length: 20\r\n\r\n{\"error\":\"injected\"}";
}

} // namespace

FaultProxy::FaultProxy(const QUrl &upstream, quint32 seed, QObject *parent)
    : QObject(parent)
    , m_upstream(upstream)
    , m_random(seed)
    , m_server(new QTcpServer(this))
{
    connect(m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *client = m_server->nextPendingConnection()) {
            client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            connect(client, &QTcpSocket::readyRead, this, [this, client] { onClientData(client); });
            connect(client, &QTcpSocket::disconnected, this, [this, client] {
                m_buffers.remove(client);
                client->deleteLater();
            });
        }
    });
}

bool FaultProxy::listen()
{
    return m_server->listen(QHostAddress::LocalHost, 0);
}

QUrl FaultProxy::baseUrl() const
{
    QUrl url = m_upstream;
    url.setHost(QStringLiteral("127.0.0.1"));
    url.setPort(m_server->serverPort());
    return url;
}

void FaultProxy::onClientData(QTcpSocket *client)
{
    QByteArray &buffer = m_buffers[client];
    buffer += client->readAll();
    for (qsizetype length; (length = messageLength(buffer)) >= 0;) {
        const QByteArray request = buffer.left(length);
        buffer.remove(0, length);
        handle(client, request);
    }
}

FaultProxy::Fault FaultProxy::pickFault(const QByteArray &request)
{
    const QByteArray path = request.left(request.indexOf("\r\n")).split(' ').value(1);
    if (!path.startsWith(m_pathFilter) || m_rate <= 0 || m_random.generateDouble() >= m_rate)
        return Fault::None;
    const bool unauthorizedAllowed =
        !m_lastWasUnauthorized && request.toLower().contains("\r\nauthorization: bearer ");
    for (;;) {
        const auto fault = Fault(1 + m_random.bounded(int(Fault::Duplicate)));
        if (fault != Fault::Unauthorized || unauthorizedAllowed)
            return fault;
    }
}

void FaultProxy::handle(QTcpSocket *client, const QByteArray &request)
{
    ++m_requests;
    const Fault fault = pickFault(request);
    m_lastWasUnauthorized = fault == Fault::Unauthorized;
    ++m_counts[fault];
    const auto answer = [to = QPointer<QTcpSocket>(client)](const QByteArray &reply) {
        if (to && reply.isEmpty())
            to->abort();
        else if (to)
            to->write(reply);
    };
    const QByteArray serverError = statusReply(500, "Internal Server Error");
    if (fault == Fault::DropBefore)
        return client->abort();
    if (fault == Fault::ServerErrorBefore || fault == Fault::Unauthorized)
        return answer(fault == Fault::Unauthorized ? statusReply(401, "Unauthorized") : serverError);
    const int delayMs = fault == Fault::Delay ? 20 + int(m_random.bounded(300)) : 0;
    forward(request, fault == Fault::Duplicate ? 2 : 1, [=](const QByteArray &reply) {
        const QByteArray sent = fault == Fault::DropAfter          ? QByteArray()
                                : fault == Fault::ServerErrorAfter ? serverError
                                                                   : reply;
        QTimer::singleShot(delayMs, this, [=] { answer(sent); });
    });
}

void FaultProxy::forward(const QByteArray &request, int times, std::function<void(QByteArray)> done)
{
    auto *upstream = new QTcpSocket(this);
    auto buffer = std::make_shared<QByteArray>();
    const auto finish = [=](const QByteArray &reply) {
        upstream->disconnect();
        upstream->deleteLater();
        if (times > 1 && !reply.isEmpty())
            forward(request, times - 1, done);
        else
            done(reply);
    };
    connect(upstream, &QTcpSocket::connected, upstream, [upstream, request] {
        upstream->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        upstream->write(request);
    });
    connect(upstream, &QTcpSocket::readyRead, upstream, [=] {
        *buffer += upstream->readAll();
        if (const qsizetype length = messageLength(*buffer); length >= 0)
            finish(buffer->left(length));
    });
    connect(upstream, &QTcpSocket::errorOccurred, upstream, [finish] { finish({}); });
    upstream->connectToHost(QHostAddress::LocalHost, quint16(m_upstream.port()));
}
