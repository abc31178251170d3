#include "services/TransferHint.h"

#include <QTest>

class TstTransferHint : public QObject {
    Q_OBJECT
private slots:
    void makeAndJoin()
    {
        QCOMPARE(makeTransferHint(QStringLiteral("Savings")), QStringLiteral("[\u2192 Savings]"));
        QCOMPARE(memoWithTransferHint(QStringLiteral("Savings"), QString()),
                 QStringLiteral("[\u2192 Savings]"));
        QCOMPARE(memoWithTransferHint(QStringLiteral("Savings"), QStringLiteral("rent")),
                 QStringLiteral("[\u2192 Savings] rent"));
        QCOMPARE(memoWithTransferHint(QStringLiteral("100%1"), QStringLiteral("%2")),
                 QStringLiteral("[\u2192 100%1] %2"));
    }

    void parse_data()
    {
        QTest::addColumn<QString>("memo");
        QTest::addColumn<bool>("found");
        QTest::addColumn<QString>("hint");
        QTest::addColumn<QString>("rest");
        const auto row = [](const char *name, const char *memo, const char *hint = nullptr,
                            const char *rest = "") {
            QTest::newRow(name) << QString::fromUtf8(memo) << bool(hint) << QString::fromUtf8(hint)
                                << QString::fromUtf8(rest);
        };
        row("with memo", "[\u2192 Savings] rent", "Savings", "rent");
        row("alone", "[\u2192 Savings]", "Savings");
        row("one blank dropped", "[\u2192 Savings]  two", "Savings", " two");
        row("no blank behind", "[\u2192 Savings]rest", "Savings", "rest");
        row("blanks in the name kept", "[\u2192  Livret bleu ]", " Livret bleu ");
        row("first bracket ends it", "[\u2192 A]B] x", "A", "B] x");
        row("empty hint", "[\u2192 ]");
        row("no blank in the prefix", "[\u2192Savings]");
        row("no closing bracket", "[\u2192 Savings");
        row("not at the head", "x [\u2192 Savings]");
        row("plain bracket", "[Savings]");
        row("empty", "");
    }

    void parse()
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
};

QTEST_GUILESS_MAIN(TstTransferHint)
#include "tst_transferhint.moc"
