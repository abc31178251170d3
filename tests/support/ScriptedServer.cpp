#include "support/ScriptedServer.h"

#include <QAbstractHttpServer>
#include <QDir>
#include <QFile>
#include <QHttpServerRequest>
#include <QHttpServerResponder>
#include <QMetaEnum>
#include <QPointer>
#include <QTcpSocket>
#include <QTimer>

namespace {

QByteArray verbOf(QHttpServerRequest::Method method)
{
    const char *key = QMetaEnum::fromType<QHttpServerRequest::Method>().valueToKey(int(method));
    return key ? QByteArray(key).toUpper() : QByteArrayLiteral("UNKNOWN");
}

void send(QHttpServerResponder &responder, const ScriptedReply &reply)
{
    responder.writeStatusLine(static_cast<QHttpServerResponder::StatusCode>(reply.status));
    if (!reply.contentType.isEmpty())
        responder.writeHeader("Content-Type", reply.contentType);
    responder.writeHeader("Content-Length", QByteArray::number(reply.body.size()));
    for (const auto &[name, value] : reply.headers)
        responder.writeHeader(name, value);
    // writeBody ends the header block even for an empty body.
    responder.writeBody(reply.body);
}

} // namespace

class ScriptedServer::Backend : public QAbstractHttpServer {
public:
    explicit Backend(ScriptedServer *owner)
        : m_owner(owner)
    {
    }

protected:
    bool handleRequest(const QHttpServerRequest &request, QTcpSocket *socket) override
    {
        const ScriptedReply reply = m_owner->take(request);
        if (reply.dropConnection) {
            socket->abort();
        } else if (reply.delayMs > 0) {
            auto responder = std::make_shared<QHttpServerResponder>(makeResponder(request, socket));
            QPointer<QTcpSocket> guard(socket);
            QTimer::singleShot(reply.delayMs, socket, [responder, reply, guard] {
                if (guard && guard->state() == QAbstractSocket::ConnectedState)
                    send(*responder, reply);
            });
        } else {
            QHttpServerResponder responder = makeResponder(request, socket);
            send(responder, reply);
        }
        emit m_owner->requestReceived();
        return true;
    }

    void missingHandler(const QHttpServerRequest &, QTcpSocket *) override {}

private:
    ScriptedServer *m_owner;
};

ScriptedServer::ScriptedServer(QObject *parent)
    : QObject(parent)
    , m_backend(std::make_unique<Backend>(this))
{
}

ScriptedServer::~ScriptedServer() = default;

bool ScriptedServer::listen()
{
    m_port = m_backend->listen(QHostAddress(QHostAddress::LocalHost), 0);
    return m_port != 0;
}

QUrl ScriptedServer::baseUrl() const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1").arg(m_port));
}

void ScriptedServer::enqueue(ScriptedReply reply)
{
    m_queue.append({QString(), std::move(reply)});
}

void ScriptedServer::enqueue(const QString &path, ScriptedReply reply)
{
    m_queue.append({path, std::move(reply)});
}

void ScriptedServer::serveDirectory(const QString &prefix, const QString &dir)
{
    m_directories.append({prefix.endsWith(u'/') ? prefix : prefix + u'/', dir});
}

void ScriptedServer::clear()
{
    m_queue.clear();
    m_requests.clear();
}

ScriptedReply ScriptedServer::take(const QHttpServerRequest &request)
{
    RecordedRequest recorded;
    recorded.verb = verbOf(request.method());
    recorded.path = request.url().path();
    recorded.query = request.query();
    for (const auto &[name, value] : request.headers())
        recorded.headers.insert(name.toLower(), value);
    recorded.body = request.body();
    m_requests.append(recorded);
    const QString &path = recorded.path;

    for (qsizetype i = 0; i < m_queue.size(); ++i) {
        if (m_queue[i].path == path)
            return m_queue.takeAt(i).reply;
    }
    for (const auto &[prefix, dir] : std::as_const(m_directories)) {
        if (!path.startsWith(prefix))
            continue;
        const QString relative = path.mid(prefix.size());
        // Never step out of the served directory.
        if (relative.isEmpty() || relative.contains(QStringLiteral("..")))
            return ScriptedReply(404, {}, {});
        QFile file(QDir(dir).filePath(relative));
        if (!file.open(QIODevice::ReadOnly))
            return ScriptedReply(404, {}, {});
        return ScriptedReply(200, file.readAll(), "application/octet-stream");
    }
    for (qsizetype i = 0; i < m_queue.size(); ++i) {
        if (m_queue[i].path.isEmpty())
            return m_queue.takeAt(i).reply;
    }
    return ScriptedReply(404, {}, {});
}
