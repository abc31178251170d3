#include "account/AccountScreen.h"

#include "account/AccountClient.h"
#include "account/AuthClient.h"
#include "account/Client.h"
#include "account/Prompter.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace HalcAccount {

namespace {

constexpr int kStatusClearMs = 4000;
constexpr int kRefreshDelayMs = 500;
constexpr int kMinPasswordLength = 8;
constexpr int kMaxUserAgentLength = 60;
const QString kOwnerRole = QStringLiteral("owner");
const QString kMutedColor = QStringLiteral("#6E8A7E");

void setWeight(QWidget *widget, int weight)
{
    QFont font = widget->font();
    font.setWeight(QFont::Weight(weight));
    widget->setFont(font);
}

QLabel *mutedLabel(const QString &text, QWidget *parent = nullptr)
{
    auto *label = new QLabel(text, parent);
    label->setWordWrap(true);
    label->setStyleSheet(QStringLiteral("color: %1;").arg(kMutedColor));
    return label;
}

QLabel *badge(const QString &text, const QString &color)
{
    auto *label = new QLabel(text);
    label->setStyleSheet(QStringLiteral("QLabel { color: white; background: %1; border-radius: 3px;"
                                        " padding: 1px 6px; }")
                             .arg(color));
    setWeight(label, 600);
    return label;
}

// A row of the lists: text on the left, its actions on the right.
QHBoxLayout *rowLayout(QWidget *row)
{
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(12, 6, 0, 6);
    layout->setSpacing(8);
    return layout;
}

// A section's column, for the rows and buttons its caller adds; addLayout gives their widgets a parent.
QVBoxLayout *sectionLayout(QWidget *section)
{
    return static_cast<QVBoxLayout *>(section->layout());
}

QString orNotSet(const QString &value)
{
    return value.isEmpty() ? AccountScreen::tr("(not set)") : value;
}

} // namespace

AccountScreen::AccountScreen(Client *client, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
{
    setupUi();
    connect(m_sideList, &QListWidget::currentRowChanged, this, [this](int row) {
        m_pages->setCurrentIndex(row);
        refresh();
    });
    connect(m_client->accountClient(), &AccountClient::groupChanged, this, [this] { refreshGroup(); });
}

AccountScreen::~AccountScreen() = default;

void AccountScreen::setupUi()
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    m_sideList = new QListWidget(this);
    m_sideList->setFrameShape(QFrame::NoFrame);
    m_sideList->setFocusPolicy(Qt::NoFocus);
    m_sideList->setSpacing(2);
    m_sideList->addItems({tr("Profile"), tr("Group"), tr("Devices"), tr("Security"), tr("Data & Privacy")});
    rebuildSideListStyle();
    fitSideList();
    layout->addWidget(m_sideList);

    auto *right = new QVBoxLayout;
    right->setContentsMargins(0, 0, 0, 0);
    right->setSpacing(0);
    m_pages = new QStackedWidget(this);
    m_pages->addWidget(createProfileTab());
    m_pages->addWidget(createGroupTab());
    m_pages->addWidget(createDevicesTab());
    m_pages->addWidget(createSecurityTab());
    m_pages->addWidget(createPrivacyTab());
    right->addWidget(m_pages, 1);
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("accountStatus"));
    m_status->setWordWrap(true);
    // In line with the pages' 24 px margin, the label's own padding included.
    m_status->setContentsMargins(20, 0, 20, 8);
    right->addWidget(m_status);
    layout->addLayout(right, 1);

    m_sideList->setCurrentRow(0);
}

// 180 pixels hold the section names in English at the normal font; a longer translation or a larger
// font widens the list rather than cutting a name short.
void AccountScreen::fitSideList()
{
    int widest = 0;
    for (int i = 0; i < m_sideList->count(); ++i)
        widest = std::max(widest, m_sideList->fontMetrics().horizontalAdvance(m_sideList->item(i)->text()));
    // The items' padding of 12 and the list's of 8 on either side, the item spacing, and a little air.
    m_sideList->setFixedWidth(std::max(180, widest + 2 * 12 + 2 * 8 + 2 * 2 + 8));
}

