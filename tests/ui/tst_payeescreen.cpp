#include "ui/PayeeScreen.h"

#include "core/AppState.h"
#include "data/AccountRepository.h"
#include "data/Database.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "ui/Prompt.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TstPayeeScreen : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void renameCountsLiveRowsOfEveryAccount();
    void renameToTheSameNameReportsNothing();
    void renameNeedsANameAndASelection();
    void mergeIntoTheFirstSelected();
    void mergeIntoTheTypedName();
    void mergeNeedsTwoAndAYes();

private:
    void select(const QStringList &payees);
    void click(const char *button);
    int rowsNamed(const QString &payee);

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<PayeeScreen> m_screen;
    QListWidget *m_list = nullptr;
};

void TstPayeeScreen::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking"))));
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("b"), QStringLiteral("Visa"))));
    TransactionRepository *t = m_state->transactions();
    const QDate day(2025, 5, 1);
    QVERIFY(t->insert(Fixtures::transaction("1", "a", day, "STARBUCKS #12", -450)));
    QVERIFY(t->insert(Fixtures::transaction("2", "b", day, "STARBUCKS #12", -300)));
    QVERIFY(t->insert(Fixtures::transaction("3", "a", day, "Starbucks", -500)));
    QVERIFY(t->insert(Fixtures::transaction("4", "a", day, "starbucks coffee", -250)));
    QVERIFY(t->insert(Fixtures::transaction("5", "a", day, "Grocer", -2000)));
    QVERIFY(t->insert(Fixtures::transaction("gone", "a", day, "STARBUCKS #12", -100)));
    QVERIFY(t->softDelete(QStringLiteral("gone")));
    m_screen = std::make_unique<PayeeScreen>(m_state.get());
    m_list = m_screen->findChild<QListWidget *>(QStringLiteral("payeeList"));
}

void TstPayeeScreen::cleanup()
{
    m_screen.reset();
    m_state.reset();
}

// Selects by clicking, the first with a plain click and the rest with Ctrl, as a user would.
void TstPayeeScreen::select(const QStringList &payees)
{
    m_screen->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_screen.get()));
    Qt::KeyboardModifiers modifiers;
    for (const QString &payee : payees) {
        const QList<QListWidgetItem *> found = m_list->findItems(payee, Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        QTest::mouseClick(m_list->viewport(), Qt::LeftButton, modifiers,
                          m_list->visualItemRect(found.first()).center());
        modifiers = Qt::ControlModifier;
    }
    QCOMPARE(m_list->selectedItems().size(), payees.size());
}

void TstPayeeScreen::click(const char *button)
{
    QTest::mouseClick(m_screen->findChild<QPushButton *>(QLatin1String(button)), Qt::LeftButton);
}

int TstPayeeScreen::rowsNamed(const QString &payee)
{
    QSqlQuery q(m_state->database()->connection());
    q.prepare(QStringLiteral("SELECT COUNT(*) FROM transactions WHERE payee = ?"));
    q.addBindValue(payee);
    return q.exec() && q.next() ? q.value(0).toInt() : -1;
}

void TstPayeeScreen::renameCountsLiveRowsOfEveryAccount()
{
    QCOMPARE(m_list->count(), 4);
    QSqlQuery synced(m_state->database()->connection());
    QVERIFY(synced.exec(QStringLiteral("UPDATE transactions SET sync_status = 'synced'")));
    QSignalSpy changed(m_screen.get(), &PayeeScreen::payeesChanged);
    select({"STARBUCKS #12"});
    m_screen->findChild<QLineEdit *>(QStringLiteral("nameEdit"))->setText(QStringLiteral("  Starbucks  "));
    Prompt::setNextAnswer(QMessageBox::Ok);
    click("renameButton");
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Rename Complete"));
    QCOMPARE(Prompt::lastText(), QStringLiteral("Renamed 2 transaction(s)."));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(rowsNamed(QStringLiteral("Starbucks")), 3);
    // The deleted row keeps its name.
    QCOMPARE(rowsNamed(QStringLiteral("STARBUCKS #12")), 1);
    const std::optional<Transaction> renamed = m_state->transactions()->getById(QStringLiteral("2"));
    QCOMPARE(renamed->syncStatus, SyncStatus::Pending);
    QCOMPARE(renamed->version, 1);
    QCOMPARE(m_state->transactions()->getById(QStringLiteral("5"))->syncStatus, SyncStatus::Synced);
    QCOMPARE(m_list->count(), 3);
}

