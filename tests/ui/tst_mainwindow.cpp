#include "account/AuthClient.h"
#include "account/Client.h"
#include "core/AppState.h"
#include "core/Dates.h"
#include "core/ThemeManager.h"
#include "data/AccountRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/RecurringRepository.h"
#include "data/TransactionRepository.h"
#include "services/RecurringService.h"
#include "support/Fixtures.h"
#include "support/Jwt.h"
#include "support/ScriptedServer.h"
#include "sync/SyncEngine.h"
#include "ui/MainWindow.h"
#include "ui/Prompt.h"
#include "ui/ReconciliationScreen.h"
#include "ui/RecurringScreen.h"
#include "ui/SettingsScreen.h"
#include "ui/StatusBar.h"
#include "ui/register/RegisterScreen.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QUrlQuery>

#include <algorithm>

#include <memory>
#include <tuple>

// Stands in for the system browser: the login page signs in at once and sends the tokens back.
class Browser : public QObject {
    Q_OBJECT
public:
    QList<QUrl> opened;
public slots:
    void open(const QUrl &url)
    {
        opened.append(url);
        const QUrl redirect(QUrlQuery(url).queryItemValue("redirect_uri", QUrl::FullyDecoded));
        auto *socket = new QTcpSocket(this);
        socket->connectToHost(QHostAddress::LocalHost, quint16(redirect.port()));
        socket->write("GET /callback?access_token=" + jwt(600).toUtf8() +
                      "&refresh_token=r1 HTTP/1.1\r\n\r\n");
    }
};

class TstMainWindow : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();
    void listShowsBalancesAndAddsCurrenciesIntoTheTotal();
    void rowWritesReachTheListOnTheNextTurn();
    void tenAccountsGetAltShortcutsAndTheEleventhNone();
    void draggingAnAccountStoresTheNewOrder();
    void newAccountWritesOneOpeningTransaction_data();
    void newAccountWritesOneOpeningTransaction();
    void deleteCascadesAndLeavesTheRegister_data();
    void deleteCascadesAndLeavesTheRegister();
    void initialPage_data();
    void initialPage();
    void autoPostRunsAtStartAndTheDueCountFollows();
    void reconcileAndRecurringOpenAsWindows();
    void sampleDataEntriesOnlyInDevelopment_data();
    void sampleDataEntriesOnlyInDevelopment();
    void sampleDataLoadsAndClearsFromTheMenu();
    void restoreInPreferencesReloadsTheList();
    void anImportedFirstAccountOpensItsRegister();
    void screensOpenLargerUnderALargeFont();
    void screensOpenOnceInWindowsOfTheirOwn_data();
    void screensOpenOnceInWindowsOfTheirOwn();
    void signInSyncsAndSignOutStops();
    void sharingAsksToSignInFirst_data();
    void sharingAsksToSignInFirst();

private:
    // A fresh data directory, AppState and window; accounts are added before the window is built.
    void start(const QList<Account> &accounts = {});

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<MainWindow> m_window;
    ScriptedServer m_server;
    Browser m_browser;
};

// Every service the program talks to is this process's server, and the browser is the stand-in.
void TstMainWindow::initTestCase()
{
    QVERIFY(m_server.listen());
    const QByteArray base = m_server.baseUrl().toEncoded();
    qputenv("AUTH_BASE_URL", base + "/auth");
    qputenv("ACCOUNT_API_URL", base + "/account/v1");
    qputenv("SYNC_API_URL", base + "/ombrel/v1");
    QDesktopServices::setUrlHandler(QStringLiteral("http"), &m_browser, "open");
}

void TstMainWindow::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
}

void TstMainWindow::cleanup()
{
    m_window.reset();
    m_state.reset();
}

void TstMainWindow::start(const QList<Account> &accounts)
{
    for (const Account &a : accounts)
        QVERIFY(m_state->accounts()->insert(a));
    m_window = std::make_unique<MainWindow>(m_state.get());
    m_window->show();
}

