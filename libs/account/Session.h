#pragma once

#include <QDateTime>
#include <QString>

namespace HalcAccount {

// One signed-in session of the user, on this device or another.
struct Session {
    QString id;
    QString userAgent;
    QString ipAddress;
    QDateTime createdAt;
    QDateTime lastActiveAt;
    bool isCurrent = false;
};

} // namespace HalcAccount
