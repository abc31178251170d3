// The QIF and CSV files that other programs exported, read and imported as a user would.

#include "services/ImportBytes.h"
#include "services/QifParser.h"
#include "support/ImportStore.h"
#include "support/Line.h"

#include <QDir>
#include <QTest>

#include <optional>

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

class TstImportTestData : public QObject {
    Q_OBJECT
    std::optional<ImportStore> m_s;

    // An account for each source the files name, as the import screen would make it.
    QHash<QString, QString> createAccountsFor(const QStringList &paths)
    {
        QHash<QString, QString> map;
        for (const QifSourceAccount &source : m_s->service.analyzeQifFiles(paths).sources) {
            const QString id = QStringLiteral("acc%1").arg(map.size());
            if (m_s->accounts.insert(Fixtures::account(id, source.displayName)))
                map.insert(source.key, id);
        }
        return map;
    }
    int count(const QString &sql) { return m_s->count(sql); }

private slots:
    void init()
    {
        // The files stand beside the project, not in it: a checkout without them has nothing to read.
        if (!kQif.exists() || !kCsv.exists())
            QSKIP(qPrintable(QStringLiteral("no import test files at %1").arg(QDir::cleanPath(kQif.path()))));
        m_s.emplace();
        QVERIFY(m_s->ok && m_s->accountsOk);
    }

    void qifFilesParse_data()
    {
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *file, int records, int skipped, int metadata, int categories,
                            const QStringList &accounts, bool dayFirst, qint64 cents, int splits) {
            QTest::newRow(file) << line(records, skipped, metadata, categories, accounts.join(','), dayFirst,
                                        cents, splits);
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

    void qifFilesParse()
    {
        QFETCH(QString, expected);
        const QifParseResult r = parseFile(QTest::currentDataTag());
        qint64 total = 0;
        int lines = 0;
        for (const QifTransaction &t : r.transactions) {
            QVERIFY(t.date.isValid());
            total += t.amount;
            lines += int(t.splits.size());
        }
        const QStringList names = ::lines(r.accounts, [](const QifAccountRef &a) { return a.name; });
        QCOMPARE(line(r.transactions.size(), r.skippedRecords, r.metadataRecords, r.categories.size(),
                      names.join(','), r.dateOrder == QifDateOrder::DayFirst, total, lines),
                 expected);
    }

    void textComesOutRight()
    {
        // ISO-8859-1 in the file.
        QStringList categories;
        for (const QifTransaction &t : parseFile(QStringLiteral("gnucash-Money95bank_fr.qif")).transactions)
            categories << t.category;
        for (const char *name :
             {"Loisirs:Canal Plus-Câble", "Maison:Electricité", "Impôts:Impôts sur le revenu"})
            QVERIFY2(categories.contains(QString::fromUtf8(name)), name);
        QCOMPARE(parseFile(QStringLiteral("quiffen-test_FMQifTest2023-10-18.qif")).transactions.first().payee,
                 QStringLiteral("Eröffnungssaldo"));

        // A byte order mark does not spoil the first header, which here is metadata.
        const QifParseResult m = parseFile(QStringLiteral("nerdbank-sample.qif"));
        QCOMPARE(line(m.metadataRecords, m.transactions.first().date, m.transactions.first().amount,
                      m.transactions.last().date, m.transactions.last().amount),
                 "4 2008-01-01 150000 2008-12-10 -33500");
        const auto dates = lines(parseFile(QStringLiteral("oca-test_qif_dmy.qif")).transactions,
                                 [](const QifTransaction &t) { return line(t.date); });
        QCOMPARE(dates.join(' '), QStringLiteral("2013-08-12 2013-08-15 2013-03-03 2013-03-04 2013-03-03"));

        // A malformed split amount loses that split's amount only.
        const QifTransaction linda =
            parseFile(QStringLiteral("jemmyw-quicken_non_investement_account.qif")).transactions.first();
        QCOMPARE(line(linda.amount, linda.transferAccount, linda.splits.size(), linda.splits.at(1).amount),
                 "-100000 linda 2 0");
    }

    void everyQifFileImportsCleanly()
    {
        const QStringList files = kQif.entryList({QStringLiteral("*.qif")}, QDir::Files, QDir::Name);
        QVERIFY(files.size() >= 20);
        for (const QString &name : files) {
            init();
            const QString path = kQif.filePath(name);
            const QHash<QString, QString> map = createAccountsFor({path});
            const QifParseResult parsed = parseFile(name);
            const ImportResult first = m_s->service.importQifFiles({path}, map);
            const int stored = count(QStringLiteral("SELECT COUNT(*) FROM transactions"));
            const ImportResult again = m_s->service.importQifFiles({path}, map);
            // Aborted, failed, unmapped, skipped, metadata, read, stored; then the second import.
            QCOMPARE(line(name, first.aborted, first.insertFailures, first.unmappedRecords,
                          first.skippedRecords, first.metadataRecords, first.imported + first.duplicates,
                          stored, again.aborted, again.imported, again.duplicates),
                     line(name, false, 0, 0, parsed.skippedRecords, parsed.metadataRecords,
                          parsed.transactions.size(), first.imported, false, 0, parsed.transactions.size()));
        }
    }

    void transferFilesLink()
    {
        // Both sides in one file, each under its own account header.
        const QString path = kQif.filePath(QStringLiteral("moneyguru-transfer.qif"));
        const QHash<QString, QString> map = createAccountsFor({path});
        const ImportResult r = m_s->service.importQifFiles({path}, map);
        const Transaction checking = m_s->rows(map.value(QStringLiteral("Checking"))).first();
        QCOMPARE(line(map.size(), ImportStore::counts(r), checking.transferDestAccountId,
                      m_s->transactions.getById(checking.transferLinkId)->transferLinkId == checking.id),
                 line(2, "i2 d0 s0 m0 u0 t1 r0 f0 x0", map.value(QStringLiteral("Savings")), true));

        // The same file with the savings side left out first, then whole: the two sides pair within the
        // import before the checking side turns out a duplicate, so the new savings row names a row that
        // never came, and the old one keeps its hint.
        init();
        QHash<QString, QString> partial = createAccountsFor({path});
        const QString savings = partial.value(QStringLiteral("Savings"));
        partial.insert(QStringLiteral("Savings"), QString());
        const ImportResult first = m_s->service.importQifFiles({path}, partial);
        QCOMPARE(ImportStore::counts(first), "i1 d0 s0 m0 u1 t0 r0 f0 x0");
        partial.insert(QStringLiteral("Savings"), savings);
        const ImportResult second = m_s->service.importQifFiles({path}, partial);
        QCOMPARE(ImportStore::counts(second), "i1 d1 s0 m0 u0 t1 r0 f0 x0");
        QVERIFY(!m_s->transactions.getById(m_s->rows(savings).first().transferLinkId));
        QVERIFY(m_s->rows(partial.value(QStringLiteral("Checking"))).first().memo.startsWith("[→ Savings]"));
    }

    // In each pair a file names no account of its own, so the two sides of a transfer cannot find each
    // other; every transfer keeps its partner's name as a hint instead.
    void headerlessPairsLeaveHints_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<int>("hints");
        QTest::newRow("abc") << QStringList{"gnucash-abc-all.qif", "gnucash-swipe.qif"} << 10;
        QTest::newRow("fr") << QStringList{"gnucash-Money95bank_fr.qif", "gnucash-Money95invst_fr.qif"} << 20;
    }

