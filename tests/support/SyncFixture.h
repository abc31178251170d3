#pragma once

#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/PreferencesRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/RecurringRepository.h"
#include "data/TransactionRepository.h"
#include "support/TempDatabase.h"
#include "sync/SyncRepositories.h"

#include <QJsonObject>

#include <memory>

// One device's tables: a fresh database with the repositories a sync cycle works on.
class SyncFixture {
public:
    // Opens and migrates; false on failure.
    bool open();

    SyncRepositories repositories() const;
    TempDatabase &db() { return m_db; }

    std::unique_ptr<AccountRepository> accounts;
    std::unique_ptr<TransactionRepository> transactions;
    std::unique_ptr<CategoryRepository> categories;
    std::unique_ptr<RecurringRepository> recurring;
    std::unique_ptr<ReconciliationRepository> reconciliations;
    std::unique_ptr<PreferencesRepository> preferences;

private:
    TempDatabase m_db;
};

namespace JsonCompare {
// Compares key by key, with the type of every value, naming the key that differs; fails the
// running test. Returns false on a difference so the caller can stop.
bool sameObject(const QJsonObject &actual, const QJsonObject &expected, const QString &path = QString());
QJsonObject parse(const char *json);
} // namespace JsonCompare
