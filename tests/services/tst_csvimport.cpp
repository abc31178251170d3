#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "services/ImportService.h"
#include "support/Fixtures.h"
#include "support/TempDatabase.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TstCsvImport : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void parseCsv_data();
    void parseCsv();
    void parseImportDate_data();
    void parseImportDate();
    void commonDateShapesReadAsTheFormsWould();
    void importsRowsAsTheyStand();
    void emptyAndHeaderOnlyFiles_data();
    void emptyAndHeaderOnlyFiles();
    void headerOffImportsTheFirstRow();
    void chosenDateFormatFallsBackToDetection();
    void categoriesMatchExactly();
    void progressAndOneChangeSignal();
    void brokenFilesAreRefusedWhole_data();
    void brokenFilesAreRefusedWhole();

private:
    QString write(const QByteArray &bytes);
    ImportResult import(const QByteArray &bytes, CsvImportOptions options = {});
    QList<Transaction> rows() const { return m_transactions->getByAccount(QStringLiteral("chk")); }

    QTemporaryDir m_files;
    int m_fileCount = 0;
    std::unique_ptr<TempDatabase> m_db;
    std::unique_ptr<TransactionRepository> m_transactions;
    std::unique_ptr<CategoryRepository> m_categories;
    std::unique_ptr<SplitLineRepository> m_splitLines;
    std::unique_ptr<ImportService> m_service;
};

using Rows = QList<QStringList>;

void TstCsvImport::init()
{
    m_db = std::make_unique<TempDatabase>();
    QVERIFY(m_db->open());
    QVERIFY(AccountRepository(m_db->database())
                .insert(Fixtures::account(QStringLiteral("chk"), QStringLiteral("Checking"))));
    m_transactions = std::make_unique<TransactionRepository>(m_db->database());
    m_categories = std::make_unique<CategoryRepository>(m_db->database());
    m_splitLines = std::make_unique<SplitLineRepository>(m_db->database());
    m_service = std::make_unique<ImportService>(m_transactions.get(), m_categories.get(), m_splitLines.get());
}

void TstCsvImport::cleanup()
{
    m_service.reset();
    m_splitLines.reset();
    m_categories.reset();
    m_transactions.reset();
    m_db.reset();
}

QString TstCsvImport::write(const QByteArray &bytes)
{
    const QString path = m_files.filePath(QStringLiteral("file%1.csv").arg(++m_fileCount));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

ImportResult TstCsvImport::import(const QByteArray &bytes, CsvImportOptions options)
{
    return m_service->importCsvFile(write(bytes), QStringLiteral("chk"), options);
}

void TstCsvImport::parseCsv_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Rows>("rows");
    QTest::newRow("plain") << "a,b,c\n1,2,3\n"
                           << Rows{
                                  {"a", "b", "c"},
                                  {"1", "2", "3"}
    };
    QTest::newRow("no final newline") << "a,b\n1,2"
                                      << Rows{
                                             {"a", "b"},
                                             {"1", "2"}
    };
    QTest::newRow("crlf") << "a,b\r\n1,2\r\n"
                          << Rows{
                                 {"a", "b"},
                                 {"1", "2"}
    };
    QTest::newRow("comma in quotes") << "\"Humble Bundle, Inc.\",-7.49"
                                     << Rows{
                                            {"Humble Bundle, Inc.", "-7.49"}
    };
    QTest::newRow("newline in quotes") << "1,\"two\nlines\",3\n4,5,6"
                                       << Rows{
                                              {"1", "two\nlines", "3"},
                                              {"4", "5",          "6"}
    };
    QTest::newRow("doubled quotes") << "\"He said \"\"hi\"\"\",x"
                                    << Rows{
                                           {"He said \"hi\"", "x"}
    };
    QTest::newRow("quote inside a field") << "ab\"cd\",e"
                                          << Rows{
                                                 {"abcd", "e"}
    };
    QTest::newRow("fields trimmed, quoted too") << "  a , \" b \" ,c  "
                                                << Rows{
                                                       {"a", "b", "c"}
    };
    QTest::newRow("blank lines vanish") << "\n\na\n\n  \nb\n" << Rows{{"a"}, {"b"}};
    QTest::newRow("empty quoted field is blank") << "\"\"\na" << Rows{{"a"}};
    QTest::newRow("empty fields kept") << ",,\n"
                                       << Rows{
                                              {"", "", ""}
    };
    QTest::newRow("trailing comma at the end") << "a,"
                                               << Rows{
                                                      {"a", ""}
    };
    QTest::newRow("rows differ in width") << "a\nb,c,d\n"
                                          << Rows{
                                                 {"a" },
                                                 { "b", "c", "d"}
    };
    QTest::newRow("open quote closed at the end") << "a,\"b,c\nd"
                                                  << Rows{
                                                         {"a", "b,c\nd"}
    };
    QTest::newRow("semicolons are no delimiter") << "a;b" << Rows{{"a;b"}};
    QTest::newRow("empty") << "" << Rows{};
}

