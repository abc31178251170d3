#pragma once

#include <QHash>
#include <QObject>
#include <QRandomGenerator>
#include <QUrl>

#include <functional>

class QTcpServer;
class QTcpSocket;

// An HTTP proxy on 127.0.0.1 in front of a test server that breaks some exchanges on purpose, chosen
// by a seeded random generator: it drops the connection before or after the server saw the request,
// answers 500 before or after, answers 401 (never twice running, so the client's one retry gets
// through), holds the reply back, or hands the request to the server twice. One upstream connection
// per request keeps the bookkeeping trivial.
class FaultProxy : public QObject {
    Q_OBJECT
public:
    enum class Fault {
        None,
        DropBefore,
        DropAfter,
        ServerErrorBefore,
        ServerErrorAfter,
        Unauthorized,
        Delay,
        Duplicate
    };
    Q_ENUM(Fault)

    FaultProxy(const QUrl &upstream, quint32 seed, QObject *parent = nullptr);

    bool listen();
    QUrl baseUrl() const;

    // The share of requests that get a fault; 0 lets everything through untouched.
    void setFaultRate(double rate) { m_rate = rate; }
    // Only requests whose path starts with this are touched; the rest pass.
    void setPathFilter(const QByteArray &prefix) { m_pathFilter = prefix; }

    int count(Fault fault) const { return m_counts.value(fault); }
    int requests() const { return m_requests; }

private:
    void onClientData(QTcpSocket *client);
    void handle(QTcpSocket *client, const QByteArray &request);
    Fault pickFault(const QByteArray &request);
    // Sends the request upstream, times times, and hands the last reply to done (empty on failure).
    void forward(const QByteArray &request, int times, std::function<void(QByteArray)> done);

    QUrl m_upstream;
    QRandomGenerator m_random;
    QTcpServer *m_server = nullptr;
    QHash<QTcpSocket *, QByteArray> m_buffers;
    QByteArray m_pathFilter;
    double m_rate = 0;
    bool m_lastWasUnauthorized = false;
    int m_requests = 0;
    QHash<Fault, int> m_counts;
};
