#pragma once

#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/Database.h"
#include "data/PreferencesRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/RecurringRepository.h"
#include "data/TransactionRepository.h"
#include "sync/AccountSharingService.h"
#include "sync/SyncEngine.h"
#include "sync/SyncRepositories.h"

#include <QHash>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

namespace HalcAccount {
class ApiClient;
class TokenManager;
} // namespace HalcAccount

// A user of the reference server, signed up through its sign-up form as a browser would.
struct ServerUser {
    QString email;
    QString accessToken;
    QString refreshToken;
};
// The tokens come back in the query of the redirect to the loopback listener; empty ones on failure.
ServerUser signUpUser(const QUrl &serverBase, const QString &email);

// One device of a user: a data directory of its own, and while active the program's database,
// repositories, sync API client and engine on it. The process has one database connection, so one
// device is active at a time: activating one deactivates the other, as the program closing. A device
// that never syncs needs neither a server nor a user.
class SyncDevice {
public:
    explicit SyncDevice(const QUrl &syncBase = {}, const ServerUser &user = {});
    ~SyncDevice();

    bool activate();
    void deactivate();

    // One cycle from syncNow to its end, activating the device first if need be; true when it
    // completed, false when it failed or hung.
    bool sync(int timeoutMs = 30000);
    SyncRepositories repositories() const
    {
        return {accounts, transactions, categories, recurring, reconciliations, preferences};
    }
    // Row "table/id" as its sync status, a space, then its user data and whether it is deleted; empty
    // when the row isn't there.
    QString row(const QString &key) const;
    // What devices in step must agree on, as "table|id|data" lines: the live rows of live accounts. A
    // deleted account is dropped by a device that never knew it, and with it, by the foreign key,
    // whatever another device added to it meanwhile. Reconciliations count alive or not, since a
    // server-side deletion of one is never applied; a rule travels without a version, so its version is
    // left out.
    QStringList snapshot() const;
    QVariant scalar(const QString &sql) const;
    bool exec(const QString &sql) const;

    Database *database = nullptr;
    AccountRepository *accounts = nullptr;
    TransactionRepository *transactions = nullptr;
    CategoryRepository *categories = nullptr;
    RecurringRepository *recurring = nullptr;
    ReconciliationRepository *reconciliations = nullptr;
    PreferencesRepository *preferences = nullptr;
    HalcAccount::TokenManager *tokens = nullptr;
    HalcAccount::ApiClient *api = nullptr;
    SyncEngine *engine = nullptr;
    AccountSharingService *sharing = nullptr;

private:
    QTemporaryDir m_dir;
    QUrl m_syncBase;
    ServerUser m_user;
    QHash<QString, QString> m_tokenEntries;
    std::unique_ptr<QObject> m_data;    // the database and its repositories
    std::unique_ptr<QObject> m_network; // the client, the engine and what they use
};
