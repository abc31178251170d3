#include "core/AccountType.h"
#include "core/CategoryType.h"
#include "core/Currency.h"
#include "core/Frequency.h"
#include "core/SyncStatus.h"

#include <QTest>

// A row written by a newer or foreign client must read as the set's fallback and be written back as it.

class TstClosedWordSets : public QObject {
    Q_OBJECT
private slots:
    void unknownWordsReadAsTheFallback()
    {
        QCOMPARE(accountTypeToString(accountTypeFromString(QStringLiteral("brokerage"))),
                 QStringLiteral("other"));
        QCOMPARE(accountTypeFromString(QStringLiteral("Checking")), AccountType::Other); // words are exact
        QCOMPARE(accountTypeFromString(QStringLiteral("credit_card")), AccountType::CreditCard);
        QCOMPARE(currencyToString(currencyFromString(QStringLiteral("CHF"))), QStringLiteral("USD"));
        QCOMPARE(currencyFromString(QStringLiteral("JPY")), Currency::JPY);
        QCOMPARE(syncStatusFromString(QString()), SyncStatus::Pending);
        QCOMPARE(syncStatusFromString(QStringLiteral("conflict")), SyncStatus::Conflict);
        QCOMPARE(categoryTypeFromString(QStringLiteral("asset")), CategoryType::Expense);
        QCOMPARE(frequencyFromString(QStringLiteral("semiannual")), Frequency::Monthly);
        QCOMPARE(frequencyFromString(QStringLiteral("semi_annual")), Frequency::SemiAnnual);
    }

    void outOfRangeValuesWriteTheFallback()
    {
        QCOMPARE(accountTypeToString(AccountType(99)), QStringLiteral("other"));
        QCOMPARE(currencyToString(Currency(-1)), QStringLiteral("USD"));
        QCOMPARE(syncStatusToString(SyncStatus(7)), QStringLiteral("pending"));
        QCOMPARE(categoryTypeToString(CategoryType(3)), QStringLiteral("expense"));
        QCOMPARE(frequencyToString(Frequency(7)), QStringLiteral("monthly"));
    }
};

QTEST_GUILESS_MAIN(TstClosedWordSets)
#include "tst_closedwordsets.moc"
