#include "services/ImportService.h"

#include "core/Category.h"
#include "core/Dates.h"
#include "core/Identifiers.h"
#include "core/Money.h"
#include "core/SplitLine.h"
#include "core/Transaction.h"
#include "data/CategoryRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "services/ImportBytes.h"
#include "services/QifParser.h"
#include "services/TransferHint.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QSet>
#include <QSignalBlocker>
#include <QSqlDatabase>

#include <optional>
#include <unordered_map>

namespace {

constexpr int kProgressEvery = 100;
constexpr int kPumpMs = 5;

// The program's one connection, which every repository writes through.
QSqlDatabase connection()
{
    return QSqlDatabase::database(QStringLiteral("qt_sql_default_connection"), false);
}

// Keeps the progress dialog painted; the user cannot start another change meanwhile.
void pumpEvents()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, kPumpMs);
}

QString fileName(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

struct FileText {
    QString text;
    QString refusal; // not empty: the file is left out, and the text is empty
};

// Nothing for a file that does not open.
std::optional<FileText> readText(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    FileText read;
    read.text = decodeImportBytes(file.readAll());
    read.refusal = ImportService::textRefusal(path, read.text);
    if (!read.refusal.isEmpty())
        read.text.clear();
    return read;
}

bool hasCell(const QStringList &row, int column)
{
    return column >= 0 && column < row.size();
}

// Holds back the repositories' change signals while an import writes, so that listeners neither
// refresh hundreds of thousands of times nor see rows that a rollback may take back; they hear once
// for each account after the end.
class ChangeSignalsHeld {
public:
    ChangeSignalsHeld(TransactionRepository *transactions, CategoryRepository *categories)
        : m_transactions(transactions)
        , m_categories(categories)
        , m_transactionBlocker(transactions)
        , m_categoryBlocker(categories)
    {
    }

    void touchAccount(const QString &accountId) { m_accounts.insert(accountId); }
    void touchCategories() { m_categoriesTouched = true; }

    void release(bool committed)
    {
        m_transactionBlocker.unblock();
        m_categoryBlocker.unblock();
        if (!committed)
            return;
        if (m_categoriesTouched)
            emit m_categories->categoriesChanged();
        for (const QString &id : std::as_const(m_accounts))
            emit m_transactions->transactionsChanged(id);
    }

private:
    TransactionRepository *m_transactions;
    CategoryRepository *m_categories;
    QSignalBlocker m_transactionBlocker;
    QSignalBlocker m_categoryBlocker;
    QSet<QString> m_accounts;
    bool m_categoriesTouched = false;
};

struct QifWorkItem : QifTransaction {
    QString targetAccountId; // empty: the record is not imported
    int partnerIndex = -1;
    QString newId; // made up front, so that either side of a pair can name the other
};

struct RetroactiveCandidate {
    QString id;
    QString accountId;
    QString hint;
    QDate date;
    qint64 amount = 0;
};

struct AccountImportCache {
    QSet<QString> keys;
    QList<RetroactiveCandidate> candidates; // newest first, as the repository lists them
    QHash<QString, Transaction> rowsById;   // the candidates' rows
    // Positions in candidates by date and amount, in list order; a linked candidate leaves them.
    QHash<QString, QList<qsizetype>> byDateAmount;
};

QString dateAmountKey(const QDate &date, qint64 amount)
{
    return QString::number(date.toJulianDay()) + QLatin1Char('|') + QString::number(amount);
}

class CategoryIds {
public:
    CategoryIds(CategoryRepository *repository, ChangeSignalsHeld *held)
        : m_repository(repository)
        , m_held(held)
    {
        for (const Category &c : repository->getAll()) {
            if (!m_ids.contains(c.name))
                m_ids.insert(c.name, c.id);
        }
    }

    bool contains(const QString &name) const { return m_ids.contains(name); }

    bool create(const QString &name, CategoryType type, bool keepOnlyIfInserted)
    {
        Category category;
        category.id = newId();
        category.name = name;
        category.categoryType = type;
        category.createdAt = utcNow();
        category.updatedAt = category.createdAt;
        const bool inserted = m_repository->insert(category);
        if (inserted)
            m_held->touchCategories();
        if (inserted || !keepOnlyIfInserted)
            m_ids.insert(name, category.id);
        return inserted;
    }

    // Matched exactly, letter case and blanks included; a missing name becomes an expense category.
    QString idFor(const QString &name)
    {
        if (const auto it = m_ids.constFind(name); it != m_ids.constEnd())
            return *it;
        create(name, CategoryType::Expense, false);
        return m_ids.value(name);
    }

private:
    CategoryRepository *m_repository;
    ChangeSignalsHeld *m_held;
    QHash<QString, QString> m_ids;
};

bool canTakePartInBatch(const QifWorkItem &item)
{
    return item.partnerIndex < 0 && !item.transferAccount.isEmpty() && !item.sourceAccount.isEmpty() &&
           !isSelfTransfer(item) && !item.targetAccountId.isEmpty();
}

bool arePartners(const QifWorkItem &a, const QifWorkItem &b)
{
    return a.targetAccountId != b.targetAccountId && a.date == b.date && b.amount == -a.amount &&
           a.sourceAccount.compare(b.transferAccount, Qt::CaseInsensitive) == 0 &&
           a.transferAccount.compare(b.sourceAccount, Qt::CaseInsensitive) == 0;
}

QString batchKey(const QDate &date, qint64 amount, const QString &source, const QString &transfer)
{
    return dateAmountKey(date, amount) + QLatin1Char('|') + source.toLower() + QChar(0x1F) +
           transfer.toLower();
}

// Pairs the two sides of each transfer inside the work list, in file order; the partner of i is the
// first later item that mirrors it. An index by date, amount and the two names keeps this linear.
int linkBatch(QList<QifWorkItem> &work)
{
    QHash<QString, QList<int>> index;
    for (int j = 0; j < work.size(); ++j) {
        const QifWorkItem &item = work.at(j);
        if (canTakePartInBatch(item))
            index[batchKey(item.date, item.amount, item.sourceAccount, item.transferAccount)].append(j);
    }
    int links = 0;
    for (int i = 0; i < work.size(); ++i) {
        if (!canTakePartInBatch(work.at(i)))
            continue;
        const QifWorkItem &item = work.at(i);
        const auto found =
            index.constFind(batchKey(item.date, -item.amount, item.transferAccount, item.sourceAccount));
        if (found == index.constEnd())
            continue;
        for (const int j : *found) {
            if (j <= i || !canTakePartInBatch(work.at(j)) || !arePartners(item, work.at(j)))
                continue;
            work[i].partnerIndex = j;
            work[j].partnerIndex = i;
            ++links;
            break;
        }
    }
    return links;
}

QString payeeOf(const QifTransaction &record)
{
    if (!record.payee.isEmpty())
        return record.payee;
    if (!record.checkNumber.isEmpty() && !record.security.isEmpty())
        return QStringLiteral("%1: %2").arg(record.checkNumber, record.security);
    if (!record.security.isEmpty())
        return record.security;
    if (!record.checkNumber.isEmpty())
        return record.checkNumber;
    if (!record.transferAccount.isEmpty())
        return record.transferAccount;
    return ImportService::tr("Imported transaction");
}

qint32 suggestedTypeOf(const QifAccountRef &account)
{
    switch (account.type) {
    case QifAccountType::CreditCard: return 2;
    case QifAccountType::Investment: return 4;
    case QifAccountType::Cash: return 3;
    case QifAccountType::OtherAsset:
    case QifAccountType::OtherLiability: return 5;
    case QifAccountType::Bank: break;
    }
    return account.name.contains(QLatin1String("saving"), Qt::CaseInsensitive) ? 1 : 0;
}

// One QIF import, from the parsed files to the commit.
class QifImport {
public:
    QifImport(ImportService *service, TransactionRepository *transactions, CategoryRepository *categories,
              SplitLineRepository *splitLines)
        : m_service(service)
        , m_transactions(transactions)
        , m_categoryRepository(categories)
        , m_splitLines(splitLines)
    {
    }

    ImportResult run(const QStringList &paths, const QHash<QString, QString> &accountMap);

private:
    void readFiles(const QStringList &paths);
    AccountImportCache *cacheFor(const QString &accountId);
    // The position of the first candidate that mirrors the record, or -1.
    qsizetype findCandidate(const AccountImportCache &cache, const QifWorkItem &item) const;
    void forgetCandidate(AccountImportCache &cache, qsizetype position);
    // Writes one record; false when the whole import must be given up.
    bool importItem(int index, CategoryIds &categories, ChangeSignalsHeld &held);

    ImportService *m_service;
    TransactionRepository *m_transactions;
    CategoryRepository *m_categoryRepository;
    SplitLineRepository *m_splitLines;

    QHash<QString, QString> m_lookup; // lower-cased source key to target account
    QList<QifWorkItem> m_work;
    QList<QifCategory> m_categories;
    std::unordered_map<QString, AccountImportCache> m_caches; // node-based: pointers stay valid
    std::optional<TransactionRepository::Inserter> m_inserter;
    ImportResult m_result;
    QString m_abortReason;
};

ImportResult QifImport::run(const QStringList &paths, const QHash<QString, QString> &accountMap)
{
    for (auto it = accountMap.constBegin(); it != accountMap.constEnd(); ++it)
        m_lookup.insert(it.key().toLower(), it.value());
    readFiles(paths);
    m_result.transfersLinked = linkBatch(m_work);

    ChangeSignalsHeld held(m_transactions, m_categoryRepository);
    CategoryIds categories(m_categoryRepository, &held);
    const int total = int(m_work.size());
    emit m_service->importStarted(total);
    QSqlDatabase db = connection();
    db.transaction();
    // Fed row by row, the search index would flush at every insert; it takes the new rows at once.
    const std::optional<SearchIndexPause> pause = m_transactions->pauseSearchIndex();
    m_inserter = m_transactions->inserter();

    for (const QifCategory &category : std::as_const(m_categories)) {
        if (!categories.contains(category.name))
            categories.create(category.name, category.isIncome ? CategoryType::Income : CategoryType::Expense,
                              true);
    }

    for (int i = 0; i < total; ++i) {
        if ((i + 1) % kProgressEvery == 0) {
            emit m_service->importProgress(i + 1, total);
            pumpEvents();
        }
        if (!importItem(i, categories, held)) {
            qWarning().noquote() << "QIF import aborted:" << m_abortReason;
            m_result.aborted = true;
            m_inserter.reset();
            db.rollback();
            held.release(false);
            emit m_service->importProgress(total, total);
            return m_result;
        }
    }

    m_inserter.reset();
    const bool committed = (!pause || m_transactions->resumeSearchIndex(*pause)) && db.commit();
    if (!committed)
        db.rollback();
    held.release(committed);
    emit m_service->importProgress(total, total);
    return m_result;
}

void QifImport::readFiles(const QStringList &paths)
{
    QSet<QString> categoryNames;
    for (const QString &path : paths) {
        const std::optional<FileText> read = readText(path);
        if (!read)
            continue;
        if (!read->refusal.isEmpty()) {
            m_result.refusedFiles << read->refusal;
            continue;
        }
        QifParseResult parsed = QifParser::parse(read->text, QifDateOrder::Auto);
        m_result.skippedRecords += parsed.skippedRecords;
        m_result.metadataRecords += parsed.metadataRecords;
        for (const QifCategory &category : std::as_const(parsed.categories)) {
            if (category.name.isEmpty() || categoryNames.contains(category.name))
                continue;
            categoryNames.insert(category.name);
            m_categories.append(category);
        }
        m_work.reserve(m_work.size() + parsed.transactions.size());
        for (QifTransaction &record : parsed.transactions) {
            QifWorkItem item;
            static_cast<QifTransaction &>(item) = std::move(record);
            const QString key = item.sourceAccount.isEmpty() ? path : item.sourceAccount;
            item.targetAccountId = m_lookup.value(key.toLower());
            item.newId = newId();
            m_work.append(std::move(item));
        }
    }
}

AccountImportCache *QifImport::cacheFor(const QString &accountId)
{
    if (const auto it = m_caches.find(accountId); it != m_caches.end())
        return &it->second;
    AccountImportCache &cache = m_caches[accountId];
    const QList<Transaction> rows = m_transactions->getByAccount(accountId);
    cache.keys.reserve(rows.size());
    for (const Transaction &row : rows) {
        cache.keys.insert(ImportService::duplicateKey(row.date, row.amount, row.payee));
        if (!row.transferLinkId.isEmpty())
            continue;
        if (const std::optional<TransferHint> hint = parseTransferHint(row.memo)) {
            cache.byDateAmount[dateAmountKey(row.date, row.amount)].append(cache.candidates.size());
            cache.candidates.append({row.id, row.accountId, hint->hint, row.date, row.amount});
            cache.rowsById.insert(row.id, row);
        }
    }
    return &cache;
}

qsizetype QifImport::findCandidate(const AccountImportCache &cache, const QifWorkItem &item) const
{
    if (item.sourceAccount.isEmpty() || cache.candidates.isEmpty())
        return -1;
    const auto found = cache.byDateAmount.constFind(dateAmountKey(item.date, -item.amount));
    if (found == cache.byDateAmount.constEnd())
        return -1;
    for (const qsizetype position : *found) {
        if (cache.candidates.at(position).hint.compare(item.sourceAccount, Qt::CaseInsensitive) == 0)
            return position;
    }
    return -1;
}

void QifImport::forgetCandidate(AccountImportCache &cache, qsizetype position)
{
    const RetroactiveCandidate &candidate = cache.candidates.at(position);
    cache.rowsById.remove(candidate.id);
    const QString key = dateAmountKey(candidate.date, candidate.amount);
    QList<qsizetype> &positions = cache.byDateAmount[key];
    positions.removeOne(position);
    if (positions.isEmpty())
        cache.byDateAmount.remove(key);
}

bool QifImport::importItem(int index, CategoryIds &categories, ChangeSignalsHeld &held)
{
    const QifWorkItem &item = m_work.at(index);
    if (item.targetAccountId.isEmpty()) {
        ++m_result.unmappedRecords;
        return true;
    }
    AccountImportCache *cache = cacheFor(item.targetAccountId);
    const QString payee = payeeOf(item);
    const QString key = ImportService::duplicateKey(item.date, item.amount, payee);
    if (cache->keys.contains(key)) {
        ++m_result.duplicates;
        return true;
    }

    Transaction t;
    t.id = item.newId;
    t.accountId = item.targetAccountId;
    t.date = item.date;
    t.payee = payee;
    t.amount = item.amount;
    t.memo = item.memo;
    t.checkNumber = item.checkNumber;
    t.cleared = item.cleared;
    t.reconciled = item.reconciled;
    t.isSplit = !item.splits.isEmpty();
    t.createdAt = utcNow();
    t.updatedAt = t.createdAt;
    if (!item.category.isEmpty())
        t.categoryId = categories.idFor(item.category);

    AccountImportCache *partnerCache = nullptr;
    qsizetype candidate = -1;
    if (item.partnerIndex >= 0) {
        // The partner may yet turn out a duplicate or fail; the link then names a row that never came.
        const QifWorkItem &partner = m_work.at(item.partnerIndex);
        t.transferLinkId = partner.newId;
        t.transferDestAccountId = partner.targetAccountId;
    } else if (!item.transferAccount.isEmpty() && !isSelfTransfer(item)) {
        const QString partnerAccount = m_lookup.value(item.transferAccount.toLower());
        if (!partnerAccount.isEmpty() && partnerAccount != item.targetAccountId) {
            partnerCache = cacheFor(partnerAccount);
            candidate = findCandidate(*partnerCache, item);
        }
        if (candidate < 0)
            t.memo = memoWithTransferHint(item.transferAccount, item.memo);
    }

    Transaction partnerRow;
    if (candidate >= 0) {
        partnerRow = partnerCache->rowsById.value(partnerCache->candidates.at(candidate).id);
        const std::optional<TransferHint> hint = parseTransferHint(partnerRow.memo);
        if (!hint) {
            m_abortReason = QStringLiteral("retroactive candidate lost its hint");
            return false;
        }
        partnerRow.memo = hint->rest;
        partnerRow.transferLinkId = t.id;
        partnerRow.transferDestAccountId = item.targetAccountId;
        partnerRow.updatedAt = utcNow();
        partnerRow.version += 1;
        partnerRow.syncStatus = SyncStatus::Pending;
        t.transferLinkId = partnerRow.id;
        t.transferDestAccountId = partnerRow.accountId;
    }

    if (!m_inserter->insert(t)) {
        qWarning().noquote() << "QIF import: insert failed for" << dateText(item.date) << item.payee
                             << "amount" << item.amount << "account" << item.targetAccountId;
        ++m_result.insertFailures;
        return true;
    }
    held.touchAccount(t.accountId);
    if (candidate >= 0) {
        if (!m_transactions->update(partnerRow)) {
            m_abortReason = QStringLiteral("failed to update retroactive partner");
            return false;
        }
        held.touchAccount(partnerRow.accountId);
        forgetCandidate(*partnerCache, candidate);
        ++m_result.transfersLinked;
        ++m_result.retroactiveLinks;
    }

    for (const QifSplit &split : item.splits) {
        SplitLine line;
        line.id = newId();
        line.transactionId = t.id;
        if (!split.category.isEmpty())
            line.categoryId = categories.idFor(split.category);
        line.amount = split.amount;
        // Split lines are never linked; a transfer inside a split keeps only its hint.
        line.memo = split.transferAccount.isEmpty() ? split.memo
                                                    : memoWithTransferHint(split.transferAccount, split.memo);
        line.createdAt = t.createdAt;
        line.updatedAt = t.createdAt;
        // The table wants a category on every line; the user hears how many were lost.
        if (!m_splitLines->insert(line) && line.categoryId.isEmpty())
            ++m_result.splitLinesDropped;
    }

    ++m_result.imported;
    // Identical records inside one file collapse into the first.
    cache->keys.insert(key);
    return true;
}

} // namespace

