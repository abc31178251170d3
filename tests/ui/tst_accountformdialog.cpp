#include "ui/AccountFormDialog.h"

#include "support/Widgets.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QTest>

class TstAccountFormDialog : public QObject {
    Q_OBJECT
private slots:
    void balanceIsTheShownValueInCents_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<qint64>("expected");
        QTest::newRow("0.29 sits below 29 cents") << 0.29 << qint64(29);
        QTest::newRow("negative") << -0.29 << qint64(-29);
        QTest::newRow("1.01") << 1.01 << qint64(101);
        QTest::newRow("12.34") << 12.34 << qint64(1234);
        QTest::newRow("0.285 shows as 0.28") << 0.285 << qint64(28);
        QTest::newRow("-0.285 shows as -0.28") << -0.285 << qint64(-28);
        QTest::newRow("1.005 shows as 1.00") << 1.005 << qint64(100);
        QTest::newRow("largest") << 99999999.99 << qint64(9999999999);
        QTest::newRow("smallest") << -99999999.99 << qint64(-9999999999);
    }

    void balanceIsTheShownValueInCents()
    {
        QFETCH(double, value);
        QFETCH(qint64, expected);
        AccountFormDialog dialog;
        auto *spin = child<QDoubleSpinBox>(&dialog, "balanceSpin");
        spin->setValue(value);
        QCOMPARE(dialog.account().startingBalance, expected);
        // Whatever the double, the record must hold what the user sees.
        QCOMPARE(dialog.account().startingBalance, qRound64(spin->cleanText().toDouble() * 100.0));
    }

    void newAccountTrimsAndGetsFreshIdentity()
    {
        AccountFormDialog dialog;
        QCOMPARE(dialog.windowTitle(), QStringLiteral("New Account"));
        child<QLineEdit>(&dialog, "nameEdit")->setText(QStringLiteral("   "));
        child<QLineEdit>(&dialog, "institutionEdit")->setText(QStringLiteral(" First Bank "));
        child<QComboBox>(&dialog, "typeCombo")->setCurrentIndex(2);
        child<QComboBox>(&dialog, "currencyCombo")->setCurrentIndex(5);

        const Account a = dialog.account();
        QCOMPARE(a.name, QString());
        QCOMPARE(a.institution, QStringLiteral("First Bank"));
        QCOMPARE(a.accountType, AccountType::CreditCard);
        QCOMPARE(a.currency, Currency::JPY);
        QCOMPARE(a.id.size(), 36); // a UUID without braces
        QVERIFY(a.createdAt.isValid());
        QCOMPARE(dialog.openingDate(), QDate::currentDate());
    }

    void editKeepsIdentityAndMapsUnknownKeys_data()
    {
        QTest::addColumn<AccountType>("type");
        QTest::addColumn<Currency>("currency");
        QTest::addColumn<AccountType>("expectedType");
        QTest::addColumn<Currency>("expectedCurrency");
        QTest::newRow("known") << AccountType::Investment << Currency::GBP << AccountType::Investment
                               << Currency::GBP;
        QTest::newRow("unknown") << static_cast<AccountType>(42) << static_cast<Currency>(17)
                                 << AccountType::Other << Currency::USD;
    }

    void editKeepsIdentityAndMapsUnknownKeys()
    {
        QFETCH(AccountType, type);
        QFETCH(Currency, currency);
        QFETCH(AccountType, expectedType);
        QFETCH(Currency, expectedCurrency);
        Account original;
        original.id = QStringLiteral("acc-1");
        original.accountType = type;
        original.currency = currency;
        original.startingBalance = -12345;
        original.syncStatus = SyncStatus::Synced;
        original.createdAt = QDateTime(QDate(2021, 3, 4), QTime(5, 6, 7), Qt::UTC);

        AccountFormDialog dialog(original);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Edit Account"));
        const Account a = dialog.account();
        QCOMPARE(a.id, original.id);
        QCOMPARE(a.createdAt, original.createdAt);
        QCOMPARE(a.accountType, expectedType);
        QCOMPARE(a.currency, expectedCurrency);
        QCOMPARE(a.startingBalance, qint64(-12345));
        QCOMPARE(a.syncStatus, SyncStatus::Pending);
    }
};

QTEST_MAIN(TstAccountFormDialog)
#include "tst_accountformdialog.moc"
