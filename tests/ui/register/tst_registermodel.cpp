#include "ui/register/RegisterModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

namespace {

RegisterRow row(const char *id, const QDate &date, const char *payee, qint64 amount, qint64 balance = 0)
{
    RegisterRow r;
    r.id = QString::fromLatin1(id);
    r.date = date;
    r.payee = QString::fromLatin1(payee);
    r.amount = amount;
    r.runningBalance = balance;
    return r;
}

// Ids down the model, the new row written as "+".
QStringList displayOrder(const RegisterModel &model)
{
    QStringList ids;
    for (int r = 0; r < model.rowCount(); ++r) {
        const RegisterRow *record = model.recordAt(r);
        ids << (record ? record->id : QStringLiteral("+"));
    }
    return ids;
}

} // namespace

class TstRegisterModel : public QObject {
    Q_OBJECT
private slots:
    void emptyAccountShowsOnlyTheNewRow();
    void cells_data();
    void cells();
    void sortPlacesTheNewRow_data();
    void sortPlacesTheNewRow();
    void openRowShowsTypingUntilLeft();
    void splitRowLocksCategoryAndAmounts();
    void findRowById();
};

void TstRegisterModel::emptyAccountShowsOnlyTheNewRow()
{
    RegisterModel model;
    QAbstractItemModelTester tester(&model);
    model.setTransactions({});
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.index(0, RegisterModel::Date).data().toString(),
             RegisterModel::dateText(QDate::currentDate()));
    QCOMPARE(model.index(0, RegisterModel::Payee).data().toString(), QStringLiteral("Payee"));
    QVERIFY(model.index(0, RegisterModel::Payee).data(Qt::EditRole).toString().isEmpty());
    QVERIFY(model.flags(model.index(0, RegisterModel::Payee)) & Qt::ItemIsEditable);

    model.setLastEnteredDate(QStringLiteral("2/29/2024"));
    model.clearPending();
    QCOMPARE(model.index(0, RegisterModel::Date).data().toString(), QStringLiteral("2/29/2024"));
}

void TstRegisterModel::cells_data()
{
    QTest::addColumn<qint64>("amount");
    QTest::addColumn<qint64>("balance");
    QTest::addColumn<QString>("payment");
    QTest::addColumn<QString>("deposit");
    QTest::addColumn<QString>("shownBalance");
    QTest::newRow("payment") << qint64(-123456) << qint64(-5) << "1,234.56"
                             << ""
                             << "-0.05";
    QTest::newRow("deposit") << qint64(250000) << qint64(250000) << ""
                             << "2,500.00"
                             << "2,500.00";
    QTest::newRow("zero is a deposit") << qint64(0) << qint64(0) << ""
                                       << "0.00"
                                       << "0.00";
}

void TstRegisterModel::cells()
{
    QFETCH(qint64, amount);
    QFETCH(qint64, balance);
    QFETCH(QString, payment);
    QFETCH(QString, deposit);
    QFETCH(QString, shownBalance);
    RegisterModel model;
    QAbstractItemModelTester tester(&model);
    RegisterRow r = row("a", QDate(2026, 3, 7), "Grocer", amount, balance);
    r.cleared = true;
    model.setTransactions({r});
    QCOMPARE(model.index(0, RegisterModel::Date).data().toString(), QStringLiteral("3/7/2026"));
    QCOMPARE(model.index(0, RegisterModel::Payment).data().toString(), payment);
    QCOMPARE(model.index(0, RegisterModel::Deposit).data().toString(), deposit);
    QCOMPARE(model.index(0, RegisterModel::Balance).data().toString(), shownBalance);
    QCOMPARE(model.index(0, RegisterModel::Cleared).data().toString(), QStringLiteral("C"));
    QVERIFY(!model.index(0, RegisterModel::Balance).data(Qt::EditRole).isValid());
    QCOMPARE(model.index(0, RegisterModel::Payment).data(Qt::TextAlignmentRole).toInt(), 130);
    // A row that is not open cannot be edited in place.
    QVERIFY(!(model.flags(model.index(0, RegisterModel::Payee)) & Qt::ItemIsEditable));
}