ImportService::ImportService(TransactionRepository *transactions, CategoryRepository *categories,
                             SplitLineRepository *splitLines, QObject *parent)
    : QObject(parent)
    , m_transactions(transactions)
    , m_categories(categories)
    , m_splitLines(splitLines)
{
}

QList<QStringList> ImportService::parseCsv(const QString &text)
{
    return parseCsv(text, QString(), nullptr);
}

QList<QStringList> ImportService::parseCsv(const QString &text, const QString &path, QString *refusal)
{
    QList<QStringList> rows;
    QStringList row;
    QString field;
    bool inQuotes = false;
    qsizetype rowStart = 0;
    const auto endField = [&] {
        row.append(field.trimmed());
        field.clear();
    };
    const auto endRow = [&](qsizetype next) {
        // Blank lines vanish: a row of nothing, or of one empty field.
        if (!row.isEmpty() && !(row.size() == 1 && row.first().isEmpty()))
            rows.append(row);
        row.clear();
        rowStart = next;
    };

    const qsizetype size = text.size();
    const QChar *data = text.constData();
    for (qsizetype i = 0; i < size; ++i) {
        if (i - rowStart >= kMaxCsvRowChars || row.size() >= kMaxCsvRowFields) {
            if (refusal)
                *refusal = tr("\"%1\" was not imported: one of its rows is longer than %2 characters or "
                              "%3 fields. The file may be damaged, or it is no CSV file.")
                               .arg(fileName(path))
                               .arg(kMaxCsvRowChars)
                               .arg(kMaxCsvRowFields);
            return {};
        }
        const QChar c = data[i];
        if (inQuotes) {
            if (c == QLatin1Char('"')) {
                if (i + 1 < size && data[i + 1] == QLatin1Char('"')) {
                    field.append(QLatin1Char('"'));
                    ++i;
                } else {
                    inQuotes = false;
                }
            } else {
                field.append(c);
            }
            continue;
        }
        switch (c.unicode()) {
        case u'"': inQuotes = true; break;
        case u',': endField(); break;
        case u'\n':
            endField();
            endRow(i + 1);
            break;
        case u'\r': break;
        default: field.append(c); break;
        }
    }
    if (!field.isEmpty() || !row.isEmpty()) {
        endField();
        endRow(size);
    }
    return rows;
}

