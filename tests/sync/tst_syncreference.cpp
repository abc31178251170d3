#include "core/Dates.h"
#include "server/Server.h"
#include "support/Fixtures.h"
#include "support/SyncDevice.h"

#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

// Devices of the program against the reference server, on 127.0.0.1.
class TstSyncReference : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void twoDevicesInStep();
    void sharedAccountEditedByAMember();
    void forceFullSyncFromAWipedTimestamp();

private:
    QJsonObject call(const QByteArray &verb, const QString &path, const ServerUser &user,
                     const QJsonObject &body = {});
    static QStringList liveRows(SyncDevice &device);

    QTemporaryDir m_serverDir;
    std::unique_ptr<OmbrelServer::Server> m_server;
    QUrl m_syncBase;
    ServerUser m_alice;
    ServerUser m_bob;
};

namespace {

Transaction registerEdit(Transaction t, const QString &payee)
{
    t.payee = payee;
    ++t.version;
    t.syncStatus = SyncStatus::Pending;
    t.updatedAt = utcNow();
    return t;
}

} // namespace

void TstSyncReference::initTestCase()
{
    OmbrelServer::ServerOptions options;
    options.dataDir = m_serverDir.path();
    options.port = 0;
    m_server = std::make_unique<OmbrelServer::Server>(options);
    QString error;
    QVERIFY2(m_server->start(&error), qPrintable(error));
    m_syncBase = m_server->baseUrl();
    m_syncBase.setPath(QStringLiteral("/ombrel/v1"));
    m_alice = signUpUser(m_server->baseUrl(), QStringLiteral("alice@example.test"));
    m_bob = signUpUser(m_server->baseUrl(), QStringLiteral("bob@example.test"));
    QVERIFY(!m_alice.accessToken.isEmpty() && !m_bob.accessToken.isEmpty());
}

QJsonObject TstSyncReference::call(const QByteArray &verb, const QString &path, const ServerUser &user,
                                   const QJsonObject &body)
{
    QNetworkAccessManager network;
    QUrl url = m_server->baseUrl();
    url.setPath(path);
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    request.setRawHeader("Authorization", "Bearer " + user.accessToken.toUtf8());
    QNetworkReply *reply = network.sendCustomRequest(request, verb, QJsonDocument(body).toJson());
    QSignalSpy finished(reply, &QNetworkReply::finished);
    if (!finished.wait(10000))
        return {};
    reply->deleteLater();
    return QJsonDocument::fromJson(reply->readAll()).object();
}

QStringList TstSyncReference::liveRows(SyncDevice &device)
{
    const QString live = QStringLiteral("deleted_at IS NULL");
    return device.dump(QStringLiteral("accounts"), live) + device.dump(QStringLiteral("transactions"), live);
}

void TstSyncReference::twoDevicesInStep()
{
    SyncDevice laptop(m_syncBase, m_alice), desktop(m_syncBase, m_alice);
    QVERIFY(laptop.activate());
    QVERIFY(laptop.accounts->insert(Fixtures::account(QStringLiteral("acct-1"), QStringLiteral("Checking"))));
    for (int i = 1; i <= 3; ++i)
        QVERIFY(laptop.transactions->insert(
            Fixtures::transaction(QStringLiteral("t-%1").arg(i), QStringLiteral("acct-1"), QDate(2024, 5, i),
                                  QStringLiteral("Payee %1").arg(i), -100 * i)));
    QVERIFY(laptop.recurring->insert(
        Fixtures::rule(QStringLiteral("rent"), QStringLiteral("acct-1"), QDate(2024, 6, 1), -90000)));
    QVERIFY(laptop.sync());
    QCOMPARE(laptop.scalar(QStringLiteral("SELECT count(*) FROM transactions WHERE sync_status='pending'")),
             0);
    const QStringList first = liveRows(laptop);
    laptop.deactivate();

    QVERIFY(desktop.activate());
    QVERIFY(desktop.sync());
    QCOMPARE(liveRows(desktop), first);
    QVERIFY(desktop.transactions->update(
        registerEdit(*desktop.transactions->getById(QStringLiteral("t-2")), QStringLiteral("Edited"))));
    // A rule's version travels only in the change object; the device must still learn the server's
    // version, or its own later edit of the rule goes out older than the server's and is refused.
    RecurringTransaction rent = *desktop.recurring->getById(QStringLiteral("rent"));
    rent.amount = -95000;
    rent.syncStatus = SyncStatus::Pending;
    QVERIFY(desktop.recurring->update(rent));
    QVERIFY(desktop.sync());
    QCOMPARE(desktop.scalar(QStringLiteral("SELECT sync_status FROM recurring_transactions")),
             QStringLiteral("synced"));
    desktop.deactivate();

    QVERIFY(laptop.activate());
    QVERIFY(laptop.sync());
    QCOMPARE(laptop.transactions->getById(QStringLiteral("t-2"))->payee, QStringLiteral("Edited"));
    QCOMPARE(laptop.recurring->getById(QStringLiteral("rent"))->amount, -95000);
    QVERIFY(laptop.transactions->softDelete(QStringLiteral("t-3")));
    QVERIFY(laptop.sync());
    const QStringList afterDelete = liveRows(laptop);
    laptop.deactivate();

    QVERIFY(desktop.activate());
    QVERIFY(desktop.sync());
    QVERIFY(desktop.transactions->getById(QStringLiteral("t-3"))->deletedAt);
    QCOMPARE(liveRows(desktop), afterDelete);
}

