#include "sync/ChangeWriter.h"

#include "core/AccountType.h"
#include "core/CategoryType.h"
#include "core/Currency.h"
#include "core/Dates.h"
#include "core/Frequency.h"

#include <QDate>
#include <QDateTime>
#include <QDebug>
#include <QSqlError>
#include <QSqlQuery>

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

// JSON string escaping; nearly every stored text is plain ASCII and is copied as it is.
void appendString(QByteArray &out, QStringView text)
{
    out.append('"');
    const char16_t *chars = text.utf16();
    const qsizetype size = text.size();
    qsizetype plain = 0;
    while (plain < size && chars[plain] >= 0x20 && chars[plain] < 0x80 && chars[plain] != u'"' &&
           chars[plain] != u'\\')
        ++plain;
    const qsizetype at = out.size();
    out.resize(at + plain);
    char *to = out.data() + at;
    for (qsizetype i = 0; i < plain; ++i)
        to[i] = char(chars[i]);
    if (plain < size) {
        QString rest;
        for (const QChar c : text.mid(plain)) {
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

int digitsAt(QStringView text, int from, int count)
{
    int value = 0;
    for (int i = from; i < from + count; ++i) {
        const char16_t c = text[i].unicode();
        if (c < u'0' || c > u'9')
            return -1;
        value = value * 10 + (c - u'0');
    }
    return value;
}

// True for "yyyy-MM-dd" naming a real day: what QDate writes for Qt::ISODate, so it can go out as stored.
bool isWrittenDate(QStringView text)
{
    if (text.size() < 10 || text[4] != u'-' || text[7] != u'-')
        return false;
    const int y = digitsAt(text, 0, 4), m = digitsAt(text, 5, 2), d = digitsAt(text, 8, 2);
    return y >= 0 && m >= 0 && d >= 0 && QDate::isValid(y, m, d);
}

// True for "yyyy-MM-ddTHH:mm:ssZ", the form a UTC date-time takes for Qt::ISODate.
bool isWrittenTimestamp(QStringView text)
{
    if (text.size() != 20 || !isWrittenDate(text) || text[10] != u'T' || text[13] != u':' ||
        text[16] != u':' || text[19] != u'Z')
        return false;
    const int h = digitsAt(text, 11, 2), m = digitsAt(text, 14, 2), s = digitsAt(text, 17, 2);
    return h >= 0 && m >= 0 && s >= 0 && QTime::isValid(h, m, s);
}

QString dateOf(const QString &stored)
{
    if (stored.size() == 10 && isWrittenDate(stored))
        return stored;
    return dateFromText(stored).toString(Qt::ISODate);
}

QString timestampOf(const QString &stored)
{
    if (stored.isEmpty() || isWrittenTimestamp(stored))
        return stored;
    return timestampFromText(stored).toString(Qt::ISODate);
}

QString enumText(Field field, const QString &stored)
{
    switch (field) {
    case Field::AccountType: return accountTypeToString(accountTypeFromString(stored));
    case Field::Currency: return currencyToString(currencyFromString(stored));
    case Field::CategoryType: return categoryTypeToString(categoryTypeFromString(stored));
    default: return frequencyToString(frequencyFromString(stored));
    }
}

void appendKey(QByteArray &out, const char *key)
{
    out.append('"');
    appendRaw(out, key);
    appendRaw(out, "\":");
}

int indexOf(std::span<const Column> columns, Field field, const char *key)
{
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i].field == field || std::strcmp(columns[i].key, key) == 0)
            return int(i);
    return -1;
}

void appendPayload(QByteArray &out, const QSqlQuery &q, std::span<const Column> columns)
{
    bool first = true;
    out.append('{');
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Column &column = columns[i];
        const QVariant value = q.value(int(i));
        QString text;
        switch (column.field) {
        case Field::ChangeOnly: continue;
        case Field::ServerId:
        case Field::DeletedAt:
            text = value.toString();
            if (text.isEmpty())
                continue;
            break;
        case Field::EndDate:
            text = dateOf(value.toString());
            if (text.isEmpty())
                continue;
            break;
        default: break;
        }
        if (!first)
            out.append(',');
        first = false;
        appendKey(out, column.key);
        switch (column.field) {
        case Field::Text: appendString(out, value.toString()); break;
        case Field::Int32: appendInteger(out, value.toInt()); break;
        case Field::Int64: appendInteger(out, value.toLongLong()); break;
        case Field::Flag: out.append(value.toBool() ? '1' : '0'); break;
        case Field::Date: appendString(out, dateOf(value.toString())); break;
        case Field::Timestamp: appendString(out, timestampOf(value.toString())); break;
        case Field::ServerId:
        case Field::EndDate: appendString(out, text); break;
        case Field::DeletedAt: appendString(out, timestampOf(text)); break;
        default: appendString(out, enumText(column.field, value.toString())); break;
        }
    }
    out.append('}');
}

} // namespace

ChangeWriter::ChangeWriter(const QSqlDatabase &db)
    : m_db(db)
{
}

QByteArrayList ChangeWriter::pendingChanges() const
{
    QByteArrayList changes;
    // Written in one buffer and copied out at its exact size: 150,000 rows of spare capacity add up.
    QByteArray change;
    change.reserve(4096);
    for (const Table &table : kTables) {
        QSqlQuery q(m_db);
        q.setForwardOnly(true);
        if (!q.exec(QString::fromLatin1(table.statement))) {
            qWarning().noquote() << "ChangeWriter::pendingChanges failed:" << q.lastError().text();
            continue;
        }
        const int version = indexOf(table.columns, Field::ChangeOnly, "version");
        const int deletedAt = indexOf(table.columns, Field::DeletedAt, "deleted_at");
        while (q.next()) {
            change.clear();
            appendRaw(change, "{\"entity_type\":\"");
            appendRaw(change, table.entity);
            appendRaw(change, "\",\"entity_id\":");
            appendString(change, q.value(0).toString());
            appendRaw(change, q.value(deletedAt).toString().isEmpty()
                                  ? ",\"action\":\"upsert\",\"version\":"
                                  : ",\"action\":\"delete\",\"version\":");
            appendInteger(change, q.value(version).toInt());
            appendRaw(change, ",\"payload\":");
            appendPayload(change, q, table.columns);
            change.append('}');
            changes.append(QByteArray(change.constData(), change.size()));
        }
    }
    return changes;
}
