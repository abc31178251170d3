#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "services/ImportService.h"
#include "support/Fixtures.h"
#include "support/TempDatabase.h"

#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TstQifImport : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void transferSidesInTwoFilesLink();
    void skippedPartnerLeavesAHint_data();
    void skippedPartnerLeavesAHint();
    void laterImportLinksRetroactively();
    void selfTransferIsAPlainRow();
    void unknownAccountGetsAHint();
    void twoSourcesOnOneTargetDoNotLink();
    void equalTransfersPairInFileOrder();
    void secondImportIsAllDuplicates();
    void failedPartnerUpdateRollsEverythingBack();
    void refusedRowIsCountedAndTheRestStays();
    void splitsAndCategories();
    void headerlessFileMapsByPathAndNamesPayees();
    void noPathsAndUnreadableFiles();
    void progressEveryHundredRecords();
    void analysisListsEachSourceOnce();
    void fileWithANulIsRefused_data();
    void fileWithANulIsRefused();

private:
    QString write(const QString &name, const QString &text);
    void addAccount(const QString &id, const QString &name);
    Transaction only(const QString &accountId);
    int count(const QString &sql);

    QTemporaryDir m_files;
    std::unique_ptr<TempDatabase> m_db;
    std::unique_ptr<AccountRepository> m_accounts;
    std::unique_ptr<TransactionRepository> m_transactions;
    std::unique_ptr<CategoryRepository> m_categories;
    std::unique_ptr<SplitLineRepository> m_splitLines;
    std::unique_ptr<ImportService> m_service;
};

namespace {

const QString kChecking = QStringLiteral("!Account\nNChecking\nTBank\n^\n!Type:Bank\n"
                                         "D1/5/2024\nT-100.00\nPLandlord\nMrent\nL[Savings]\n^\n"
                                         "D1/6/2024\nT-20.00\nPMarket\nLGroceries\n^\n");
const QString kSavings = QStringLiteral("!Account\nNSavings\nTBank\n^\n!Type:Bank\n"
                                        "D1/5/2024\nT100.00\nPLandlord\nL[Checking]\n^\n");

using Map = QHash<QString, QString>;

} // namespace

void TstQifImport::init()
{
    m_db = std::make_unique<TempDatabase>();
    QVERIFY(m_db->open());
    m_accounts = std::make_unique<AccountRepository>(m_db->database());
    m_transactions = std::make_unique<TransactionRepository>(m_db->database());
    m_categories = std::make_unique<CategoryRepository>(m_db->database());
    m_splitLines = std::make_unique<SplitLineRepository>(m_db->database());
    m_service = std::make_unique<ImportService>(m_transactions.get(), m_categories.get(), m_splitLines.get());
    addAccount(QStringLiteral("chk"), QStringLiteral("My Checking"));
    addAccount(QStringLiteral("sav"), QStringLiteral("My Savings"));
}

void TstQifImport::cleanup()
{
    m_service.reset();
    m_splitLines.reset();
    m_categories.reset();
    m_transactions.reset();
    m_accounts.reset();
    m_db.reset();
}

QString TstQifImport::write(const QString &name, const QString &text)
{
    const QString path = m_files.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return {};
    file.write(text.toUtf8());
    return path;
}

void TstQifImport::addAccount(const QString &id, const QString &name)
{
    QVERIFY(m_accounts->insert(Fixtures::account(id, name)));
}

Transaction TstQifImport::only(const QString &accountId)
{
    const QList<Transaction> rows = m_transactions->getByAccount(accountId);
    [&] { QCOMPARE(rows.size(), 1); }();
    return rows.value(0);
}

int TstQifImport::count(const QString &sql)
{
    return m_db->scalar(sql).toInt();
}

