#include "ui/MainWindow.h"

#include "core/Dates.h"
#include "core/ThemeManager.h"
#include "services/RecurringService.h"
#include "support/Columns.h"
#include "support/Fixtures.h"
#include "support/Jwt.h"
#include "support/ScriptedServer.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "sync/SyncEngine.h"
#include "ui/Prompt.h"
#include "ui/ReconciliationScreen.h"
#include "ui/RecurringScreen.h"
#include "ui/SettingsScreen.h"
#include "ui/StatusBar.h"

#include <QtNetwork>
#include <QtTest>
#include <QtWidgets>

#include <optional>

using namespace Qt::StringLiterals;

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

// Each build of the account list hands every account a new row widget in the list's viewport.
class RowWidgetCounter : public QObject {
public:
    int count = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::ChildAdded && static_cast<QChildEvent *>(event)->child()->isWidgetType())
            ++count;
        return false;
    }
};

class TstMainWindow : public QObject {
    Q_OBJECT
    std::optional<TempAppState> m_state;
    std::optional<MainWindow> m_window;
    ScriptedServer m_server;
    Browser m_browser;

    AppState *s() const { return m_state->get(); }
    // Accounts are added before the window is built.
    void start(const QList<Account> &accounts = {})
    {
        for (const Account &a : accounts)
            QVERIFY(s()->accounts()->insert(a));
        m_window.emplace(s());
        m_window->show();
    }
    // Accounts listed in this order.
    static QList<Account> accounts(const QStringList &ids)
    {
        QList<Account> records;
        for (const QString &id : ids) {
            records << Fixtures::account(id, id);
            records.last().sortOrder = int(records.size());
        }
        return records;
    }
    QString text(const char *label) const { return child<QLabel>(&*m_window, label)->text(); }
    QListWidget *list() const { return child<QListWidget>(&*m_window, "accountList"); }
    QString balanceAt(int row) const
    {
        return child<QLabel>(list()->itemWidget(list()->item(row)), "accountBalance")->text();
    }
    QStringList menuEntries() const
    {
        QStringList entries;
        for (const QAction *action : m_window->menuBar()->findChildren<QAction *>())
            entries << action->text();
        return entries;
    }
    void trigger(const QString &entry) const
    {
        for (QAction *action : m_window->menuBar()->findChildren<QAction *>())
            if (action->text() == entry)
                action->trigger();
    }
    QWidget *page() const { return m_window->currentPage(); }

private slots:
    // Every service the program talks to is this process's server, and the browser is the stand-in.
    void initTestCase()
    {
        QVERIFY(m_server.listen());
        const QByteArray base = m_server.baseUrl().toEncoded();
        qputenv("AUTH_BASE_URL", base + "/auth");
        qputenv("ACCOUNT_API_URL", base + "/account/v1");
        qputenv("SYNC_API_URL", base + "/ombrel/v1");
        QDesktopServices::setUrlHandler(u"http"_s, &m_browser, "open");
    }

    void init()
    {
        m_window.reset();
        QVERIFY(m_state.emplace().ok());
    }

    void cleanup() { m_window.reset(); }

    void listShowsBalancesAndAddsCurrenciesIntoTheTotal()
    {
        Account yen = Fixtures::account("yen", "Tokyo", 5000);
        yen.currency = Currency::JPY;
        start({Fixtures::account("usd", "Checking"), yen});
        QVERIFY(s()->transactions()->insert(
            Fixtures::transaction("t", "usd", QDate(2026, 1, 1), "Rent", -12550)));
        QCoreApplication::processEvents();
        QCOMPARE(list()->count(), 2);
        QCOMPARE(QStringList({balanceAt(0), balanceAt(1)}), QStringList({"-$125.50", "¥5,000"}));
        // 5000 yen and -12550 cents added as plain numbers, then shown as dollars.
        QCOMPARE(text("totalLabel"), u"Total: -$75.50"_s);

        // A burst of changes to one account re-reads that balance once it is over, and leaves the other
        // account's row as it was built.
        const QPointer<QLabel> other = child<QLabel>(list()->itemWidget(list()->item(1)), "accountBalance");
        for (int i = 0; i < 3; ++i)
            QVERIFY(s()->transactions()->insert(
                Fixtures::transaction(u"burst%1"_s.arg(i), "usd", QDate(2026, 1, 2), "Pay", 10000)));
        QTRY_COMPARE(text("totalLabel"), u"Total: $224.50"_s);
        QCOMPARE(balanceAt(0), u"$174.50"_s);
        QVERIFY(other);
        QCOMPARE(other->text(), u"¥5,000"_s);
    }