void TstMainWindow::listShowsBalancesAndAddsCurrenciesIntoTheTotal()
{
    Account usd = Fixtures::account(QStringLiteral("usd"), QStringLiteral("Checking"));
    Account yen = Fixtures::account(QStringLiteral("yen"), QStringLiteral("Tokyo"), 5000);
    yen.currency = Currency::JPY;
    start({usd, yen});
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
        QStringLiteral("t"), QStringLiteral("usd"), QDate(2026, 1, 1), QStringLiteral("Rent"), -12550)));
    QCoreApplication::processEvents();

    auto *list = m_window->findChild<QListWidget *>(QStringLiteral("accountList"));
    QCOMPARE(list->count(), 2);
    QStringList amounts;
    for (int row = 0; row < list->count(); ++row) {
        for (const QLabel *label : list->itemWidget(list->item(row))->findChildren<QLabel *>()) {
            if (label->text().contains(QLatin1String("$")) || label->text().contains(QStringLiteral("¥")))
                amounts << label->text();
        }
    }
    QCOMPARE(amounts, (QStringList{"-$125.50", "¥5,000"}));
    // 5000 yen and -12550 cents added as plain numbers, then shown as dollars.
    QCOMPARE(m_window->findChild<QLabel *>(QStringLiteral("totalLabel"))->text(),
             QStringLiteral("Total: -$75.50"));

    // A burst of changes to one account re-reads that balance once it is over, and leaves the other
    // account's row as it was built.
    const QPointer<QLabel> other =
        list->itemWidget(list->item(1))->findChild<QLabel *>(QStringLiteral("accountBalance"));
    QVERIFY(other);
    for (int i = 0; i < 3; ++i)
        QVERIFY(m_state->transactions()->insert(
            Fixtures::transaction(QStringLiteral("burst%1").arg(i), QStringLiteral("usd"), QDate(2026, 1, 2),
                                  QStringLiteral("Pay"), 10000)));
    QTRY_COMPARE(m_window->findChild<QLabel *>(QStringLiteral("totalLabel"))->text(),
                 QStringLiteral("Total: $224.50"));
    QCOMPARE(list->itemWidget(list->item(0))->findChild<QLabel *>(QStringLiteral("accountBalance"))->text(),
             QStringLiteral("$174.50"));
    QVERIFY(other);
    QCOMPARE(other->text(), QStringLiteral("¥5,000"));
}

