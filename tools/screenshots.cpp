// Renders each page in the light and dark theme at the normal and a large font scale, one PNG each,
// in English or in one of the program's languages:
//   QT_QPA_PLATFORM=offscreen ombrel_screenshots <output directory> [en|es|de|fr|ja] [page name...]
// With page names, only those pages are rendered.

#include "account/AccountScreen.h"
#include "account/ShareMembersDialog.h"
#include "core/AppIdentity.h"
#include "core/AppState.h"
#include "core/Dates.h"
#include "core/Language.h"
#include "core/ThemeManager.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/PreferencesRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/RecurringRepository.h"
#include "data/TransactionRepository.h"
#include "ui/AccountFormDialog.h"
#include "ui/CategoriesScreen.h"
#include "ui/CategoryFormDialog.h"
#include "ui/ImportScreen.h"
#include "ui/MainWindow.h"
#include "ui/PayeeScreen.h"
#include "ui/Prompt.h"
#include "ui/ReconciliationHistoryScreen.h"
#include "ui/ReconciliationScreen.h"
#include "ui/RecurringFormDialog.h"
#include "ui/RecurringScreen.h"
#include "ui/ReportsScreen.h"
#include "ui/SearchScreen.h"
#include "ui/SettingsScreen.h"
#include "ui/StatusBar.h"
#include "ui/WelcomeScreen.h"
#include "ui/register/RegisterModel.h"
#include "ui/register/RegisterScreen.h"
#include "ui/register/RegisterTableView.h"
#include "update/Artifact.h"
#include "update/NotesBrowser.h"
#include "update/UpdateDialog.h"
#include "update/WhatsNewDialog.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFontDatabase>
#include <QLabel>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTranslator>
#include <QTreeView>
#include <QVBoxLayout>

#include <functional>
#include <memory>

namespace {

struct Page {
    const char *name;
    QSize size;
    std::function<QWidget *()> create;
    // A window the main window opens at its default size times the font scale, as the user sees it.
    bool scaled = false;
};

// A status bar alone is all margin; below a stand-in page it reads as it does in the window.
QWidget *statusBarFrame()
{
    auto *frame = new QWidget;
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(QStringLiteral("Register")), 1, Qt::AlignCenter);
    auto *bar = new StatusBar(frame);
    bar->setAccountCount(3);
    bar->setRecurringDue(2);
    bar->setSyncText(QCoreApplication::translate("SyncEngine", "Synced"));
    bar->showProgress(QCoreApplication::translate("HalcUpdate", "Checking for updates…"));
    layout->addWidget(bar);
    return frame;
}

AppState *g_state = nullptr;

// A household with the kinds of account the panel draws differently: long names, negative and
// foreign balances, last four digits.
void addAccounts()
{
    struct Row {
        const char *name;
        AccountType type;
        Currency currency;
        qint64 balance;
        const char *last4;
    } rows[] = {
  // clang-format off
        {"Everyday Checking",                     AccountType::Checking,   Currency::USD, 254312,    "4821"},
        {"Emergency Savings",                     AccountType::Savings,    Currency::USD, 1250000,   ""    },
        {"Visa Rewards Card with a very long name", AccountType::CreditCard, Currency::USD, -184577,  "0093"},
        {"Wallet",                                AccountType::Cash,       Currency::EUR, 4250,      ""    },
        {"Brokerage",                             AccountType::Investment, Currency::JPY, 1520000,   ""    },
  // clang-format on
    };
    int order = 0;
    for (const Row &r : rows) {
        Account a;
        a.id = QStringLiteral("acc-%1").arg(order);
        a.name = QString::fromUtf8(r.name);
        a.accountType = r.type;
        a.currency = r.currency;
        a.accountNumberLast4 = QString::fromLatin1(r.last4);
        a.sortOrder = order++;
        a.createdAt = a.updatedAt = utcNow();
        g_state->accounts()->insert(a);
        Transaction t;
        t.id = a.id + QStringLiteral("-open");
        t.accountId = a.id;
        t.date = QDate(2026, 1, 1);
        t.payee = QStringLiteral("Opening Balance");
        t.amount = r.balance;
        t.createdAt = t.updatedAt = a.createdAt;
        g_state->transactions()->insert(t);
    }
}

