#include "core/Dates.h"
#include "support/Fixtures.h"
#include "support/Line.h"
#include "support/SpyText.h"
#include "support/TempStore.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

using Fixtures::transaction;

namespace {
const QString kAccount = QStringLiteral("acc");
const QString kOther = QStringLiteral("other");

template <typename Rows>
QStringList idsOf(const Rows &rows)
{
    return lines(rows, [](const auto &r) { return r.id; });
}
} // namespace

class TstTransactionRepository : public QObject {
    Q_OBJECT
    std::optional<TempStore> m_store;
    TransactionRepository *m_repo = nullptr;

    bool add(const QString &id, const QString &account, const QDate &date, const QString &payee,
             qint64 amount, const QTime &created = QTime(12, 0))
    {
        return m_repo->insert(transaction(id, account, date, payee, amount, created));
    }

private slots:
    void init()
    {
        m_store.emplace();
        QVERIFY(m_store->ok && m_store->accounts.insert(Fixtures::account(kAccount, "Checking")) &&
                m_store->accounts.insert(Fixtures::account(kOther, "Other")));
        m_repo = &m_store->transactions;
    }

    void runningBalance_data()
    {
        QTest::addColumn<qint64>("starting");
        QTest::addColumn<QList<qint64>>("amounts");  // one a day from 2026-01-01
        QTest::addColumn<QList<qint64>>("balances"); // opening row first when there is one
        using L = QList<qint64>;
        QTest::newRow("no start, no rows") << qint64(0) << L{} << L{};
        QTest::newRow("start, no rows") << qint64(1000) << L{} << L{1000};
        QTest::newRow("negative start") << qint64(-500) << L{200, -50} << L{-500, -300, -350};
        QTest::newRow("payments and deposits")
            << qint64(0) << L{-1999, 250000, -1} << L{-1999, 248001, 248000};
    }

    void runningBalance()
    {
        QFETCH(qint64, starting);
        QFETCH(QList<qint64>, amounts);
        QFETCH(QList<qint64>, balances);
        QVERIFY(m_store->db.exec(QStringLiteral("UPDATE accounts SET starting_balance = %1").arg(starting)));
        // Inserted newest first: the order must come from the dates.
        for (int i = amounts.size() - 1; i >= 0; --i)
            QVERIFY(add(QStringLiteral("t%1").arg(i), kAccount, QDate(2026, 1, 1).addDays(i), "P",
                        amounts.at(i)));
        const QList<RegisterRow> rows = m_repo->getByAccountWithBalances(kAccount);
        QCOMPARE(lines(rows, [](const RegisterRow &r) { return line(r.runningBalance); }),
                 lines(balances, [](qint64 b) { return line(b); }));
        QCOMPARE(m_repo->getBalance(kAccount), balances.isEmpty() ? starting : balances.last());
        if (starting != 0) {
            const RegisterRow &o = rows.first();
            // Dated at the first transaction, or today without one.
            QCOMPARE(line("[" + o.id + "]", o.cleared, o.reconciled, o.payee, o.amount, o.date),
                     line("[]", true, true, "Opening Balance", starting,
                          amounts.isEmpty() ? QDate::currentDate() : QDate(2026, 1, 1)));
        }
    }

    void sameDateRowsFollowEntryOrder()
    {
        const QDate day(2026, 3, 1);
        // Inserted out of order: the later entry on the same date must come after, whatever the insert order.
        QVERIFY(add("second", kAccount, day, "B", -300, QTime(15, 0)));
        QVERIFY(add("first", kAccount, day, "A", 1000, QTime(9, 0)));
        QVERIFY(add("before", kAccount, day.addDays(-1), "C", -1, QTime(23, 0)));
        const QList<RegisterRow> rows = m_repo->getByAccountWithBalances(kAccount);
        QCOMPARE(idsOf(rows), (QStringList{"before", "first", "second"}));
        QCOMPARE(rows.at(2).runningBalance, qint64(699));
        QCOMPARE(m_repo->getByAccount(kAccount).first().id, QStringLiteral("second"));
    }

    void reconciledTotalCountsOnlyLiveReconciledRowsOfTheAccount()
    {
        // The account's starting balance is its own, not in here.
        QVERIFY(m_store->db.exec("UPDATE accounts SET starting_balance = 5000"));
        QCOMPARE(line(m_repo->getReconciledTotal(kAccount).latestDate.isValid(),
                      m_repo->getReconciledTotal(kAccount).amount),
                 "0 0");
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
        add("elsewhere", kOther, QDate(2026, 4, 1), 999, true);
        QVERIFY(m_repo->softDelete(QStringLiteral("deleted")));
        const TransactionRepository::ReconciledTotal total = m_repo->getReconciledTotal(kAccount);
        QCOMPARE(line(total.amount, total.latestDate), "37500 2026-01-10");
    }

