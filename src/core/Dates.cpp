#include "core/Dates.h"

#include <QTimeZone>

namespace {

// Digits at [from, from + count) as a number, or -1. The register parses three stamps a row, so the
// fixed storage forms are read by hand; anything else falls back to Qt's parser.
int digits(const QString &text, int from, int count)
{
    int value = 0;
    for (int i = from; i < from + count; ++i) {
        const char16_t c = text.at(i).unicode();
        if (c < u'0' || c > u'9')
            return -1;
        value = value * 10 + (c - u'0');
    }
    return value;
}

bool isIsoDate(const QString &text)
{
    return text.size() >= 10 && text.at(4) == QLatin1Char('-') && text.at(7) == QLatin1Char('-');
}

} // namespace

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
    if (text.size() == 20 && isIsoDate(text) && text.at(10) == QLatin1Char('T') &&
        text.at(13) == QLatin1Char(':') && text.at(16) == QLatin1Char(':') &&
        text.at(19) == QLatin1Char('Z')) {
        const int y = digits(text, 0, 4), mo = digits(text, 5, 2), d = digits(text, 8, 2);
        const int h = digits(text, 11, 2), mi = digits(text, 14, 2), se = digits(text, 17, 2);
        if (y >= 0 && mo >= 0 && d >= 0 && QTime::isValid(h, mi, se))
            return QDateTime(QDate(y, mo, d), QTime(h, mi, se), Qt::UTC);
    }
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
    if (text.size() == 10 && isIsoDate(text)) {
        const int y = digits(text, 0, 4), m = digits(text, 5, 2), d = digits(text, 8, 2);
        if (y >= 0 && m >= 0 && d >= 0)
            return QDate(y, m, d); // invalid for 2023-02-29, as Qt's parser would give
    }
    return QDate::fromString(text, Qt::ISODate);
}