void TstQifImport::transferSidesInTwoFilesLink()
{
    const QStringList paths{write(QStringLiteral("c.qif"), kChecking),
                            write(QStringLiteral("s.qif"), kSavings)};
    const ImportResult r =
        m_service->importQifFiles(paths, Map{
                                             {QStringLiteral("checking"), QStringLiteral("chk")},
                                             {QStringLiteral("SAVINGS"),  QStringLiteral("sav")}
    });
    QCOMPARE(r.imported, 3);
    QCOMPARE(r.transfersLinked, 1);
    QCOMPARE(r.retroactiveLinks, 0);
    QVERIFY(!r.aborted);

    const Transaction savings = only(QStringLiteral("sav"));
    const auto rent = m_transactions->getById(savings.transferLinkId);
    QVERIFY(rent);
    QCOMPARE(rent->accountId, QStringLiteral("chk"));
    QCOMPARE(rent->amount, -10000);
    QCOMPARE(rent->memo, QStringLiteral("rent"));
    QCOMPARE(rent->transferLinkId, savings.id);
    QCOMPARE(rent->transferDestAccountId, QStringLiteral("sav"));
    QCOMPARE(savings.transferDestAccountId, QStringLiteral("chk"));
    QCOMPARE(savings.memo, QString());
    QCOMPARE(rent->version, 1);
    QCOMPARE(rent->syncStatus, SyncStatus::Pending);
}

void TstQifImport::skippedPartnerLeavesAHint_data()
{
    QTest::addColumn<QString>("memoLine");
    QTest::addColumn<QString>("memo");
    QTest::newRow("with memo") << "Mrent" << QStringLiteral("[\u2192 Savings] rent");
    QTest::newRow("without memo") << "" << QStringLiteral("[\u2192 Savings]");
}

void TstQifImport::skippedPartnerLeavesAHint()
{
    QFETCH(QString, memoLine);
    QFETCH(QString, memo);
    QString checking = kChecking;
    checking.replace(QStringLiteral("Mrent"), memoLine);
    const QStringList paths{write(QStringLiteral("c.qif"), checking),
                            write(QStringLiteral("s.qif"), kSavings)};
    const ImportResult r =
        m_service->importQifFiles(paths, Map{
                                             {QStringLiteral("Checking"), QStringLiteral("chk")},
                                             {QStringLiteral("Savings"),  QString()            }
    });
    QCOMPARE(r.imported, 2);
    QCOMPARE(r.unmappedRecords, 1);
    QCOMPARE(r.transfersLinked, 0);
    const QList<Transaction> rows = m_transactions->getByAccount(QStringLiteral("chk"));
    QCOMPARE(rows.last().payee, QStringLiteral("Landlord"));
    QCOMPARE(rows.last().memo, memo);
    QVERIFY(rows.last().transferLinkId.isEmpty());
    QVERIFY(m_transactions->getByAccount(QStringLiteral("sav")).isEmpty());
}

void TstQifImport::laterImportLinksRetroactively()
{
    const QString checking = write(QStringLiteral("c.qif"), kChecking);
    m_service->importQifFiles(
        {
            checking
    },
        Map{{QStringLiteral("Checking"), QStringLiteral("chk")}});
    Transaction old = m_transactions->getByAccount(QStringLiteral("chk")).last();
    QCOMPARE(old.memo, QStringLiteral("[\u2192 Savings] rent"));
    QVERIFY(m_transactions->markSynced(old.id, QStringLiteral("server-1")));

    const QString savings = write(QStringLiteral("s.qif"), kSavings);
    const ImportResult r = m_service->importQifFiles(
        {
            savings
    },
        Map{{QStringLiteral("Savings"), QStringLiteral("sav")},
            {QStringLiteral("Checking"), QStringLiteral("chk")}});
    QCOMPARE(r.imported, 1);
    QCOMPARE(r.transfersLinked, 1);
    QCOMPARE(r.retroactiveLinks, 1);

    const Transaction fresh = only(QStringLiteral("sav"));
    old = *m_transactions->getById(old.id);
    QCOMPARE(old.memo, QStringLiteral("rent"));
    QCOMPARE(old.version, 2);
    QCOMPARE(old.syncStatus, SyncStatus::Pending);
    QCOMPARE(old.serverId, QStringLiteral("server-1"));
    QCOMPARE(old.transferLinkId, fresh.id);
    QCOMPARE(old.transferDestAccountId, QStringLiteral("sav"));
    QCOMPARE(fresh.transferLinkId, old.id);
    QCOMPARE(fresh.transferDestAccountId, QStringLiteral("chk"));
    QCOMPARE(fresh.memo, QString());

    // A linked row is no candidate any more: the same transfer once more is a duplicate, and a
    // mirror of it on another day finds nothing to link to.
    QString again = kSavings;
    again.replace(QStringLiteral("D1/5/2024"), QStringLiteral("D1/9/2024"));
    const ImportResult second = m_service->importQifFiles(
        {
            savings, write(QStringLiteral("s2.qif"), again)
    },
        Map{{QStringLiteral("Savings"), QStringLiteral("sav")},
            {QStringLiteral("Checking"), QStringLiteral("chk")}});
    QCOMPARE(second.duplicates, 1);
    QCOMPARE(second.imported, 1);
    QCOMPARE(second.retroactiveLinks, 0);
}