// A sync's pull writes row by row behind the window's back: the first row shows at once, the rest of
// the burst once, on the next turn, not per row.
void TstMainWindow::rowWritesReachTheListOnTheNextTurn()
{
    start({Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking"))});
    const auto *total = m_window->findChild<QLabel *>(QStringLiteral("totalLabel"));
    for (int i = 0; i < 20; ++i)
        QVERIFY(m_state->transactions()->insert(Fixtures::transaction(QStringLiteral("t%1").arg(i),
                                                                      QStringLiteral("a"), QDate(2026, 1, 2),
                                                                      QStringLiteral("Pulled"), -100)));
    QCOMPARE(total->text(), QStringLiteral("Total: -$1.00"));
    QCoreApplication::processEvents();
    QCOMPARE(total->text(), QStringLiteral("Total: -$20.00"));
}

void TstMainWindow::tenAccountsGetAltShortcutsAndTheEleventhNone()
{
    QList<Account> accounts;
    for (int i = 0; i < 11; ++i) {
        Account a = Fixtures::account(QStringLiteral("a%1").arg(i),
                                      QStringLiteral("Account %1").arg(i, 2, 10, QLatin1Char('0')));
        a.sortOrder = i;
        accounts << a;
    }
    start(accounts);
    const QList<QShortcut *> shortcuts = m_window->findChildren<QShortcut *>();
    QStringList keys;
    for (const QShortcut *s : shortcuts)
        keys << s->key().toString(QKeySequence::PortableText);
    keys.sort();
    QCOMPARE(keys, (QStringList{"Alt+0", "Alt+1", "Alt+2", "Alt+3", "Alt+4", "Alt+5", "Alt+6", "Alt+7",
                                "Alt+8", "Alt+9"}));
    for (QShortcut *s : shortcuts) {
        if (s->key() == QKeySequence(QStringLiteral("Alt+0")))
            emit s->activated();
    }
    QCOMPARE(m_state->currentAccountId(), QStringLiteral("a9"));
}

void TstMainWindow::draggingAnAccountStoresTheNewOrder()
{
    QList<Account> accounts;
    for (const char *id : {"a", "b", "c"}) {
        Account a = Fixtures::account(QString::fromLatin1(id), QString::fromLatin1(id));
        a.sortOrder = int(accounts.size());
        accounts << a;
    }
    start(accounts);
    auto *list = m_window->findChild<QListWidget *>(QStringLiteral("accountList"));
    // What a drop does: the list moves the row within its own model.
    QVERIFY(list->model()->moveRow(QModelIndex(), 2, QModelIndex(), 0));
    QStringList order;
    for (const Account &a : m_state->accounts()->getAll())
        order << a.id;
    QCOMPARE(order, (QStringList{"c", "a", "b"}));
}

void TstMainWindow::newAccountWritesOneOpeningTransaction_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("balance");
    QTest::addColumn<int>("accounts");
    QTest::addColumn<int>("transactions");
    QTest::newRow("with balance") << "Savings" << 1234.56 << 1 << 1;
    QTest::newRow("negative balance") << "Visa" << -0.01 << 1 << 1;
    QTest::newRow("zero balance") << "Wallet" << 0.0 << 1 << 0;
    QTest::newRow("name of spaces") << "   " << 50.0 << 0 << 0;
}

void TstMainWindow::newAccountWritesOneOpeningTransaction()
{
    QFETCH(QString, name);
    QFETCH(double, balance);
    QFETCH(int, accounts);
    QFETCH(int, transactions);
    start();
    Prompt::setNextDialogHandler([&](QDialog *dialog) {
        dialog->findChild<QLineEdit *>(QStringLiteral("nameEdit"))->setText(name);
        dialog->findChild<QDoubleSpinBox *>(QStringLiteral("balanceSpin"))->setValue(balance);
        return int(QDialog::Accepted);
    });
    m_window->showNewAccountDialog();

    const QList<Account> all = m_state->accounts()->getAll();
    QCOMPARE(all.size(), accounts);
    if (accounts == 0) {
        QCOMPARE(m_window->currentPage(), m_window->welcomePage());
        return;
    }
    QCOMPARE(all.first().startingBalance, qint64(0));
    const QList<Transaction> rows = m_state->transactions()->getByAccount(all.first().id);
    QCOMPARE(rows.size(), transactions);
    if (transactions == 1) {
        QCOMPARE(rows.first().amount, qint64(std::llround(balance * 100)));
        QCOMPARE(rows.first().payee, QStringLiteral("Opening Balance"));
        QVERIFY(rows.first().cleared && rows.first().reconciled);
    }
    QCOMPARE(m_state->currentAccountId(), all.first().id);
    QCOMPARE(m_window->currentPage(), m_window->registerPage());
}

void TstMainWindow::deleteCascadesAndLeavesTheRegister_data()
{
    QTest::addColumn<bool>("confirm");
    QTest::newRow("confirmed") << true;
    QTest::newRow("refused") << false;
}

void TstMainWindow::deleteCascadesAndLeavesTheRegister()
{
    QFETCH(bool, confirm);
    start({Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking"))});
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
        QStringLiteral("t"), QStringLiteral("a"), QDate(2026, 1, 1), QStringLiteral("P"), -1)));
    RecurringTransaction rule;
    rule.id = QStringLiteral("r");
    rule.accountId = QStringLiteral("a");
    rule.payee = QStringLiteral("Rent");
    rule.startDate = rule.nextDueDate = QDate(2026, 2, 1);
    rule.createdAt = rule.updatedAt = utcNow();
    QVERIFY(m_state->recurring()->insert(rule));
    Reconciliation rec;
    rec.id = QStringLiteral("rc");
    rec.accountId = QStringLiteral("a");
    rec.statementDate = QDate(2026, 1, 31);
    rec.completedAt = utcNow();
    QVERIFY(m_state->reconciliations()->insert(rec));
    QCOMPARE(m_state->currentAccountId(), QStringLiteral("a"));

    Prompt::setNextAnswer(confirm ? QMessageBox::Yes : QMessageBox::No);
    if (confirm)
        QTest::ignoreMessage(QtInfoMsg,
                             "Cascade delete account a → transactions: 1 recurrings: 1 reconciliations: 1");
    m_window->deleteCurrentAccount();

    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Delete Account"));
    QCOMPARE(bool(m_state->accounts()->getById(QStringLiteral("a"))->deletedAt), confirm);
    QCOMPARE(bool(m_state->transactions()->getById(QStringLiteral("t"))->deletedAt), confirm);
    QCOMPARE(bool(m_state->recurring()->getById(QStringLiteral("r"))->deletedAt), confirm);
    QCOMPARE(m_state->reconciliations()->getByAccount(QStringLiteral("a")).isEmpty(), confirm);
    QCOMPARE(m_state->currentAccountId().isEmpty(), confirm);
    QCOMPARE(m_window->currentPage(), confirm ? m_window->welcomePage() : m_window->registerPage());
}

