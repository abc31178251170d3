// The text helpers of the import: decoding a file's bytes, and the transfer hint it leaves in a memo.

#include "services/ImportBytes.h"
#include "services/TransferHint.h"

#include <QTest>

class TstImportText : public QObject {
    Q_OBJECT
private slots:
    void decodeImportBytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QByteArray() << QString();
        QTest::newRow("ascii") << QByteArray("!Type:Bank\n") << QStringLiteral("!Type:Bank\n");
        QTest::newRow("utf-8") << QByteArray("Caf\xC3\xA9 \xE2\x82\xAC") << QStringLiteral("Café €");
        QTest::newRow("utf-8, four bytes") << QByteArray("\xF0\x9F\x98\x80") << QStringLiteral("\U0001F600");
        QTest::newRow("utf-8 mark") << QByteArray("\xEF\xBB\xBFTag") << QStringLiteral("Tag");
        QTest::newRow("utf-8 mark only") << QByteArray("\xEF\xBB\xBF") << QString();
        QTest::newRow("utf-16 le") << QByteArray("\xFF\xFEO\0k\0\xE9\0", 8) << QStringLiteral("Oké");
        QTest::newRow("utf-16 be") << QByteArray("\xFE\xFF\0O\0k\0\xE9", 8) << QStringLiteral("Oké");
        QTest::newRow("iso-8859-1") << QByteArray("C\xE2"
                                                  "ble Electricit\xE9")
                                    << QStringLiteral("Câble Electricité");
        QTest::newRow("1252 euro and dash") << QByteArray("\x80"
                                                          "20 \x97 \x93x\x94")
                                            << QStringLiteral("€20 — “x”");
        QTest::newRow("1252 unassigned")
            << QByteArray("\x81\x8D\x8F\x90\x9D") << QStringLiteral("\u0081\u008D\u008F\u0090\u009D");
        QTest::newRow("overlong") << QByteArray("\xC0\xAF") << QStringLiteral("À¯");
        QTest::newRow("overlong three bytes") << QByteArray("\xE0\x80\xAF") << QStringLiteral("à€¯");
        QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << QStringLiteral("í\u00A0€");
        QTest::newRow("above U+10FFFF") << QByteArray("\xF4\x90\x80\x80") << QStringLiteral("ô\u0090€€");
        QTest::newRow("cut short at the end") << QByteArray("ab\xE2\x82") << QStringLiteral("abâ‚");
        QTest::newRow("lone continuation") << QByteArray("a\x80") << QStringLiteral("a€");
        QTest::newRow("five-byte lead") << QByteArray("\xF8\x88\x80\x80\x80") << QStringLiteral("øˆ€€€");
        QTest::newRow("nul kept") << QByteArray("a\0b", 3)
                                  << QString(QStringLiteral("a") + QChar(0) + QStringLiteral("b"));
    }

    void decodeImportBytes()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(::decodeImportBytes(bytes), text);
    }

    void makeTransferHint()
    {
        QCOMPARE(::makeTransferHint(QStringLiteral("Savings")), QStringLiteral("[\u2192 Savings]"));
        QCOMPARE(memoWithTransferHint(QStringLiteral("Savings"), QString()),
                 QStringLiteral("[\u2192 Savings]"));
        QCOMPARE(memoWithTransferHint(QStringLiteral("Savings"), QStringLiteral("rent")),
                 QStringLiteral("[\u2192 Savings] rent"));
        QCOMPARE(memoWithTransferHint(QStringLiteral("100%1"), QStringLiteral("%2")),
                 QStringLiteral("[\u2192 100%1] %2"));
    }

    void parseTransferHint_data()
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

    void parseTransferHint()
    {
        QFETCH(QString, memo);
        QFETCH(bool, found);
        QFETCH(QString, hint);
        QFETCH(QString, rest);
        const std::optional<TransferHint> parsed = ::parseTransferHint(memo);
        QCOMPARE(parsed.has_value(), found);
        if (found) {
            QCOMPARE(parsed->hint, hint);
            QCOMPARE(parsed->rest, rest);
            // What the import writes, it reads back.
            QCOMPARE(::parseTransferHint(memoWithTransferHint(hint, QStringLiteral("m")))->rest,
                     QStringLiteral("m"));
        }
    }
};

QTEST_GUILESS_MAIN(TstImportText)
#include "tst_importtext.moc"
