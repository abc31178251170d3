#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPair>
#include <QString>
#include <QUrl>
#include <QUrlQuery>

#include <memory>

class QHttpServerRequest;

// What the server answers to one request: a JSON reply, held back delayMs when given.
struct ScriptedReply {
    ScriptedReply(int status = 200, QByteArray body = {})
        : status(status)
        , body(std::move(body))
    {
    }
    static ScriptedReply delayed(int ms, int status, QByteArray body)
    {
        ScriptedReply reply(status, std::move(body));
        reply.delayMs = ms;
        return reply;
    }

    int status = 200;
    QByteArray body;
    int delayMs = 0;
    QByteArray contentType = "application/json";
};

// What the server saw of one request.
struct RecordedRequest {
    QByteArray verb; // "GET", "POST", ...
    QString path;
    QUrlQuery query;
    QHash<QByteArray, QByteArray> headers; // names in lower case
    QByteArray body;

    QByteArray header(const QByteArray &name) const { return headers.value(name.toLower()); }
};

// The HTTP server of the network tests, on 127.0.0.1 and a port the system picks. A test queues the
// replies, runs the code under test, and reads back what was asked of the server.
//
// A request takes the first reply queued for its path, else the file under a served directory, else
// the first reply queued for any path, else 404.
class ScriptedServer : public QObject {
    Q_OBJECT
public:
    explicit ScriptedServer(QObject *parent = nullptr);
    ~ScriptedServer() override;

    bool listen();
    QUrl baseUrl() const; // http://127.0.0.1:<port>, no trailing slash

    void enqueue(ScriptedReply reply) { m_queue.append({QString(), std::move(reply)}); }
    void enqueue(const QString &path, ScriptedReply reply) { m_queue.append({path, std::move(reply)}); }
    void serveDirectory(const QString &prefix, const QString &dir);

    QList<RecordedRequest> requests() const { return m_requests; }
    void clear(); // forgets the requests seen and the replies still queued

private:
    class Backend;
    friend class Backend;

    ScriptedReply take(const QHttpServerRequest &request); // records the request, picks its reply

    std::unique_ptr<Backend> m_backend;
    quint16 m_port = 0;
    QList<QPair<QString, ScriptedReply>> m_queue; // path (empty: any), reply
    QList<QPair<QString, QString>> m_directories; // prefix, directory
    QList<RecordedRequest> m_requests;
};