    // A sync's pull writes row by row behind the window's back: the first row shows at once, the rest of
    // the burst once, on the next turn, not per row.
    void rowWritesReachTheListOnTheNextTurn()
    {
        start({Fixtures::account("a", "Checking")});
        for (int i = 0; i < 20; ++i)
            QVERIFY(s()->transactions()->insert(
                Fixtures::transaction(u"t%1"_s.arg(i), "a", QDate(2026, 1, 2), "Pulled", -100)));
        QCOMPARE(text("totalLabel"), u"Total: -$1.00"_s);
        QCoreApplication::processEvents();
        QCOMPARE(text("totalLabel"), u"Total: -$20.00"_s);

        // New accounts arrive with their rows in the same pass: the list is built once, for all six.
        RowWidgetCounter built;
        list()->viewport()->installEventFilter(&built);
        for (int i = 0; i < 5; ++i) {
            QVERIFY(s()->accounts()->insert(Fixtures::account(u"p%1"_s.arg(i), u"Pulled %1"_s.arg(i))));
            QVERIFY(s()->transactions()->insert(Fixtures::transaction(u"p%1-t"_s.arg(i), u"p%1"_s.arg(i),
                                                                      QDate(2026, 1, 2), "Pulled", -100)));
        }
        QTRY_COMPARE(list()->count(), 6);
        QCoreApplication::processEvents();
        QCOMPARE(built.count, 6);
        QCOMPARE(text("totalLabel"), u"Total: -$25.00"_s);
    }

    void tenAccountsGetAltShortcutsAndTheEleventhNone()
    {
        QStringList ids;
        for (int i = 0; i < 11; ++i)
            ids << u"a%1"_s.arg(i, 2, 10, QLatin1Char('0'));
        start(accounts(ids));
        QStringList keys;
        for (QShortcut *s : m_window->findChildren<QShortcut *>()) {
            keys << s->key().toString(QKeySequence::PortableText);
            if (keys.last() == u"Alt+0")
                emit s->activated();
        }
        keys.sort();
        QCOMPARE(keys, QStringList({"Alt+0", "Alt+1", "Alt+2", "Alt+3", "Alt+4", "Alt+5", "Alt+6", "Alt+7",
                                    "Alt+8", "Alt+9"}));
        QCOMPARE(s()->currentAccountId(), u"a09"_s);
    }

    void draggingAnAccountStoresTheNewOrder()
    {
        start(accounts({"a", "b", "c"}));
        // What a drop does: the list moves the row within its own model.
        QVERIFY(list()->model()->moveRow(QModelIndex(), 2, QModelIndex(), 0));
        QStringList order;
        for (const Account &a : s()->accounts()->getAll())
            order << a.id;
        QCOMPARE(order, QStringList({"c", "a", "b"}));
    }

    void newAccountWritesOneOpeningTransaction_data()
    {
        // opening: the opening row's amount; "none": no account at all.
        addColumns<QString, double, QString>({"name", "balance", "opening"});
        QTest::newRow("negative balance") << u"Visa"_s << -0.01 << u"-1"_s;
        QTest::newRow("zero balance") << u"Wallet"_s << 0.0 << QString();
        QTest::newRow("name of spaces") << u"   "_s << 50.0 << u"none"_s;
    }

    void newAccountWritesOneOpeningTransaction()
    {
        QFETCH(QString, name);
        QFETCH(double, balance);
        QFETCH(QString, opening);
        start();
        Prompt::setNextDialogHandler([&](QDialog *dialog) {
            child<QLineEdit>(dialog, "nameEdit")->setText(name);
            child<QDoubleSpinBox>(dialog, "balanceSpin")->setValue(balance);
            return int(QDialog::Accepted);
        });
        m_window->showNewAccountDialog();
        const QList<Account> all = s()->accounts()->getAll();
        QCOMPARE(all.size(), opening == u"none" ? 0 : 1);
        if (all.isEmpty()) {
            QCOMPARE(page(), m_window->welcomePage());
            return;
        }
        QCOMPARE(all.first().startingBalance, qint64(0));
        QStringList rows;
        for (const Transaction &t : s()->transactions()->getByAccount(all.first().id))
            rows << u"%1 %2 %3%4"_s.arg(t.payee).arg(t.amount).arg(t.cleared).arg(t.reconciled);
        QCOMPARE(rows,
                 opening.isEmpty() ? QStringList() : QStringList{u"Opening Balance %1 11"_s.arg(opening)});
        QCOMPARE(s()->currentAccountId(), all.first().id);
        QCOMPARE(page(), m_window->registerPage());
    }

