#pragma once

#include "sync/SyncRepositories.h"

#include <QByteArrayList>
#include <QJsonArray>

// The push half of a cycle without the network: the pending rows as change objects, and the server's
// verdict on them written back.
class SyncPush {
public:
    explicit SyncPush(const SyncRepositories &repositories);

    // Accounts, categories, recurring rules, transactions, reconciliations: parents ahead of the rows
    // that refer to them, so the server never meets a reference to a row it has not seen.
    // Each in compact JSON, written straight from the tables (see ChangeWriter).
    QByteArrayList collectPending() const;
    // Change objects as JSON values, for a request body.
    static QJsonArray toJsonArray(const QByteArrayList &changes);

    struct Outcome {
        int ok = 0;
        int failed = 0;
    };
    // Marks what the server accepted as synced; a row with no result, or a result that isn't "ok",
    // stays pending and goes out again next cycle.
    Outcome applyResults(const QJsonArray &results) const;

private:
    SyncRepositories m_repos;
};
