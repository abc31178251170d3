#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

// Dates are stored as ISO "yyyy-MM-dd". Timestamps are UTC with whole seconds and a literal Z,
// "yyyy-MM-ddTHH:mm:ssZ": one fixed width, so SQL can compare them as text.

// The current UTC time without its milliseconds, so that what is stored equals what is held.
QDateTime utcNow();

// Empty for an invalid value, which the repositories bind as NULL.
QString timestampText(const QDateTime &timestamp);
QDateTime timestampFromText(const QString &text);

QString dateText(const QDate &date);
QDate dateFromText(const QString &text);
