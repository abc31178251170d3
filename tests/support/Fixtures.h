#pragma once

#include "core/Account.h"
#include "core/Transaction.h"

#include <QDate>
#include <QString>

// Records as the program would make them, with only what a test cares about spelled out.
namespace Fixtures {

Account account(const QString &id, const QString &name, qint64 startingBalance = 0);

// created is a time of day on the date; the register orders same-date rows by it.
Transaction transaction(const QString &id, const QString &accountId, const QDate &date, const QString &payee,
                        qint64 amount, const QTime &created = QTime(12, 0));

} // namespace Fixtures
