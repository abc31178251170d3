#include "server/PullCursor.h"

#include <QRegularExpression>

namespace OmbrelServer {

namespace {

constexpr qint64 kFieldLimit = 1000000000; // nine digits each

} // namespace

QString PullCursor::encode(const QDateTime &now) const
{
    if (key < kFieldLimit && seq < kFieldLimit) {
        // Four zeros first keep the fraction below a millisecond, so the time reads back unchanged.
        return now.toUTC().toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")) +
               QStringLiteral(".0000%1%2Z")
                   .arg(key, 9, 10, QLatin1Char('0'))
                   .arg(seq, 9, 10, QLatin1Char('0'));
    }
    return QStringLiteral("c%1.%2").arg(key).arg(seq);
}

PullCursor PullCursor::decode(const QString &text)
{
    static const QRegularExpression timeForm(
        QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.0000(\\d{9})(\\d{9})Z$"));
    static const QRegularExpression longForm(QStringLiteral("^c(\\d{1,18})\\.(\\d{1,18})$"));
    QRegularExpressionMatch m = timeForm.match(text);
    if (!m.hasMatch())
        m = longForm.match(text);
    if (!m.hasMatch())
        return {};
    PullCursor cursor{m.captured(1).toLongLong(), m.captured(2).toLongLong()};
    if (cursor.seq > cursor.key)
        return {};
    return cursor;
}

} // namespace OmbrelServer