void TstRegisterModel::sortPlacesTheNewRow_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("order");
    QTest::addColumn<QStringList>("expected");
    // a and c share a payee; b and c share a date, and same-date rows keep the order they were entered in.
    QTest::newRow("date ascending") << 0 << int(Qt::AscendingOrder) << QStringList{"a", "b", "c", "+"};
    QTest::newRow("date descending, new row first")
        << 0 << int(Qt::DescendingOrder) << QStringList{"+", "b", "c", "a"};
    QTest::newRow("payee ascending, equal payees newest first")
        << 2 << int(Qt::AscendingOrder) << QStringList{"c", "a", "b", "+"};
    QTest::newRow("payee descending keeps the new row last")
        << 2 << int(Qt::DescendingOrder) << QStringList{"b", "c", "a", "+"};
    QTest::newRow("payment: zero sorts with deposits")
        << 5 << int(Qt::AscendingOrder) << QStringList{"b", "c", "a", "+"};
}

void TstRegisterModel::sortPlacesTheNewRow()
{
    QFETCH(int, column);
    QFETCH(int, order);
    QFETCH(QStringList, expected);
    RegisterModel model;
    QAbstractItemModelTester tester(&model);
    model.setTransactions({row("a", QDate(2026, 1, 1), "Baker", -500), row("b", QDate(2026, 1, 2), "Zoo", 0),
                           row("c", QDate(2026, 1, 2), "Baker", 700)});
    QSignalSpy sorted(&model, &RegisterModel::sortChanged);
    model.sort(column, Qt::SortOrder(order));
    QCOMPARE(sorted.size(), 1);
    QCOMPARE(displayOrder(model), expected);
    QCOMPARE(model.findRowById(QStringLiteral("a")), int(expected.indexOf(QStringLiteral("a"))));
}

void TstRegisterModel::openRowShowsTypingUntilLeft()
{
    RegisterModel model;
    QAbstractItemModelTester tester(&model);
    model.setTransactions({row("a", QDate(2026, 1, 1), "Baker", -500)});
    model.loadPending(0);
    model.setEditingRow(0);
    QCOMPARE(model.index(0, RegisterModel::Payment).data(Qt::EditRole).toString(), QStringLiteral("5.00"));
    QVERIFY(model.setData(model.index(0, RegisterModel::Payee), QStringLiteral("Butcher")));
    QCOMPARE(model.index(0, RegisterModel::Payee).data().toString(), QStringLiteral("Butcher"));
    QCOMPARE(model.recordAt(0)->payee, QStringLiteral("Baker"));

    // Leaving the row without saving: a refresh puts the record back and the buffer is blank.
    model.setTransactions({row("a", QDate(2026, 1, 1), "Baker", -500)});
    QCOMPARE(model.editingRow(), -1);
    QCOMPARE(model.index(0, RegisterModel::Payee).data().toString(), QStringLiteral("Baker"));
    QVERIFY(model.pendingText(RegisterModel::Payee).isEmpty());
}

void TstRegisterModel::splitRowLocksCategoryAndAmounts()
{
    RegisterModel model;
    QAbstractItemModelTester tester(&model);
    RegisterRow split = row("s", QDate(2026, 1, 1), "Market", -3000);
    split.isSplit = true;
    split.categoryName = QStringLiteral("Groceries");
    model.setTransactions({split});
    QCOMPARE(model.index(0, RegisterModel::Category).data().toString(), QStringLiteral("—Split—"));
    QCOMPARE(model.index(0, RegisterModel::Category).data(Qt::EditRole).toString(),
             QStringLiteral("Groceries"));
    model.loadPending(0);
    model.setEditingRow(0);
    for (const int column :
         {int(RegisterModel::Category), int(RegisterModel::Payment), int(RegisterModel::Deposit)})
        QVERIFY2(!(model.flags(model.index(0, column)) & Qt::ItemIsEditable),
                 qPrintable(QString::number(column)));
    for (const int column : {int(RegisterModel::Date), int(RegisterModel::Payee), int(RegisterModel::Memo)})
        QVERIFY(model.flags(model.index(0, column)) & Qt::ItemIsEditable);
    QCOMPARE(model.index(0, RegisterModel::Category).data().toString(), QStringLiteral("—Split—"));
}

void TstRegisterModel::findRowById()
{
    RegisterModel model;
    model.setTransactions(
        {row("", QDate(2026, 1, 1), "Opening Balance", 100), row("a", QDate(2026, 1, 2), "P", 1)});
    QCOMPARE(model.findRowById(QString()), -1);
    QCOMPARE(model.findRowById(QStringLiteral("a")), 1);
    QCOMPARE(model.findRowById(QStringLiteral("missing")), -1);
}

QTEST_MAIN(TstRegisterModel)
#include "tst_registermodel.moc"