void TstCsvImport::parseCsv()
{
    QFETCH(QString, text);
    QFETCH(Rows, rows);
    QCOMPARE(ImportService::parseCsv(text), rows);
}

void TstCsvImport::parseImportDate_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    QTest::newRow("iso") << "2024-03-15" << QDate(2024, 3, 15);
    QTest::newRow("month first wins") << "03/04/2024" << QDate(2024, 3, 4);
    QTest::newRow("day first when it must") << "13/04/2024" << QDate(2024, 4, 13);
    QTest::newRow("unpadded") << "1/30/2014" << QDate(2014, 1, 30);
    QTest::newRow("half padded") << "2/03/2014" << QDate(2014, 2, 3);
    QTest::newRow("day first unpadded") << "24/1/2009" << QDate(2009, 1, 24);
    QTest::newRow("two-digit year in the 1900s") << "01/15/24" << QDate(1924, 1, 15);
    QTest::newRow("two-digit year unpadded") << "1/5/24" << QDate(1924, 1, 5);
    QTest::newRow("year first with slashes") << "2011/12/24" << QDate(2011, 12, 24);
    QTest::newRow("month names") << "07 Nov 2013" << QDate();
    QTest::newRow("no such day") << "02/30/2024" << QDate();
    QTest::newRow("empty") << "" << QDate();
}

void TstCsvImport::parseImportDate()
{
    QFETCH(QString, text);
    QFETCH(QDate, date);
    QCOMPARE(ImportService::parseImportDate(text), date);
}

void TstCsvImport::commonDateShapesReadAsTheFormsWould()
{
    // The usual all-digit dates are read by hand for speed; every one must come out as the twelve
    // forms, tried in order, would read it.
    const QStringList forms{"yyyy-MM-dd", "MM/dd/yyyy", "M/d/yyyy",  "M/dd/yyyy", "MM/d/yyyy", "dd/MM/yyyy",
                            "d/M/yyyy",   "d/MM/yyyy",  "dd/M/yyyy", "MM/dd/yy",  "M/d/yy",    "yyyy/MM/dd"};
    const auto byForms = [&forms](const QString &text) {
        for (const QString &form : forms) {
            if (const QDate date = QDate::fromString(text, form); date.isValid())
                return date;
        }
        return QDate();
    };
    QStringList numbers;
    for (const int n : {0, 1, 2, 9, 10, 12, 13, 28, 29, 30, 31, 32, 99}) {
        numbers << QString::number(n);
        if (n < 10)
            numbers << QStringLiteral("0%1").arg(n);
    }
    QStringList texts;
    for (const QString &a : numbers) {
        for (const QString &b : numbers) {
            for (const char *year :
                 {"0000", "0024", "1900", "2024", "2023", "9999", "00", "24", "69", "70", "99"})
                texts << QStringLiteral("%1/%2/%3").arg(a, b, QLatin1String(year));
            if (a.size() == 2 && b.size() == 2) {
                for (const char *year : {"0000", "2024", "2023"}) {
                    texts << QStringLiteral("%1-%2-%3").arg(QLatin1String(year), a, b)
                          << QStringLiteral("%1/%2/%3").arg(QLatin1String(year), a, b);
                }
            }
        }
    }
    texts << "2024-3-15"
          << "2024/3/15"
          << "1/2/024"
          << "1/2/20245"
          << "123/1/2024"
          << "1//2024"
          << "a1/2/2024";
    for (const QString &text : std::as_const(texts))
        QVERIFY2(ImportService::parseImportDate(text) == byForms(text), qPrintable(text));
}

