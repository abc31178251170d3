#pragma once

#include "core/Account.h"
#include "core/Category.h"
#include "core/RecurringTransaction.h"
#include "core/SplitLine.h"
#include "core/Transaction.h"

#include <QDate>
#include <QString>

// Records as the program would make them, with only what a test cares about spelled out.
namespace Fixtures {

Account account(const QString &id, const QString &name, qint64 startingBalance = 0);

// created is a time of day on the date; the register orders same-date rows by it.
Transaction transaction(const QString &id, const QString &accountId, const QDate &date, const QString &payee,
                        qint64 amount, const QTime &created = QTime(12, 0));

// A tax code makes the category tax-relevant.
Category category(const QString &id, const QString &name, const QString &parentId = {},
                  CategoryType type = CategoryType::Expense, const QString &taxCode = {});

// Starts on its first due date.
RecurringTransaction rule(const QString &id, const QString &accountId, const QDate &nextDue, qint64 amount,
                          Frequency frequency = Frequency::Monthly);

SplitLine splitLine(const QString &id, const QString &transactionId, const QString &categoryId,
                    qint64 amount);

} // namespace Fixtures
