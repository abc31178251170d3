#include "core/Dates.h"
#include "data/AccountRepository.h"
#include "data/RecurringRepository.h"
#include "data/TransactionRepository.h"
#include "services/RecurringService.h"
#include "support/Fixtures.h"
#include "support/TempDatabase.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QUuid>

#include <algorithm>
#include <memory>

class TstRecurringService : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void nextDate_data();
    void nextDate();
    void weeklyRuleBehindPostsEachOccurrenceOnItsDate();
    void endDate_data();
    void endDate();
    void brokenDateIsQuarantinedNotPosted_data();
    void brokenDateIsQuarantinedNotPosted();
    void catchUpCap_data();
    void catchUpCap();
    void secondConfirmOfOneOccurrenceFailsWithoutAdvancing();
    void transferPostsBothLegsWithNameBasedIds();
    void transferBetweenCurrenciesLeavesTheSourceLegAndStays();
    void skipAdvancesAQuarantinedRuleAndKeepsItInactive();

private:
    RecurringTransaction rule(const QString &id, const QDate &next, Frequency frequency,
                              bool autoPost = true) const;
    RecurringTransaction stored(const QString &id) const { return *m_recurring->getById(id); }
    QList<Transaction> posted(const QString &accountId) const;

    std::unique_ptr<TempDatabase> m_db;
    std::unique_ptr<AccountRepository> m_accounts;
    std::unique_ptr<TransactionRepository> m_transactions;
    std::unique_ptr<RecurringRepository> m_recurring;
    std::unique_ptr<RecurringService> m_service;
};