// A month of an everyday account: payments and deposits, memos, a split, and a balance that goes negative.
void addRegisterRows()
{
    const char *payees[] = {"Corner Grocer", "City Water Utility", "Payroll",  "Coffee Roasters",
                            "Landlord",      "Hardware Store",     "Pharmacy", "Gas Station"};
    const qint64 amounts[] = {-8423, -4599, 325000, -475, -180000, -2399, -1250, -5210};
    const char *memos[] = {"weekly shop", "", "March salary", "", "April rent", "hinges and paint", "", ""};
    for (int i = 0; i < 24; ++i) {
        Transaction t;
        t.id = QStringLiteral("reg-%1").arg(i);
        t.accountId = QStringLiteral("acc-0");
        t.date = QDate(2026, 3, 1).addDays(i);
        t.payee = QString::fromUtf8(payees[i % 8]);
        t.memo = QString::fromUtf8(memos[i % 8]);
        t.amount = amounts[i % 8];
        t.checkNumber = i % 5 == 0 ? QString::number(1000 + i) : QString();
        t.cleared = i < 16;
        t.reconciled = i < 8;
        t.isSplit = i == 9;
        t.createdAt = t.updatedAt = QDateTime(t.date, QTime(12, 0), Qt::UTC);
        g_state->transactions()->insert(t);
    }
}

// Rules in every state the recurring screen draws: late, due today, ahead, inactive, auto-posting.
// Nothing auto-posting is due, so the main window's start-up pass leaves the other pages alone.
void addRecurringRules()
{
    struct Row {
        const char *payee;
        const char *account;
        qint64 amount;
        Frequency frequency;
        int daysFromToday;
        bool autoPost;
        bool active;
    } rows[] = {
  // clang-format off
        {"City Water Utility", "acc-0", -4599,   Frequency::Quarterly,  -6, false, true },
        {"Landlord",           "acc-0", -180000, Frequency::Monthly,     0, false, true },
        {"Payroll",            "acc-0", 325000,  Frequency::Biweekly,    9, true,  true },
        {"Coffee Club",        "acc-2", -1599,   Frequency::Monthly,     4, true,  true },
        {"Old Gym Membership", "acc-0", -4900,   Frequency::Monthly,   -40, false, false},
        {"Savings Transfer",   "acc-0", -50000,  Frequency::Monthly,    12, true,  true },
  // clang-format on
    };
    int n = 0;
    for (const Row &r : rows) {
        RecurringTransaction rule;
        rule.id = QStringLiteral("rule-%1").arg(n++);
        rule.accountId = QLatin1String(r.account);
        rule.payee = QString::fromUtf8(r.payee);
        rule.amount = r.amount;
        rule.frequency = r.frequency;
        rule.startDate = rule.nextDueDate = QDate::currentDate().addDays(r.daysFromToday);
        rule.autoPost = r.autoPost;
        rule.isActive = r.active;
        rule.createdAt = rule.updatedAt = utcNow();
        g_state->recurring()->insert(rule);
    }
}

// Three balanced statements of the everyday account, one of them below zero.
void addReconciliations()
{
    const qint64 balances[] = {254312, -18250, 1204577};
    for (int i = 0; i < 3; ++i) {
        Reconciliation r;
        r.id = QStringLiteral("rec-%1").arg(i);
        r.accountId = QStringLiteral("acc-0");
        r.statementDate = QDate(2026, 2, 28).addMonths(-i);
        r.statementBalance = r.reconciledBalance = balances[i];
        r.completedAt = QDateTime(r.statementDate.addDays(3), QTime(18, 30), Qt::UTC);
        g_state->reconciliations()->insert(r);
    }
}

