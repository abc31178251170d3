#pragma once

#include "server/HttpExchange.h"

#include <optional>

namespace OmbrelServer {

class ServerDatabase;
class SharingService;
class SyncStore;
class TokenService;
struct Caller;

// /account/v1: the profile, the devices and the family group.
class AccountService {
public:
    AccountService(ServerDatabase *db, TokenService *tokens, SharingService *sharing, SyncStore *store);

    std::optional<HttpResponse> handle(const HttpRequest &request);
    // Removes the accounts whose deletion is due, with everything they own.
    void purgeDueDeletions();

private:
    struct Membership {
        QString groupId;
        QString role;
    };

    HttpResponse profile(const Caller &caller);
    HttpResponse scheduleDeletion(const Caller &caller);
    HttpResponse devices(const Caller &caller);
    HttpResponse registerDevice(const HttpRequest &request, const Caller &caller);
    HttpResponse removeDevice(const Caller &caller, const QString &deviceId);
    HttpResponse group(const Caller &caller);
    HttpResponse invite(const HttpRequest &request, const Caller &caller);
    HttpResponse cancelInvitation(const Caller &caller, const QString &invitationId);
    HttpResponse join(const Caller &caller, const QString &code);
    HttpResponse leave(const Caller &caller);
    HttpResponse removeMember(const Caller &caller, const QString &memberId);
    std::optional<Membership> membershipOf(const QString &userId) const;
    // Takes the user out of their group: their shares end, an owner's role passes to the longest
    // member, and an empty group goes.
    bool leaveGroup(const QString &userId);

    ServerDatabase *m_db;
    TokenService *m_tokens;
    SharingService *m_sharing;
    SyncStore *m_store;
};

} // namespace OmbrelServer