QString ImportService::textRefusal(const QString &path, const QString &text)
{
    // No text file holds one; read on, a NUL would end up inside a name or cut "3\0.00" to 0.00.
    if (!text.contains(QChar(0)))
        return {};
    return tr("\"%1\" was not imported: it contains a NUL character, which no CSV or QIF file holds. The "
              "file may be damaged, or it is of another kind.")
        .arg(fileName(path));
}

namespace {

// Digits of text at [from, from + count) as a number; -1 when one is no ASCII digit.
int digitsAt(QStringView text, qsizetype from, qsizetype count)
{
    int value = 0;
    for (qsizetype i = from; i < from + count; ++i) {
        const char16_t c = text.at(i).unicode();
        if (c < u'0' || c > u'9')
            return -1;
        value = value * 10 + (c - u'0');
    }
    return value;
}

// The twelve forms below read the usual all-digit dates in a way their shape alone decides, so those
// are read by hand to the same answer: Qt's parser costs more than the rest of an imported row.
// Anything else gives no value and goes to the forms.
std::optional<QDate> readCommonShape(QStringView text)
{
    // yyyy-MM-dd and yyyy/MM/dd: no other form reads a four-digit year in front.
    if (text.size() == 10 && text.at(4) == text.at(7) &&
        (text.at(4) == QLatin1Char('-') || text.at(4) == QLatin1Char('/'))) {
        const int y = digitsAt(text, 0, 4), m = digitsAt(text, 5, 2), d = digitsAt(text, 8, 2);
        if (y < 0 || m < 0 || d < 0)
            return std::nullopt;
        return QDate(y, m, d);
    }
    const qsizetype first = text.indexOf(QLatin1Char('/'));
    const qsizetype second = first < 0 ? -1 : text.indexOf(QLatin1Char('/'), first + 1);
    if (first < 1 || first > 2 || second - first < 2 || second - first > 3)
        return std::nullopt;
    const qsizetype yearDigits = text.size() - second - 1;
    const int a = digitsAt(text, 0, first);
    const int b = digitsAt(text, first + 1, second - first - 1);
    const int year = yearDigits == 4 || yearDigits == 2 ? digitsAt(text, second + 1, yearDigits) : -1;
    if (a < 0 || b < 0 || year < 0)
        return std::nullopt;
    // Two-digit years have month-first forms only, in the 1900s.
    if (yearDigits == 2)
        return QDate(1900 + year, a, b);
    // Month first wins; day first only when that is no date.
    if (const QDate monthFirst(year, a, b); monthFirst.isValid())
        return monthFirst;
    return QDate(year, b, a);
}

} // namespace