// The everyday account with a statement balance typed in and one more row ticked than the register has
// cleared, so that the difference is not zero.
QWidget *reconciliationPage()
{
    auto *screen = new ReconciliationScreen(g_state);
    screen->setAccount(QStringLiteral("acc-0"));
    screen->findChild<QDoubleSpinBox *>(QStringLiteral("statementBalance"))->setValue(2543.12);
    QTableWidget *table = screen->table();
    table->item(table->rowCount() - 1, 0)->setCheckState(Qt::Checked);
    table->setCurrentCell(2, 2);
    return screen;
}

QWidget *historyPage(const char *accountId)
{
    auto *screen = new ReconciliationHistoryScreen(g_state);
    screen->setAccount(QLatin1String(accountId));
    return screen;
}

// The register of the everyday account, with the payee editor of the new row open.
QWidget *registerPage(bool twoLine)
{
    g_state->preferences()->setBool(QStringLiteral("registerTwoLine"), twoLine);
    auto *screen = new RegisterScreen(g_state);
    screen->resize(1200, 700);
    screen->show();
    screen->setAccount(QStringLiteral("acc-0"));
    const QModelIndex payee = screen->model()->index(screen->model()->newRowIndex(), RegisterModel::Payee);
    screen->view()->setCurrentIndex(payee);
    screen->view()->edit(payee);
    return screen;
}

// Categories on the everyday account's rows, so that the reports have more than "Uncategorized".
void categoriseRows()
{
    const std::pair<const char *, const char *> byPayee[] = {
        {"Corner Grocer",      "Groceries"            },
        {"City Water Utility", "Water"                },
        {"Payroll",            "Salary / Wages"       },
        {"Coffee Roasters",    "Dining & Restaurants" },
        {"Landlord",           "Rent/Mortgage Payment"},
        {"Hardware Store",     "Maintenance"          },
        {"Pharmacy",           "Medical Expenses"     },
        {"Gas Station",        "Gas/Fuel"             },
    };
    for (Transaction t : g_state->transactions()->getByAccount(QStringLiteral("acc-0"))) {
        for (const auto &[payee, category] : byPayee) {
            // The default categories were seeded in the language being rendered.
            const auto found =
                g_state->categories()->getByName(QCoreApplication::translate("CategoryService", category));
            if (t.payee == QString::fromUtf8(payee) && found) {
                t.categoryId = found->id;
                g_state->transactions()->update(t);
            }
        }
    }
}

// The reports over all time on one tab; custom shows the date edits of both bars.
QWidget *reportsPage(ReportsScreen::Tab tab, bool custom)
{
    auto *screen = new ReportsScreen(g_state);
    screen->refresh();
    screen->findChild<QComboBox *>(QStringLiteral("periodCombo"))->setCurrentIndex(custom ? 10 : 9);
    if (custom)
        screen->findChild<QComboBox *>(QStringLiteral("compareCombo"))->setCurrentIndex(3);
    screen->findChild<QTabWidget *>()->setCurrentIndex(tab);
    return screen;
}

QWidget *searchPage()
{
    auto *screen = new SearchScreen(g_state);
    screen->findChild<QLineEdit *>(QStringLiteral("searchEdit"))->setText(QStringLiteral("corner OR coffee"));
    QMetaObject::invokeMethod(screen, "performSearch");
    return screen;
}

QWidget *payeesPage()
{
    auto *screen = new PayeeScreen(g_state);
    auto *list = screen->findChild<QListWidget *>(QStringLiteral("payeeList"));
    list->item(1)->setSelected(true);
    list->item(2)->setSelected(true);
    return screen;
}

QWidget *categoriesPage()
{
    auto *screen = new CategoriesScreen(g_state);
    QTreeView *tree = screen->view();
    const QModelIndexList found =
        tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole,
                             QCoreApplication::translate("CategoryService", "Housing"), 1, Qt::MatchExactly);
    if (!found.isEmpty()) {
        tree->expand(found.first());
        tree->setCurrentIndex(tree->model()->index(0, 0, found.first()));
    }
    return screen;
}

