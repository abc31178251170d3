#pragma once

#include "sync/SyncApply.h"
#include "sync/SyncPush.h"

#include <QJsonArray>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

class AccountRepository;
class CategoryRepository;
class PreferencesRepository;
class ReconciliationRepository;
class RecurringRepository;
class TransactionRepository;

namespace HalcAccount {
class ApiClient;
}

// Keeps the local tables and the server's copy of the signed-in user's data in step, in cycles: push
// what is pending (one batch), then pull what changed, page by page. Runs on the event loop alone,
// driven by the API client's replies; its state is also its guard against a second cycle at once.
class SyncEngine : public QObject {
    Q_OBJECT
    Q_PROPERTY(SyncState state READ state NOTIFY stateChanged)
public:
    enum class SyncState { Idle = 0, Syncing = 1, Error = 2, Offline = 3 };
    Q_ENUM(SyncState)

    static constexpr int kPushBatchSize = 500;
    static constexpr int kPullPageLimit = 200;
    static constexpr int kMaxPagesPerCycle = 50;
    static constexpr int kDebounceMs = 2000;

    SyncEngine(HalcAccount::ApiClient *api, AccountRepository *accounts, TransactionRepository *transactions,
               CategoryRepository *categories, RecurringRepository *recurring,
               ReconciliationRepository *reconciliations, PreferencesRepository *preferences,
               QObject *parent = nullptr);

    void setSignedInCheck(std::function<bool()> check);
    // Starts (or restarts) the auto-sync timer, then syncs at once.
    void start(int intervalMs);
    // Stops the auto-sync timer only: a cycle in flight runs to its end.
    void stop();
    // A burst of calls gives one sync, two seconds after the last.
    void schedule();

    SyncState state() const { return m_state; }
    QString lastError() const { return m_lastError; }
    static QString statusText(SyncState state);

    // What the pulls of this engine have done to local rows; for the fault simulation and the log.
    const SyncApply::Stats &applyStats() const { return m_apply.stats(); }

public slots:
    void syncNow();

signals:
    void stateChanged(SyncEngine::SyncState state);
    void syncCompleted();
    void syncFailed(const QString &error);
    void dataChanged();

private:
    void runCycle();
    void pushNextBatch();
    void onPushReply(bool success, int status, const QJsonObject &json);
    void pullChanges(const QString &since);
    void onPullReply(bool success, int status, const QJsonObject &json);
    void finishCycle();
    void failCycle(const QString &error);
    void setState(SyncState state);
    QString lastSyncTimestamp() const;

    HalcAccount::ApiClient *m_api = nullptr;
    AccountRepository *m_accounts = nullptr;
    TransactionRepository *m_transactions = nullptr;
    CategoryRepository *m_categories = nullptr;
    RecurringRepository *m_recurring = nullptr;
    ReconciliationRepository *m_reconciliations = nullptr;
    PreferencesRepository *m_preferences = nullptr;
    QTimer *m_autoSyncTimer = nullptr;
    QTimer *m_debounceTimer = nullptr;
    SyncState m_state = SyncState::Idle;
    QString m_lastError;
    int m_pageCounter = 0;
    bool m_resyncWanted = false;
    std::function<bool()> m_signedInCheck;
    QByteArrayList m_pushQueue;
    SyncPush m_push;
    SyncApply m_apply;
};