QDate ImportService::parseImportDate(const QString &text)
{
    if (const std::optional<QDate> date = readCommonShape(text))
        return *date;

    static const QStringList formats{
        QStringLiteral("yyyy-MM-dd"), QStringLiteral("MM/dd/yyyy"), QStringLiteral("M/d/yyyy"),
        QStringLiteral("M/dd/yyyy"),  QStringLiteral("MM/d/yyyy"),  QStringLiteral("dd/MM/yyyy"),
        QStringLiteral("d/M/yyyy"),   QStringLiteral("d/MM/yyyy"),  QStringLiteral("dd/M/yyyy"),
        QStringLiteral("MM/dd/yy"),   QStringLiteral("M/d/yy"),     QStringLiteral("yyyy/MM/dd"),
    };
    for (const QString &format : formats) {
        const QDate date = QDate::fromString(text, format);
        if (date.isValid())
            return date;
    }
    return {};
}

QString ImportService::duplicateKey(const QDate &date, qint64 amount, const QString &payee)
{
    return dateText(date) + QLatin1Char('|') + QString::number(amount) + QLatin1Char('|') + payee;
}

ImportResult ImportService::importCsvFile(const QString &path, const QString &accountId,
                                          const CsvImportOptions &options)
{
    ImportResult result;
    const std::optional<FileText> read = readText(path);
    if (!read)
        return result;
    QString refusal = read->refusal;
    const QList<QStringList> rows =
        refusal.isEmpty() ? parseCsv(read->text, path, &refusal) : QList<QStringList>();
    if (!refusal.isEmpty()) {
        result.refusedFiles << refusal;
        return result;
    }

    QSet<QString> keys;
    for (const Transaction &t : m_transactions->getByAccount(accountId))
        keys.insert(duplicateKey(t.date, t.amount, t.payee));

    ChangeSignalsHeld held(m_transactions, m_categories);
    CategoryIds categories(m_categories, &held);
    const int first = options.hasHeader ? 1 : 0;
    const int total = std::max(0, int(rows.size()) - first);
    emit importStarted(total);
    QSqlDatabase db = connection();
    db.transaction();
    // As for QIF: the search index takes the new rows at once, before the commit.
    const std::optional<SearchIndexPause> pause = m_transactions->pauseSearchIndex();
    std::optional<TransactionRepository::Inserter> inserter = m_transactions->inserter();

    for (int i = first, n = 1; i < rows.size(); ++i, ++n) {
        if (n % kProgressEvery == 0) {
            emit importProgress(n, total);
            pumpEvents();
        }
        const QStringList &row = rows.at(i);
        if (!hasCell(row, options.dateColumn) || !hasCell(row, options.payeeColumn) ||
            !hasCell(row, options.amountColumn)) {
            ++result.skippedRecords;
            continue;
        }
        const QString &dateCell = row.at(options.dateColumn);
        QDate date;
        if (!options.dateFormat.isEmpty())
            date = QDate::fromString(dateCell, options.dateFormat);
        if (!date.isValid())
            date = parseImportDate(dateCell);
        if (!date.isValid()) {
            ++result.skippedRecords;
            continue;
        }

        Transaction t;
        t.payee = row.at(options.payeeColumn);
        // An amount the money reader cannot read comes in as 0.00 rather than vanish.
        t.amount = parseAmount(row.at(options.amountColumn), Currency::USD);
        t.date = date;
        const QString key = duplicateKey(date, t.amount, t.payee);
        if (keys.contains(key)) {
            ++result.duplicates;
            continue;
        }
        t.id = newId();
        t.accountId = accountId;
        t.createdAt = utcNow();
        t.updatedAt = t.createdAt;
        if (hasCell(row, options.memoColumn))
            t.memo = row.at(options.memoColumn);
        if (hasCell(row, options.categoryColumn) && !row.at(options.categoryColumn).isEmpty())
            t.categoryId = categories.idFor(row.at(options.categoryColumn));
        if (inserter->insert(t)) {
            ++result.imported;
            keys.insert(key);
            held.touchAccount(accountId);
        }
    }

    inserter.reset();
    const bool committed = (!pause || m_transactions->resumeSearchIndex(*pause)) && db.commit();
    if (!committed)
        db.rollback();
    held.release(committed);
    emit importProgress(total, total);
    return result;
}

