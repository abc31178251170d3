#pragma once

#include <QDate>
#include <QDateTime>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <optional>

// How record fields become bound values and come back. QtSql binds a null QString as SQL NULL, so
// text that must be stored as it is ("" for an empty memo) goes through text(), and the columns that
// store an empty value as NULL (foreign keys, end dates) go through nullIfEmpty().
namespace SqlValues {

inline QVariant text(const QString &s)
{
    return s.isNull() ? QVariant(QStringLiteral("")) : QVariant(s);
}

inline QVariant nullIfEmpty(const QString &s)
{
    return s.isEmpty() ? QVariant(QMetaType::fromType<QString>()) : QVariant(s);
}

QVariant date(const QDate &date);
QVariant timestamp(const QDateTime &timestamp);
QVariant optionalTimestamp(const std::optional<QDateTime> &timestamp);

QDate dateAt(const QSqlQuery &q, int column);
QDateTime timestampAt(const QSqlQuery &q, int column);
std::optional<QDateTime> optionalTimestampAt(const QSqlQuery &q, int column);

// Runs a prepared statement; on failure logs "<where> failed:" with the driver's text.
bool execLogged(QSqlQuery &q, const char *where);
// The same for the bulk statements: the number of rows changed, 0 on failure.
int execCount(QSqlQuery &q, const char *where);

} // namespace SqlValues