void AccountScreen::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_sideList)
        fitSideList();
}

void AccountScreen::rebuildSideListStyle()
{
    const QPalette palette = QApplication::palette();
    const QColor window = palette.color(QPalette::Window);
    const bool dark = window.lightness() < 128;
    QColor background = palette.color(QPalette::AlternateBase);
    if (!background.isValid())
        background = window.lighter(dark ? 115 : 97);
    const QColor hover = dark ? window.lighter(135) : window.darker(105);
    m_sideList->setStyleSheet(
        QStringLiteral("QListWidget {  background: %1; border: none; padding: 12px 8px;}"
                       "QListWidget::item {  padding: 8px 12px; border-radius: 6px;}"
                       "QListWidget::item:hover { background: %2; }"
                       "QListWidget::item:selected { background: %3; color: %4; }")
            .arg(background.name(), hover.name(), palette.color(QPalette::Highlight).name(),
                 palette.color(QPalette::HighlightedText).name()));
}

QWidget *AccountScreen::createPage(const QString &heading, QVBoxLayout **contentSlot)
{
    // A group of four with its invitations outgrows the window, so every page scrolls.
    auto *scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    // Long texts wrap instead: a sideways scroll would hide the row buttons at the right.
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->setSpacing(0);
    auto *title = new QLabel(heading, page);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() + 4);
    font.setWeight(QFont::Weight(600));
    title->setFont(font);
    layout->addWidget(title);
    layout->addSpacing(12);
    auto *slot = new QVBoxLayout;
    slot->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(slot);
    layout->addStretch(1);
    scroll->setWidget(page);
    *contentSlot = slot;
    return scroll;
}

QWidget *AccountScreen::section(const QString &title, const QString &description)
{
    auto *block = new QWidget;
    auto *layout = new QVBoxLayout(block);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    auto *heading = new QLabel(title, block);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() + 1);
    font.setWeight(QFont::Weight(600));
    heading->setFont(font);
    heading->setWordWrap(true);
    layout->addWidget(heading);
    if (!description.isEmpty())
        layout->addWidget(mutedLabel(description, block));
    return block;
}

void AccountScreen::replaceContent(QVBoxLayout *slot, QWidget *content)
{
    while (QLayoutItem *item = slot->takeAt(0)) {
        if (QWidget *old = item->widget()) {
            // Out of the tree at once, so nothing finds the old rows; deleted once the click that
            // may have led here has returned.
            old->hide();
            old->setParent(nullptr);
            old->deleteLater();
        }
        delete item;
    }
    slot->addWidget(content);
}

QWidget *AccountScreen::createProfileTab()
{
    return createPage(tr("Profile"), &m_profileContent);
}

QWidget *AccountScreen::createGroupTab()
{
    return createPage(tr("Group"), &m_groupContent);
}

QWidget *AccountScreen::createDevicesTab()
{
    return createPage(tr("Devices"), &m_devicesContent);
}

QWidget *AccountScreen::createSecurityTab()
{
    return createPage(tr("Security"), &m_sessionsContent);
}

QWidget *AccountScreen::createPrivacyTab()
{
    return createPage(tr("Data & Privacy"), &m_privacyContent);
}

void AccountScreen::setCurrentTab(Tab tab)
{
    const int row = int(tab);
    if (m_sideList->currentRow() == row)
        refresh();
    else
        m_sideList->setCurrentRow(row); // refreshes through currentRowChanged
}

AccountScreen::Tab AccountScreen::currentTab() const
{
    return Tab(m_pages->currentIndex());
}

void AccountScreen::refresh()
{
    switch (currentTab()) {
    case Tab::Profile: refreshProfile(); break;
    case Tab::Group: refreshGroup(); break;
    case Tab::Devices: refreshDevices(); break;
    case Tab::Security: refreshSessions(); break;
    case Tab::Privacy: refreshProfile(); break;
    }
}

