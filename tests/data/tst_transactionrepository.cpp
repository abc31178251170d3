#include "core/Dates.h"
#include "data/AccountRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "support/TempDatabase.h"

#include <QSignalSpy>
#include <QTest>

using Fixtures::transaction;

namespace {
const QString kAccount = QStringLiteral("acc");
const QString kOther = QStringLiteral("other");
} // namespace

class TstTransactionRepository : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void runningBalance_data();
    void runningBalance();
    void openingRowIsDatedAtFirstTransaction();
    void sameDateRowsFollowEntryOrder();
    void softDeletedRowLeavesEveryListButById();
    void emptyCategoryIsStoredAsNull();
    void search_data();
    void search();
    void searchWithBadSyntaxGivesNothing();
    void searchStopsAt200();
    void cascadeRestoreKeepsEarlierDeletions();
    void bulkCallsWithNothingToDoDoNotEmit();
    void updateOfMissingRowSucceeds();
    void reconciledTotalCountsOnlyLiveReconciledRowsOfTheAccount();
    void pausedSearchIndexCatchesUpAtResume();

private:
    void addAccount(const QString &id, qint64 startingBalance = 0);

    TempDatabase *m_db = nullptr;
    AccountRepository *m_accounts = nullptr;
    TransactionRepository *m_repo = nullptr;
};

void TstTransactionRepository::init()
{
    m_db = new TempDatabase;
    QVERIFY(m_db->open());
    m_accounts = new AccountRepository(m_db->database());
    m_repo = new TransactionRepository(m_db->database());
}

void TstTransactionRepository::cleanup()
{
    delete m_repo;
    delete m_accounts;
    delete m_db;
}

void TstTransactionRepository::addAccount(const QString &id, qint64 startingBalance)
{
    QVERIFY(m_accounts->insert(Fixtures::account(id, id, startingBalance)));
}

void TstTransactionRepository::runningBalance_data()
{
    QTest::addColumn<qint64>("starting");
    QTest::addColumn<QList<qint64>>("amounts");  // one a day from 2026-01-01
    QTest::addColumn<QList<qint64>>("balances"); // opening row first when there is one
    QTest::newRow("no start, no rows") << qint64(0) << QList<qint64>{} << QList<qint64>{};
    QTest::newRow("start, no rows") << qint64(1000) << QList<qint64>{} << QList<qint64>{1000};
    QTest::newRow("negative start") << qint64(-500) << QList<qint64>{200, -50}
                                    << QList<qint64>{-500, -300, -350};
    QTest::newRow("payments and deposits")
        << qint64(0) << QList<qint64>{-1999, 250000, -1} << QList<qint64>{-1999, 248001, 248000};
}

void TstTransactionRepository::runningBalance()
{
    QFETCH(qint64, starting);
    QFETCH(QList<qint64>, amounts);
    QFETCH(QList<qint64>, balances);
    addAccount(kAccount, starting);
    for (int i = 0; i < amounts.size(); ++i) {
        QVERIFY(
            m_repo->insert(transaction(QStringLiteral("t%1").arg(i), kAccount, QDate(2026, 1, 1).addDays(i),
                                       QStringLiteral("Payee"), amounts.at(i))));
    }
    const QList<RegisterRow> rows = m_repo->getByAccountWithBalances(kAccount);
    QList<qint64> got;
    for (const RegisterRow &r : rows)
        got << r.runningBalance;
    QCOMPARE(got, balances);
    QCOMPARE(m_repo->getBalance(kAccount), balances.isEmpty() ? starting : balances.last());
    if (starting != 0) {
        const RegisterRow &opening = rows.first();
        QVERIFY(opening.id.isEmpty());
        QCOMPARE(opening.payee, QStringLiteral("Opening Balance"));
        QCOMPARE(opening.amount, starting);
        QVERIFY(opening.cleared && opening.reconciled);
        QCOMPARE(opening.date, amounts.isEmpty() ? QDate::currentDate() : QDate(2026, 1, 1));
    }
}

void TstTransactionRepository::openingRowIsDatedAtFirstTransaction()
{
    addAccount(kAccount, 700);
    QVERIFY(m_repo->insert(
        transaction(QStringLiteral("late"), kAccount, QDate(2025, 6, 2), QStringLiteral("B"), 1)));
    QVERIFY(m_repo->insert(
        transaction(QStringLiteral("early"), kAccount, QDate(2024, 3, 9), QStringLiteral("A"), 1)));
    const QList<RegisterRow> rows = m_repo->getByAccountWithBalances(kAccount);
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows.at(0).date, QDate(2024, 3, 9));
    QCOMPARE(rows.at(1).id, QStringLiteral("early"));
    QCOMPARE(rows.at(2).runningBalance, qint64(702));
}