void TstQifImport::selfTransferIsAPlainRow()
{
    const QString path = write(QStringLiteral("c.qif"), QStringLiteral("!Account\nNChecking\n^\n!Type:Bank\n"
                                                                       "D1/1/2024\nT500\nPOpening Balance\n"
                                                                       "Mfirst\nL[checking]\n^\n"));
    const ImportResult r = m_service->importQifFiles(
        {
            path
    },
        Map{{QStringLiteral("Checking"), QStringLiteral("chk")}});
    QCOMPARE(r.imported, 1);
    const Transaction t = only(QStringLiteral("chk"));
    QCOMPARE(t.memo, QStringLiteral("first"));
    QVERIFY(t.transferLinkId.isEmpty());
    QVERIFY(t.transferDestAccountId.isEmpty());
}

void TstQifImport::unknownAccountGetsAHint()
{
    const QString path = write(QStringLiteral("c.qif"), QStringLiteral("!Account\nNChecking\n^\n!Type:Bank\n"
                                                                       "D1/1/2024\nT-5\nL[Brokerage]\n^\n"));
    m_service->importQifFiles(
        {
            path
    },
        Map{{QStringLiteral("Checking"), QStringLiteral("chk")}});
    const Transaction t = only(QStringLiteral("chk"));
    QCOMPARE(t.memo, QStringLiteral("[\u2192 Brokerage]"));
    // With no payee, the bracket names the row.
    QCOMPARE(t.payee, QStringLiteral("Brokerage"));
}

void TstQifImport::twoSourcesOnOneTargetDoNotLink()
{
    const QStringList paths{write(QStringLiteral("c.qif"), kChecking),
                            write(QStringLiteral("s.qif"), kSavings)};
    const ImportResult r =
        m_service->importQifFiles(paths, Map{
                                             {QStringLiteral("Checking"), QStringLiteral("chk")},
                                             {QStringLiteral("Savings"),  QStringLiteral("chk")}
    });
    QCOMPARE(r.imported, 3);
    QCOMPARE(r.transfersLinked, 0);
    QStringList memos;
    for (const Transaction &t : m_transactions->getByAccount(QStringLiteral("chk"))) {
        QVERIFY(t.transferLinkId.isEmpty());
        memos << t.memo;
    }
    memos.sort();
    QCOMPARE(memos, (QStringList{QString(), QStringLiteral("[\u2192 Checking]"),
                                 QStringLiteral("[\u2192 Savings] rent")}));
}

void TstQifImport::equalTransfersPairInFileOrder()
{
    // Two equal transfers a day, both sides in one file; a third on the checking side has no partner.
    const QString path =
        write(QStringLiteral("both.qif"),
              QStringLiteral("!Account\nNChecking\n^\n!Type:Bank\n"
                             "D3/1/2024\nT-50\nPOne\nL[Savings]\n^\nD3/1/2024\nT-50\nPTwo\nL[Savings]\n^\n"
                             "D3/1/2024\nT-50\nPThree\nL[Savings]\n^\n"
                             "!Account\nNSavings\n^\n!Type:Bank\n"
                             "D3/1/2024\nT50\nPOne\nL[Checking]\n^\nD3/1/2024\nT50\nPTwo\nL[Checking]\n^\n"));
    const ImportResult r = m_service->importQifFiles(
        {
            path
    },
        Map{{QStringLiteral("Checking"), QStringLiteral("chk")},
            {QStringLiteral("Savings"), QStringLiteral("sav")}});
    QCOMPARE(r.imported, 5);
    QCOMPARE(r.transfersLinked, 2);
    for (const Transaction &t : m_transactions->getByAccount(QStringLiteral("sav"))) {
        const auto partner = m_transactions->getById(t.transferLinkId);
        QVERIFY(partner);
        QCOMPARE(partner->payee, t.payee);
    }
    int hinted = 0;
    for (const Transaction &t : m_transactions->getByAccount(QStringLiteral("chk")))
        hinted += t.memo.startsWith(QStringLiteral("[\u2192 Savings]")) ? 1 : 0;
    QCOMPARE(hinted, 1);
}