    void softDeletedRowLeavesEveryListButById()
    {
        QVERIFY(add("keep", kAccount, QDate(2026, 1, 1), "Keeper", 100));
        QVERIFY(add("gone", kAccount, QDate(2026, 1, 2), "Ghost", 900));
        QVERIFY(m_repo->markSynced(QStringLiteral("gone"), QStringLiteral("s1")));
        QSignalSpy changed(m_repo, &TransactionRepository::transactionsChanged);
        QVERIFY(m_repo->softDelete(QStringLiteral("gone")));
        QCOMPARE(spyText(changed), kAccount);
        QCOMPARE(m_repo->getByAccountWithBalances(kAccount).last().runningBalance, qint64(100));
        QCOMPARE(m_repo->getPayees(), QStringList{QStringLiteral("Keeper")});
        QVERIFY(m_repo->search(QStringLiteral("Ghost"), {}).isEmpty());
        QVERIFY(!m_repo->getLastForPayee(QStringLiteral("Ghost"), kAccount));
        QVERIFY(m_repo->getById(QStringLiteral("gone"))->deletedAt);
        QVERIFY(idsOf(m_repo->getPending()).contains(QStringLiteral("gone")));
        QVERIFY(!m_repo->softDelete(QStringLiteral("no-such-row")));
        // Updating a row that is not there is no error, and makes nothing.
        QVERIFY(m_repo->update(transaction(QStringLiteral("nobody"), kAccount, QDate(2026, 1, 1), "P", 1)));
        QVERIFY(!m_repo->getById(QStringLiteral("nobody")));
    }

    void emptyCategoryIsStoredAsNull()
    {
        // An empty category must not be written as "", which no category row has: the foreign key would
        // refuse it.
        QVERIFY(add("t", kAccount, QDate(2026, 1, 1), QString(), -5));
        const QString sql =
            QStringLiteral("SELECT category_id IS NULL AND memo IS NOT NULL FROM transactions");
        QCOMPARE(m_store->count(sql), 1);
        QVERIFY(m_repo->update(*m_repo->getById(QStringLiteral("t"))));
        QCOMPARE(m_store->count(sql), 1);
    }

