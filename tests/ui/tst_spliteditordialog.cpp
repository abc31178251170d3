#include "ui/SplitEditorDialog.h"

#include "support/Widgets.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QTableWidget>
#include <QTest>

class TstSplitEditorDialog : public QObject {
    Q_OBJECT
private slots:
    void remainder_data()
    {
        QTest::addColumn<qint64>("total");
        QTest::addColumn<double>("second");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("style");
        QTest::newRow("one cent over") << qint64(-1000) << 4.01 << "Remaining: -$0.01"
                                       << "color: #cc0000;";
        QTest::newRow("exact") << qint64(-1000) << 4.00 << "Remaining: $0.00"
                               << "color: green;";
        QTest::newRow("one cent short") << qint64(1000) << 3.99 << "Remaining: $0.01"
                                        << "";
        // 0.57 * 100 is just under 57: truncating would leave a cent over.
        QTest::newRow("rounds, not truncates") << qint64(657) << 0.57 << "Remaining: $0.00"
                                               << "color: green;";
    }

    void remainder()
    {
        QFETCH(qint64, total);
        QFETCH(double, second);
        QFETCH(QString, text);
        QFETCH(QString, style);
        SplitEditorDialog dialog(total, m_categories, {});
        auto *table = child<QTableWidget>(&dialog, "table");
        QCOMPARE(table->rowCount(), 2);
        amountAt(table, 0)->setValue(6.00);
        amountAt(table, 1)->setValue(second);
        auto *label = child<QLabel>(&dialog, "remainingLabel");
        QCOMPARE(label->text(), text);
        QCOMPARE(label->styleSheet(), style);
    }

    void existingLinesComeBackWithSignAndWithoutZeros()
    {
        SplitLine food;
        food.id = QStringLiteral("old1");
        food.categoryId = QStringLiteral("fuel");
        food.amount = -2500;
        food.memo = QStringLiteral(" tank ");
        SplitLine gone;
        gone.categoryId = QStringLiteral("deleted-category");
        gone.amount = -500;
        SplitEditorDialog dialog(-3000, m_categories, {food, gone});
        auto *table = child<QTableWidget>(&dialog, "table");
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(amountAt(table, 0)->value(), 25.0);
        QCOMPARE(child<QLabel>(&dialog, "remainingLabel")->text(), QStringLiteral("Remaining: $0.00"));

        dialog.addRow();
        const QList<SplitLine> lines = dialog.lines();
        QCOMPARE(lines.size(), 2); // the new empty row is left out
        QCOMPARE(lines[0].categoryId, QStringLiteral("fuel"));
        QCOMPARE(lines[0].amount, qint64(-2500));
        QCOMPARE(lines[0].memo, QStringLiteral(" tank "));
        QVERIFY(lines[0].id != food.id);
        QCOMPARE(lines[1].categoryId, QString());
        QCOMPARE(lines[1].amount, qint64(-500));
    }

private:
    static QDoubleSpinBox *amountAt(QTableWidget *table, int row)
    {
        return static_cast<QDoubleSpinBox *>(table->cellWidget(row, 1));
    }
    const QList<QPair<QString, QString>> m_categories{
        {QStringLiteral("food"), QStringLiteral("Food")       },
        {QStringLiteral("fuel"), QStringLiteral("Auto > Fuel")}
    };
};

QTEST_MAIN(TstSplitEditorDialog)
#include "tst_spliteditordialog.moc"
