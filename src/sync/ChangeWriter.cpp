#include "sync/ChangeWriter.h"

#include "core/AccountType.h"
#include "core/CategoryType.h"
#include "core/Currency.h"
#include "core/Dates.h"
#include "core/Frequency.h"

#include <QDate>
#include <QDateTime>
#include <QDebug>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>

#ifndef Q_OS_WIN
#include <sqlite3.h>
#endif

#include <charconv>
#include <cstring>
#include <span>

namespace {

enum class Field {
    Text,
    ServerId, // left out when empty
    Int32,
    Int64,
    Flag,       // 0 or 1
    Date,       // yyyy-MM-dd
    EndDate,    // a Date, left out unless it is a valid date
    Timestamp,  // as Qt::ISODate writes it
    DeletedAt,  // a Timestamp, left out when empty; its presence makes the change a "delete"
    ChangeOnly, // the version of a payload that has none of its own: read for the change object only
    AccountType,
    Currency,
    CategoryType,
    Frequency,
};

struct Column {
    const char *key;
    Field field;
};

// The statement names the columns in the order of the payload's keys; the row's id is always first.
struct Table {
    const char *entity;
    const char *statement;
    std::span<const Column> columns;
};

constexpr Column kAccount[] = {
    {"client_id",            Field::Text       },
    {"server_id",            Field::ServerId   },
    {"name",                 Field::Text       },
    {"account_type",         Field::AccountType},
    {"currency",             Field::Currency   },
    {"is_shared",            Field::Flag       },
    {"institution",          Field::Text       },
    {"account_number_last4", Field::Text       },
    {"starting_balance",     Field::Int64      },
    {"sort_order",           Field::Int32      },
    {"version",              Field::Int32      },
    {"created_at",           Field::Timestamp  },
    {"updated_at",           Field::Timestamp  },
    {"deleted_at",           Field::DeletedAt  },
};

constexpr Column kCategory[] = {
    {"client_id",       Field::Text        },
    {"server_id",       Field::ServerId    },
    {"name",            Field::Text        },
    {"category_type",   Field::CategoryType},
    {"parent_id",       Field::Text        },
    {"is_tax_relevant", Field::Flag        },
    {"tax_category",    Field::Text        },
    {"icon",            Field::Text        },
    {"color",           Field::Text        },
    {"is_default",      Field::Flag        },
    {"account_id",      Field::Text        },
    {"version",         Field::Int32       },
    {"created_at",      Field::Timestamp   },
    {"updated_at",      Field::Timestamp   },
    {"deleted_at",      Field::DeletedAt   },
};

constexpr Column kRecurring[] = {
    {"client_id",                Field::Text      },
    {"server_id",                Field::ServerId  },
    {"account_id",               Field::Text      },
    {"payee",                    Field::Text      },
    {"memo",                     Field::Text      },
    {"amount",                   Field::Int64     },
    {"category_id",              Field::Text      },
    {"transfer_dest_account_id", Field::Text      },
    {"frequency",                Field::Frequency },
    {"start_date",               Field::Date      },
    {"end_date",                 Field::EndDate   },
    {"next_due_date",            Field::Date      },
    {"auto_post",                Field::Flag      },
    {"is_active",                Field::Flag      },
    {"created_at",               Field::Timestamp },
    {"updated_at",               Field::Timestamp },
    {"deleted_at",               Field::DeletedAt },
    {"version",                  Field::ChangeOnly},
};

constexpr Column kTransaction[] = {
    {"client_id",                Field::Text     },
    {"server_id",                Field::ServerId },
    {"account_id",               Field::Text     },
    {"date",                     Field::Date     },
    {"payee",                    Field::Text     },
    {"memo",                     Field::Text     },
    {"amount",                   Field::Int64    },
    {"category_id",              Field::Text     },
    {"check_number",             Field::Text     },
    {"cleared",                  Field::Flag     },
    {"reconciled",               Field::Flag     },
    {"transfer_link_id",         Field::Text     },
    {"transfer_dest_account_id", Field::Text     },
    {"is_split",                 Field::Flag     },
    {"recurring_id",             Field::Text     },
    {"version",                  Field::Int32    },
    {"created_at",               Field::Timestamp},
    {"updated_at",               Field::Timestamp},
    {"deleted_at",               Field::DeletedAt},
};

constexpr Column kReconciliation[] = {
    {"client_id",          Field::Text     },
    {"server_id",          Field::ServerId },
    {"account_id",         Field::Text     },
    {"statement_date",     Field::Date     },
    {"statement_balance",  Field::Int64    },
    {"reconciled_balance", Field::Int64    },
    {"completed_at",       Field::Timestamp},
    {"version",            Field::Int32    },
    {"created_at",         Field::Timestamp},
    {"updated_at",         Field::Timestamp},
    {"deleted_at",         Field::DeletedAt},
};

// Parents ahead of the rows that refer to them, so the server never meets a reference it has not seen.
const Table kTables[] = {
    {"account",
     "SELECT id, server_id, name, account_type, currency, is_shared, institution, account_number_last4, "
     "starting_balance, sort_order, version, created_at, updated_at, deleted_at "
     "FROM accounts WHERE sync_status = 'pending'",                                                    kAccount       },
    {"category",
     "SELECT id, server_id, name, category_type, parent_id, is_tax_relevant, tax_category, icon, color, "
     "is_default, account_id, version, created_at, updated_at, deleted_at "
     "FROM categories WHERE sync_status = 'pending'",                                                  kCategory      },
    {"recurring",
     "SELECT id, server_id, account_id, payee, memo, amount, category_id, transfer_dest_account_id, "
     "frequency, "
     "start_date, end_date, next_due_date, auto_post, is_active, created_at, updated_at, deleted_at, version "
     "FROM recurring_transactions WHERE sync_status = 'pending'",                                      kRecurring     },
    {"transaction",
     "SELECT t.id, t.server_id, t.account_id, t.date, t.payee, t.memo, t.amount, t.category_id, "
     "t.check_number, t.cleared, t.reconciled, t.transfer_link_id, t.transfer_dest_account_id, t.is_split, "
     "t.recurring_id, t.version, t.created_at, t.updated_at, t.deleted_at "
     "FROM transactions t WHERE t.sync_status = 'pending'",                                            kTransaction   },
    {"reconciliation",
     "SELECT id, server_id, account_id, statement_date, statement_balance, reconciled_balance, completed_at, "
     "version, created_at, updated_at, deleted_at FROM reconciliations WHERE sync_status = 'pending'", kReconciliation},
};

void appendRaw(QByteArray &out, const char *text)
{
    out.append(text, qsizetype(std::strlen(text)));
}

void appendInteger(QByteArray &out, qint64 value)
{
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    out.append(digits, end - digits);
}

// JSON string escaping of UTF-8 text. Nearly every stored text is plain ASCII and is copied as it is;
// anything else goes through QString, which also mends a malformed sequence the way Qt's driver would.
void appendString(QByteArray &out, QByteArrayView text)
{
    out.append('"');
    qsizetype plain = 0;
    while (plain < text.size()) {
        const auto c = static_cast<unsigned char>(text[plain]);
        if (c < 0x20 || c >= 0x80 || c == '"' || c == '\\')
            break;
        ++plain;
    }
    out.append(text.first(plain));
    if (plain < text.size()) {
        QString rest;
        for (const QChar c : QString::fromUtf8(text.sliced(plain))) {
            switch (c.unicode()) {
            case u'"': rest += QLatin1String("\\\""); break;
            case u'\\': rest += QLatin1String("\\\\"); break;
            case u'\b': rest += QLatin1String("\\b"); break;
            case u'\f': rest += QLatin1String("\\f"); break;
            case u'\n': rest += QLatin1String("\\n"); break;
            case u'\r': rest += QLatin1String("\\r"); break;
            case u'\t': rest += QLatin1String("\\t"); break;
            default:
                if (c.unicode() < 0x20)
                    rest += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
                else
                    rest += c;
            }
        }
        out.append(rest.toUtf8());
    }
    out.append('"');
}

int digitsAt(QByteArrayView text, int from, int count)
{
    int value = 0;
    for (int i = from; i < from + count; ++i) {
        const char c = text[i];
        if (c < '0' || c > '9')
            return -1;
        value = value * 10 + (c - '0');
    }
    return value;
}

// "yyyy-MM-dd" naming a real day is what QDate writes for Qt::ISODate, so it can go out as stored.
bool isWrittenDate(QByteArrayView text)
{
    if (text.size() < 10 || text[4] != '-' || text[7] != '-')
        return false;
    const int y = digitsAt(text, 0, 4), m = digitsAt(text, 5, 2), d = digitsAt(text, 8, 2);
    return y >= 0 && m >= 0 && d >= 0 && QDate::isValid(y, m, d);
}

// "yyyy-MM-ddTHH:mm:ssZ" is the form a UTC date-time takes for Qt::ISODate.
bool isWrittenTimestamp(QByteArrayView text)
{
    if (text.size() != 20 || !isWrittenDate(text) || text[10] != 'T' || text[13] != ':' || text[16] != ':' ||
        text[19] != 'Z')
        return false;
    const int h = digitsAt(text, 11, 2), m = digitsAt(text, 14, 2), s = digitsAt(text, 17, 2);
    return h >= 0 && m >= 0 && s >= 0 && QTime::isValid(h, m, s);
}

void appendDate(QByteArray &out, QByteArrayView stored)
{
    if (stored.size() == 10 && isWrittenDate(stored))
        appendString(out, stored);
    else
        appendString(out, dateFromText(QString::fromUtf8(stored)).toString(Qt::ISODate).toUtf8());
}

void appendTimestamp(QByteArray &out, QByteArrayView stored)
{
    if (stored.isEmpty() || isWrittenTimestamp(stored))
        appendString(out, stored);
    else
        appendString(out, timestampFromText(QString::fromUtf8(stored)).toString(Qt::ISODate).toUtf8());
}

QByteArray enumText(Field field, QByteArrayView stored)
{
    const QString text = QString::fromUtf8(stored);
    switch (field) {
    case Field::AccountType: return accountTypeToString(accountTypeFromString(text)).toUtf8();
    case Field::Currency: return currencyToString(currencyFromString(text)).toUtf8();
    case Field::CategoryType: return categoryTypeToString(categoryTypeFromString(text)).toUtf8();
    default: return frequencyToString(frequencyFromString(text)).toUtf8();
    }
}

// How QVariant::toBool reads a stored text, so both row readers agree.
bool textIsTrue(QByteArrayView text)
{
    return !text.isEmpty() && text != "0" && QByteArrayView(text).compare("false", Qt::CaseInsensitive) != 0;
}

void appendKey(QByteArray &out, const char *key)
{
    out.append('"');
    appendRaw(out, key);
    appendRaw(out, "\":");
}

// A row reader gives each column as UTF-8 text, as an integer and as a flag.
template <typename Row>
void appendChange(QByteArray &out, const char *entity, const Row &row, std::span<const Column> columns)
{
    int version = 0;
    bool deleted = false;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].field == Field::ChangeOnly || std::strcmp(columns[i].key, "version") == 0)
            version = int(row.integer(int(i)));
        else if (columns[i].field == Field::DeletedAt)
            deleted = !row.text(int(i)).isEmpty();
    }
    appendRaw(out, "{\"entity_type\":\"");
    appendRaw(out, entity);
    appendRaw(out, "\",\"entity_id\":");
    appendString(out, row.text(0));
    appendRaw(out, deleted ? ",\"action\":\"delete\",\"version\":" : ",\"action\":\"upsert\",\"version\":");
    appendInteger(out, version);
    appendRaw(out, ",\"payload\":{");
    bool first = true;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Column &column = columns[i];
        const QByteArrayView text = column.field == Field::Int32 || column.field == Field::Int64 ||
                                            column.field == Field::Flag || column.field == Field::ChangeOnly
                                        ? QByteArrayView()
                                        : row.text(int(i));
        const bool leftOut =
            column.field == Field::ChangeOnly ||
            ((column.field == Field::ServerId || column.field == Field::DeletedAt) && text.isEmpty()) ||
            (column.field == Field::EndDate && !dateFromText(QString::fromUtf8(text)).isValid());
        if (leftOut)
            continue;
        if (!first)
            out.append(',');
        first = false;
        appendKey(out, column.key);
        switch (column.field) {
        case Field::Text:
        case Field::ServerId: appendString(out, text); break;
        case Field::Int32: appendInteger(out, int(row.integer(int(i)))); break;
        case Field::Int64: appendInteger(out, row.integer(int(i))); break;
        case Field::Flag: out.append(row.flag(int(i)) ? '1' : '0'); break;
        case Field::Date:
        case Field::EndDate: appendDate(out, text); break;
        case Field::Timestamp:
        case Field::DeletedAt: appendTimestamp(out, text); break;
        default: appendString(out, enumText(column.field, text)); break;
        }
    }
    appendRaw(out, "}}");
}

