#include "ui/register/SmartAmountField.h"

#include <QLineEdit>
#include <QTest>

class TstSmartAmountField : public QObject {
    Q_OBJECT
private slots:
    void typedAmount_data();
    void typedAmount();
    void decimalKeyJumpsToCents();
};

void TstSmartAmountField::typedAmount_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<qint64>("cents");

    QTest::newRow("negative") << "-5" << qint64(-500);
    QTest::newRow("symbol and grouping") << "$1,234.5" << qint64(123450);
    QTest::newRow("minus before symbol") << "-$7.25" << qint64(-725);
    QTest::newRow("minus after symbol") << "$-7.25" << qint64(-725);
    QTest::newRow("letters refused") << "12abc" << qint64(1200);
    QTest::newRow("other symbol refused") << "€5" << qint64(500);
    QTest::newRow("third decimal refused") << "1.239" << qint64(123);
    QTest::newRow("second point goes to cents") << "1.2.3" << qint64(132);
}

void TstSmartAmountField::typedAmount()
{
    QFETCH(QString, typed);
    QFETCH(qint64, cents);

    // A comma decimal point would be read back as a grouping comma, a hundred times too much.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    SmartAmountField field;
    QLocale::setDefault(QLocale::c());
    field.setValue(42);
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    // keyClicks takes ASCII only, and "€" must be tried too.
    for (const QChar c : typed)
        QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString(c), Qt::NoModifier);
    field.interpretText();
    QCOMPARE(qRound64(field.value() * 100), cents);
}

void TstSmartAmountField::decimalKeyJumpsToCents()
{
    SmartAmountField field;
    field.setValue(1234.5);
    auto *edit = field.findChild<QLineEdit *>();
    for (const char key : {'.', ','}) {
        edit->setSelection(1, 2);
        QTest::keyClick(&field, key);
        QCOMPARE(edit->text(), QStringLiteral("1234.50"));
        QCOMPARE(edit->cursorPosition(), 5);
        QVERIFY(!edit->hasSelectedText());
    }
}

QTEST_MAIN(TstSmartAmountField)
#include "tst_smartamountfield.moc"
