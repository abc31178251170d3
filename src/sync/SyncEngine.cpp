#include "sync/SyncEngine.h"

#include "account/ApiClient.h"
#include "data/PreferencesRepository.h"

#include <QDebug>
#include <QJsonObject>
#include <QUrlQuery>

namespace {

const QString kLastSyncKey = QStringLiteral("lastSyncTimestamp");

SyncRepositories repositoriesOf(AccountRepository *accounts, TransactionRepository *transactions,
                                CategoryRepository *categories, RecurringRepository *recurring,
                                ReconciliationRepository *reconciliations, PreferencesRepository *preferences)
{
    return {accounts, transactions, categories, recurring, reconciliations, preferences};
}

} // namespace

SyncEngine::SyncEngine(HalcAccount::ApiClient *api, AccountRepository *accounts,
                       TransactionRepository *transactions, CategoryRepository *categories,
                       RecurringRepository *recurring, ReconciliationRepository *reconciliations,
                       PreferencesRepository *preferences, QObject *parent)
    : QObject(parent)
    , m_api(api)
    , m_accounts(accounts)
    , m_transactions(transactions)
    , m_categories(categories)
    , m_recurring(recurring)
    , m_reconciliations(reconciliations)
    , m_preferences(preferences)
    , m_autoSyncTimer(new QTimer(this))
    , m_debounceTimer(new QTimer(this))
    , m_push(repositoriesOf(accounts, transactions, categories, recurring, reconciliations, preferences))
    , m_apply(repositoriesOf(accounts, transactions, categories, recurring, reconciliations, preferences))
{
    m_debounceTimer->setSingleShot(true);
    m_debounceTimer->setInterval(kDebounceMs);
    connect(m_autoSyncTimer, &QTimer::timeout, this, &SyncEngine::syncNow);
    connect(m_debounceTimer, &QTimer::timeout, this, &SyncEngine::syncNow);
    // The failing request's own reply follows with a 401 and fails the cycle; this only makes sure
    // the state says so even when no cycle is running.
    connect(m_api, &HalcAccount::ApiClient::authenticationRequired, this,
            [this] { setState(SyncState::Error); });
}

void SyncEngine::setSignedInCheck(std::function<bool()> check)
{
    m_signedInCheck = std::move(check);
}

void SyncEngine::start(int intervalMs)
{
    m_autoSyncTimer->start(intervalMs);
    syncNow();
}

void SyncEngine::stop()
{
    m_autoSyncTimer->stop();
}

void SyncEngine::schedule()
{
    m_debounceTimer->start();
}

QString SyncEngine::statusText(SyncState state)
{
    switch (state) {
    case SyncState::Idle: return tr("Synced");
    case SyncState::Syncing: return tr("Syncing...");
    case SyncState::Error: return tr("Sync error");
    case SyncState::Offline: return tr("Offline");
    }
    return tr("Unknown");
}

void SyncEngine::syncNow()
{
    if (m_signedInCheck && !m_signedInCheck()) {
        m_resyncWanted = false;
        setState(SyncState::Idle);
        return;
    }
    if (m_state == SyncState::Syncing) {
        m_resyncWanted = true;
        return;
    }
    m_resyncWanted = false;
    setState(SyncState::Syncing);
    runCycle();
}

void SyncEngine::runCycle()
{
    const QByteArrayList changes = m_push.collectPending();
    if (changes.isEmpty()) {
        // The page counter keeps its value on this path: only a push resets it.
        pullChanges(lastSyncTimestamp());
        return;
    }
    qInfo().noquote() << "Pushing" << changes.size() << "changes (in batches of" << kPushBatchSize << ")";
    m_pushQueue = changes;
    pushNextBatch();
}

// Sends one batch only; what stays behind is still pending in the tables and is collected afresh by
// the next cycle, so the queue never outlives its cycle in any way that matters.
void SyncEngine::pushNextBatch()
{
    if (m_pushQueue.isEmpty()) {
        m_pageCounter = 0;
        pullChanges(lastSyncTimestamp());
        return;
    }
    const qsizetype size = std::min<qsizetype>(kPushBatchSize, m_pushQueue.size());
    const QJsonArray batch = SyncPush::toJsonArray(m_pushQueue.first(size));
    m_pushQueue.remove(0, size);
    qInfo().noquote() << "Push batch:" << size << "changes," << m_pushQueue.size() << "remaining";
    QJsonObject body;
    body.insert(QStringLiteral("changes"), batch);
    m_api->post(
        QStringLiteral("/sync/push"), body,
        [this](bool success, int status, const QJsonObject &json) { onPushReply(success, status, json); });
}

void SyncEngine::onPushReply(bool success, int status, const QJsonObject &json)
{
    if (!success) {
        failCycle(QStringLiteral("Push failed (HTTP %1)").arg(status));
        return;
    }
    m_push.applyResults(json.value(QLatin1String("results")).toArray());
    m_pageCounter = 0;
    pullChanges(lastSyncTimestamp());
}

void SyncEngine::pullChanges(const QString &since)
{
    QUrlQuery query;
    if (!since.isEmpty())
        query.addQueryItem(QStringLiteral("since"), since);
    query.addQueryItem(QStringLiteral("limit"), QString::number(kPullPageLimit));
    m_api->get(
        QStringLiteral("/sync/pull"),
        [this](bool success, int status, const QJsonObject &json) { onPullReply(success, status, json); },
        query);
}

void SyncEngine::onPullReply(bool success, int status, const QJsonObject &json)
{
    if (!success) {
        failCycle(QStringLiteral("Pull failed (HTTP %1)").arg(status));
        return;
    }
    const SyncApply::Page page = m_apply.applyPage(json);
    ++m_pageCounter;
    if (page.hasMore && m_pageCounter < kMaxPagesPerCycle) {
        pullChanges(page.serverTime);
        return;
    }
    finishCycle();
}

void SyncEngine::finishCycle()
{
    setState(SyncState::Idle);
    emit syncCompleted();
    emit dataChanged();
    if (m_resyncWanted) {
        m_resyncWanted = false;
        QTimer::singleShot(0, this, &SyncEngine::syncNow);
    }
}

// No retry and no back-off of its own: the next trigger, at the latest the auto-sync timer, starts over.
void SyncEngine::failCycle(const QString &error)
{
    m_lastError = error;
    setState(SyncState::Error);
    emit syncFailed(error);
}

void SyncEngine::setState(SyncState state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged(state);
}

QString SyncEngine::lastSyncTimestamp() const
{
    return m_preferences->getOr(kLastSyncKey, QString());
}
