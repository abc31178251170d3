#include "core/AccountType.h"
#include "core/CategoryType.h"
#include "core/Currency.h"
#include "core/Frequency.h"
#include "core/SyncStatus.h"

#include <QTest>

// Each set as (value, stored word) pairs, with its fallback; one test runs them all alike.
class TstClosedWordSets : public QObject {
    Q_OBJECT
private slots:
    void readsAndWrites_data();
    void readsAndWrites();
    void outOfRangeValuesWriteTheFallback();
};

void TstClosedWordSets::readsAndWrites_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("readBack"); // what the stored word reads as, written again
    QTest::addColumn<QString>("set");

    const auto add = [](const char *set, const QString &stored, const QString &expected) {
        QTest::addRow("%s %s", set, qUtf8Printable(stored)) << stored << expected << QString::fromLatin1(set);
    };
    for (const char *w : {"checking", "savings", "credit_card", "cash", "investment", "other"})
        add("account", QString::fromLatin1(w), QString::fromLatin1(w));
    add("account", QStringLiteral("brokerage"), QStringLiteral("other"));
    add("account", QStringLiteral("Checking"), QStringLiteral("other"));

    for (const char *w : {"USD", "EUR", "GBP", "CAD", "AUD", "JPY"})
        add("currency", QString::fromLatin1(w), QString::fromLatin1(w));
    add("currency", QStringLiteral("CHF"), QStringLiteral("USD"));
    add("currency", QStringLiteral("usd"), QStringLiteral("USD"));

    for (const char *w : {"pending", "synced", "conflict"})
        add("sync", QString::fromLatin1(w), QString::fromLatin1(w));
    add("sync", QString(), QStringLiteral("pending"));

    for (const char *w : {"income", "expense", "transfer"})
        add("category", QString::fromLatin1(w), QString::fromLatin1(w));
    add("category", QStringLiteral("asset"), QStringLiteral("expense"));

    for (const char *w : {"daily", "weekly", "biweekly", "monthly", "quarterly", "semi_annual", "annual"})
        add("frequency", QString::fromLatin1(w), QString::fromLatin1(w));
    add("frequency", QStringLiteral("semiannual"), QStringLiteral("monthly"));
}

void TstClosedWordSets::readsAndWrites()
{
    QFETCH(QString, stored);
    QFETCH(QString, readBack);
    QFETCH(QString, set);

    if (set == QLatin1String("account"))
        QCOMPARE(accountTypeToString(accountTypeFromString(stored)), readBack);
    else if (set == QLatin1String("currency"))
        QCOMPARE(currencyToString(currencyFromString(stored)), readBack);
    else if (set == QLatin1String("sync"))
        QCOMPARE(syncStatusToString(syncStatusFromString(stored)), readBack);
    else if (set == QLatin1String("category"))
        QCOMPARE(categoryTypeToString(categoryTypeFromString(stored)), readBack);
    else
        QCOMPARE(frequencyToString(frequencyFromString(stored)), readBack);
}

void TstClosedWordSets::outOfRangeValuesWriteTheFallback()
{
    QCOMPARE(accountTypeToString(AccountType(99)), QStringLiteral("other"));
    QCOMPARE(currencyToString(Currency(-1)), QStringLiteral("USD"));
    QCOMPARE(syncStatusToString(SyncStatus(7)), QStringLiteral("pending"));
    QCOMPARE(categoryTypeToString(CategoryType(3)), QStringLiteral("expense"));
    QCOMPARE(frequencyToString(Frequency(7)), QStringLiteral("monthly"));
}

QTEST_GUILESS_MAIN(TstClosedWordSets)
#include "tst_closedwordsets.moc"
