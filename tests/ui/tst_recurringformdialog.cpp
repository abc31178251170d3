#include "ui/RecurringFormDialog.h"

#include "support/Widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>

#include <memory>

namespace {
QList<Account> accounts()
{
    Account checking;
    checking.id = QStringLiteral("acc-checking");
    checking.name = QStringLiteral("Checking");
    Account card;
    card.id = QStringLiteral("acc-card");
    card.name = QStringLiteral("Card");
    return {checking, card};
}

QList<Category> categories()
{
    Category rent;
    rent.id = QStringLiteral("cat-rent");
    rent.name = QStringLiteral("Rent");
    return {rent};
}

RecurringTransaction storedRule()
{
    RecurringTransaction r;
    r.id = QStringLiteral("rule-1");
    r.accountId = QStringLiteral("acc-card");
    r.payee = QStringLiteral("Landlord");
    r.amount = -120000;
    r.categoryId = QStringLiteral("cat-rent");
    r.startDate = QDate(2024, 1, 15);
    r.nextDueDate = QDate(2024, 7, 15);
    r.version = 5;
    return r;
}

} // namespace

class TstRecurringFormDialog : public QObject {
    Q_OBJECT
private slots:
    void amountSignFollowsType_data()
    {
        QTest::addColumn<bool>("payment");
        QTest::addColumn<double>("value");
        QTest::addColumn<qint64>("expected");
        QTest::newRow("payment") << true << 12.34 << qint64(-1234);
        QTest::newRow("deposit") << false << 12.34 << qint64(1234);
        QTest::newRow("payment 0.29 rounds") << true << 0.29 << qint64(-29);
        QTest::newRow("deposit 1.01 rounds") << false << 1.01 << qint64(101);
    }

    void amountSignFollowsType()
    {
        QFETCH(bool, payment);
        QFETCH(double, value);
        QFETCH(qint64, expected);
        RecurringFormDialog dialog(accounts(), categories());
        QVERIFY(child<QRadioButton>(&dialog, "paymentRadio")->isChecked());
        child<QRadioButton>(&dialog, payment ? "paymentRadio" : "depositRadio")->setChecked(true);
        child<QDoubleSpinBox>(&dialog, "amountSpin")->setValue(value);
        QCOMPARE(dialog.recurring().amount, expected);
    }

    void untouchedStartDateKeepsSchedule()
    {
        RecurringFormDialog dialog(storedRule(), accounts(), categories());
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Edit Recurring Transaction"));
        child<QLineEdit>(&dialog, "payeeEdit")->setText(QStringLiteral(" New Landlord "));

        const RecurringTransaction r = dialog.recurring();
        QCOMPARE(r.payee, QStringLiteral("New Landlord"));
        QCOMPARE(r.startDate, QDate(2024, 1, 15));
        QCOMPARE(r.nextDueDate, QDate(2024, 7, 15));
        QCOMPARE(r.amount, qint64(-120000));
        QCOMPARE(r.categoryId, QStringLiteral("cat-rent"));
    }

    void changedStartDateRestartsSchedule()
    {
        RecurringFormDialog dialog(storedRule(), accounts(), categories());
        child<QDateEdit>(&dialog, "startDateEdit")->setDate(QDate(2024, 1, 16));

        const RecurringTransaction r = dialog.recurring();
        QCOMPARE(r.startDate, QDate(2024, 1, 16));
        QCOMPARE(r.nextDueDate, QDate(2024, 1, 16));
    }

    void startBeforeFloorFallsBackToToday()
    {
        RecurringFormDialog dialog(accounts(), categories());
        child<QDateEdit>(&dialog, "startDateEdit")->setDate(QDate(1999, 12, 31));

        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                               "^RecurringFormDialog: rejecting invalid startDate "
                                               ".*1999-12-31.* — falling back to today$")));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                               "^RecurringFormDialog: rejecting invalid nextDueDate "
                                               ".*1999-12-31.* — falling back to startDate ")));
        const RecurringTransaction r = dialog.recurring();
        QCOMPARE(r.startDate, QDate::currentDate());
        QCOMPARE(r.nextDueDate, QDate::currentDate());
    }

    void identityAndVersionByMode()
    {
        const RecurringTransaction original = storedRule();

        RecurringFormDialog edit(original, accounts(), categories());
        const RecurringTransaction edited = edit.recurring();
        QCOMPARE(edited.id, original.id);
        QCOMPARE(edited.version, 6);

        std::unique_ptr<RecurringFormDialog> memorize(
            RecurringFormDialog::createFromSeed(original, accounts(), categories()));
        QCOMPARE(memorize->windowTitle(), QStringLiteral("Memorize Transaction"));
        const RecurringTransaction seeded = memorize->recurring();
        QVERIFY(seeded.id != original.id);
        QCOMPARE(seeded.version, 5);
        QCOMPARE(seeded.accountId, QStringLiteral("acc-card"));
        // A new rule starts where its seed is dated, whatever the seed said about its next date.
        QCOMPARE(seeded.nextDueDate, original.startDate);

        RecurringFormDialog fresh(accounts(), categories());
        QCOMPARE(fresh.windowTitle(), QStringLiteral("New Recurring Transaction"));
        const RecurringTransaction created = fresh.recurring();
        QCOMPARE(created.version, 1);
        QCOMPARE(created.accountId, QStringLiteral("acc-checking"));
        QCOMPARE(created.frequency, Frequency::Monthly);
    }

    void endDateOnlyWhenChecked()
    {
        RecurringFormDialog dialog(accounts(), categories());
        auto *check = child<QCheckBox>(&dialog, "endDateCheck");
        auto *end = child<QDateEdit>(&dialog, "endDateEdit");
        QVERIFY(!end->isEnabled());
        end->setDate(QDate(2030, 6, 30));
        QVERIFY(!dialog.recurring().endDate);

        check->setChecked(true);
        QVERIFY(end->isEnabled());
        QCOMPARE(dialog.recurring().endDate, std::optional<QDate>(QDate(2030, 6, 30)));
    }
};

QTEST_MAIN(TstRecurringFormDialog)
#include "tst_recurringformdialog.moc"