void TstTransactionRepository::sameDateRowsFollowEntryOrder()
{
    addAccount(kAccount);
    const QDate day(2026, 3, 1);
    // Inserted out of order: the later entry on the same date must come after, whatever the insert order.
    QVERIFY(m_repo->insert(
        transaction(QStringLiteral("second"), kAccount, day, QStringLiteral("B"), -300, QTime(15, 0))));
    QVERIFY(m_repo->insert(
        transaction(QStringLiteral("first"), kAccount, day, QStringLiteral("A"), 1000, QTime(9, 0))));
    QVERIFY(m_repo->insert(transaction(QStringLiteral("before"), kAccount, day.addDays(-1),
                                       QStringLiteral("C"), -1, QTime(23, 0))));
    const QList<RegisterRow> rows = m_repo->getByAccountWithBalances(kAccount);
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows.at(0).id, QStringLiteral("before"));
    QCOMPARE(rows.at(1).id, QStringLiteral("first"));
    QCOMPARE(rows.at(2).id, QStringLiteral("second"));
    QCOMPARE(rows.at(2).runningBalance, qint64(699));
    QCOMPARE(m_repo->getByAccount(kAccount).first().id, QStringLiteral("second"));
}

void TstTransactionRepository::reconciledTotalCountsOnlyLiveReconciledRowsOfTheAccount()
{
    addAccount(kAccount, 5000);
    addAccount(QStringLiteral("other"));
    QVERIFY(!m_repo->getReconciledTotal(kAccount).latestDate.isValid());
    QCOMPARE(m_repo->getReconciledTotal(kAccount).amount, qint64(0));
    const auto add = [this](const char *id, const QString &account, const QDate &date, qint64 amount,
                            bool reconciled) {
        Transaction t = transaction(QLatin1String(id), account, date, QLatin1String(id), amount);
        t.cleared = true;
        t.reconciled = reconciled;
        QVERIFY(m_repo->insert(t));
    };
    add("a", kAccount, QDate(2026, 1, 10), -2500, true);
    add("b", kAccount, QDate(2026, 1, 3), 40000, true);
    add("cleared only", kAccount, QDate(2026, 2, 1), -100, false);
    add("deleted", kAccount, QDate(2026, 3, 1), -700, true);
    add("elsewhere", QStringLiteral("other"), QDate(2026, 4, 1), 999, true);
    QVERIFY(m_repo->softDelete(QStringLiteral("deleted")));

    const TransactionRepository::ReconciledTotal total = m_repo->getReconciledTotal(kAccount);
    QCOMPARE(total.amount, qint64(37500)); // the starting balance is the account's, not in here
    QCOMPARE(total.latestDate, QDate(2026, 1, 10));
}

void TstTransactionRepository::softDeletedRowLeavesEveryListButById()
{
    addAccount(kAccount);
    QVERIFY(m_repo->insert(
        transaction(QStringLiteral("keep"), kAccount, QDate(2026, 1, 1), QStringLiteral("Keeper"), 100)));
    QVERIFY(m_repo->insert(
        transaction(QStringLiteral("gone"), kAccount, QDate(2026, 1, 2), QStringLiteral("Ghost"), 900)));
    QVERIFY(m_repo->markSynced(QStringLiteral("gone"), QStringLiteral("s1")));
    QSignalSpy changed(m_repo, &TransactionRepository::transactionsChanged);
    QVERIFY(m_repo->softDelete(QStringLiteral("gone")));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().at(0).toString(), kAccount);

    QCOMPARE(m_repo->getByAccountWithBalances(kAccount).last().runningBalance, qint64(100));
    QCOMPARE(m_repo->getPayees(), QStringList{QStringLiteral("Keeper")});
    QVERIFY(m_repo->search(QStringLiteral("Ghost"), {}).isEmpty());
    QVERIFY(!m_repo->getLastForPayee(QStringLiteral("Ghost"), kAccount));
    QVERIFY(m_repo->getById(QStringLiteral("gone"))->deletedAt);
    bool pending = false;
    for (const Transaction &t : m_repo->getPending())
        pending |= t.id == QLatin1String("gone");
    QVERIFY(pending);
    QVERIFY(!m_repo->softDelete(QStringLiteral("no-such-row")));
}

