#include "server/Jwt.h"
#include "support/TestServer.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QUrlQuery>

namespace {

const QString kApi = QStringLiteral("/api/v1/realms/halcyra");

QJsonObject hlcOf(const TestUser &user)
{
    return TestServer::claimsOf(user.accessToken)["custom"].toObject()["hlc"].toObject();
}

} // namespace

class TstServerAuth : public QObject {
    Q_OBJECT
private slots:
    void signInRedirect_data()
    {
        QTest::addColumn<QString>("clientId");
        QTest::addColumn<QString>("redirectUri");
        QTest::addColumn<bool>("accepted");
        const QString client = QStringLiteral("0123456789abcdef0123456789abcdef");
        // clang-format off
        QTest::newRow("localhost")       << client << "http://localhost:19876/callback" << true;
        QTest::newRow("127.0.0.1")       << client << "http://127.0.0.1:40000/callback?x=1" << true;
        QTest::newRow("remote host")     << client << "http://example.com:19876/callback" << false;
        QTest::newRow("look-alike host") << client << "http://localhost.example.com:80/callback" << false;
        QTest::newRow("user info")       << client << "http://localhost:1@example.com:80/callback" << false;
        QTest::newRow("https")           << client << "https://localhost:19876/callback" << false;
        QTest::newRow("no port")         << client << "http://localhost/callback" << false;
        QTest::newRow("unknown client")  << "somebody-else" << "http://localhost:19876/callback" << false;
        // clang-format on
    }

    void signInRedirect()
    {
        QFETCH(QString, clientId);
        QFETCH(QString, redirectUri);
        QFETCH(bool, accepted);
        TestServer server;
        QVERIFY(server.start());
        const QUrlQuery link{
            {"client_id",    clientId                                                 },
            {"redirect_uri", QString::fromLatin1(QUrl::toPercentEncoding(redirectUri))}
        };
        QCOMPARE(server.get("/halcyra/account/login?" + link.query(QUrl::FullyEncoded)).status,
                 accepted ? 200 : 400);
        QList<QPair<QString, QString>> form{
            {"client_id",    clientId         },
            {"redirect_uri", redirectUri      },
            {"email",        "ann@example.org"},
            {"password",     "pass+word 1"    }
        };
        // Sign-up signs in, and the password with a plus and a space works again on the sign-in page.
        for (const char *page : {"signup", "login"}) {
            const HttpResult r = server.postForm(page, form);
            QCOMPARE(r.status, accepted ? 302 : 400);
            if (!accepted) {
                QVERIFY(r.location.isEmpty());
                return;
            }
            const QUrl target = QUrl::fromEncoded(r.location);
            QCOMPARE(target.adjusted(QUrl::RemoveQuery), QUrl(redirectUri).adjusted(QUrl::RemoveQuery));
            QVERIFY(!target.hasFragment());
            const QUrlQuery query(target.query());
            QVERIFY(!query.queryItemValue("access_token").isEmpty());
            QVERIFY(!query.queryItemValue("refresh_token").isEmpty());
            QCOMPARE(query.hasQueryItem("x"), redirectUri.contains("x=1"));
        }
    }

    void claimsAsTheProgramReadsThem()
    {
        TestServer server;
        QVERIFY(server.start());
        TestUser owner = server.signUp("owner@example.org");
        TestUser member = server.signUp("member@example.org");
        // The program reads exp with toInt: it must be an integer in 32-bit range, 15 minutes ahead.
        const QJsonValue exp = TestServer::claimsOf(owner.accessToken).value("exp");
        QVERIFY(exp.isDouble());
        QCOMPARE(qint64(exp.toInt()), exp.toInteger());
        QVERIFY(qAbs(exp.toInt() - (QDateTime::currentSecsSinceEpoch() + 15 * 60)) <= 5);
        QCOMPARE(hlcOf(owner), TestServer::json(R"({"group_id":"","role":""})"));

        QVERIFY(server.joinGroup(owner, member));
        QVERIFY(server.refresh(&owner) && server.refresh(&member));
        QCOMPARE(hlcOf(owner)["role"].toString(), QStringLiteral("owner"));
        QCOMPARE(hlcOf(member)["role"].toString(), QStringLiteral("member"));
        QVERIFY(!hlcOf(owner)["group_id"].toString().isEmpty());
        QCOMPARE(hlcOf(member)["group_id"], hlcOf(owner)["group_id"]);
    }

    void accessTokenChecks_data()
    {
        QTest::addColumn<qint64>("expiresIn");
        QTest::addColumn<bool>("ownKey");
        QTest::addColumn<int>("status");
        QTest::newRow("good") << qint64(60) << true << 200;
        QTest::newRow("expired") << qint64(-1) << true << 401;
        QTest::newRow("other key") << qint64(60) << false << 401;
    }