void AccountScreen::refreshProfile()
{
    QPointer<AccountScreen> self(this);
    m_client->accountClient()->getProfile([self](const Profile &profile) {
        if (self)
            self->showProfile(profile);
    });
}

void AccountScreen::refreshGroup()
{
    QPointer<AccountScreen> self(this);
    m_client->accountClient()->getProfile([self](const Profile &profile) {
        if (!self)
            return;
        self->showProfile(profile);
        if (profile.group.id.isEmpty()) {
            self->showGroup(profile, Group());
            return;
        }
        self->m_client->accountClient()->getGroup([self, profile](const Group &group) {
            if (self)
                self->showGroup(profile, group);
        });
    });
}

void AccountScreen::refreshDevices()
{
    QPointer<AccountScreen> self(this);
    m_client->accountClient()->getDevices([self](const QList<Device> &devices) {
        if (self)
            self->showDevices(devices);
    });
}

void AccountScreen::refreshSessions()
{
    QPointer<AccountScreen> self(this);
    m_client->authClient()->listSessions([self](const QList<Session> &sessions) {
        if (self)
            self->showSessions(sessions);
    });
}

void AccountScreen::showProfile(const Profile &profile)
{
    m_profile = profile;
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    QWidget *personal = section(tr("Personal Information"), QString());
    auto *values = new QHBoxLayout;
    values->setContentsMargins(12, 0, 0, 0);
    values->setSpacing(16);
    auto *name = new QLabel(orNotSet(profile.displayName));
    name->setObjectName(QStringLiteral("displayName"));
    setWeight(name, 500);
    auto *email = new QLabel(orNotSet(profile.email));
    email->setObjectName(QStringLiteral("email"));
    email->setStyleSheet(QStringLiteral("color: %1;").arg(kMutedColor));
    values->addWidget(name);
    values->addWidget(email);
    values->addStretch(1);
    sectionLayout(personal)->addLayout(values);
    auto *edit = new QPushButton(tr("Edit Display Name"));
    connect(edit, &QPushButton::clicked, this, &AccountScreen::onEditDisplayName);
    auto *editRow = new QHBoxLayout;
    editRow->addWidget(edit);
    editRow->addStretch(1);
    sectionLayout(personal)->addLayout(editRow);
    layout->addWidget(personal);
    layout->addSpacing(16);

    QWidget *password = section(tr("Password"), tr("Change your account password."));
    m_passwordButton = new QPushButton(tr("Change Password"));
    connect(m_passwordButton, &QPushButton::clicked, this, &AccountScreen::onChangePassword);
    auto *passwordRow = new QHBoxLayout;
    passwordRow->addWidget(m_passwordButton);
    passwordRow->addStretch(1);
    sectionLayout(password)->addLayout(passwordRow);
    layout->addWidget(password);

    replaceContent(m_profileContent, content);
    showPrivacy(profile);
}

QWidget *AccountScreen::memberRow(const GroupMember &member, bool removable)
{
    auto *row = new QWidget;
    QHBoxLayout *layout = rowLayout(row);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    const QString name = member.displayName.isEmpty() ? member.email : member.displayName;
    auto *nameLabel = new QLabel(name, row);
    setWeight(nameLabel, 500);
    texts->addWidget(nameLabel);
    if (member.email != name) {
        auto *emailLabel = new QLabel(member.email, row);
        QFont font = emailLabel->font();
        font.setPointSizeF(qMax(7.0, font.pointSizeF() - 1));
        emailLabel->setFont(font);
        emailLabel->setStyleSheet(QStringLiteral("color: %1;").arg(kMutedColor));
        texts->addWidget(emailLabel);
    }
    layout->addLayout(texts);
    if (member.role == kOwnerRole)
        layout->addWidget(badge(tr("Owner"), QStringLiteral("#00897B")), 0, Qt::AlignVCenter);
    layout->addStretch(1);
    if (removable) {
        auto *remove = new QPushButton(tr("Remove"), row);
        connect(remove, &QPushButton::clicked, this, [this, member] { onRemoveMember(member); });
        layout->addWidget(remove, 0, Qt::AlignVCenter);
    }
    return row;
}

