#include "services/CategoryService.h"

#include "support/Fixtures.h"
#include "support/Line.h"
#include "support/TempStore.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

#include <optional>

class TstCategoryService : public QObject {
    Q_OBJECT
    std::optional<TempStore> m_store;
    std::optional<CategoryService> m_service;

    int count(const char *where)
    {
        return m_store->count(
            QStringLiteral("SELECT COUNT(*) FROM categories WHERE %1").arg(QLatin1String(where)));
    }

private slots:
    void init()
    {
        m_service.reset();
        m_store.emplace();
        QVERIFY(m_store->ok);
        m_service.emplace(&m_store->categories);
    }

    void seedsTheWholeTree()
    {
        m_service->seedDefaultsIfEmpty();
        CategoryRepository &repo = m_store->categories;
        // All, expenses, income, new and unsent, tax-relevant, children, and none with an empty parent or
        // an account.
        QCOMPARE(line(repo.count(), count("category_type = 'expense'"), count("category_type = 'income'"),
                      count("is_default = 1 AND sync_status = 'pending' AND version = 1"),
                      count("is_tax_relevant = 1"), count("parent_id IS NOT NULL"),
                      count("parent_id = '' OR account_id IS NOT NULL")),
                 "56 48 8 56 12 27 0");
        // The same name under two parents is two categories.
        QCOMPARE(count("name = 'Maintenance' AND parent_id IN (SELECT id FROM categories WHERE name IN "
                       "('Housing', 'Transportation'))"),
                 2);
        const auto office = repo.getByName(QStringLiteral("Home Office"));
        const auto freelance = repo.getByName(QStringLiteral("Freelance / Consulting"));
        QCOMPARE(line(office->taxCategory, office->parentId == repo.getByName("Business Expenses")->id,
                      freelance->taxCategory, categoryTypeToString(freelance->categoryType),
                      repo.getByName(QStringLiteral("Groceries"))->id),
                 "home_office 1 self_employment income f80ec558-0a5d-59fd-bb97-1216bc91c991");
    }

    void oneLiveRowMeansNoSeed()
    {
        QVERIFY(m_store->categories.insert(Fixtures::category("mine", "Hobbies")));
        m_service->seedDefaultsIfEmpty();
        QCOMPARE(m_store->categories.count(), 1);
    }

    void reseedDoesNotUndelete()
    {
        m_service->seedDefaultsIfEmpty();
        for (const Category &c : m_store->categories.getAll())
            QVERIFY(m_store->categories.softDelete(c.id));
        QCOMPARE(m_store->categories.count(), 0);
        // Every insert hits its soft-deleted twin: each fails, is logged, and nothing comes back.
        for (int i = 0; i < 56; ++i)
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QStringLiteral("^CategoryRepository::insert failed:")));
        m_service->seedDefaultsIfEmpty();
        QCOMPARE(m_store->categories.count(), 0);
    }

    void otherLanguageGivesOtherIdentifiers()
    {
        // A catalogue of our own that renames one category, as a German one would.
        QTemporaryDir dir;
        const QString ts = dir.filePath(QStringLiteral("de.ts")), qm = dir.filePath(QStringLiteral("de.qm"));
        QFile f(ts);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(
            "<?xml version=\"1.0\" encoding=\"utf-8\"?><!DOCTYPE TS><TS version=\"2.1\" language=\"de_DE\">"
            "<context><name>CategoryService</name><message><source>Groceries</source>"
            "<translation>Lebensmittel</translation></message></context></TS>");
        f.close();
        QCOMPARE(QProcess::execute(QStringLiteral(OMBREL_LRELEASE), {ts, QStringLiteral("-qm"), qm}), 0);
        QTranslator translator;
        QVERIFY(translator.load(qm));
        QCoreApplication::installTranslator(&translator);
        m_service->seedDefaultsIfEmpty();
        QCoreApplication::removeTranslator(&translator);
        QVERIFY(!m_store->categories.getByName(QStringLiteral("Groceries")));
        QVERIFY(m_store->categories.getByName(QStringLiteral("Lebensmittel"))->id !=
                QLatin1String("f80ec558-0a5d-59fd-bb97-1216bc91c991"));
    }
};

QTEST_GUILESS_MAIN(TstCategoryService)
#include "tst_categoryservice.moc"
