#include "account/AccountClient.h"

#include "account/ApiClient.h"
#include "account/AuthClient.h"
#include "account/DeviceIdentity.h"

#include <QJsonArray>

namespace HalcAccount {

namespace {

QString text(const QJsonObject &json, const char *key)
{
    return json.value(QLatin1String(key)).toString();
}

QDateTime date(const QJsonObject &json, const char *key)
{
    return QDateTime::fromString(text(json, key), Qt::ISODate);
}

Profile parseProfile(const QJsonObject &json)
{
    Profile profile;
    profile.id = text(json, "id");
    profile.email = text(json, "email");
    profile.displayName = text(json, "display_name");
    profile.avatarUrl = text(json, "avatar_url");
    profile.language = text(json, "language");
    profile.timezone = text(json, "timezone");
    profile.status = text(json, "status");
    profile.createdAt = text(json, "created_at");
    const QJsonObject group = json.value("group").toObject();
    profile.group.id = text(group, "id");
    profile.group.name = text(group, "name");
    profile.group.role = text(group, "role");
    profile.group.memberCount = group.value("member_count").toInt();
    return profile;
}

Device parseDevice(const QJsonObject &json)
{
    Device device;
    device.id = text(json, "id");
    device.deviceName = text(json, "device_name");
    device.platform = text(json, "platform");
    device.appId = text(json, "app_id");
    device.appVersion = text(json, "app_version");
    device.lastSyncAt = date(json, "last_sync_at");
    device.deviceFingerprint = text(json, "device_fingerprint");
    device.createdAt = date(json, "created_at");
    return device;
}

GroupInvitation parseInvitation(const QJsonObject &json)
{
    GroupInvitation invitation;
    invitation.id = text(json, "id");
    invitation.invitedEmail = text(json, "invited_email");
    invitation.inviteCode = text(json, "invite_code");
    invitation.status = text(json, "status");
    invitation.expiresAt = date(json, "expires_at");
    return invitation;
}

Group parseGroup(const QJsonObject &json)
{
    Group group;
    group.id = text(json, "id");
    group.name = text(json, "name");
    for (const QJsonValue &value : json.value("members").toArray()) {
        const QJsonObject m = value.toObject();
        group.members.append({text(m, "account_id"), text(m, "auth_user_id"), text(m, "display_name"),
                              text(m, "email"), text(m, "role"), date(m, "joined_at")});
    }
    for (const QJsonValue &value : json.value("pending_invitations").toArray())
        group.pendingInvitations.append(parseInvitation(value.toObject()));
    return group;
}

} // namespace

AccountClient::AccountClient(ApiClient *api, AuthClient *auth, const ClientConfig &config, QObject *parent)
    : QObject(parent)
    , m_api(api)
    , m_auth(auth)
    , m_applicationId(config.applicationId)
    , m_applicationName(config.applicationName)
    , m_applicationVersion(config.applicationVersion)
    , m_portalUrl(config.portalUrl)
{
}

AccountClient::~AccountClient() = default;

void AccountClient::getProfile(std::function<void(Profile)> callback)
{
    m_api->get(QStringLiteral("/profile"), [callback](bool success, int, const QJsonObject &json) {
        if (callback)
            callback(success ? parseProfile(json) : Profile());
    });
}

void AccountClient::deleteAccount(std::function<void(bool)> callback)
{
    m_api->del(QStringLiteral("/profile"), [callback](bool success, int, const QJsonObject &) {
        if (callback)
            callback(success);
    });
}

void AccountClient::getDevices(std::function<void(QList<Device>)> callback)
{
    m_api->get(QStringLiteral("/devices"), [callback](bool success, int, const QJsonObject &json) {
        QList<Device> devices;
        if (success) {
            for (const QJsonValue &value : json.value("devices").toArray())
                devices.append(parseDevice(value.toObject()));
        }
        if (callback)
            callback(devices);
    });
}

void AccountClient::removeDevice(const QString &id)
{
    m_api->del(QStringLiteral("/devices/%1").arg(id), {});
}

void AccountClient::registerDevice()
{
    const QJsonObject body{
        {"device_name",        DeviceIdentity::deviceName() },
        {"platform",           DeviceIdentity::platform()   },
        {"app_id",             m_applicationId              },
        {"app_version",        m_applicationVersion         },
        {"device_fingerprint", DeviceIdentity::fingerprint()},
    };
    m_api->post(QStringLiteral("/devices/register"), body, {});
}

void AccountClient::getGroup(std::function<void(Group)> callback)
{
    m_api->get(QStringLiteral("/group"), [callback](bool success, int, const QJsonObject &json) {
        if (callback)
            callback(success ? parseGroup(json) : Group());
    });
}

void AccountClient::inviteByEmail(const QString &email, std::function<void(GroupInvitation)> callback)
{
    m_api->post(QStringLiteral("/group/invite"),
                {
                    {"email", email}
    },
                [callback](bool success, int, const QJsonObject &json) {
                    if (callback)
                        callback(success ? parseInvitation(json) : GroupInvitation());
                });
}

void AccountClient::generateInviteCode(std::function<void(GroupInvitation)> callback)
{
    m_api->post(QStringLiteral("/group/invite"), {}, [callback](bool success, int, const QJsonObject &json) {
        if (callback)
            callback(success ? parseInvitation(json) : GroupInvitation());
    });
}

void AccountClient::cancelInvitation(const QString &id)
{
    m_api->del(QStringLiteral("/group/invitations/%1").arg(id), {});
}

void AccountClient::joinGroup(const QString &code, std::function<void(bool)> callback)
{
    m_api->post(QStringLiteral("/group/join/%1").arg(code), {},
                [this, callback](bool success, int, const QJsonObject &) {
                    if (success) {
                        refreshTokenAndNotify();
                        emit groupChanged();
                    }
                    if (callback)
                        callback(success);
                });
}

void AccountClient::leaveGroup()
{
    m_api->post(QStringLiteral("/group/leave"), {}, [this](bool success, int, const QJsonObject &) {
        if (!success)
            return;
        refreshTokenAndNotify();
        emit groupChanged();
    });
}

void AccountClient::removeMember(const QString &id)
{
    m_api->del(QStringLiteral("/group/members/%1").arg(id), [this](bool success, int, const QJsonObject &) {
        if (success)
            emit groupChanged();
    });
}

void AccountClient::refreshTokenAndNotify()
{
    m_auth->refreshToken({});
}

} // namespace HalcAccount
