#include "sync/AccountSharingService.h"

#include "account/ApiClient.h"

#include <QJsonArray>
#include <QJsonObject>

AccountSharingService::AccountSharingService(HalcAccount::ApiClient *api, QObject *parent)
    : HalcAccount::SharingBackend(parent)
    , m_api(api)
{
}

// A failure reads as an empty list: the dialog has nothing better to show either way.
void AccountSharingService::listMembers(const QString &accountId, MembersCallback callback)
{
    m_api->get(QStringLiteral("/accounts/%1/members").arg(accountId),
               [callback](bool success, int, const QJsonObject &json) {
                   QList<HalcAccount::ShareMember> members;
                   if (success) {
                       for (const QJsonValue &value : json.value(QLatin1String("members")).toArray()) {
                           const QJsonObject m = value.toObject();
                           members.append({m.value(QLatin1String("id")).toString(),
                                           m.value(QLatin1String("user_id")).toString(),
                                           m.value(QLatin1String("email")).toString(),
                                           m.value(QLatin1String("display_name")).toString(),
                                           m.value(QLatin1String("role")).toString(),
                                           m.value(QLatin1String("created_at")).toString()});
                       }
                   }
                   if (callback)
                       callback(members);
               });
}

// The member may be typed as an e-mail address or given as a user id; an address goes in both
// fields, since the server resolves whichever it can.
void AccountSharingService::shareWith(const QString &accountId, const QString &member, const QString &role,
                                      ShareCallback callback)
{
    QJsonObject body;
    if (member.contains(QLatin1Char('@')))
        body.insert(QStringLiteral("email"), member);
    body.insert(QStringLiteral("user_id"), member);
    body.insert(QStringLiteral("role"), role.isEmpty() ? QStringLiteral("member") : role);
    m_api->post(QStringLiteral("/accounts/%1/share").arg(accountId), body,
                [callback](bool success, int status, const QJsonObject &json) {
                    if (!callback)
                        return;
                    if (success) {
                        callback(true, QString());
                        return;
                    }
                    QString error = json.value(QLatin1String("error")).toString();
                    if (error.isEmpty())
                        error = tr("Failed to share account (HTTP %1)").arg(status);
                    callback(false, error);
                });
}

void AccountSharingService::removeShare(const QString &accountId, const QString &memberId,
                                        RemoveCallback callback)
{
    m_api->del(QStringLiteral("/accounts/%1/share/%2").arg(accountId, memberId),
               [callback](bool success, int, const QJsonObject &) {
                   if (callback)
                       callback(success);
               });
}