void TstTransactionRepository::emptyCategoryIsStoredAsNull()
{
    addAccount(kAccount);
    // An empty category must not be written as "", which no category row has: the foreign key would refuse
    // it.
    QVERIFY(m_repo->insert(transaction(QStringLiteral("t"), kAccount, QDate(2026, 1, 1), QString(), -5)));
    QCOMPARE(m_db->scalar(QStringLiteral("SELECT category_id IS NULL FROM transactions")).toInt(), 1);
    QCOMPARE(m_db->scalar(QStringLiteral("SELECT memo IS NULL FROM transactions")).toInt(), 0);
    QVERIFY(m_repo->update(*m_repo->getById(QStringLiteral("t"))));
    QCOMPARE(m_db->scalar(QStringLiteral("SELECT category_id IS NULL FROM transactions")).toInt(), 1);
}

void TstTransactionRepository::search_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("accountId");
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<int>("cleared");          // -1 either
    QTest::addColumn<QStringList>("expected"); // newest first
    const QStringList none;
    QTest::newRow("word") << "coffee" << QString() << QDate() << QDate() << -1
                          << QStringList{"c3", "c2", "c1"};
    QTest::newRow("two words both required")
        << "coffee shop" << QString() << QDate() << QDate() << -1 << QStringList{"c2"};
    QTest::newRow("prefix") << "cof*" << QString() << QDate() << QDate() << -1
                            << QStringList{"c3", "c2", "c1"};
    QTest::newRow("memo matches") << "beans" << QString() << QDate() << QDate() << -1 << QStringList{"c1"};
    QTest::newRow("account") << "coffee" << kOther << QDate() << QDate() << -1 << QStringList{"c3"};
    QTest::newRow("dates inclusive") << "coffee" << QString() << QDate(2026, 1, 2) << QDate(2026, 1, 2) << -1
                                     << QStringList{"c2"};
    QTest::newRow("cleared") << "coffee" << QString() << QDate() << QDate() << 1 << QStringList{"c1"};
    QTest::newRow("filters combine") << "coffee" << kAccount << QDate(2026, 1, 2) << QDate() << 0
                                     << QStringList{"c2"};
    QTest::newRow("empty query, date filter")
        << "" << QString() << QDate(2026, 1, 3) << QDate() << -1 << QStringList{"r4", "c3"};
}

void TstTransactionRepository::search()
{
    QFETCH(QString, query);
    QFETCH(QString, accountId);
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QFETCH(int, cleared);
    QFETCH(QStringList, expected);
    addAccount(kAccount);
    addAccount(kOther);
    Transaction c1 = transaction(QStringLiteral("c1"), kAccount, QDate(2026, 1, 1),
                                 QStringLiteral("Coffee Roasters"), -900);
    c1.memo = QStringLiteral("beans");
    c1.cleared = true;
    QVERIFY(m_repo->insert(c1));
    QVERIFY(m_repo->insert(
        transaction(QStringLiteral("c2"), kAccount, QDate(2026, 1, 2), QStringLiteral("Coffee Shop"), -450)));
    QVERIFY(m_repo->insert(
        transaction(QStringLiteral("c3"), kOther, QDate(2026, 1, 3), QStringLiteral("coffee"), -300)));
    QVERIFY(m_repo->insert(
        transaction(QStringLiteral("r4"), kOther, QDate(2026, 1, 4), QStringLiteral("Rent"), -90000)));

    TransactionSearchFilter filter;
    filter.accountId = accountId;
    filter.dateFrom = from;
    filter.dateTo = to;
    if (cleared >= 0)
        filter.cleared = cleared == 1;
    QStringList ids;
    for (const RegisterRow &r : m_repo->search(query, filter)) {
        ids << r.id;
        QCOMPARE(r.runningBalance, qint64(0));
    }
    QCOMPARE(ids, expected);
}

void TstTransactionRepository::searchWithBadSyntaxGivesNothing()
{
    addAccount(kAccount);
    QVERIFY(m_repo->insert(
        transaction(QStringLiteral("t"), kAccount, QDate(2026, 1, 1), QStringLiteral("Shop"), -1)));
    for (const char *bad : {"\"unbalanced", "AND", "shop OR", "(", "*"})
        QVERIFY2(m_repo->search(QString::fromLatin1(bad), {}).isEmpty(), bad);
    QCOMPARE(m_repo->search(QStringLiteral("shop"), {}).size(), 1);
}

void TstTransactionRepository::searchStopsAt200()
{
    addAccount(kAccount);
    m_db->database()->connection().transaction();
    for (int i = 0; i < 230; ++i) {
        QVERIFY(m_repo->insert(transaction(QStringLiteral("t%1").arg(i), kAccount,
                                           QDate(2020, 1, 1).addDays(i), QStringLiteral("Grocer"), -i)));
    }
    m_db->database()->connection().commit();
    const QList<RegisterRow> found = m_repo->search(QStringLiteral("grocer"), {});
    QCOMPARE(found.size(), 200);
    QCOMPARE(found.first().id, QStringLiteral("t229"));
    QCOMPARE(m_repo->search(QString(), {}).size(), 200);
}

