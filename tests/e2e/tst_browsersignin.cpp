#include "support/HeadlessBrowser.h"
#include "support/TestServer.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QUrlQuery>

// A real browser signs up on the server's page, and the tokens come back to a loopback listener.
class TstBrowserSignIn : public QObject {
    Q_OBJECT

private slots:
    void signUpInTheBrowserReachesTheListener();
};

void TstBrowserSignIn::signUpInTheBrowserReachesTheListener()
{
    TestServer server;
    QVERIFY(server.start());
    HeadlessBrowser browser;
    QString whyNot;
    if (!browser.start(&whyNot))
        QSKIP(qPrintable(whyNot));

    // The listener the program would open: it answers the first request and keeps its target.
    QTcpServer listener;
    QVERIFY(listener.listen(QHostAddress::LocalHost, 0));
    QString target;
    connect(&listener, &QTcpServer::newConnection, this, [&] {
        QTcpSocket *socket = listener.nextPendingConnection();
        connect(socket, &QTcpSocket::readyRead, socket, [&, socket] {
            const QByteArray request = socket->readAll();
            if (target.isEmpty())
                target = QString::fromUtf8(request.split(' ').value(1));
            socket->write(
                "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n<p>done</p>");
            socket->disconnectFromHost();
        });
    });

    QUrlQuery link;
    link.addQueryItem("client_id", server.options().clientId);
    link.addQueryItem("redirect_uri",
                      QString::fromLatin1(QUrl::toPercentEncoding(
                          QStringLiteral("http://127.0.0.1:%1/callback").arg(listener.serverPort()))));
    const QUrl login = server.url("/halcyra/account/login?" + link.query(QUrl::FullyEncoded));
    const QString tab = browser.openTab(login);
    QVERIFY2(!tab.isEmpty(), qPrintable(browser.devTools().lastError()));
    QVERIFY(browser.waitForPage(tab, "/account/login"));

    // The way a person goes: the link to the sign-up page, the form, the button.
    browser.devTools().evaluate(tab, "document.getElementById('signup').click()");
    QVERIFY(browser.waitForPage(tab, "/account/signup"));
    browser.devTools().evaluate(tab, "document.getElementById('display_name').value = 'Ann';"
                                     "document.getElementById('email').value = 'ann@example.org';"
                                     "document.getElementById('password').value = 'a long passphrase';"
                                     "document.getElementById('submit').click()");
    QTRY_VERIFY_WITH_TIMEOUT(!target.isEmpty(), 20000);

    const QUrlQuery query(QUrl(target).query());
    QVERIFY(QUrl(target).path() == QLatin1String("/callback"));
    const QString access = query.queryItemValue("access_token");
    const QString refresh = query.queryItemValue("refresh_token");
    QVERIFY(!access.isEmpty());
    QVERIFY(!refresh.isEmpty());
    QCOMPARE(server.get("/api/v1/realms/halcyra/users/me", access).json.value("email").toString(),
             QStringLiteral("ann@example.org"));
    TestUser user{QString(), QString(), access, refresh};
    QVERIFY(server.refresh(&user));
}

QTEST_GUILESS_MAIN(TstBrowserSignIn)
#include "tst_browsersignin.moc"
