#include "account/ApiClient.h"
#include "account/AuthClient.h"
#include "account/TokenManager.h"
#include "support/HeadlessBrowser.h"
#include "support/MemoryTokenStore.h"
#include "support/TestServer.h"

#include <QDesktopServices>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QUrlQuery>

// Takes the URL the program opens in the system browser, for the test to hand to chromium.
class UrlCatcher : public QObject {
    Q_OBJECT
public:
    QUrl url;

public slots:
    void open(const QUrl &opened) { url = opened; }
};

// A real browser signs up on the server's page, and the tokens come back to a loopback listener.
class TstBrowserSignIn : public QObject {
    Q_OBJECT

private slots:
    void signUpInTheBrowserReachesTheListener();
    void programSignsInThroughTheBrowser();
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

void TstBrowserSignIn::programSignsInThroughTheBrowser()
{
    TestServer server;
    QVERIFY(server.start());
    HeadlessBrowser browser;
    QString whyNot;
    if (!browser.start(&whyNot))
        QSKIP(qPrintable(whyNot));

    // The program's own sign-in, as the account library builds it, with the tokens kept in memory.
    QHash<QString, QString> stored;
    HalcAccount::TokenManager tokens(std::make_unique<MemoryTokenStore>(&stored));
    HalcAccount::ApiClient api(&tokens);
    const QString base = server.url(QString()).toString();
    api.setBaseUrl(QUrl(base + "/api/v1/realms/halcyra"));
    HalcAccount::AuthClient auth(base, "halcyra", server.options().clientId, &api, &tokens);
    auth.initialize();
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler("http", &catcher, "open");
    QSignalSpy succeeded(&auth, &HalcAccount::AuthClient::loginSucceeded);
    QSignalSpy failed(&auth, &HalcAccount::AuthClient::loginFailed);
    auth.login();
    QDesktopServices::unsetUrlHandler("http");
    QVERIFY(catcher.url.isValid());

    const QString tab = browser.openTab(catcher.url);
    QVERIFY2(!tab.isEmpty(), qPrintable(browser.devTools().lastError()));
    QVERIFY(browser.waitForPage(tab, "/account/login"));
    browser.devTools().evaluate(tab, "document.getElementById('signup').click()");
    QVERIFY(browser.waitForPage(tab, "/account/signup"));
    browser.devTools().evaluate(tab, "document.getElementById('email').value = 'ann@example.org';"
                                     "document.getElementById('password').value = 'a long passphrase';"
                                     "document.getElementById('submit').click()");
    QTRY_VERIFY_WITH_TIMEOUT(succeeded.count() + failed.count() > 0, 20000);
    QCOMPARE(failed.count(), 0);
    QVERIFY(auth.isAuthenticated());
    QVERIFY(!tokens.accessToken().isEmpty());
    QVERIFY(!tokens.refreshToken().isEmpty());

    // The session works on the server: the user, and a refresh that rotates the pair.
    QString email;
    auth.fetchCurrentUser([&](const HalcAccount::User &user) { email = user.email; });
    QTRY_COMPARE_WITH_TIMEOUT(email, QStringLiteral("ann@example.org"), 10000);
    const QString firstRefresh = tokens.refreshToken();
    int refreshed = -1;
    auth.refreshToken([&](bool ok) { refreshed = ok ? 1 : 0; });
    QTRY_COMPARE_WITH_TIMEOUT(refreshed, 1, 10000);
    QVERIFY(tokens.refreshToken() != firstRefresh);
}

QTEST_MAIN(TstBrowserSignIn)
#include "tst_browsersignin.moc"
