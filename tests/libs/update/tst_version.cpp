#include "update/Version.h"

#include <QTest>

using HalcUpdate::Version;

class TstVersion : public QObject {
    Q_OBJECT
private slots:
    void fromString_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::addColumn<int>("patch");
        QTest::newRow("three parts") << "1.0.9" << 1 << 0 << 9;
        QTest::newRow("one part") << "2" << 2 << 0 << 0;
        QTest::newRow("two parts") << "1.10" << 1 << 10 << 0;
        QTest::newRow("pre-release suffix") << "2.0.0-rc1" << 0 << 0 << 0;
        QTest::newRow("four parts") << "1.2.3.4" << 0 << 0 << 0;
        QTest::newRow("empty part") << "1..3" << 0 << 0 << 0;
        QTest::newRow("empty") << "" << 0 << 0 << 0;
    }

    void fromString()
    {
        QFETCH(QString, text);
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(int, patch);
        QCOMPARE(Version::fromString(text), (Version{major, minor, patch}));
    }

    void ordersNumerically()
    {
        QVERIFY(Version::fromString(QStringLiteral("1.0.9")) < Version::fromString(QStringLiteral("1.0.10")));
        QVERIFY(Version::fromString(QStringLiteral("1.9.9")) < Version::fromString(QStringLiteral("2")));
        QVERIFY(
            !(Version::fromString(QStringLiteral("1.0.9")) < Version::fromString(QStringLiteral("1.0.9"))));
        QVERIFY(Version::fromString(QStringLiteral("garbage")) <
                Version::fromString(QStringLiteral("0.0.1")));
    }
};

QTEST_GUILESS_MAIN(TstVersion)
#include "tst_version.moc"