void TstMainWindow::initialPage_data()
{
    QTest::addColumn<QStringList>("accounts"); // ids; listed in this order
    QTest::addColumn<QString>("lastViewed");
    QTest::addColumn<QString>("expected"); // empty: the welcome page
    QTest::newRow("no accounts") << QStringList{} << QString() << QString();
    QTest::newRow("remembered") << QStringList{"a", "b"} << "b"
                                << "b";
    QTest::newRow("remembered one gone") << QStringList{"a", "b"} << "zz"
                                         << "a";
    QTest::newRow("nothing remembered") << QStringList{"a", "b"} << QString() << "a";
}

void TstMainWindow::initialPage()
{
    QFETCH(QStringList, accounts);
    QFETCH(QString, lastViewed);
    QFETCH(QString, expected);
    QList<Account> records;
    for (int i = 0; i < accounts.size(); ++i) {
        Account a = Fixtures::account(accounts.at(i), accounts.at(i));
        a.sortOrder = i;
        records << a;
    }
    if (!lastViewed.isEmpty())
        m_state->setCurrentAccountId(lastViewed);
    start(records);
    QCOMPARE(m_state->currentAccountId(), expected.isEmpty() ? lastViewed : expected);
    QCOMPARE(m_window->currentPage(),
             expected.isEmpty() ? m_window->welcomePage() : m_window->registerPage());
}

void TstMainWindow::autoPostRunsAtStartAndTheDueCountFollows()
{
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking"))));
    const QDate today = QDate::currentDate();
    for (const auto &[id, daysBehind, autoPost] : {
             std::tuple{"auto",   7,  true },
             std::tuple{"manual", 1,  false},
             std::tuple{"later",  -3, true }
    }) {
        RecurringTransaction rule;
        rule.id = QLatin1String(id);
        rule.accountId = QStringLiteral("a");
        rule.payee = rule.id;
        rule.amount = -1000;
        rule.frequency = Frequency::Weekly;
        rule.startDate = rule.nextDueDate = today.addDays(-daysBehind);
        rule.autoPost = autoPost;
        rule.createdAt = rule.updatedAt = utcNow();
        QVERIFY(m_state->recurring()->insert(rule));
    }
    start();

    QCOMPARE(m_state->transactions()->getByAccount(QStringLiteral("a")).size(), 2);
    QCOMPARE(m_window->statusBar()->currentMessage(),
             QStringLiteral("Auto-posted 2 recurring transaction(s)"));
    QCOMPARE(m_window->findChild<QLabel *>(QStringLiteral("totalLabel"))->text(),
             QStringLiteral("Total: -$20.00"));
    auto *due = m_window->findChild<QLabel *>(QStringLiteral("recurringDueLabel"));
    QCOMPARE(due->text(), QStringLiteral("  •  1 recurring due"));

    QVERIFY(m_state->recurringService()->skip(QStringLiteral("manual")));
    QVERIFY(due->isHidden());
}

