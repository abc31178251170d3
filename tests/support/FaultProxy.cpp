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
    qsizetype bodyLength = 0;
    for (const QByteArray &line : buffer.left(headEnd).split('\n')) {
        const QByteArray trimmed = line.trimmed();
        if (trimmed.toLower().startsWith("content-length:"))
            bodyLength = trimmed.mid(15).trimmed().toLongLong();
    }
    const qsizetype total = headEnd + 4 + bodyLength;
    return buffer.size() >= total ? total : -1;
}

QByteArray statusReply(int status, const QByteArray &reason, const QByteArray &body)
{
    return "HTTP/1.1 " + QByteArray::number(status) + ' ' + reason +
           "\r\nContent-Type: application/json\r\nContent-Length: " + QByteArray::number(body.size()) +
           "\r\n\r\n" + body;
}

} // namespace

FaultProxy::FaultProxy(const QUrl &upstream, quint32 seed, QObject *parent)
    : QObject(parent)
    , m_upstream(upstream)
    , m_random(seed)
    , m_server(new QTcpServer(this))
{
    connect(m_server, &QTcpServer::newConnection, this, &FaultProxy::onNewConnection);
}

FaultProxy::~FaultProxy() = default;

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

void FaultProxy::onNewConnection()
{
    while (QTcpSocket *client = m_server->nextPendingConnection()) {
        client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        connect(client, &QTcpSocket::readyRead, this, [this, client] { onClientData(client); });
        connect(client, &QTcpSocket::disconnected, this, [this, client] {
            m_buffers.remove(client);
            client->deleteLater();
        });
    }
}

void FaultProxy::onClientData(QTcpSocket *client)
{
    QByteArray &buffer = m_buffers[client];
    buffer += client->readAll();
    for (;;) {
        const qsizetype length = messageLength(buffer);
        if (length < 0)
            return;
        const QByteArray request = buffer.left(length);
        buffer.remove(0, length);
        const QList<QByteArray> requestLine = request.left(request.indexOf("\r\n")).split(' ');
        handle(client, request, requestLine.value(1));
    }
}

FaultProxy::Fault FaultProxy::pickFault(const QByteArray &request, const QByteArray &path)
{
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

void FaultProxy::handle(QTcpSocket *client, const QByteArray &request, const QByteArray &path)
{
    ++m_requests;
    const Fault fault = pickFault(request, path);
    m_lastWasUnauthorized = fault == Fault::Unauthorized;
    ++m_counts[fault];
    QPointer<QTcpSocket> to(client);
    const auto answer = [to](const QByteArray &reply) {
        if (!to)
            return;
        if (reply.isEmpty())
            to->abort();
        else
            to->write(reply);
    };
    switch (fault) {
    case Fault::DropBefore: client->abort(); return;
    case Fault::ServerErrorBefore:
        answer(statusReply(500, "Internal Server Error", R"({"error":"injected"})"));
        return;
    case Fault::Unauthorized: answer(statusReply(401, "Unauthorized", R"({"error":"injected"})")); return;
    case Fault::DropAfter:
        forward(request, 1, [to](const QByteArray &) {
            if (to)
                to->abort();
        });
        return;
    case Fault::ServerErrorAfter:
        forward(request, 1, [answer](const QByteArray &) {
            answer(statusReply(500, "Internal Server Error", R"({"error":"injected"})"));
        });
        return;
    case Fault::Delay: {
        const int ms = 20 + int(m_random.bounded(300));
        forward(request, 1, [this, answer, ms](const QByteArray &reply) {
            QTimer::singleShot(ms, this, [answer, reply] { answer(reply); });
        });
        return;
    }
    case Fault::Duplicate: forward(request, 2, answer); return;
    case Fault::None: forward(request, 1, answer); return;
    }
}

void FaultProxy::forward(const QByteArray &request, int times, std::function<void(QByteArray)> done)
{
    auto *upstream = new QTcpSocket(this);
    auto *buffer = new QByteArray;
    const auto finish = [upstream, buffer, done, this, request, times](QByteArray reply) {
        upstream->disconnect();
        upstream->deleteLater();
        delete buffer;
        if (times > 1 && !reply.isEmpty())
            forward(request, times - 1, done);
        else
            done(reply);
    };
    connect(upstream, &QTcpSocket::connected, upstream, [upstream, request] {
        upstream->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        upstream->write(request);
    });
    connect(upstream, &QTcpSocket::readyRead, upstream, [upstream, buffer, finish] {
        *buffer += upstream->readAll();
        const qsizetype length = messageLength(*buffer);
        if (length >= 0)
            finish(buffer->left(length));
    });
    connect(upstream, &QTcpSocket::errorOccurred, upstream, [finish] { finish(QByteArray()); });
    upstream->connectToHost(QHostAddress::LocalHost, quint16(m_upstream.port()));
}
