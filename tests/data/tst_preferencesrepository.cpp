#include "data/PreferencesRepository.h"
#include "support/TempDatabase.h"

#include <QSignalSpy>
#include <QTest>

class TstPreferencesRepository : public QObject {
    Q_OBJECT
private slots:
    void getBool_data();
    void getBool();
    void setReplacesAndEmitsEachTime();
    void nullValueIsPresentAndEmpty();
    void removeOfMissingKeySucceeds();
};

void TstPreferencesRepository::getBool_data()
{
    QTest::addColumn<QString>("stored"); // null: no row
    QTest::addColumn<bool>("defaultValue");
    QTest::addColumn<bool>("expected");
    QTest::newRow("one") << "1" << false << true;
    QTest::newRow("true") << "true" << false << true;
    QTest::newRow("yes is not true") << "yes" << true << false;
    QTest::newRow("TRUE is not true") << "TRUE" << true << false;
    QTest::newRow("zero") << "0" << true << false;
    QTest::newRow("empty") << "" << true << false;
    QTest::newRow("missing gives default true") << QString() << true << true;
    QTest::newRow("missing gives default false") << QString() << false << false;
}

void TstPreferencesRepository::getBool()
{
    QFETCH(QString, stored);
    QFETCH(bool, defaultValue);
    QFETCH(bool, expected);
    TempDatabase db;
    QVERIFY(db.open());
    PreferencesRepository prefs(db.database());
    if (!stored.isNull())
        QVERIFY(prefs.set(QStringLiteral("flag"), stored));
    QCOMPARE(prefs.getBool(QStringLiteral("flag"), defaultValue), expected);
}

void TstPreferencesRepository::setReplacesAndEmitsEachTime()
{
    TempDatabase db;
    QVERIFY(db.open());
    PreferencesRepository prefs(db.database());
    QSignalSpy changed(&prefs, &PreferencesRepository::changed);
    QVERIFY(prefs.set(QStringLiteral("theme"), QStringLiteral("dark")));
    QVERIFY(prefs.setInt(QStringLiteral("theme"), 42));
    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed.at(1).at(0).toString(), QStringLiteral("theme"));
    QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM preferences WHERE key = 'theme'")).toInt(), 1);
    QCOMPARE(prefs.getOr(QStringLiteral("theme"), QStringLiteral("system")), QStringLiteral("42"));
    QCOMPARE(prefs.getOr(QStringLiteral("absent"), QStringLiteral("system")), QStringLiteral("system"));
}

void TstPreferencesRepository::nullValueIsPresentAndEmpty()
{
    TempDatabase db;
    QVERIFY(db.open());
    QVERIFY(db.exec(QStringLiteral("INSERT INTO preferences (key, value) VALUES ('k', NULL)")));
    PreferencesRepository prefs(db.database());
    const auto value = prefs.get(QStringLiteral("k"));
    QVERIFY(value.has_value());
    QVERIFY(value->isEmpty());
    QCOMPARE(prefs.getOr(QStringLiteral("k"), QStringLiteral("fallback")), QString());
}

void TstPreferencesRepository::removeOfMissingKeySucceeds()
{
    TempDatabase db;
    QVERIFY(db.open());
    PreferencesRepository prefs(db.database());
    QSignalSpy changed(&prefs, &PreferencesRepository::changed);
    QVERIFY(prefs.remove(QStringLiteral("never-set")));
    QVERIFY(prefs.setBool(QStringLiteral("k"), true));
    QVERIFY(prefs.remove(QStringLiteral("k")));
    QVERIFY(!prefs.get(QStringLiteral("k")).has_value());
    QCOMPARE(changed.size(), 1);
}

QTEST_GUILESS_MAIN(TstPreferencesRepository)
#include "tst_preferencesrepository.moc"
