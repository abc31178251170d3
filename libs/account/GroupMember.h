#pragma once

#include <QDateTime>
#include <QString>

namespace HalcAccount {

// One member of the family group.
struct GroupMember {
    QString accountId;
    QString authUserId;
    QString displayName;
    QString email;
    QString role;
    QDateTime joinedAt;
};

} // namespace HalcAccount
