#include "ImportBench.h"

#include "HouseholdGenerator.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/Database.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "services/CategoryService.h"
#include "services/ImportService.h"
#include "support/TempDatabase.h"

#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QLocale>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <vector>

namespace {

constexpr int kRecords = 100000;
constexpr double kQifMaxMs = 4000.0;
constexpr double kQifAgainMaxMs = 2000.0;
constexpr double kCsvMaxMs = 3000.0;

QString qifType(AccountType type)
{
    switch (type) {
    case AccountType::CreditCard: return QStringLiteral("CCard");
    case AccountType::Cash: return QStringLiteral("Cash");
    case AccountType::Investment: return QStringLiteral("Invst");
    case AccountType::Other: return QStringLiteral("Oth A");
    case AccountType::Checking:
    case AccountType::Savings: break;
    }
    return QStringLiteral("Bank");
}

QString qifAmount(qint64 cents)
{
    const qint64 magnitude = cents < 0 ? -cents : cents;
    return QStringLiteral("%1%2.%3")
        .arg(cents < 0 ? QStringLiteral("-") : QString())
        .arg(magnitude / 100)
        .arg(magnitude % 100, 2, 10, QLatin1Char('0'));
}

// Collects the household and writes it as a QIF export of every account, the way a finance program
// exports: an account header, then the account's register, each transfer in both registers.
class QifWriter : public HouseholdGenerator::Sink {
public:
    explicit QifWriter(const QList<Category> &categories)
    {
        for (const Category &c : categories)
            m_categoryNames.insert(c.id, c.name);
    }

    bool begin() override { return true; }
    bool addAccount(const Account &account) override
    {
        m_accounts.append(account);
        return true;
    }
    bool addRecurring(const RecurringTransaction &) override { return true; }
    bool addTransaction(const Transaction &t) override
    {
        m_rows[t.accountId].append(t);
        return true;
    }
    bool addSplitLine(const SplitLine &line) override
    {
        m_splits[line.transactionId].append(line);
        return true;
    }
    bool addReconciliation(const Reconciliation &) override { return true; }
    bool commit() override { return true; }

    const QList<Account> &accounts() const { return m_accounts; }

    bool writeQif(const QString &path) const
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return false;
        QHash<QString, QString> names;
        for (const Account &a : m_accounts)
            names.insert(a.id, a.name);
        QTextStream out(&file);
        for (const Account &account : m_accounts) {
            out << "!Account\nN" << account.name << "\nT" << qifType(account.accountType)
                << "\n^\n!Type:" << qifType(account.accountType) << '\n';
            for (const Transaction &t : m_rows.value(account.id)) {
                out << 'D' << t.date.toString(QStringLiteral("M/d/yyyy")) << "\nT" << qifAmount(t.amount)
                    << "\nP" << t.payee << '\n';
                if (!t.memo.isEmpty())
                    out << 'M' << t.memo << '\n';
                if (!t.checkNumber.isEmpty())
                    out << 'N' << t.checkNumber << '\n';
                if (t.reconciled)
                    out << "CR\n";
                else if (t.cleared)
                    out << "C*\n";
                if (!t.transferDestAccountId.isEmpty())
                    out << "L[" << names.value(t.transferDestAccountId) << "]\n";
                else if (!t.categoryId.isEmpty())
                    out << 'L' << m_categoryNames.value(t.categoryId) << '\n';
                for (const SplitLine &line : m_splits.value(t.id)) {
                    out << 'S' << m_categoryNames.value(line.categoryId) << '\n';
                    if (!line.memo.isEmpty())
                        out << 'E' << line.memo << '\n';
                    out << '$' << qifAmount(line.amount) << '\n';
                }
                out << "^\n";
            }
        }
        return out.status() == QTextStream::Ok;
    }

    // Every row as it would come from a bank's download of one account.
    bool writeCsv(const QString &path) const
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return false;
        QTextStream out(&file);
        out << "Date,Description,Amount,Memo,Category\n";
        const auto quoted = [](QString text) {
            return QLatin1Char('"') + text.replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
                   QLatin1Char('"');
        };
        for (const Account &account : m_accounts) {
            for (const Transaction &t : m_rows.value(account.id)) {
                out << t.date.toString(QStringLiteral("MM/dd/yyyy")) << ',' << quoted(t.payee) << ','
                    << qifAmount(t.amount) << ',' << quoted(t.memo) << ','
                    << quoted(m_categoryNames.value(t.categoryId)) << '\n';
            }
        }
        return out.status() == QTextStream::Ok;
    }

    int records() const
    {
        int n = 0;
        for (const QList<Transaction> &rows : m_rows)
            n += int(rows.size());
        return n;
    }

private:
    QList<Account> m_accounts;
    QHash<QString, QList<Transaction>> m_rows;
    QHash<QString, QList<SplitLine>> m_splits;
    QHash<QString, QString> m_categoryNames;
};

// A fresh database with the default categories and the household's accounts, as the screen leaves
// it just before the import starts.
struct Target {
    std::unique_ptr<TempDatabase> db;
    std::unique_ptr<TransactionRepository> transactions;
    std::unique_ptr<CategoryRepository> categories;
    std::unique_ptr<SplitLineRepository> splitLines;
    std::unique_ptr<ImportService> service;
    QHash<QString, QString> accountMap; // QIF name to id