void TstRecurringService::init()
{
    m_db = std::make_unique<TempDatabase>();
    QVERIFY(m_db->open());
    m_accounts = std::make_unique<AccountRepository>(m_db->database());
    m_transactions = std::make_unique<TransactionRepository>(m_db->database());
    m_recurring = std::make_unique<RecurringRepository>(m_db->database());
    m_service = std::make_unique<RecurringService>(m_recurring.get(), m_transactions.get(), m_accounts.get());
    QVERIFY(m_accounts->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking"))));
    QVERIFY(m_accounts->insert(Fixtures::account(QStringLiteral("b"), QStringLiteral("Savings"))));
}

void TstRecurringService::cleanup()
{
    m_service.reset();
    m_recurring.reset();
    m_transactions.reset();
    m_accounts.reset();
    m_db.reset();
}

RecurringTransaction TstRecurringService::rule(const QString &id, const QDate &next, Frequency frequency,
                                               bool autoPost) const
{
    RecurringTransaction r;
    r.id = id;
    r.accountId = QStringLiteral("a");
    r.payee = QStringLiteral("Landlord");
    r.amount = -150000;
    r.frequency = frequency;
    r.startDate = next;
    r.nextDueDate = next;
    r.autoPost = autoPost;
    r.createdAt = utcNow();
    r.updatedAt = r.createdAt;
    return r;
}

// Oldest first.
QList<Transaction> TstRecurringService::posted(const QString &accountId) const
{
    QList<Transaction> rows = m_transactions->getByAccount(accountId);
    std::sort(rows.begin(), rows.end(),
              [](const Transaction &x, const Transaction &y) { return x.date < y.date; });
    return rows;
}

void TstRecurringService::nextDate_data()
{
    QTest::addColumn<QDate>("from");
    QTest::addColumn<Frequency>("frequency");
    QTest::addColumn<QList<QDate>>("steps");
    QTest::newRow("31 Jan, monthly, stays on the 28th after February")
        << QDate(2025, 1, 31) << Frequency::Monthly
        << QList<QDate>{QDate(2025, 2, 28), QDate(2025, 3, 28), QDate(2025, 4, 28)};
    QTest::newRow("31 Jan of a leap year, monthly")
        << QDate(2024, 1, 31) << Frequency::Monthly << QList<QDate>{QDate(2024, 2, 29), QDate(2024, 3, 29)};
    QTest::newRow("30 Nov, quarterly") << QDate(2024, 11, 30) << Frequency::Quarterly
                                       << QList<QDate>{QDate(2025, 2, 28), QDate(2025, 5, 28)};
    QTest::newRow("30 Nov, quarterly, into a leap February")
        << QDate(2023, 11, 30) << Frequency::Quarterly << QList<QDate>{QDate(2024, 2, 29)};
    QTest::newRow("29 Feb, annual") << QDate(2024, 2, 29) << Frequency::Annual
                                    << QList<QDate>{QDate(2025, 2, 28), QDate(2026, 2, 28),
                                                    QDate(2027, 2, 28), QDate(2028, 2, 28)};
    QTest::newRow("31 Aug, semi-annual") << QDate(2023, 8, 31) << Frequency::SemiAnnual
                                         << QList<QDate>{QDate(2024, 2, 29), QDate(2024, 8, 29)};
    QTest::newRow("biweekly") << QDate(2025, 12, 25) << Frequency::Biweekly
                              << QList<QDate>{QDate(2026, 1, 8)};
    QTest::newRow("unknown value steps a month")
        << QDate(2025, 1, 15) << Frequency(42) << QList<QDate>{QDate(2025, 2, 15)};
}

void TstRecurringService::nextDate()
{
    QFETCH(QDate, from);
    QFETCH(Frequency, frequency);
    QFETCH(QList<QDate>, steps);
    QDate date = from;
    for (const QDate &expected : steps) {
        date = RecurringService::nextDate(date, frequency);
        QCOMPARE(date, expected);
    }
}

void TstRecurringService::weeklyRuleBehindPostsEachOccurrenceOnItsDate()
{
    const QDate today = QDate::currentDate();
    QVERIFY(m_recurring->insert(rule(QStringLiteral("w"), today.addDays(-21), Frequency::Weekly)));
    // A rule that is not auto-post waits for the user, however late it is.
    QVERIFY(
        m_recurring->insert(rule(QStringLiteral("manual"), today.addDays(-60), Frequency::Weekly, false)));

    QCOMPARE(m_service->processAutoPost(), 4);

    const QList<Transaction> rows = posted(QStringLiteral("a"));
    QCOMPARE(rows.size(), 4);
    for (int i = 0; i < 4; ++i) {
        const QDate due = today.addDays(-21 + 7 * i);
        QCOMPARE(rows[i].date, due);
        QCOMPARE(rows[i].id, RecurringService::deterministicId(QStringLiteral("w"), due, QString()));
        QCOMPARE(rows[i].amount, qint64(-150000));
        QCOMPARE(rows[i].recurringId, QStringLiteral("w"));
        QVERIFY(!rows[i].cleared && !rows[i].reconciled);
    }
    QCOMPARE(stored(QStringLiteral("w")).nextDueDate, today.addDays(7));
    QVERIFY(stored(QStringLiteral("w")).isActive);
    QCOMPARE(stored(QStringLiteral("manual")).nextDueDate, today.addDays(-60));
    QCOMPARE(m_service->pendingCount(), 1);
}

void TstRecurringService::endDate_data()
{
    QTest::addColumn<QDate>("endDate");
    QTest::addColumn<bool>("activeAfter");
    // Next due 15 Jan; the step lands on 15 Feb.
    QTest::newRow("end before the next occurrence") << QDate(2026, 2, 14) << false;
    QTest::newRow("end on the next occurrence") << QDate(2026, 2, 15) << true;
}

void TstRecurringService::endDate()
{
    QFETCH(QDate, endDate);
    QFETCH(bool, activeAfter);
    RecurringTransaction r = rule(QStringLiteral("r"), QDate(2026, 1, 15), Frequency::Monthly);
    r.endDate = endDate;
    QVERIFY(m_recurring->insert(r));
    QVERIFY(m_service->confirm(QStringLiteral("r")));
    QCOMPARE(stored(QStringLiteral("r")).nextDueDate, QDate(2026, 2, 15));
    QCOMPARE(stored(QStringLiteral("r")).isActive, activeAfter);
    QCOMPARE(posted(QStringLiteral("a")).size(), 1);
}

void TstRecurringService::brokenDateIsQuarantinedNotPosted_data()
{
    QTest::addColumn<QString>("storedDate");
    QTest::newRow("1970") << "1970-01-01";
    // An empty text sorts before every date, so the rule is due.
    QTest::newRow("empty") << "";
}

void TstRecurringService::brokenDateIsQuarantinedNotPosted()
{
    QFETCH(QString, storedDate);
    QVERIFY(m_recurring->insert(rule(QStringLiteral("r"), QDate(2026, 1, 15), Frequency::Monthly)));
    QVERIFY(m_db->exec(
        QStringLiteral("UPDATE recurring_transactions SET next_due_date = '%1', sync_status = 'synced'")
            .arg(storedDate)));
    QCOMPARE(m_service->pendingCount(), 1);

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("Quarantining recurring r .*broken "
                                                                         "next_due_date")));
    QCOMPARE(m_service->processAutoPost(), 0);
    QVERIFY(posted(QStringLiteral("a")).isEmpty());
    const RecurringTransaction after = stored(QStringLiteral("r"));
    QVERIFY(!after.isActive);
    QCOMPARE(after.syncStatus, SyncStatus::Pending);
    QCOMPARE(m_service->pendingCount(), 0);

    // Confirming by hand refuses it as well.
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("confirm refusing record with broken")));
    QVERIFY(!m_service->confirm(QStringLiteral("r")));
    QVERIFY(posted(QStringLiteral("a")).isEmpty());
}