    void headerlessPairsLeaveHints()
    {
        QFETCH(QStringList, files);
        QFETCH(int, hints);
        const QStringList paths{kQif.filePath(files.at(0)), kQif.filePath(files.at(1))};
        const ImportResult r = m_s->service.importQifFiles(paths, createAccountsFor(paths));
        QCOMPARE(line(r.aborted, r.transfersLinked,
                      count(QStringLiteral("SELECT COUNT(*) FROM transactions WHERE memo LIKE '[→ %'"))),
                 line(false, 0, hints));
    }

    void csvFiles_data()
    {
        QTest::addColumn<CsvImportOptions>("options");
        QTest::addColumn<QString>("expected"); // imported, skipped, duplicates, total
        const auto row = [](const char *file, int date, int payee, int amount, bool header, int imported,
                            int skipped, qint64 cents) {
            CsvImportOptions options;
            options.dateColumn = date;
            options.payeeColumn = payee;
            options.amountColumn = amount;
            options.hasHeader = header;
            QTest::newRow(file) << options << line(imported, skipped, 0, cents);
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

    void csvFiles()
    {
        QFETCH(CsvImportOptions, options);
        QFETCH(QString, expected);
        const ImportResult r = m_s->service.importCsvFile(kCsv.filePath(QTest::currentDataTag()),
                                                          QStringLiteral("chk"), options);
        QCOMPARE(line(r.imported, r.skippedRecords, r.duplicates,
                      count(QStringLiteral("SELECT IFNULL(SUM(amount), 0) FROM transactions"))),
                 expected);
    }

    void everyCsvFileImportsCleanly()
    {
        const QStringList files = kCsv.entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name);
        QVERIFY(files.size() >= 10);
        for (const QString &name : files) {
            const QList<QStringList> rows = ImportService::parseCsv(readText(kCsv.filePath(name)));
            QVERIFY2(!rows.isEmpty(), qPrintable(name));
            // A mark must not become part of the first header.
            QVERIFY2(!rows.first().first().startsWith(QChar(0xFEFF)), qPrintable(name));
            const ImportResult r = m_s->service.importCsvFile(kCsv.filePath(name), QStringLiteral("chk"), {});
            QCOMPARE(r.imported + r.duplicates + r.skippedRecords, int(rows.size()) - 1);
        }
        const auto cell = [](const char *file, int row, int column) {
            return ImportService::parseCsv(readText(kCsv.filePath(QLatin1String(file)))).at(row).at(column);
        };
        QCOMPARE(cell("hledger-sample.fr.cp1252.csv", 1, 1), QStringLiteral("DÉPÔT"));
        QCOMPARE(cell("hledger-sample.fr.cp1252.csv", 3, 1), QStringLiteral("CAFÉ — €20 REÇU"));
        QCOMPARE(cell("reckon-bom_utf8_file.csv", 1, 3), QStringLiteral("Humble Bundle, Inc."));
    }
};

QTEST_GUILESS_MAIN(TstImportTestData)
#include "tst_importtestdata.moc"