    bool open(const QList<Account> &accounts)
    {
        db = std::make_unique<TempDatabase>();
        if (!db->open())
            return false;
        transactions = std::make_unique<TransactionRepository>(db->database());
        categories = std::make_unique<CategoryRepository>(db->database());
        splitLines = std::make_unique<SplitLineRepository>(db->database());
        service = std::make_unique<ImportService>(transactions.get(), categories.get(), splitLines.get());
        CategoryService(categories.get()).seedDefaultsIfEmpty();
        AccountRepository repository(db->database());
        for (const Account &a : accounts) {
            if (!repository.insert(a))
                return false;
            accountMap.insert(a.name, a.id);
        }
        return true;
    }

    // The one connection name: only one Target may be open at a time.
    void close()
    {
        service.reset();
        splitLines.reset();
        categories.reset();
        transactions.reset();
        db.reset();
        accountMap.clear();
    }
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Wall and processor time of one piece of work: on a shared machine the second says what the work
// itself costs.
struct Clock {
    QElapsedTimer wall;
    std::clock_t cpu = 0;
    void start()
    {
        wall.start();
        cpu = std::clock();
    }
    std::pair<double, double> ms() const
    {
        return {double(wall.nsecsElapsed()) / 1e6, double(std::clock() - cpu) * 1000.0 / CLOCKS_PER_SEC};
    }
};

struct Times {
    std::vector<double> wall;
    std::vector<double> cpu;
    void add(const Clock &clock)
    {
        const auto [w, c] = clock.ms();
        wall.push_back(w);
        cpu.push_back(c);
    }
};

// A limit of 0 has no target.
void printRow(const QString &name, const Times &times, int records, double limitMs)
{
    const double ms = median(times.wall);
    const double perSecond = ms > 0 ? records / (ms / 1000.0) : 0;
    const QString target = limitMs > 0 ? QStringLiteral("< %1 ms").arg(limitMs) : QStringLiteral("-");
    const char *met = limitMs > 0 ? (ms < limitMs ? "yes" : "NO") : "-";
    std::printf("%-44s %10.1f %12s %8.1f  %-30s %s\n", qPrintable(name), ms,
                qPrintable(QLocale(QLocale::English).toString(qint64(perSecond))), median(times.cpu),
                qPrintable(target), met);
}

QString number(qint64 n)
{
    return QLocale(QLocale::English).toString(n);
}

} // namespace

bool runImportBench(int runs)
{
    QTemporaryDir files;
    if (!files.isValid())
        return false;

    // The household's rows, with the ids the database of the categories gave them.
    HouseholdGenerator::Options options;
    options.transactions = kRecords;
    options.reconciliations = 0;
    QList<Category> categories;
    {
        TempDatabase seed;
        if (!seed.open())
            return false;
        CategoryRepository repository(seed.database());
        CategoryService(&repository).seedDefaultsIfEmpty();
        categories = repository.getAll();
    }
    QifWriter writer(categories);
    const HouseholdGenerator::Summary summary = HouseholdGenerator::generate(writer, categories, options);
    const QString qifPath = files.filePath(QStringLiteral("household.qif"));
    const QString csvPath = files.filePath(QStringLiteral("household.csv"));
    if (!summary.ok || !writer.writeQif(qifPath) || !writer.writeCsv(csvPath))
        return false;
    const int records = writer.records();

    Times analysis, first, again, csv;
    ImportResult firstResult, againResult, csvResult;
    for (int run = 0; run < runs; ++run) {
        Target target;
        if (!target.open(writer.accounts()))
            return false;
        Clock clock;
        clock.start();
        if (target.service->analyzeQifFiles({qifPath}).transactionCount != records)
            return false;
        analysis.add(clock);
        clock.start();
        firstResult = target.service->importQifFiles({qifPath}, target.accountMap);
        first.add(clock);
        clock.start();
        againResult = target.service->importQifFiles({qifPath}, target.accountMap);
        again.add(clock);
        target.close();

        if (!target.open(writer.accounts().mid(0, 1)))
            return false;
        CsvImportOptions csvOptions;
        csvOptions.memoColumn = 3;
        csvOptions.categoryColumn = 4;
        clock.start();
        csvResult = target.service->importCsvFile(csvPath, writer.accounts().first().id, csvOptions);
        csv.add(clock);
        target.close();
        if (firstResult.aborted || againResult.aborted || againResult.imported != 0)
            return false;
    }

    std::printf(
        "\nQIF export of the household: %s records in %d accounts (%s transfer pairs, %s with split lines), "
        "%.1f MiB; the same rows as CSV for one account. Medians of %d runs.\n",
        qPrintable(number(records)), int(writer.accounts().size()), qPrintable(number(summary.transferPairs)),
        qPrintable(number(summary.splitTransactions)), double(QFile(qifPath).size()) / 1048576.0, runs);
    std::printf("First QIF import: %s imported, %s duplicates, %s transfers linked. Again: %s duplicates. "
                "CSV: %s imported, %s duplicates.\n",
                qPrintable(number(firstResult.imported)), qPrintable(number(firstResult.duplicates)),
                qPrintable(number(firstResult.transfersLinked)), qPrintable(number(againResult.duplicates)),
                qPrintable(number(csvResult.imported)), qPrintable(number(csvResult.duplicates)));
    std::printf("%-44s %10s %12s %8s  %-30s %s\n", "import", "median ms", "records/s", "cpu ms", "target",
                "met");
    printRow(QStringLiteral("analysis of the QIF (the screen's first read)"), analysis, records, 0);
    printRow(QStringLiteral("QIF into an empty database"), first, records, kQifMaxMs);
    printRow(QStringLiteral("the same QIF again, all duplicates"), again, records, kQifAgainMaxMs);
    printRow(QStringLiteral("CSV of %1 rows into one account").arg(number(records)), csv, records, kCsvMaxMs);
    return true;
}
