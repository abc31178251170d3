#include "core/Identifiers.h"

#include <QUuid>

namespace {
const QUuid kCategoryNamespace(QStringLiteral("{6ba7b810-9dad-11d1-80b4-00c04fd430c8}"));
const QUuid kRecurringNamespace(QStringLiteral("{a1b9f7f3-2f2a-4c6b-9e1a-8b7c6d5a3f2e}"));

QString nameBasedId(const QUuid &ns, const QString &name)
{
    return QUuid::createUuidV5(ns, name.toUtf8()).toString(QUuid::WithoutBraces);
}
} // namespace

QString newId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QString seededCategoryId(CategoryType type, const QString &parentName, const QString &name)
{
    return nameBasedId(kCategoryNamespace,
                       QStringLiteral("%1:%2:%3").arg(categoryTypeToString(type), parentName, name));
}

QString recurringOccurrenceId(const QString &recurringId, const QDate &dueDate, bool destinationLeg)
{
    return suffixedOccurrenceId(recurringId, dueDate, destinationLeg ? QStringLiteral("dest") : QString());
}

QString suffixedOccurrenceId(const QString &recurringId, const QDate &dueDate, const QString &suffix)
{
    QString name = recurringId + QLatin1Char(':') + dueDate.toString(Qt::ISODate);
    if (!suffix.isEmpty())
        name += QLatin1Char(':') + suffix;
    return nameBasedId(kRecurringNamespace, name);
}
