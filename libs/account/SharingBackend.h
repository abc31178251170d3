#pragma once

#include "account/ShareMember.h"

#include <QList>
#include <QObject>

#include <functional>

namespace HalcAccount {

// The one way back from this library into the application: whoever owns accounts implements the
// sharing calls, so the library's dialogs need not know the sync service.
class SharingBackend : public QObject {
    Q_OBJECT
public:
    explicit SharingBackend(QObject *parent = nullptr);
    ~SharingBackend() override;

    using MembersCallback = std::function<void(QList<ShareMember>)>;
    using ShareCallback = std::function<void(bool success, QString error)>;
    using RemoveCallback = std::function<void(bool success)>;

public slots:
    virtual void listMembers(const QString &accountId, MembersCallback callback) = 0;
    virtual void shareWith(const QString &accountId, const QString &member, const QString &role,
                           ShareCallback callback) = 0;
    virtual void removeShare(const QString &accountId, const QString &memberId, RemoveCallback callback) = 0;
};

} // namespace HalcAccount
