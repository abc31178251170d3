// The QIF and CSV files that other programs exported, read and imported as a user would.

#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "services/ImportBytes.h"
#include "services/ImportService.h"
#include "services/QifParser.h"
#include "support/Fixtures.h"
#include "support/TempDatabase.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <memory>

class TstImportTestData : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void qifFilesParse_data();
    void qifFilesParse();
    void textComesOutRight();
    void everyQifFileImportsCleanly();
    void transferFilesLink();
    void headerlessPairsLeaveHints();
    void csvFiles_data();
    void csvFiles();
    void everyCsvFileImportsCleanly();

private:
    QHash<QString, QString> createAccountsFor(const QStringList &paths);
    qint64 sum(const QString &accountId) const;

    std::unique_ptr<TempDatabase> m_db;
    std::unique_ptr<AccountRepository> m_accounts;
    std::unique_ptr<TransactionRepository> m_transactions;
    std::unique_ptr<CategoryRepository> m_categories;
    std::unique_ptr<SplitLineRepository> m_splitLines;
    std::unique_ptr<ImportService> m_service;
};

Q_DECLARE_METATYPE(CsvImportOptions)

namespace {

const QDir kQif(QStringLiteral(OMBREL_TESTDATA_DIR "/qif"));
const QDir kCsv(QStringLiteral(OMBREL_TESTDATA_DIR "/csv"));

QString readText(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? decodeImportBytes(file.readAll()) : QString();
}

QifParseResult parseFile(const QString &name)
{
    return QifParser::parse(readText(kQif.filePath(name)));
}

} // namespace

void TstImportTestData::init()
{
    // The files stand beside the project, not in it: a checkout without them has nothing to read.
    if (!kQif.exists() || !kCsv.exists())
        QSKIP(qPrintable(QStringLiteral("no import test files at %1").arg(QDir::cleanPath(kQif.path()))));
    m_db = std::make_unique<TempDatabase>();
    QVERIFY(m_db->open());
    m_accounts = std::make_unique<AccountRepository>(m_db->database());
    m_transactions = std::make_unique<TransactionRepository>(m_db->database());
    m_categories = std::make_unique<CategoryRepository>(m_db->database());
    m_splitLines = std::make_unique<SplitLineRepository>(m_db->database());
    m_service = std::make_unique<ImportService>(m_transactions.get(), m_categories.get(), m_splitLines.get());
}

void TstImportTestData::cleanup()
{
    m_service.reset();
    m_splitLines.reset();
    m_categories.reset();
    m_transactions.reset();
    m_accounts.reset();
    m_db.reset();
}

// One new account for each source the analysis finds, as the import screen does on its defaults.
QHash<QString, QString> TstImportTestData::createAccountsFor(const QStringList &paths)
{
    QHash<QString, QString> map;
    for (const QifSourceAccount &source : m_service->analyzeQifFiles(paths).sources) {
        const QString id = QStringLiteral("acc%1").arg(map.size());
        if (m_accounts->insert(Fixtures::account(id, source.displayName)))
            map.insert(source.key, id);
    }
    return map;
}

qint64 TstImportTestData::sum(const QString &accountId) const
{
    qint64 total = 0;
    for (const Transaction &t : m_transactions->getByAccount(accountId))
        total += t.amount;
    return total;
}