void AccountScreen::showGroup(const Profile &profile, const Group &group)
{
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    if (profile.group.id.isEmpty()) {
        QWidget *none = section(tr("No Group"), tr("You're not part of a group. The group owner can invite "
                                                   "you, or you can join with an invite code."));
        auto *join = new QPushButton(tr("Join with Invite Code"));
        connect(join, &QPushButton::clicked, this, &AccountScreen::onJoinGroup);
        auto *row = new QHBoxLayout;
        row->addWidget(join);
        row->addStretch(1);
        sectionLayout(none)->addLayout(row);
        layout->addWidget(none);
        replaceContent(m_groupContent, content);
        return;
    }

    const bool owner = profile.group.role == kOwnerRole;
    const QString groupName = group.name.isEmpty() ? profile.group.name : group.name;
    layout->addWidget(section(groupName, QString()));
    layout->addSpacing(8);
    auto *members = new QLabel(tr("Members"));
    setWeight(members, 500);
    layout->addWidget(members);
    for (const GroupMember &member : group.members) {
        const bool self = member.authUserId == profile.id || member.accountId == profile.id;
        layout->addWidget(memberRow(member, owner && !self));
    }

    if (owner) {
        layout->addSpacing(16);
        layout->addWidget(section(tr("Pending Invitations"), QString()));
        if (group.pendingInvitations.isEmpty())
            layout->addWidget(mutedLabel(tr("No pending invitations.")));
        for (const GroupInvitation &invitation : group.pendingInvitations) {
            auto *row = new QWidget;
            QHBoxLayout *rowBox = rowLayout(row);
            const QString text = invitation.invitedEmail.isEmpty()
                                     ? tr("Invite code: %1").arg(invitation.inviteCode)
                                     : invitation.invitedEmail;
            auto *label = new QLabel(text, row);
            label->setTextInteractionFlags(Qt::TextSelectableByMouse);
            rowBox->addWidget(label);
            rowBox->addStretch(1);
            auto *revoke = new QPushButton(tr("Revoke"), row);
            const QString id = invitation.id;
            connect(revoke, &QPushButton::clicked, this, [this, id] { onRevokeInvitation(id); });
            rowBox->addWidget(revoke);
            layout->addWidget(row);
        }

        layout->addSpacing(16);
        QWidget *invite = section(tr("Invite Members"), QString());
        auto *buttons = new QHBoxLayout;
        auto *byEmail = new QPushButton(tr("Invite by Email"));
        auto *byCode = new QPushButton(tr("Generate Invite Code"));
        connect(byEmail, &QPushButton::clicked, this, &AccountScreen::onInviteByEmail);
        connect(byCode, &QPushButton::clicked, this, &AccountScreen::onGenerateInviteCode);
        buttons->addWidget(byEmail);
        buttons->addWidget(byCode);
        buttons->addStretch(1);
        sectionLayout(invite)->addLayout(buttons);
        layout->addWidget(invite);
    } else {
        layout->addSpacing(16);
        auto *leave = new QPushButton(tr("Leave Group"));
        connect(leave, &QPushButton::clicked, this, &AccountScreen::onLeaveGroup);
        auto *row = new QHBoxLayout;
        row->addWidget(leave);
        row->addStretch(1);
        layout->addLayout(row);
    }
    replaceContent(m_groupContent, content);
}

