// The values below everything else: money, dates, identifiers and the closed word sets.

#include "core/AccountType.h"
#include "core/CategoryType.h"
#include "core/Currency.h"
#include "core/Dates.h"
#include "core/Frequency.h"
#include "core/Identifiers.h"
#include "core/Money.h"
#include "core/SyncStatus.h"

#include "support/Line.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTimeZone>

class TstCoreValues : public QObject {
    Q_OBJECT
private slots:
    void formatAmount_data()
    {
        QTest::addColumn<qint64>("cents");
        QTest::addColumn<Currency>("currency");
        QTest::addColumn<QString>("withSymbol");
        const auto row = [](const char *name, qint64 cents, Currency currency, const char *withSymbol) {
            QTest::newRow(name) << cents << currency << QString::fromUtf8(withSymbol);
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
        row("unknown currency", 100, Currency(42), "$1.00");
        row("most negative", std::numeric_limits<qint64>::min(), Currency::USD,
            "-$92,233,720,368,547,758.08");
    }

    void formatAmount()
    {
        QFETCH(qint64, cents);
        QFETCH(Currency, currency);
        QFETCH(QString, withSymbol);
        // The user's locale must not change the form: a German locale would group with ".".
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(::formatAmount(cents, currency), withSymbol);
        QCOMPARE(::formatAmountPlain(cents, currency), withSymbol.remove(QRegularExpression("[$€£¥]")));
        QLocale::setDefault(QLocale::c());
        // What is written reads back.
        if (cents == std::numeric_limits<qint64>::min() || currency == Currency(42))
            return;
        QCOMPARE(::parseAmount(::formatAmount(cents, currency), currency), cents);
        QCOMPARE(::parseAmount(::formatAmountPlain(cents, currency), currency), cents);
    }

    void parseAmount_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Currency>("currency");
        QTest::addColumn<qint64>("expected");
        // clang-format off
        QTest::newRow("grouped")                      << "1,234.50" << Currency::USD << qint64(123450);
        QTest::newRow("symbol only")                  << "$"        << Currency::USD << qint64(0);
        QTest::newRow("letters")                      << "abc"      << Currency::USD << qint64(0);
        QTest::newRow("other symbol")                 << "€5"       << Currency::USD << qint64(0);
        QTest::newRow("own symbol")                   << "€5"       << Currency::EUR << qint64(500);
        QTest::newRow("sign before symbol")           << "-$5.00"   << Currency::USD << qint64(-500);
        QTest::newRow("sign after symbol")            << "$-5.00"   << Currency::USD << qint64(-500);
        QTest::newRow("padded negative")              << "  -12  "  << Currency::EUR << qint64(-1200);
        QTest::newRow("yen decimals")                 << "1.5"      << Currency::JPY << qint64(0);
        QTest::newRow("yen symbol")                   << "-¥2,000"  << Currency::JPY << qint64(-2000);
        QTest::newRow("one decimal")                  << "7.5"      << Currency::USD << qint64(750);
        QTest::newRow("half cent rounds away")        << "0.125"    << Currency::USD << qint64(13);
        QTest::newRow("negative half cent")           << "-0.125"   << Currency::USD << qint64(-13);
        QTest::newRow("decimal comma is no decimal")  << "5,25"     << Currency::EUR << qint64(52500);
        QTest::newRow("parentheses are not negative") << "(5.00)"   << Currency::USD << qint64(0);
        QTest::newRow("infinity")                     << "inf"      << Currency::USD << qint64(0);
        QTest::newRow("beyond 64 bits")               << "1e300"    << Currency::USD << qint64(0);
        // clang-format on
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

    void timestampsAreWholeSecondUtcText()
    {
        const QDateTime now = utcNow();
        QVERIFY(now.time().msec() == 0 && now.timeSpec() == Qt::UTC &&
                timestampFromText(timestampText(now)) == now);
        // Text comparison in SQL only works if nobody writes a local offset.
        const QDateTime tokyo(QDate(2026, 1, 1), QTime(8, 30, 15), QTimeZone(9 * 3600));
        QCOMPARE(timestampText(tokyo), QStringLiteral("2025-12-31T23:30:15Z"));
        QVERIFY(timestampText(QDateTime()).isEmpty());
        const QDate day(2026, 11, 23);
        QCOMPARE(timestampFromText("2026-11-23T10:00:00+02:00").toUTC(),
                 QDateTime(day, QTime(8, 0), Qt::UTC));
        for (const char *bad : {"", "2026-02-30T10:00:00Z", "2026-11-23T25:00:00Z", "2026-1x-23T10:00:00Z"})
            QVERIFY2(!timestampFromText(bad).isValid(), bad);
    }

    void dateText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("date");
        QTest::newRow("leap day") << "2024-02-29" << QDate(2024, 2, 29);
        QTest::newRow("empty is invalid") << "" << QDate();
        QTest::newRow("not a date") << "2023-02-29" << QDate();
        QTest::newRow("us form is not iso") << "11/23/2026" << QDate();
    }

