#include "support/Fixtures.h"
#include "support/TempStore.h"

#include <QRegularExpression>
#include <QTest>

#include <optional>

class TstSplitLineRepository : public QObject {
    Q_OBJECT
    std::optional<TempStore> m_store;

private slots:
    // A transaction of 10.00 out, a live category and a deleted one.
    void init()
    {
        m_store.reset();
        m_store.emplace();
        QVERIFY(m_store->ok);
        QVERIFY(m_store->accounts.insert(Fixtures::account("a", "A")));
        QVERIFY(m_store->transactions.insert(
            Fixtures::transaction("t", "a", QDate(2026, 1, 1), "Market", -1000)));
        QVERIFY(m_store->categories.insert(Fixtures::category("food", "Food")));
        QVERIFY(m_store->categories.insert(Fixtures::category("old", "Old")));
        QVERIFY(m_store->categories.softDelete(QStringLiteral("old")));
    }

    void linesFollowTheirTransaction()
    {
        SplitLineRepository &repo = m_store->splitLines;
        const QString t = QStringLiteral("t");
        QVERIFY(repo.deleteForTransaction(t));
        QVERIFY(repo.insert(Fixtures::splitLine("l1", t, "food", -600)));
        QVERIFY(repo.insert(Fixtures::splitLine("l2", t, "food", -400)));
        // A soft-deleted transaction keeps its lines.
        QVERIFY(m_store->transactions.softDelete(t));
        const QList<SplitLine> lines = repo.getForTransaction(t);
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines.at(0).amount + lines.at(1).amount, qint64(-1000));
        QVERIFY(repo.deleteForTransaction(t));
        QVERIFY(repo.getForTransaction(t).isEmpty());
    }

    void categoryMustExist_data()
    {
        QTest::addColumn<QString>("categoryId");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("live") << "food" << true;
        QTest::newRow("soft-deleted") << "old" << true;
        QTest::newRow("missing") << "nope" << false;
        QTest::newRow("none") << QString() << false;
    }

    void categoryMustExist()
    {
        QFETCH(QString, categoryId);
        QFETCH(bool, accepted);
        if (!accepted)
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QStringLiteral("^SplitLineRepository::insert failed:")));
        QCOMPARE(m_store->splitLines.insert(Fixtures::splitLine("l", "t", categoryId, -5)), accepted);
    }
};

QTEST_GUILESS_MAIN(TstSplitLineRepository)
#include "tst_splitlinerepository.moc"
