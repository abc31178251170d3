#include "data/AccountRepository.h"
#include "support/Fixtures.h"
#include "support/TempDatabase.h"

#include <QSignalSpy>
#include <QTest>

class TstAccountRepository : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void roundTripsEveryField();
    void listsBySortOrderThenName();
    void softDeletedAccountIsFoundById();
    void markAllPendingForResync();
    void reorderOfNothingCommitsAndEmits();
    void failedReorderChangesNothing();

private:
    TempDatabase *m_db = nullptr;
    AccountRepository *m_repo = nullptr;
};

void TstAccountRepository::init()
{
    m_db = new TempDatabase;
    QVERIFY(m_db->open());
    m_repo = new AccountRepository(m_db->database());
}

void TstAccountRepository::cleanup()
{
    delete m_repo;
    delete m_db;
}

void TstAccountRepository::roundTripsEveryField()
{
    Account a = Fixtures::account(QStringLiteral("a1"), QStringLiteral("Visa"), -12345);
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
    QVERIFY(read);
    QCOMPARE(read->accountType, AccountType::CreditCard);
    QCOMPARE(read->currency, Currency::JPY);
    QCOMPARE(read->startingBalance, qint64(-12345));
    QCOMPARE(read->accountNumberLast4, QStringLiteral("0042"));
    QCOMPARE(read->sortOrder, 3);
    QVERIFY(read->isShared);
    QCOMPARE(read->version, 7);
    QCOMPARE(read->syncStatus, SyncStatus::Synced);
    QCOMPARE(read->createdAt, a.createdAt);
    QVERIFY(!read->deletedAt);
}

void TstAccountRepository::listsBySortOrderThenName()
{
    const struct {
        const char *id;
        const char *name;
        int order;
    } rows[] = {
        {"a", "savings", 1},
        {"b", "Savings", 1},
        {"c", "Zeta",    0},
        {"d", "Alpha",   2},
    };
    for (const auto &r : rows) {
        Account a = Fixtures::account(QString::fromLatin1(r.id), QString::fromLatin1(r.name));
        a.sortOrder = r.order;
        QVERIFY(m_repo->insert(a));
    }
    QStringList ids;
    for (const Account &a : m_repo->getAll())
        ids << a.id;
    // Binary order puts the capital before the small letter.
    QCOMPARE(ids, (QStringList{"c", "b", "a", "d"}));
}

void TstAccountRepository::softDeletedAccountIsFoundById()
{
    QVERIFY(m_repo->insert(Fixtures::account(QStringLiteral("a1"), QStringLiteral("Cash"))));
    QVERIFY(m_repo->softDelete(QStringLiteral("a1")));
    QVERIFY(m_repo->getAll().isEmpty());
    const auto read = m_repo->getById(QStringLiteral("a1"));
    QVERIFY(read && read->deletedAt);
    QCOMPARE(m_repo->getDeleted().size(), 1);
    QCOMPARE(m_repo->getPending().size(), 1);

    QVERIFY(m_repo->restore(QStringLiteral("a1")));
    QVERIFY(!m_repo->getById(QStringLiteral("a1"))->deletedAt);
}

void TstAccountRepository::markAllPendingForResync()
{
    QVERIFY(m_repo->insert(Fixtures::account(QStringLiteral("a1"), QStringLiteral("One"))));
    QVERIFY(m_repo->insert(Fixtures::account(QStringLiteral("a2"), QStringLiteral("Two"))));
    QVERIFY(m_repo->markSynced(QStringLiteral("a1"), QStringLiteral("s1")));
    QVERIFY(m_repo->markSynced(QStringLiteral("a2"), QStringLiteral("s2")));
    QVERIFY(m_repo->softDelete(QStringLiteral("a2")));
    QVERIFY(m_repo->markSynced(QStringLiteral("a2"), QStringLiteral("s2")));

    QSignalSpy changed(m_repo, &AccountRepository::accountsChanged);
    QCOMPARE(m_repo->markAllPendingForResync(), 1); // the deleted one stays as it is
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_repo->markAllPendingForResync(), 0);
    QCOMPARE(changed.size(), 1);
}

void TstAccountRepository::reorderOfNothingCommitsAndEmits()
{
    QSignalSpy changed(m_repo, &AccountRepository::accountsChanged);
    QVERIFY(m_repo->reorder({}));
    QCOMPARE(changed.size(), 1);
}

void TstAccountRepository::failedReorderChangesNothing()
{
    for (const char *id : {"a", "b", "c"})
        QVERIFY(m_repo->insert(Fixtures::account(QString::fromLatin1(id), QString::fromLatin1(id))));
    QVERIFY(m_db->exec(QStringLiteral("CREATE TRIGGER refuse_b BEFORE UPDATE ON accounts WHEN new.id = 'b' "
                                      "BEGIN SELECT RAISE(ABORT, 'refused'); END")));
    QSignalSpy changed(m_repo, &AccountRepository::accountsChanged);
    QVERIFY(!m_repo->reorder({
        {QStringLiteral("a"), 5},
        {QStringLiteral("b"), 6},
        {QStringLiteral("c"), 7}
    }));
    QCOMPARE(changed.size(), 0);
    QCOMPARE(m_db->scalar(QStringLiteral("SELECT SUM(sort_order) FROM accounts")).toInt(), 0);
}

QTEST_GUILESS_MAIN(TstAccountRepository)
#include "tst_accountrepository.moc"
