#include "account/AccountScreen.h"
#include "account/Prompter.h"
#include "account/ShareMembersDialog.h"
#include "support/Columns.h"
#include "support/Fixtures.h"
#include "support/ReferenceServer.h"
#include "support/Widgets.h"

#include <QListWidget>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>

using HalcAccount::AccountScreen;
using HalcAccount::Prompter;
using HalcAccount::ShareMembersDialog;
using Tab = HalcAccount::AccountScreen::Tab;

namespace {

constexpr int kWait = 10000;

QWidget *currentPage(const AccountScreen &screen)
{
    return screen.findChild<QStackedWidget *>()->currentWidget();
}

QString status(const AccountScreen &screen)
{
    return child<QLabel>(&screen, "accountStatus")->text();
}

void click(const AccountScreen &screen, const QString &text, int index = 0)
{
    const QList<QAbstractButton *> buttons = buttonsLabelled(currentPage(screen), text);
    QVERIFY2(buttons.size() > index, qPrintable(text));
    QTest::mouseClick(buttons.at(index), Qt::LeftButton);
}

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

// The account screen and the share dialog against the reference server; every question is scripted.
class TstAccountScreen : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_server = std::make_unique<ReferenceServer>();
        QVERIFY(m_server->start());
        Prompter::setScripted(true);
    }

    void cleanup()
    {
        Prompter::setScripted(false);
        m_server.reset();
    }

    void relativeTime_data()
    {
        addColumns<qint64, QString>({"secondsAgo", "expected"});
        QTest::newRow("59 s") << qint64(59) << "Active now";
        QTest::newRow("60 s") << qint64(60) << "1m ago";
        QTest::newRow("3599 s") << qint64(3599) << "59m ago";
        QTest::newRow("an hour") << qint64(3600) << "1h ago";
        QTest::newRow("a second short of a day") << qint64(86399) << "23h ago";
        QTest::newRow("a day") << qint64(86400) << "1d ago";
        QTest::newRow("a second short of a week") << qint64(604799) << "6d ago";
        QTest::newRow("7 days") << qint64(604800) << "Mar 8, 2026";
    }

    void relativeTime()
    {
        QFETCH(qint64, secondsAgo);
        // Noon UTC keeps the date the same in any local time zone the test runs in.
        const QDateTime now(QDate(2026, 3, 15), QTime(12, 0), Qt::UTC);
        QTEST(AccountScreen::relativeTime(now.addSecs(-secondsAgo), now), "expected");
        QCOMPARE(AccountScreen::relativeTime(QDateTime(), now), QStringLiteral("Unknown"));
    }

    void changePassword_data()
    {
        // answers: "<cancel>" cancels that box
        addColumns<QStringList, int, bool, QString>({"answers", "boxes", "sent", "expected"});
        const QString current = QStringLiteral("correct horse battery");
        QTest::newRow("7 characters")
            << QStringList{current, "1234567"} << 2 << false << "Password must be at least 8 characters.";
        QTest::newRow("mismatch") << QStringList{current, "12345678", "12345679"} << 3 << false
                                  << "Passwords do not match.";
        QTest::newRow("cancelled") << QStringList{current, "<cancel>"} << 2 << false << "";
        QTest::newRow("empty current") << QStringList{""} << 1 << false << "";
        QTest::newRow("wrong current") << QStringList{"not it at all", "12345678", "12345678"} << 3 << true
                                       << "Failed to change password.";
        QTest::newRow("changed") << QStringList{current, "12345678", "12345678"} << 3 << true
                                 << "Password changed.";
    }

    void changePassword()
    {
        QFETCH(QStringList, answers);
        QFETCH(QString, expected);
        const ServerUser alice = m_server->signUp(QStringLiteral("alice@example.test"));
        AccountScreen screen(m_server->clientFor(alice));
        screen.refresh();
        QTRY_VERIFY_WITH_TIMEOUT(labelText(currentPage(screen)).contains("alice@example.test"), kWait);
        for (const QString &answer : answers)
            Prompter::queueText(answer == "<cancel>" ? std::nullopt : std::optional<QString>(answer));

        click(screen, QStringLiteral("Change Password"));
        QTEST(Prompter::asked(), "boxes");
        // The button waits disabled exactly while a request is out.
        QTEST(!buttonsLabelled(currentPage(screen), "Change Password").first()->isEnabled(), "sent");
        QTRY_COMPARE_WITH_TIMEOUT(status(screen), expected, kWait);
    }

    void deleteAccount_data()
    {
        addColumns<QString, bool>({"typed", "deleted"});
        QTest::newRow("lower case") << "delete" << false;
        QTest::newRow("padded") << "DELETE " << false;
        QTest::newRow("exact") << "DELETE" << true;
    }

    void deleteAccount()
    {
        QFETCH(QString, typed);
        QFETCH(bool, deleted);
        const ServerUser alice = m_server->signUp(QStringLiteral("alice@example.test"));
        AccountScreen screen(m_server->clientFor(alice));
        QSignalSpy logout(&screen, &AccountScreen::logoutRequested);
        screen.setCurrentTab(Tab::Privacy);
        QTRY_VERIFY_WITH_TIMEOUT(!buttonsLabelled(currentPage(screen), "Delete Account").isEmpty(), kWait);
        Prompter::queueText(typed);
        click(screen, QStringLiteral("Delete Account"));
        if (deleted)
            QVERIFY(logout.wait(kWait));
        else
            QVERIFY(!logout.wait(300));
        QCOMPARE(status(screen), QString());
        const QJsonObject profile = m_server->call("GET", "/account/v1/profile", alice);
        QCOMPARE(profile.contains("deletion_scheduled_at"), deleted);
    }

    // Bob leaves the group on his screen, then Alice, its owner, manages what is left of it.
    void groupTab()
    {
        const ServerUser alice = m_server->signUp(QStringLiteral("alice@example.test"));
        const ServerUser bob = m_server->signUp(QStringLiteral("bob@example.test"));
        QVERIFY(m_server->makeGroup({alice, bob, m_server->signUp(QStringLiteral("carol@example.test"))}));
        {
            AccountScreen screen(m_server->clientFor(bob));
            screen.setCurrentTab(Tab::Group);
            QTRY_VERIFY_WITH_TIMEOUT(!buttonsLabelled(currentPage(screen), "Leave Group").isEmpty(), kWait);
            QVERIFY(buttonsLabelled(currentPage(screen), "Remove").isEmpty());
            QVERIFY(buttonsLabelled(currentPage(screen), "Invite by Email").isEmpty());
            Prompter::queueAnswer(false);
            click(screen, QStringLiteral("Leave Group"));
            QCOMPARE(status(screen), QString());
            Prompter::queueAnswer(true);
            click(screen, QStringLiteral("Leave Group"));
            QCOMPARE(status(screen), QStringLiteral("Left group."));
            QTRY_VERIFY_WITH_TIMEOUT(!buttonsLabelled(currentPage(screen), "Join with Invite Code").isEmpty(),
                                     kWait);
        }
        AccountScreen screen(m_server->clientFor(alice));
        screen.setCurrentTab(Tab::Group);
        QTRY_VERIFY_WITH_TIMEOUT(labelText(currentPage(screen)).contains("carol@example.test"), kWait);
        QVERIFY(labelText(currentPage(screen)).contains("Owner"));
        // The owner can remove everyone but themselves.
        QCOMPARE(buttonsLabelled(currentPage(screen), "Remove").size(), 1);
        QVERIFY(buttonsLabelled(currentPage(screen), "Leave Group").isEmpty());
        Prompter::queueText(QStringLiteral("dave@example.test"));
        click(screen, QStringLiteral("Invite by Email"));
        QTRY_COMPARE_WITH_TIMEOUT(status(screen), QStringLiteral("Invitation sent."), kWait);
        QTRY_VERIFY_WITH_TIMEOUT(labelText(currentPage(screen)).contains("dave@example.test"), kWait);
        click(screen, QStringLiteral("Generate Invite Code"));
        QTRY_COMPARE_WITH_TIMEOUT(Prompter::lastTitle(), QStringLiteral("Invite Code"), kWait);
        const QString code = Prompter::lastText().section('\n', -1);
        QVERIFY(!code.isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(labelText(currentPage(screen)).contains("Invite code: " + code), kWait);
        QCOMPARE(buttonsLabelled(currentPage(screen), "Revoke").size(), 2);
        Prompter::queueAnswer(true);
        click(screen, QStringLiteral("Remove"));
        QCOMPARE(Prompter::lastText(), QStringLiteral("Remove carol from the group?"));
        QCOMPARE(status(screen), QStringLiteral("carol removed."));
        QTRY_VERIFY_WITH_TIMEOUT(!labelText(currentPage(screen)).contains("carol@example.test"), kWait);
    }

    void devicesAndSessions()
    {
        const ServerUser alice = m_server->signUp(QStringLiteral("alice@example.test"));
        // clang-format off
        m_server->call("POST", "/account/v1/devices/register", alice,
                       {{"device_name", "Kitchen PC"}, {"platform", "Windows"}, {"app_id", "com.halcyra.ombrel"},
                        {"app_version", "1.2.0"}, {"device_fingerprint", "0123456789abcdef0123456789abcdef"}});
        // clang-format on
        AccountScreen screen(m_server->clientFor(alice));
        screen.setCurrentTab(Tab::Devices);
        QTRY_VERIFY_WITH_TIMEOUT(labelText(currentPage(screen)).contains("<b>Kitchen PC</b>"), kWait);
        QVERIFY(labelText(currentPage(screen)).contains("Windows  ·  v1.2.0"));

        Prompter::queueAnswer(true);
        click(screen, QStringLiteral("Remove"));
        QCOMPARE(Prompter::lastText(), QStringLiteral("Remove Kitchen PC?"));
        QTRY_VERIFY_WITH_TIMEOUT(labelText(currentPage(screen)).contains("No devices registered."), kWait);

        screen.setCurrentTab(Tab::Security);
        QTRY_VERIFY_WITH_TIMEOUT(labelText(currentPage(screen)).contains("This session"), kWait);
        QVERIFY(labelText(currentPage(screen)).contains("Active now"));
        QVERIFY(labelText(currentPage(screen)).contains("Current"));
    }

    // Alice shares her account with bob, fails to share with someone outside the group, and withdraws
    // bob's access again; what bob's devices then receive is the sync tests' concern.
    void shareFailAndWithdraw()
    {
        const ServerUser aliceUser = m_server->signUp(QStringLiteral("alice@example.test"));
        QVERIFY(m_server->makeGroup({aliceUser, m_server->signUp(QStringLiteral("bob@example.test")),
                                     m_server->signUp(QStringLiteral("carol@example.test"))}));
        SyncDevice alice(m_server->syncBase(), aliceUser);
        QVERIFY(alice.activate());
        QVERIFY(alice.accounts->insert(Fixtures::account(QStringLiteral("joint"), QStringLiteral("Joint"))));
        QVERIFY(alice.sync());
        ShareMembersDialog dialog(m_server->clientFor(aliceUser), alice.sharing, QStringLiteral("joint"), {});
        QSignalSpy changed(&dialog, &ShareMembersDialog::sharingChanged);
        dialog.loadShares();
        dialog.loadGroupMembers();
        QTRY_VERIFY_WITH_TIMEOUT(labelText(&dialog).contains("Not shared with anyone yet."), kWait);
        // Everyone of the group but alice herself is offered.
        QTRY_COMPARE_WITH_TIMEOUT(buttonsLabelled(&dialog, "Share").size(), 2, kWait);
        QTest::mouseClick(rowButton(dialog, "Share", "bob@example.test"), Qt::LeftButton);
        QVERIFY(dialog.isBusy());
        QTRY_COMPARE_WITH_TIMEOUT(sharedCount(dialog), 1, kWait);
        QCOMPARE(buttonsLabelled(&dialog, "Share").size(), 1);
        QVERIFY(!labelText(&dialog).contains("Not shared with anyone yet."));

        // Someone outside the group: the server refuses, the rows stay as they were.
        dialog.shareWithMember(QStringLiteral("nobody@example.test"), QStringLiteral("Nobody"));
        QTRY_VERIFY_WITH_TIMEOUT(!dialog.isBusy(), kWait);
        QVERIFY(!child<QLabel>(&dialog, "shareError")->isHidden());
        QCOMPARE(child<QLabel>(&dialog, "shareError")->text(),
                 QStringLiteral("Could not share with Nobody."));
        QCOMPARE(QStringLiteral("%1 shared, %2 offered, %3 changes")
                     .arg(sharedCount(dialog))
                     .arg(buttonsLabelled(&dialog, "Share").size())
                     .arg(changed.size()),
                 QStringLiteral("1 shared, 1 offered, 1 changes"));

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
        ShareMembersDialog dialog(m_server->clientFor(m_server->signUp(QStringLiteral("alice@example.test"))),
                                  nullptr, QStringLiteral("joint"), texts);
        dialog.loadGroupMembers();
        QTRY_VERIFY_WITH_TIMEOUT(labelText(&dialog).contains("No family group."), kWait);
        QVERIFY(buttonsLabelled(&dialog, "Share").isEmpty());
    }

private:
    std::unique_ptr<ReferenceServer> m_server;
};

QTEST_MAIN(TstAccountScreen)
#include "tst_accountscreen.moc"
