// The repositories without a suite of their own: accounts, preferences, reconciliations, recurring rules
// and split lines.

#include "core/Dates.h"
#include "data/PreferencesRepository.h"
#include "support/Fixtures.h"
#include "support/Line.h"
#include "support/TempStore.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <optional>

namespace {

Reconciliation reconciliation(const char *id, const QDate &statementDate)
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

RecurringTransaction rule(const char *id, const QDate &nextDue, bool active = true)
{
    RecurringTransaction r = Fixtures::rule(QLatin1String(id), "a", nextDue, -120000);
    r.startDate = QDate(2020, 1, 1);
    r.isActive = active;
    return r;
}

void expectFailure(const char *what)
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^%1 failed:").arg(what)));
}

} // namespace

class TstRepositories : public QObject {
    Q_OBJECT
    std::optional<TempStore> m_store;
    std::optional<PreferencesRepository> m_prefs;

    bool addAccount(const char *id, const char *name, int sortOrder = 0)
    {
        Account a = Fixtures::account(QLatin1String(id), QLatin1String(name));
        a.sortOrder = sortOrder;
        return m_store->accounts.insert(a);
    }
    QString ids(const QString &sql) { return m_store->db.scalar(sql).toString(); }

private slots:
    // Accounts "a" and "b".
    void init()
    {
        m_prefs.reset();
        m_store.emplace();
        QVERIFY(m_store->ok);
        m_prefs.emplace(m_store->db.database());
        QVERIFY(addAccount("a", "A") && addAccount("b", "B"));
    }

    void accountRoundTripsEveryField()
    {
        Account a = Fixtures::account("a1", "Visa", -12345);
        a.accountType = AccountType::CreditCard;
        a.currency = Currency::JPY;
        a.accountNumberLast4 = QStringLiteral("0042");
        a.sortOrder = 3;
        a.isShared = true;
        a.version = 7;
        a.syncStatus = SyncStatus::Synced;
        QSignalSpy changed(&m_store->accounts, &AccountRepository::accountsChanged);
        QVERIFY(m_store->accounts.insert(a));
        const Account r = *m_store->accounts.getById(QStringLiteral("a1"));
        QCOMPARE(line(changed.size(), r.isShared, bool(r.deletedAt), accountTypeToString(r.accountType),
                      currencyToString(r.currency), r.startingBalance, r.accountNumberLast4, r.sortOrder,
                      r.version, syncStatusToString(r.syncStatus), r.createdAt == a.createdAt),
                 "1 1 0 credit_card JPY -12345 0042 3 7 synced 1");
    }

    void accountsListBySortOrderThenName()
    {
        QVERIFY(addAccount("c", "savings", 1) && addAccount("d", "Savings", 1) && addAccount("e", "Zeta") &&
                addAccount("f", "Alpha", 2));
        // Binary order puts the capital before the small letter.
        QCOMPARE(lines(m_store->accounts.getAll(), [](const Account &a) { return a.id; }).join(' '),
                 "a b e d c f");
    }

    void accountDeleteRestoreAndResync()
    {
        AccountRepository &repo = m_store->accounts;
        QVERIFY(repo.markSynced(QStringLiteral("a"), QStringLiteral("s1")));
        QVERIFY(repo.softDelete(QStringLiteral("b")));
        QCOMPARE(line(repo.getAll().size(), bool(repo.getById(QStringLiteral("b"))->deletedAt),
                      repo.getDeleted().size(), repo.getPending().size()),
                 "1 1 1 1");
        QVERIFY(repo.markSynced(QStringLiteral("b"), QStringLiteral("s2")));
        QSignalSpy changed(&repo, &AccountRepository::accountsChanged);
        QCOMPARE(repo.markAllPendingForResync(), 1); // the deleted one stays as it is
        QCOMPARE(repo.markAllPendingForResync(), 0);
        QCOMPARE(changed.size(), 1);
        QVERIFY(repo.restore(QStringLiteral("b")));
        QVERIFY(!repo.getById(QStringLiteral("b"))->deletedAt);
    }

    void accountReorderIsAllOrNothing()
    {
        QSignalSpy changed(&m_store->accounts, &AccountRepository::accountsChanged);
        QVERIFY(m_store->accounts.reorder({})); // nothing to do still commits and tells
        QCOMPARE(changed.size(), 1);
        QVERIFY(
            m_store->db.exec(QStringLiteral("CREATE TRIGGER refuse_b BEFORE UPDATE ON accounts WHEN new.id = "
                                            "'b' BEGIN SELECT RAISE(ABORT, 'refused'); END")));
        QVERIFY(!m_store->accounts.reorder({
            {QStringLiteral("a"), 5},
            {QStringLiteral("b"), 6}
        }));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(m_store->count(QStringLiteral("SELECT SUM(sort_order) FROM accounts")), 0);
    }

