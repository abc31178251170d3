#pragma once

#include "sync/SyncRepositories.h"

#include <QJsonObject>
#include <QString>

// The pull half of a cycle without the network: one page of the server's rows written into the
// local tables under the conflict rule, and the page's bookkeeping.
//
// The rule: the server wins at an equal or higher version, which also wipes a local edit that has not
// been pushed yet; a lower version is dropped. A server deletion of a live row is applied as a local
// soft delete, so it goes back to the server once more as a "delete"; reconciliations take the
// server's fields but never its deletion.
class SyncApply {
public:
    explicit SyncApply(const SyncRepositories &repositories);

    struct Page {
        QString serverTime;
        bool hasMore = false;
    };
    // Applies the rows (parents first), stores a non-empty server_time as lastSyncTimestamp at once so a
    // later failing page keeps this one, and checks the integrity figures.
    Page applyPage(const QJsonObject &reply);

    // What the pages applied so far did; the fault simulation accounts for lost edits with it.
    struct Stats {
        int inserted = 0;
        int updated = 0;
        int dropped = 0;            // lower version, or a deletion of a row never known here
        int skipped = 0;            // broken date
        int overwrittenPending = 0; // a local edit not yet accepted by the server, replaced
    };
    const Stats &stats() const { return m_stats; }

private:
    void applyAccount(const QJsonObject &row);
    void applyCategory(const QJsonObject &row);
    void applyRecurring(const QJsonObject &row);
    void applyTransaction(const QJsonObject &row);
    void applyReconciliation(const QJsonObject &row);
    void checkIntegrity(const QJsonObject &integrity) const;

    template <typename Record, typename Repo>
    void resolve(Repo *repo, const Record &record, const std::optional<Record> &existing, bool applyDeletion);

    SyncRepositories m_repos;
    Stats m_stats;
};
