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

    // A row may hold no more than this; a file with a longer one is refused rather than read, since
    // each field costs more memory than the comma it came from.
    static constexpr qsizetype kMaxCsvRowFields = 4096;
    static constexpr qsizetype kMaxCsvRowChars = 1 << 20;

    // Comma-separated, double quotes; every field trimmed, blank lines dropped, rows may differ in width.
    // A row past the limits above gives no rows at all.
    static QList<QStringList> parseCsv(const QString &text);
    // The same; a row past the limits sets *refusal to a sentence that names the file.
    static QList<QStringList> parseCsv(const QString &text, const QString &path, QString *refusal);
    // Why a file's decoded text is refused, in the user's words, or empty: it holds a NUL character.
    static QString textRefusal(const QString &path, const QString &text);
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
