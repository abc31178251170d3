#include "data/CategoryRepository.h"
#include "services/CategoryService.h"
#include "support/TempDatabase.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

class TstCategoryService : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void seedsTheWholeTree();
    void identifiersAreNameBased();
    void maintenanceUnderTwoParents();
    void topLevelParentIsNull();
    void oneLiveRowMeansNoSeed();
    void reseedDoesNotUndelete();
    void otherLanguageGivesOtherIdentifiers();

private:
    TempDatabase *m_db = nullptr;
    CategoryRepository *m_repo = nullptr;
    CategoryService *m_service = nullptr;
};

void TstCategoryService::init()
{
    m_db = new TempDatabase;
    QVERIFY(m_db->open());
    m_repo = new CategoryRepository(m_db->database());
    m_service = new CategoryService(m_repo);
}

void TstCategoryService::cleanup()
{
    delete m_service;
    delete m_repo;
    delete m_db;
}

void TstCategoryService::seedsTheWholeTree()
{
    m_service->seedDefaultsIfEmpty();
    QCOMPARE(m_repo->count(), 56);
    auto count = [this](const char *where) {
        return m_db
            ->scalar(QStringLiteral("SELECT COUNT(*) FROM categories WHERE %1").arg(QLatin1String(where)))
            .toInt();
    };
    QCOMPARE(count("category_type = 'expense'"), 48);
    QCOMPARE(count("category_type = 'income'"), 8);
    QCOMPARE(count("is_default = 1 AND sync_status = 'pending' AND version = 1"), 56);
    QCOMPARE(count("is_tax_relevant = 1"), 12);
    QCOMPARE(count("parent_id IS NOT NULL"), 27);

    const auto office = m_repo->getByName(QStringLiteral("Home Office"));
    QVERIFY(office);
    QCOMPARE(office->taxCategory, QStringLiteral("home_office"));
    QCOMPARE(office->parentId, m_repo->getByName(QStringLiteral("Business Expenses"))->id);
    QCOMPARE(m_repo->getByName(QStringLiteral("Freelance / Consulting"))->taxCategory,
             QStringLiteral("self_employment"));
    QCOMPARE(m_repo->getByName(QStringLiteral("Freelance / Consulting"))->categoryType, CategoryType::Income);
}

void TstCategoryService::identifiersAreNameBased()
{
    m_service->seedDefaultsIfEmpty();
    QCOMPARE(m_repo->getByName(QStringLiteral("Groceries"))->id,
             QStringLiteral("f80ec558-0a5d-59fd-bb97-1216bc91c991"));
}

void TstCategoryService::maintenanceUnderTwoParents()
{
    m_service->seedDefaultsIfEmpty();
    const QString housing = m_repo->getByName(QStringLiteral("Housing"))->id;
    const QString transport = m_repo->getByName(QStringLiteral("Transportation"))->id;
    QStringList parents;
    QSet<QString> ids;
    for (const Category &c : m_repo->getAll()) {
        if (c.name == QLatin1String("Maintenance")) {
            parents << c.parentId;
            ids.insert(c.id);
        }
    }
    parents.sort();
    QStringList expected{housing, transport};
    expected.sort();
    QCOMPARE(parents, expected);
    QCOMPARE(ids.size(), 2);
}

void TstCategoryService::topLevelParentIsNull()
{
    m_service->seedDefaultsIfEmpty();
    QCOMPARE(m_db->scalar(QStringLiteral("SELECT COUNT(*) FROM categories WHERE parent_id = ''")).toInt(), 0);
    QCOMPARE(
        m_db->scalar(QStringLiteral("SELECT COUNT(*) FROM categories WHERE account_id IS NOT NULL")).toInt(),
        0);
}

void TstCategoryService::oneLiveRowMeansNoSeed()
{
    Category own;
    own.id = QStringLiteral("mine");
    own.name = QStringLiteral("Hobbies");
    own.createdAt = QDateTime::currentDateTimeUtc();
    own.updatedAt = own.createdAt;
    QVERIFY(m_repo->insert(own));
    m_service->seedDefaultsIfEmpty();
    QCOMPARE(m_repo->count(), 1);
}

void TstCategoryService::reseedDoesNotUndelete()
{
    m_service->seedDefaultsIfEmpty();
    for (const Category &c : m_repo->getAll())
        QVERIFY(m_repo->softDelete(c.id));
    QCOMPARE(m_repo->count(), 0);
    // Every insert hits its soft-deleted twin: each fails, is logged, and nothing comes back.
    for (int i = 0; i < 56; ++i)
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("^CategoryRepository::insert failed:")));
    m_service->seedDefaultsIfEmpty();
    QCOMPARE(m_repo->count(), 0);
}

void TstCategoryService::otherLanguageGivesOtherIdentifiers()
{
    // A catalogue of our own that renames one category, as a German one would.
    QTranslator translator;
    QTemporaryDir dir;
    const QString ts = dir.filePath(QStringLiteral("de.ts"));
    {
        QFile f(ts);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(
            "<?xml version=\"1.0\" encoding=\"utf-8\"?><!DOCTYPE TS><TS version=\"2.1\" language=\"de_DE\">"
            "<context><name>CategoryService</name><message><source>Groceries</source>"
            "<translation>Lebensmittel</translation></message></context></TS>");
    }
    const QString qm = dir.filePath(QStringLiteral("de.qm"));
    const int status = QProcess::execute(QStringLiteral(OMBREL_LRELEASE), {ts, QStringLiteral("-qm"), qm});
    QCOMPARE(status, 0);
    QVERIFY(translator.load(qm));
    QCoreApplication::installTranslator(&translator);
    m_service->seedDefaultsIfEmpty();
    QCoreApplication::removeTranslator(&translator);

    QVERIFY(!m_repo->getByName(QStringLiteral("Groceries")));
    const auto groceries = m_repo->getByName(QStringLiteral("Lebensmittel"));
    QVERIFY(groceries);
    QVERIFY(groceries->id != QLatin1String("f80ec558-0a5d-59fd-bb97-1216bc91c991"));
}

QTEST_GUILESS_MAIN(TstCategoryService)
#include "tst_categoryservice.moc"
