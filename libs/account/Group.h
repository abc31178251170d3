#pragma once

#include "account/GroupInvitation.h"
#include "account/GroupMember.h"

#include <QList>
#include <QString>

namespace HalcAccount {

// The family group with its members and the invitations not yet taken up.
struct Group {
    QString id;
    QString name;
    QList<GroupMember> members;
    QList<GroupInvitation> pendingInvitations;
};

} // namespace HalcAccount
