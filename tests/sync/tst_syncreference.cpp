#include "support/Fixtures.h"
#include "support/ReferenceServer.h"

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
    ReferenceServer m_server;
    ServerUser m_alice, m_bob;
};

namespace {

// An edit in the register: a committed row goes one version up.
bool registerEdit(SyncDevice &device, const QString &id, const QString &payee)
{
    return device.exec(
        QStringLiteral("UPDATE transactions SET payee = '%1', version = version + 1, sync_status = 'pending' "
                       "WHERE id = '%2'")
            .arg(payee, id));
}

// A device whose account holds the given payees, one a day from the first of the month, pushed.
bool seeded(SyncDevice &device, const QString &account, const QDate &first, const QStringList &payees)
{
    bool ok = device.activate() && device.accounts->insert(Fixtures::account(account, account));
    for (int i = 0; i < payees.size(); ++i)
        ok = ok && device.transactions->insert(Fixtures::transaction(
                       account + QString::number(i), account, first.addDays(i), payees[i], -100 * (i + 1)));
    return ok;
}

} // namespace

void TstSyncReference::initTestCase()
{
    QVERIFY(m_server.start());
    m_alice = m_server.signUp(QStringLiteral("alice@example.test"));
    m_bob = m_server.signUp(QStringLiteral("bob@example.test"));
    QVERIFY(!m_alice.accessToken.isEmpty() && !m_bob.accessToken.isEmpty());
}

void TstSyncReference::twoDevicesInStep()
{
    SyncDevice laptop(m_server.syncBase(), m_alice), desktop(m_server.syncBase(), m_alice);
    QVERIFY(seeded(laptop, QStringLiteral("t"), QDate(2024, 5, 1), {"Payee 1", "Payee 2", "Payee 3"}));
    QVERIFY(laptop.recurring->insert(
        Fixtures::rule(QStringLiteral("rent"), QStringLiteral("t"), QDate(2024, 6, 1), -90000)));
    QVERIFY(laptop.sync());
    QCOMPARE(laptop.scalar(QStringLiteral("SELECT count(*) FROM transactions WHERE sync_status='pending'")),
             0);
    const QStringList first = laptop.snapshot();
    QCOMPARE(first.size(), 5);

    QVERIFY(desktop.sync());
    QCOMPARE(desktop.snapshot(), first);
    QVERIFY(registerEdit(desktop, QStringLiteral("t1"), QStringLiteral("Edited")));
    QVERIFY(desktop.transactions->softDelete(QStringLiteral("t2")));
    // A rule's version travels only in the change object; the device must still learn the server's
    // version, or its own later edit of the rule goes out older than the server's and is refused.
    QVERIFY(desktop.exec(
        QStringLiteral("UPDATE recurring_transactions SET amount=-95000, sync_status='pending'")));
    QVERIFY(desktop.sync());
    QCOMPARE(desktop.scalar(QStringLiteral("SELECT group_concat(sync_status) FROM recurring_transactions")),
             QStringLiteral("synced"));
    const QStringList edited = desktop.snapshot();
    QVERIFY(edited != first);

    QVERIFY(laptop.sync());
    QCOMPARE(laptop.snapshot(), edited);
}

void TstSyncReference::sharedAccountEditedByAMember()
{
    QVERIFY(m_server.makeGroup({m_alice, m_bob}));
    SyncDevice aliceDevice(m_server.syncBase(), m_alice), bobDevice(m_server.syncBase(), m_bob);
    QVERIFY(seeded(aliceDevice, QStringLiteral("joint"), QDate(2024, 6, 1), {"Market"}));
    QVERIFY(aliceDevice.sync());
    QString shareError;
    aliceDevice.sharing->shareWith(
        QStringLiteral("joint"), m_bob.email, QString(),
        [&](bool ok, const QString &error) { shareError = ok ? QStringLiteral("none") : error; });
    QTRY_VERIFY_WITH_TIMEOUT(!shareError.isEmpty(), 10000);
    QCOMPARE(shareError, QStringLiteral("none"));

    QVERIFY(bobDevice.sync());
    QCOMPARE(bobDevice.scalar(QStringLiteral("SELECT is_shared FROM accounts WHERE id='joint'")), 1);
    QVERIFY(registerEdit(bobDevice, QStringLiteral("joint0"), QStringLiteral("Farmers market")));
    QVERIFY(bobDevice.sync());
    QCOMPARE(bobDevice.scalar(QStringLiteral("SELECT sync_status FROM transactions")),
             QStringLiteral("synced"));

    QVERIFY(aliceDevice.sync());
    QCOMPARE(aliceDevice.scalar(QStringLiteral("SELECT payee FROM transactions WHERE id='joint0'")),
             QStringLiteral("Farmers market"));
}

void TstSyncReference::forceFullSyncFromAWipedTimestamp()
{
    SyncDevice source(m_server.syncBase(), m_alice), wiped(m_server.syncBase(), m_alice);
    QVERIFY(seeded(source, QStringLiteral("full"), QDate(2024, 7, 1), {"Interest"}));
    QVERIFY(source.sync());
    const QStringList expected = source.snapshot();

    QVERIFY(wiped.sync());
    QCOMPARE(wiped.snapshot(), expected);
    // Rows lost locally by hand: only a full pull brings them back.
    QVERIFY(wiped.exec(QStringLiteral("DELETE FROM transactions")));
    QVERIFY(wiped.accounts->markAllPendingForResync() >= 0);
    QVERIFY(wiped.transactions->markAllPendingForResync() >= 0);
    QVERIFY(wiped.preferences->remove(QStringLiteral("lastSyncTimestamp")));
    QVERIFY(wiped.sync());
    QCOMPARE(wiped.snapshot(), expected);
    QCOMPARE(wiped.scalar(QStringLiteral("SELECT count(*) FROM accounts WHERE sync_status='pending'")), 0);
}

QTEST_MAIN(TstSyncReference)
#include "tst_syncreference.moc"
