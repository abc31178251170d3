#pragma once

#include "services/CsvImportOptions.h"
#include "services/ImportResult.h"
#include "services/QifAnalysis.h"

#include <QDate>
#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

class CategoryRepository;
class SplitLineRepository;
class TransactionRepository;

// Brings CSV and QIF files into the register: every file of one import in one database transaction,
// no row twice (by date, amount and payee within an account), and the two sides of a QIF transfer
// linked, within the import or to a side an earlier import left with a transfer hint. It runs on the
// GUI thread and lets the event loop breathe, without user input, every 100 records.
class ImportService : public QObject {
    Q_OBJECT
public:
    ImportService(TransactionRepository *transactions, CategoryRepository *categories,
                  SplitLineRepository *splitLines, QObject *parent = nullptr);

    // Comma-separated, double quotes; every field trimmed, blank lines dropped, rows may differ in width.
    static QList<QStringList> parseCsv(const QString &text);
    // Tries twelve forms, month first before day first; two-digit years fall in the 1900s.
    static QDate parseImportDate(const QString &text);
    // "%1|%2|%3" of the ISO date, the cents and the payee as it stands.
    static QString duplicateKey(const QDate &date, qint64 amount, const QString &payee);

    ImportResult importCsvFile(const QString &path, const QString &accountId,
                               const CsvImportOptions &options);

    QifAnalysis analyzeQifFiles(const QStringList &paths);
    // accountMap: source key (QIF account name, or the path of a file without one) to target account
    // id; an empty or missing target leaves the source's records out.
    ImportResult importQifFiles(const QStringList &paths, const QHash<QString, QString> &accountMap);

signals:
    void importStarted(int totalRecords);
    void importProgress(int currentRecord, int totalRecords);

private:
    TransactionRepository *m_transactions = nullptr;
    CategoryRepository *m_categories = nullptr;
    SplitLineRepository *m_splitLines = nullptr;
};
