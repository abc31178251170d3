#include "ui/register/RegisterModel.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;
using M = RegisterModel;

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

QString cell(const M &model, int row, int column, int role = Qt::DisplayRole)
{
    return model.index(row, column).data(role).toString();
}

} // namespace

class TstRegisterModel : public QObject {
    Q_OBJECT
private slots:
    void emptyAccountShowsOnlyTheNewRow()
    {
        M model;
        QAbstractItemModelTester tester(&model);
        model.setTransactions({});
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(cell(model, 0, M::Date), M::dateText(QDate::currentDate()));
        QCOMPARE(cell(model, 0, M::Payee), u"Payee"_s);
        QVERIFY(cell(model, 0, M::Payee, Qt::EditRole).isEmpty());
        QVERIFY(model.flags(model.index(0, M::Payee)) & Qt::ItemIsEditable);
        model.setLastEnteredDate(u"2/29/2024"_s);
        model.clearPending();
        QCOMPARE(cell(model, 0, M::Date), u"2/29/2024"_s);
    }

    void cells_data()
    {
        QTest::addColumn<qint64>("amount");
        QTest::addColumn<qint64>("balance");
        QTest::addColumn<QString>("shown"); // payment, deposit, balance
        QTest::newRow("payment") << qint64(-123456) << qint64(-5) << u"1,234.56||-0.05"_s;
        QTest::newRow("deposit") << qint64(250000) << qint64(250000) << u"|2,500.00|2,500.00"_s;
        QTest::newRow("zero is a deposit") << qint64(0) << qint64(0) << u"|0.00|0.00"_s;
    }

    void cells()
    {
        QFETCH(qint64, amount);
        QFETCH(qint64, balance);
        QFETCH(QString, shown);
        M model;
        QAbstractItemModelTester tester(&model);
        RegisterRow r = row("a", QDate(2026, 3, 7), "Grocer", amount, balance);
        r.cleared = true;
        model.setTransactions({r});
        QCOMPARE(cell(model, 0, M::Date), u"3/7/2026"_s);
        QCOMPARE(
            QStringList({cell(model, 0, M::Payment), cell(model, 0, M::Deposit), cell(model, 0, M::Balance)})
                .join(u'|'),
            shown);
        QCOMPARE(cell(model, 0, M::Cleared), u"C"_s);
        QVERIFY(!model.index(0, M::Balance).data(Qt::EditRole).isValid());
        QCOMPARE(model.index(0, M::Payment).data(Qt::TextAlignmentRole).toInt(), 130);
        // A row that is not open cannot be edited in place.
        QVERIFY(!(model.flags(model.index(0, M::Payee)) & Qt::ItemIsEditable));
    }

    void sortPlacesTheNewRow_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("order");
        QTest::addColumn<QString>("expected"); // ids down the model, the new row as "+"
        // a and c share a payee; b and c share a date, and same-date rows keep the order they were entered
        // in.
        QTest::newRow("date ascending") << 0 << int(Qt::AscendingOrder) << u"abc+"_s;
        QTest::newRow("date descending, new row first") << 0 << int(Qt::DescendingOrder) << u"+bca"_s;
        QTest::newRow("payee ascending, equal payees newest first")
            << 2 << int(Qt::AscendingOrder) << u"cab+"_s;
        QTest::newRow("payee descending keeps the new row last")
            << 2 << int(Qt::DescendingOrder) << u"bca+"_s;
        QTest::newRow("payment: zero sorts with deposits") << 5 << int(Qt::AscendingOrder) << u"bca+"_s;
    }

    void sortPlacesTheNewRow()
    {
        QFETCH(int, column);
        QFETCH(int, order);
        QFETCH(QString, expected);
        M model;
        QAbstractItemModelTester tester(&model);
        model.setTransactions({row("a", QDate(2026, 1, 1), "Baker", -500),
                               row("b", QDate(2026, 1, 2), "Zoo", 0),
                               row("c", QDate(2026, 1, 2), "Baker", 700)});
        QSignalSpy sorted(&model, &M::sortChanged);
        model.sort(column, Qt::SortOrder(order));
        QCOMPARE(sorted.size(), 1);
        QString ids;
        for (int r = 0; r < model.rowCount(); ++r)
            ids += model.recordAt(r) ? model.recordAt(r)->id : u"+"_s;
        QCOMPARE(ids, expected);
        QCOMPARE(model.findRowById(u"a"_s), int(expected.indexOf(u'a')));
        QCOMPARE(model.findRowById(u"missing"_s), -1);
    }

    void openRowShowsTypingUntilLeft()
    {
        M model;
        QAbstractItemModelTester tester(&model);
        model.setTransactions({row("a", QDate(2026, 1, 1), "Baker", -500)});
        model.loadPending(0);
        model.setEditingRow(0);
        QCOMPARE(cell(model, 0, M::Payment, Qt::EditRole), u"5.00"_s);
        QVERIFY(model.setData(model.index(0, M::Payee), u"Butcher"_s));
        QCOMPARE(cell(model, 0, M::Payee), u"Butcher"_s);
        QCOMPARE(model.recordAt(0)->payee, u"Baker"_s);
        // Leaving the row without saving: a refresh puts the record back and the buffer is blank.
        model.setTransactions({row("a", QDate(2026, 1, 1), "Baker", -500)});
        QCOMPARE(model.editingRow(), -1);
        QCOMPARE(cell(model, 0, M::Payee), u"Baker"_s);
        QVERIFY(model.pendingText(M::Payee).isEmpty());
    }

    void splitRowLocksCategoryAndAmounts()
    {
        M model;
        QAbstractItemModelTester tester(&model);
        RegisterRow split = row("s", QDate(2026, 1, 1), "Market", -3000);
        split.isSplit = true;
        split.categoryName = u"Groceries"_s;
        // The made-up opening row has no id, and no id finds it.
        model.setTransactions({split, row("", QDate(2026, 1, 2), "Opening Balance", 100)});
        QCOMPARE(model.findRowById(QString()), -1);
        QCOMPARE(cell(model, 0, M::Category, Qt::EditRole), u"Groceries"_s);
        model.loadPending(0);
        model.setEditingRow(0);
        QString editable;
        for (int column = M::Date; column < M::Balance; ++column)
            editable += model.flags(model.index(0, column)) & Qt::ItemIsEditable ? u'e' : u'-';
        QCOMPARE(editable, u"eee-e--e"_s);
        QCOMPARE(cell(model, 0, M::Category), u"—Split—"_s);
    }
};

QTEST_MAIN(TstRegisterModel)
#include "tst_registermodel.moc"