void TstCsvImport::importsRowsAsTheyStand()
{
    CsvImportOptions options;
    options.memoColumn = 3;
    options.categoryColumn = 4;
    const ImportResult r = import("Date,Payee,Amount,Memo,Category\n"
                                  "01/05/2024,\"Market, Main St\",-12.50,\"weekly\nshop\",Food\n"
                                  "01/06/2024,Employer,\"1,500.00\",,\n"
                                  "01/07/2024,Refund,abc,bad amount\n"
                                  "01/07/2024,,5\n"
                                  "01/08/2024,Short\n"
                                  "not a date,X,1\n"
                                  "01/05/2024,\"Market, Main St\",-12.50,again,Other\n",
                                  options);
    QCOMPARE(r.imported, 4);
    QCOMPARE(r.duplicates, 1);
    QCOMPARE(r.skippedRecords, 2);
    QCOMPARE(r.metadataRecords + r.unmappedRecords + r.transfersLinked + r.insertFailures, 0);
    const QList<Transaction> all = rows();
    QCOMPARE(all.size(), 4);
    const Transaction &market = all.last();
    QCOMPARE(market.payee, QStringLiteral("Market, Main St"));
    QCOMPARE(market.amount, -1250);
    QCOMPARE(market.memo, QStringLiteral("weekly\nshop"));
    QCOMPARE(market.categoryId, m_categories->getByName(QStringLiteral("Food"))->id);
    QCOMPARE(market.version, 1);
    QCOMPARE(market.syncStatus, SyncStatus::Pending);
    QCOMPARE(market.createdAt, market.updatedAt);
    QVERIFY(!market.cleared);
    QCOMPARE(all.at(2).amount, 150000);
    QVERIFY(all.at(2).categoryId.isEmpty());
    // An amount that cannot be read comes in as 0.00, and an empty payee stays empty.
    QStringList payees;
    for (const Transaction &t : all) {
        payees << t.payee;
        if (t.payee == QStringLiteral("Refund"))
            QCOMPARE(t.amount, 0);
    }
    QVERIFY(payees.contains(QString()));
    QVERIFY(!m_categories->getByName(QStringLiteral("Other")));

    // The same file once more: every row a duplicate of what is stored.
    const ImportResult again = import("Date,Payee,Amount\n01/06/2024,Employer,\"1,500.00\"\n");
    QCOMPARE(again.imported, 0);
    QCOMPARE(again.duplicates, 1);
}

void TstCsvImport::emptyAndHeaderOnlyFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("blank lines") << QByteArray("\n\r\n  \n");
    QTest::newRow("header only") << QByteArray("Date,Payee,Amount\n");
    QTest::newRow("header with a mark") << QByteArray("\xEF\xBB\xBF"
                                                      "Date,Payee,Amount");
}

void TstCsvImport::emptyAndHeaderOnlyFiles()
{
    QFETCH(QByteArray, bytes);
    QSignalSpy started(m_service.get(), &ImportService::importStarted);
    QSignalSpy progress(m_service.get(), &ImportService::importProgress);
    const ImportResult r = import(bytes);
    QCOMPARE(r.imported + r.duplicates + r.skippedRecords, 0);
    QCOMPARE(started.count(), 1);
    QCOMPARE(started.first().first().toInt(), 0);
    QCOMPARE(progress.count(), 1);
    QCOMPARE(progress.first(), (QList<QVariant>{0, 0}));
}

void TstCsvImport::headerOffImportsTheFirstRow()
{
    CsvImportOptions options;
    options.hasHeader = false;
    const ImportResult r = import("Date,Payee,Amount\n2024-01-05,Market,-3\n", options);
    QCOMPARE(r.imported, 1);
    QCOMPARE(r.skippedRecords, 1);

    // A file that cannot be opened is an import of nothing, without a signal.
    QSignalSpy started(m_service.get(), &ImportService::importStarted);
    const ImportResult missing =
        m_service->importCsvFile(m_files.filePath(QStringLiteral("missing.csv")), QStringLiteral("chk"), {});
    QCOMPARE(missing.imported + missing.skippedRecords, 0);
    QCOMPARE(started.count(), 0);
}

void TstCsvImport::chosenDateFormatFallsBackToDetection()
{
    CsvImportOptions options;
    options.dateFormat = QStringLiteral("dd/MM/yyyy");
    const ImportResult r =
        import("D,P,A\n03/04/2024,Day first,1\n2024-03-15,Iso,2\n01/13/2024,Month first,3\n"
               "15/03/24,Short year,4\n",
               options);
    // "15/03/24" fits neither the chosen form (four-digit years) nor any detected one.
    QCOMPARE(r.imported, 3);
    QCOMPARE(r.skippedRecords, 1);
    QHash<QString, QDate> dates;
    for (const Transaction &t : rows())
        dates.insert(t.payee, t.date);
    QCOMPARE(dates.value(QStringLiteral("Day first")), QDate(2024, 4, 3));
    QCOMPARE(dates.value(QStringLiteral("Iso")), QDate(2024, 3, 15));
    QCOMPARE(dates.value(QStringLiteral("Month first")), QDate(2024, 1, 13));
}