    void deleteCascadesAndLeavesTheRegister_data()
    {
        QTest::addColumn<bool>("confirm");
        QTest::newRow("confirmed") << true;
        QTest::newRow("refused") << false;
    }

    void deleteCascadesAndLeavesTheRegister()
    {
        QFETCH(bool, confirm);
        start({Fixtures::account("a", "Checking")});
        QVERIFY(s()->transactions()->insert(Fixtures::transaction("t", "a", QDate(2026, 1, 1), "P", -1)));
        QVERIFY(s()->recurring()->insert(Fixtures::rule("r", "a", QDate(2026, 2, 1), -100)));
        Reconciliation rec;
        rec.id = u"rc"_s;
        rec.accountId = u"a"_s;
        rec.statementDate = QDate(2026, 1, 31);
        rec.completedAt = utcNow();
        QVERIFY(s()->reconciliations()->insert(rec));
        QCOMPARE(s()->currentAccountId(), u"a"_s);

        Prompt::setNextAnswer(confirm ? QMessageBox::Yes : QMessageBox::No);
        if (confirm)
            QTest::ignoreMessage(
                QtInfoMsg, "Cascade delete account a → transactions: 1 recurrings: 1 reconciliations: 1");
        m_window->deleteCurrentAccount();
        QCOMPARE(Prompt::lastTitle(), u"Delete Account"_s);
        QCOMPARE(bool(s()->accounts()->getById(u"a"_s)->deletedAt), confirm);
        QCOMPARE(bool(s()->transactions()->getById(u"t"_s)->deletedAt), confirm);
        QCOMPARE(bool(s()->recurring()->getById(u"r"_s)->deletedAt), confirm);
        QCOMPARE(s()->reconciliations()->getByAccount(u"a"_s).isEmpty(), confirm);
        QCOMPARE(s()->currentAccountId().isEmpty(), confirm);
        QCOMPARE(page(), confirm ? m_window->welcomePage() : m_window->registerPage());
    }

    void initialPage_data()
    {
        // expected empty: the welcome page.
        addColumns<QStringList, QString, QString>({"accounts", "lastViewed", "expected"});
        QTest::newRow("no accounts") << QStringList{} << QString() << QString();
        QTest::newRow("remembered") << QStringList{"a", "b"} << u"b"_s << u"b"_s;
        QTest::newRow("remembered one gone") << QStringList{"a", "b"} << u"zz"_s << u"a"_s;
    }

    void initialPage()
    {
        QFETCH(QStringList, accounts);
        QFETCH(QString, lastViewed);
        QFETCH(QString, expected);
        if (!lastViewed.isEmpty())
            s()->setCurrentAccountId(lastViewed);
        start(TstMainWindow::accounts(accounts));
        QCOMPARE(s()->currentAccountId(), expected.isEmpty() ? lastViewed : expected);
        QCOMPARE(page(), expected.isEmpty() ? m_window->welcomePage() : m_window->registerPage());
    }

    void autoPostRunsAtStartAndTheDueCountFollows()
    {
        QVERIFY(s()->accounts()->insert(Fixtures::account("a", "Checking")));
        const QDate today = QDate::currentDate();
        for (const auto &[id, daysBehind, autoPost] : {
                 std::tuple{"auto",   7,  true },
                 std::tuple{"manual", 1,  false},
                 std::tuple{"later",  -3, true }
        }) {
            RecurringTransaction rule =
                Fixtures::rule(id, "a", today.addDays(-daysBehind), -1000, Frequency::Weekly);
            rule.autoPost = autoPost;
            QVERIFY(s()->recurring()->insert(rule));
        }
        start();
        QCOMPARE(s()->transactions()->getByAccount(u"a"_s).size(), 2);
        QCOMPARE(m_window->statusBar()->currentMessage(), u"Auto-posted 2 recurring transaction(s)"_s);
        QCOMPARE(text("totalLabel"), u"Total: -$20.00"_s);
        QCOMPARE(text("recurringDueLabel"), u"  •  1 recurring due"_s);
        QVERIFY(s()->recurringService()->skip(u"manual"_s));
        QVERIFY(child<QLabel>(&*m_window, "recurringDueLabel")->isHidden());
    }