void TstImportTestData::qifFilesParse_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("records");
    QTest::addColumn<int>("skipped");
    QTest::addColumn<int>("metadata");
    QTest::addColumn<int>("categories");
    QTest::addColumn<QStringList>("accounts");
    QTest::addColumn<bool>("dayFirst");
    QTest::addColumn<qint64>("cents");
    QTest::addColumn<int>("splits");
    const auto row = [](const char *file, int records, int skipped, int metadata, int categories,
                        const QStringList &accounts, bool dayFirst, qint64 cents, int splits) {
        QTest::newRow(file) << QString::fromLatin1(file) << records << skipped << metadata << categories
                            << accounts << dayFirst << cents << splits;
    };
    // clang-format off
    row("gnucash-abc-all.qif",                        10,  0,  4, 75, {"ABC Bank"},                false,    355400,  3);
    row("gnucash-ms-money.qif",                       347, 0,  0,  0, {},                          false,    200193,  0);
    row("gnucash-cbb-export.qif",                     9,   0,  0,  0, {},                          false,    -50759,  4);
    row("gnucash-swipe.qif",                          11,  0,  0,  0, {},                          false,    998945,  0);
    row("gnucash-every.qif",                          164, 0,  3, 66, {"Fidelity Inv"},            false,   9496437,  0);
    row("gnucash-Money95bank_fr.qif",                 143, 0,  0,  0, {},                          false,    882240, 63);
    row("gnucash-Money95invst_fr.qif",                10,  0,  0,  0, {},                          false,  16460832,  0);
    row("moneyguru-transfer.qif",                     2,   0,  0,  0, {"Checking", "Savings"},     false,         0,  0);
    // No "!Type:" line: the records stand in the account block, whose fields are not read.
    row("moneyguru-missing_fields.qif",               0,   0,  0,  0, {},                          false,         0,  0);
    row("moneyguru-accountless_with_splits.qif",      2,   0,  0,  0, {},                          false,    -98105,  4);
    row("moneyguru-checkbook.qif",                    8,   0,  0,  0, {"Account 1", "Account 2"},  false,    303412,  0);
    // The investment record has no "T", but its "$" line is an amount.
    row("quiffen-test.qif",                           7,   0,  6,  2, {},                          false,      6450,  8);
    row("quiffen-test_category_override.qif",         4,   0,  0,  0, {},                          true,     207744,  0);
    row("quiffen-test_split.qif",                     1,   0,  0,  0, {},                          false,     -1000,  2);
    row("quiffen-test_FMQifTest2023-10-18.qif",       2,   0, 12, 118, {"KD-Bank Berlin"},         false,     20000,  2);
    row("nerdbank-sample.qif",                        29,  0,  4,  0, {},                          false,   2134900,  0);
    row("jemmyw-quicken_non_investement_account.qif", 3,   0,  0,  0, {},                          false,    -93500,  2);
    row("jemmyw-3_records_mmddyy.qif",                3,   0,  0,  0, {},                          false,         0,  0);
    row("jemmyw-3_records_separator.qif",             3,   0,  0,  0, {},                          true,   -3100000,  0);
    row("oca-test_qif_dmy.qif",                       5,   0,  0,  0, {},                          true,    -189609,  0);
    // clang-format on
}

void TstImportTestData::qifFilesParse()
{
    QFETCH(QString, file);
    QFETCH(int, records);
    QFETCH(int, skipped);
    QFETCH(int, metadata);
    QFETCH(int, categories);
    QFETCH(QStringList, accounts);
    QFETCH(bool, dayFirst);
    QFETCH(qint64, cents);
    QFETCH(int, splits);
    const QifParseResult r = parseFile(file);
    QCOMPARE(r.transactions.size(), records);
    QCOMPARE(r.skippedRecords, skipped);
    QCOMPARE(r.metadataRecords, metadata);
    QCOMPARE(r.categories.size(), categories);
    QStringList names;
    for (const QifAccountRef &a : r.accounts)
        names << a.name;
    QCOMPARE(names, accounts);
    QCOMPARE(r.dateOrder, dayFirst ? QifDateOrder::DayFirst : QifDateOrder::MonthFirst);
    qint64 total = 0;
    int lines = 0;
    for (const QifTransaction &t : r.transactions) {
        QVERIFY(t.date.isValid());
        total += t.amount;
        lines += int(t.splits.size());
    }
    QCOMPARE(total, cents);
    QCOMPARE(lines, splits);
}

void TstImportTestData::textComesOutRight()
{
    // ISO-8859-1 in the file.
    const QifParseResult french = parseFile(QStringLiteral("gnucash-Money95bank_fr.qif"));
    QStringList categories;
    for (const QifTransaction &t : french.transactions)
        categories << t.category;
    QVERIFY(categories.contains(QStringLiteral("Loisirs:Canal Plus-Câble")));
    QVERIFY(categories.contains(QStringLiteral("Maison:Electricité")));
    QVERIFY(categories.contains(QStringLiteral("Impôts:Impôts sur le revenu")));
    QCOMPARE(parseFile(QStringLiteral("quiffen-test_FMQifTest2023-10-18.qif")).transactions.first().payee,
             QStringLiteral("Eröffnungssaldo"));

    // A byte order mark does not spoil the first header, which here is metadata.
    const QifParseResult marked = parseFile(QStringLiteral("nerdbank-sample.qif"));
    QCOMPARE(marked.metadataRecords, 4);
    QCOMPARE(marked.transactions.first().date, QDate(2008, 1, 1));
    QCOMPARE(marked.transactions.first().amount, 150000);
    QCOMPARE(marked.transactions.last().date, QDate(2008, 12, 10));
    QCOMPARE(marked.transactions.last().amount, -33500);

    const QifParseResult dmy = parseFile(QStringLiteral("oca-test_qif_dmy.qif"));
    QList<QDate> dates;
    for (const QifTransaction &t : dmy.transactions)
        dates << t.date;
    QCOMPARE(dates, (QList<QDate>{QDate(2013, 8, 12), QDate(2013, 8, 15), QDate(2013, 3, 3),
                                  QDate(2013, 3, 4), QDate(2013, 3, 3)}));

    // A malformed split amount loses that split's amount only.
    const QifTransaction linda =
        parseFile(QStringLiteral("jemmyw-quicken_non_investement_account.qif")).transactions.first();
    QCOMPARE(linda.amount, -100000);
    QCOMPARE(linda.transferAccount, QStringLiteral("linda"));
    QCOMPARE(linda.splits.size(), 2);
    QCOMPARE(linda.splits.at(1).amount, 0);
}