QWidget *mainWindow()
{
    return new MainWindow(g_state);
}

// The main window at its default size on the everyday account, one line or two a row.
QWidget *registerWindow(bool twoLine)
{
    g_state->preferences()->setBool(QStringLiteral("registerTwoLine"), twoLine);
    auto *window = new MainWindow(g_state);
    window->selectAccount(QStringLiteral("acc-0"));
    return window;
}

// The empty-state page shows only to a signed-in user with no account; this shows it without signing in.
QWidget *emptyStatePage()
{
    auto *window = new MainWindow(g_state);
    window->findChild<QStackedWidget *>()->setCurrentWidget(window->emptyPage());
    return window;
}

QWidget *accountForm()
{
    return new AccountFormDialog;
}

QWidget *subcategoryForm()
{
    return new CategoryFormDialog(QStringLiteral("p"),
                                  QCoreApplication::translate("CategoryService", "Housing"));
}

QWidget *recurringForm()
{
    RecurringTransaction rule;
    rule.id = QStringLiteral("r");
    rule.accountId = QStringLiteral("acc-0");
    rule.payee = QStringLiteral("City Water Utility");
    rule.amount = -4599;
    rule.startDate = rule.nextDueDate = QDate(2026, 1, 15);
    return new RecurringFormDialog(rule, g_state->accounts()->getAll(), g_state->categories()->getAll());
}

// The preferences on one of their pages; the data page lists a deleted account.
QWidget *settingsPage(int page)
{
    static const bool closedAccount = [] {
        Account closed;
        closed.id = QStringLiteral("acc-closed");
        closed.name = QStringLiteral("Old Joint Savings");
        closed.createdAt = closed.updatedAt = utcNow();
        return g_state->accounts()->insert(closed) && g_state->accounts()->softDelete(closed.id);
    }();
    Q_UNUSED(closedAccount);
    auto *screen = new SettingsScreen(g_state);
    screen->findChild<QListWidget *>(QStringLiteral("categoryList"))->setCurrentRow(page);
    return screen;
}

QString g_importDir;

QString writeImportFile(const QString &name, const char *text)
{
    const QString path = g_importDir + QLatin1Char('/') + name;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(text);
    return path;
}

// The import screen after a CSV file was chosen: the mapping filled in and the preview.
QWidget *importCsvPage()
{
    const QString path =
        writeImportFile(QStringLiteral("checking-2026-03.csv"),
                        "Date,Description,Amount,Memo,Category\n"
                        "03/01/2026,Corner Grocer,-84.23,weekly shop,Groceries\n"
                        "03/02/2026,City Water Utility,-45.99,,Utilities\n"
                        "03/03/2026,Payroll,3250.00,March salary,Salary / Wages\n"
                        "03/04/2026,\"Coffee Roasters, Main St\",-4.75,,Dining & Restaurants\n"
                        "03/05/2026,Landlord,-1800.00,April rent,Housing\n"
                        "03/06/2026,Hardware Store,-23.99,hinges and paint,Household\n");
    auto *screen = new ImportScreen(g_state);
    Prompt::setNextOpenFileNames({path});
    screen->findChild<QPushButton *>(QStringLiteral("browseButton"))->click();
    screen->findChild<QComboBox *>(QStringLiteral("memoColumnCombo"))->setCurrentIndex(4);
    return screen;
}

