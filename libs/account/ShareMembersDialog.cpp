#include "account/ShareMembersDialog.h"

#include "account/AccountClient.h"
#include "account/Client.h"
#include "account/Prompter.h"
#include "account/SharingBackend.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace HalcAccount {

namespace {

constexpr int kAvatarSize = 36;
const QString kOwnerRole = QStringLiteral("owner");

void setWeight(QWidget *widget, int weight)
{
    QFont font = widget->font();
    font.setWeight(QFont::Weight(weight));
    widget->setFont(font);
}

// Up to two letters: of the first and last word of the name, else of the address.
QString initials(const QString &name)
{
    const QStringList words = name.section(QLatin1Char('@'), 0, 0)
                                  .split(QRegularExpression(QStringLiteral("[\\s._-]+")), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return QStringLiteral("?");
    QString letters = words.first().left(1);
    if (words.size() > 1)
        letters += words.last().left(1);
    return letters.toUpper();
}

QLabel *avatar(const QString &name)
{
    auto *label = new QLabel(initials(name));
    label->setFixedSize(kAvatarSize, kAvatarSize);
    label->setAlignment(Qt::AlignCenter);
    QColor color = QApplication::palette().color(QPalette::Highlight);
    label->setStyleSheet(
        QStringLiteral("QLabel { background: %1; color: white; border-radius: %2px; font-weight: 600; }")
            .arg(QStringLiteral("rgba(%1,%2,%3,0.55)").arg(color.red()).arg(color.green()).arg(color.blue()))
            .arg(kAvatarSize / 2));
    return label;
}

void clearLayout(QLayout *layout)
{
    while (QLayoutItem *item = layout->takeAt(0)) {
        if (QWidget *widget = item->widget()) {
            // Out of the tree at once, so nothing finds the old rows; deleted once the click that
            // may have led here has returned.
            widget->hide();
            widget->setParent(nullptr);
            widget->deleteLater();
        }
        delete item;
    }
}

QLabel *mutedLabel(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    label->setStyleSheet(QStringLiteral("color: #6E8A7E;"));
    return label;
}

QLabel *sectionLabel(const QString &text)
{
    auto *label = new QLabel(text);
    setWeight(label, 600);
    return label;
}

} // namespace

ShareMembersDialog::ShareMembersDialog(Client *client, SharingBackend *backend, const QString &accountId,
                                       const ShareDialogTexts &texts, QWidget *parent)
    : QDialog(parent)
    , m_client(client)
    , m_backend(backend)
    , m_accountId(accountId)
    , m_texts(texts)
{
    setupUi();
}

ShareMembersDialog::~ShareMembersDialog() = default;

QString ShareMembersDialog::text(const QString &fromRecord, const QString &builtIn) const
{
    return fromRecord.isEmpty() ? builtIn : fromRecord;
}

void ShareMembersDialog::setupUi()
{
    setWindowTitle(text(m_texts.windowTitle, tr("Share Account")));
    setMinimumSize(560, 560);
    resize(620, 620);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(8);

    if (!m_texts.heading.isEmpty()) {
        auto *heading = new QLabel(m_texts.heading, this);
        QFont font = heading->font();
        font.setPointSizeF(font.pointSizeF() + 3);
        font.setWeight(QFont::Weight(600));
        heading->setFont(font);
        heading->setWordWrap(true);
        layout->addWidget(heading);
    }
    if (!m_texts.description.isEmpty())
        layout->addWidget(mutedLabel(m_texts.description));
    layout->addSpacing(8);

    // A large group outgrows the dialog; the rows scroll, the buttons stay.
    auto *scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto *body = new QWidget;
    auto *bodyLayout = new QVBoxLayout(body);
    bodyLayout->setContentsMargins(0, 0, 0, 0);
    bodyLayout->setSpacing(6);
    bodyLayout->addWidget(sectionLabel(text(m_texts.listLabel, tr("People with access"))));
    m_sharedRows = new QVBoxLayout;
    m_sharedRows->setSpacing(0);
    bodyLayout->addLayout(m_sharedRows);
    auto *separator = new QFrame(body);
    separator->setFrameShape(QFrame::HLine);
    separator->setStyleSheet(QStringLiteral("color: rgba(128,128,128,0.25);"));
    bodyLayout->addSpacing(6);
    bodyLayout->addWidget(separator);
    bodyLayout->addSpacing(6);
    bodyLayout->addWidget(sectionLabel(tr("Add people")));
    m_addRows = new QVBoxLayout;
    m_addRows->setSpacing(0);
    bodyLayout->addLayout(m_addRows);
    bodyLayout->addStretch(1);
    scroll->setWidget(body);
    layout->addWidget(scroll, 1);

    m_error = new QLabel(this);
    m_error->setObjectName(QStringLiteral("shareError"));
    m_error->setStyleSheet(QStringLiteral("QLabel { color: #b00020; padding: 4px 0; }"));
    m_error->setWordWrap(true);
    m_error->hide();
    layout->addWidget(m_error);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto *close = new QPushButton(text(m_texts.close, tr("Close")), this);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    buttons->addWidget(close);
    layout->addLayout(buttons);

    m_sharedRows->addWidget(mutedLabel(tr("Loading...")));
    m_addRows->addWidget(mutedLabel(tr("Loading...")));
}

QWidget *ShareMembersDialog::personRow(const QString &name, const QString &email, QWidget *action)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 4, 0, 4);
    layout->setSpacing(10);
    layout->addWidget(avatar(name.isEmpty() ? email : name));
    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    auto *nameLabel = new QLabel(name.isEmpty() ? email : name, row);
    setWeight(nameLabel, 500);
    texts->addWidget(nameLabel);
    if (!email.isEmpty() && email != nameLabel->text())
        texts->addWidget(mutedLabel(email));
    layout->addLayout(texts, 1);
    if (action)
        layout->addWidget(action, 0, Qt::AlignVCenter);
    return row;
}

