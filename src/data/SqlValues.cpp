#include "data/SqlValues.h"

#include "core/Dates.h"

#include <QDebug>
#include <QSqlError>

namespace SqlValues {

QVariant date(const QDate &date)
{
    return text(dateText(date));
}

QVariant timestamp(const QDateTime &timestamp)
{
    return text(timestampText(timestamp));
}

QVariant optionalTimestamp(const std::optional<QDateTime> &timestamp)
{
    return timestamp ? QVariant(timestampText(*timestamp)) : QVariant(QMetaType::fromType<QString>());
}

QDate dateAt(const QSqlQuery &q, int column)
{
    return dateFromText(q.value(column).toString());
}

QDateTime timestampAt(const QSqlQuery &q, int column)
{
    return timestampFromText(q.value(column).toString());
}

std::optional<QDateTime> optionalTimestampAt(const QSqlQuery &q, int column)
{
    const QString text = q.value(column).toString();
    if (text.isEmpty())
        return std::nullopt;
    return timestampFromText(text);
}

bool execLogged(QSqlQuery &q, const char *where)
{
    if (q.exec())
        return true;
    qWarning().noquote() << where << "failed:" << q.lastError().text();
    return false;
}

int execCount(QSqlQuery &q, const char *where)
{
    return execLogged(q, where) ? q.numRowsAffected() : 0;
}

} // namespace SqlValues
