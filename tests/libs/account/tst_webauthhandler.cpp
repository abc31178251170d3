#include "account/WebAuthHandler.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QUrlQuery>

using HalcAccount::WebAuthHandler;

class TstWebAuthHandler : public QObject {
    Q_OBJECT
private slots:
    void callback_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("accessToken");
        QTest::newRow("tokens in the query")
            << QByteArray("GET /callback?access_token=a%2Bb&refresh_token=r HTTP/1.1\r\n"
                          "Host: localhost\r\n\r\n")
            << "/callback"
            << "a+b";
        QTest::newRow("favicon first") << QByteArray("GET /favicon.ico HTTP/1.1\r\n\r\n") << "/favicon.ico"
                                       << "";
        QTest::newRow("request line only") << QByteArray("GET /callback") << "/callback"
                                           << "";
        QTest::newRow("garbage") << QByteArray("\x01\x02") << ""
                                 << "";
    }

    void callback()
    {
        QFETCH(QByteArray, request);
        QFETCH(QString, path);
        QFETCH(QString, accessToken);
        WebAuthHandler handler;
        const QString redirect = handler.start();
        QVERIFY(redirect.startsWith("http://localhost:"));
        const quint16 port = QUrl(redirect).port();
        QSignalSpy spy(&handler, &WebAuthHandler::callbackReceived);

        QTcpSocket browser;
        browser.connectToHost(QHostAddress::LocalHost, port);
        QVERIFY(browser.waitForConnected(5000));
        browser.write(request);
        QVERIFY(spy.wait(5000));
        QTRY_VERIFY_WITH_TIMEOUT(browser.state() == QAbstractSocket::UnconnectedState, 5000);
        QCOMPARE(browser.readAll(),
                 QByteArray("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n"
                            "<html><body style='font-family: sans-serif; text-align: center; padding: 40px;'>"
                            "<h2>Authentication complete!</h2><p>You can close this tab and return to the "
                            "application.</p></body></html>"));
        const QUrl url = spy.first().first().toUrl();
        QCOMPARE(url.port(), int(port));
        QCOMPARE(url.path(), path);
        QCOMPARE(QUrlQuery(url).queryItemValue("access_token", QUrl::FullyDecoded), accessToken);

        // One callback only: the listener is gone.
        QTcpSocket late;
        late.connectToHost(QHostAddress::LocalHost, port);
        QVERIFY(!late.waitForConnected(2000));
        QCOMPARE(spy.size(), 1);
    }

    void preferredPortTaken()
    {
        // Another test process may hold the port already; either way this handler cannot have it.
        QTcpServer squatter;
        squatter.listen(QHostAddress::LocalHost, WebAuthHandler::kPreferredPort);
        WebAuthHandler first;
        WebAuthHandler second;
        const QUrl a(first.start());
        const QUrl b(second.start());
        QVERIFY(a.port() > 0 && a.port() != WebAuthHandler::kPreferredPort);
        QVERIFY(b.port() > 0 && b.port() != a.port());
        QCOMPARE(a.path(), QStringLiteral("/callback"));
        QCOMPARE(first.redirectUri(), a.toString());
    }
};

QTEST_GUILESS_MAIN(TstWebAuthHandler)
#include "tst_webauthhandler.moc"