void TstCsvImport::categoriesMatchExactly()
{
    Category food;
    food.id = QStringLiteral("lower");
    food.name = QStringLiteral("food");
    food.createdAt = food.updatedAt = QDateTime::currentDateTimeUtc();
    QVERIFY(m_categories->insert(food));
    CsvImportOptions options;
    options.categoryColumn = 3;
    const ImportResult r = import("D,P,A,C\n2024-01-01,A,1,Food\n2024-01-02,B,2,food\n2024-01-03,C,3,Food\n"
                                  "2024-01-04,D,4,\n2024-01-05,E,5, Food \n",
                                  options);
    QCOMPARE(r.imported, 5);
    const auto created = m_categories->getByName(QStringLiteral("Food"));
    QVERIFY(created);
    QCOMPARE(created->categoryType, CategoryType::Expense);
    QCOMPARE(m_categories->count(), 2);
    QHash<QString, QString> byPayee;
    for (const Transaction &t : rows())
        byPayee.insert(t.payee, t.categoryId);
    QCOMPARE(byPayee.value(QStringLiteral("A")), created->id);
    QCOMPARE(byPayee.value(QStringLiteral("B")), QStringLiteral("lower"));
    QCOMPARE(byPayee.value(QStringLiteral("C")), created->id);
    QCOMPARE(byPayee.value(QStringLiteral("D")), QString());
    QCOMPARE(byPayee.value(QStringLiteral("E")), created->id);
}

void TstCsvImport::progressAndOneChangeSignal()
{
    QByteArray bytes("Date,Payee,Amount\n");
    for (int i = 1; i <= 205; ++i)
        bytes += QStringLiteral("2024-01-01,Shop %1,-1\n").arg(i).toUtf8();
    QSignalSpy progress(m_service.get(), &ImportService::importProgress);
    QSignalSpy changed(m_transactions.get(), &TransactionRepository::transactionsChanged);
    QCOMPARE(import(bytes).imported, 205);
    QCOMPARE(progress.count(), 3);
    QCOMPARE(progress.at(0), (QList<QVariant>{100, 205}));
    QCOMPARE(progress.at(1), (QList<QVariant>{200, 205}));
    QCOMPARE(progress.at(2), (QList<QVariant>{205, 205}));
    QCOMPARE(changed.count(), 1);
}

void TstCsvImport::brokenFilesAreRefusedWhole_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("refused");
    const QByteArray good("Date,Payee,Amount\n2024-01-02,Shop,-5.00\n");
    const qsizetype fields = ImportService::kMaxCsvRowFields;
    QTest::newRow("NUL inside an amount") << good + QByteArrayLiteral("2024-01-03,Shop,3\0.00\n") << true;
    QTest::newRow("UTF-16 is not NUL") << QByteArrayLiteral("\xFF\xFE"
                                                            "D\0,\0\n\0")
                                       << false;
    QTest::newRow("fields at the limit") << good + QByteArray(fields - 1, ',') + '\n' << false;
    QTest::newRow("one field more") << good + QByteArray(fields, ',') + '\n' << true;
    QTest::newRow("a field too long") << good + '"' + QByteArray(ImportService::kMaxCsvRowChars, 'x') + "\"\n"
                                      << true;
}

// A NUL or a row that would take many times its size in memory is no bank export; nothing of the
// file goes in, and the reason names it.
void TstCsvImport::brokenFilesAreRefusedWhole()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, refused);
    CsvImportOptions options;
    options.dateColumn = 0;
    options.payeeColumn = 1;
    options.amountColumn = 2;
    QSignalSpy started(m_service.get(), &ImportService::importStarted);
    const ImportResult r = import(bytes, options);
    QCOMPARE(r.refusedFiles.size(), refused ? 1 : 0);
    if (refused) {
        QVERIFY(r.refusedFiles.first().contains(QStringLiteral("file%1.csv").arg(m_fileCount)));
        QCOMPARE(r.imported + r.skippedRecords, 0);
        QCOMPARE(started.count(), 0);
        QVERIFY(rows().isEmpty());
    }
}

QTEST_GUILESS_MAIN(TstCsvImport)
#include "tst_csvimport.moc"