    void reconcileOpensANewWindowEachTime()
    {
        start({Fixtures::account("a", "Checking")});
        QCOMPARE(buttonsLabelled(m_window->registerPage(), u"Reconcile"_s).size(), 1);
        buttonsLabelled(m_window->registerPage(), u"Reconcile"_s).first()->click();
        QList<ReconciliationScreen *> screens = m_window->findChildren<ReconciliationScreen *>();
        QCOMPARE(screens.size(), 1);
        QVERIFY(screens.first()->isWindow() && screens.first()->isVisible());
        QCOMPARE(screens.first()->windowTitle(), u"Reconcile — Checking"_s);
        // Each opening is a new window; a cancelled one is gone.
        m_window->showReconciliationWindow();
        QCOMPARE(m_window->findChildren<ReconciliationScreen *>().size(), 2);
        child<QPushButton>(screens.first(), "cancelButton")->click();
        QTRY_COMPARE(m_window->findChildren<ReconciliationScreen *>().size(), 1);
    }

    void sampleDataOnlyInDevelopment()
    {
        start();
        QVERIFY(!menuEntries().contains(u"Load &Sample Data"_s) &&
                !menuEntries().contains(u"&Clear Sample Data"_s));
        m_window.reset();
        qputenv("OMBREL_DEV", "1");
        start();
        qunsetenv("OMBREL_DEV");
        auto *status = m_window->findChild<StatusBar *>();
        QCOMPARE(page(), m_window->welcomePage());
        trigger(u"Load &Sample Data"_s);
        QCOMPARE(list()->count(), 3);
        QCOMPARE(status->currentMessage(), u"Sample data loaded"_s);
        // The page that asks for a first account must not stay once there are some.
        QCOMPARE(page(), m_window->registerPage());
        QCOMPARE(s()->currentAccountId(), s()->accounts()->getAll().first().id);
        Prompt::setNextAnswer(QMessageBox::Ok);
        trigger(u"Load &Sample Data"_s);
        QCOMPARE(Prompt::lastText(), u"Sample data is already loaded."_s);

        m_window->selectAccount(u"sample-acct-visa"_s);
        trigger(u"&Clear Sample Data"_s);
        QCOMPARE(list()->count(), 0);
        QCOMPARE(status->currentMessage(), u"Sample data cleared"_s);
        QCOMPARE(page(), m_window->welcomePage());
        QCOMPARE(s()->currentAccountId(), QString());
        Prompt::setNextAnswer(QMessageBox::Ok);
        trigger(u"&Clear Sample Data"_s);
        QCOMPARE(Prompt::lastTitle(), u"Sample Data"_s);
        QCOMPARE(Prompt::lastText(), u"No sample data to clear."_s);
    }

    void restoreInPreferencesReloadsTheList()
    {
        start({Fixtures::account("a", "Checking"), Fixtures::account("b", "Savings")});
        Prompt::setNextAnswer(QMessageBox::Yes);
        m_window->deleteAccount(u"b"_s);
        QCOMPARE(list()->count(), 1);
        m_window->showSettingsWindow();
        auto *settings = m_window->findChild<SettingsScreen *>();
        QVERIFY(settings->isVisible());
        QCOMPARE(settings->windowTitle(), u"Preferences"_s);
        child<QListWidget>(settings, "deletedAccountsList")->setCurrentRow(0);
        child<QPushButton>(settings, "restoreAccountButton")->click();
        QCOMPARE(list()->count(), 2);
        // A second opening raises the same window, refreshed.
        m_window->showSettingsWindow();
        QCOMPARE(m_window->findChildren<SettingsScreen *>().size(), 1);
        QVERIFY(child<QWidget>(settings, "deletedAccountsSection")->isHidden());
    }

    // A first QIF import makes its accounts through the repository before it writes any row.
    void anImportedFirstAccountOpensItsRegister()
    {
        start();
        QCOMPARE(page(), m_window->welcomePage());
        QVERIFY(s()->accounts()->insert(Fixtures::account("q", "Checking")));
        // The list follows repository writes on the next turn of the event loop.
        QTRY_COMPARE(page(), m_window->registerPage());
        QCOMPARE(s()->currentAccountId(), u"q"_s);
    }