QifAnalysis ImportService::analyzeQifFiles(const QStringList &paths)
{
    QifAnalysis analysis;
    QSet<QString> seen;
    for (const QString &path : paths) {
        const std::optional<FileText> read = readText(path);
        if (!read)
            continue;
        if (!read->refusal.isEmpty()) {
            analysis.refusedFiles << read->refusal;
            continue;
        }
        const QifParseResult parsed = QifParser::parse(read->text, QifDateOrder::Auto);
        analysis.transactionCount += int(parsed.transactions.size());
        if (parsed.accounts.isEmpty()) {
            QifSourceAccount source;
            source.key = path;
            source.displayName = tr("%1 (no account header)").arg(fileName(path));
            source.noAccountHeader = true;
            analysis.sources.append(source);
        }
        for (const QifAccountRef &account : parsed.accounts) {
            const QString lower = account.name.toLower();
            if (seen.contains(lower))
                continue;
            seen.insert(lower);
            QifSourceAccount source;
            source.key = account.name;
            source.displayName = account.name;
            source.suggestedType = suggestedTypeOf(account);
            analysis.sources.append(source);
        }
        pumpEvents();
    }
    return analysis;
}

ImportResult ImportService::importQifFiles(const QStringList &paths,
                                           const QHash<QString, QString> &accountMap)
{
    return QifImport(this, m_transactions, m_categories, m_splitLines).run(paths, accountMap);
}