    void accessTokenChecks()
    {
        QFETCH(qint64, expiresIn);
        QFETCH(bool, ownKey);
        QFETCH(int, status);
        TestServer server;
        QVERIFY(server.start());
        const TestUser ann = server.signUp("ann@example.org");
        QFile keyFile(QDir(server.dataDir()).filePath("signing.key"));
        QVERIFY(keyFile.open(QIODevice::ReadOnly));
        QCOMPARE(keyFile.permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther),
                 QFileDevice::Permissions());
        const QByteArray key =
            ownKey ? QByteArray::fromHex(keyFile.readAll().trimmed()) : QByteArray(32, 'k');
        QJsonObject claims = TestServer::claimsOf(ann.accessToken);
        claims.insert("exp", QDateTime::currentSecsSinceEpoch() + expiresIn);
        const QString token = OmbrelServer::Jwt::sign(claims, key);
        QCOMPARE(server.get(kApi + "/users/me", token).status, status);
        QCOMPARE(server.get("/ombrel/v1/sync/pull", token).status, status);
    }

    void refreshRotatesAndReuseEndsSession()
    {
        TestServer server;
        QVERIFY(server.start());
        TestUser ann = server.signUp("ann@example.org");
        const TestUser first = ann;
        QVERIFY(server.refresh(&ann));
        QVERIFY(ann.refreshToken != first.refreshToken);
        QCOMPARE(server.get(kApi + "/users/me", ann.accessToken).status, 200);
        // The replaced token comes back: someone holds a copy, so the whole session ends.
        TestUser thief = first;
        QVERIFY(!server.refresh(&thief));
        QVERIFY(!server.refresh(&ann));
        QCOMPARE(server.get(kApi + "/users/me", ann.accessToken).status, 401);
        // Another session of the same user is not touched.
        TestUser other = server.signIn("ann@example.org");
        QVERIFY(server.refresh(&other));
    }

    // Ending one session (by id, by a password change, by signing out) leaves the others alone.
    void sessionsEnd()
    {
        TestServer server;
        QVERIFY(server.start());
        TestUser here = server.signUp("ann@example.org");
        const TestUser listed = server.signIn("ann@example.org");
        const TestUser elsewhere = server.signIn("ann@example.org");
        const TestUser bob = server.signUp("bob@example.org");
        const auto status = [&](const TestUser &user) {
            return server.get(kApi + "/users/me", user.accessToken).status;
        };
        QString listedId;
        int current = 0;
        const QJsonArray sessions =
            server.get(kApi + "/users/me/sessions", here.accessToken).json["sessions"].toArray();
        QCOMPARE(sessions.size(), 3);
        for (const QJsonValue &s : sessions) {
            current += s["is_current"].toBool() ? 1 : 0;
            if (!s["is_current"].toBool() && listedId.isEmpty())
                listedId = s["id"].toString();
        }
        QCOMPARE(current, 1);
        // Somebody else's session cannot be ended by its id.
        QCOMPARE(server.del(kApi + "/users/me/sessions/" + listedId, bob.accessToken).status, 404);
        QCOMPARE(server.del(kApi + "/users/me/sessions/" + listedId, here.accessToken).status, 204);
        QCOMPARE(status(here), 200);
        QCOMPARE(status(listed) + status(elsewhere), 401 + 200);
        const TestUser &other = status(listed) == 200 ? listed : elsewhere;

        const auto changePassword = [&](const QString &current, const QString &next) {
            const QString body =
                QStringLiteral(R"({"current_password":"%1","new_password":"%2"})").arg(current, next);
            return server.post(kApi + "/users/me/password", TestServer::json(body), here.accessToken).status;
        };
        QCOMPARE(changePassword("wrong one", "new password"), 403);
        QCOMPARE(changePassword("correct horse", "short"), 400);
        QCOMPARE(changePassword("correct horse", "new password"), 204);
        QCOMPARE(status(here), 200);
        QCOMPARE(status(other), 401);
        QVERIFY(server.signIn("ann@example.org").id.isEmpty());
        QCOMPARE(server.signIn("ann@example.org", "new password").id, here.id);
        QCOMPARE(server.get(kApi + "/users/me", here.accessToken).json["email"].toString(),
                 QStringLiteral("ann@example.org"));

        QCOMPARE(server.post(kApi + "/auth/logout", {}, here.accessToken).status, 204);
        QCOMPARE(server.get("/account/v1/profile", here.accessToken).status, 401);
        QVERIFY(!server.refresh(&here));
        QCOMPARE(status(bob), 200);
    }

    void failedSignInsAreLimited()
    {
        TestServer server;
        server.options().maxFailedSignIns = 3;
        QVERIFY(server.start());
        QVERIFY(!server.signUp("ann@example.org").id.isEmpty());
        QVERIFY(!server.signUp("bob@example.org").id.isEmpty());
        const auto attempt = [&](const QString &email, const QString &password) {
            return server
                .postForm("login",
                          {
                              {"email",    email   },
                              {"password", password}
            })
                .status;
        };
        for (int i = 0; i < 3; ++i)
            QCOMPARE(attempt("ann@example.org", QStringLiteral("guess %1").arg(i)), 401);
        QCOMPARE(attempt("ann@example.org", "correct horse"), 429);
        QCOMPARE(attempt("bob@example.org", "correct horse"), 302);
    }
};

QTEST_GUILESS_MAIN(TstServerAuth)
#include "tst_serverauth.moc"
