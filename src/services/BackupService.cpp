#include "services/BackupService.h"

#include "core/Dates.h"
#include "data/Database.h"
#include "services/ZipArchiveReader.h"
#include "services/ZipArchiveWriter.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

#include <exception>
#include <memory>
#include <unordered_map>

namespace {

struct Kind {
    const char *folder;
    const char *table;
};

// Parents first, for the foreign keys of a restore.
constexpr Kind kKinds[] = {
    {"accounts",        "accounts"              },
    {"categories",      "categories"            },
    {"transactions",    "transactions"          },
    {"split_lines",     "split_lines"           },
    {"recurring",       "recurring_transactions"},
    {"reconciliations", "reconciliations"       },
};
constexpr int kKindCount = int(std::size(kKinds));

constexpr qint64 kProgressEvery = 100;
// A restore commits in groups. A commit a row costs a disk flush a row, and every commit writes the
// random pages of the id index again: the twenty-year household took minutes that way, 21 s in groups
// of 500, about 15 s in groups of 5,000. Each row still stands or falls on its own statement, and a
// stop loses at most one group, which a second run with SkipExisting fills in.
constexpr qint64 kCommitEvery = 2000;

// JSON text in the indented form QJsonDocument writes. It is written by hand because QJsonObject sorts
// its keys, and a row keeps the order of its table's columns.
void appendString(QByteArray &out, QStringView text)
{
    static constexpr char hex[] = "0123456789abcdef";
    out += '"';
    const char16_t *p = text.utf16();
    const char16_t *const end = p + text.size();
    while (p != end) {
        const char16_t u = *p++;
        if (u < 0x80) {
            if (u >= 0x20 && u != u'"' && u != u'\\') {
                out += char(u);
                continue;
            }
            out += '\\';
            switch (u) {
            case u'"': out += '"'; break;
            case u'\\': out += '\\'; break;
            case u'\b': out += 'b'; break;
            case u'\f': out += 'f'; break;
            case u'\n': out += 'n'; break;
            case u'\r': out += 'r'; break;
            case u'\t': out += 't'; break;
            default:
                out += "u00";
                out += hex[u >> 4];
                out += hex[u & 0xf];
            }
        } else if (u < 0x800) {
            out += char(0xC0 | (u >> 6));
            out += char(0x80 | (u & 0x3F));
        } else if (QChar::isHighSurrogate(u) && p != end && QChar::isLowSurrogate(*p)) {
            const char32_t c = QChar::surrogateToUcs4(u, *p++);
            out += char(0xF0 | (c >> 18));
            out += char(0x80 | ((c >> 12) & 0x3F));
            out += char(0x80 | ((c >> 6) & 0x3F));
            out += char(0x80 | (c & 0x3F));
        } else if (QChar::isSurrogate(u)) {
            // A lone surrogate has no UTF-8 form; Qt's writer escapes it the same way.
            out += "\\u";
            for (int shift = 12; shift >= 0; shift -= 4)
                out += hex[(u >> shift) & 0xF];
        } else {
            out += char(0xE0 | (u >> 12));
            out += char(0x80 | ((u >> 6) & 0x3F));
            out += char(0x80 | (u & 0x3F));
        }
    }
    out += '"';
}

void appendValue(QByteArray &out, const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool: out += value.toBool() ? "true" : "false"; return;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong: out += QByteArray::number(value.toLongLong()); return;
    case QMetaType::Double: {
        // Qt's spelling of a double, and null for what JSON cannot hold.
        const QByteArray text = QJsonDocument(QJsonArray{value.toDouble()}).toJson(QJsonDocument::Compact);
        out += text.mid(1, text.size() - 2);
        return;
    }
    default: appendString(out, value.toString());
    }
}

QByteArray memberPrefix(const QString &key)
{
    QByteArray prefix("    ");
    appendString(prefix, key);
    prefix += ": ";
    return prefix;
}

QByteArray rowObject(const QList<QByteArray> &prefixes, const QSqlQuery &q)
{
    QByteArray out;
    out.reserve(1024);
    out += "{\n";
    for (int column = 0; column < prefixes.size(); ++column) {
        out += prefixes.at(column);
        if (q.isNull(column))
            out += "null";
        else
            appendValue(out, q.value(column));
        out += column + 1 < prefixes.size() ? ",\n" : "\n";
    }
    out += "}\n";
    return out;
}

QByteArray manifestObject(const qint64 (&counts)[kKindCount])
{
    const std::pair<const char *, QVariant> members[] = {
        {"version",             1                      },
        {"exportedAt",          timestampText(utcNow())},
        {"accountCount",        counts[0]              },
        {"categoryCount",       counts[1]              },
        {"transactionCount",    counts[2]              },
        {"splitLineCount",      counts[3]              },
        {"recurringCount",      counts[4]              },
        {"reconciliationCount", counts[5]              },
    };
    QByteArray out("{\n");
    for (size_t i = 0; i < std::size(members); ++i) {
        out += memberPrefix(QLatin1String(members[i].first));
        appendValue(out, members[i].second);
        out += i + 1 < std::size(members) ? ",\n" : "\n";
    }
    out += "}\n";
    return out;
}

