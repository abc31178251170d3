#pragma once

#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/RecurringRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "support/TempDatabase.h"

// A migrated database of its own with every repository over it, for tests below the screens.
// Declared in this order, the repositories go before the database they use.
struct TempStore {
    TempDatabase db;
    bool ok = db.open();
    AccountRepository accounts{db.database()};
    CategoryRepository categories{db.database()};
    TransactionRepository transactions{db.database()};
    SplitLineRepository splitLines{db.database()};
    RecurringRepository recurring{db.database()};
    ReconciliationRepository reconciliations{db.database()};

    int count(const QString &sql) { return db.scalar(sql).toInt(); }
};
