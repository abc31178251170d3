#include "core/AppState.h"

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

#include <QApplication>
#include <QDebug>

namespace {
const QString kLastViewedAccount = QStringLiteral("lastViewedAccountId");
}

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

    applyAppearance();

    // On a fresh file this runs before any window exists, in the language chosen at start, so the
    // seeded names and their identifiers follow it.
    m_categoryService->seedDefaultsIfEmpty();

    // Not checked against the accounts: the main window falls back when it no longer exists.
    if (const auto last = m_preferences->get(kLastViewedAccount))
        m_currentAccountId = *last;

    emit databaseReady();
    return true;
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
