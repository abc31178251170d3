#include "core/AppState.h"

#include "account/AccountClient.h"
#include "account/ApiClient.h"
#include "account/AuthClient.h"
#include "account/Client.h"
#include "core/AppIdentity.h"
#include "core/DataDirectory.h"
#include "core/ThemeManager.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/Database.h"
#include "data/PreferencesRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/RecurringRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "services/BackupService.h"
#include "services/CategoryService.h"
#include "services/ImportService.h"
#include "services/RecurringService.h"
#include "services/ReportService.h"
#include "sync/AccountSharingService.h"
#include "sync/SyncEngine.h"

#include <QApplication>
#include <QDebug>
#include <QUrl>

namespace {
const QString kLastViewedAccount = QStringLiteral("lastViewedAccountId");
constexpr int kAutoSyncIntervalMs = 300000;

// The services' addresses; the environment may point the program at others.
constexpr char kDefaultAuthBaseUrl[] = "https://auth.halcyra.com";
constexpr char kDefaultAccountApiUrl[] = "https://api.halcyra.com/account/v1";
constexpr char kDefaultSyncApiUrl[] = "https://api.halcyra.com/ombrel/v1";
constexpr char kDefaultPortalUrl[] = "https://account.halcyra.com";
constexpr char kDefaultRealmSlug[] = "halcyra";
constexpr char kDefaultClientId[] = "0123456789abcdef0123456789abcdef";

// An empty value counts as unset.
QString environmentOr(const char *name, const char *fallback)
{
    const QString value = qEnvironmentVariable(name);
    return value.isEmpty() ? QString::fromUtf8(fallback) : value;
}
} // namespace

AppState::AppState(QObject *parent)
    : QObject(parent)
{
}

AppState::~AppState() = default;

bool AppState::initialize()
{
    m_database = new Database(this);
    const QString path = databasePath();
    qInfo().noquote() << "Opening database at:" << path;
    if (!m_database->open(path))
        return false;
    if (!m_database->runMigrations())
        return false;

    m_accounts = new AccountRepository(m_database, this);
    m_transactions = new TransactionRepository(m_database, this);
    m_categories = new CategoryRepository(m_database, this);
    m_preferences = new PreferencesRepository(m_database, this);
    m_splitLines = new SplitLineRepository(m_database, this);
    m_recurring = new RecurringRepository(m_database, this);
    m_reconciliations = new ReconciliationRepository(m_database, this);
    m_categoryService = new CategoryService(m_categories, this);
    m_recurringService = new RecurringService(m_recurring, m_transactions, m_accounts, this);
    m_reportService = new ReportService(m_database, this);
    m_importService = new ImportService(m_transactions, m_categories, m_splitLines, this);
    m_backupService = new BackupService(m_database, this);

    buildAccountClient();
    buildSync();
    applyAppearance();

    // On a fresh file this runs before any window exists, in the language chosen at start, so the
    // seeded names and their identifiers follow it.
    m_categoryService->seedDefaultsIfEmpty();

    connectAccountClient();

    // Recurring rules and reconciliations schedule nothing of their own: they go with the next cycle.
    connect(m_accounts, &AccountRepository::accountsChanged, m_syncEngine, &SyncEngine::schedule);
    connect(m_transactions, &TransactionRepository::transactionsChanged, m_syncEngine, &SyncEngine::schedule);
    connect(m_categories, &CategoryRepository::categoriesChanged, m_syncEngine, &SyncEngine::schedule);

    // Not checked against the accounts: the main window falls back when it no longer exists.
    if (const auto last = m_preferences->get(kLastViewedAccount))
        m_currentAccountId = *last;

    emit databaseReady();
    return true;
}

