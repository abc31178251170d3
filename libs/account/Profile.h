#pragma once

#include "account/ProfileGroup.h"

#include <QString>

namespace HalcAccount {

// The user's profile at the account service; group stays empty for a user without a family group.
struct Profile {
    QString id;
    QString email;
    QString displayName;
    QString avatarUrl;
    QString language;
    QString timezone;
    QString status;
    QString createdAt; // kept as the server's text
    ProfileGroup group;
};

} // namespace HalcAccount
