#include "support/ImportStore.h"
#include "support/Line.h"
#include "support/SpyText.h"

#include <QTest>

#include <optional>

namespace {

// Rows split by "/", fields by "|".
QList<QStringList> rowsOf(const QString &text)
{
    QList<QStringList> rows;
    for (const QString &row : text.split(QLatin1Char('/'), Qt::SkipEmptyParts))
        rows << row.split(QLatin1Char('|'));
    return rows;
}

CsvImportOptions options(int memo = -1, int category = -1, bool header = true, const QString &dateFormat = {})
{
    CsvImportOptions o;
    o.memoColumn = memo;
    o.categoryColumn = category;
    o.hasHeader = header;
    o.dateFormat = dateFormat;
    return o;
}

} // namespace

class TstCsvImport : public QObject {
    Q_OBJECT
    std::optional<ImportStore> m_s;
    int m_files = 0;

    ImportResult import(const QByteArray &bytes, const CsvImportOptions &o = {})
    {
        return m_s->service.importCsvFile(m_s->writeBytes(QStringLiteral("file%1.csv").arg(++m_files), bytes),
                                          QStringLiteral("chk"), o);
    }
    QHash<QString, Transaction> byPayee()
    {
        QHash<QString, Transaction> out;
        for (const Transaction &t : m_s->rows("chk"))
            out.insert(t.payee, t);
        return out;
    }

private slots:
    void init()
    {
        m_s.emplace();
        QVERIFY(m_s->ok && m_s->accountsOk);
    }