void AccountScreen::showDevices(const QList<Device> &devices)
{
    QWidget *content = section(tr("Registered Devices"), tr("Devices that have synced with your account."));
    auto *layout = sectionLayout(content);
    if (devices.isEmpty())
        layout->addWidget(mutedLabel(tr("No devices registered.")));
    for (const Device &device : devices) {
        auto *row = new QWidget;
        QHBoxLayout *rowBox = rowLayout(row);
        auto *texts = new QVBoxLayout;
        texts->setSpacing(2);
        const QString name = device.deviceName.isEmpty() ? tr("Unknown Device") : device.deviceName;
        texts->addWidget(new QLabel(QStringLiteral("<b>%1</b>").arg(name.toHtmlEscaped()), row));
        QString platform = device.platform;
        if (!device.appVersion.isEmpty())
            platform += tr("  ·  v%1").arg(device.appVersion);
        texts->addWidget(mutedLabel(platform, row));
        texts->addWidget(mutedLabel(relativeTime(device.lastSyncAt), row));
        rowBox->addLayout(texts, 1);
        auto *remove = new QPushButton(tr("Remove"), row);
        connect(remove, &QPushButton::clicked, this, [this, device] { onRemoveDevice(device); });
        rowBox->addWidget(remove, 0, Qt::AlignVCenter);
        layout->addWidget(row);
    }
    replaceContent(m_devicesContent, content);
}

void AccountScreen::showSessions(const QList<Session> &sessions)
{
    QWidget *content = section(tr("Active Sessions"), tr("Sessions currently signed in to your account."));
    auto *layout = sectionLayout(content);
    if (sessions.isEmpty())
        layout->addWidget(mutedLabel(tr("No active sessions.")));
    for (const Session &session : sessions) {
        auto *row = new QWidget;
        QHBoxLayout *rowBox = rowLayout(row);
        auto *texts = new QVBoxLayout;
        texts->setSpacing(2);
        QString agent = session.userAgent;
        if (agent.isEmpty())
            agent = tr("Unknown client");
        else if (agent.size() > kMaxUserAgentLength)
            agent = agent.left(kMaxUserAgentLength) + QStringLiteral("...");
        auto *top = new QHBoxLayout;
        top->setSpacing(8);
        auto *agentLabel = new QLabel(agent, row);
        agentLabel->setWordWrap(true);
        setWeight(agentLabel, 500);
        top->addWidget(agentLabel, 1);
        if (session.isCurrent)
            top->addWidget(badge(tr("Current"), QStringLiteral("#2E7D32")), 0, Qt::AlignTop);
        texts->addLayout(top);
        QString activity = relativeTime(session.lastActiveAt);
        if (!session.ipAddress.isEmpty())
            activity += tr("  ·  %1").arg(session.ipAddress);
        texts->addWidget(mutedLabel(activity, row));
        rowBox->addLayout(texts, 1);
        if (session.isCurrent) {
            rowBox->addWidget(mutedLabel(tr("This session"), row), 0, Qt::AlignVCenter);
        } else {
            auto *revoke = new QPushButton(tr("Revoke"), row);
            const QString id = session.id;
            connect(revoke, &QPushButton::clicked, this, [this, id] { onRevokeSession(id); });
            rowBox->addWidget(revoke, 0, Qt::AlignVCenter);
        }
        layout->addWidget(row);
    }
    replaceContent(m_sessionsContent, content);
}

void AccountScreen::showPrivacy(const Profile &profile)
{
    QWidget *content = section(tr("Danger Zone"),
                               tr("Permanently delete your account. This cannot be undone after 30 days."));
    auto *layout = sectionLayout(content);
    auto *remove = new QPushButton(tr("Delete Account"));
    remove->setStyleSheet(QStringLiteral(
        "QPushButton { color: white; background: #C62828; border: none;  border-radius: 4px; padding: 6px "
        "16px; font-weight: 600; }QPushButton:hover { background: #B71C1C; }QPushButton:disabled { "
        "background: #666; }"));
    connect(remove, &QPushButton::clicked, this, &AccountScreen::onDeleteAccount);
    auto *row = new QHBoxLayout;
    row->addWidget(remove);
    row->addStretch(1);
    layout->addLayout(row);
    if (profile.group.role == kOwnerRole) {
        remove->setEnabled(false);
        layout->addWidget(mutedLabel(tr("You are the group owner. Transfer ownership or remove all members "
                                        "before deleting your account.")));
    }
    replaceContent(m_privacyContent, content);
}