    void dateText()
    {
        QFETCH(QString, text);
        QFETCH(QDate, date);
        QCOMPARE(dateFromText(text), date);
        QCOMPARE(::dateText(date), date.isValid() ? text : QString());
        QCOMPARE(::dateText(date).isNull(), !date.isValid());
    }

    void newIdIsBracelessRandomUuid()
    {
        static const QRegularExpression form(
            QStringLiteral("^[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}$"));
        QSet<QString> seen;
        for (int i = 0; i < 1000; ++i) {
            const QString id = newId();
            QVERIFY2(form.match(id).hasMatch(), qPrintable(id));
            seen.insert(id);
        }
        QCOMPARE(seen.size(), 1000);
    }

    // Expected values come from an independent UUID v5 implementation.
    void nameBasedIds()
    {
        const auto seeded = [](CategoryType type, const char *parent, const char *name) {
            return seededCategoryId(type, QString::fromUtf8(parent), QString::fromUtf8(name));
        };
        QCOMPARE(seeded(CategoryType::Expense, "", "Groceries"), "f80ec558-0a5d-59fd-bb97-1216bc91c991");
        // The same name under two parents.
        QCOMPARE(seeded(CategoryType::Expense, "Auto", "Maintenance"),
                 "96b28c2c-ce10-53cd-b9d7-a52bfcaf4cde");
        QCOMPARE(seeded(CategoryType::Expense, "Home", "Maintenance"),
                 "f1aca887-56b9-5446-9a57-b3b2e6511905");
        QCOMPARE(seeded(CategoryType::Income, "", "Salário"), "3125992d-bffc-5066-aa85-dd11cfc99e04");
        const QDate due(2026, 1, 31);
        QCOMPARE(recurringOccurrenceId("rule-1", due, false), "a4c92fa8-2417-591e-8527-9b72e9b4b91e");
        QCOMPARE(recurringOccurrenceId("rule-1", due, true), "e61df0da-b3b2-5207-8a5a-6090be5e023b");
    }

    // A row written by a newer or foreign client must read as the set's fallback and be written back as it.
    void unknownWordsReadAndWriteAsTheFallback()
    {
        // Words are exact: "Checking" is no account type.
        QCOMPARE(line(accountTypeToString(accountTypeFromString("brokerage")),
                      int(accountTypeFromString("Checking")), int(accountTypeFromString("credit_card")),
                      currencyToString(currencyFromString("CHF")), int(currencyFromString("JPY")),
                      int(syncStatusFromString(QString())), int(syncStatusFromString("conflict")),
                      int(categoryTypeFromString("asset")), int(frequencyFromString("semiannual")),
                      int(frequencyFromString("semi_annual"))),
                 line("other", int(AccountType::Other), int(AccountType::CreditCard), "USD",
                      int(Currency::JPY), int(SyncStatus::Pending), int(SyncStatus::Conflict),
                      int(CategoryType::Expense), int(Frequency::Monthly), int(Frequency::SemiAnnual)));
        QCOMPARE(line(accountTypeToString(AccountType(99)), currencyToString(Currency(-1)),
                      syncStatusToString(SyncStatus(7)), categoryTypeToString(CategoryType(3)),
                      frequencyToString(Frequency(7))),
                 "other USD pending expense monthly");
    }
};

QTEST_GUILESS_MAIN(TstCoreValues)
#include "tst_corevalues.moc"
