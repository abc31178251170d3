#include "data/PreferencesRepository.h"
#include "support/TempDatabase.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

class TstPreferencesRepository : public QObject {
    Q_OBJECT
    std::optional<TempDatabase> m_db;
    std::optional<PreferencesRepository> m_prefs;

private slots:
    void init()
    {
        m_prefs.reset();
        m_db.reset();
        m_db.emplace();
        QVERIFY(m_db->open());
        m_prefs.emplace(m_db->database());
    }

    void getBool_data()
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

    void getBool()
    {
        QFETCH(QString, stored);
        QFETCH(bool, defaultValue);
        QFETCH(bool, expected);
        if (!stored.isNull())
            QVERIFY(m_prefs->set(QStringLiteral("flag"), stored));
        QCOMPARE(m_prefs->getBool(QStringLiteral("flag"), defaultValue), expected);
    }

    void setReplacesAndRemoveForgets()
    {
        QSignalSpy changed(&*m_prefs, &PreferencesRepository::changed);
        QVERIFY(m_prefs->set(QStringLiteral("theme"), QStringLiteral("dark")));
        QVERIFY(m_prefs->setInt(QStringLiteral("theme"), 42));
        QCOMPARE(changed.size(), 2);
        QCOMPARE(changed.at(1).at(0).toString(), QStringLiteral("theme"));
        QCOMPARE(m_db->scalar(QStringLiteral("SELECT COUNT(*) FROM preferences WHERE key = 'theme'")).toInt(),
                 1);
        QCOMPARE(m_prefs->getOr(QStringLiteral("theme"), QStringLiteral("system")), QStringLiteral("42"));
        QCOMPARE(m_prefs->getOr(QStringLiteral("absent"), QStringLiteral("system")),
                 QStringLiteral("system"));
        // Removing succeeds, whether or not the key is there, and tells nobody.
        QVERIFY(m_prefs->remove(QStringLiteral("never-set")));
        QVERIFY(m_prefs->remove(QStringLiteral("theme")));
        QVERIFY(!m_prefs->get(QStringLiteral("theme")).has_value());
        QCOMPARE(changed.size(), 2);
        QVERIFY(m_prefs->setBool(QStringLiteral("flag"), true));
        QVERIFY(m_prefs->getBool(QStringLiteral("flag"), false));
    }

    void nullValueIsPresentAndEmpty()
    {
        QVERIFY(m_db->exec(QStringLiteral("INSERT INTO preferences (key, value) VALUES ('k', NULL)")));
        const auto value = m_prefs->get(QStringLiteral("k"));
        QVERIFY(value.has_value() && value->isEmpty());
        QCOMPARE(m_prefs->getOr(QStringLiteral("k"), QStringLiteral("fallback")), QString());
    }
};

QTEST_GUILESS_MAIN(TstPreferencesRepository)
#include "tst_preferencesrepository.moc"
