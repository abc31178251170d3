#include "core/ThemeManager.h"
#include "ui/register/SmartDateEdit.h"

#include <QCalendarWidget>
#include <QTest>

class TstSmartDateEdit : public QObject {
    Q_OBJECT
private slots:
    void dateCommand_data();
    void dateCommand();
    void typedText_data();
    void typedText();
    void calendarFollowsWeekStart();
};

void TstSmartDateEdit::dateCommand_data()
{
    QTest::addColumn<QDate>("start");
    QTest::addColumn<char>("key");
    QTest::addColumn<QDate>("expected"); // invalid: today

    const QDate leap(2024, 2, 29); // a Thursday
    QTest::newRow("t") << leap << 't' << QDate();
    QTest::newRow("T") << leap << 'T' << QDate();
    QTest::newRow("+ after leap day") << leap << '+' << QDate(2024, 3, 1);
    QTest::newRow("= over year end") << QDate(2024, 12, 31) << '=' << QDate(2025, 1, 1);
    QTest::newRow("- to leap day") << QDate(2024, 3, 1) << '-' << leap;
    QTest::newRow("m") << leap << 'm' << QDate(2024, 2, 1);
    QTest::newRow("h leap") << QDate(2024, 2, 3) << 'h' << leap;
    QTest::newRow("h common") << QDate(2023, 2, 3) << 'h' << QDate(2023, 2, 28);
    QTest::newRow("y") << leap << 'y' << QDate(2024, 1, 1);
    QTest::newRow("r") << leap << 'r' << QDate(2024, 12, 31);
    QTest::newRow("w thursday") << leap << 'w' << QDate(2024, 2, 25);
    QTest::newRow("w monday") << QDate(2024, 2, 26) << 'w' << QDate(2024, 2, 25);
    QTest::newRow("w sunday stays") << QDate(2024, 3, 3) << 'w' << QDate(2024, 3, 3);
    QTest::newRow("k thursday") << leap << 'k' << QDate(2024, 3, 2);
    QTest::newRow("k saturday stays") << QDate(2024, 3, 2) << 'k' << QDate(2024, 3, 2);
    QTest::newRow("k sunday") << QDate(2024, 2, 25) << 'k' << QDate(2024, 3, 2);
}

void TstSmartDateEdit::dateCommand()
{
    QFETCH(QDate, start);
    QFETCH(char, key);
    QFETCH(QDate, expected);
    if (!expected.isValid())
        expected = QDate::currentDate();

    // The week commands keep a Sunday-to-Saturday week whatever day the calendar starts on.
    for (const Qt::DayOfWeek weekStart : {Qt::Monday, Qt::Sunday}) {
        ThemeManager::setFirstDayOfWeek(weekStart);
        SmartDateEdit edit;
        edit.setDate(start);
        QTest::keyClick(&edit, key);
        QCOMPARE(edit.date(), expected);
        QCOMPARE(edit.text(), expected.toString(QStringLiteral("M/d/yyyy")));
        QCOMPARE(edit.selectedText(), edit.text());
    }
}

void TstSmartDateEdit::typedText_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QDate>("expected");

    const QDate stored(2024, 2, 29);
    QTest::newRow("padded") << "03/04/2024" << QDate(2024, 3, 4);
    QTest::newRow("two digits are 19yy") << "3/4/25" << QDate(1925, 3, 4);
    QTest::newRow("99") << "12/31/99" << QDate(1999, 12, 31);
    QTest::newRow("00") << "1/1/00" << QDate(1900, 1, 1);
    QTest::newRow("no such day") << "2/30/2024" << stored;
    QTest::newRow("day first") << "29/2/2024" << stored;
    QTest::newRow("empty") << "" << stored;
}

void TstSmartDateEdit::typedText()
{
    QFETCH(QString, typed);
    QFETCH(QDate, expected);

    SmartDateEdit edit;
    edit.setDate(QDate(2024, 2, 29));
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QTest::keyClicks(&edit, typed);
    QCOMPARE(edit.text(), typed);
    QCOMPARE(edit.date(), expected);
}

void TstSmartDateEdit::calendarFollowsWeekStart()
{
    SmartDateEdit edit;
    for (const Qt::DayOfWeek weekStart : {Qt::Monday, Qt::Sunday}) {
        edit.setDate(QDate(2024, 2, 29));
        ThemeManager::setFirstDayOfWeek(weekStart);
        QTest::keyClick(&edit, Qt::Key_F4);
        auto *calendar = edit.findChild<QCalendarWidget *>();
        QVERIFY(calendar && calendar->isVisible());
        QCOMPARE(calendar->firstDayOfWeek(), weekStart);
        QCOMPARE(calendar->selectedDate(), QDate(2024, 2, 29));

        emit calendar->clicked(QDate(2024, 3, 15));
        QVERIFY(!calendar->isVisible());
        QCOMPARE(edit.text(), QStringLiteral("3/15/2024"));
        delete calendar;
    }
}

QTEST_MAIN(TstSmartDateEdit)
#include "tst_smartdateedit.moc"