void TstSyncReference::sharedAccountEditedByAMember()
{
    const QJsonObject invitation = call("POST", QStringLiteral("/account/v1/group/invite"), m_alice,
                                        {
                                            {"email", m_bob.email}
    });
    const QString code = invitation.value(QLatin1String("invite_code")).toString();
    QVERIFY(!code.isEmpty());
    call("POST", QStringLiteral("/account/v1/group/join/%1").arg(code), m_bob);

    SyncDevice aliceDevice(m_syncBase, m_alice), bobDevice(m_syncBase, m_bob);
    QVERIFY(aliceDevice.activate());
    QVERIFY(
        aliceDevice.accounts->insert(Fixtures::account(QStringLiteral("joint"), QStringLiteral("Joint"))));
    QVERIFY(aliceDevice.transactions->insert(Fixtures::transaction(QStringLiteral("groceries"),
                                                                   QStringLiteral("joint"), QDate(2024, 6, 1),
                                                                   QStringLiteral("Market"), -5400)));
    QVERIFY(aliceDevice.sync());
    bool shared = false;
    QString shareError;
    aliceDevice.sharing->shareWith(QStringLiteral("joint"), m_bob.email, QString(),
                                   [&](bool success, const QString &error) {
                                       shared = success;
                                       shareError = error.isEmpty() ? QStringLiteral("none") : error;
                                   });
    QTRY_VERIFY_WITH_TIMEOUT(!shareError.isEmpty(), 10000);
    QVERIFY2(shared, qPrintable(shareError));
    aliceDevice.deactivate();

    QVERIFY(bobDevice.activate());
    QVERIFY(bobDevice.sync());
    const auto joint = bobDevice.accounts->getById(QStringLiteral("joint"));
    QVERIFY(joint);
    QVERIFY(joint->isShared);
    QVERIFY(bobDevice.transactions->update(registerEdit(
        *bobDevice.transactions->getById(QStringLiteral("groceries")), QStringLiteral("Farmers market"))));
    QVERIFY(bobDevice.sync());
    QCOMPARE(bobDevice.scalar(QStringLiteral("SELECT sync_status FROM transactions WHERE id='groceries'")),
             QStringLiteral("synced"));
    bobDevice.deactivate();

    QVERIFY(aliceDevice.activate());
    QVERIFY(aliceDevice.sync());
    QCOMPARE(aliceDevice.transactions->getById(QStringLiteral("groceries"))->payee,
             QStringLiteral("Farmers market"));
}

void TstSyncReference::forceFullSyncFromAWipedTimestamp()
{
    SyncDevice source(m_syncBase, m_alice), wiped(m_syncBase, m_alice);
    QVERIFY(source.activate());
    QVERIFY(
        source.accounts->insert(Fixtures::account(QStringLiteral("acct-full"), QStringLiteral("Savings"))));
    QVERIFY(source.transactions->insert(Fixtures::transaction(QStringLiteral("t-full"),
                                                              QStringLiteral("acct-full"), QDate(2024, 7, 1),
                                                              QStringLiteral("Interest"), 12)));
    QVERIFY(source.sync());
    const QStringList expected = liveRows(source);
    source.deactivate();

    QVERIFY(wiped.activate());
    QVERIFY(wiped.sync());
    QCOMPARE(liveRows(wiped), expected);
    // Rows lost locally by hand: only a full pull brings them back.
    QVERIFY(QSqlQuery(wiped.database->connection()).exec(QStringLiteral("DELETE FROM transactions")));
    QVERIFY(wiped.accounts->markAllPendingForResync() >= 0);
    QVERIFY(wiped.transactions->markAllPendingForResync() >= 0);
    QVERIFY(wiped.preferences->remove(QStringLiteral("lastSyncTimestamp")));
    QVERIFY(wiped.sync());
    QCOMPARE(liveRows(wiped), expected);
    QCOMPARE(wiped.scalar(QStringLiteral("SELECT count(*) FROM accounts WHERE sync_status='pending'")), 0);
}

QTEST_MAIN(TstSyncReference)
#include "tst_syncreference.moc"
