#include "server/Jwt.h"
#include "support/Columns.h"
#include "support/TestServer.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>
#include <QUrlQuery>

#include <map>

namespace {

const QString kApi = QStringLiteral("/api/v1/realms/halcyra");

QJsonObject change(const QString &type, const QString &id, qint64 version, const QString &payload)
{
    return TestServer::change(type, id, version, TestServer::json(payload));
}

QJsonObject account(const QString &id, qint64 version = 1, const QString &name = QStringLiteral("Cash"))
{
    return change("account", id, version,
                  QStringLiteral(R"({"name":"%1","account_type":"checking","currency":"USD","is_shared":0,)"
                                 R"("starting_balance":0,"updated_at":"2025-01-01T00:00:00Z"})")
                      .arg(name));
}

QJsonObject transaction(const QString &id, const QString &accountId, qint64 amount,
                        const QString &category = {})
{
    return change("transaction", id, 1,
                  QStringLiteral(R"({"account_id":"%1","date":"2025-01-02","payee":"Grocer","amount":%2,)"
                                 R"("category_id":"%3","cleared":0,"updated_at":"2025-01-02T10:00:00Z"})")
                      .arg(accountId)
                      .arg(amount)
                      .arg(category));
}

QJsonObject hlcOf(const TestUser &user)
{
    return TestServer::claimsOf(user.accessToken)["custom"].toObject()["hlc"].toObject();
}

} // namespace

