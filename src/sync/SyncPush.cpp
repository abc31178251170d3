#include "sync/SyncPush.h"

#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/RecurringRepository.h"
#include "data/TransactionRepository.h"
#include "sync/ChangeWriter.h"
#include "sync/SyncEntity.h"

#include <QDebug>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlDatabase>

SyncPush::SyncPush(const SyncRepositories &repositories)
    : m_repos(repositories)
{
}

QByteArrayList SyncPush::collectPending() const
{
    return ChangeWriter(QSqlDatabase::database()).pendingChanges();
}

QJsonArray SyncPush::toJsonArray(const QByteArrayList &changes)
{
    return QJsonDocument::fromJson('[' + changes.join(',') + ']').array();
}

SyncPush::Outcome SyncPush::applyResults(const QJsonArray &results) const
{
    Outcome outcome;
    // One commit for the batch instead of one per row: each markSynced stands on its own, and a row
    // whose update fails simply stays pending, so nothing is ever rolled back.
    QSqlDatabase db = QSqlDatabase::database();
    const bool batched = db.transaction();
    for (const QJsonValue &value : results) {
        const QJsonObject result = value.toObject();
        const QString status = result.value(QLatin1String("status")).toString();
        const QString entityId = result.value(QLatin1String("entity_id")).toString();
        const QString serverId = result.value(QLatin1String("server_id")).toString();
        const QString entityType = result.value(QLatin1String("entity_type")).toString();
        if (status != QLatin1String("ok")) {
            ++outcome.failed;
            qWarning().noquote() << "Push result not ok — leaving record pending:" << entityType << entityId
                                 << "status=" << status
                                 << "message=" << result.value(QLatin1String("message")).toString();
            continue;
        }
        ++outcome.ok;
        if (entityType == SyncEntity::Account)
            m_repos.accounts->markSynced(entityId, serverId);
        else if (entityType == SyncEntity::Transaction)
            m_repos.transactions->markSynced(entityId, serverId);
        else if (entityType == SyncEntity::Category)
            m_repos.categories->markSynced(entityId, serverId);
        else if (entityType == SyncEntity::Recurring)
            m_repos.recurring->markSynced(entityId, serverId);
        else if (entityType == SyncEntity::Reconciliation)
            m_repos.reconciliations->markSynced(entityId, serverId);
    }
    if (batched)
        db.commit();
    if (outcome.failed > 0)
        qWarning().noquote() << "Push batch:" << outcome.ok << "ok," << outcome.failed
                             << "errors — failed records remain pending for next sync";
    return outcome;
}
