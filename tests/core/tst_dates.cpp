#include "core/Dates.h"

#include <QTest>
#include <QTimeZone>

class TstDates : public QObject {
    Q_OBJECT
private slots:
    void timestampsAreWholeSecondUtcText();
    void timestampFromLocalTimeIsWrittenInUtc();
    void dateText_data();
    void dateText();
};

void TstDates::timestampsAreWholeSecondUtcText()
{
    const QDateTime now = utcNow();
    QCOMPARE(now.time().msec(), 0);
    QCOMPARE(now.timeSpec(), Qt::UTC);

    const QString text = timestampText(now);
    QCOMPARE(text.size(), 20);
    QVERIFY(text.endsWith(QLatin1Char('Z')));
    QCOMPARE(timestampFromText(text), now);
}

void TstDates::timestampFromLocalTimeIsWrittenInUtc()
{
    // Text comparison in SQL only works if nobody writes a local offset.
    const QDateTime tokyo(QDate(2026, 1, 1), QTime(8, 30, 15), QTimeZone(9 * 3600));
    QCOMPARE(timestampText(tokyo), QStringLiteral("2025-12-31T23:30:15Z"));
    QVERIFY(timestampText(QDateTime()).isEmpty());
    QVERIFY(!timestampFromText(QString()).isValid());
}

void TstDates::dateText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    QTest::newRow("ordinary") << "2026-11-23" << QDate(2026, 11, 23);
    QTest::newRow("leap day") << "2024-02-29" << QDate(2024, 2, 29);
    QTest::newRow("empty is invalid") << "" << QDate();
    QTest::newRow("not a date") << "2023-02-29" << QDate();
    QTest::newRow("us form is not iso") << "11/23/2026" << QDate();
}

void TstDates::dateText()
{
    QFETCH(QString, text);
    QFETCH(QDate, date);
    QCOMPARE(dateFromText(text), date);
    if (date.isValid())
        QCOMPARE(::dateText(date), text);
    else
        QVERIFY(::dateText(date).isNull());
}

QTEST_GUILESS_MAIN(TstDates)
#include "tst_dates.moc"