void TstMainWindow::reconcileAndRecurringOpenAsWindows()
{
    start({Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking"))});
    QPushButton *reconcile = nullptr;
    for (QPushButton *button : m_window->registerPage()->findChildren<QPushButton *>()) {
        if (button->text() == QStringLiteral("Reconcile"))
            reconcile = button;
    }
    QVERIFY(reconcile);
    reconcile->click();
    QList<ReconciliationScreen *> screens = m_window->findChildren<ReconciliationScreen *>();
    QCOMPARE(screens.size(), 1);
    QVERIFY(screens.first()->isWindow() && screens.first()->isVisible());
    QCOMPARE(screens.first()->windowTitle(), QStringLiteral("Reconcile — Checking"));

    // Each opening is a new window; a cancelled one is gone.
    m_window->showReconciliationWindow();
    QCOMPARE(m_window->findChildren<ReconciliationScreen *>().size(), 2);
    screens.first()->findChild<QPushButton *>(QStringLiteral("cancelButton"))->click();
    QTRY_COMPARE(m_window->findChildren<ReconciliationScreen *>().size(), 1);

    m_window->showRecurringWindow();
    m_window->showRecurringWindow();
    const QList<RecurringScreen *> recurring = m_window->findChildren<RecurringScreen *>();
    QCOMPARE(recurring.size(), 1);
    QVERIFY(recurring.first()->isWindow() && recurring.first()->isVisible());
    QCOMPARE(recurring.first()->windowTitle(), QStringLiteral("Recurring Transactions"));
}

void TstMainWindow::sampleDataEntriesOnlyInDevelopment_data()
{
    QTest::addColumn<QByteArray>("dev");
    QTest::addColumn<bool>("shown");
    QTest::newRow("unset") << QByteArray() << false;
    QTest::newRow("set") << QByteArray("1") << true;
}

void TstMainWindow::sampleDataEntriesOnlyInDevelopment()
{
    QFETCH(QByteArray, dev);
    QFETCH(bool, shown);
    qputenv("OMBREL_DEV", dev);
    start();
    qunsetenv("OMBREL_DEV");
    QStringList entries;
    for (const QAction *action : m_window->menuBar()->findChildren<QAction *>())
        entries << action->text();
    QCOMPARE(entries.contains(QStringLiteral("Load &Sample Data")), shown);
    QCOMPARE(entries.contains(QStringLiteral("&Clear Sample Data")), shown);
}

void TstMainWindow::sampleDataLoadsAndClearsFromTheMenu()
{
    qputenv("OMBREL_DEV", "1");
    start();
    qunsetenv("OMBREL_DEV");
    const auto trigger = [this](const QString &text) {
        for (QAction *action : m_window->menuBar()->findChildren<QAction *>()) {
            if (action->text() == text)
                action->trigger();
        }
    };
    auto *list = m_window->findChild<QListWidget *>(QStringLiteral("accountList"));
    auto *status = m_window->findChild<StatusBar *>();

    QCOMPARE(m_window->currentPage(), m_window->welcomePage());
    trigger(QStringLiteral("Load &Sample Data"));
    QCOMPARE(list->count(), 3);
    QCOMPARE(status->currentMessage(), QStringLiteral("Sample data loaded"));
    // The page that asks for a first account must not stay once there are some.
    QCOMPARE(m_window->currentPage(), m_window->registerPage());
    QCOMPARE(m_state->currentAccountId(), m_state->accounts()->getAll().first().id);
    Prompt::setNextAnswer(QMessageBox::Ok);
    trigger(QStringLiteral("Load &Sample Data"));
    QCOMPARE(Prompt::lastText(), QStringLiteral("Sample data is already loaded."));
    QCOMPARE(m_state->transactions()->getByAccount(QStringLiteral("sample-acct-checking")).size(), 27);

    m_window->selectAccount(QStringLiteral("sample-acct-visa"));
    trigger(QStringLiteral("&Clear Sample Data"));
    QCOMPARE(list->count(), 0);
    QCOMPARE(status->currentMessage(), QStringLiteral("Sample data cleared"));
    QCOMPARE(m_window->currentPage(), m_window->welcomePage());
    QCOMPARE(m_state->currentAccountId(), QString());
    Prompt::setNextAnswer(QMessageBox::Ok);
    trigger(QStringLiteral("&Clear Sample Data"));
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Sample Data"));
    QCOMPARE(Prompt::lastText(), QStringLiteral("No sample data to clear."));
}

void TstMainWindow::restoreInPreferencesReloadsTheList()
{
    start({Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking")),
           Fixtures::account(QStringLiteral("b"), QStringLiteral("Savings"))});
    Prompt::setNextAnswer(QMessageBox::Yes);
    m_window->deleteAccount(QStringLiteral("b"));
    auto *list = m_window->findChild<QListWidget *>(QStringLiteral("accountList"));
    QCOMPARE(list->count(), 1);

    m_window->showSettingsWindow();
    auto *settings = m_window->findChild<SettingsScreen *>();
    QVERIFY(settings && settings->isVisible());
    QCOMPARE(settings->windowTitle(), QStringLiteral("Preferences"));
    settings->findChild<QListWidget *>(QStringLiteral("deletedAccountsList"))->setCurrentRow(0);
    settings->findChild<QPushButton *>(QStringLiteral("restoreAccountButton"))->click();
    QCOMPARE(list->count(), 2);
    // A second opening raises the same window, refreshed.
    m_window->showSettingsWindow();
    QCOMPARE(m_window->findChildren<SettingsScreen *>().size(), 1);
    QVERIFY(settings->findChild<QWidget *>(QStringLiteral("deletedAccountsSection"))->isHidden());
}

// A first QIF import makes its accounts through the repository before it writes any row.
void TstMainWindow::anImportedFirstAccountOpensItsRegister()
{
    start();
    QCOMPARE(m_window->currentPage(), m_window->welcomePage());
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("q"), QStringLiteral("Checking"))));
    // The list follows repository writes on the next turn of the event loop.
    QTRY_COMPARE(m_window->currentPage(), m_window->registerPage());
    QCOMPARE(m_state->currentAccountId(), QStringLiteral("q"));
}