void TstQifImport::secondImportIsAllDuplicates()
{
    const QStringList paths{write(QStringLiteral("c.qif"), kChecking),
                            write(QStringLiteral("s.qif"), kSavings)};
    const Map map{
        {QStringLiteral("Checking"), QStringLiteral("chk")},
        {QStringLiteral("Savings"),  QStringLiteral("sav")}
    };
    QCOMPARE(m_service->importQifFiles(paths, map).imported, 3);
    const int categories = m_categories->count();
    const ImportResult again = m_service->importQifFiles(paths, map);
    QCOMPARE(again.imported, 0);
    QCOMPARE(again.duplicates, 3);
    QCOMPARE(again.transfersLinked, 1); // paired in the work list, then both found to be duplicates
    QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM transactions")), 3);
    QCOMPARE(m_categories->count(), categories);
}

void TstQifImport::failedPartnerUpdateRollsEverythingBack()
{
    m_service->importQifFiles(
        {
            write(QStringLiteral("c.qif"), kChecking)
    },
        Map{{QStringLiteral("Checking"), QStringLiteral("chk")}});
    const int rows = count(QStringLiteral("SELECT COUNT(*) FROM transactions"));
    const int categories = count(QStringLiteral("SELECT COUNT(*) FROM categories"));
    QVERIFY(m_db->exec(QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON transactions "
                                      "BEGIN SELECT RAISE(ABORT, 'refused'); END")));

    // Rows before and after the link, a new category and a split: none of it may remain.
    const QString savings =
        write(QStringLiteral("s.qif"),
              QStringLiteral("!Type:Cat\nNBrand New\n^\n!Account\nNSavings\n^\n!Type:Bank\n"
                             "D1/4/2024\nT7\nPBefore\nLAnother New\nSBrand New\n$7\n^\n") +
                  kSavings.mid(kSavings.indexOf(QStringLiteral("D1/5"))) +
                  QStringLiteral("D1/7/2024\nT8\nPAfter\n^\n"));
    QSignalSpy progress(m_service.get(), &ImportService::importProgress);
    QSignalSpy changed(m_transactions.get(), &TransactionRepository::transactionsChanged);
    const ImportResult r = m_service->importQifFiles(
        {
            savings
    },
        Map{{QStringLiteral("Savings"), QStringLiteral("sav")},
            {QStringLiteral("Checking"), QStringLiteral("chk")}});
    QVERIFY(r.aborted);
    QCOMPARE(r.imported, 1);
    QCOMPARE(r.retroactiveLinks, 0);
    QCOMPARE(progress.last(), (QList<QVariant>{3, 3}));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM transactions")), rows);
    QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM categories")), categories);
    QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM split_lines")), 0);
    QCOMPARE(
        count(QStringLiteral("SELECT COUNT(*) FROM transactions_fts WHERE transactions_fts MATCH 'Before'")),
        0);
    QCOMPARE(m_transactions->getByAccount(QStringLiteral("chk")).last().memo,
             QStringLiteral("[\u2192 Savings] rent"));

    // The database is usable afterwards, and the same import goes through once the refusal is gone.
    QVERIFY(m_db->exec(QStringLiteral("DROP TRIGGER refuse")));
    const ImportResult retry = m_service->importQifFiles(
        {
            savings
    },
        Map{{QStringLiteral("Savings"), QStringLiteral("sav")},
            {QStringLiteral("Checking"), QStringLiteral("chk")}});
    QVERIFY(!retry.aborted);
    QCOMPARE(retry.imported, 3);
    QCOMPARE(retry.retroactiveLinks, 1);
    // The search index holds the new rows, and the old one under its new memo.
    QCOMPARE(m_transactions->search(QStringLiteral("Before"), {}).size(), 1);
    QCOMPARE(m_transactions->search(QStringLiteral("Landlord"), {}).size(), 2);
    QCOMPARE(m_transactions->search(QStringLiteral("rent"), {}).size(), 1);
}

