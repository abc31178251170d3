#include "account/Prompter.h"
#include "account/ShareMembersDialog.h"
#include "support/Fixtures.h"
#include "support/ReferenceServer.h"
#include "support/Widgets.h"

#include <QSignalSpy>
#include <QTest>

using HalcAccount::Prompter;
using HalcAccount::ShareMembersDialog;

namespace {

constexpr int kWait = 10000;

// The people-with-access rows hold "Remove access" buttons, the add rows "Share" buttons.
int sharedCount(const ShareMembersDialog &dialog)
{
    return int(buttonsLabelled(&dialog, QStringLiteral("Remove access")).size());
}

// The button of the row that names who; members who joined in the same second come in any order.
QAbstractButton *rowButton(const ShareMembersDialog &dialog, const QString &text, const QString &who)
{
    for (QAbstractButton *button : buttonsLabelled(&dialog, text)) {
        if (labelText(button->parentWidget()).contains(who))
            return button;
    }
    return nullptr;
}

} // namespace

// The share dialog with alice's device as the backend: alice, bob and carol form one family group.
class TstShareMembersDialog : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_server = std::make_unique<ReferenceServer>();
        QVERIFY(m_server->start());
        m_alice = m_server->signUp(QStringLiteral("alice@example.test"));
        m_bob = m_server->signUp(QStringLiteral("bob@example.test"));
        m_carol = m_server->signUp(QStringLiteral("carol@example.test"));
        Prompter::setScripted(true);
    }

    void cleanup()
    {
        Prompter::setScripted(false);
        m_server.reset();
    }

    void shareFailAndWithdraw()
    {
        QVERIFY(m_server->makeGroup({m_alice, m_bob, m_carol}));
        SyncDevice alice(m_server->syncBase(), m_alice), bob(m_server->syncBase(), m_bob);
        QVERIFY(alice.activate());
        QVERIFY(alice.accounts->insert(Fixtures::account(QStringLiteral("joint"), QStringLiteral("Joint"))));
        QVERIFY(alice.sync());
        HalcAccount::Client *client = m_server->clientFor(m_alice);
        {
            ShareMembersDialog dialog(client, alice.sharing, QStringLiteral("joint"), {});
            QSignalSpy changed(&dialog, &ShareMembersDialog::sharingChanged);
            dialog.loadShares();
            dialog.loadGroupMembers();
            QTRY_VERIFY_WITH_TIMEOUT(labelText(&dialog).contains("Not shared with anyone yet."), kWait);
            // Everyone of the group but alice herself is offered.
            QTRY_COMPARE_WITH_TIMEOUT(buttonsLabelled(&dialog, "Share").size(), 2, kWait);
            QVERIFY(labelText(&dialog).contains("carol@example.test"));

            QVERIFY(rowButton(dialog, "Share", "bob@example.test"));
            QTest::mouseClick(rowButton(dialog, "Share", "bob@example.test"), Qt::LeftButton);
            QVERIFY(dialog.isBusy());
            QTRY_COMPARE_WITH_TIMEOUT(sharedCount(dialog), 1, kWait);
            QCOMPARE(changed.size(), 1);
            QCOMPARE(buttonsLabelled(&dialog, "Share").size(), 1);
            QVERIFY(!labelText(&dialog).contains("Not shared with anyone yet."));

            // Someone outside the group: the server refuses, the rows stay as they were.
            dialog.shareWithMember(QStringLiteral("nobody@example.test"), QStringLiteral("Nobody"));
            auto *error = child<QLabel>(&dialog, "shareError");
            QTRY_VERIFY_WITH_TIMEOUT(!dialog.isBusy(), kWait);
            QVERIFY(!error->isHidden());
            QCOMPARE(error->text(), QStringLiteral("Could not share with Nobody."));
            QCOMPARE(sharedCount(dialog), 1);
            QCOMPARE(buttonsLabelled(&dialog, "Share").size(), 1);
            QCOMPARE(changed.size(), 1);
        }
        alice.deactivate();

        QVERIFY(bob.activate());
        QVERIFY(bob.sync());
        const auto joint = bob.accounts->getById(QStringLiteral("joint"));
        QVERIFY(joint);
        QVERIFY(joint->isShared);
        bob.deactivate();

        QVERIFY(alice.activate());
        ShareMembersDialog dialog(client, alice.sharing, QStringLiteral("joint"), {});
        dialog.loadShares();
        dialog.loadGroupMembers();
        QTRY_COMPARE_WITH_TIMEOUT(sharedCount(dialog), 1, kWait);
        Prompter::queueAnswer(false);
        QTest::mouseClick(rowButton(dialog, "Remove access", "bob@example.test"), Qt::LeftButton);
        QCOMPARE(Prompter::lastText(), QStringLiteral("bob will no longer have access. Continue?"));
        QVERIFY(!dialog.isBusy());

        Prompter::queueAnswer(true);
        QTest::mouseClick(rowButton(dialog, "Remove access", "bob@example.test"), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(labelText(&dialog).contains("Not shared with anyone yet."), kWait);
        QCOMPARE(sharedCount(dialog), 0);
        QCOMPARE(buttonsLabelled(&dialog, "Share").size(), 2);
    }

    void userWithoutGroup()
    {
        HalcAccount::ShareDialogTexts texts;
        texts.noGroup = QStringLiteral("No family group.");
        ShareMembersDialog dialog(m_server->clientFor(m_alice), nullptr, QStringLiteral("joint"), texts);
        dialog.loadGroupMembers();
        QTRY_VERIFY_WITH_TIMEOUT(labelText(&dialog).contains("No family group."), kWait);
        QVERIFY(buttonsLabelled(&dialog, "Share").isEmpty());
    }

private:
    std::unique_ptr<ReferenceServer> m_server;
    ServerUser m_alice;
    ServerUser m_bob;
    ServerUser m_carol;
};

QTEST_MAIN(TstShareMembersDialog)
#include "tst_sharemembersdialog.moc"
