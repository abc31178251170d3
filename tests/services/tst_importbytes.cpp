#include "services/ImportBytes.h"

#include <QTest>

class TstImportBytes : public QObject {
    Q_OBJECT
private slots:
    void decode_data()
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

    void decode()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(decodeImportBytes(bytes), text);
    }
};

QTEST_GUILESS_MAIN(TstImportBytes)
#include "tst_importbytes.moc"