void TstQifImport::refusedRowIsCountedAndTheRestStays()
{
    QVERIFY(m_db->exec(
        QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON transactions WHEN new.payee = 'Market' "
                       "BEGIN SELECT RAISE(ABORT, 'refused'); END")));
    const QString path = write(QStringLiteral("c.qif"), kChecking + QStringLiteral("D1/7/2024\nT-1\nPMarket\n"
                                                                                   "SFood\n$-1\n^\n"));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^TransactionRepository::insert failed:")));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^TransactionRepository::insert failed:")));
    QTest::ignoreMessage(QtWarningMsg,
                         "QIF import: insert failed for 2024-01-06 Market amount -2000 account chk");
    QTest::ignoreMessage(QtWarningMsg,
                         "QIF import: insert failed for 2024-01-07 Market amount -100 account chk");
    const ImportResult r = m_service->importQifFiles(
        {
            path
    },
        Map{{QStringLiteral("Checking"), QStringLiteral("chk")}});
    QVERIFY(!r.aborted);
    QCOMPARE(r.imported, 1);
    QCOMPARE(r.insertFailures, 2);
    QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM split_lines")), 0);
    QCOMPARE(only(QStringLiteral("chk")).payee, QStringLiteral("Landlord"));
}

void TstQifImport::splitsAndCategories()
{
    QVERIFY(m_categories->insert([] {
        Category c;
        c.id = QStringLiteral("food");
        c.name = QStringLiteral("Food");
        c.createdAt = c.updatedAt = QDateTime::currentDateTimeUtc();
        return c;
    }()));
    const QString path =
        write(QStringLiteral("c.qif"), QStringLiteral("!Type:Cat\nNSalary\nI\n^\nNfood\nE\n^\nNSalary\nE\n^\n"
                                                      "!Account\nNChecking\n^\n!Type:Bank\n"
                                                      "D2/1/2024\nT-15\nPMarket\nL--Split--\n"
                                                      "SFood\n$-10\nEBread\nShome\n$-5\nEsoap\n"
                                                      "S\n$-1\nEstamp\n^\n"
                                                      "D2/2/2024\nT3000\nPEmployer\nLSalary\n^\n"));
    const ImportResult r = m_service->importQifFiles(
        {
            path
    },
        Map{{QStringLiteral("Checking"), QStringLiteral("chk")}});
    QCOMPARE(r.imported, 2);
    // The table keeps no line without a category; the user is told how many went.
    QCOMPARE(r.splitLinesDropped, 1);

    const auto category = [this](const QString &name) { return m_categories->getByName(name); };
    QCOMPARE(category(QStringLiteral("Salary"))->categoryType, CategoryType::Income);
    QCOMPARE(category(QStringLiteral("food"))->categoryType, CategoryType::Expense);
    QCOMPARE(category(QStringLiteral("home"))->categoryType, CategoryType::Expense);
    QVERIFY(category(QStringLiteral("--Split--")));

    const QList<Transaction> rows = m_transactions->getByAccount(QStringLiteral("chk"));
    const Transaction &market = rows.last();
    QVERIFY(market.isSplit);
    QVERIFY(!rows.first().isSplit);
    QCOMPARE(rows.first().categoryId, category(QStringLiteral("Salary"))->id);
    const QList<SplitLine> lines = m_splitLines->getForTransaction(market.id);
    QCOMPARE(lines.size(), 2);
    qint64 sum = 0;
    QStringList memos;
    for (const SplitLine &line : lines) {
        sum += line.amount;
        memos << line.memo;
        QCOMPARE(line.createdAt, market.createdAt);
    }
    QCOMPARE(sum, -1500);
    memos.sort();
    QCOMPARE(memos, (QStringList{QStringLiteral("Bread"), QStringLiteral("soap")}));
    QCOMPARE(lines.first().categoryId == QStringLiteral("food") ||
                 lines.last().categoryId == QStringLiteral("food"),
             true);
}