    void preferenceBool_data()
    {
        QTest::addColumn<QString>("stored"); // null: no row
        QTest::addColumn<bool>("defaultValue");
        QTest::addColumn<bool>("expected");
        QTest::newRow("one") << "1" << false << true;
        QTest::newRow("true") << "true" << false << true;
        QTest::newRow("yes is not true") << "yes" << true << false;
        QTest::newRow("TRUE is not true") << "TRUE" << true << false;
        QTest::newRow("empty") << "" << true << false;
        QTest::newRow("missing gives default true") << QString() << true << true;
        QTest::newRow("missing gives default false") << QString() << false << false;
    }

    void preferenceBool()
    {
        QFETCH(QString, stored);
        QFETCH(bool, defaultValue);
        QFETCH(bool, expected);
        if (!stored.isNull())
            QVERIFY(m_prefs->set(QStringLiteral("flag"), stored));
        QCOMPARE(m_prefs->getBool(QStringLiteral("flag"), defaultValue), expected);
    }

    void preferenceSetReplacesAndRemoveForgets()
    {
        QSignalSpy changed(&*m_prefs, &PreferencesRepository::changed);
        QVERIFY(m_prefs->set(QStringLiteral("theme"), QStringLiteral("dark")));
        QVERIFY(m_prefs->setInt(QStringLiteral("theme"), 42));
        QCOMPARE(changed.size(), 2);
        QCOMPARE(changed.at(1).at(0).toString(), QStringLiteral("theme"));
        QCOMPARE(m_store->count(QStringLiteral("SELECT COUNT(*) FROM preferences WHERE key = 'theme'")), 1);
        QCOMPARE(m_prefs->getOr(QStringLiteral("theme"), QStringLiteral("system")), QStringLiteral("42"));
        QCOMPARE(m_prefs->getOr(QStringLiteral("absent"), QStringLiteral("system")),
                 QStringLiteral("system"));
        // Removing succeeds, whether or not the key is there, and tells nobody.
        QVERIFY(m_prefs->remove(QStringLiteral("never-set")));
        QVERIFY(m_prefs->remove(QStringLiteral("theme")));
        QVERIFY(!m_prefs->get(QStringLiteral("theme")).has_value());
        QCOMPARE(changed.size(), 2);
        // A NULL value is there, and empty.
        QVERIFY(m_store->db.exec(QStringLiteral("INSERT INTO preferences (key, value) VALUES ('k', NULL)")));
        QVERIFY(m_prefs->get(QStringLiteral("k")).has_value());
        QCOMPARE(m_prefs->getOr(QStringLiteral("k"), QStringLiteral("fallback")), QString());
    }

    void reconciliationFillsTimesMovesAndComesBackPending()
    {
        ReconciliationRepository &repo = m_store->reconciliations;
        const QDateTime before = utcNow();
        QVERIFY(repo.insert(reconciliation("r1", QDate(2026, 1, 31))));
        const auto read = repo.getById(QStringLiteral("r1"));
        QVERIFY(read->createdAt >= before && read->createdAt <= utcNow() &&
                read->updatedAt == read->createdAt);
        QVERIFY(repo.insert(reconciliation("r2", QDate(2026, 2, 28))));
        QCOMPARE(line(read->reconciledBalance, repo.getLatest(QStringLiteral("a"))->id,
                      repo.getByAccount(QStringLiteral("a")).first().id),
                 "149900 r2 r2");
        Reconciliation moved = *read;
        moved.accountId = QStringLiteral("b");
        QVERIFY(repo.update(moved));
        QCOMPARE(repo.getByAccount(QStringLiteral("a")).size(), 1);

        QVERIFY(repo.markSynced(QStringLiteral("r2"), QStringLiteral("srv")));
        const QDateTime deletedAt = utcNow();
        QCOMPARE(repo.softDeleteByAccount(QStringLiteral("a")), 1);
        QVERIFY(repo.getLatest(QStringLiteral("a")) == std::nullopt);
        QSignalSpy changed(&repo, &ReconciliationRepository::reconciliationsChanged);
        QCOMPARE(repo.restoreByAccount(QStringLiteral("a"), timestampText(deletedAt.addSecs(-10))), 1);
        QCOMPARE(changed.size(), 1);
        const auto back = repo.getById(QStringLiteral("r2"));
        QCOMPARE(line(syncStatusToString(back->syncStatus), bool(back->deletedAt), back->serverId),
                 "pending 0 srv");
    }

    void ruleIsDueByNextDueDateOnly()
    {
        RecurringRepository &repo = m_store->recurring;
        const QDate today = QDate::currentDate();
        RecurringTransaction ended = rule("ended", today.addDays(-3));
        ended.endDate = today.addYears(-1); // still active, so still due
        QVERIFY(repo.insert(ended) && repo.insert(rule("today", today)) &&
                repo.insert(rule("tomorrow", today.addDays(1))) &&
                repo.insert(rule("paused", today.addDays(-1), false)) &&
                repo.insert(rule("deleted", today.addDays(-1))));
        QVERIFY(repo.softDelete(QStringLiteral("deleted")));
        QStringList due = lines(repo.getDue(), [](const RecurringTransaction &r) { return r.id; });
        due.sort();
        QCOMPARE(due, (QStringList{"ended", "today"}));
        QCOMPARE(repo.getAll().size(), 4);
    }