// The import screen after two QIF files were analysed: one row for each account found.
QWidget *importQifPage()
{
    const QString checking = writeImportFile(
        QStringLiteral("household.qif"),
        "!Account\nNEveryday Checking\n^\n!Type:Bank\nD3/1/2026\nT-100\nL[Emergency Savings]\n^\n"
        "!Account\nNemergency savings\n^\n!Type:Bank\nD3/1/2026\nT100\n^\n"
        "!Account\nNTravel Card\n^\n!Type:CCard\nD3/2/2026\nT-40\n^\n");
    const QString bare = writeImportFile(QStringLiteral("old-bank.qif"), "!Type:Bank\nD3/1/2026\nT5\n^\n");
    auto *screen = new ImportScreen(g_state);
    screen->findChild<QRadioButton *>(QStringLiteral("qifRadio"))->click();
    Prompt::setNextOpenFileNames({checking, bare});
    screen->findChild<QPushButton *>(QStringLiteral("browseButton"))->click();
    return screen;
}

// The result page of an import that wrote nothing: every source skipped.
QWidget *importResultPage()
{
    QWidget *screen = importQifPage();
    for (QComboBox *combo : screen->findChildren<QComboBox *>()) {
        if (combo->findData(QStringLiteral("__skip__")) >= 0)
            combo->setCurrentIndex(combo->findData(QStringLiteral("__skip__")));
    }
    screen->findChild<QPushButton *>(QStringLiteral("importButton"))->click();
    return screen;
}

// Notes as a release would publish them: headings, lists, emphasis, code and a link.
const char kReleaseNotes[] =
    "## Highlights\n\n"
    "- **Faster imports**: a QIF file of 50,000 transactions now imports in seconds.\n"
    "- Split transactions can be edited straight from the register with *Ctrl+Shift+S*.\n"
    "- Reports remember the period you chose last.\n\n"
    "## Fixes\n\n"
    "1. Running balances no longer jump when two transactions share a date.\n"
    "2. The reconciliation difference is shown in the account's currency.\n"
    "3. Backups named `ombrel-backup-2026-03-01.zip` restore on every platform.\n\n"
    "See the [full list of changes](https://halcyra.com/ombrel/changes) for details.\n";

HalcUpdate::Artifact offeredArtifact(bool withNotes, bool mandatory)
{
    HalcUpdate::Artifact artifact;
    artifact.version = QStringLiteral("1.1.0");
    artifact.url = QUrl(QStringLiteral("https://downloads.halcyra.com/ombrel/stable/ombrel-1.1.0.exe"));
    artifact.mandatory = mandatory;
    // A data: URL goes through the same fetcher without a server.
    if (withNotes)
        artifact.releaseNotesUrl = QUrl(QStringLiteral("data:text/markdown;base64,") +
                                        QString::fromLatin1(QByteArray(kReleaseNotes).toBase64()));
    return artifact;
}

// The update offer once its notes, if it names any, have come in.
QWidget *updateDialog(bool withNotes, bool mandatory)
{
    auto *dialog = new HalcUpdate::UpdateDialog(offeredArtifact(withNotes, mandatory),
                                                QString::fromLatin1(AppIdentity::kDisplayName),
                                                QString::fromLatin1(AppIdentity::kApplicationVersion));
    QElapsedTimer waited;
    waited.start();
    while (dialog->notesBrowser() && dialog->notesBrowser()->document()->isEmpty() && waited.elapsed() < 2000)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    return dialog;
}

QWidget *whatsNewDialog()
{
    return new HalcUpdate::WhatsNewDialog(QString::fromLatin1(AppIdentity::kDisplayName),
                                          QString::fromLatin1(AppIdentity::kApplicationVersion),
                                          QString::fromUtf8(kReleaseNotes));
}

// The account pages from records: a family of four, three devices, two sessions. No server is asked.
HalcAccount::Profile accountProfile()
{
    HalcAccount::Profile profile;
    profile.id = QStringLiteral("u-maya");
    profile.email = QStringLiteral("maya.lindqvist@example.com");
    profile.displayName = QStringLiteral("Maya Lindqvist");
    profile.group = {QStringLiteral("g-1"), QStringLiteral("Lindqvist Family"), QStringLiteral("owner"), 4};
    return profile;
}