void TstRecurringService::catchUpCap_data()
{
    QTest::addColumn<int>("daysBehind");
    QTest::addColumn<int>("expectedPosts");
    QTest::addColumn<bool>("activeAfter");
    QTest::newRow("400 days: stops at the cap") << 400 << 366 << false;
    // 365 posts in one pass is the mark, even for a rule that has just caught up.
    QTest::newRow("364 days: caught up on the mark") << 364 << 365 << false;
    QTest::newRow("363 days: caught up below it") << 363 << 364 << true;
}

void TstRecurringService::catchUpCap()
{
    QFETCH(int, daysBehind);
    QFETCH(int, expectedPosts);
    QFETCH(bool, activeAfter);
    const QDate today = QDate::currentDate();
    QVERIFY(m_recurring->insert(rule(QStringLiteral("d"), today.addDays(-daysBehind), Frequency::Daily)));
    if (!activeAfter)
        QTest::ignoreMessage(
            QtWarningMsg, QRegularExpression(QStringLiteral("Quarantining recurring d .*hit catchup cap")));

    QCOMPARE(m_service->processAutoPost(), expectedPosts);
    QCOMPARE(m_db->scalar(QStringLiteral("SELECT COUNT(DISTINCT date) FROM transactions")).toInt(),
             expectedPosts);
    const RecurringTransaction after = stored(QStringLiteral("d"));
    QCOMPARE(after.isActive, activeAfter);
    QCOMPARE(after.nextDueDate, today.addDays(-daysBehind + expectedPosts));
}

void TstRecurringService::secondConfirmOfOneOccurrenceFailsWithoutAdvancing()
{
    const QDate due(2026, 1, 15);
    QVERIFY(m_recurring->insert(rule(QStringLiteral("r"), due, Frequency::Monthly, false)));
    QVERIFY(m_service->confirm(QStringLiteral("r")));

    // As if the rule's own update had been lost: it points at the posted occurrence again.
    RecurringTransaction back = stored(QStringLiteral("r"));
    back.nextDueDate = due;
    QVERIFY(m_recurring->update(back));
    QSignalSpy counts(m_service.get(), &RecurringService::pendingCountChanged);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("TransactionRepository::insert failed")));

    QVERIFY(!m_service->confirm(QStringLiteral("r")));
    QCOMPARE(stored(QStringLiteral("r")).nextDueDate, due);
    QCOMPARE(posted(QStringLiteral("a")).size(), 1);
    QCOMPARE(counts.count(), 0);
}