void AppState::buildAccountClient()
{
    const QString authUrl = environmentOr("AUTH_BASE_URL", kDefaultAuthBaseUrl);
    const QString accountUrl = environmentOr("ACCOUNT_API_URL", kDefaultAccountApiUrl);
    const QString syncUrl = environmentOr("SYNC_API_URL", kDefaultSyncApiUrl);
    qInfo().noquote() << "Auth:" << authUrl;
    qInfo().noquote() << "Account:" << accountUrl;
    qInfo().noquote() << "Sync:" << syncUrl;

    const HalcAccount::ClientConfig config{
        authUrl,
        environmentOr("AUTH_REALM_SLUG", kDefaultRealmSlug),
        accountUrl,
        environmentOr("AUTH_CLIENT_ID", kDefaultClientId),
        QString::fromUtf8(AppIdentity::kApplicationIdentifier),
        QString::fromUtf8(AppIdentity::kDisplayName),
        QCoreApplication::applicationVersion(),
        QString(),
        environmentOr("ACCOUNT_PORTAL_URL", kDefaultPortalUrl),
    };
    m_accountClient = new HalcAccount::Client(config, this);
    m_accountClient->syncApiClient()->setBaseUrl(QUrl(syncUrl));
}

void AppState::buildSync()
{
    m_syncEngine = new SyncEngine(m_accountClient->syncApiClient(), m_accounts, m_transactions, m_categories,
                                  m_recurring, m_reconciliations, m_preferences, this);
    // A session whose token is gone or expired would only collect 401s: the engine stays idle.
    m_syncEngine->setSignedInCheck([this] { return m_accountClient && m_accountClient->hasUsableToken(); });
    m_sharingService = new AccountSharingService(m_accountClient->syncApiClient(), this);
}

// Nothing here goes to the network for a user who never signed in: with no stored session the
// client is signed out at once.
void AppState::connectAccountClient()
{
    m_accountClient->initialize();

    HalcAccount::AuthClient *auth = m_accountClient->authClient();
    connect(auth, &HalcAccount::AuthClient::loginSucceeded, this, [this] {
        m_accountClient->accountClient()->registerDevice();
        qInfo() << "loginSucceeded: starting auto-sync + immediate sync";
        startAutoSync();
    });
    // The debounce and a request in flight are left to run out; the signed-in check stops them there.
    connect(auth, &HalcAccount::AuthClient::logoutCompleted, m_syncEngine, &SyncEngine::stop);

    if (auth->isAuthenticated()) {
        auth->refreshToken([this](bool ok) {
            qInfo() << "Startup token refresh:" << (ok ? "ok" : "failed");
            if (!ok)
                return;
            qInfo() << "Startup: starting auto-sync + immediate sync";
            startAutoSync();
        });
    }
}

// start() syncs at once and schedule() once more two seconds later, which picks up what the first
// cycle's own writes changed.
void AppState::startAutoSync()
{
    m_syncEngine->start(kAutoSyncIntervalMs);
    m_syncEngine->schedule();
}

void AppState::applyAppearance()
{
    // The base font is the application's before any theme touched it; every scale works from it.
    ThemeManager::setBaseFont(QApplication::font());

    bool ok = false;
    const int scale = m_preferences->getOr(QStringLiteral("fontScale"), QStringLiteral("100")).toInt(&ok);
    ThemeManager::setCurrentFontScale(ok ? scale : 100);

    m_themeManager = new ThemeManager(m_preferences, this);
    m_themeManager->setThemeByName(m_preferences->getOr(QStringLiteral("theme"), QStringLiteral("system")));

    if (const auto day = m_preferences->get(QStringLiteral("weekStartDay"))) {
        const int value = day->toInt(&ok);
        if (ok && value >= 1 && value <= 7)
            ThemeManager::setFirstDayOfWeek(Qt::DayOfWeek(value));
    }
}

void AppState::setCurrentAccountId(const QString &id)
{
    if (id == m_currentAccountId)
        return;
    m_currentAccountId = id;
    m_preferences->set(kLastViewedAccount, id);
    emit currentAccountChanged(id);
}
