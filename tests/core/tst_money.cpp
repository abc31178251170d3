#include "core/Money.h"

#include <QRegularExpression>
#include <QTest>

class TstMoney : public QObject {
    Q_OBJECT
private slots:
    void formatAmount_data()
    {
        QTest::addColumn<qint64>("cents");
        QTest::addColumn<Currency>("currency");
        QTest::addColumn<QString>("withSymbol");
        QTest::addColumn<QString>("plain");

        const auto row = [](const char *name, qint64 cents, Currency currency, const char *withSymbol) {
            const QString symbol = QString::fromUtf8(withSymbol);
            // Without the symbol, the same text.
            QTest::newRow(name) << cents << currency << symbol
                                << QString(symbol).remove(QRegularExpression("[$€£¥]"));
        };
        row("zero", 0, Currency::USD, "$0.00");
        row("one cent out", -1, Currency::USD, "-$0.01");
        row("five cents", 5, Currency::USD, "$0.05");
        row("grouped negative", -123456, Currency::USD, "-$1,234.56");
        row("million pounds", 100000000, Currency::GBP, "£1,000,000.00");
        row("euro", 500, Currency::EUR, "€5.00");
        row("cad bare dollar", 250, Currency::CAD, "$2.50");
        row("aud bare dollar", -250, Currency::AUD, "-$2.50");
        row("yen not divided", 1234, Currency::JPY, "¥1,234");
        row("yen negative", -1500, Currency::JPY, "-¥1,500");
        row("yen zero", 0, Currency::JPY, "¥0");
        row("unknown currency", 100, Currency(42), "$1.00");
        row("most negative", std::numeric_limits<qint64>::min(), Currency::USD,
            "-$92,233,720,368,547,758.08");
    }

    void formatAmount()
    {
        QFETCH(qint64, cents);
        QFETCH(Currency, currency);
        QFETCH(QString, withSymbol);
        QFETCH(QString, plain);

        // The user's locale must not change the form: a German locale would group with ".".
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(::formatAmount(cents, currency), withSymbol);
        QCOMPARE(::formatAmountPlain(cents, currency), plain);
        QLocale::setDefault(QLocale::c());
    }

    void parseAmount_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Currency>("currency");
        QTest::addColumn<qint64>("expected");

        QTest::newRow("grouped") << "1,234.50" << Currency::USD << qint64(123450);
        QTest::newRow("symbol only") << "$" << Currency::USD << qint64(0);
        QTest::newRow("letters") << "abc" << Currency::USD << qint64(0);
        QTest::newRow("empty") << "" << Currency::USD << qint64(0);
        QTest::newRow("other symbol") << "€5" << Currency::USD << qint64(0);
        QTest::newRow("own symbol") << "€5" << Currency::EUR << qint64(500);
        QTest::newRow("sign before symbol") << "-$5.00" << Currency::USD << qint64(-500);
        QTest::newRow("sign after symbol") << "$-5.00" << Currency::USD << qint64(-500);
        QTest::newRow("padded negative") << "  -12  " << Currency::EUR << qint64(-1200);
        QTest::newRow("yen decimals") << "1.5" << Currency::JPY << qint64(0);
        QTest::newRow("yen grouped") << "1,500" << Currency::JPY << qint64(1500);
        QTest::newRow("yen symbol") << "-¥2,000" << Currency::JPY << qint64(-2000);
        QTest::newRow("one decimal") << "7.5" << Currency::USD << qint64(750);
        QTest::newRow("half cent rounds away") << "0.125" << Currency::USD << qint64(13);
        QTest::newRow("negative half cent") << "-0.125" << Currency::USD << qint64(-13);
        QTest::newRow("decimal comma is no decimal") << "5,25" << Currency::EUR << qint64(52500);
        QTest::newRow("parentheses are not negative") << "(5.00)" << Currency::USD << qint64(0);
        QTest::newRow("infinity") << "inf" << Currency::USD << qint64(0);
        QTest::newRow("beyond 64 bits") << "1e300" << Currency::USD << qint64(0);
    }

    void parseAmount()
    {
        QFETCH(QString, text);
        QFETCH(Currency, currency);
        QFETCH(qint64, expected);

        QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
        QCOMPARE(::parseAmount(text, currency), expected);
        QLocale::setDefault(QLocale::c());
    }

    void formatThenParseRoundTrips_data()
    {
        QTest::addColumn<qint64>("cents");
        QTest::addColumn<Currency>("currency");
        for (const Currency c : {Currency::USD, Currency::EUR, Currency::GBP, Currency::JPY}) {
            for (const qint64 v :
                 {qint64(0), qint64(-1), qint64(99), qint64(-123456789), qint64(100000000000)}) {
                const QByteArray name = QByteArray::number(int(c)) + ':' + QByteArray::number(v);
                QTest::newRow(name.constData()) << v << c;
            }
        }
    }

    void formatThenParseRoundTrips()
    {
        QFETCH(qint64, cents);
        QFETCH(Currency, currency);
        QCOMPARE(::parseAmount(::formatAmount(cents, currency), currency), cents);
        QCOMPARE(::parseAmount(::formatAmountPlain(cents, currency), currency), cents);
    }
};

QTEST_GUILESS_MAIN(TstMoney)
#include "tst_money.moc"
