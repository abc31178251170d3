#include "support/ScriptedServer.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

// The server every network test stands on: a fault here would show up as a fault of the code under test.
class TstScriptedServer : public QObject {
    Q_OBJECT
private slots:
    void init();
    void answers_data();
    void answers();
    void recordsRequest();
    void dropsConnection();

private:
    QNetworkReply *get(const QString &pathAndQuery);
    std::unique_ptr<ScriptedServer> m_server;
    QNetworkAccessManager m_nam;
    QTemporaryDir m_dir;
};

void TstScriptedServer::init()
{
    m_server = std::make_unique<ScriptedServer>();
    QVERIFY(m_server->listen());
    QFile file(m_dir.filePath(QStringLiteral("a.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("file body");
}

QNetworkReply *TstScriptedServer::get(const QString &pathAndQuery)
{
    QNetworkReply *reply = m_nam.get(QNetworkRequest(QUrl(m_server->baseUrl().toString() + pathAndQuery)));
    reply->setParent(this);
    return reply;
}

void TstScriptedServer::answers_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<QList<int>>("statuses");
    QTest::addColumn<QByteArray>("lastBody");
    // One reply is queued for any path ("any") and one for /bound ("bound").
    QTest::newRow("bound before any")
        << QStringList{"/bound", "/x"} << QList<int>{201, 200} << QByteArray("any");
    QTest::newRow("any, then bound") << QStringList{"/x", "/bound"} << QList<int>{200, 201}
                                     << QByteArray("bound");
    QTest::newRow("queue empties to 404") << QStringList{"/x", "/x"} << QList<int>{200, 404} << QByteArray();
    QTest::newRow("served file") << QStringList{"/files/a.txt"} << QList<int>{200} << QByteArray("file body");
    QTest::newRow("missing file") << QStringList{"/files/b.txt"} << QList<int>{404} << QByteArray();
}

void TstScriptedServer::answers()
{
    QFETCH(QStringList, paths);
    QFETCH(QList<int>, statuses);
    QFETCH(QByteArray, lastBody);
    m_server->enqueue(ScriptedReply(200, "any"));
    m_server->enqueue(QStringLiteral("/bound"), ScriptedReply::delayed(50, 201, "bound"));
    m_server->serveDirectory(QStringLiteral("/files"), m_dir.path());
    QByteArray body;
    for (int i = 0; i < paths.size(); ++i) {
        QNetworkReply *reply = get(paths[i]);
        QSignalSpy finished(reply, &QNetworkReply::finished);
        QVERIFY(finished.wait(5000));
        QCOMPARE(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), statuses[i]);
        body = reply->readAll();
    }
    QCOMPARE(body, lastBody);
}

void TstScriptedServer::recordsRequest()
{
    QNetworkRequest request(QUrl(m_server->baseUrl().toString() + QStringLiteral("/p/q?a=1&b=two")));
    request.setRawHeader("X-Custom-Header", "Value");
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/json"));
    QNetworkReply *reply = m_nam.post(request, QByteArray("{\"k\":1}"));
    reply->setParent(this);
    QVERIFY(QSignalSpy(reply, &QNetworkReply::finished).wait(5000));
    QCOMPARE(m_server->requests().size(), 1);
    const RecordedRequest seen = m_server->requests().first();
    QCOMPARE(seen.verb, QByteArray("POST"));
    QCOMPARE(seen.path, QStringLiteral("/p/q"));
    QCOMPARE(seen.query.queryItemValue(QStringLiteral("b")), QStringLiteral("two"));
    QCOMPARE(seen.headers.value("x-custom-header"), QByteArray("Value"));
    QCOMPARE(seen.body, QByteArray("{\"k\":1}"));
}

void TstScriptedServer::dropsConnection()
{
    // The network stack sends again once after a dropped connection, so both attempts are dropped.
    m_server->enqueue(ScriptedReply::dropped());
    m_server->enqueue(ScriptedReply::dropped());
    QNetworkReply *reply = get(QStringLiteral("/x"));
    QVERIFY(QSignalSpy(reply, &QNetworkReply::finished).wait(5000));
    QVERIFY(reply->error() != QNetworkReply::NoError);
    QCOMPARE(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), 0);
}

QTEST_GUILESS_MAIN(TstScriptedServer)
#include "tst_scriptedserver.moc"
