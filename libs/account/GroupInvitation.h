#pragma once

#include <QDateTime>
#include <QString>

namespace HalcAccount {

// An invitation into the family group, by e-mail or by code.
struct GroupInvitation {
    QString id;
    QString invitedEmail;
    QString inviteCode;
    QString status;
    QDateTime expiresAt;
};

} // namespace HalcAccount
