#include "core/Dates.h"

#include <QTimeZone>

QDateTime utcNow()
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    return now.addMSecs(-now.time().msec());
}

QString timestampText(const QDateTime &timestamp)
{
    if (!timestamp.isValid())
        return {};
    return timestamp.toUTC().toString(Qt::ISODate);
}

QDateTime timestampFromText(const QString &text)
{
    if (text.isEmpty())
        return {};
    return QDateTime::fromString(text, Qt::ISODate);
}

QString dateText(const QDate &date)
{
    if (!date.isValid())
        return {};
    return date.toString(Qt::ISODate);
}

QDate dateFromText(const QString &text)
{
    if (text.isEmpty())
        return {};
    return QDate::fromString(text, Qt::ISODate);
}