// A JSON value as it is bound; false for what no column of these tables holds.
bool bindable(const QJsonValue &value, QVariant *bound)
{
    switch (value.type()) {
    case QJsonValue::Null: *bound = QVariant(); return true;
    case QJsonValue::Bool: *bound = value.toBool(); return true;
    case QJsonValue::String: *bound = value.toString(); return true;
    case QJsonValue::Double: {
        // Whole numbers go in as 64-bit integers, so that amounts in cents stay exact. A fraction, which
        // these tables never hold, is kept as it came rather than cut.
        const QVariant number = value.toVariant();
        *bound = number.typeId() == QMetaType::LongLong ? number : QVariant(value.toDouble());
        return true;
    }
    case QJsonValue::Array:
    case QJsonValue::Object:
    case QJsonValue::Undefined: break;
    }
    return false;
}

// The rows of one table in a restore: which columns it has, and the statements made so far, kept
// because every row of one backup has the same keys and preparing costs more than running.
class TableMerge {
public:
    TableMerge(QSqlDatabase &db, const QString &table)
        : m_db(db)
        , m_table(table)
        , m_find(db)
    {
        const QSqlRecord record = db.record(table);
        for (int i = 0; i < record.count(); ++i)
            m_columns.insert(record.fieldName(i));
        m_find.prepare(QStringLiteral("SELECT id, updated_at FROM %1 WHERE id = ?").arg(table));
    }

    bool merge(QJsonObject row, BackupImportMode mode)
    {
        // Whatever the mode: a restored row goes back to the server as a new, unsent one.
        row.insert(QStringLiteral("sync_status"), QStringLiteral("pending"));
        row.insert(QStringLiteral("server_id"), QJsonValue::Null);
        row.insert(QStringLiteral("version"), 1);

        const QString id = row.value(QStringLiteral("id")).toString();
        if (id.isEmpty())
            return false;

        // The keys become column names in the SQL text, so only the table's own columns are let
        // through; anything else, however it is spelt, fails the row before a statement is made.
        QStringList keys;
        QVariantList values;
        keys.reserve(row.size());
        values.reserve(row.size());
        for (auto it = row.constBegin(); it != row.constEnd(); ++it) {
            QVariant value;
            if (!m_columns.contains(it.key()) || !bindable(it.value(), &value))
                return false;
            keys << it.key();
            values << value;
        }

        m_find.bindValue(0, id);
        if (!m_find.exec())
            return false;
        const bool exists = m_find.next();
        const QString storedUpdatedAt = exists ? m_find.value(1).toString() : QString();
        m_find.finish();

        if (!exists)
            return insert(keys, values);
        switch (mode) {
        case BackupImportMode::SkipExisting: return false;
        case BackupImportMode::Replace: return update(keys, values, id);
        case BackupImportMode::KeepNewer: {
            const QString backupUpdatedAt = row.value(QStringLiteral("updated_at")).toString();
            if (backupUpdatedAt.isEmpty() || !(backupUpdatedAt > storedUpdatedAt))
                return false;
            return update(keys, values, id);
        }
        }
        return false;
    }

private:
    bool insert(const QStringList &keys, const QVariantList &values)
    {
        const QString sql =
            QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                .arg(m_table, keys.join(QStringLiteral(", ")),
                     QStringList(keys.size(), QStringLiteral("?")).join(QStringLiteral(", ")));
        QSqlQuery *q = statement(sql);
        if (!q)
            return false;
        for (int i = 0; i < values.size(); ++i)
            q->bindValue(i, values.at(i));
        return q->exec();
    }

    bool update(const QStringList &keys, const QVariantList &values, const QString &id)
    {
        QStringList assignments;
        QVariantList bound;
        for (int i = 0; i < keys.size(); ++i) {
            if (keys.at(i) == QLatin1String("id"))
                continue;
            assignments << QStringLiteral("%1 = ?").arg(keys.at(i));
            bound << values.at(i);
        }
        bound << id;
        QSqlQuery *q = statement(QStringLiteral("UPDATE %1 SET %2 WHERE id = ?")
                                     .arg(m_table, assignments.join(QStringLiteral(", "))));
        if (!q)
            return false;
        for (int i = 0; i < bound.size(); ++i)
            q->bindValue(i, bound.at(i));
        return q->exec();
    }

    QSqlQuery *statement(const QString &sql)
    {
        std::unique_ptr<QSqlQuery> &q = m_statements[sql];
        if (!q) {
            q = std::make_unique<QSqlQuery>(m_db);
            if (!q->prepare(sql)) {
                m_statements.erase(sql);
                return nullptr;
            }
        }
        return q.get();
    }

    QSqlDatabase &m_db;
    QString m_table;
    QSet<QString> m_columns;
    QSqlQuery m_find;
    std::unordered_map<QString, std::unique_ptr<QSqlQuery>> m_statements;
};

} // namespace

