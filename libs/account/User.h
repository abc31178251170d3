#pragma once

#include <QDateTime>
#include <QString>

namespace HalcAccount {

// The signed-in user as the auth service knows them.
struct User {
    QString id;
    QString email;
    QString displayName;
    QString username;
    QString avatarUrl;
    QDateTime createdAt;
};

} // namespace HalcAccount
