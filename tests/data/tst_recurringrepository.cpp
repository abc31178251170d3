#include "data/AccountRepository.h"
#include "data/RecurringRepository.h"
#include "support/Fixtures.h"
#include "support/TempDatabase.h"

#include <QRegularExpression>
#include <QTest>

namespace {
RecurringTransaction rule(const QString &id, const QDate &nextDue, bool active = true)
{
    RecurringTransaction r;
    r.id = id;
    r.accountId = QStringLiteral("acc");
    r.payee = QStringLiteral("Rent");
    r.amount = -120000;
    r.startDate = QDate(2020, 1, 1);
    r.nextDueDate = nextDue;
    r.isActive = active;
    r.createdAt = QDateTime::currentDateTimeUtc();
    r.updatedAt = r.createdAt;
    return r;
}
} // namespace

class TstRecurringRepository : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void dueIsByNextDueDateOnly();
    void endDateAndCategoryRoundTrip();
    void brokenDueDateIsTracedAndSaved_data();
    void brokenDueDateIsTracedAndSaved();

private:
    TempDatabase *m_db = nullptr;
    RecurringRepository *m_repo = nullptr;
};

void TstRecurringRepository::init()
{
    m_db = new TempDatabase;
    QVERIFY(m_db->open());
    AccountRepository accounts(m_db->database());
    QVERIFY(accounts.insert(Fixtures::account(QStringLiteral("acc"), QStringLiteral("Checking"))));
    m_repo = new RecurringRepository(m_db->database());
}

void TstRecurringRepository::cleanup()
{
    delete m_repo;
    delete m_db;
}

void TstRecurringRepository::dueIsByNextDueDateOnly()
{
    const QDate today = QDate::currentDate();
    RecurringTransaction ended = rule(QStringLiteral("ended"), today.addDays(-3));
    ended.endDate = today.addYears(-1); // still active, so still due
    QVERIFY(m_repo->insert(ended));
    QVERIFY(m_repo->insert(rule(QStringLiteral("today"), today)));
    QVERIFY(m_repo->insert(rule(QStringLiteral("tomorrow"), today.addDays(1))));
    QVERIFY(m_repo->insert(rule(QStringLiteral("paused"), today.addDays(-1), false)));
    QVERIFY(m_repo->insert(rule(QStringLiteral("deleted"), today.addDays(-1))));
    QVERIFY(m_repo->softDelete(QStringLiteral("deleted")));

    QStringList due;
    for (const RecurringTransaction &r : m_repo->getDue())
        due << r.id;
    due.sort();
    QCOMPARE(due, (QStringList{"ended", "today"}));
    QCOMPARE(m_repo->getAll().size(), 4);
}

void TstRecurringRepository::endDateAndCategoryRoundTrip()
{
    RecurringTransaction r = rule(QStringLiteral("r"), QDate(2026, 2, 28));
    QVERIFY(m_repo->insert(r));
    QCOMPARE(m_db->scalar(QStringLiteral(
                              "SELECT end_date IS NULL AND category_id IS NULL FROM recurring_transactions"))
                 .toInt(),
             1);
    QVERIFY(!m_repo->getById(QStringLiteral("r"))->endDate);

    r.endDate = QDate(2027, 1, 31);
    r.frequency = Frequency::SemiAnnual;
    QVERIFY(m_repo->update(r));
    const auto read = m_repo->getById(QStringLiteral("r"));
    QCOMPARE(read->endDate, std::optional<QDate>(QDate(2027, 1, 31)));
    QCOMPARE(read->frequency, Frequency::SemiAnnual);
    QCOMPARE(read->nextDueDate, QDate(2026, 2, 28));
}

void TstRecurringRepository::brokenDueDateIsTracedAndSaved_data()
{
    QTest::addColumn<QDate>("nextDue");
    QTest::addColumn<QString>("stored");
    QTest::newRow("before 2000") << QDate(1999, 12, 31) << "1999-12-31";
    QTest::newRow("invalid") << QDate() << "";
}

void TstRecurringRepository::brokenDueDateIsTracedAndSaved()
{
    QFETCH(QDate, nextDue);
    QFETCH(QString, stored);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                           "^RecurringRepository::insert saving recurring with broken "
                                           "nextDueDate: id=bad payee=Rent nextDueDate=")));
    QVERIFY(m_repo->insert(rule(QStringLiteral("bad"), nextDue)));
    QCOMPARE(m_db->scalar(QStringLiteral("SELECT next_due_date FROM recurring_transactions")).toString(),
             stored);
}

QTEST_GUILESS_MAIN(TstRecurringRepository)
#include "tst_recurringrepository.moc"