void TstImportTestData::everyQifFileImportsCleanly()
{
    const QStringList files = kQif.entryList({QStringLiteral("*.qif")}, QDir::Files, QDir::Name);
    QVERIFY(files.size() >= 20);
    for (const QString &name : files) {
        cleanup();
        init();
        const QString path = kQif.filePath(name);
        const QHash<QString, QString> map = createAccountsFor({path});
        const QifParseResult parsed = parseFile(name);
        const ImportResult first = m_service->importQifFiles({path}, map);
        QVERIFY2(!first.aborted, qPrintable(name));
        QCOMPARE(first.insertFailures, 0);
        QCOMPARE(first.unmappedRecords, 0);
        QCOMPARE(first.skippedRecords, parsed.skippedRecords);
        QCOMPARE(first.metadataRecords, parsed.metadataRecords);
        QCOMPARE(first.imported + first.duplicates, int(parsed.transactions.size()));
        QCOMPARE(m_db->scalar(QStringLiteral("SELECT COUNT(*) FROM transactions")).toInt(), first.imported);

        const ImportResult again = m_service->importQifFiles({path}, map);
        QVERIFY2(!again.aborted, qPrintable(name));
        QCOMPARE(again.imported, 0);
        QCOMPARE(again.duplicates, int(parsed.transactions.size()));
    }
}

void TstImportTestData::transferFilesLink()
{
    // Both sides in one file, each under its own account header.
    const QString path = kQif.filePath(QStringLiteral("moneyguru-transfer.qif"));
    const QHash<QString, QString> map = createAccountsFor({path});
    QCOMPARE(map.size(), 2);
    const ImportResult r = m_service->importQifFiles({path}, map);
    QCOMPARE(r.imported, 2);
    QCOMPARE(r.transfersLinked, 1);
    const Transaction checking = m_transactions->getByAccount(map.value(QStringLiteral("Checking"))).first();
    QCOMPARE(checking.transferDestAccountId, map.value(QStringLiteral("Savings")));
    QCOMPARE(m_transactions->getById(checking.transferLinkId)->transferLinkId, checking.id);

    // The same file with the savings side left out first, then whole: the two sides pair within the
    // import before the checking side turns out a duplicate, so the new savings row names a row that
    // never came, and the old one keeps its hint.
    cleanup();
    init();
    QHash<QString, QString> partial = createAccountsFor({path});
    const QString savings = partial.value(QStringLiteral("Savings"));
    partial.insert(QStringLiteral("Savings"), QString());
    const ImportResult first = m_service->importQifFiles({path}, partial);
    QCOMPARE(first.imported, 1);
    QCOMPARE(first.unmappedRecords, 1);
    partial.insert(QStringLiteral("Savings"), savings);
    const ImportResult second = m_service->importQifFiles({path}, partial);
    QCOMPARE(second.imported, 1);
    QCOMPARE(second.duplicates, 1);
    QCOMPARE(second.transfersLinked, 1);
    QCOMPARE(second.retroactiveLinks, 0);
    const Transaction fresh = m_transactions->getByAccount(savings).first();
    QVERIFY(!m_transactions->getById(fresh.transferLinkId));
    const Transaction old = m_transactions->getByAccount(partial.value(QStringLiteral("Checking"))).first();
    QVERIFY(old.memo.startsWith(QStringLiteral("[\u2192 Savings]")));
}

void TstImportTestData::headerlessPairsLeaveHints()
{
    // In each pair a file names no account of its own, so the two sides of a transfer cannot find each
    // other; every transfer keeps its partner's name as a hint instead.
    for (const auto &[bankName, otherName, hints] : {
             std::tuple{"gnucash-abc-all.qif",        "gnucash-swipe.qif",           10},
             {"gnucash-Money95bank_fr.qif", "gnucash-Money95invst_fr.qif", 20}
    }) {
        cleanup();
        init();
        const QStringList paths{kQif.filePath(QString::fromLatin1(bankName)),
                                kQif.filePath(QString::fromLatin1(otherName))};
        const QHash<QString, QString> map = createAccountsFor(paths);
        const ImportResult r = m_service->importQifFiles(paths, map);
        QVERIFY(!r.aborted);
        QCOMPARE(r.transfersLinked, 0);
        const int found =
            m_db->scalar(QStringLiteral("SELECT COUNT(*) FROM transactions WHERE memo LIKE '[%1 %'")
                             .arg(QChar(0x2192)))
                .toInt();
        QCOMPARE(found, hints);
    }
}