void AccountScreen::showError(const QString &text)
{
    m_status->setStyleSheet(QStringLiteral("color: #C62828; padding: 4px;"));
    m_status->setText(text);
    const int generation = ++m_statusGeneration;
    QTimer::singleShot(kStatusClearMs, this, [this, generation] {
        if (generation == m_statusGeneration)
            m_status->clear();
    });
}

void AccountScreen::showSuccess(const QString &text)
{
    m_status->setStyleSheet(QStringLiteral("color: #2E7D32; padding: 4px;"));
    m_status->setText(text);
    const int generation = ++m_statusGeneration;
    QTimer::singleShot(kStatusClearMs, this, [this, generation] {
        if (generation == m_statusGeneration)
            m_status->clear();
    });
}

QString AccountScreen::relativeTime(const QDateTime &when, const QDateTime &now)
{
    if (!when.isValid())
        return tr("Unknown");
    const qint64 seconds = when.toUTC().secsTo(now.toUTC());
    if (seconds < 60)
        return tr("Active now");
    if (seconds < 3600)
        return tr("%1m ago").arg(seconds / 60);
    if (seconds < 86400)
        return tr("%1h ago").arg(seconds / 3600);
    if (seconds < 604800)
        return tr("%1d ago").arg(seconds / 86400);
    return QLocale::c().toString(when.toLocalTime().date(), QStringLiteral("MMM d, yyyy"));
}

void AccountScreen::onEditDisplayName()
{
    const auto name = Prompter::text(this, tr("Edit Display Name"), tr("Display name:"), QLineEdit::Normal,
                                     m_profile.displayName);
    if (!name || name->trimmed().isEmpty())
        return;
    const QString wanted = name->trimmed();
    QPointer<AccountScreen> self(this);
    m_client->authClient()->updateProfile(wanted, [self, wanted](const User &user) {
        if (!self)
            return;
        // The call hands back the user it knew before when the server refused.
        if (user.displayName == wanted) {
            self->showSuccess(tr("Display name updated."));
            self->refreshProfile();
        } else {
            self->showError(tr("Failed to update profile."));
        }
    });
}

void AccountScreen::onChangePassword()
{
    const QString title = tr("Change Password");
    const auto current = Prompter::text(this, title, tr("Current password:"));
    if (!current || current->isEmpty())
        return;
    const auto fresh =
        Prompter::text(this, title, tr("New password (min 8 characters):"), QLineEdit::Password);
    if (!fresh || fresh->isEmpty())
        return;
    if (fresh->size() < kMinPasswordLength) {
        showError(tr("Password must be at least 8 characters."));
        return;
    }
    const auto confirm = Prompter::text(this, title, tr("Confirm new password:"), QLineEdit::Password);
    if (!confirm || confirm->isEmpty())
        return;
    if (*confirm != *fresh) {
        showError(tr("Passwords do not match."));
        return;
    }
    m_passwordButton->setEnabled(false);
    QPointer<AccountScreen> self(this);
    QPointer<QPushButton> button(m_passwordButton);
    m_client->authClient()->changePassword(*current, *fresh, [self, button](bool success) {
        if (!self)
            return;
        if (button)
            button->setEnabled(true);
        if (success)
            self->showSuccess(tr("Password changed."));
        else
            self->showError(tr("Failed to change password."));
    });
}

void AccountScreen::onJoinGroup()
{
    const auto code = Prompter::text(this, tr("Join Group"), tr("Enter invite code:"));
    if (!code || code->trimmed().isEmpty())
        return;
    QPointer<AccountScreen> self(this);
    m_client->accountClient()->joinGroup(code->trimmed(), [self](bool success) {
        if (!self)
            return;
        if (success)
            self->showSuccess(tr("Joined group."));
        else
            self->showError(tr("Invalid or expired invite code."));
    });
}

