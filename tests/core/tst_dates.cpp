#include "core/Dates.h"

#include <QTest>
#include <QTimeZone>

class TstDates : public QObject {
    Q_OBJECT
private slots:
    void timestampsAreWholeSecondUtcText()
    {
        const QDateTime now = utcNow();
        QCOMPARE(now.time().msec(), 0);
        QCOMPARE(now.timeSpec(), Qt::UTC);
        QCOMPARE(::timestampFromText(timestampText(now)), now);
        // Text comparison in SQL only works if nobody writes a local offset.
        const QDateTime tokyo(QDate(2026, 1, 1), QTime(8, 30, 15), QTimeZone(9 * 3600));
        QCOMPARE(timestampText(tokyo), QStringLiteral("2025-12-31T23:30:15Z"));
        QVERIFY(timestampText(QDateTime()).isEmpty());
    }

    void timestampFromText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDateTime>("expected");
        const QDate day(2026, 11, 23);
        QTest::newRow("stored form") << "2026-11-23T09:05:07Z" << QDateTime(day, QTime(9, 5, 7), Qt::UTC);
        QTest::newRow("offset form") << "2026-11-23T10:00:00+02:00" << QDateTime(day, QTime(8, 0), Qt::UTC);
        QTest::newRow("empty") << "" << QDateTime();
        QTest::newRow("no such day") << "2026-02-30T10:00:00Z" << QDateTime();
        QTest::newRow("no such hour") << "2026-11-23T25:00:00Z" << QDateTime();
        QTest::newRow("letters in digits") << "2026-1x-23T10:00:00Z" << QDateTime();
    }

    void timestampFromText()
    {
        QFETCH(QString, text);
        QFETCH(QDateTime, expected);
        const QDateTime parsed = ::timestampFromText(text);
        QCOMPARE(parsed.isValid(), expected.isValid());
        if (expected.isValid())
            QCOMPARE(parsed.toUTC(), expected);
    }

    void dateText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("date");
        QTest::newRow("ordinary") << "2026-11-23" << QDate(2026, 11, 23);
        QTest::newRow("leap day") << "2024-02-29" << QDate(2024, 2, 29);
        QTest::newRow("empty is invalid") << "" << QDate();
        QTest::newRow("not a date") << "2023-02-29" << QDate();
        QTest::newRow("us form is not iso") << "11/23/2026" << QDate();
        QTest::newRow("letters") << "2026-ab-01" << QDate();
    }

    void dateText()
    {
        QFETCH(QString, text);
        QFETCH(QDate, date);
        QCOMPARE(dateFromText(text), date);
        QCOMPARE(::dateText(date), date.isValid() ? text : QString());
        QCOMPARE(::dateText(date).isNull(), !date.isValid());
    }
};

QTEST_GUILESS_MAIN(TstDates)
#include "tst_dates.moc"
