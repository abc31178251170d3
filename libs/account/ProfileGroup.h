#pragma once

#include <QString>

namespace HalcAccount {

// The family group as the profile names it.
struct ProfileGroup {
    QString id;
    QString name;
    QString role;
    int memberCount = 0;
};

} // namespace HalcAccount
