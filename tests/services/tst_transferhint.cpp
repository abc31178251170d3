#include "services/TransferHint.h"

#include <QTest>

class TstTransferHint : public QObject {
    Q_OBJECT
private slots:
    void makeAndJoin();
    void parse_data();
    void parse();
};

void TstTransferHint::makeAndJoin()
{
    QCOMPARE(makeTransferHint(QStringLiteral("Savings")), QStringLiteral("[\u2192 Savings]"));
    QCOMPARE(memoWithTransferHint(QStringLiteral("Savings"), QString()), QStringLiteral("[\u2192 Savings]"));
    QCOMPARE(memoWithTransferHint(QStringLiteral("Savings"), QStringLiteral("rent")),
             QStringLiteral("[\u2192 Savings] rent"));
    QCOMPARE(memoWithTransferHint(QStringLiteral("100%1"), QStringLiteral("%2")),
             QStringLiteral("[\u2192 100%1] %2"));
}

void TstTransferHint::parse_data()
{
    QTest::addColumn<QString>("memo");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QString>("hint");
    QTest::addColumn<QString>("rest");
    QTest::newRow("with memo") << "[\u2192 Savings] rent" << true << "Savings"
                               << "rent";
    QTest::newRow("alone") << "[\u2192 Savings]" << true << "Savings"
                           << "";
    QTest::newRow("one blank dropped") << "[\u2192 Savings]  two" << true << "Savings"
                                       << " two";
    QTest::newRow("no blank behind") << "[\u2192 Savings]rest" << true << "Savings"
                                     << "rest";
    QTest::newRow("blanks in the name kept") << "[\u2192  Livret bleu ]" << true << " Livret bleu "
                                             << "";
    QTest::newRow("first bracket ends it") << "[\u2192 A]B] x" << true << "A"
                                           << "B] x";
    QTest::newRow("empty hint") << "[\u2192 ]" << false << ""
                                << "";
    QTest::newRow("no blank in the prefix") << "[\u2192Savings]" << false << ""
                                            << "";
    QTest::newRow("no closing bracket") << "[\u2192 Savings" << false << ""
                                        << "";
    QTest::newRow("not at the head") << "x [\u2192 Savings]" << false << ""
                                     << "";
    QTest::newRow("plain bracket") << "[Savings]" << false << ""
                                   << "";
    QTest::newRow("empty") << "" << false << ""
                           << "";
}

void TstTransferHint::parse()
{
    QFETCH(QString, memo);
    QFETCH(bool, found);
    QFETCH(QString, hint);
    QFETCH(QString, rest);
    const std::optional<TransferHint> parsed = parseTransferHint(memo);
    QCOMPARE(parsed.has_value(), found);
    if (found) {
        QCOMPARE(parsed->hint, hint);
        QCOMPARE(parsed->rest, rest);
        // What the import writes, it reads back.
        QCOMPARE(parseTransferHint(memoWithTransferHint(hint, QStringLiteral("m")))->rest,
                 QStringLiteral("m"));
    }
}

QTEST_GUILESS_MAIN(TstTransferHint)
#include "tst_transferhint.moc"
