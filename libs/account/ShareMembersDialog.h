#pragma once

#include "account/GroupMember.h"
#include "account/ShareDialogTexts.h"
#include "account/ShareMember.h"

#include <QDialog>
#include <QList>

class QLabel;
class QVBoxLayout;

namespace HalcAccount {

class Client;
class SharingBackend;

// Chooses which members of the family group can see one account. It knows the sharing calls only
// through the backend the application hands it.
class ShareMembersDialog : public QDialog {
    Q_OBJECT
public:
    ShareMembersDialog(Client *client, SharingBackend *backend, const QString &accountId,
                       const ShareDialogTexts &texts, QWidget *parent = nullptr);
    ~ShareMembersDialog() override;

    void loadShares();
    void loadGroupMembers();
    // The rows from records at hand; the loads end here. noGroup: the user has no family group.
    void showShares(const QList<ShareMember> &shares);
    void showGroupMembers(const QList<GroupMember> &members, const QString &selfId, bool noGroup);

    void shareWithMember(const QString &memberId, const QString &name);
    void removeShare(const QString &memberId, const QString &name);

    bool isBusy() const { return m_busy; }

signals:
    void sharingChanged();

private:
    void setupUi();
    QWidget *personRow(const QString &name, const QString &email, QWidget *action);
    bool hasAccess(const GroupMember &member) const;
    void rebuildAddRows();
    void showErrorText(const QString &title, const QString &text, const QString &detail = QString());
    QString text(const QString &fromRecord, const QString &builtIn) const;

    Client *m_client = nullptr;
    SharingBackend *m_backend = nullptr;
    QString m_accountId;
    ShareDialogTexts m_texts;
    QList<ShareMember> m_shares;
    QList<GroupMember> m_groupMembers;
    QString m_selfId;
    bool m_noGroup = false;
    bool m_groupLoaded = false;
    bool m_busy = false;
    QVBoxLayout *m_sharedRows = nullptr;
    QVBoxLayout *m_addRows = nullptr;
    QLabel *m_error = nullptr;
};

} // namespace HalcAccount