    void screensOpenLargerUnderALargeFont()
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

    void screensOpenOnceInWindowsOfTheirOwn_data()
    {
        // keys empty: the slot, which has no shortcut.
        addColumns<QKeySequence, QByteArray, QString, QSize>({"keys", "slot", "title", "size"});
        QTest::newRow("reports") << QKeySequence(u"Ctrl+2"_s) << QByteArray("showReportsWindow")
                                 << u"Reports"_s << QSize(800, 600);
        QTest::newRow("categories") << QKeySequence(u"Ctrl+4"_s) << QByteArray("showCategoriesWindow")
                                    << u"Categories"_s << QSize(600, 500);
        QTest::newRow("search") << QKeySequence(QKeySequence::Find) << QByteArray("showSearchWindow")
                                << u"Search Transactions"_s << QSize(800, 550);
        QTest::newRow("payees") << QKeySequence() << QByteArray("showPayeesWindow") << u"Payee Management"_s
                                << QSize(550, 500);
        QTest::newRow("recurring") << QKeySequence() << QByteArray("showRecurringWindow")
                                   << u"Recurring Transactions"_s << QSize(700, 500);
    }

    void screensOpenOnceInWindowsOfTheirOwn()
    {
        QFETCH(QKeySequence, keys);
        QFETCH(QByteArray, slot);
        QFETCH(QString, title);
        QFETCH(QSize, size);
        start({Fixtures::account("a", "Checking")});
        QVERIFY(QTest::qWaitForWindowActive(&*m_window));
        const auto open = [&] {
            if (keys.isEmpty())
                QVERIFY(QMetaObject::invokeMethod(&*m_window, slot.constData()));
            else
                QTest::keySequence(&*m_window, keys);
        };
        const auto windows = [&] {
            QList<QWidget *> found;
            for (QWidget *w : QApplication::topLevelWidgets())
                if (w->windowTitle() == title && w->isVisible())
                    found.append(w);
            return found;
        };
        open();
        QCOMPARE(windows().size(), 1);
        QWidget *screen = windows().first();
        QCOMPARE(screen->parentWidget(), &*m_window);
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
    void signInSyncsAndSignOutStops()
    {
        const QString push = u"/ombrel/v1/sync/push"_s, pull = u"/ombrel/v1/sync/pull"_s;
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
        QAction *signOut = nullptr;
        for (QAction *action : m_window->findChildren<QAction *>())
            if (action->text() == u"Sign &Out")
                signOut = action;
        QVERIFY(signOut && !signOut->isVisible());
        // A user who never signs in causes no request at all.
        QVERIFY(m_server.requests().isEmpty());
        auto *syncLabel = child<QLabel>(m_window->statusBar(), "syncLabel");
        QCOMPARE(syncLabel->text(), u"Not signed in"_s);
        QStringList shown;
        connect(s()->syncEngine(), &SyncEngine::stateChanged, syncLabel,
                [&shown, syncLabel] { shown << syncLabel->text(); });

        m_server.enqueue(push, ScriptedReply(200, accepted));
        m_server.enqueue(pull, ScriptedReply(200, R"({"accounts":[{"id":"s-remote","client_id":"remote",
            "name":"Shared Checking","version":1}],"server_time":"2024-06-01T00:00:00Z","has_more":false})"));
        m_server.enqueue(push, ScriptedReply(500, R"({"error":"down"})"));
        QTest::mouseClick(
            buttonsLabelled(m_window->welcomePage(), u"Already have an account? Sign In"_s).value(0),
            Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(s()->currentAccountId(), u"remote"_s, 5000);
        QCOMPARE(page(), m_window->registerPage());
        QVERIFY(signOut->isVisible());
        // The device registration and the first push leave together, on connections of their own.
        const QList<RecordedRequest> sent = m_server.requests();
        QVERIFY(std::any_of(sent.cbegin(), sent.cend(), [](const RecordedRequest &r) {
            return r.path == u"/account/v1/devices/register";
        }));

        // The pull's own write schedules the second cycle, whose push the server refuses.
        QTRY_COMPARE_WITH_TIMEOUT(syncLabel->text(), u"Sync error"_s, 5000);
        QCOMPARE(m_window->statusBar()->currentMessage(), u"Sync failed: Push failed (HTTP 500)"_s);
        QCOMPARE(shown, QStringList({"Syncing...", "Synced", "Syncing...", "Sync error"}));

        m_server.enqueue(push, ScriptedReply(200, accepted));
        m_server.enqueue(pull, ScriptedReply(200, emptyPage));
        QVERIFY(s()->transactions()->insert(
            Fixtures::transaction("t-local", "remote", QDate(2024, 6, 2), "Rent", -100)));
        QTRY_COMPARE_WITH_TIMEOUT(syncLabel->text(), u"Synced"_s, 5000);
        QVERIFY(lastTo(push).body.contains("t-local"));

        m_window->showSettingsWindow();
        auto *settings = m_window->findChild<SettingsScreen *>();
        auto *syncNow = child<QPushButton>(settings, "syncNowButton");
        auto *forceFull = child<QPushButton>(settings, "forceFullSyncButton");
        QVERIFY(syncNow->isEnabled() && forceFull->isEnabled());
        QVERIFY(child<QLabel>(settings, "syncStatusLabel")->text().contains("Synced"));
        QVERIFY(child<QLabel>(settings, "lastSyncLabel")->text().startsWith("Last synced: "));

        m_server.enqueue(push, ScriptedReply::delayed(300, 200, accepted));
        m_server.enqueue(pull, ScriptedReply(200, emptyPage));
        QTest::mouseClick(syncNow, Qt::LeftButton);
        QCOMPARE(syncNow->text(), u"Syncing..."_s);
        QVERIFY(!syncNow->isEnabled() && forceFull->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(syncNow->isEnabled(), 5000);
        QCOMPARE(syncNow->text(), u"Sync Now"_s);

        m_server.enqueue(push, ScriptedReply::delayed(300, 200, accepted));
        m_server.enqueue(pull, ScriptedReply(200, emptyPage));
        Prompt::setNextAnswer(QMessageBox::Yes);
        QTest::mouseClick(forceFull, Qt::LeftButton);
        QVERIFY(!syncNow->isEnabled() && !forceFull->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(syncNow->isEnabled() && forceFull->isEnabled(), 5000);
        // The synced account goes up again, and the pull asks for everything.
        QVERIFY(lastTo(push).body.contains("\"remote\""));
        QVERIFY(!lastTo(pull).query.hasQueryItem(u"since"_s));

        signOut->trigger();
        QVERIFY(!signOut->isVisible());
        QCOMPARE(syncLabel->text(), u"Not signed in"_s);
        QVERIFY(!syncNow->isEnabled() && !forceFull->isEnabled());
        QTRY_COMPARE_WITH_TIMEOUT(m_server.requests().last().path,
                                  u"/auth/api/v1/realms/halcyra/auth/logout"_s, 5000);
        // The marking above scheduled a cycle; signed out, it finds nobody to sync for.
        const qsizetype seen = m_server.requests().size();
        QTest::qWait(SyncEngine::kDebounceMs + 300);
        QCOMPARE(m_server.requests().size(), seen);
        QCOMPARE(syncLabel->text(), u"Not signed in"_s);
    }

    void sharingAsksToSignInFirst_data()
    {
        addColumns<QMessageBox::StandardButton, int>({"answer", "browserOpened"});
        QTest::newRow("learn more") << QMessageBox::Ok << 1;
        QTest::newRow("cancel") << QMessageBox::Cancel << 0;
    }

    void sharingAsksToSignInFirst()
    {
        QFETCH(QMessageBox::StandardButton, answer);
        QFETCH(int, browserOpened);
        m_browser.opened.clear();
        start({Fixtures::account("a", "Checking")});
        Prompt::setNextAnswer(answer);
        m_window->showShareAccountDialog();
        QCOMPARE(Prompt::lastTitle(), u"Sign In Required"_s);
        QCOMPARE(Prompt::lastText(), u"Sharing requires a Halcyra account."_s);
        QCOMPARE(m_browser.opened.size(), browserOpened);
        if (browserOpened)
            QVERIFY(m_browser.opened.first().path().endsWith("/auth/halcyra/account/login"));
    }
};

OMBREL_GUI_TEST_MAIN(TstMainWindow)
#include "tst_mainwindow.moc"
