#pragma once

#include <QDateTime>
#include <QString>

namespace HalcAccount {

// One device registered to the user.
struct Device {
    QString id;
    QString deviceName;
    QString platform;
    QString appId;
    QString appVersion;
    QDateTime lastSyncAt;
    QString deviceFingerprint;
    QDateTime createdAt;
};

} // namespace HalcAccount
