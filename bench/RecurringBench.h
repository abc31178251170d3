#pragma once

#include <QDate>
#include <QString>

// The start-up auto-post pass on a copy of the heavy household whose rules are about a year behind,
// each run on a fresh copy; prints its rows. False when the household could not be opened.
bool benchAutoPost(const QString &householdPath, const QDate &householdLastDate, int runs);
