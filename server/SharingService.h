#pragma once

#include "server/HttpExchange.h"

#include <QList>
#include <QString>

#include <optional>

namespace OmbrelServer {

class ServerDatabase;
class SyncStore;
struct Caller;

// One account of an owner made visible to one member of the owner's family group.
struct Share {
    QString id;
    QString ownerId;
    QString accountId; // the account's client id
    QString memberId;
    QString role;
    bool active = false;
    qint64 grantedSeq = 0; // change number of the last grant; rows of the account count as new from it
};

// The share calls under /ombrel/v1/accounts/<id>/, and what sync asks about shares.
class SharingService {
public:
    SharingService(ServerDatabase *db, SyncStore *store);

    std::optional<HttpResponse> handle(const HttpRequest &request, const QStringList &path,
                                       const Caller &caller);

    QList<Share> activeSharesFor(const QString &memberId) const;
    // The share of accountId with memberId, active or not; when several owners use that id, the oldest.
    std::optional<Share> shareOf(const QString &accountId, const QString &memberId) const;
    // Ends every share to or from the user, as when they leave the family group.
    void endSharesInvolving(const QString &userId);
    // The is_shared an owner's account row must carry.
    bool isShared(const QString &ownerId, const QString &accountId) const;

private:
    HttpResponse members(const Caller &caller, const QString &accountId);
    HttpResponse share(const HttpRequest &request, const Caller &caller, const QString &accountId);
    HttpResponse unshare(const Caller &caller, const QString &accountId, const QString &memberOrShareId);
    bool ownsLiveAccount(const QString &userId, const QString &accountId) const;
    QList<Share> sharesOfAccount(const QString &ownerId, const QString &accountId) const;
    bool setActive(const Share &share, bool active);
    // Writes is_shared into the owner's account row when it changed, as a new version.
    void updateSharedFlag(const QString &ownerId, const QString &accountId);

    ServerDatabase *m_db;
    SyncStore *m_store;
};

} // namespace OmbrelServer
