#include "server/Jwt.h"
#include "support/TestServer.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTest>
#include <QUrlQuery>

class TstServerAuth : public QObject {
    Q_OBJECT

private slots:
    void signInRedirect_data();
    void signInRedirect();
    void claimsAsTheProgramReadsThem();
    void accessTokenChecks_data();
    void accessTokenChecks();
    void refreshRotatesAndReuseEndsSession();
    void logoutEndsSession();
    void passwordChangeSignsOutOtherSessions();
    void sessionsListAndRevoke();
    void failedSignInsAreLimited();

private:
    const QString m_api = QStringLiteral("/api/v1/realms/halcyra");
};

void TstServerAuth::signInRedirect_data()
{
    QTest::addColumn<QString>("clientId");
    QTest::addColumn<QString>("redirectUri");
    QTest::addColumn<bool>("accepted");
    const QString client = QStringLiteral("0123456789abcdef0123456789abcdef");
    QTest::newRow("localhost") << client << "http://localhost:19876/callback" << true;
    QTest::newRow("127.0.0.1") << client << "http://127.0.0.1:40000/callback?x=1" << true;
    QTest::newRow("remote host") << client << "http://example.com:19876/callback" << false;
    QTest::newRow("look-alike host") << client << "http://localhost.example.com:80/callback" << false;
    QTest::newRow("user info") << client << "http://localhost:1@example.com:80/callback" << false;
    QTest::newRow("https") << client << "https://localhost:19876/callback" << false;
    QTest::newRow("no port") << client << "http://localhost/callback" << false;
    QTest::newRow("unknown client") << "somebody-else"
                                    << "http://localhost:19876/callback" << false;
}

void TstServerAuth::signInRedirect()
{
    QFETCH(QString, clientId);
    QFETCH(QString, redirectUri);
    QFETCH(bool, accepted);
    TestServer server;
    QVERIFY(server.start());

    QUrlQuery link;
    link.addQueryItem(QStringLiteral("client_id"), clientId);
    link.addQueryItem(QStringLiteral("redirect_uri"),
                      QString::fromLatin1(QUrl::toPercentEncoding(redirectUri)));
    const HttpResult page =
        server.get(QStringLiteral("/halcyra/account/login?") + link.query(QUrl::FullyEncoded), QString());
    QCOMPARE(page.status, accepted ? 200 : 400);

    const QList<QPair<QString, QString>> link2{
        {QStringLiteral("client_id"),    clientId   },
        {QStringLiteral("redirect_uri"), redirectUri}
    };
    const HttpResult signUp = server.postForm(
        QStringLiteral("signup"), link2 + QList<QPair<QString, QString>>{
                                              {QStringLiteral("email"),    QStringLiteral("ann@example.org")},
                                              {QStringLiteral("password"), QStringLiteral("pass+word 1")    }
    });
    const HttpResult signIn = server.postForm(
        QStringLiteral("login"), link2 + QList<QPair<QString, QString>>{
                                             {QStringLiteral("email"),    QStringLiteral("ann@example.org")},
                                             {QStringLiteral("password"), QStringLiteral("pass+word 1")    }
    });
    if (!accepted) {
        QCOMPARE(signUp.status, 400);
        QVERIFY(signUp.location.isEmpty());
        return;
    }
    // Sign-up signs in, and the password with a plus and a space works again on the sign-in page.
    for (const HttpResult &r : {signUp, signIn}) {
        QCOMPARE(r.status, 302);
        const QUrl target = QUrl::fromEncoded(r.location);
        QCOMPARE(target.adjusted(QUrl::RemoveQuery), QUrl(redirectUri).adjusted(QUrl::RemoveQuery));
        QVERIFY(!target.hasFragment());
        const QUrlQuery query(target.query());
        QVERIFY(!query.queryItemValue(QStringLiteral("access_token")).isEmpty());
        QVERIFY(!query.queryItemValue(QStringLiteral("refresh_token")).isEmpty());
        QCOMPARE(query.hasQueryItem(QStringLiteral("x")), redirectUri.contains(QLatin1String("x=1")));
    }
}

