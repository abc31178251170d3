#pragma once

#include "account/SharingBackend.h"

namespace HalcAccount {
class ApiClient;
}

// The sharing calls of the account library's dialog, made on the sync service. The local accounts
// row is not touched here: its is_shared flag comes back by the next pull.
class AccountSharingService : public HalcAccount::SharingBackend {
    Q_OBJECT
public:
    explicit AccountSharingService(HalcAccount::ApiClient *api, QObject *parent = nullptr);

    void listMembers(const QString &accountId, MembersCallback callback) override;
    void shareWith(const QString &accountId, const QString &member, const QString &role,
                   ShareCallback callback) override;
    void removeShare(const QString &accountId, const QString &memberId, RemoveCallback callback) override;

private:
    HalcAccount::ApiClient *m_api = nullptr;
};
