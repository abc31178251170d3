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
    void answers_data()
    {
        QTest::addColumn<QStringList>("paths");
        QTest::addColumn<QList<int>>("statuses");
        QTest::addColumn<QByteArray>("lastBody");
        // One reply is queued for any path ("any") and one for /bound ("bound").
        // clang-format off
        QTest::newRow("bound before any") << QStringList{"/bound", "/x"} << QList<int>{201, 200} << QByteArray("any");
        QTest::newRow("any, then bound")  << QStringList{"/x", "/bound"} << QList<int>{200, 201} << QByteArray("bound");
        QTest::newRow("queue empties")    << QStringList{"/x", "/x"}     << QList<int>{200, 404} << QByteArray();
        QTest::newRow("served file")      << QStringList{"/files/a.txt"} << QList<int>{200}      << QByteArray("file");
        QTest::newRow("missing file")     << QStringList{"/files/b.txt"} << QList<int>{404}      << QByteArray();
        // clang-format on
    }

    void answers()
    {
        QFETCH(QStringList, paths);
        QFETCH(QList<int>, statuses);
        QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("a.txt")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("file") == 4);
        file.close();
        ScriptedServer server;
        QVERIFY(server.listen());
        server.enqueue(ScriptedReply(200, "any"));
        server.enqueue(QStringLiteral("/bound"), ScriptedReply::delayed(50, 201, "bound"));
        server.serveDirectory(QStringLiteral("/files"), dir.path());
        QNetworkAccessManager nam;
        QByteArray body;
        for (int i = 0; i < paths.size(); ++i) {
            QNetworkRequest request(QUrl(server.baseUrl().toString() + paths[i] + "?a=1&b=two"));
            request.setRawHeader("X-Custom-Header", "Value");
            std::unique_ptr<QNetworkReply> reply(nam.post(request, QByteArray("{\"k\":1}")));
            QVERIFY(QSignalSpy(reply.get(), &QNetworkReply::finished).wait(5000));
            QCOMPARE(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), statuses[i]);
            body = reply->readAll();
        }
        QTEST(body, "lastBody");
        const RecordedRequest seen = server.requests().value(paths.size() - 1);
        QCOMPARE(server.requests().size(), paths.size());
        QCOMPARE(seen.verb, QByteArray("POST"));
        QCOMPARE(seen.query.queryItemValue(QStringLiteral("b")), QStringLiteral("two"));
        QCOMPARE(seen.header("X-CUSTOM-HEADER"), QByteArray("Value"));
        QCOMPARE(seen.body, QByteArray("{\"k\":1}"));
    }
};

QTEST_GUILESS_MAIN(TstScriptedServer)
#include "tst_scriptedserver.moc"