void TstServerAuth::claimsAsTheProgramReadsThem()
{
    TestServer server;
    QVERIFY(server.start());
    TestUser owner = server.signUp(QStringLiteral("owner@example.org"));
    TestUser member = server.signUp(QStringLiteral("member@example.org"));
    QVERIFY(!owner.id.isEmpty() && !member.id.isEmpty());

    const QJsonObject before = TestServer::claimsOf(owner.accessToken);
    // The program reads exp with toInt: it must be an integer in 32-bit range, 15 minutes ahead.
    const QJsonValue exp = before.value(QLatin1String("exp"));
    QVERIFY(exp.isDouble());
    QCOMPARE(qint64(exp.toInt()), exp.toInteger());
    QVERIFY(qAbs(exp.toInt() - (QDateTime::currentSecsSinceEpoch() + 15 * 60)) <= 5);
    QCOMPARE(before.value(QLatin1String("custom")).toObject().value(QLatin1String("hlc")).toObject(),
             (QJsonObject{
                 {QStringLiteral("group_id"), QString()},
                 {QStringLiteral("role"),     QString()}
    }));

    QVERIFY(server.joinGroup(owner, member));
    QVERIFY(server.refresh(&owner));
    QVERIFY(server.refresh(&member));
    const QJsonObject ownerHlc = TestServer::claimsOf(owner.accessToken)
                                     .value(QLatin1String("custom"))
                                     .toObject()
                                     .value(QLatin1String("hlc"))
                                     .toObject();
    const QJsonObject memberHlc = TestServer::claimsOf(member.accessToken)
                                      .value(QLatin1String("custom"))
                                      .toObject()
                                      .value(QLatin1String("hlc"))
                                      .toObject();
    QCOMPARE(ownerHlc.value(QLatin1String("role")).toString(), QStringLiteral("owner"));
    QCOMPARE(memberHlc.value(QLatin1String("role")).toString(), QStringLiteral("member"));
    QVERIFY(!ownerHlc.value(QLatin1String("group_id")).toString().isEmpty());
    QCOMPARE(memberHlc.value(QLatin1String("group_id")), ownerHlc.value(QLatin1String("group_id")));
}

void TstServerAuth::accessTokenChecks_data()
{
    QTest::addColumn<qint64>("expiresIn");
    QTest::addColumn<bool>("ownKey");
    QTest::addColumn<int>("status");
    QTest::newRow("good") << qint64(60) << true << 200;
    QTest::newRow("expired") << qint64(-1) << true << 401;
    QTest::newRow("other key") << qint64(60) << false << 401;
}

void TstServerAuth::accessTokenChecks()
{
    QFETCH(qint64, expiresIn);
    QFETCH(bool, ownKey);
    QFETCH(int, status);
    TestServer server;
    QVERIFY(server.start());
    const TestUser ann = server.signUp(QStringLiteral("ann@example.org"));
    QFile keyFile(QDir(server.dataDir()).filePath(QStringLiteral("signing.key")));
    QVERIFY(keyFile.open(QIODevice::ReadOnly));
    QCOMPARE(keyFile.permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther),
             QFileDevice::Permissions());
    const QByteArray key = ownKey ? QByteArray::fromHex(keyFile.readAll().trimmed()) : QByteArray(32, 'k');

    QJsonObject claims = TestServer::claimsOf(ann.accessToken);
    claims.insert(QStringLiteral("exp"), QDateTime::currentSecsSinceEpoch() + expiresIn);
    const QString token = OmbrelServer::Jwt::sign(claims, key);
    QCOMPARE(server.get(m_api + QStringLiteral("/users/me"), token).status, status);
    QCOMPARE(server.get(QStringLiteral("/ombrel/v1/sync/pull"), token).status, status);
}

void TstServerAuth::refreshRotatesAndReuseEndsSession()
{
    TestServer server;
    QVERIFY(server.start());
    TestUser ann = server.signUp(QStringLiteral("ann@example.org"));
    const TestUser first = ann;
    QVERIFY(server.refresh(&ann));
    QVERIFY(ann.refreshToken != first.refreshToken);
    QCOMPARE(server.get(m_api + QStringLiteral("/users/me"), ann.accessToken).status, 200);

    // The replaced token comes back: someone holds a copy, so the whole session ends.
    TestUser thief = first;
    QVERIFY(!server.refresh(&thief));
    QVERIFY(!server.refresh(&ann));
    QCOMPARE(server.get(m_api + QStringLiteral("/users/me"), ann.accessToken).status, 401);
    // Another session of the same user is not touched.
    TestUser other = server.signIn(QStringLiteral("ann@example.org"));
    QVERIFY(server.refresh(&other));
}

