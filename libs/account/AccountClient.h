#pragma once

#include "account/ClientConfig.h"
#include "account/Device.h"
#include "account/Group.h"
#include "account/GroupInvitation.h"
#include "account/Profile.h"

#include <QList>
#include <QObject>

#include <functional>

namespace HalcAccount {

class ApiClient;
class AuthClient;

// The account service's calls about the profile, the devices and the family group. Each sends one
// request and hands the parsed records to its callback.
class AccountClient : public QObject {
    Q_OBJECT
public:
    AccountClient(ApiClient *api, AuthClient *auth, const ClientConfig &config, QObject *parent = nullptr);
    ~AccountClient() override;

    void getProfile(std::function<void(Profile)> callback);
    void deleteAccount(std::function<void(bool)> callback);

    void getDevices(std::function<void(QList<Device>)> callback);
    void removeDevice(const QString &id);
    void registerDevice();

    void getGroup(std::function<void(Group)> callback);
    void inviteByEmail(const QString &email, std::function<void(GroupInvitation)> callback);
    void generateInviteCode(std::function<void(GroupInvitation)> callback);
    void cancelInvitation(const QString &id);
    void joinGroup(const QString &code, std::function<void(bool)> callback);
    void leaveGroup();
    void removeMember(const QString &id);

signals:
    void groupChanged();

private:
    // The access token carries the group claims, so a change of membership needs a new one.
    void refreshTokenAndNotify();

    ApiClient *m_api = nullptr;
    AuthClient *m_auth = nullptr;
    QString m_applicationId;
    QString m_applicationName;
    QString m_applicationVersion;
    QString m_portalUrl;
};

} // namespace HalcAccount