    void parseCsv_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("rows");
        // clang-format off
        QTest::newRow("plain")                        << "a,b,c\n1,2,3\n"              << "a|b|c/1|2|3";
        QTest::newRow("no final newline")             << "a,b\n1,2"                    << "a|b/1|2";
        QTest::newRow("crlf")                         << "a,b\r\n1,2\r\n"              << "a|b/1|2";
        QTest::newRow("comma in quotes")              << "\"Humble Bundle, Inc.\",-7.49" << "Humble Bundle, Inc.|-7.49";
        QTest::newRow("newline in quotes")            << "1,\"two\nlines\",3\n4,5,6"   << "1|two\nlines|3/4|5|6";
        QTest::newRow("doubled quotes")               << "\"He said \"\"hi\"\"\",x"    << "He said \"hi\"|x";
        QTest::newRow("quote inside a field")         << "ab\"cd\",e"                  << "abcd|e";
        QTest::newRow("fields trimmed, quoted too")   << "  a , \" b \" ,c  "          << "a|b|c";
        QTest::newRow("blank lines vanish")           << "\n\na\n\n  \nb\n"            << "a/b";
        QTest::newRow("empty quoted field is blank")  << "\"\"\na"                     << "a";
        QTest::newRow("empty fields kept")            << ",,\n"                        << "||";
        QTest::newRow("trailing comma at the end")    << "a,"                          << "a|";
        QTest::newRow("rows differ in width")         << "a\nb,c,d\n"                  << "a/b|c|d";
        QTest::newRow("open quote closed at the end") << "a,\"b,c\nd"                  << "a|b,c\nd";
        QTest::newRow("semicolons are no delimiter")  << "a;b"                         << "a;b";
        QTest::newRow("empty")                        << ""                            << "";
        // clang-format on
    }

    void parseCsv()
    {
        QFETCH(QString, text);
        QFETCH(QString, rows);
        QCOMPARE(ImportService::parseCsv(text), rowsOf(rows));
    }

    void commonDateShapesReadAsTheFormsWould()
    {
        // The usual all-digit dates are read by hand for speed; every one must come out as the twelve
        // forms, tried in order, would read it: month first where both fit, two-digit years in the 1900s.
        const QStringList forms{"yyyy-MM-dd", "MM/dd/yyyy", "M/d/yyyy", "M/dd/yyyy",
                                "MM/d/yyyy",  "dd/MM/yyyy", "d/M/yyyy", "d/MM/yyyy",
                                "dd/M/yyyy",  "MM/dd/yy",   "M/d/yy",   "yyyy/MM/dd"};
        const auto byForms = [&forms](const QString &text) {
            for (const QString &form : forms) {
                if (const QDate date = QDate::fromString(text, form); date.isValid())
                    return date;
            }
            return QDate();
        };
        QStringList numbers;
        for (const int n : {0, 1, 2, 9, 10, 12, 13, 28, 29, 30, 31, 32, 99})
            numbers << QString::number(n) << (n < 10 ? QStringLiteral("0%1").arg(n) : QString());
        numbers.removeAll(QString());
        QStringList texts{"07 Nov 2013", "",           "2024-3-15", "2024/3/15", "1/2/024",
                          "1/2/20245",   "123/1/2024", "1//2024",   "a1/2/2024"};
        for (const QString &a : numbers) {
            for (const QString &b : numbers) {
                for (const char *year :
                     {"0000", "0024", "1900", "2024", "2023", "9999", "00", "24", "69", "70", "99"})
                    texts << QStringLiteral("%1/%2/%3").arg(a, b, QLatin1String(year));
                for (const char *year : {"0000", "2024", "2023"}) {
                    if (a.size() == 2 && b.size() == 2)
                        texts << QStringLiteral("%1-%2-%3").arg(QLatin1String(year), a, b)
                              << QStringLiteral("%1/%2/%3").arg(QLatin1String(year), a, b);
                }
            }
        }
        for (const QString &text : std::as_const(texts))
            QVERIFY2(ImportService::parseImportDate(text) == byForms(text), qPrintable(text));
    }

    void importsRowsAsTheyStand()
    {
        const ImportResult r = import("Date,Payee,Amount,Memo,Category\n"
                                      "01/05/2024,\"Market, Main St\",-12.50,\"weekly\nshop\",Food\n"
                                      "01/06/2024,Employer,\"1,500.00\",,\n"
                                      "01/07/2024,Refund,abc,bad amount\n"
                                      "01/07/2024,,5\n"
                                      "01/08/2024,Short\n"
                                      "not a date,X,1\n"
                                      "01/05/2024,\"Market, Main St\",-12.50,again,Other\n",
                                      options(3, 4));
        QCOMPARE(ImportStore::counts(r), "i4 d1 s2 m0 u0 t0 r0 f0 x0");
        const QString food = m_s->categories.getByName(QStringLiteral("Food"))->id;
        // An amount that cannot be read comes in as 0.00, and an empty payee stays empty.
        QStringList rows = lines(m_s->rows("chk"), [&food](const Transaction &t) {
            return line("[" + t.payee + "]", t.date, t.amount, "[" + t.memo + "]",
                        t.categoryId == food ? "food" : t.categoryId, t.version,
                        syncStatusToString(t.syncStatus), t.createdAt == t.updatedAt, t.cleared);
        });
        rows.sort();
        QCOMPARE(rows, (QStringList{"[Employer] 2024-01-06 150000 []  1 pending 1 0",
                                    "[Market, Main St] 2024-01-05 -1250 [weekly\nshop] food 1 pending 1 0",
                                    "[Refund] 2024-01-07 0 [bad amount]  1 pending 1 0",
                                    "[] 2024-01-07 500 []  1 pending 1 0"}));
        QVERIFY(!m_s->categories.getByName(QStringLiteral("Other")));
        QCOMPARE(ImportStore::counts(import("Date,Payee,Amount\n01/06/2024,Employer,\"1,500.00\"\n")),
                 "i0 d1 s0 m0 u0 t0 r0 f0 x0");
    }

    void emptyAndHeaderOnlyFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("blank lines") << QByteArray("\n\r\n  \n");
        QTest::newRow("header only") << QByteArray("Date,Payee,Amount\n");
        QTest::newRow("header with a mark") << QByteArray("\xEF\xBB\xBF"
                                                          "Date,Payee,Amount");
    }

    void emptyAndHeaderOnlyFiles()
    {
        QFETCH(QByteArray, bytes);
        QSignalSpy started(&m_s->service, &ImportService::importStarted);
        QSignalSpy progress(&m_s->service, &ImportService::importProgress);
        QCOMPARE(ImportStore::counts(import(bytes)), "i0 d0 s0 m0 u0 t0 r0 f0 x0");
        QCOMPARE(spyText(started) + ' ' + spyText(progress), QStringLiteral("0 0,0"));
    }

    void headerOffImportsTheFirstRow()
    {
        QCOMPARE(
            ImportStore::counts(import("Date,Payee,Amount\n2024-01-05,Market,-3\n", options(-1, -1, false))),
            "i1 d0 s1 m0 u0 t0 r0 f0 x0");
        // A file that cannot be opened is an import of nothing, without a signal.
        QSignalSpy started(&m_s->service, &ImportService::importStarted);
        const ImportResult missing =
            m_s->service.importCsvFile(m_s->files.filePath(QStringLiteral("missing.csv")), "chk", {});
        QCOMPARE(ImportStore::counts(missing) + ' ' + spyText(started), "i0 d0 s0 m0 u0 t0 r0 f0 x0 ");
    }

    void chosenDateFormatFallsBackToDetection()
    {
        const ImportResult r =
            import("D,P,A\n03/04/2024,Day first,1\n2024-03-15,Iso,2\n01/13/2024,Month first,3\n"
                   "15/03/24,Short year,4\n",
                   options(-1, -1, true, QStringLiteral("dd/MM/yyyy")));
        // "15/03/24" fits neither the chosen form (four-digit years) nor any detected one.
        QCOMPARE(ImportStore::counts(r), "i3 d0 s1 m0 u0 t0 r0 f0 x0");
        const QHash<QString, Transaction> rows = byPayee();
        QCOMPARE(line(rows.value("Day first").date, rows.value("Iso").date, rows.value("Month first").date),
                 "2024-04-03 2024-03-15 2024-01-13");
    }

    void categoriesMatchExactly()
    {
        QVERIFY(m_s->categories.insert(Fixtures::category("lower", "food")));
        const ImportResult r =
            import("D,P,A,C\n2024-01-01,A,1,Food\n2024-01-02,B,2,food\n2024-01-03,C,3,Food\n"
                   "2024-01-04,D,4,\n2024-01-05,E,5, Food \n",
                   options(-1, 3));
        QCOMPARE(r.imported, 5);
        const auto created = m_s->categories.getByName(QStringLiteral("Food"));
        QCOMPARE(line(categoryTypeToString(created->categoryType), m_s->categories.count()), "expense 2");
        QStringList categories;
        for (const char *payee : {"A", "B", "C", "D", "E"})
            categories << byPayee().value(payee).categoryId.replace(created->id, "new");
        QCOMPARE(categories, (QStringList{"new", "lower", "new", "", "new"}));
    }

    void progressAndOneChangeSignal()
    {
        QByteArray bytes("Date,Payee,Amount\n");
        for (int i = 1; i <= 205; ++i)
            bytes += QStringLiteral("2024-01-01,Shop %1,-1\n").arg(i).toUtf8();
        QSignalSpy progress(&m_s->service, &ImportService::importProgress);
        QSignalSpy changed(&m_s->transactions, &TransactionRepository::transactionsChanged);
        QCOMPARE(import(bytes).imported, 205);
        QCOMPARE(spyText(progress), QStringLiteral("100,205 200,205 205,205"));
        QCOMPARE(changed.count(), 1);
    }

    void brokenFilesAreRefusedWhole_data()
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
        QTest::newRow("a field too long")
            << good + '"' + QByteArray(ImportService::kMaxCsvRowChars, 'x') + "\"\n"
            << true;
    }

    // A NUL or a row that would take many times its size in memory is no bank export; nothing of the
    // file goes in, and the reason names it.
    void brokenFilesAreRefusedWhole()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, refused);
        QSignalSpy started(&m_s->service, &ImportService::importStarted);
        const ImportResult r = import(bytes);
        QCOMPARE(r.refusedFiles.size(), refused ? 1 : 0);
        if (refused) {
            QVERIFY(r.refusedFiles.first().contains(QStringLiteral("file%1.csv").arg(m_files)));
            QCOMPARE(line(ImportStore::counts(r), started.count(), m_s->rows("chk").size()),
                     "i0 d0 s0 m0 u0 t0 r0 f0 x0 0 0");
        }
    }
};

QTEST_GUILESS_MAIN(TstCsvImport)
#include "tst_csvimport.moc"
