#include "support/Fixtures.h"
#include "support/TempStore.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

class TstAccountRepository : public QObject {
    Q_OBJECT
    std::optional<TempStore> m_store;
    AccountRepository *m_repo = nullptr;

    bool add(const char *id, const char *name, int sortOrder = 0)
    {
        Account a = Fixtures::account(QString::fromLatin1(id), QString::fromLatin1(name));
        a.sortOrder = sortOrder;
        return m_repo->insert(a);
    }

private slots:
    void init()
    {
        m_store.reset();
        m_store.emplace();
        QVERIFY(m_store->ok);
        m_repo = &m_store->accounts;
    }

    void roundTripsEveryField()
    {
        Account a = Fixtures::account("a1", "Visa", -12345);
        a.accountType = AccountType::CreditCard;
        a.currency = Currency::JPY;
        a.institution = QStringLiteral("Bank");
        a.accountNumberLast4 = QStringLiteral("0042");
        a.sortOrder = 3;
        a.isShared = true;
        a.version = 7;
        a.syncStatus = SyncStatus::Synced;
        a.serverId = QStringLiteral("srv-1");
        QSignalSpy changed(m_repo, &AccountRepository::accountsChanged);
        QVERIFY(m_repo->insert(a));
        QCOMPARE(changed.size(), 1);
        const auto read = m_repo->getById(QStringLiteral("a1"));
        QVERIFY(read && read->isShared && !read->deletedAt);
        QCOMPARE(read->accountType, AccountType::CreditCard);
        QCOMPARE(read->currency, Currency::JPY);
        QCOMPARE(read->startingBalance, qint64(-12345));
        QCOMPARE(read->accountNumberLast4, QStringLiteral("0042"));
        QCOMPARE(read->sortOrder, 3);
        QCOMPARE(read->version, 7);
        QCOMPARE(read->syncStatus, SyncStatus::Synced);
        QCOMPARE(read->createdAt, a.createdAt);
    }

    void listsBySortOrderThenName()
    {
        QVERIFY(add("a", "savings", 1) && add("b", "Savings", 1) && add("c", "Zeta") && add("d", "Alpha", 2));
        QStringList ids;
        for (const Account &a : m_repo->getAll())
            ids << a.id;
        // Binary order puts the capital before the small letter.
        QCOMPARE(ids, (QStringList{"c", "b", "a", "d"}));
    }

    void softDeletedAccountIsFoundById()
    {
        QVERIFY(add("a1", "Cash"));
        QVERIFY(m_repo->softDelete(QStringLiteral("a1")));
        QVERIFY(m_repo->getAll().isEmpty());
        QVERIFY(m_repo->getById(QStringLiteral("a1"))->deletedAt);
        QCOMPARE(m_repo->getDeleted().size(), 1);
        QCOMPARE(m_repo->getPending().size(), 1);
        QVERIFY(m_repo->restore(QStringLiteral("a1")));
        QVERIFY(!m_repo->getById(QStringLiteral("a1"))->deletedAt);
    }

    void markAllPendingForResync()
    {
        QVERIFY(add("a1", "One") && add("a2", "Two"));
        QVERIFY(m_repo->markSynced(QStringLiteral("a1"), QStringLiteral("s1")));
        QVERIFY(m_repo->softDelete(QStringLiteral("a2")));
        QVERIFY(m_repo->markSynced(QStringLiteral("a2"), QStringLiteral("s2")));
        QSignalSpy changed(m_repo, &AccountRepository::accountsChanged);
        QCOMPARE(m_repo->markAllPendingForResync(), 1); // the deleted one stays as it is
        QCOMPARE(changed.size(), 1);
        QCOMPARE(m_repo->markAllPendingForResync(), 0);
        QCOMPARE(changed.size(), 1);
    }

    void reorderIsAllOrNothing()
    {
        QSignalSpy changed(m_repo, &AccountRepository::accountsChanged);
        QVERIFY(m_repo->reorder({})); // nothing to do still commits and tells
        QCOMPARE(changed.size(), 1);
        QVERIFY(add("a", "a") && add("b", "b") && add("c", "c"));
        QVERIFY(m_store->db.exec(
            QStringLiteral("CREATE TRIGGER refuse_b BEFORE UPDATE ON accounts WHEN new.id = 'b' "
                           "BEGIN SELECT RAISE(ABORT, 'refused'); END")));
        changed.clear();
        QVERIFY(!m_repo->reorder({
            {QStringLiteral("a"), 5},
            {QStringLiteral("b"), 6},
            {QStringLiteral("c"), 7}
        }));
        QCOMPARE(changed.size(), 0);
        QCOMPARE(m_store->count(QStringLiteral("SELECT SUM(sort_order) FROM accounts")), 0);
    }
};

QTEST_GUILESS_MAIN(TstAccountRepository)
#include "tst_accountrepository.moc"
