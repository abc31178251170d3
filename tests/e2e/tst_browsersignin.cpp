#include "account/ApiClient.h"
#include "account/AuthClient.h"
#include "account/TokenManager.h"
#include "support/HeadlessBrowser.h"
#include "support/MemoryTokenStore.h"
#include "support/TestServer.h"

#include <QDesktopServices>
#include <QSignalSpy>
#include <QTest>

// Takes the URL the program opens in the system browser, for the test to hand to chromium.
class UrlCatcher : public QObject {
    Q_OBJECT
public:
    QUrl url;

public slots:
    void open(const QUrl &opened) { url = opened; }
};

// The program's own sign-in, with a real browser on the server's pages: the tokens come back to the
// program's loopback listener, in the query.
class TstBrowserSignIn : public QObject {
    Q_OBJECT
private slots:
    void programSignsInThroughTheBrowser()
    {
        TestServer server;
        QVERIFY(server.start());
        HeadlessBrowser browser;
        QString whyNot;
        if (!browser.start(&whyNot))
            QSKIP(qPrintable(whyNot));

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

        // The way a person goes: the link to the sign-up page, the form, the button.
        const QString tab = browser.openTab(catcher.url);
        QVERIFY2(!tab.isEmpty(), qPrintable(browser.lastError()));
        QVERIFY(browser.waitForPage(tab, "/account/login"));
        browser.evaluate(tab, "document.getElementById('signup').click()");
        QVERIFY(browser.waitForPage(tab, "/account/signup"));
        browser.evaluate(tab, "document.getElementById('display_name').value = 'Ann';"
                              "document.getElementById('email').value = 'ann@example.org';"
                              "document.getElementById('password').value = 'a long passphrase';"
                              "document.getElementById('submit').click()");
        QTRY_VERIFY_WITH_TIMEOUT(succeeded.count() + failed.count() > 0, 20000);
        QVERIFY(failed.isEmpty() && auth.isAuthenticated());
        // The session works on the server: the user, and a refresh that rotates the pair.
        QString email;
        auth.fetchCurrentUser([&](const HalcAccount::User &user) { email = user.email; });
        QTRY_COMPARE_WITH_TIMEOUT(email, QStringLiteral("ann@example.org"), 10000);
        const QString firstRefresh = tokens.refreshToken();
        std::optional<bool> refreshed;
        auth.refreshToken([&](bool ok) { refreshed = ok; });
        QTRY_VERIFY_WITH_TIMEOUT(refreshed.value_or(false) && tokens.refreshToken() != firstRefresh, 10000);
    }
};

QTEST_MAIN(TstBrowserSignIn)
#include "tst_browsersignin.moc"