// The reference server through real HTTP on 127.0.0.1, a fresh data folder for each test.
class TstServer : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_users.clear();
        m_server = std::make_unique<TestServer>();
        QVERIFY(m_server->start());
    }

    void signInRedirect_data()
    {
        addColumns<QString, QString, bool>({"clientId", "redirectUri", "accepted"});
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
        QUrlQuery link(QStringLiteral("client_id=") + clientId);
        link.addQueryItem("redirect_uri", QString::fromLatin1(QUrl::toPercentEncoding(redirectUri)));
        QCOMPARE(m_server->get("/halcyra/account/login?" + link.query(QUrl::FullyEncoded)).status,
                 accepted ? 200 : 400);
        // Sign-up signs in, and the password with a plus and a space works again on the sign-in page.
        for (const char *page : {"signup", "login"}) {
            const HttpResult r = m_server->postForm(page, {
                                                              {"client_id",    clientId         },
                                                              {"redirect_uri", redirectUri      },
                                                              {"email",        "ann@example.org"},
                                                              {"password",     "pass+word 1"    }
            });
            QCOMPARE(r.status, accepted ? 302 : 400);
            QCOMPARE(r.location.isEmpty(), !accepted);
            if (!accepted)
                return;
            const QUrl target = QUrl::fromEncoded(r.location);
            QCOMPARE(target.adjusted(QUrl::RemoveQuery), QUrl(redirectUri).adjusted(QUrl::RemoveQuery));
            const QUrlQuery query(target.query());
            QVERIFY(!target.hasFragment() && !query.queryItemValue("refresh_token").isEmpty());
            QVERIFY(!query.queryItemValue("access_token").isEmpty());
            QCOMPARE(query.hasQueryItem("x"), redirectUri.contains("x=1"));
        }
    }

    void signUpRefusesBadInput_data()
    {
        addColumns<QString, QString, QString>({"email", "password", "error"});
        const QString noEmail = QStringLiteral("Enter an e-mail address."),
                      shortPassword = QStringLiteral("The password needs at least 8 characters.");
        QTest::newRow("nothing before the @") << "@example.org"
                                              << "long enough" << noEmail;
        QTest::newRow("nothing after the @") << "dan@"
                                             << "long enough" << noEmail;
        QTest::newRow("no @") << "dan.example.org"
                              << "long enough" << noEmail;
        QTest::newRow("a space") << "dan @example.org"
                                 << "long enough" << noEmail;
        QTest::newRow("7 characters") << "dan@example.org"
                                      << "1234567" << shortPassword;
    }

    // The page comes back with the error and what was typed, and nobody is signed up.
    void signUpRefusesBadInput()
    {
        QFETCH(QString, email);
        QFETCH(QString, password);
        QFETCH(QString, error);
        const HttpResult r =
            m_server->postForm("signup", {
                                             {"client_id",    "0123456789abcdef0123456789abcdef"},
                                             {"redirect_uri", "http://localhost:19876/callback" },
                                             {"email",        email                             },
                                             {"password",     password                          }
        });
        QCOMPARE(r.status, 400);
        QVERIFY2(r.body.contains(error.toUtf8()), r.body.constData());
        QVERIFY(m_server->signIn(email, password).id.isEmpty());
    }

    void accessTokenChecks_data()
    {
        addColumns<qint64, bool, int>({"expiresIn", "ownKey", "status"});
        QTest::newRow("good") << qint64(60) << true << 200;
        QTest::newRow("expired") << qint64(-1) << true << 401;
        QTest::newRow("other key") << qint64(60) << false << 401;
    }

    void accessTokenChecks()
    {
        QFETCH(qint64, expiresIn);
        QFETCH(bool, ownKey);
        QFile keyFile(QDir(m_server->dataDir()).filePath("signing.key"));
        QVERIFY(keyFile.open(QIODevice::ReadOnly));
        QCOMPARE(keyFile.permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther),
                 QFileDevice::Permissions());
        QJsonObject claims = TestServer::claimsOf(user("ann").accessToken);
        claims.insert("exp", QDateTime::currentSecsSinceEpoch() + expiresIn);
        const QString token = OmbrelServer::Jwt::sign(
            claims, ownKey ? QByteArray::fromHex(keyFile.readAll().trimmed()) : QByteArray(32, 'k'));
        QTEST(m_server->get(kApi + "/users/me", token).status, "status");
        QTEST(m_server->get("/ombrel/v1/sync/pull", token).status, "status");
    }

    void refreshRotatesAndReuseEndsSession()
    {
        TestUser ann = user("ann");
        TestUser thief = ann;
        QVERIFY(m_server->refresh(&ann) && ann.refreshToken != thief.refreshToken);
        QCOMPARE(status(ann), 200);
        // The replaced token comes back: someone holds a copy, so the whole session ends.
        QVERIFY(!m_server->refresh(&thief));
        QVERIFY(!m_server->refresh(&ann));
        QCOMPARE(status(ann), 401);
        // Another session of the same user is not touched.
        TestUser other = m_server->signIn("ann@example.org");
        QVERIFY(m_server->refresh(&other));
    }

    // Ending one session (by id, by a password change, by signing out) leaves the others alone.
    void sessionsEnd()
    {
        TestUser &here = user("ann");
        const TestUser listed = m_server->signIn("ann@example.org");
        const TestUser elsewhere = m_server->signIn("ann@example.org");
        const TestUser &bob = user("bob");
        const QJsonArray sessions =
            m_server->get(kApi + "/users/me/sessions", here.accessToken).json["sessions"].toArray();
        QCOMPARE(sessions.size(), 3);
        QStringList current, others;
        for (const QJsonValue &s : sessions)
            (s["is_current"].toBool() ? current : others).append(s["id"].toString());
        QCOMPARE(current.size(), 1);
        // Somebody else's session cannot be ended by its id.
        const QString path = kApi + "/users/me/sessions/" + others[0];
        QCOMPARE(m_server->del(path, bob.accessToken).status, 404);
        QCOMPARE(m_server->del(path, here.accessToken).status, 204);
        QCOMPARE(status(here), 200);
        QCOMPARE(status(listed) + status(elsewhere), 401 + 200);
        const TestUser &other = status(listed) == 200 ? listed : elsewhere;

        for (const auto &[currentPassword, next, expected] : {
                 std::tuple{"wrong one",     "new password", 403},
                 {"correct horse", "short",        400},
                 {"correct horse", "new password", 204}
        }) {
            const QString body =
                QStringLiteral(R"({"current_password":"%1","new_password":"%2"})").arg(currentPassword, next);
            QCOMPARE(
                m_server->post(kApi + "/users/me/password", TestServer::json(body), here.accessToken).status,
                expected);
        }
        QCOMPARE(status(here) + status(other), 200 + 401);
        QVERIFY(m_server->signIn("ann@example.org").id.isEmpty());
        QCOMPARE(m_server->signIn("ann@example.org", "new password").id, here.id);

        QCOMPARE(m_server->post(kApi + "/auth/logout", {}, here.accessToken).status, 204);
        QCOMPARE(m_server->get("/account/v1/profile", here.accessToken).status, 401);
        QVERIFY(!m_server->refresh(&here));
        QCOMPARE(status(bob), 200);
    }

    void failedSignInsAreLimited()
    {
        m_server->options().maxFailedSignIns = 3;
        QVERIFY(m_server->start());
        QVERIFY(!user("ann").id.isEmpty() && !user("bob").id.isEmpty());
        const auto attempt = [&](const QString &email, const QString &password) {
            return m_server
                ->postForm("login",
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

    // The inviter owns the group, and the claims of both tokens say so after a refresh.
    void inviterBecomesOwner()
    {
        TestUser &owner = user("ann"), &member = user("bob");
        QCOMPARE(m_server->get("/account/v1/group", owner.accessToken).status, 404);
        QVERIFY(!profile("ann").contains("group"));
        // The program reads exp with toInt: it must be an integer in 32-bit range, 15 minutes ahead.
        const QJsonValue exp = TestServer::claimsOf(owner.accessToken).value("exp");
        QCOMPARE(qint64(exp.toInt()), exp.toInteger());
        QVERIFY(qAbs(exp.toInt() - (QDateTime::currentSecsSinceEpoch() + 15 * 60)) <= 5);
        QCOMPARE(hlcOf(owner), TestServer::json(R"({"group_id":"","role":""})"));
        QVERIFY(m_server->joinGroup(owner, member));
        QVERIFY(m_server->refresh(&owner) && m_server->refresh(&member));
        QCOMPARE(hlcOf(owner)["role"].toString() + hlcOf(member)["role"].toString(),
                 QStringLiteral("ownermember"));
        QVERIFY(!hlcOf(owner)["group_id"].toString().isEmpty());
        QCOMPARE(hlcOf(member)["group_id"], hlcOf(owner)["group_id"]);
        const QJsonObject annGroup = profile("ann")["group"].toObject();
        QCOMPARE(annGroup["role"].toString() + QString::number(annGroup["member_count"].toInt()),
                 QStringLiteral("owner2"));
        const QJsonObject group = m_server->get("/account/v1/group", member.accessToken).json;
        QCOMPARE(group["id"], annGroup["id"]);
        QCOMPARE(group["members"].toArray().size(), 2);
        QCOMPARE(group["members"][1]["role"].toString(), QStringLiteral("member"));
        // A member can neither invite nor see the owner's codes.
        QCOMPARE(m_server->post("/account/v1/group/invite", {}, member.accessToken).status, 403);
        m_server->post("/account/v1/group/invite", {}, owner.accessToken);
        const auto pending = [&](const char *who) {
            return m_server->get("/account/v1/group", user(who).accessToken)
                .json["pending_invitations"]
                .toArray();
        };
        QCOMPARE(pending("bob").size() * 10 + pending("ann").size(), 1);
        // The owner removes a member, who loses the group's shares; when the owner leaves, the group
        // passes on.
        const TestUser &cleo = user("cleo");
        QVERIFY(m_server->joinGroup(owner, cleo));
        QCOMPARE(m_server->del("/account/v1/group/members/" + cleo.id, member.accessToken).status, 403);
        m_server->push(owner, {change("account", "joint", 1, R"({"name":"Joint"})")});
        const QJsonObject share = TestServer::json(R"({"user_id":"cleo@example.org"})");
        QCOMPARE(m_server->post("/ombrel/v1/accounts/joint/share", share, owner.accessToken).status, 200);
        QCOMPARE(m_server->del("/account/v1/group/members/" + cleo.id, owner.accessToken).status, 204);
        QCOMPARE(m_server->get("/account/v1/group", cleo.accessToken).status, 404);
        QCOMPARE(m_server->get("/ombrel/v1/accounts/joint/members", cleo.accessToken).status, 404);
        QCOMPARE(m_server->pullAll(owner).rows["accounts/joint"]["is_shared"].toInt(), 0);
        QCOMPARE(m_server->post("/account/v1/group/leave", {}, owner.accessToken).status, 204);
        const QJsonObject bobGroup = profile("bob")["group"].toObject();
        QCOMPARE(bobGroup["role"].toString() + QString::number(bobGroup["member_count"].toInt()),
                 QStringLiteral("owner1"));
    }

    void joining_data()
    {
        // tamper: a statement run on the invitation before joining
        addColumns<QString, QString, int>({"invitedEmail", "tamper", "status"});
        // clang-format off
        QTest::newRow("code")                   << QString()          << QString() << 200;
        QTest::newRow("e-mail of the joiner")   << "CLEO@example.org" << QString() << 200;
        QTest::newRow("e-mail of someone else") << "bob@example.org"  << QString() << 403;
        QTest::newRow("expired") << QString() << "UPDATE invitations SET expires_at = '2020-01-01T00:00:00Z'" << 404;
        QTest::newRow("used")    << QString() << "UPDATE invitations SET status = 'accepted'" << 404;
        QTest::newRow("cancelled") << QString() << "cancel" << 404;
        // clang-format on
    }

    void joining()
    {
        QFETCH(QString, invitedEmail);
        QFETCH(QString, tamper);
        QFETCH(int, status);
        const HttpResult invitation = m_server->post(
            "/account/v1/group/invite",
            invitedEmail.isEmpty() ? QJsonObject() : QJsonObject{{"email", invitedEmail}}, user("ann").accessToken);
        QCOMPARE(invitation.status, 201);
        if (tamper == "cancel") {
            const QString path = "/account/v1/group/invitations/" + invitation.json["id"].toString();
            QCOMPARE(m_server->del(path, user("ann").accessToken).status, 204);
        } else if (!tamper.isEmpty()) {
            // Straight on the server's file, for states a test cannot wait for.
            {
                QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "direct");
                db.setDatabaseName(QDir(m_server->dataDir()).filePath("server.db"));
                QVERIFY(db.open() && QSqlQuery(db).exec(tamper));
            }
            QSqlDatabase::removeDatabase("direct");
        }
        const QString code = invitation.json["invite_code"].toString().toLower();
        QCOMPARE(m_server->post("/account/v1/group/join/" + code, {}, user("cleo").accessToken).status,
                 status);
        QCOMPARE(m_server->get("/account/v1/group", user("cleo").accessToken).status,
                 status == 200 ? 200 : 404);
    }

    void devicesAndDeletion()
    {
        const QString path = "/account/v1/devices";
        // clang-format off
        for (const auto &[fingerprint, name] : {std::pair{"f-1", "Laptop"}, {"f-1", "Laptop renamed"}, {"f-2", "Desk"}})
            m_server->post(path + "/register", {{"device_fingerprint", fingerprint}, {"device_name", name}}, user("ann").accessToken);
        // clang-format on
        const QJsonArray devices = m_server->get(path, user("ann").accessToken).json["devices"].toArray();
        QCOMPARE(devices.size(), 2);
        QCOMPARE(devices[0]["device_name"].toString(), QStringLiteral("Laptop renamed"));
        const QString id = devices[0]["id"].toString();
        QCOMPARE(m_server->del(path + "/" + id, user("bob").accessToken).status, 404);
        QCOMPARE(m_server->del(path + "/" + id, user("ann").accessToken).status, 204);
        QCOMPARE(m_server->get(path, user("ann").accessToken).json["devices"].toArray().size(), 1);

        const HttpResult r = m_server->del("/account/v1/profile", user("ann").accessToken);
        QCOMPARE(r.status, 200);
        QCOMPARE(QDateTime::fromString(r.json["deletion_scheduled_at"].toString(), Qt::ISODate).date(),
                 QDateTime::currentDateTimeUtc().addDays(30).date());
        QCOMPARE(profile("ann")["status"].toString(), QStringLiteral("pending_deletion"));
        // Signing in during the grace period keeps the account.
        m_users["ann"] = m_server->signIn("ann@example.org");
        QCOMPARE(profile("ann")["status"].toString(), QStringLiteral("active"));
    }

    // Bob receives the shared account and what hangs on it, until Ann withdraws the share.
    void memberReceivesTheSharedAccount()
    {
        shareJoint();
        const TestUser &ann = user("ann"), &bob = user("bob");
        const PulledRows bobRows = m_server->pullAll(bob);
        QVERIFY(bobRows.ok && bobRows.orphans.isEmpty());
        QStringList keys = bobRows.rows.keys();
        keys.sort();
        QCOMPARE(keys, (QStringList{"accounts/joint", "categories/pets", "reconciliations/march",
                                    "recurring_transactions/rent", "transactions/vet"}));
        QCOMPARE(bobRows.rows["accounts/joint"]["is_shared"].toInt(), 1);
        // The owner's devices take the flag: the server raised the version.
        const QJsonObject joint = m_server->pullAll(ann).rows["accounts/joint"];
        QVERIFY(joint["is_shared"].toInt() == 1 && joint["version"].toInteger() > 4);
        const QJsonArray members =
            m_server->get("/ombrel/v1/accounts/joint/members", bob.accessToken).json["members"].toArray();
        QCOMPARE(members.size(), 2);
        QCOMPARE(members[0]["role"].toString() + members[1]["email"].toString(),
                 QStringLiteral("ownerbob@example.org"));

        QCOMPARE(m_server->del("/ombrel/v1/accounts/joint/share/" + bob.id, ann.accessToken).status, 204);
        m_server->push(ann, {change("transaction", "after", 1, R"({"account_id":"joint"})")});
        QCOMPARE(m_server->pullAll(bob, 200, &bobRows).rows.keys(), QStringList());
        const QJsonArray refused =
            m_server->push(bob, {change("transaction", "vet", 9, R"({"account_id":"joint","amount":0})")});
        QCOMPARE(refused[0]["status"].toString(), QStringLiteral("forbidden"));
        const PulledRows annRows = m_server->pullAll(ann);
        QCOMPARE(annRows.rows["accounts/joint"]["is_shared"].toInt(), 0);
        QCOMPARE(annRows.rows["transactions/vet"]["amount"].toInt(), -4000);
    }

    void nobodyElseReadsOrChanges_data()
    {
        QTest::addColumn<QString>("who");
        QTest::newRow("outsider") << "eve";
        QTest::newRow("group member without the share") << "cleo";
        QTest::newRow("member after withdrawal") << "dan";
    }

    void nobodyElseReadsOrChanges()
    {
        QFETCH(QString, who);
        shareJoint();
        const TestUser &actor = user(who);
        const PulledRows annBefore = m_server->pullAll(user("ann"));
        const PulledRows seen = m_server->pullAll(actor);
        QVERIFY(seen.ok && seen.rows.isEmpty());
        for (const QString account : {"joint", "private"}) {
            const QString path = "/ombrel/v1/accounts/" + account;
            QCOMPARE(m_server->get(path + "/members", actor.accessToken).status, 404);
            // clang-format off
            QCOMPARE(m_server->post(path + "/share", {{"user_id", actor.id}}, actor.accessToken).status, 404);
            // clang-format on
            QCOMPARE(m_server->del(path + "/share/" + user("bob").id, actor.accessToken).status, 404);
        }
        // Guessed ids in every kind of change: refused, or kept as the actor's own rows; never Ann's.
        m_server->push(actor, {change("account", "joint", 99, R"({"name":"Mine"})"),
                               change("transaction", "vet", 99, R"({"account_id":"joint","amount":1})"),
                               change("transaction", "secret", 99, R"({"account_id":"joint","amount":1})"),
                               change("transaction", "new", 1, R"({"account_id":"joint"})"),
                               change("reconciliation", "march", 99, R"({"account_id":"joint"})"),
                               change("category", "pets", 99, R"({"name":"Mine"})")});
        QCOMPARE(m_server->pullAll(user("ann"), 200, &annBefore).rows.keys(), QStringList());
        QCOMPARE(m_server->pullAll(user("ann")).rows, annBefore.rows);
        QCOMPARE(m_server->pullAll(user("bob")).rows["transactions/vet"]["amount"].toInt(), -4000);
    }

    void versionRule_data()
    {
        addColumns<qint64, bool>({"pushed", "stored"});
        QTest::newRow("older") << qint64(2) << false;
        QTest::newRow("same") << qint64(3) << true;
        QTest::newRow("newer") << qint64(4) << true;
    }

    void versionRule()
    {
        QFETCH(qint64, pushed);
        QFETCH(bool, stored);
        const TestUser &ann = user("ann");
        QCOMPARE(m_server->push(ann, {account("a-1", 3, "First")}).at(0)["status"].toString(),
                 QStringLiteral("ok"));
        const QJsonValue result = m_server->push(ann, {account("a-1", pushed, "Second")}).at(0);
        QCOMPARE(result["status"].toString() == "ok", stored);
        QCOMPARE(result["entity_id"].toString(), QStringLiteral("a-1"));
        QVERIFY(stored || !result["message"].toString().isEmpty());
        const QJsonObject row = m_server->pullAll(ann).rows["accounts/a-1"];
        QCOMPARE(row["name"].toString(), stored ? QStringLiteral("Second") : QStringLiteral("First"));
        QCOMPARE(row["version"].toInteger(), stored ? pushed : 3);
    }

    void repeatedPushIsStoredOnce()
    {
        const QJsonArray changes{account("a-1"), transaction("t-1", "a-1", -500)};
        const QJsonArray first = m_server->push(user("ann"), changes);
        const PulledRows before = m_server->pullAll(user("ann"));
        // The network stack sends the same request again after a dropped connection.
        QCOMPARE(m_server->push(user("ann"), changes), first);
        const PulledRows after = m_server->pullAll(user("ann"), 200, &before);
        QVERIFY2(after.ok && after.rows.isEmpty(), "a repeated push must not look like a new change");
    }

    // The seeded categories have one id on every device of every user.
    void rowsAreKeptPerUser()
    {
        const QString category = R"({"name":"%1","category_type":"expense","is_default":1})";
        // clang-format off
        for (const auto &[who, name] : {std::pair{"ann", "Groceries"}, {"bob", "Food"}})
            QCOMPARE(m_server->push(user(who), {change("category", "seeded-1", 1, category.arg(name))}).at(0)["status"], QStringLiteral("ok"));
        for (const auto &[who, name] : {std::pair{"ann", "Groceries"}, {"bob", "Food"}})
            QCOMPARE(m_server->pullAll(user(who)).rows["categories/seeded-1"]["name"].toString(), name);
        // clang-format on
    }

    void pagesKeepParentsAheadOfChildren()
    {
        const TestUser &ann = user("ann");
        // Children first written, then their parents edited: by change number every parent now stands
        // behind its children, which is what page boundaries must survive.
        QJsonArray parents, children, edits;
        for (int a = 0; a < 10; ++a)
            parents.append(account(QStringLiteral("a-%1").arg(a)));
        for (int c = 0; c < 20; ++c)
            parents.append(
                change("category", QStringLiteral("c-%1").arg(c), 1,
                       QStringLiteral(R"({"name":"Category","category_type":"expense","parent_id":"%1"})")
                           .arg(c < 5 ? QString() : QStringLiteral("c-%1").arg(c % 5))));
        QCOMPARE(m_server->push(ann, parents).size(), 30);
        for (int n = 0; n < 970; ++n)
            children.append(transaction(QStringLiteral("t-%1").arg(n), QStringLiteral("a-%1").arg(n % 10), -n,
                                        QStringLiteral("c-%1").arg(n % 20)));
        QCOMPARE(m_server->push(ann, children).size(), 970);
        for (const QJsonValue &p : std::as_const(parents)) {
            QJsonObject edit = p.toObject();
            edit["version"] = 2;
            edits.append(edit);
        }
        m_server->push(ann, edits);
        // The children came in one push, in one instant: a page boundary among them loses none.
        for (const auto &[limit, pages] : {
                 std::pair{7,   143},
                 std::pair{200, 5  }
        }) {
            const PulledRows pulled = m_server->pullAll(ann, limit);
            QVERIFY(pulled.ok && pulled.orphans.isEmpty());
            QCOMPARE(pulled.pages, pages);
            QCOMPARE(pulled.rows.size(), 1000);
            QCOMPARE(pulled.rows["accounts/a-3"]["version"].toInteger(), 2);
            // The cursor reads as a date-time, for the program's "Last synced".
            QVERIFY(QDateTime::fromString(pulled.cursor, Qt::ISODate).isValid());
        }
        // A device that is up to date gets only what changed since, and still no orphan.
        const PulledRows upToDate = m_server->pullAll(ann);
        m_server->push(ann, {transaction("t-new", "a-1", -1, "c-7")});
        const PulledRows next = m_server->pullAll(ann, 200, &upToDate);
        QCOMPARE(next.rows.keys(), QStringList{"transactions/t-new"});
        QCOMPARE(next.orphans, QStringList());
    }

    // Bad input is refused, whole or change by change, and loses nothing already stored.
    void badInput_data()
    {
        addColumns<QByteArray, QString, QByteArray, int>({"method", "path", "body", "status"});
        const QString push = QStringLiteral("/ombrel/v1/sync/push");
        const QByteArray big = "{\"changes\": [\"" + QByteArray(10 * 1024 * 1024, 'x') + "\"]}";
        // One bad change before a good one in a push the server takes.
        const auto bad = [](const QByteArray &from, const QByteArray &to) {
            const QByteArray good =
                R"({"entity_type":"account","entity_id":"a-1","action":"upsert","version":1,"payload":{}})";
            return "{\"changes\": [" + QByteArray(good).replace("a-1", "x").replace(from, to) + "," + good +
                   "]}";
        };
        // clang-format off
        QTest::newRow("not JSON")       << QByteArray("POST") << push << QByteArray("{\"changes\": [") << 400;
        QTest::newRow("array")          << QByteArray("POST") << push << QByteArray("[]") << 400;
        QTest::newRow("no body")        << QByteArray("POST") << push << QByteArray() << 400;
        QTest::newRow("changes object") << QByteArray("POST") << push << QByteArray(R"({"changes": {}})") << 400;
        QTest::newRow("changes text")   << QByteArray("POST") << push << QByteArray(R"({"changes": "x"})") << 400;
        QTest::newRow("10 MiB")         << QByteArray("POST") << push << big << 413;
        QTest::newRow("share array")    << QByteArray("POST") << "/ombrel/v1/accounts/a-1/share" << QByteArray("[1]") << 400;
        QTest::newRow("refresh number") << QByteArray("POST") << kApi + "/auth/token/refresh" << QByteArray(R"({"refresh_token": 5})") << 400;
        QTest::newRow("device without fingerprint") << QByteArray("POST") << "/account/v1/devices/register" << QByteArray(R"({"device_name": []})") << 400;
        QTest::newRow("name number")    << QByteArray("PATCH") << kApi + "/users/me" << QByteArray(R"({"display_name": 3})") << 400;
        QTest::newRow("invite email array") << QByteArray("POST") << "/account/v1/group/invite" << QByteArray(R"({"email": ["x@y.z"]})") << 400;
        QTest::newRow("change not an object") << QByteArray("POST") << push << bad(R"({"entity_type":"account","entity_id":"x","action":"upsert","version":1,"payload":{}})", "17") << 200;
        QTest::newRow("unknown type")     << QByteArray("POST") << push << bad("account", "split") << 200;
        QTest::newRow("id number")        << QByteArray("POST") << push << bad("\"x\"", "5") << 200;
        QTest::newRow("version text")     << QByteArray("POST") << push << bad(":1,", ":\"1\",") << 200;
        QTest::newRow("version fraction") << QByteArray("POST") << push << bad(":1,", ":1.5,") << 200;
        QTest::newRow("unknown action")   << QByteArray("POST") << push << bad("upsert", "merge") << 200;
        QTest::newRow("payload array")    << QByteArray("POST") << push << bad("{}", "[]") << 200;
        QTest::newRow("no account")       << QByteArray("POST") << push << bad(R"("account","entity_id":"x","action":"upsert","version":1,"payload":{})",
                                                                             R"("transaction","entity_id":"x","action":"upsert","version":1,"payload":{"amount":1})") << 200;
        // clang-format on
    }

    void badInput()
    {
        QFETCH(QByteArray, method);
        QFETCH(QString, path);
        QFETCH(QByteArray, body);
        QFETCH(int, status);
        m_server->push(user("ann"), {account("a-1")});
        const HttpResult r = m_server->request(method, path, body, user("ann").accessToken);
        QCOMPARE(r.status, status);
        const QJsonArray results = r.json["results"].toArray();
        if (status == 200) {
            QCOMPARE(results.size(), 2);
            QVERIFY(results[0]["status"].toString() != "ok" && !results[0]["message"].toString().isEmpty());
            QCOMPARE(results[1]["status"].toString(), QStringLiteral("ok"));
        } else {
            QVERIFY(!r.json["error"].toString().isEmpty());
        }
        // Still serving, and nothing was lost.
        QCOMPARE(m_server->pullAll(user("ann")).rows.keys(), QStringList{"accounts/a-1"});
    }

    // A release as the publishing tool makes it, served beside the notes; nothing else of the folder.
    void servesARelease()
    {
        const QString channel = m_server->dataDir() + "/channel";
        QVERIFY(QDir().mkpath(channel));
        const QByteArray installer(123457, 'z');
        const auto write = [](const QString &path, const QByteArray &data) {
            QFile f(path);
            return f.open(QIODevice::WriteOnly) && f.write(data) == data.size();
        };
        for (const char *file : {"release-notes.md", "release-notes.de.md", "secret.txt"})
            QVERIFY(write(channel + "/" + file, QByteArray("content of ") + file));
        QVERIFY(write(m_server->dataDir() + "/setup.exe", installer));
        const auto tool = [&](const QStringList &arguments) {
            QProcess process;
            process.start(OMBREL_MAKE_UPDATE_MANIFEST,
                          arguments + QStringList{"--file", m_server->dataDir() + "/setup.exe"});
            return process.waitForFinished(30000) ? process.exitCode() : -1;
        };
        QCOMPARE(tool({"--version", "1.2.0", "--url", "https://downloads.example.org/ombrel-1.2.0.exe",
                       "--notes-url", "https://downloads.example.org/notes.md", "--output",
                       channel + "/latest.json"}),
                 0);
        QVERIFY(tool({"--version", "1.2.0-rc1", "--url", "https://x.org/a"}) > 0);
        m_server->options().channelDir = channel;
        QVERIFY(m_server->start());
        for (const char *name : {"release-notes.md", "release-notes.de.md"})
            QCOMPARE(m_server->get(QStringLiteral("/ombrel/stable/") + name).body,
                     QByteArray("content of ") + name);
        for (const char *name : {"release-notes.es.md", "secret.txt", "..%2Fserver.db"})
            QCOMPARE(m_server->get(QStringLiteral("/ombrel/stable/") + name).status, 404);
        const HttpResult latest = m_server->get("/ombrel/stable/latest.json");
        QCOMPARE(QString::number(latest.json["schema"].toInt()) + latest.json["app"].toString() +
                     latest.json["channel"].toString(),
                 QStringLiteral("1ombrelstable"));
        const QJsonObject artifact = latest.json["artifacts"]["windows-x64"].toObject();
        const QString sha256 =
            QString::fromLatin1(QCryptographicHash::hash(installer, QCryptographicHash::Sha256).toHex());
        QCOMPARE(
            QStringList({artifact["version"].toString(), QString::number(qint64(artifact["size"].toDouble())),
                         artifact["sha256"].toString(), QString::number(artifact["mandatory"].toBool(true))}),
            QStringList({"1.2.0", "123457", sha256, "0"}));
        QVERIFY(QDateTime::fromString(artifact["released_at"].toString(), Qt::ISODate).isValid());
    }

private:
    // The user of this name, signed up on first use.
    TestUser &user(const QString &name)
    {
        // A map, not a hash: references to earlier users outlive the next sign-up.
        if (!m_users.count(name))
            m_users[name] = m_server->signUp(name + QStringLiteral("@example.org"));
        return m_users[name];
    }
    QJsonObject profile(const char *who)
    {
        return m_server->get("/account/v1/profile", user(who).accessToken).json;
    }
    int status(const TestUser &u) { return m_server->get(kApi + "/users/me", u.accessToken).status; }

    // Ann owns the account "joint" and shares it with Bob; Cleo is in the group without the share; Dan
    // had the share and lost it; Eve is in no group.
    void shareJoint()
    {
        for (const char *member : {"bob", "cleo", "dan"})
            QVERIFY(m_server->joinGroup(user("ann"), user(member)));
        QVERIFY(!user("eve").id.isEmpty());
        const QJsonArray rows{
            change("account", "joint", 4, R"({"name":"Joint","is_shared":0})"),
            change("account", "private", 1, R"({"name":"Private"})"),
            change("category", "pets", 1, R"({"name":"Pets","category_type":"expense"})"),
            change("recurring", "rent", 1, R"({"account_id":"joint","amount":-90000})"),
            change("transaction", "vet", 1, R"({"account_id":"joint","amount":-4000,"category_id":"pets"})"),
            change("transaction", "secret", 1, R"({"account_id":"private","amount":-1})"),
            change("reconciliation", "march", 1, R"({"account_id":"joint","statement_date":"2025-03-31"})"),
        };
        QCOMPARE(m_server->push(user("ann"), rows).size(), rows.size());
        const QString token = user("ann").accessToken;
        for (const char *member : {"bob", "dan"})
            // clang-format off
            QCOMPARE(m_server->post("/ombrel/v1/accounts/joint/share", {{"user_id", user(member).id}}, token).status, 200);
        // clang-format on
        QCOMPARE(m_server->del("/ombrel/v1/accounts/joint/share/" + user("dan").id, token).status, 204);
    }

    std::unique_ptr<TestServer> m_server;
    std::map<QString, TestUser> m_users;
};

QTEST_GUILESS_MAIN(TstServer)
#include "tst_server.moc"