QList<HalcAccount::GroupMember> familyMembers()
{
    const QDateTime joined = QDateTime::currentDateTimeUtc().addDays(-40);
    return {
        {"u-maya",  "u-maya",  "Maya Lindqvist",  "maya.lindqvist@example.com",  "owner",  joined},
        {"u-jonas", "u-jonas", "Jonas Lindqvist", "jonas.lindqvist@example.com", "member", joined},
        {"u-elin",  "u-elin",  "Elin Lindqvist",  "elin.l@example.com",          "member", joined},
        {"u-oskar", "u-oskar", "",                "oskar.lindqvist@example.com", "member", joined},
    };
}

QWidget *accountPage(HalcAccount::AccountScreen::Tab tab, bool owner = true)
{
    auto *screen = new HalcAccount::AccountScreen(g_state->accountClient());
    // The side list's own change would ask the server; the page is chosen behind its back.
    auto *side = screen->findChild<QListWidget *>();
    side->blockSignals(true);
    side->setCurrentRow(int(tab));
    screen->findChild<QStackedWidget *>()->setCurrentIndex(int(tab));
    HalcAccount::Profile profile = accountProfile();
    if (!owner) {
        profile.id = QStringLiteral("u-jonas");
        profile.email = QStringLiteral("jonas.lindqvist@example.com");
        profile.displayName = QStringLiteral("Jonas Lindqvist");
        profile.group.role = QStringLiteral("member");
    }
    screen->showProfile(profile);
    HalcAccount::Group group{QStringLiteral("g-1"), QStringLiteral("Lindqvist Family"), familyMembers(), {}};
    if (owner) {
        const QDateTime expires = QDateTime::currentDateTimeUtc().addDays(6);
        group.pendingInvitations = {
            {"i-1", "grandma.berg@example.com", "",          "pending", expires},
            {"i-2", "",                         "K7QX-M2PD", "pending", expires},
        };
    }
    screen->showGroup(profile, group);
    const QDateTime now = QDateTime::currentDateTimeUtc();
    screen->showDevices({
        {"d-1", "MAYA-LAPTOP", "Windows", "com.halcyra.ombrel", "1.4.2", now.addSecs(-20),       "",
         now.addDays(-90)                                                                                             },
        {"d-2", "Kitchen PC",  "Windows", "com.halcyra.ombrel", "1.4.1", now.addSecs(-3 * 3600), "",
         now.addDays(-60)                                                                                             },
        {"d-3", "",            "Windows", "com.halcyra.ombrel", "",      now.addDays(-12),       "", now.addDays(-200)},
    });
    screen->showSessions({
        {"s-1", "HalcyraOmbrel/1.4.2 (Windows 11; x64) Qt/6.4.2", "192.168.1.20", now.addDays(-3),
         now.addSecs(-5),                                                                                            true },
        {"s-2",
         "Mozilla/5.0 (Macintosh; Intel Mac OS X 14_2) AppleWebKit/605.1.15 (KHTML, like Gecko) Version/17.2 "
         "Safari/605.1.15",                                       "203.0.113.54", now.addDays(-20), now.addDays(-2), false},
    });
    if (tab == HalcAccount::AccountScreen::Tab::Profile)
        screen->showSuccess(QStringLiteral("Display name updated."));
    return screen;
}

QWidget *shareDialog(bool failed)
{
    const HalcAccount::ShareDialogTexts texts =
        MainWindow::shareDialogTexts(QStringLiteral("Joint Checking"));
    auto *dialog = new HalcAccount::ShareMembersDialog(g_state->accountClient(), nullptr,
                                                       QStringLiteral("acc-0"), texts);
    dialog->showShares({
        {"u-maya", "u-maya",  "maya.lindqvist@example.com",  "Maya Lindqvist",  "owner",  ""},
        {"sh-1",   "u-jonas", "jonas.lindqvist@example.com", "Jonas Lindqvist", "member", ""}
    });
    dialog->showGroupMembers(familyMembers(), QStringLiteral("u-maya"), false);
    if (failed) {
        auto *error = dialog->findChild<QLabel *>(QStringLiteral("shareError"));
        error->setText(QStringLiteral("Could not share with Elin Lindqvist."));
        error->show();
    }
    return dialog;
}