void TstImportTestData::csvFiles_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<CsvImportOptions>("options");
    QTest::addColumn<int>("imported");
    QTest::addColumn<int>("skipped");
    QTest::addColumn<qint64>("cents");
    const auto row = [](const char *file, int date, int payee, int amount, bool header, int imported,
                        int skipped, qint64 cents) {
        CsvImportOptions options;
        options.dateColumn = date;
        options.payeeColumn = payee;
        options.amountColumn = amount;
        options.hasHeader = header;
        QTest::newRow(file) << QString::fromLatin1(file) << options << imported << skipped << cents;
    };
    // clang-format off
    row("hledger-monefy.csv",                       0,  2,  3, true,  8, 0,  589280);
    row("hledger-paypal-custom.csv",                0,  3,  9, true,  7, 0,     941);
    // "2012/3/22" fits none of the date forms.
    row("hledger-sample.fr.cp1252.csv",             0,  1,  2, true,  0, 3,       0);
    row("hledger-csb43.csv",                        23, 19, 25, true, 2, 0,  100000);
    row("reckon-bom_utf8_file.csv",                 0,  3,  9, true,  1, 0,    -749);
    // "07 Nov 2013" fits none either.
    row("reckon-nationwide.csv",                    0,  1,  4, false, 0, 4,       0);
    // Amounts always positive: the sign stands in a column of its own.
    row("reckon-intuit_mint_example.csv",           0,  1,  3, false, 7, 0,  257566);
    // Deposits in a column of their own; the empty withdrawal cell reads as 0.00.
    row("reckon-english_date_example.csv",          0,  1,  3, false, 3, 0,  -87600);
    // "($85.00)" is no amount to the money reader: 0.00.
    row("reckon-some_other.csv",                    1,  2,  3, false, 9, 0,  718375);
    // Statement lines around the rows fail their dates; decimal commas read as group marks.
    row("oca-meta_data_separated_credit_debit.csv", 0,  2,  3, true,  4, 5, -2306800);
    // clang-format on
}

void TstImportTestData::csvFiles()
{
    QFETCH(QString, file);
    QFETCH(CsvImportOptions, options);
    QFETCH(int, imported);
    QFETCH(int, skipped);
    QFETCH(qint64, cents);
    QVERIFY(m_accounts->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))));
    const ImportResult r = m_service->importCsvFile(kCsv.filePath(file), QStringLiteral("a"), options);
    QCOMPARE(r.imported, imported);
    QCOMPARE(r.skippedRecords, skipped);
    QCOMPARE(r.duplicates, 0);
    QCOMPARE(sum(QStringLiteral("a")), cents);
}

void TstImportTestData::everyCsvFileImportsCleanly()
{
    const QStringList files = kCsv.entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name);
    QVERIFY(files.size() >= 10);
    QVERIFY(m_accounts->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))));
    for (const QString &name : files) {
        const QList<QStringList> rows = ImportService::parseCsv(readText(kCsv.filePath(name)));
        QVERIFY2(!rows.isEmpty(), qPrintable(name));
        // A mark must not become part of the first header.
        QVERIFY2(!rows.first().first().startsWith(QChar(0xFEFF)), qPrintable(name));
        const ImportResult r = m_service->importCsvFile(kCsv.filePath(name), QStringLiteral("a"), {});
        QCOMPARE(r.imported + r.duplicates + r.skippedRecords, int(rows.size()) - 1);
    }
    const QList<QStringList> french =
        ImportService::parseCsv(readText(kCsv.filePath(QStringLiteral("hledger-sample.fr.cp1252.csv"))));
    QCOMPARE(french.at(1).at(1), QStringLiteral("DÉPÔT"));
    QCOMPARE(french.at(3).at(1), QStringLiteral("CAFÉ — €20 REÇU"));
    QCOMPARE(ImportService::parseCsv(readText(kCsv.filePath(QStringLiteral("reckon-bom_utf8_file.csv"))))
                 .at(1)
                 .at(3),
             QStringLiteral("Humble Bundle, Inc."));
}

QTEST_GUILESS_MAIN(TstImportTestData)
#include "tst_importtestdata.moc"
