#include "core/Dates.h"
#include "data/AccountRepository.h"
#include "data/ReconciliationRepository.h"
#include "support/Fixtures.h"
#include "support/TempDatabase.h"

#include <QSignalSpy>
#include <QTest>

class TstReconciliationRepository : public QObject {
    Q_OBJECT
private slots:
    void insertFillsMissingTimes();
    void restoredWithAccountComeBackPending();
    void updateMovesToAnotherAccount();
};

namespace {
Reconciliation record(const QString &id, const QString &accountId, const QDate &statementDate)
{
    Reconciliation r;
    r.id = id;
    r.accountId = accountId;
    r.statementDate = statementDate;
    r.statementBalance = 150000;
    r.reconciledBalance = 149900;
    r.completedAt = QDateTime(statementDate, QTime(10, 0), Qt::UTC);
    return r;
}
} // namespace

void TstReconciliationRepository::insertFillsMissingTimes()
{
    TempDatabase db;
    QVERIFY(db.open());
    QVERIFY(
        AccountRepository(db.database()).insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))));
    ReconciliationRepository repo(db.database());
    const QDateTime before = utcNow();
    QVERIFY(repo.insert(record(QStringLiteral("r1"), QStringLiteral("a"), QDate(2026, 1, 31))));
    const auto read = repo.getById(QStringLiteral("r1"));
    QVERIFY(read);
    QVERIFY(read->createdAt >= before && read->createdAt <= utcNow());
    QCOMPARE(read->updatedAt, read->createdAt);
    QCOMPARE(read->reconciledBalance, qint64(149900));

    QVERIFY(repo.insert(record(QStringLiteral("r2"), QStringLiteral("a"), QDate(2026, 2, 28))));
    QCOMPARE(repo.getLatest(QStringLiteral("a"))->id, QStringLiteral("r2"));
    QCOMPARE(repo.getByAccount(QStringLiteral("a")).first().id, QStringLiteral("r2"));
}

void TstReconciliationRepository::restoredWithAccountComeBackPending()
{
    TempDatabase db;
    QVERIFY(db.open());
    QVERIFY(
        AccountRepository(db.database()).insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))));
    ReconciliationRepository repo(db.database());
    QVERIFY(repo.insert(record(QStringLiteral("r1"), QStringLiteral("a"), QDate(2026, 1, 31))));
    QVERIFY(repo.markSynced(QStringLiteral("r1"), QStringLiteral("srv")));

    const QDateTime deletedAt = utcNow();
    QCOMPARE(repo.softDeleteByAccount(QStringLiteral("a")), 1);
    QVERIFY(repo.getLatest(QStringLiteral("a")) == std::nullopt);
    QSignalSpy changed(&repo, &ReconciliationRepository::reconciliationsChanged);
    QCOMPARE(repo.restoreByAccount(QStringLiteral("a"), timestampText(deletedAt.addSecs(-10))), 1);
    QCOMPARE(changed.size(), 1);
    const auto read = repo.getById(QStringLiteral("r1"));
    QCOMPARE(read->syncStatus, SyncStatus::Pending);
    QVERIFY(!read->deletedAt);
    QCOMPARE(read->serverId, QStringLiteral("srv"));
}

void TstReconciliationRepository::updateMovesToAnotherAccount()
{
    TempDatabase db;
    QVERIFY(db.open());
    AccountRepository accounts(db.database());
    QVERIFY(accounts.insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))));
    QVERIFY(accounts.insert(Fixtures::account(QStringLiteral("b"), QStringLiteral("B"))));
    ReconciliationRepository repo(db.database());
    Reconciliation r = record(QStringLiteral("r1"), QStringLiteral("a"), QDate(2026, 1, 31));
    QVERIFY(repo.insert(r));
    r.accountId = QStringLiteral("b");
    r.updatedAt = utcNow();
    QVERIFY(repo.update(r));
    QVERIFY(repo.getByAccount(QStringLiteral("a")).isEmpty());
    QCOMPARE(repo.getByAccount(QStringLiteral("b")).size(), 1);
}

QTEST_GUILESS_MAIN(TstReconciliationRepository)
#include "tst_reconciliationrepository.moc"