BackupService::BackupService(Database *db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

QByteArray BackupService::exportToZip()
{
    QSqlDatabase &db = m_db->connection();
    qint64 total = 0;
    for (const Kind &kind : kKinds) {
        QSqlQuery count(db);
        if (count.exec(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(kind.table))) &&
            count.next())
            total += count.value(0).toLongLong();
    }

    ZipArchiveWriter zip;
    qint64 counts[kKindCount] = {};
    qint64 done = 0;
    for (int k = 0; k < kKindCount; ++k) {
        const QString folder = QLatin1String(kKinds[k].folder);
        QSqlQuery q(db);
        q.setForwardOnly(true);
        if (!q.exec(QStringLiteral("SELECT * FROM %1").arg(QLatin1String(kKinds[k].table)))) {
            qWarning().noquote() << "BackupService export query failed:" << q.lastError().text();
            continue;
        }
        const QSqlRecord record = q.record();
        const int idColumn = record.indexOf(QStringLiteral("id"));
        QList<QByteArray> prefixes;
        for (int i = 0; i < record.count(); ++i)
            prefixes << memberPrefix(record.fieldName(i));
        while (q.next()) {
            const QString id = idColumn >= 0 ? q.value(idColumn).toString() : QString();
            zip.addFile(QStringLiteral("%1/%2.json").arg(folder, id), rowObject(prefixes, q));
            ++counts[k];
            if (++done % kProgressEvery == 0)
                emit progress(done, total);
        }
    }
    zip.addFile(QStringLiteral("manifest.json"), manifestObject(counts));
    emit progress(done, total);
    return zip.finish();
}

BackupImportResult BackupService::importFromZip(const QByteArray &data, BackupImportMode mode)
{
    BackupImportResult result;
    ZipArchiveReader zip(data);
    if (data.size() > kMaxArchiveSize || !zip.open()) {
        qWarning().noquote() << "BackupService import refused:"
                             << (data.size() > kMaxArchiveSize
                                     ? QStringLiteral("larger than %1 bytes").arg(kMaxArchiveSize)
                                     : zip.errorString());
        result.errors << tr("Failed to open ZIP archive");
        return result;
    }

    const int manifestIndex = zip.indexOf(QByteArrayLiteral("manifest.json"));
    const QByteArray manifest = manifestIndex >= 0 ? zip.read(manifestIndex) : QByteArray();
    if (manifest.isEmpty()) {
        result.errors << tr("Invalid backup: missing manifest.json");
        return result;
    }
    const int version = QJsonDocument::fromJson(manifest).object().value(QStringLiteral("version")).toInt();
    if (version != 1) {
        result.errors << tr("Unsupported backup version: %1").arg(version);
        return result;
    }

    QList<int> entries[kKindCount];
    qint64 total = 0;
    for (int i = 0; i < zip.count(); ++i) {
        const QByteArray name = zip.name(i);
        if (!name.endsWith(".json"))
            continue;
        for (int k = 0; k < kKindCount; ++k) {
            const QByteArrayView folder(kKinds[k].folder);
            if (name.startsWith(folder) && name.size() > folder.size() && name.at(folder.size()) == '/') {
                entries[k] << i;
                ++total;
                break;
            }
        }
    }

    qint32 *const imported[kKindCount] = {&result.accountsImported,     &result.categoriesImported,
                                          &result.transactionsImported, &result.splitLinesImported,
                                          &result.recurringImported,    &result.reconciliationsImported};
    qint32 *const skipped[kKindCount] = {&result.accountsSkipped,     &result.categoriesSkipped,
                                         &result.transactionsSkipped, &result.splitLinesSkipped,
                                         &result.recurringSkipped,    &result.reconciliationsSkipped};

    QSqlDatabase &db = m_db->connection();
    const auto commit = [&db] {
        if (!db.commit()) {
            qWarning().noquote() << "BackupService import commit failed:" << db.lastError().text();
            db.rollback();
        }
    };
    bool grouped = db.transaction();
    qint64 done = 0;
    for (int k = 0; k < kKindCount; ++k) {
        TableMerge table(db, QLatin1String(kKinds[k].table));
        for (const int index : std::as_const(entries[k])) {
            try {
                const QJsonObject row = QJsonDocument::fromJson(zip.read(index)).object();
                if (row.isEmpty())
                    result.errors << tr("%1: invalid JSON").arg(QString::fromUtf8(zip.name(index)));
                else if (table.merge(row, mode))
                    ++*imported[k];
                else
                    ++*skipped[k];
            } catch (const std::exception &) {
                result.errors << tr("%1: unexpected error").arg(QString::fromUtf8(zip.name(index)));
            }
            ++done;
            if (grouped && done % kCommitEvery == 0) {
                commit();
                grouped = db.transaction();
            }
            if (done % kProgressEvery == 0)
                emit progress(done, total);
        }
    }
    if (grouped)
        commit();
    emit progress(done, total);
    return result;
}
