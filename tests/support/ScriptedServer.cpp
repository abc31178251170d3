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

#include <optional>

namespace {

void send(QHttpServerResponder &responder, const ScriptedReply &reply)
{
    responder.writeStatusLine(static_cast<QHttpServerResponder::StatusCode>(reply.status));
    if (!reply.contentType.isEmpty())
        responder.writeHeader("Content-Type", reply.contentType);
    responder.writeHeader("Content-Length", QByteArray::number(reply.body.size()));
    // writeBody ends the header block even for an empty body.
    responder.writeBody(reply.body);
}

ScriptedReply notFound()
{
    ScriptedReply reply(404);
    reply.contentType.clear();
    return reply;
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
        auto responder = std::make_shared<QHttpServerResponder>(makeResponder(request, socket));
        if (reply.delayMs == 0) {
            send(*responder, reply);
            return true;
        }
        QPointer<QTcpSocket> guard(socket);
        QTimer::singleShot(reply.delayMs, socket, [responder, reply, guard] {
            if (guard && guard->state() == QAbstractSocket::ConnectedState)
                send(*responder, reply);
        });
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
    const char *verb = QMetaEnum::fromType<QHttpServerRequest::Method>().valueToKey(int(request.method()));
    RecordedRequest seen{
        QByteArray(verb).toUpper(), request.url().path(), request.query(), {}, request.body()};
    for (const auto &[name, value] : request.headers())
        seen.headers.insert(name.toLower(), value);
    m_requests.append(seen);

    const auto queued = [this](const QString &path) -> std::optional<ScriptedReply> {
        for (qsizetype i = 0; i < m_queue.size(); ++i) {
            if (m_queue[i].first == path)
                return m_queue.takeAt(i).second;
        }
        return std::nullopt;
    };
    if (auto reply = queued(seen.path))
        return *reply;
    for (const auto &[prefix, dir] : std::as_const(m_directories)) {
        const QString relative = seen.path.mid(prefix.size());
        if (!seen.path.startsWith(prefix))
            continue;
        QFile file(QDir(dir).filePath(relative));
        // Never step out of the served directory.
        if (relative.isEmpty() || relative.contains(QStringLiteral("..")) || !file.open(QIODevice::ReadOnly))
            return notFound();
        ScriptedReply reply(200, file.readAll());
        reply.contentType = "application/octet-stream";
        return reply;
    }
    return queued(QString()).value_or(notFound());
}
