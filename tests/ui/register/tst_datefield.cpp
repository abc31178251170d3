#include "ui/register/DateField.h"

#include <QFocusEvent>
#include <QSignalSpy>
#include <QTest>

class TstDateField : public QObject {
    Q_OBJECT
private slots:
    void reportsChange_data();
    void reportsChange();
};

void TstDateField::reportsChange_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<char>("key"); // 0: leave the field instead
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("emitted");

    // The stored date is Sunday 3/3/2024.
    QTest::newRow("+ from stored, not typed") << "6/1/2024" << '+' << "3/4/2024" << true;
    QTest::newRow("no change keeps typing") << "abc" << 'w' << "abc" << false;
    QTest::newRow("leave with new date") << "3/4/25" << '\0' << "3/4/1925" << true;
    QTest::newRow("leave with same date") << "03/03/2024" << '\0' << "3/3/2024" << false;
    QTest::newRow("leave with garbage") << "13/45/2024" << '\0' << "3/3/2024" << false;
}

void TstDateField::reportsChange()
{
    QFETCH(QString, typed);
    QFETCH(char, key);
    QFETCH(QString, text);
    QFETCH(bool, emitted);

    DateField field;
    field.setDate(QDate(2024, 3, 3));
    QSignalSpy spy(&field, &DateField::dateChanged);
    field.selectAll();
    QTest::keyClicks(&field, typed);
    if (key) {
        QTest::keyClick(&field, key);
        QCOMPARE(field.selectedText(), text);
    } else {
        QFocusEvent leave(QEvent::FocusOut, Qt::TabFocusReason);
        QCoreApplication::sendEvent(&field, &leave);
    }
    QCOMPARE(field.text(), text);
    QCOMPARE(spy.count(), emitted ? 1 : 0);
    if (emitted)
        QCOMPARE(spy.at(0).at(0).toDate(), QDate::fromString(text, QStringLiteral("M/d/yyyy")));
}

QTEST_MAIN(TstDateField)
#include "tst_datefield.moc"