void TstMainWindow::screensOpenLargerUnderALargeFont()
{
    start();
    ThemeManager::setCurrentFontScale(150);
    m_window->showRecurringWindow();
    ThemeManager::setCurrentFontScale(100);
    auto *recurring = m_window->findChild<RecurringScreen *>();
    const QSize available = m_window->screen()->availableGeometry().size();
    QCOMPARE(recurring->size(), QSize(700, 500).expandedTo(QSize(1050, 750).boundedTo(available)));
    QVERIFY(recurring->width() > 700);
}

void TstMainWindow::screensOpenOnceInWindowsOfTheirOwn_data()
{
    QTest::addColumn<QKeySequence>("keys"); // empty: the slot, which has no shortcut
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QSize>("size");
    QTest::newRow("reports") << QKeySequence(QStringLiteral("Ctrl+2")) << QByteArray("showReportsWindow")
                             << "Reports" << QSize(800, 600);
    QTest::newRow("categories") << QKeySequence(QStringLiteral("Ctrl+4"))
                                << QByteArray("showCategoriesWindow") << "Categories" << QSize(600, 500);
    QTest::newRow("search") << QKeySequence(QKeySequence::Find) << QByteArray("showSearchWindow")
                            << "Search Transactions" << QSize(800, 550);
    QTest::newRow("payees") << QKeySequence() << QByteArray("showPayeesWindow") << "Payee Management"
                            << QSize(550, 500);
}