void TstPayeeScreen::renameToTheSameNameReportsNothing()
{
    select({"Starbucks"});
    m_screen->findChild<QLineEdit *>(QStringLiteral("nameEdit"))->setText(QStringLiteral("Starbucks"));
    Prompt::setNextAnswer(QMessageBox::Ok);
    click("renameButton");
    QCOMPARE(Prompt::lastText(), QStringLiteral("Renamed 0 transaction(s)."));
    QCOMPARE(m_state->transactions()->getById(QStringLiteral("3"))->updatedAt,
             QDateTime(QDate(2025, 5, 1), QTime(12, 0), Qt::UTC));
}

void TstPayeeScreen::renameNeedsANameAndASelection()
{
    QSignalSpy changed(m_screen.get(), &PayeeScreen::payeesChanged);
    m_screen->findChild<QLineEdit *>(QStringLiteral("nameEdit"))->setText(QStringLiteral("Coffee"));
    click("renameButton");
    select({"Grocer"});
    m_screen->findChild<QLineEdit *>(QStringLiteral("nameEdit"))->setText(QStringLiteral("   "));
    click("renameButton");
    QCOMPARE(changed.count(), 0);
    QCOMPARE(rowsNamed(QStringLiteral("Grocer")), 1);
}

void TstPayeeScreen::mergeIntoTheFirstSelected()
{
    // Clicked from the bottom of the list up: the first clicked is the target.
    select({"starbucks coffee", "STARBUCKS #12", "Starbucks"});
    Prompt::setNextAnswer(QMessageBox::Yes);
    Prompt::setNextAnswer(QMessageBox::Ok);
    click("mergeButton");
    QCOMPARE(Prompt::lastText(), QStringLiteral("Merged 3 transaction(s)."));
    QCOMPARE(rowsNamed(QStringLiteral("starbucks coffee")), 4);
    // The target's own row was not touched.
    QCOMPARE(m_state->transactions()->getById(QStringLiteral("4"))->syncStatus, SyncStatus::Pending);
    QCOMPARE(m_state->transactions()->getById(QStringLiteral("4"))->updatedAt,
             QDateTime(QDate(2025, 5, 1), QTime(12, 0), Qt::UTC));
    QCOMPARE(m_list->count(), 2);
}

void TstPayeeScreen::mergeIntoTheTypedName()
{
    select({"Starbucks", "starbucks coffee"});
    m_screen->findChild<QLineEdit *>(QStringLiteral("nameEdit"))->setText(QStringLiteral("Coffee "));
    Prompt::setNextAnswer(QMessageBox::Yes);
    Prompt::setNextAnswer(QMessageBox::Ok);
    click("mergeButton");
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Merge Complete"));
    QCOMPARE(Prompt::lastText(), QStringLiteral("Merged 2 transaction(s)."));
    QCOMPARE(rowsNamed(QStringLiteral("Coffee")), 2);
}

void TstPayeeScreen::mergeNeedsTwoAndAYes()
{
    QSignalSpy changed(m_screen.get(), &PayeeScreen::payeesChanged);
    select({"Grocer"});
    Prompt::setNextAnswer(QMessageBox::Ok);
    click("mergeButton");
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Merge"));
    QCOMPARE(Prompt::lastText(), QStringLiteral("Select 2 or more payees to merge."));

    select({"Grocer", "Starbucks"});
    Prompt::setNextAnswer(QMessageBox::No);
    click("mergeButton");
    QCOMPARE(Prompt::lastText(), QStringLiteral("Merge 2 payees into \"Grocer\"?"));
    QCOMPARE(rowsNamed(QStringLiteral("Starbucks")), 1);
    QCOMPARE(changed.count(), 0);
}

QTEST_MAIN(TstPayeeScreen)
#include "tst_payeescreen.moc"
