#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "support/TempDatabase.h"

#include <QRegularExpression>
#include <QTest>

class TstSplitLineRepository : public QObject {
    Q_OBJECT
private slots:
    void linesFollowTheirTransaction();
    void categoryMustExist_data();
    void categoryMustExist();
};

namespace {

bool setUp(TempDatabase &db)
{
    if (!db.open())
        return false;
    Category food;
    food.id = QStringLiteral("food");
    food.name = QStringLiteral("Food");
    food.createdAt = QDateTime::currentDateTimeUtc();
    food.updatedAt = food.createdAt;
    Category old = food;
    old.id = QStringLiteral("old");
    old.name = QStringLiteral("Old");
    CategoryRepository categories(db.database());
    return AccountRepository(db.database())
               .insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))) &&
           TransactionRepository(db.database())
               .insert(Fixtures::transaction(QStringLiteral("t"), QStringLiteral("a"), QDate(2026, 1, 1),
                                             QStringLiteral("Market"), -1000)) &&
           categories.insert(food) && categories.insert(old) && categories.softDelete(QStringLiteral("old"));
}

SplitLine line(const QString &id, const QString &categoryId, qint64 amount)
{
    SplitLine l;
    l.id = id;
    l.transactionId = QStringLiteral("t");
    l.categoryId = categoryId;
    l.amount = amount;
    l.createdAt = QDateTime::currentDateTimeUtc();
    l.updatedAt = l.createdAt;
    return l;
}

} // namespace

void TstSplitLineRepository::linesFollowTheirTransaction()
{
    TempDatabase db;
    QVERIFY(setUp(db));
    SplitLineRepository repo(db.database());
    QVERIFY(repo.deleteForTransaction(QStringLiteral("t")));
    QVERIFY(repo.insert(line(QStringLiteral("l1"), QStringLiteral("food"), -600)));
    QVERIFY(repo.insert(line(QStringLiteral("l2"), QStringLiteral("food"), -400)));
    // A soft-deleted transaction keeps its lines.
    QVERIFY(TransactionRepository(db.database()).softDelete(QStringLiteral("t")));
    const QList<SplitLine> lines = repo.getForTransaction(QStringLiteral("t"));
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.at(0).amount + lines.at(1).amount, qint64(-1000));
    QVERIFY(repo.deleteForTransaction(QStringLiteral("t")));
    QVERIFY(repo.getForTransaction(QStringLiteral("t")).isEmpty());
}

void TstSplitLineRepository::categoryMustExist_data()
{
    QTest::addColumn<QString>("categoryId");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("live") << "food" << true;
    QTest::newRow("soft-deleted") << "old" << true;
    QTest::newRow("missing") << "nope" << false;
    QTest::newRow("none") << QString() << false;
}

void TstSplitLineRepository::categoryMustExist()
{
    QFETCH(QString, categoryId);
    QFETCH(bool, accepted);
    TempDatabase db;
    QVERIFY(setUp(db));
    SplitLineRepository repo(db.database());
    if (!accepted)
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("^SplitLineRepository::insert failed:")));
    QCOMPARE(repo.insert(line(QStringLiteral("l"), categoryId, -5)), accepted);
}

QTEST_GUILESS_MAIN(TstSplitLineRepository)
#include "tst_splitlinerepository.moc"
