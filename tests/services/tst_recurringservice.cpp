#include "services/RecurringService.h"

#include "support/Fixtures.h"
#include "support/Line.h"
#include "support/TempStore.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QUuid>

#include <algorithm>
#include <optional>

class TstRecurringService : public QObject {
    Q_OBJECT
    std::optional<TempStore> m_store;
    std::optional<RecurringService> m_service;

    RecurringTransaction rule(const QString &id, const QDate &next, Frequency frequency, bool autoPost = true)
    {
        RecurringTransaction r = Fixtures::rule(id, "a", next, -150000, frequency);
        r.autoPost = autoPost;
        return r;
    }
    bool insert(const RecurringTransaction &r) { return m_store->recurring.insert(r); }
    RecurringTransaction stored(const QString &id) { return *m_store->recurring.getById(id); }
    // Oldest first.
    QList<Transaction> posted(const QString &accountId)
    {
        QList<Transaction> rows = m_store->transactions.getByAccount(accountId);
        std::sort(rows.begin(), rows.end(), [](const auto &x, const auto &y) { return x.date < y.date; });
        return rows;
    }
    void expectWarning(const char *pattern)
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QLatin1String(pattern)));
    }

private slots:
    void init()
    {
        m_service.reset();
        m_store.emplace();
        QVERIFY(m_store->ok);
        m_service.emplace(&m_store->recurring, &m_store->transactions, &m_store->accounts);
        QVERIFY(m_store->accounts.insert(Fixtures::account("a", "Checking")));
        QVERIFY(m_store->accounts.insert(Fixtures::account("b", "Savings")));
    }

    void nextDate_data()
    {
        QTest::addColumn<QDate>("from");
        QTest::addColumn<Frequency>("frequency");
        QTest::addColumn<QString>("steps");
        using D = QDate;
        // clang-format off
        QTest::newRow("31 Jan, monthly, stays on the 28th") << D(2025, 1, 31) << Frequency::Monthly << "2025-02-28 2025-03-28 2025-04-28";
        QTest::newRow("31 Jan of a leap year")      << D(2024, 1, 31)  << Frequency::Monthly    << "2024-02-29 2024-03-29";
        QTest::newRow("30 Nov, quarterly")          << D(2024, 11, 30) << Frequency::Quarterly  << "2025-02-28 2025-05-28";
        QTest::newRow("quarterly into a leap Feb")  << D(2023, 11, 30) << Frequency::Quarterly  << "2024-02-29";
        QTest::newRow("29 Feb, annual")             << D(2024, 2, 29)  << Frequency::Annual     << "2025-02-28 2026-02-28 2027-02-28 2028-02-28";
        QTest::newRow("31 Aug, semi-annual")        << D(2023, 8, 31)  << Frequency::SemiAnnual << "2024-02-29 2024-08-29";
        QTest::newRow("biweekly")                   << D(2025, 12, 25) << Frequency::Biweekly   << "2026-01-08";
        QTest::newRow("unknown value steps a month") << D(2025, 1, 15) << Frequency(42)         << "2025-02-15";
        // clang-format on
    }

    void nextDate()
    {
        QFETCH(QDate, from);
        QFETCH(Frequency, frequency);
        QFETCH(QString, steps);
        QStringList got;
        for (qsizetype i = steps.count(' '); i >= 0; --i)
            got << line(from = RecurringService::nextDate(from, frequency));
        QCOMPARE(got.join(' '), steps);
    }

    void weeklyRuleBehindPostsEachOccurrenceOnItsDate()
    {
        const QDate today = QDate::currentDate();
        QVERIFY(insert(rule(QStringLiteral("w"), today.addDays(-21), Frequency::Weekly)));
        // A rule that is not auto-post waits for the user, however late it is.
        QVERIFY(insert(rule(QStringLiteral("manual"), today.addDays(-60), Frequency::Weekly, false)));
        QCOMPARE(m_service->processAutoPost(), 4);
        const auto row = [](const Transaction &t) {
            return line(t.date, t.id, t.amount, t.recurringId, t.cleared, t.reconciled);
        };
        QStringList expected;
        for (int i = 0; i < 4; ++i) {
            const QDate due = today.addDays(-21 + 7 * i);
            expected << line(due, RecurringService::deterministicId("w", due, QString()), -150000, "w", 0, 0);
        }
        QCOMPARE(lines(posted(QStringLiteral("a")), row), expected);
        QCOMPARE(line(stored("w").nextDueDate, stored("w").isActive, stored("manual").nextDueDate,
                      m_service->pendingCount()),
                 line(today.addDays(7), true, today.addDays(-60), 1));
    }

    void endDate_data()
    {
        QTest::addColumn<QDate>("endDate");
        QTest::addColumn<bool>("activeAfter");
        // Next due 15 Jan; the step lands on 15 Feb.
        QTest::newRow("end before the next occurrence") << QDate(2026, 2, 14) << false;
        QTest::newRow("end on the next occurrence") << QDate(2026, 2, 15) << true;
    }

    void endDate()
    {
        QFETCH(QDate, endDate);
        QFETCH(bool, activeAfter);
        RecurringTransaction r = rule(QStringLiteral("r"), QDate(2026, 1, 15), Frequency::Monthly);
        r.endDate = endDate;
        QVERIFY(insert(r));
        QVERIFY(m_service->confirm(QStringLiteral("r")));
        QCOMPARE(line(stored("r").nextDueDate, stored("r").isActive, posted("a").size()),
                 line(QDate(2026, 2, 15), activeAfter, 1));
    }

    void brokenDateIsQuarantinedNotPosted_data()
    {
        QTest::addColumn<QString>("storedDate");
        QTest::newRow("1970") << "1970-01-01";
        // An empty text sorts before every date, so the rule is due.
        QTest::newRow("empty") << "";
    }

    void brokenDateIsQuarantinedNotPosted()
    {
        QFETCH(QString, storedDate);
        QVERIFY(insert(rule(QStringLiteral("r"), QDate(2026, 1, 15), Frequency::Monthly)));
        QVERIFY(m_store->db.exec(
            QStringLiteral("UPDATE recurring_transactions SET next_due_date = '%1', sync_status = 'synced'")
                .arg(storedDate)));
        QCOMPARE(m_service->pendingCount(), 1);
        expectWarning("Quarantining recurring r .*broken next_due_date");
        QCOMPARE(m_service->processAutoPost(), 0);
        QCOMPARE(line(posted("a").size(), stored("r").isActive, syncStatusToString(stored("r").syncStatus),
                      m_service->pendingCount()),
                 "0 0 pending 0");
        // Confirming by hand refuses it as well.
        expectWarning("confirm refusing record with broken");
        QVERIFY(!m_service->confirm(QStringLiteral("r")));
        QVERIFY(posted(QStringLiteral("a")).isEmpty());
    }

    void catchUpCap_data()
    {
        QTest::addColumn<int>("daysBehind");
        QTest::addColumn<int>("expectedPosts");
        QTest::addColumn<bool>("activeAfter");
        QTest::newRow("400 days: stops at the cap") << 400 << 366 << false;
        // 365 posts in one pass is the mark, even for a rule that has just caught up.
        QTest::newRow("364 days: caught up on the mark") << 364 << 365 << false;
        QTest::newRow("363 days: caught up below it") << 363 << 364 << true;
    }

    void catchUpCap()
    {
        QFETCH(int, daysBehind);
        QFETCH(int, expectedPosts);
        QFETCH(bool, activeAfter);
        const QDate today = QDate::currentDate();
        QVERIFY(insert(rule(QStringLiteral("d"), today.addDays(-daysBehind), Frequency::Daily)));
        if (!activeAfter)
            expectWarning("Quarantining recurring d .*hit catchup cap");
        QCOMPARE(m_service->processAutoPost(), expectedPosts);
        QCOMPARE(line(m_store->count(QStringLiteral("SELECT COUNT(DISTINCT date) FROM transactions")),
                      stored("d").isActive, stored("d").nextDueDate),
                 line(expectedPosts, activeAfter, today.addDays(-daysBehind + expectedPosts)));
    }

    void secondConfirmOfOneOccurrenceFailsWithoutAdvancing()
    {
        const QDate due(2026, 1, 15);
        QVERIFY(insert(rule(QStringLiteral("r"), due, Frequency::Monthly, false)));
        QVERIFY(m_service->confirm(QStringLiteral("r")));
        // As if the rule's own update had been lost: it points at the posted occurrence again.
        RecurringTransaction back = stored(QStringLiteral("r"));
        back.nextDueDate = due;
        QVERIFY(m_store->recurring.update(back));
        QSignalSpy counts(&*m_service, &RecurringService::pendingCountChanged);
        expectWarning("TransactionRepository::insert failed");
        QVERIFY(!m_service->confirm(QStringLiteral("r")));
        QCOMPARE(line(stored("r").nextDueDate, posted("a").size(), counts.count()), line(due, 1, 0));
    }

    void transferPostsBothLegsWithNameBasedIds()
    {
        RecurringTransaction r = rule(QStringLiteral("t"), QDate(2026, 3, 31), Frequency::Monthly, false);
        r.amount = -10000;
        r.transferDestAccountId = QStringLiteral("b");
        QVERIFY(insert(r));
        QSignalSpy counts(&*m_service, &RecurringService::pendingCountChanged);
        QVERIFY(m_service->confirm(QStringLiteral("t")));

        const QUuid ns(QStringLiteral("{a1b9f7f3-2f2a-4c6b-9e1a-8b7c6d5a3f2e}"));
        const QString sourceId =
            QUuid::createUuidV5(ns, QByteArray("t:2026-03-31")).toString(QUuid::WithoutBraces);
        const QString destId =
            QUuid::createUuidV5(ns, QByteArray("t:2026-03-31:dest")).toString(QUuid::WithoutBraces);
        const auto legs = [this](const char *account) {
            return lines(posted(account), [](const Transaction &t) {
                return line(t.id, t.amount, t.date, t.transferLinkId, t.transferDestAccountId, t.recurringId);
            });
        };
        QCOMPARE(legs("a"), QStringList(sourceId + " -10000 2026-03-31 " + destId + " b t"));
        QCOMPARE(legs("b"), QStringList(destId + " 10000 2026-03-31 " + sourceId + " a t"));
        QCOMPARE(line(stored("t").nextDueDate, counts.count()), "2026-04-30 1");
    }

    void transferBetweenCurrenciesLeavesTheSourceLegAndStays()
    {
        Account euro = Fixtures::account("eur", "Euro");
        euro.currency = Currency::EUR;
        QVERIFY(m_store->accounts.insert(euro));
        RecurringTransaction r = rule(QStringLiteral("t"), QDate(2026, 3, 1), Frequency::Monthly, false);
        r.transferDestAccountId = QStringLiteral("eur");
        QVERIFY(insert(r));
        expectWarning("currencies differ");
        QVERIFY(!m_service->confirm(QStringLiteral("t")));
        const QList<Transaction> from = posted(QStringLiteral("a"));
        QCOMPARE(line(from.size(), "[" + from[0].transferLinkId + from[0].transferDestAccountId + "]",
                      posted("eur").size(), stored("t").nextDueDate),
                 "1 [] 0 2026-03-01");
        // The next try stops on the source leg's key: still one row, still not advanced.
        expectWarning("TransactionRepository::insert failed");
        QVERIFY(!m_service->confirm(QStringLiteral("t")));
        QCOMPARE(line(posted("a").size(), stored("t").nextDueDate), "1 2026-03-01");
    }

    void skipAdvancesAQuarantinedRuleAndKeepsItInactive()
    {
        RecurringTransaction r = rule(QStringLiteral("r"), QDate(2026, 1, 31), Frequency::Monthly);
        r.isActive = false;
        QVERIFY(insert(r));
        QSignalSpy counts(&*m_service, &RecurringService::pendingCountChanged);
        QVERIFY(m_service->skip(QStringLiteral("r")));
        QCOMPARE(line(stored("r").nextDueDate, stored("r").isActive, posted("a").size(), counts.count()),
                 "2026-02-28 0 0 1");
        QVERIFY(!m_service->skip(QStringLiteral("missing")));
    }
};

QTEST_GUILESS_MAIN(TstRecurringService)
#include "tst_recurringservice.moc"
