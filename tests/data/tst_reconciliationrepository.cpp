#include "core/Dates.h"
#include "support/Fixtures.h"
#include "support/TempStore.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

namespace {
Reconciliation record(const char *id, const QDate &statementDate)
{
    Reconciliation r;
    r.id = QLatin1String(id);
    r.accountId = QStringLiteral("a");
    r.statementDate = statementDate;
    r.statementBalance = 150000;
    r.reconciledBalance = 149900;
    r.completedAt = QDateTime(statementDate, QTime(10, 0), Qt::UTC);
    return r;
}
} // namespace

class TstReconciliationRepository : public QObject {
    Q_OBJECT
    std::optional<TempStore> m_store;
    ReconciliationRepository *m_repo = nullptr;

private slots:
    void init()
    {
        m_store.reset();
        m_store.emplace();
        QVERIFY(m_store->ok);
        QVERIFY(m_store->accounts.insert(Fixtures::account("a", "A")) &&
                m_store->accounts.insert(Fixtures::account("b", "B")));
        m_repo = &m_store->reconciliations;
    }

    void insertFillsMissingTimesAndMoves()
    {
        const QDateTime before = utcNow();
        QVERIFY(m_repo->insert(record("r1", QDate(2026, 1, 31))));
        const auto read = m_repo->getById(QStringLiteral("r1"));
        QVERIFY(read && read->createdAt >= before && read->createdAt <= utcNow());
        QCOMPARE(read->updatedAt, read->createdAt);
        QCOMPARE(read->reconciledBalance, qint64(149900));
        QVERIFY(m_repo->insert(record("r2", QDate(2026, 2, 28))));
        QCOMPARE(m_repo->getLatest(QStringLiteral("a"))->id, QStringLiteral("r2"));
        QCOMPARE(m_repo->getByAccount(QStringLiteral("a")).first().id, QStringLiteral("r2"));

        Reconciliation moved = *read;
        moved.accountId = QStringLiteral("b");
        moved.updatedAt = utcNow();
        QVERIFY(m_repo->update(moved));
        QCOMPARE(m_repo->getByAccount(QStringLiteral("a")).size(), 1);
        QCOMPARE(m_repo->getByAccount(QStringLiteral("b")).size(), 1);
    }

    void restoredWithAccountComeBackPending()
    {
        QVERIFY(m_repo->insert(record("r1", QDate(2026, 1, 31))));
        QVERIFY(m_repo->markSynced(QStringLiteral("r1"), QStringLiteral("srv")));
        const QDateTime deletedAt = utcNow();
        QCOMPARE(m_repo->softDeleteByAccount(QStringLiteral("a")), 1);
        QVERIFY(m_repo->getLatest(QStringLiteral("a")) == std::nullopt);
        QSignalSpy changed(m_repo, &ReconciliationRepository::reconciliationsChanged);
        QCOMPARE(m_repo->restoreByAccount(QStringLiteral("a"), timestampText(deletedAt.addSecs(-10))), 1);
        QCOMPARE(changed.size(), 1);
        const auto read = m_repo->getById(QStringLiteral("r1"));
        QCOMPARE(read->syncStatus, SyncStatus::Pending);
        QVERIFY(!read->deletedAt);
        QCOMPARE(read->serverId, QStringLiteral("srv"));
    }
};

QTEST_GUILESS_MAIN(TstReconciliationRepository)
#include "tst_reconciliationrepository.moc"
