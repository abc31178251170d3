#pragma once

#include "server/HttpExchange.h"
#include "server/PullCursor.h"
#include "server/SharingService.h"
#include "server/SyncStore.h"

#include <QHash>
#include <QJsonObject>

#include <optional>

namespace OmbrelServer {

class ServerDatabase;
class TokenService;
struct Caller;

// /ombrel/v1: the push and pull of rows, and the share calls (handed to SharingService).
class SyncService {
public:
    SyncService(ServerDatabase *db, SyncStore *store, SharingService *sharing, TokenService *tokens);

    std::optional<HttpResponse> handle(const HttpRequest &request);

private:
    HttpResponse push(const HttpRequest &request, const Caller &caller);
    // shares remembers, for one push, the share (or none) of each account id met so far.
    QJsonObject applyChange(const QJsonValue &change, const Caller &caller,
                            QHash<QString, std::optional<Share>> &shares);
    HttpResponse pull(const HttpRequest &request, const Caller &caller);

    ServerDatabase *m_db;
    SyncStore *m_store;
    SharingService *m_sharing;
    TokenService *m_tokens;
};

} // namespace OmbrelServer