void TstRecurringService::transferPostsBothLegsWithNameBasedIds()
{
    RecurringTransaction r = rule(QStringLiteral("t"), QDate(2026, 3, 31), Frequency::Monthly, false);
    r.amount = -10000;
    r.transferDestAccountId = QStringLiteral("b");
    QVERIFY(m_recurring->insert(r));
    QSignalSpy counts(m_service.get(), &RecurringService::pendingCountChanged);

    QVERIFY(m_service->confirm(QStringLiteral("t")));

    const QUuid ns(QStringLiteral("{a1b9f7f3-2f2a-4c6b-9e1a-8b7c6d5a3f2e}"));
    const QString sourceId =
        QUuid::createUuidV5(ns, QByteArray("t:2026-03-31")).toString(QUuid::WithoutBraces);
    const QString destId =
        QUuid::createUuidV5(ns, QByteArray("t:2026-03-31:dest")).toString(QUuid::WithoutBraces);
    const QList<Transaction> from = posted(QStringLiteral("a"));
    const QList<Transaction> to = posted(QStringLiteral("b"));
    QCOMPARE(from.size(), 1);
    QCOMPARE(to.size(), 1);
    QCOMPARE(from[0].id, sourceId);
    QCOMPARE(from[0].amount, qint64(-10000));
    QCOMPARE(from[0].transferLinkId, destId);
    QCOMPARE(from[0].transferDestAccountId, QStringLiteral("b"));
    QCOMPARE(to[0].id, destId);
    QCOMPARE(to[0].amount, qint64(10000));
    QCOMPARE(to[0].date, QDate(2026, 3, 31));
    QCOMPARE(to[0].transferLinkId, sourceId);
    QCOMPARE(to[0].transferDestAccountId, QStringLiteral("a"));
    QCOMPARE(to[0].recurringId, QStringLiteral("t"));
    QCOMPARE(stored(QStringLiteral("t")).nextDueDate, QDate(2026, 4, 30));
    QCOMPARE(counts.count(), 1);
}

void TstRecurringService::transferBetweenCurrenciesLeavesTheSourceLegAndStays()
{
    Account euro = Fixtures::account(QStringLiteral("eur"), QStringLiteral("Euro"));
    euro.currency = Currency::EUR;
    QVERIFY(m_accounts->insert(euro));
    RecurringTransaction r = rule(QStringLiteral("t"), QDate(2026, 3, 1), Frequency::Monthly, false);
    r.transferDestAccountId = QStringLiteral("eur");
    QVERIFY(m_recurring->insert(r));

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("currencies differ")));
    QVERIFY(!m_service->confirm(QStringLiteral("t")));
    const QList<Transaction> from = posted(QStringLiteral("a"));
    QCOMPARE(from.size(), 1);
    QVERIFY(from[0].transferLinkId.isEmpty());
    QVERIFY(from[0].transferDestAccountId.isEmpty());
    QVERIFY(posted(QStringLiteral("eur")).isEmpty());
    QCOMPARE(stored(QStringLiteral("t")).nextDueDate, QDate(2026, 3, 1));

    // The next try stops on the source leg's key: still one row, still not advanced.
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("TransactionRepository::insert failed")));
    QVERIFY(!m_service->confirm(QStringLiteral("t")));
    QCOMPARE(posted(QStringLiteral("a")).size(), 1);
    QCOMPARE(stored(QStringLiteral("t")).nextDueDate, QDate(2026, 3, 1));
}

void TstRecurringService::skipAdvancesAQuarantinedRuleAndKeepsItInactive()
{
    RecurringTransaction r = rule(QStringLiteral("r"), QDate(2026, 1, 31), Frequency::Monthly);
    r.isActive = false;
    QVERIFY(m_recurring->insert(r));
    QSignalSpy counts(m_service.get(), &RecurringService::pendingCountChanged);
    QVERIFY(m_service->skip(QStringLiteral("r")));
    QCOMPARE(stored(QStringLiteral("r")).nextDueDate, QDate(2026, 2, 28));
    QVERIFY(!stored(QStringLiteral("r")).isActive);
    QVERIFY(posted(QStringLiteral("a")).isEmpty());
    QCOMPARE(counts.count(), 1);
    QVERIFY(!m_service->skip(QStringLiteral("missing")));
}

QTEST_GUILESS_MAIN(TstRecurringService)
#include "tst_recurringservice.moc"