void TstMainWindow::screensOpenOnceInWindowsOfTheirOwn()
{
    QFETCH(QKeySequence, keys);
    QFETCH(QByteArray, slot);
    QFETCH(QString, title);
    QFETCH(QSize, size);
    start({Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking"))});
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    const auto open = [&] {
        if (keys.isEmpty())
            QVERIFY(QMetaObject::invokeMethod(m_window.get(), slot.constData()));
        else
            QTest::keySequence(m_window.get(), keys);
    };
    const auto windows = [&] {
        QList<QWidget *> found;
        for (QWidget *w : QApplication::topLevelWidgets()) {
            if (w->windowTitle() == title && w->isVisible())
                found.append(w);
        }
        return found;
    };
    open();
    QCOMPARE(windows().size(), 1);
    QWidget *screen = windows().first();
    QCOMPARE(screen->parentWidget(), m_window.get());
    QCOMPARE(screen->size(), size);
    screen->resize(size + QSize(10, 10));
    screen->showMinimized();
    open();
    QCOMPARE(windows(), QList<QWidget *>({screen}));
    QVERIFY(!screen->isMinimized());
    QCOMPARE(screen->size(), size + QSize(10, 10));
}

// One session from sign-in to sign-out: the first sync brings an account to the empty page, a failed
// cycle and a local change each show in the status bar, the settings page drives Sync Now and Force
// Full Sync, and signing out silences the engine.
void TstMainWindow::signInSyncsAndSignOutStops()
{
    const QString push = QStringLiteral("/ombrel/v1/sync/push");
    const QString pull = QStringLiteral("/ombrel/v1/sync/pull");
    const QByteArray accepted = R"({"results":[]})";
    const QByteArray emptyPage = R"({"server_time":"2024-06-01T00:00:00Z","has_more":false})";
    const auto lastTo = [this](const QString &path) {
        const QList<RecordedRequest> requests = m_server.requests();
        for (auto it = requests.crbegin(); it != requests.crend(); ++it)
            if (it->path == path)
                return *it;
        return RecordedRequest{};
    };

    m_server.clear();
    start();
    QCOMPARE(m_window->currentPage(), m_window->welcomePage());
    QAction *signOut = nullptr;
    for (QAction *action : m_window->findChildren<QAction *>())
        if (action->text() == QStringLiteral("Sign &Out"))
            signOut = action;
    QVERIFY(signOut && !signOut->isVisible());
    // A user who never signs in causes no request at all.
    QVERIFY(m_server.requests().isEmpty());
    auto *syncLabel = m_window->statusBar()->findChild<QLabel *>(QStringLiteral("syncLabel"));
    QCOMPARE(syncLabel->text(), QStringLiteral("Not signed in"));
    QStringList shown;
    connect(m_state->syncEngine(), &SyncEngine::stateChanged, syncLabel,
            [&shown, syncLabel] { shown << syncLabel->text(); });

    m_server.enqueue(push, ScriptedReply(200, accepted));
    m_server.enqueue(pull, ScriptedReply(200, R"({"accounts":[{"id":"s-remote","client_id":"remote",
        "name":"Shared Checking","version":1}],"server_time":"2024-06-01T00:00:00Z","has_more":false})"));
    m_server.enqueue(push, ScriptedReply(500, R"({"error":"down"})"));
    for (QPushButton *button : m_window->welcomePage()->findChildren<QPushButton *>())
        if (button->text() == QStringLiteral("Already have an account? Sign In"))
            QTest::mouseClick(button, Qt::LeftButton);
    QTRY_COMPARE_WITH_TIMEOUT(m_state->currentAccountId(), QStringLiteral("remote"), 5000);
    QCOMPARE(m_window->currentPage(), m_window->registerPage());
    QVERIFY(signOut->isVisible());
    // The device registration and the first push leave together, on connections of their own.
    const QList<RecordedRequest> sent = m_server.requests();
    QVERIFY(std::any_of(sent.cbegin(), sent.cend(), [](const RecordedRequest &request) {
        return request.path == QStringLiteral("/account/v1/devices/register");
    }));

    // The pull's own write schedules the second cycle, whose push the server refuses.
    QTRY_COMPARE_WITH_TIMEOUT(syncLabel->text(), QStringLiteral("Sync error"), 5000);
    QCOMPARE(m_window->statusBar()->currentMessage(), QStringLiteral("Sync failed: Push failed (HTTP 500)"));
    QCOMPARE(shown, (QStringList{"Syncing...", "Synced", "Syncing...", "Sync error"}));

    m_server.enqueue(push, ScriptedReply(200, accepted));
    m_server.enqueue(pull, ScriptedReply(200, emptyPage));
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(QStringLiteral("t-local"),
                                                                  QStringLiteral("remote"), QDate(2024, 6, 2),
                                                                  QStringLiteral("Rent"), -100)));
    QTRY_COMPARE_WITH_TIMEOUT(syncLabel->text(), QStringLiteral("Synced"), 5000);
    QVERIFY(lastTo(push).body.contains("t-local"));

    m_window->showSettingsWindow();
    auto *settings = m_window->findChild<SettingsScreen *>();
    auto *syncNow = settings->findChild<QPushButton *>(QStringLiteral("syncNowButton"));
    auto *forceFull = settings->findChild<QPushButton *>(QStringLiteral("forceFullSyncButton"));
    QVERIFY(syncNow->isEnabled() && forceFull->isEnabled());
    QVERIFY(settings->findChild<QLabel *>(QStringLiteral("syncStatusLabel"))->text().contains("Synced"));
    QVERIFY(
        settings->findChild<QLabel *>(QStringLiteral("lastSyncLabel"))->text().startsWith("Last synced: "));

    m_server.enqueue(push, ScriptedReply::delayed(300, 200, accepted));
    m_server.enqueue(pull, ScriptedReply(200, emptyPage));
    QTest::mouseClick(syncNow, Qt::LeftButton);
    QCOMPARE(syncNow->text(), QStringLiteral("Syncing..."));
    QVERIFY(!syncNow->isEnabled() && forceFull->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(syncNow->isEnabled(), 5000);
    QCOMPARE(syncNow->text(), QStringLiteral("Sync Now"));

    m_server.enqueue(push, ScriptedReply::delayed(300, 200, accepted));
    m_server.enqueue(pull, ScriptedReply(200, emptyPage));
    Prompt::setNextAnswer(QMessageBox::Yes);
    QTest::mouseClick(forceFull, Qt::LeftButton);
    QVERIFY(!syncNow->isEnabled() && !forceFull->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(syncNow->isEnabled() && forceFull->isEnabled(), 5000);
    // The synced account goes up again, and the pull asks for everything.
    QVERIFY(lastTo(push).body.contains("\"remote\""));
    QVERIFY(!lastTo(pull).query.hasQueryItem(QStringLiteral("since")));

    signOut->trigger();
    QVERIFY(!signOut->isVisible());
    QCOMPARE(syncLabel->text(), QStringLiteral("Not signed in"));
    QVERIFY(!syncNow->isEnabled() && !forceFull->isEnabled());
    QTRY_COMPARE_WITH_TIMEOUT(m_server.requests().last().path,
                              QStringLiteral("/auth/api/v1/realms/halcyra/auth/logout"), 5000);
    // The marking above scheduled a cycle; signed out, it finds nobody to sync for.
    const qsizetype seen = m_server.requests().size();
    QTest::qWait(SyncEngine::kDebounceMs + 300);
    QCOMPARE(m_server.requests().size(), seen);
    QCOMPARE(syncLabel->text(), QStringLiteral("Not signed in"));
}

void TstMainWindow::sharingAsksToSignInFirst_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<int>("browserOpened");
    QTest::newRow("learn more") << QMessageBox::Ok << 1;
    QTest::newRow("cancel") << QMessageBox::Cancel << 0;
}

void TstMainWindow::sharingAsksToSignInFirst()
{
    QFETCH(QMessageBox::StandardButton, answer);
    QFETCH(int, browserOpened);
    m_browser.opened.clear();
    start({Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking"))});
    Prompt::setNextAnswer(answer);
    m_window->showShareAccountDialog();
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Sign In Required"));
    QCOMPARE(Prompt::lastText(), QStringLiteral("Sharing requires a Halcyra account."));
    QCOMPARE(m_browser.opened.size(), browserOpened);
    if (browserOpened)
        QVERIFY(m_browser.opened.first().path().endsWith("/auth/halcyra/account/login"));
}

// Settings and data go to temporary places so the user's own are never touched.
int main(int argc, char *argv[])
{
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toUtf8());
    QApplication app(argc, argv);
    TstMainWindow test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mainwindow.moc"