void AccountScreen::onRemoveMember(const GroupMember &member)
{
    const QString name = member.displayName.isEmpty() ? member.email : member.displayName;
    if (!Prompter::question(this, tr("Remove Member"), tr("Remove %1 from the group?").arg(name)))
        return;
    m_client->accountClient()->removeMember(member.accountId.isEmpty() ? member.authUserId
                                                                       : member.accountId);
    showSuccess(tr("%1 removed.").arg(name));
}

void AccountScreen::onLeaveGroup()
{
    if (!Prompter::question(this, tr("Leave Group"),
                            tr("Leave this group? You will lose access to shared data.")))
        return;
    m_client->accountClient()->leaveGroup();
    showSuccess(tr("Left group."));
}

void AccountScreen::onRevokeInvitation(const QString &id)
{
    m_client->accountClient()->cancelInvitation(id);
    showSuccess(tr("Invitation revoked."));
    QTimer::singleShot(kRefreshDelayMs, this, &AccountScreen::refreshGroup);
}

void AccountScreen::onInviteByEmail()
{
    const auto email = Prompter::text(this, tr("Invite Members"), tr("Email address:"));
    if (!email || email->trimmed().isEmpty())
        return;
    QPointer<AccountScreen> self(this);
    m_client->accountClient()->inviteByEmail(email->trimmed(), [self](const GroupInvitation &invitation) {
        if (!self)
            return;
        if (invitation.id.isEmpty())
            self->showError(tr("Failed to send invitation."));
        else
            self->showSuccess(tr("Invitation sent."));
        self->refreshGroup();
    });
}

void AccountScreen::onGenerateInviteCode()
{
    QPointer<AccountScreen> self(this);
    m_client->accountClient()->generateInviteCode([self](const GroupInvitation &invitation) {
        if (!self)
            return;
        if (invitation.inviteCode.isEmpty()) {
            self->showError(tr("Failed to generate code."));
            return;
        }
        Prompter::information(
            self, tr("Invite Code"),
            tr("Share this code with the person you want to invite:\n\n%1").arg(invitation.inviteCode));
        self->refreshGroup();
    });
}

void AccountScreen::onRemoveDevice(const Device &device)
{
    const QString name = device.deviceName.isEmpty() ? tr("Unknown Device") : device.deviceName;
    if (!Prompter::question(this, tr("Remove Device"), tr("Remove %1?").arg(name)))
        return;
    m_client->accountClient()->removeDevice(device.id);
    showSuccess(tr("Device removed."));
    QTimer::singleShot(kRefreshDelayMs, this, &AccountScreen::refreshDevices);
}

void AccountScreen::onRevokeSession(const QString &id)
{
    m_client->authClient()->revokeSession(id);
    showSuccess(tr("Session revoked."));
    QTimer::singleShot(kRefreshDelayMs, this, &AccountScreen::refreshSessions);
}

void AccountScreen::onDeleteAccount()
{
    const auto typed = Prompter::text(this, tr("Delete Account"),
                                      tr("This will schedule your account for permanent deletion after 30 "
                                         "days.\n\nType DELETE to confirm:"));
    if (!typed || *typed != QLatin1String("DELETE"))
        return;
    QPointer<AccountScreen> self(this);
    m_client->accountClient()->deleteAccount([self](bool success) {
        if (!self)
            return;
        if (!success) {
            self->showError(tr("Failed to delete account."));
            return;
        }
        Prompter::information(self, tr("Account Scheduled for Deletion"),
                              tr("Your account will be permanently deleted in 30 days. You can recover it "
                                 "by signing in before then."));
        // Signing in again is how the deletion is called off, so the session ends here.
        emit self->logoutRequested();
    });
}

} // namespace HalcAccount