// Through Qt's driver: a QVariant and a QString for every column of every row, which for the whole
// household costs more than the rest of the collection together.
class QueryRow {
public:
    explicit QueryRow(const QSqlQuery &q, std::size_t columns)
        : m_q(q)
        , m_texts(qsizetype(columns))
    {
    }
    void next()
    {
        for (qsizetype i = 0; i < m_texts.size(); ++i)
            m_texts[i] = m_q.value(int(i)).toString().toUtf8();
    }
    QByteArrayView text(int i) const { return m_texts.at(i); }
    qint64 integer(int i) const { return m_q.value(i).toLongLong(); }
    bool flag(int i) const { return m_q.value(i).toBool(); }

private:
    const QSqlQuery &m_q;
    QList<QByteArray> m_texts;
};

bool readWithQuery(QSqlDatabase db, const Table &table, QByteArray &change, QByteArrayList &changes)
{
    QSqlQuery q(db);
    q.setForwardOnly(true);
    if (!q.exec(QString::fromLatin1(table.statement))) {
        qWarning().noquote() << "ChangeWriter::pendingChanges failed:" << q.lastError().text();
        return false;
    }
    QueryRow row(q, table.columns.size());
    while (q.next()) {
        row.next();
        change.clear();
        appendChange(change, table.entity, row, table.columns);
        changes.append(QByteArray(change.constData(), change.size()));
    }
    return true;
}