    void search_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("accountId");
        QTest::addColumn<QDate>("from");
        QTest::addColumn<QDate>("to");
        QTest::addColumn<int>("cleared");          // -1 either
        QTest::addColumn<QStringList>("expected"); // newest first
        const QDate none, jan2(2026, 1, 2);
        const QStringList all{"c3", "c2", "c1"};
        // clang-format off
        QTest::newRow("word")                      << "coffee"      << QString() << none << none << -1 << all;
        QTest::newRow("two words both required")   << "coffee shop" << QString() << none << none << -1 << QStringList{"c2"};
        QTest::newRow("prefix")                    << "cof*"        << QString() << none << none << -1 << all;
        QTest::newRow("memo matches")              << "beans"       << QString() << none << none << -1 << QStringList{"c1"};
        QTest::newRow("account")                   << "coffee"      << kOther    << none << none << -1 << QStringList{"c3"};
        QTest::newRow("dates inclusive")           << "coffee"      << QString() << jan2 << jan2 << -1 << QStringList{"c2"};
        QTest::newRow("cleared")                   << "coffee"      << QString() << none << none << 1  << QStringList{"c1"};
        QTest::newRow("filters combine")           << "coffee"      << kAccount  << jan2 << none << 0  << QStringList{"c2"};
        QTest::newRow("empty query, date filter")  << ""            << QString() << QDate(2026, 1, 3) << none << -1 << QStringList{"r4", "c3"};
        // clang-format on
    }

    void search()
    {
        QFETCH(QString, query);
        QFETCH(QString, accountId);
        QFETCH(QDate, from);
        QFETCH(QDate, to);
        QFETCH(int, cleared);
        QFETCH(QStringList, expected);
        Transaction c1 = transaction("c1", kAccount, QDate(2026, 1, 1), "Coffee Roasters", -900);
        c1.memo = QStringLiteral("beans");
        c1.cleared = true;
        QVERIFY(m_repo->insert(c1));
        QVERIFY(add("c2", kAccount, QDate(2026, 1, 2), "Coffee Shop", -450));
        QVERIFY(add("c3", kOther, QDate(2026, 1, 3), "coffee", -300));
        QVERIFY(add("r4", kOther, QDate(2026, 1, 4), "Rent", -90000));
        TransactionSearchFilter filter;
        filter.accountId = accountId;
        filter.dateFrom = from;
        filter.dateTo = to;
        if (cleared >= 0)
            filter.cleared = cleared == 1;
        const QList<RegisterRow> found = m_repo->search(query, filter);
        QCOMPARE(idsOf(found), expected);
        for (const RegisterRow &r : found)
            QCOMPARE(r.runningBalance, qint64(0));
    }

    void searchWithBadSyntaxGivesNothingAndStopsAt200()
    {
        m_store->db.database()->connection().transaction();
        for (int i = 0; i < 230; ++i)
            QVERIFY(
                add(QStringLiteral("t%1").arg(i), kAccount, QDate(2020, 1, 1).addDays(i), "Grocer Shop", -i));
        m_store->db.database()->connection().commit();
        for (const char *bad : {"\"unbalanced", "AND", "shop OR", "(", "*"})
            QVERIFY2(m_repo->search(QString::fromLatin1(bad), {}).isEmpty(), bad);
        const QList<RegisterRow> found = m_repo->search(QStringLiteral("grocer"), {});
        QCOMPARE(found.size(), 200);
        QCOMPARE(found.first().id, QStringLiteral("t229"));
        QCOMPARE(m_repo->search(QString(), {}).size(), 200);
    }

    void cascadeRestoreKeepsEarlierDeletions()
    {
        QSignalSpy changed(m_repo, &TransactionRepository::transactionsChanged);
        // Nothing to do: no signal.
        QCOMPARE(m_repo->restoreByAccount(kAccount, QStringLiteral("2000-01-01T00:00:00Z")), 0);
        QCOMPARE(m_repo->softDeleteByAccount(kAccount), 0);
        QCOMPARE(changed.size(), 0);
        for (const char *id : {"a", "b", "early"})
            QVERIFY(add(QString::fromLatin1(id), kAccount, QDate(2026, 1, 1), "P", 1));
        QVERIFY(add("elsewhere", kOther, QDate(2026, 1, 1), "P", 1));
        // Deleted by hand eleven seconds before the account went: it must stay deleted.
        const QDateTime accountDeleted = utcNow();
        QVERIFY(
            m_store->db.exec(QStringLiteral("UPDATE transactions SET deleted_at = '%1' WHERE id = 'early'")
                                 .arg(timestampText(accountDeleted.addSecs(-11)))));
        changed.clear();
        QCOMPARE(m_repo->softDeleteByAccount(kAccount), 2);
        QCOMPARE(changed.size(), 1);
        QVERIFY(m_repo->getByAccount(kAccount).isEmpty());
        QCOMPARE(m_repo->getByAccount(kOther).size(), 1);
        QCOMPARE(m_repo->restoreByAccount(kAccount, timestampText(accountDeleted.addSecs(-10))), 2);
        QStringList back = lines(m_repo->getByAccount(kAccount), [](const Transaction &t) {
            return line(t.id, syncStatusToString(t.syncStatus));
        });
        back.sort();
        QCOMPARE(back, (QStringList{"a pending", "b pending"}));
    }

    void pausedSearchIndexCatchesUpAtResume()
    {
        const auto add = [this](const char *id, const char *payee) {
            return this->add(QLatin1String(id), kAccount, QDate(2026, 1, 1), QLatin1String(payee), -100);
        };
        QVERIFY(add("before", "Bakery"));
        QSqlDatabase &db = m_store->db.database()->connection();
        // A rollback takes the pause back with everything else.
        QVERIFY(db.transaction());
        QVERIFY(m_repo->pauseSearchIndex());
        QVERIFY(add("lost", "Bakery Lost"));
        QVERIFY(db.rollback());
        QVERIFY(add("plain", "Florist"));
        QCOMPARE(m_repo->search(QStringLiteral("Florist"), {}).size(), 1);

        QVERIFY(db.transaction());
        const std::optional<SearchIndexPause> pause = m_repo->pauseSearchIndex();
        QVERIFY(pause);
        QVERIFY(add("during", "Bakery Two"));
        QVERIFY(m_repo->search(QStringLiteral("Two"), {}).isEmpty());
        QVERIFY(m_repo->resumeSearchIndex(*pause));
        QVERIFY(db.commit());
        QCOMPARE(m_repo->search(QStringLiteral("Bakery"), {}).size(), 2);
        QVERIFY(add("after", "Bakery Three"));
        QCOMPARE(m_repo->search(QStringLiteral("Bakery"), {}).size(), 3);
        QCOMPARE(m_store->count(
                     QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name = 'transactions_ai'")),
                 1);
    }
};

QTEST_GUILESS_MAIN(TstTransactionRepository)
#include "tst_transactionrepository.moc"