void TstTransactionRepository::cascadeRestoreKeepsEarlierDeletions()
{
    addAccount(kAccount);
    addAccount(kOther);
    for (const char *id : {"a", "b", "early"})
        QVERIFY(m_repo->insert(
            transaction(QString::fromLatin1(id), kAccount, QDate(2026, 1, 1), QStringLiteral("P"), 1)));
    QVERIFY(m_repo->insert(
        transaction(QStringLiteral("elsewhere"), kOther, QDate(2026, 1, 1), QStringLiteral("P"), 1)));

    // Deleted by hand eleven seconds before the account went: it must stay deleted.
    const QDateTime accountDeleted = utcNow();
    QVERIFY(m_db->exec(QStringLiteral("UPDATE transactions SET deleted_at = '%1' WHERE id = 'early'")
                           .arg(timestampText(accountDeleted.addSecs(-11)))));
    QSignalSpy changed(m_repo, &TransactionRepository::transactionsChanged);
    QCOMPARE(m_repo->softDeleteByAccount(kAccount), 2);
    QCOMPARE(changed.size(), 1);
    QVERIFY(m_repo->getByAccount(kAccount).isEmpty());
    QCOMPARE(m_repo->getByAccount(kOther).size(), 1);

    QCOMPARE(m_repo->restoreByAccount(kAccount, timestampText(accountDeleted.addSecs(-10))), 2);
    QStringList ids;
    for (const Transaction &t : m_repo->getByAccount(kAccount)) {
        ids << t.id;
        QCOMPARE(t.syncStatus, SyncStatus::Pending);
    }
    ids.sort();
    QCOMPARE(ids, (QStringList{"a", "b"}));
}

void TstTransactionRepository::bulkCallsWithNothingToDoDoNotEmit()
{
    addAccount(kAccount);
    QSignalSpy changed(m_repo, &TransactionRepository::transactionsChanged);
    QCOMPARE(m_repo->restoreByAccount(kAccount, QStringLiteral("2000-01-01T00:00:00Z")), 0);
    QCOMPARE(m_repo->softDeleteByAccount(kAccount), 0);
    QCOMPARE(changed.size(), 0);
}

void TstTransactionRepository::updateOfMissingRowSucceeds()
{
    addAccount(kAccount);
    QVERIFY(m_repo->update(
        transaction(QStringLiteral("nobody"), kAccount, QDate(2026, 1, 1), QStringLiteral("P"), 1)));
    QVERIFY(!m_repo->getById(QStringLiteral("nobody")));
}

void TstTransactionRepository::pausedSearchIndexCatchesUpAtResume()
{
    addAccount(QStringLiteral("a"));
    const auto add = [this](const QString &id, const QString &payee) {
        return m_repo->insert(Fixtures::transaction(id, QStringLiteral("a"), QDate(2026, 1, 1), payee, -100));
    };
    QVERIFY(add(QStringLiteral("before"), QStringLiteral("Bakery")));
    QSqlDatabase &db = m_db->database()->connection();

    // A rollback takes the pause back with everything else.
    QVERIFY(db.transaction());
    QVERIFY(m_repo->pauseSearchIndex());
    QVERIFY(add(QStringLiteral("lost"), QStringLiteral("Bakery Lost")));
    QVERIFY(db.rollback());
    QVERIFY(add(QStringLiteral("plain"), QStringLiteral("Florist")));
    QCOMPARE(m_repo->search(QStringLiteral("Florist"), {}).size(), 1);

    QVERIFY(db.transaction());
    const std::optional<SearchIndexPause> pause = m_repo->pauseSearchIndex();
    QVERIFY(pause);
    QVERIFY(add(QStringLiteral("during"), QStringLiteral("Bakery Two")));
    QVERIFY(m_repo->search(QStringLiteral("Two"), {}).isEmpty());
    QVERIFY(m_repo->resumeSearchIndex(*pause));
    QVERIFY(db.commit());
    QCOMPARE(m_repo->search(QStringLiteral("Bakery"), {}).size(), 2);
    QVERIFY(add(QStringLiteral("after"), QStringLiteral("Bakery Three")));
    QCOMPARE(m_repo->search(QStringLiteral("Bakery"), {}).size(), 3);
    QCOMPARE(m_db->scalar(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name = 'transactions_ai'"))
                 .toInt(),
             1);
}

QTEST_GUILESS_MAIN(TstTransactionRepository)
#include "tst_transactionrepository.moc"