    void ruleEndDateAndCategoryRoundTrip()
    {
        RecurringTransaction r = rule("r", QDate(2026, 2, 28));
        QVERIFY(m_store->recurring.insert(r));
        QCOMPARE(
            m_store->count("SELECT end_date IS NULL AND category_id IS NULL FROM recurring_transactions"), 1);
        QVERIFY(!m_store->recurring.getById(QStringLiteral("r"))->endDate);
        r.endDate = QDate(2027, 1, 31);
        r.frequency = Frequency::SemiAnnual;
        QVERIFY(m_store->recurring.update(r));
        const auto read = m_store->recurring.getById(QStringLiteral("r"));
        QCOMPARE(line(read->endDate.value_or(QDate()), frequencyToString(read->frequency), read->nextDueDate),
                 "2027-01-31 semi_annual 2026-02-28");
    }

    // Restoring an account brings back the rules its deletion took, not those deleted before it.
    void ruleRestoreKeepsEarlierDeletions()
    {
        RecurringTransaction elsewhere = rule("elsewhere", QDate(2026, 1, 1));
        elsewhere.accountId = QStringLiteral("b");
        QVERIFY(m_store->recurring.insert(rule("r", QDate(2026, 1, 1))) &&
                m_store->recurring.insert(rule("early", QDate(2026, 1, 1))) &&
                m_store->recurring.insert(elsewhere));
        const QDateTime accountDeleted = utcNow();
        QVERIFY(m_store->db.exec(
            QStringLiteral("UPDATE recurring_transactions SET deleted_at = '%1' WHERE id = 'early'")
                .arg(timestampText(accountDeleted.addSecs(-11)))));
        QCOMPARE(m_store->recurring.softDeleteByAccount(QStringLiteral("a")), 1);
        QCOMPARE(m_store->recurring.getAll().size(), 1);
        QVERIFY(m_store->db.exec(QStringLiteral("UPDATE recurring_transactions SET sync_status = 'synced'")));
        QCOMPARE(m_store->recurring.restoreByAccount(QStringLiteral("a"),
                                                     timestampText(accountDeleted.addSecs(-10))),
                 1);
        QCOMPARE(ids("SELECT group_concat(id) FROM recurring_transactions WHERE deleted_at IS NULL AND "
                     "sync_status = 'pending'"),
                 QStringLiteral("r"));
    }

    void ruleWithBrokenDueDateIsTracedAndSaved_data()
    {
        QTest::addColumn<QDate>("nextDue");
        QTest::addColumn<QString>("stored");
        QTest::newRow("before 2000") << QDate(1999, 12, 31) << "1999-12-31";
        QTest::newRow("invalid") << QDate() << "";
    }

    void ruleWithBrokenDueDateIsTracedAndSaved()
    {
        QFETCH(QDate, nextDue);
        QFETCH(QString, stored);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                               "^RecurringRepository::insert saving recurring with "
                                               "broken nextDueDate: id=bad payee=Landlord nextDueDate=")));
        QVERIFY(m_store->recurring.insert(rule("bad", nextDue)));
        QCOMPARE(ids(QStringLiteral("SELECT next_due_date FROM recurring_transactions")), stored);
    }

    // A soft-deleted transaction keeps its lines; a line needs a category row, live or deleted.
    void splitLinesFollowTheirTransaction()
    {
        SplitLineRepository &repo = m_store->splitLines;
        const QString t = QStringLiteral("t");
        QVERIFY(
            m_store->transactions.insert(Fixtures::transaction(t, "a", QDate(2026, 1, 1), "Market", -1000)));
        QVERIFY(m_store->categories.insert(Fixtures::category("food", "Food")));
        QVERIFY(m_store->categories.insert(Fixtures::category("old", "Old")));
        QVERIFY(m_store->categories.softDelete(QStringLiteral("old")));
        QVERIFY(repo.deleteForTransaction(t));
        QVERIFY(repo.insert(Fixtures::splitLine("l1", t, "food", -600)));
        QVERIFY(repo.insert(Fixtures::splitLine("l2", t, "old", -400)));
        expectFailure("SplitLineRepository::insert");
        QVERIFY(!repo.insert(Fixtures::splitLine("l3", t, "nope", -5)));
        expectFailure("SplitLineRepository::insert");
        QVERIFY(!repo.insert(Fixtures::splitLine("l4", t, QString(), -5)));
        QVERIFY(m_store->transactions.softDelete(t));
        const QList<SplitLine> kept = repo.getForTransaction(t);
        QCOMPARE(line(kept.size(), kept.at(0).amount + kept.at(1).amount), "2 -1000");
        QVERIFY(repo.deleteForTransaction(t));
        QVERIFY(repo.getForTransaction(t).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TstRepositories)
#include "tst_repositories.moc"
