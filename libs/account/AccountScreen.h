#pragma once

#include "account/Device.h"
#include "account/Group.h"
#include "account/Profile.h"
#include "account/Session.h"

#include <QDateTime>
#include <QList>
#include <QWidget>

class QLabel;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

namespace HalcAccount {

class Client;

// The signed-in user's account: a side list of sections, the section's page, and a status line.
// Every page's content is rebuilt from the server's records at each refresh.
class AccountScreen : public QWidget {
    Q_OBJECT
public:
    enum class Tab { Profile, Group, Devices, Security, Privacy };

    explicit AccountScreen(Client *client, QWidget *parent = nullptr);
    ~AccountScreen() override;

    void setCurrentTab(Tab tab);
    Tab currentTab() const;
    // Fetches what the current page shows.
    void refresh();

    void refreshProfile();
    void refreshGroup();
    void refreshDevices();
    void refreshSessions();

    // The pages from records at hand; the refreshes end here.
    void showProfile(const Profile &profile);
    void showGroup(const Profile &profile, const Group &group);
    void showDevices(const QList<Device> &devices);
    void showSessions(const QList<Session> &sessions);

    void showError(const QString &text);
    void showSuccess(const QString &text);

    // "Active now", "5m ago", ... up to a week, then the local date; now is in UTC.
    static QString relativeTime(const QDateTime &when,
                                const QDateTime &now = QDateTime::currentDateTimeUtc());

signals:
    void logoutRequested();

protected:
    void changeEvent(QEvent *event) override;

private:
    void setupUi();
    QWidget *createProfileTab();
    QWidget *createGroupTab();
    QWidget *createDevicesTab();
    QWidget *createSecurityTab();
    QWidget *createPrivacyTab();
    QWidget *createPage(const QString &heading, QVBoxLayout **contentSlot);
    static QWidget *section(const QString &title, const QString &description);
    void replaceContent(QVBoxLayout *slot, QWidget *content);
    void rebuildSideListStyle();
    void fitSideList();
    void showPrivacy(const Profile &profile);
    QWidget *memberRow(const GroupMember &member, bool removable);

    void onEditDisplayName();
    void onChangePassword();
    void onJoinGroup();
    void onRemoveMember(const GroupMember &member);
    void onLeaveGroup();
    void onRevokeInvitation(const QString &id);
    void onInviteByEmail();
    void onGenerateInviteCode();
    void onRemoveDevice(const Device &device);
    void onRevokeSession(const QString &id);
    void onDeleteAccount();

    Client *m_client = nullptr;
    QListWidget *m_sideList = nullptr;
    QStackedWidget *m_pages = nullptr;
    QLabel *m_status = nullptr;
    QVBoxLayout *m_profileContent = nullptr;
    QVBoxLayout *m_groupContent = nullptr;
    QVBoxLayout *m_devicesContent = nullptr;
    QVBoxLayout *m_sessionsContent = nullptr;
    QVBoxLayout *m_privacyContent = nullptr;
    QPushButton *m_passwordButton = nullptr;
    Profile m_profile;
    int m_statusGeneration = 0;
};

} // namespace HalcAccount
