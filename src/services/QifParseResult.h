#pragma once

#include "services/QifAccountRef.h"
#include "services/QifCategory.h"
#include "services/QifDateOrder.h"
#include "services/QifTransaction.h"

#include <QList>

struct QifParseResult {
    QList<QifTransaction> transactions; // in file order
    QList<QifCategory> categories;      // in file order, duplicates kept
    qint32 skippedRecords = 0;          // records without a valid date or amount
    qint32 metadataRecords = 0;         // class, memorized, tag, security, price and option records
    QList<QifAccountRef> accounts;      // by first use, one per name without regard to case
    QifDateOrder dateOrder = QifDateOrder::MonthFirst; // never Auto after a parse
};