void TstQifImport::headerlessFileMapsByPathAndNamesPayees()
{
    const QString path =
        write(QStringLiteral("bank.qif"),
              QStringLiteral("!Type:Bank\nD1/1/2024\nT-5\nL[Savings]\n^\n"
                             "D1/2/2024\nT-6\n^\nD1/2/2024\nT-6\n^\nD1/3/2024\nT-7\nN101\n^\n"
                             "!Type:Invst\nD1/4/2024\nNBuy\nYACME\nT-100\n^\nD1/5/2024\nYACME\nT1\n^\n"));
    const ImportResult r = m_service->importQifFiles(
        {
            path
    },
        Map{{path, QStringLiteral("chk")}, {QStringLiteral("Savings"), QStringLiteral("sav")}});
    QCOMPARE(r.imported, 5);
    QCOMPARE(r.duplicates, 1);
    QCOMPARE(r.transfersLinked, 0);
    QStringList payees;
    for (const Transaction &t : m_transactions->getByAccount(QStringLiteral("chk")))
        payees << t.payee;
    QCOMPARE(payees, (QStringList{QStringLiteral("ACME"), QStringLiteral("Buy: ACME"), QStringLiteral("101"),
                                  QStringLiteral("Imported transaction"), QStringLiteral("Savings")}));
    // Without an account header the bracket can only leave a hint, even with the account mapped.
    QCOMPARE(m_transactions->getByAccount(QStringLiteral("chk")).last().memo,
             QStringLiteral("[\u2192 Savings]"));
}

void TstQifImport::noPathsAndUnreadableFiles()
{
    for (const QStringList &paths :
         {QStringList(), QStringList{m_files.filePath(QStringLiteral("missing.qif"))}}) {
        QSignalSpy started(m_service.get(), &ImportService::importStarted);
        QSignalSpy progress(m_service.get(), &ImportService::importProgress);
        const ImportResult r = m_service->importQifFiles(paths, Map{});
        QCOMPARE(started.count(), 1);
        QCOMPARE(started.first().first().toInt(), 0);
        QCOMPARE(progress.count(), 1);
        QCOMPARE(progress.first(), (QList<QVariant>{0, 0}));
        QCOMPARE(r.imported + r.duplicates + r.skippedRecords + r.metadataRecords + r.unmappedRecords +
                     r.transfersLinked + r.insertFailures,
                 0);
        QVERIFY(!r.aborted);
    }
    QVERIFY(m_service->analyzeQifFiles({m_files.filePath(QStringLiteral("missing.qif"))}).sources.isEmpty());
}

void TstQifImport::progressEveryHundredRecords()
{
    QString text = QStringLiteral("!Account\nNChecking\n^\n!Type:Bank\n");
    for (int i = 0; i < 250; ++i)
        text += QStringLiteral("D1/1/2024\nT-%1\nPShop\n^\n").arg(i + 1);
    text += QStringLiteral("!Account\nNElsewhere\n^\n!Type:Bank\nD1/1/2024\nT1\n^\n");
    QSignalSpy started(m_service.get(), &ImportService::importStarted);
    QSignalSpy progress(m_service.get(), &ImportService::importProgress);
    QSignalSpy changed(m_transactions.get(), &TransactionRepository::transactionsChanged);
    const ImportResult r = m_service->importQifFiles(
        {
            write(QStringLiteral("big.qif"), text)
    },
        Map{{QStringLiteral("Checking"), QStringLiteral("chk")}});
    QCOMPARE(r.imported, 250);
    QCOMPARE(r.unmappedRecords, 1);
    QCOMPARE(started.first().first().toInt(), 251);
    QCOMPARE(progress.count(), 3);
    QCOMPARE(progress.at(0), (QList<QVariant>{100, 251}));
    QCOMPARE(progress.at(1), (QList<QVariant>{200, 251}));
    QCOMPARE(progress.at(2), (QList<QVariant>{251, 251}));
    // The register hears once, after the commit, not once a row.
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toString(), QStringLiteral("chk"));
}

