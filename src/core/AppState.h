#pragma once

#include <QObject>
#include <QString>

class AccountRepository;
class AccountSharingService;
class BackupService;
class CategoryRepository;
class CategoryService;
class Database;
class ImportService;
class PreferencesRepository;
class ReconciliationRepository;
class RecurringRepository;
class RecurringService;
class ReportService;
class SplitLineRepository;
class SyncEngine;
class ThemeManager;
class TransactionRepository;

namespace HalcAccount {
class Client;
}

// The composition root: owns the database and everything built on it, and is handed to every screen.
// Its objects are children of it, so they are destroyed in the order they were made, the database first.
class AppState : public QObject {
    Q_OBJECT
public:
    explicit AppState(QObject *parent = nullptr);
    ~AppState() override;

    // False when the database cannot be opened or migrated; the caller tells the user.
    bool initialize();

    Database *database() const { return m_database; }
    AccountRepository *accounts() const { return m_accounts; }
    TransactionRepository *transactions() const { return m_transactions; }
    CategoryRepository *categories() const { return m_categories; }
    PreferencesRepository *preferences() const { return m_preferences; }
    SplitLineRepository *splitLines() const { return m_splitLines; }
    RecurringRepository *recurring() const { return m_recurring; }
    ReconciliationRepository *reconciliations() const { return m_reconciliations; }
    CategoryService *categoryService() const { return m_categoryService; }
    RecurringService *recurringService() const { return m_recurringService; }
    ReportService *reportService() const { return m_reportService; }
    ImportService *importService() const { return m_importService; }
    BackupService *backupService() const { return m_backupService; }
    AccountSharingService *sharingService() const { return m_sharingService; }
    HalcAccount::Client *accountClient() const { return m_accountClient; }
    SyncEngine *syncEngine() const { return m_syncEngine; }
    ThemeManager *themeManager() const { return m_themeManager; }

    QString currentAccountId() const { return m_currentAccountId; }
    // Remembers the choice for the next start; no signal when it is already current.
    void setCurrentAccountId(const QString &id);

signals:
    void currentAccountChanged(const QString &accountId);
    void databaseReady();

private:
    void buildAccountClient();
    void buildSync();
    void connectAccountClient();
    void applyAppearance();
    // Where signing in hands over to the sync engine: its auto-sync timer and a first cycle.
    void startAutoSync();

    Database *m_database = nullptr;
    AccountRepository *m_accounts = nullptr;
    TransactionRepository *m_transactions = nullptr;
    CategoryRepository *m_categories = nullptr;
    PreferencesRepository *m_preferences = nullptr;
    SplitLineRepository *m_splitLines = nullptr;
    RecurringRepository *m_recurring = nullptr;
    ReconciliationRepository *m_reconciliations = nullptr;
    CategoryService *m_categoryService = nullptr;
    RecurringService *m_recurringService = nullptr;
    ReportService *m_reportService = nullptr;
    ImportService *m_importService = nullptr;
    BackupService *m_backupService = nullptr;
    AccountSharingService *m_sharingService = nullptr;
    HalcAccount::Client *m_accountClient = nullptr;
    SyncEngine *m_syncEngine = nullptr;
    ThemeManager *m_themeManager = nullptr;
    QString m_currentAccountId;
};