void TstServerAuth::logoutEndsSession()
{
    TestServer server;
    QVERIFY(server.start());
    TestUser ann = server.signUp(QStringLiteral("ann@example.org"));
    QCOMPARE(server.post(m_api + QStringLiteral("/auth/logout"), {}, ann.accessToken).status, 204);
    QCOMPARE(server.get(QStringLiteral("/account/v1/profile"), ann.accessToken).status, 401);
    QVERIFY(!server.refresh(&ann));
}

void TstServerAuth::passwordChangeSignsOutOtherSessions()
{
    TestServer server;
    QVERIFY(server.start());
    const TestUser here = server.signUp(QStringLiteral("ann@example.org"));
    const TestUser elsewhere = server.signIn(QStringLiteral("ann@example.org"));
    const QString path = m_api + QStringLiteral("/users/me/password");
    QCOMPARE(server
                 .post(path,
                       {
                           {"current_password", "wrong one"   },
                           {"new_password",     "new password"}
    },
                       here.accessToken)
                 .status,
             403);
    QCOMPARE(server
                 .post(path,
                       {
                           {"current_password", "correct horse"},
                           {"new_password",     "short"        }
    },
                       here.accessToken)
                 .status,
             400);
    QCOMPARE(server
                 .post(path,
                       {
                           {"current_password", "correct horse"},
                           {"new_password",     "new password" }
    },
                       here.accessToken)
                 .status,
             204);
    QCOMPARE(server.get(m_api + QStringLiteral("/users/me"), here.accessToken).status, 200);
    QCOMPARE(server.get(m_api + QStringLiteral("/users/me"), elsewhere.accessToken).status, 401);
    QVERIFY(server.signIn(QStringLiteral("ann@example.org")).id.isEmpty());
    QCOMPARE(server.signIn(QStringLiteral("ann@example.org"), QStringLiteral("new password")).id, here.id);
}

void TstServerAuth::sessionsListAndRevoke()
{
    TestServer server;
    QVERIFY(server.start());
    const TestUser here = server.signUp(QStringLiteral("ann@example.org"));
    const TestUser elsewhere = server.signIn(QStringLiteral("ann@example.org"));
    const TestUser bob = server.signUp(QStringLiteral("bob@example.org"));
    const QJsonArray sessions = server.get(m_api + QStringLiteral("/users/me/sessions"), here.accessToken)
                                    .json.value("sessions")
                                    .toArray();
    QCOMPARE(sessions.size(), 2);
    QString otherId;
    int current = 0;
    for (const QJsonValue &s : sessions) {
        current += s.toObject().value("is_current").toBool() ? 1 : 0;
        if (!s.toObject().value("is_current").toBool())
            otherId = s.toObject().value("id").toString();
    }
    QCOMPARE(current, 1);
    // Somebody else's session cannot be ended by its id.
    QCOMPARE(server.del(m_api + QStringLiteral("/users/me/sessions/") + otherId, bob.accessToken).status,
             404);
    QCOMPARE(server.get(m_api + QStringLiteral("/users/me"), elsewhere.accessToken).status, 200);
    QCOMPARE(server.del(m_api + QStringLiteral("/users/me/sessions/") + otherId, here.accessToken).status,
             204);
    QCOMPARE(server.get(m_api + QStringLiteral("/users/me"), elsewhere.accessToken).status, 401);
    QCOMPARE(server.get(m_api + QStringLiteral("/users/me"), here.accessToken).json.value("email").toString(),
             QStringLiteral("ann@example.org"));
}

void TstServerAuth::failedSignInsAreLimited()
{
    TestServer server;
    server.options().maxFailedSignIns = 3;
    QVERIFY(server.start());
    QVERIFY(!server.signUp(QStringLiteral("ann@example.org")).id.isEmpty());
    QVERIFY(!server.signUp(QStringLiteral("bob@example.org")).id.isEmpty());
    const auto attempt = [&](const QString &email, const QString &password) {
        return server
            .postForm(QStringLiteral("login"),
                      {
                          {"email",    email   },
                          {"password", password}
        })
            .status;
    };
    for (int i = 0; i < 3; ++i)
        QCOMPARE(attempt(QStringLiteral("ann@example.org"), QStringLiteral("guess %1").arg(i)), 401);
    QCOMPARE(attempt(QStringLiteral("ann@example.org"), QStringLiteral("correct horse")), 429);
    QCOMPARE(attempt(QStringLiteral("bob@example.org"), QStringLiteral("correct horse")), 302);
}

QTEST_GUILESS_MAIN(TstServerAuth)
#include "tst_serverauth.moc"
