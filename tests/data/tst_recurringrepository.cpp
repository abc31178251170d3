#include "core/Dates.h"
#include "support/Fixtures.h"
#include "support/TempStore.h"

#include <QRegularExpression>
#include <QTest>

#include <optional>

class TstRecurringRepository : public QObject {
    Q_OBJECT
    std::optional<TempStore> m_store;
    RecurringRepository *m_repo = nullptr;

    static RecurringTransaction rule(const char *id, const QDate &nextDue, bool active = true)
    {
        RecurringTransaction r = Fixtures::rule(QLatin1String(id), "acc", nextDue, -120000);
        r.startDate = QDate(2020, 1, 1);
        r.isActive = active;
        return r;
    }

private slots:
    void init()
    {
        m_store.reset();
        m_store.emplace();
        QVERIFY(m_store->ok);
        QVERIFY(m_store->accounts.insert(Fixtures::account("acc", "Checking")));
        m_repo = &m_store->recurring;
    }

    void dueIsByNextDueDateOnly()
    {
        const QDate today = QDate::currentDate();
        RecurringTransaction ended = rule("ended", today.addDays(-3));
        ended.endDate = today.addYears(-1); // still active, so still due
        QVERIFY(m_repo->insert(ended));
        QVERIFY(m_repo->insert(rule("today", today)));
        QVERIFY(m_repo->insert(rule("tomorrow", today.addDays(1))));
        QVERIFY(m_repo->insert(rule("paused", today.addDays(-1), false)));
        QVERIFY(m_repo->insert(rule("deleted", today.addDays(-1))));
        QVERIFY(m_repo->softDelete(QStringLiteral("deleted")));
        QStringList due;
        for (const RecurringTransaction &r : m_repo->getDue())
            due << r.id;
        due.sort();
        QCOMPARE(due, (QStringList{"ended", "today"}));
        QCOMPARE(m_repo->getAll().size(), 4);
    }

    void endDateAndCategoryRoundTrip()
    {
        RecurringTransaction r = rule("r", QDate(2026, 2, 28));
        QVERIFY(m_repo->insert(r));
        QCOMPARE(
            m_store->count("SELECT end_date IS NULL AND category_id IS NULL FROM recurring_transactions"), 1);
        QVERIFY(!m_repo->getById(QStringLiteral("r"))->endDate);
        r.endDate = QDate(2027, 1, 31);
        r.frequency = Frequency::SemiAnnual;
        QVERIFY(m_repo->update(r));
        const auto read = m_repo->getById(QStringLiteral("r"));
        QCOMPARE(read->endDate, std::optional<QDate>(QDate(2027, 1, 31)));
        QCOMPARE(read->frequency, Frequency::SemiAnnual);
        QCOMPARE(read->nextDueDate, QDate(2026, 2, 28));
    }

    // Restoring an account brings back the rules its deletion took, not those deleted before it.
    void accountRestoreKeepsEarlierDeletions()
    {
        QVERIFY(m_store->accounts.insert(Fixtures::account("other", "Other")));
        RecurringTransaction elsewhere = rule("elsewhere", QDate(2026, 1, 1));
        elsewhere.accountId = QStringLiteral("other");
        QVERIFY(m_repo->insert(rule("a", QDate(2026, 1, 1))) &&
                m_repo->insert(rule("early", QDate(2026, 1, 1))) && m_repo->insert(elsewhere));
        const QDateTime accountDeleted = utcNow();
        QVERIFY(m_store->db.exec(
            QStringLiteral("UPDATE recurring_transactions SET deleted_at = '%1' WHERE id = 'early'")
                .arg(timestampText(accountDeleted.addSecs(-11)))));
        QCOMPARE(m_repo->softDeleteByAccount(QStringLiteral("acc")), 1);
        QCOMPARE(m_repo->getAll().size(), 1);
        QVERIFY(m_store->db.exec(QStringLiteral("UPDATE recurring_transactions SET sync_status = 'synced'")));
        QCOMPARE(m_repo->restoreByAccount(QStringLiteral("acc"), timestampText(accountDeleted.addSecs(-10))),
                 1);
        QCOMPARE(m_store->db
                     .scalar("SELECT group_concat(id) FROM recurring_transactions WHERE deleted_at IS NULL "
                             "AND sync_status = 'pending'")
                     .toString(),
                 QStringLiteral("a"));
    }

    void brokenDueDateIsTracedAndSaved_data()
    {
        QTest::addColumn<QDate>("nextDue");
        QTest::addColumn<QString>("stored");
        QTest::newRow("before 2000") << QDate(1999, 12, 31) << "1999-12-31";
        QTest::newRow("invalid") << QDate() << "";
    }

    void brokenDueDateIsTracedAndSaved()
    {
        QFETCH(QDate, nextDue);
        QFETCH(QString, stored);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                               "^RecurringRepository::insert saving recurring with "
                                               "broken nextDueDate: id=bad payee=Landlord nextDueDate=")));
        QVERIFY(m_repo->insert(rule("bad", nextDue)));
        QCOMPARE(
            m_store->db.scalar(QStringLiteral("SELECT next_due_date FROM recurring_transactions")).toString(),
            stored);
    }
};

QTEST_GUILESS_MAIN(TstRecurringRepository)
#include "tst_recurringrepository.moc"
