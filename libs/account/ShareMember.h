#pragma once

#include <QString>

namespace HalcAccount {

// One member of the family group who can see a shared account.
struct ShareMember {
    QString id;
    QString userId;
    QString email;
    QString displayName;
    QString role;
    QString createdAt; // kept as the server's text
};

} // namespace HalcAccount