void ShareMembersDialog::loadShares()
{
    QPointer<ShareMembersDialog> self(this);
    m_backend->listMembers(m_accountId, [self](const QList<ShareMember> &shares) {
        if (self)
            self->showShares(shares);
    });
}

void ShareMembersDialog::loadGroupMembers()
{
    QPointer<ShareMembersDialog> self(this);
    m_client->accountClient()->getProfile([self](const Profile &profile) {
        if (!self)
            return;
        if (profile.group.id.isEmpty()) {
            self->showGroupMembers({}, profile.id, true);
            return;
        }
        const QString selfId = profile.id;
        self->m_client->accountClient()->getGroup([self, selfId](const Group &group) {
            if (self)
                self->showGroupMembers(group.members, selfId, false);
        });
    });
}

void ShareMembersDialog::showShares(const QList<ShareMember> &shares)
{
    m_shares = shares;
    clearLayout(m_sharedRows);
    for (const ShareMember &share : shares) {
        QWidget *action = nullptr;
        if (share.role == kOwnerRole) {
            // The owner's access is not the owner's to withdraw here.
            action = mutedLabel(tr("Owner"));
        } else {
            auto *remove = new QPushButton(text(m_texts.remove, tr("Remove access")));
            const QString id = share.userId.isEmpty() ? share.id : share.userId;
            const QString name = share.displayName.isEmpty() ? share.email : share.displayName;
            connect(remove, &QPushButton::clicked, this, [this, id, name] { removeShare(id, name); });
            action = remove;
        }
        m_sharedRows->addWidget(personRow(share.displayName, share.email, action));
    }
    // The owner always has access, so only the others make the account shared.
    const bool sharedWithAnyone = std::any_of(
        shares.begin(), shares.end(), [](const ShareMember &share) { return share.role != kOwnerRole; });
    if (!sharedWithAnyone)
        m_sharedRows->addWidget(mutedLabel(text(m_texts.empty, tr("Not shared with anyone yet."))));
    if (m_groupLoaded)
        rebuildAddRows();
}

void ShareMembersDialog::showGroupMembers(const QList<GroupMember> &members, const QString &selfId,
                                          bool noGroup)
{
    m_groupMembers = members;
    m_selfId = selfId;
    m_noGroup = noGroup;
    m_groupLoaded = true;
    rebuildAddRows();
}

bool ShareMembersDialog::hasAccess(const GroupMember &member) const
{
    for (const ShareMember &share : m_shares) {
        if (!share.userId.isEmpty() &&
            (share.userId == member.authUserId || share.userId == member.accountId))
            return true;
        if (!share.email.isEmpty() && share.email.compare(member.email, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

void ShareMembersDialog::rebuildAddRows()
{
    clearLayout(m_addRows);
    if (m_noGroup) {
        m_addRows->addWidget(mutedLabel(text(
            m_texts.noGroup, tr("You're not in a family group yet. Sharing needs one: invite someone "
                                "from your Halcyra account's Group page, or join with an invite code."))));
        return;
    }
    int offered = 0;
    for (const GroupMember &member : m_groupMembers) {
        if (member.authUserId == m_selfId || member.accountId == m_selfId || hasAccess(member))
            continue;
        auto *share = new QPushButton(text(m_texts.add, tr("Share")));
        const QString id = member.authUserId.isEmpty() ? member.accountId : member.authUserId;
        const QString name = member.displayName.isEmpty() ? member.email : member.displayName;
        connect(share, &QPushButton::clicked, this, [this, id, name] { shareWithMember(id, name); });
        m_addRows->addWidget(personRow(member.displayName, member.email, share));
        ++offered;
    }
    if (offered == 0)
        m_addRows->addWidget(mutedLabel(tr("All group members already have access")));
}

void ShareMembersDialog::showErrorText(const QString &title, const QString &text, const QString &detail)
{
    m_error->setText(text);
    m_error->setToolTip(detail.isEmpty() ? title : QStringLiteral("%1: %2").arg(title, detail));
    m_error->show();
}

void ShareMembersDialog::shareWithMember(const QString &memberId, const QString &name)
{
    if (m_busy)
        return;
    m_busy = true;
    m_error->hide();
    QPointer<ShareMembersDialog> self(this);
    m_backend->shareWith(m_accountId, memberId, text(m_texts.defaultRole, QStringLiteral("member")),
                         [self, name](bool success, const QString &error) {
                             if (!self)
                                 return;
                             self->m_busy = false;
                             if (!success) {
                                 self->showErrorText(
                                     self->text(self->m_texts.shareFailedTitle, tr("Share Failed")),
                                     tr("Could not share with %1.").arg(name), error);
                                 return;
                             }
                             emit self->sharingChanged();
                             self->loadShares();
                         });
}

void ShareMembersDialog::removeShare(const QString &memberId, const QString &name)
{
    if (m_busy)
        return;
    const QString question = text(m_texts.confirmText, tr("%1 will no longer have access. Continue?"));
    if (!Prompter::question(this, text(m_texts.confirmTitle, tr("Remove access?")), question.arg(name)))
        return;
    m_busy = true;
    m_error->hide();
    QPointer<ShareMembersDialog> self(this);
    m_backend->removeShare(m_accountId, memberId, [self, name](bool success) {
        if (!self)
            return;
        self->m_busy = false;
        if (!success) {
            self->showErrorText(self->text(self->m_texts.removeFailedTitle, tr("Remove Failed")),
                                tr("Could not remove %1.").arg(name));
            return;
        }
        emit self->sharingChanged();
        self->loadShares();
    });
}

} // namespace HalcAccount