const QSize kPageSize(1000, 700);
const QSize kWindowSize(1280, 800);
const QSize kBarSize(900, 120);

// One line a page.
// clang-format off
const Page kPages[] = {
    {"welcome",       kPageSize,     [] { return new WelcomeScreen; }},
    {"statusbar",     kBarSize,      statusBarFrame                  },
    {"window",        kWindowSize,   mainWindow                      },
    {"window-register",  QSize(1280, 900), [] { return registerWindow(false); }},
    {"window-register2", QSize(1280, 900), [] { return registerWindow(true); } },
    {"empty",         kWindowSize,   emptyStatePage                  },
    {"accountform",   QSize(420, 0), accountForm                     },
    {"categoryform",  QSize(440, 0), subcategoryForm                 },
    {"recurringform", QSize(520, 0), recurringForm                   },
    {"register",      QSize(1200, 700), [] { return registerPage(false); }},
    {"register2",     QSize(1200, 700), [] { return registerPage(true); } },
    {"importcsv",     QSize(650, 600),  importCsvPage                    , true},
    {"importqif",     QSize(650, 600),  importQifPage                    , true},
    {"importresult",  QSize(650, 600),  importResultPage                 , true},
    {"recurring",     QSize(700, 500),  [] { return new RecurringScreen(g_state); }, true},
    {"reconcile",     QSize(1100, 720), reconciliationPage                , true},
    {"history",       QSize(750, 500),  [] { return historyPage("acc-0"); }, true},
    {"historyempty",  QSize(750, 500),  [] { return historyPage("acc-1"); }, true},
    {"settings-general",  QSize(500, 550), [] { return settingsPage(0); }, true},
    {"settings-register", QSize(500, 550), [] { return settingsPage(1); }, true},
    {"settings-data",     QSize(500, 550), [] { return settingsPage(2); }, true},
    {"settings-about",    QSize(500, 550), [] { return settingsPage(3); }, true},
    {"reports",       QSize(800, 600), [] { return reportsPage(ReportsScreen::CategorySpending, false); }, true},
    {"reports-flow",  QSize(800, 600), [] { return reportsPage(ReportsScreen::CashFlow, false); }, true},
    {"reports-yoy",   QSize(800, 600), [] { return reportsPage(ReportsScreen::YearOverYear, true); }, true},
    {"reports-list",  QSize(800, 600), [] { return reportsPage(ReportsScreen::Transactions, false); }, true},
    {"search",        QSize(800, 550),  searchPage                    , true},
    {"payees",        QSize(550, 500),  payeesPage                    , true},
    {"categories",    QSize(600, 500),  categoriesPage                , true},
    {"update",        QSize(520, 420),  [] { return updateDialog(true, false); } },
    {"update-nonotes", QSize(520, 0),   [] { return updateDialog(false, false); }},
    {"update-mandatory", QSize(520, 420), [] { return updateDialog(true, true); }},
    {"whatsnew",      QSize(560, 480),  whatsNewDialog                },
    {"account-profile",  QSize(600, 550), [] { return accountPage(HalcAccount::AccountScreen::Tab::Profile); }, true},
    {"account-group",    QSize(600, 550), [] { return accountPage(HalcAccount::AccountScreen::Tab::Group); }, true},
    {"account-member",   QSize(600, 550), [] { return accountPage(HalcAccount::AccountScreen::Tab::Group, false); }, true},
    {"account-devices",  QSize(600, 550), [] { return accountPage(HalcAccount::AccountScreen::Tab::Devices); }, true},
    {"account-security", QSize(600, 550), [] { return accountPage(HalcAccount::AccountScreen::Tab::Security); }, true},
    {"account-privacy",  QSize(600, 550), [] { return accountPage(HalcAccount::AccountScreen::Tab::Privacy); }, true},
    {"account-privacy-member", QSize(600, 550), [] { return accountPage(HalcAccount::AccountScreen::Tab::Privacy, false); }, true},
    {"share",            QSize(620, 620), [] { return shareDialog(false); }},
    {"share-failed",     QSize(620, 620), [] { return shareDialog(true); }},
};
// clang-format on

