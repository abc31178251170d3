#pragma once

#include "core/CategoryType.h"

#include <QDate>
#include <QString>

// Row keys are UUIDs printed without braces. Ordinary rows get a random one. Seeded categories and
// posted recurring occurrences get a name-based one, so that two devices making the same row on
// their own arrive at the same key, and the primary key refuses a second posting of one occurrence.

QString newId();

// "%1:%2:%3" of the stored type word, the parent's name (empty at the top) and the name, all as seeded,
// so a tree seeded in another display language has other identifiers.
QString seededCategoryId(CategoryType type, const QString &parentName, const QString &name);

// "<rule id>:<yyyy-MM-dd>", with ":dest" for the destination leg of a transfer.
QString recurringOccurrenceId(const QString &recurringId, const QDate &dueDate, bool destinationLeg = false);
// The same with any suffix: "<rule id>:<yyyy-MM-dd>:<suffix>", or no colon at all for an empty one.
QString suffixedOccurrenceId(const QString &recurringId, const QDate &dueDate, const QString &suffix);