#ifndef Q_OS_WIN
// Straight from SQLite, on the connection Qt's driver opened. On Linux the driver is built on the same
// shared library this program links; the Windows driver carries a copy of its own, so there the
// program keeps to the driver.
class StatementRow {
public:
    explicit StatementRow(sqlite3_stmt *statement)
        : m_statement(statement)
    {
    }
    QByteArrayView text(int i) const
    {
        const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(m_statement, i));
        return QByteArrayView(bytes, bytes ? sqlite3_column_bytes(m_statement, i) : 0);
    }
    qint64 integer(int i) const { return sqlite3_column_int64(m_statement, i); }
    bool flag(int i) const
    {
        if (sqlite3_column_type(m_statement, i) == SQLITE_TEXT)
            return textIsTrue(text(i));
        return sqlite3_column_int64(m_statement, i) != 0;
    }

private:
    sqlite3_stmt *m_statement;
};

sqlite3 *sqliteHandle(const QSqlDatabase &db)
{
    const QVariant handle = db.driver() ? db.driver()->handle() : QVariant();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3 *const *>(handle.constData());
}

bool readWithSqlite(sqlite3 *handle, const Table &table, QByteArray &change, QByteArrayList &changes)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(handle, table.statement, -1, &statement, nullptr) != SQLITE_OK) {
        qWarning().noquote() << "ChangeWriter::pendingChanges failed:" << sqlite3_errmsg(handle);
        sqlite3_finalize(statement);
        return false;
    }
    const StatementRow row(statement);
    int status = SQLITE_ROW;
    while ((status = sqlite3_step(statement)) == SQLITE_ROW) {
        change.clear();
        appendChange(change, table.entity, row, table.columns);
        changes.append(QByteArray(change.constData(), change.size()));
    }
    if (status != SQLITE_DONE)
        qWarning().noquote() << "ChangeWriter::pendingChanges failed:" << sqlite3_errmsg(handle);
    sqlite3_finalize(statement);
    return status == SQLITE_DONE;
}
#endif

} // namespace

ChangeWriter::ChangeWriter(const QSqlDatabase &db, Reader reader)
    : m_db(db)
    , m_reader(reader)
{
}

QByteArrayList ChangeWriter::pendingChanges() const
{
    QByteArrayList changes;
    // Written in one buffer and copied out at its exact size: 150,000 rows of spare capacity add up.
    QByteArray change;
    change.reserve(4096);
#ifndef Q_OS_WIN
    sqlite3 *handle = m_reader == Reader::Fastest ? sqliteHandle(m_db) : nullptr;
#endif
    for (const Table &table : kTables) {
#ifndef Q_OS_WIN
        if (handle) {
            readWithSqlite(handle, table, change, changes);
            continue;
        }
#endif
        readWithQuery(m_db, table, change, changes);
    }
    return changes;
}