bool render(const Page &page, const QString &path)
{
    std::unique_ptr<QWidget> widget(page.create());
    // A height of 0 lets a dialog take the height its form asks for.
    const QSize size = page.scaled ? page.size * (ThemeManager::currentFontScale() / 100.0) : page.size;
    widget->resize(size.width(), size.height() > 0 ? size.height() : widget->sizeHint().height());
    widget->show();
    QApplication::processEvents();
    return widget->grab().save(path);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QTextStream err(stderr);
    if (argc < 2) {
        err << "usage: ombrel_screenshots <output directory> [en|es|de|fr|ja] [page name...]\n";
        return 2;
    }
    // The language is optional: a second argument that names none is the first page name.
    int firstPage = 2;
    QString language = QStringLiteral("en");
    if (argc > 2 && supportedLanguages().contains(QString::fromLocal8Bit(argv[2]))) {
        language = QString::fromLocal8Bit(argv[2]);
        firstPage = 3;
    }
    // As the program does at start, and before anything is built: the default categories are seeded
    // in this language. The locale follows, so that money and dates look as they would to that user.
    QLocale::setDefault(QLocale(language));
    QTranslator qtTranslator;
    QTranslator appTranslator;
    if (qtTranslator.load(QLocale(language), QStringLiteral("qtbase"), QStringLiteral("_"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&qtTranslator);
    if (appTranslator.load(QStringLiteral(":/i18n/ombrel_%1.qm").arg(language)))
        QCoreApplication::installTranslator(&appTranslator);
    const QDir out(QString::fromLocal8Bit(argv[1]));
    QStringList only;
    for (int i = firstPage; i < argc; ++i)
        only.append(QString::fromLocal8Bit(argv[i]));
    if (!QDir().mkpath(out.path())) {
        err << "cannot create " << out.path() << "\n";
        return 1;
    }
    QFontDatabase::addApplicationFont(QString::fromLatin1(AppIdentity::kIconFont));

    // A data directory and settings of its own: the user's are never touched.
    QTemporaryDir dataDir;
    qputenv("OMBREL_DATA_DIR", dataDir.filePath(QStringLiteral("data")).toUtf8());
    qputenv("XDG_CONFIG_HOME", dataDir.filePath(QStringLiteral("config")).toUtf8());
    AppState state;
    if (!dataDir.isValid() || !state.initialize()) {
        err << "cannot open a temporary database\n";
        return 1;
    }
    g_state = &state;
    g_importDir = dataDir.path();
    addAccounts();
    addRegisterRows();
    addRecurringRules();
    addReconciliations();
    categoriseRows();
    ThemeManager &theme = *state.themeManager();

    const std::pair<ThemeManager::Theme, const char *> themes[] = {
        {ThemeManager::Light, "light"},
        {ThemeManager::Dark,  "dark" },
    };
    int failures = 0;
    for (const auto &[value, themeName] : themes) {
        theme.setTheme(value);
        for (const int scale : {100, 150}) {
            theme.setFontScale(scale);
            for (const Page &page : kPages) {
                if (!only.isEmpty() && !only.contains(QLatin1String(page.name)))
                    continue;
                const QString path = out.filePath(QStringLiteral("%1-%2-%3-%4.png")
                                                      .arg(QLatin1String(page.name), QLatin1String(themeName),
                                                           QString::number(scale), language));
                if (!render(page, path)) {
                    err << "cannot write " << path << "\n";
                    ++failures;
                }
            }
        }
    }
    return failures == 0 ? 0 : 1;
}