void TstQifImport::analysisListsEachSourceOnce()
{
    const QString first = write(QStringLiteral("first.qif"),
                                QStringLiteral("!Account\nNChecking\n^\n!Type:Bank\nD1/1/2024\nT1\n^\n"
                                               "!Account\nNHoliday Savings\n^\n!Type:Bank\nD1/1/2024\nT1\n^\n"
                                               "!Account\nNVisa\n^\n!Type:CCard\nD1/1/2024\nT1\n^\n"
                                               "!Account\nNHouse\n^\n!Type:Oth A\nD1/1/2024\nT1\n^\n"));
    const QString second = write(QStringLiteral("second.qif"),
                                 QStringLiteral("!Account\nNCHECKING\n^\n!Type:Bank\nD1/1/2024\nT1\n^\n"
                                                "!Account\nNWallet\n^\n!Type:Cash\nD1/1/2024\nT1\n^\n"
                                                "!Account\nNFunds\n^\n!Type:Invst\nD1/1/2024\nT1\n^\n"));
    const QString bare = write(QStringLiteral("bare.qif"), QStringLiteral("!Type:Bank\nD1/1/2024\nT1\n^\n"));
    const QifAnalysis analysis = m_service->analyzeQifFiles({first, second, bare});
    QCOMPARE(analysis.transactionCount, 8);
    QStringList keys;
    QList<int> types;
    for (const QifSourceAccount &s : analysis.sources) {
        keys << s.key;
        types << s.suggestedType;
    }
    QCOMPARE(keys, (QStringList{QStringLiteral("Checking"), QStringLiteral("Holiday Savings"),
                                QStringLiteral("Visa"), QStringLiteral("House"), QStringLiteral("Wallet"),
                                QStringLiteral("Funds"), bare}));
    QCOMPARE(types, (QList<int>{0, 1, 2, 5, 3, 4, 0}));
    QCOMPARE(analysis.sources.last().displayName, QStringLiteral("bare.qif (no account header)"));
    QVERIFY(analysis.sources.last().noAccountHeader);
    QVERIFY(!analysis.sources.first().noAccountHeader);
}

void TstQifImport::fileWithANulIsRefused_data()
{
    QTest::addColumn<QString>("text");
    const QChar nul(0);
    QTest::newRow("in an account name")
        << QStringLiteral("!Account\nNChe%1cking\n^\n!Type:Bank\nD1/1/2024\nT-5\n^\n").arg(nul);
    QTest::newRow("in an amount") << QStringLiteral("!Type:Bank\nD1/1/2024\nT3%1.00\n^\n").arg(nul);
}

// Read on, the NUL would end up in a name or turn 3.00 into 0.00; the file is left out, the other stays.
void TstQifImport::fileWithANulIsRefused()
{
    QFETCH(QString, text);
    const QString bad = write(QStringLiteral("bad.qif"), text);
    const QString good = write(QStringLiteral("good.qif"), kSavings);
    const QifAnalysis analysis = m_service->analyzeQifFiles({bad, good});
    QCOMPARE(analysis.sources.size(), 1);
    QCOMPARE(analysis.refusedFiles.size(), 1);
    QVERIFY(analysis.refusedFiles.first().contains(QStringLiteral("bad.qif")));

    const ImportResult r = m_service->importQifFiles(
        {
            bad, good
    },
        Map{{bad, QStringLiteral("chk")},
            {QStringLiteral("Checking"), QStringLiteral("chk")},
            {QStringLiteral("Savings"), QStringLiteral("sav")}});
    QCOMPARE(r.refusedFiles, analysis.refusedFiles);
    QCOMPARE(r.imported, 1);
    QVERIFY(m_transactions->getByAccount(QStringLiteral("chk")).isEmpty());
}

QTEST_GUILESS_MAIN(TstQifImport)
#include "tst_qifimport.moc"
