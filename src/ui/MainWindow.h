#pragma once

#include "account/AccountScreen.h"
#include "account/ShareDialogTexts.h"

#include <QHash>
#include <QList>
#include <QMainWindow>
#include <QSet>
#include <QString>

class AppState;
class CategoriesScreen;
class ImportScreen;
class PayeeScreen;
class QAction;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QShortcut;
class QSplitter;
class QStackedWidget;
class ReconciliationHistoryScreen;
class RecurringScreen;
class RegisterScreen;
class ReportsScreen;
class SearchScreen;
class SettingsScreen;
class StatusBar;
class WelcomeScreen;

// The program's one top-level window: the account list and its total on the left, a stack of pages
// with the register at its centre, the menus and the status bar. It borrows AppState, which outlives it.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(AppState *state, QWidget *parent = nullptr);
    ~MainWindow() override;

    // For tests and the screenshot tool: which page the stack shows.
    QWidget *currentPage() const;
    QWidget *welcomePage() const;
    QWidget *registerPage() const;
    QWidget *emptyPage() const;
    // The share dialog's texts for an account of this name, in the user's language.
    static HalcAccount::ShareDialogTexts shareDialogTexts(const QString &accountName);

public slots:
    void onAccountClicked(QListWidgetItem *item);
    void onAccountsChanged();
    void selectAccount(const QString &accountId);
    void showNewAccountDialog();
    void showEditAccountDialog();
    void showReportsWindow();
    void showRecurringWindow();
    void showSearchWindow();
    void showCategoriesWindow();
    void showSettingsWindow();
    void showReconciliationWindow();
    void showReconciliationHistoryWindow();
    void showImportWindow();
    void showPayeesWindow();
    void showShareAccountDialog();
    void onAccountContextMenu(const QPoint &pos);
    void deleteAccount(const QString &accountId);
    void deleteCurrentAccount();
    void showHalcyraAccountScreen(HalcAccount::AccountScreen::Tab tab);
    void showHalcyraAccountScreen();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void setupMenuBar();
    void setupAccountList();
    void updateAuthUI();
    void connectSignIn();
    bool isSignedIn() const;
    QWidget *buildEmptyPage();
    void rebuildListStyle();
    void rebuildShortcuts();
    void showInitialPage();
    void showNoAccountPage();
    bool hasCurrentAccount();
    void showKeyboardShortcuts();
    void showAbout();
    void queueAccountListRebuild();
    // What a sync cycle tells the window: its state for the label, its end, its failure, new rows.
    void connectSync();
    void postDueRecurring();
    void queueRecurringDue();
    void showRecurringDue();
    // Shows a screen in a window of its own, sized once on first use, and brings it to the front.
    void presentScreen(QWidget *screen, const QString &title, const QSize &defaultSize);
    void loadSampleData();
    void clearSampleData();
    // A change to one account's transactions re-reads that account's balance alone; a burst of them
    // (an import, a catch-up of recurring rows) is read once, after the burst.
    void onTransactionsChanged(const QString &accountId);
    bool refreshBalance(const QString &accountId);

    AppState *m_state = nullptr;
    QListWidget *m_accountList = nullptr;
    QLabel *m_totalLabel = nullptr;
    QSplitter *m_splitter = nullptr;
    WelcomeScreen *m_welcomePage = nullptr;
    RegisterScreen *m_registerPage = nullptr;
    QWidget *m_emptyPage = nullptr;
    QStackedWidget *m_stack = nullptr;
    QAction *m_signOutAction = nullptr;
    QAction *m_accountAction = nullptr;
    StatusBar *m_statusBar = nullptr;
    QList<QShortcut *> m_accountShortcuts;
    QHash<QString, qint64> m_balances;
    QSet<QString> m_staleBalances;
    bool m_balancesQueued = false;
    bool m_accountListRebuildQueued = false;
    bool m_recurringDueQueued = false;
    RecurringScreen *m_recurringScreen = nullptr;
    ReconciliationHistoryScreen *m_reconciliationHistoryScreen = nullptr;
    SettingsScreen *m_settingsScreen = nullptr;
    ReportsScreen *m_reportsScreen = nullptr;
    SearchScreen *m_searchScreen = nullptr;
    CategoriesScreen *m_categoriesScreen = nullptr;
    PayeeScreen *m_payeeScreen = nullptr;
    ImportScreen *m_importScreen = nullptr;
    // Until the constructor has chosen its page, a new list of accounts leaves the page alone.
    bool m_pageChosen = false;
    HalcAccount::AccountScreen *m_halcyraAccountScreen = nullptr;
};
