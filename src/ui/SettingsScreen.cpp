#include "ui/SettingsScreen.h"

#include "account/AuthClient.h"
#include "account/Client.h"
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
#include "services/BackupService.h"
#include "sync/SyncEngine.h"
#include "ui/Prompt.h"
#include "ui/UiStyle.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDate>
#include <QDebug>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QProgressDialog>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr char kMuted[] = "#6E8A7E";

QLabel *mutedLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    applyFontRole(label, 2);
    label->setWordWrap(true);
    label->setStyleSheet(QStringLiteral("color: %1;").arg(QLatin1String(kMuted)));
    return label;
}

QComboBox *comboBox(const QString &objectName, QWidget *parent)
{
    auto *combo = new QComboBox(parent);
    combo->setObjectName(objectName);
    combo->setMinimumWidth(150);
    return combo;
}

// The modal progress of an export or a restore, which run on this thread: each report from the
// service moves the bar and lets the event loop paint for a moment, without taking user input.
class BackupProgress {
public:
    BackupProgress(QWidget *parent, BackupService *service, const QString &label)
        : m_dialog(label, QString(), 0, 0, parent)
    {
        m_dialog.setWindowModality(Qt::WindowModal);
        m_dialog.setMinimumDuration(500);
        m_dialog.setAutoClose(false);
        m_dialog.setAutoReset(false);
        m_connection =
            QObject::connect(service, &BackupService::progress, &m_dialog, [this](qint64 done, qint64 total) {
                m_dialog.setMaximum(int(qMin<qint64>(total, INT_MAX)));
                m_dialog.setValue(int(qMin<qint64>(done, INT_MAX)));
                QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 5);
            });
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 5);
    }
    ~BackupProgress() { QObject::disconnect(m_connection); }

private:
    QProgressDialog m_dialog;
    QMetaObject::Connection m_connection;
};

} // namespace

SettingsScreen::SettingsScreen(AppState *state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
{
    setupUi();
    loadControls();
    applyColors();
    refresh();
}

void SettingsScreen::setupUi()
{
    m_categoryList = new QListWidget(this);
    m_categoryList->setObjectName(QStringLiteral("categoryList"));
    m_categoryList->addItems({tr("General"), tr("Register"), tr("Data & Sync"), tr("About")});
    // Wide enough for the longest page name of the language in use ("Daten & Synchronisierung").
    m_categoryList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_categoryList->setFixedWidth(
        std::max(140, m_categoryList->sizeHintForColumn(0) + 2 * m_categoryList->frameWidth() + 4));
    m_categoryList->setStyleSheet(
        QStringLiteral("QListWidget { outline: none; } QListWidget::item { padding: 6px 8px; }"));

    m_pages = new QStackedWidget(this);
    m_pages->addWidget(buildGeneralPage());
    m_pages->addWidget(buildRegisterPage());
    m_pages->addWidget(buildDataPage());
    m_pages->addWidget(buildAboutPage());

    // A page never scrolls sideways: the window grows instead to the widest row of buttons, which in
    // some languages is wider than the English window.
    for (QScrollArea *scroll : m_pages->findChildren<QScrollArea *>()) {
        scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        scroll->setMinimumWidth(scroll->widget()->minimumSizeHint().width() +
                                scroll->verticalScrollBar()->sizeHint().width());
    }

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_categoryList);
    layout->addWidget(m_pages, 1);

    connect(m_categoryList, &QListWidget::currentRowChanged, this, &SettingsScreen::onCategoryChanged);
    m_categoryList->setCurrentRow(0);
}

QVBoxLayout *SettingsScreen::newPage(QWidget **page, const QString &title, const QString &description,
                                     int titleRole)
{
    auto *scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    auto *content = new QWidget(scroll);
    scroll->setWidget(content);
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(12, 4, 12, 12);
    layout->setSpacing(8);

    auto *heading = new QLabel(title, content);
    applyFontRole(heading, titleRole);
    layout->addWidget(heading);
    if (!description.isEmpty())
        layout->addWidget(mutedLabel(description, content));
    *page = scroll;
    return layout;
}

QVBoxLayout *SettingsScreen::addSection(QVBoxLayout *page, const QString &heading, const QString &description,
                                        QWidget **section)
{
    auto *box = new QWidget;
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 8, 0, 8);
    layout->setSpacing(6);
    // The page's title stands above the first section; every later one is set off by a line.
    const bool first = !page->property("hasSection").toBool();
    page->setProperty("hasSection", true);
    if (!first) {
        auto *line = new QFrame(box);
        line->setFixedHeight(1);
        m_separators << line;
        layout->addWidget(line);
        layout->addSpacing(4);
    }
    auto *title = new QLabel(heading, box);
    applyFontRole(title, 3);
    layout->addWidget(title);
    if (!description.isEmpty())
        layout->addWidget(mutedLabel(description, box));
    page->addWidget(box);
    if (section)
        *section = box;
    return layout;
}

QWidget *SettingsScreen::buildGeneralPage()
{
    QWidget *page = nullptr;
    QVBoxLayout *layout = newPage(&page, tr("General"), tr("Control how Halcyra Ombrel looks."));

    QVBoxLayout *appearance = addSection(layout, tr("Appearance"), QString());
    auto *appearanceForm = new QFormLayout;
    m_theme = comboBox(QStringLiteral("themeCombo"), page);
    m_theme->addItem(tr("System Default"), QStringLiteral("system"));
    m_theme->addItem(tr("Light"), QStringLiteral("light"));
    m_theme->addItem(tr("Dark"), QStringLiteral("dark"));
    appearanceForm->addRow(tr("Theme"), m_theme);
    m_fontSize = comboBox(QStringLiteral("fontSizeCombo"), page);
    m_fontSize->addItem(tr("Small"), 85);
    m_fontSize->addItem(tr("Default"), 100);
    m_fontSize->addItem(tr("Medium"), 115);
    m_fontSize->addItem(tr("Large"), 130);
    m_fontSize->addItem(tr("Extra Large"), 150);
    appearanceForm->addRow(tr("Font size"), m_fontSize);
    appearance->addLayout(appearanceForm);

    QVBoxLayout *regional = addSection(layout, tr("Regional"), tr("Date and calendar preferences."));
    auto *regionalForm = new QFormLayout;
    m_weekStart = comboBox(QStringLiteral("weekStartCombo"), page);
    m_weekStart->addItem(tr("Sunday"), 7);
    m_weekStart->addItem(tr("Monday"), 1);
    m_weekStart->addItem(tr("Saturday"), 6);
    regionalForm->addRow(tr("Week starts on"), m_weekStart);
    m_language = comboBox(QStringLiteral("languageCombo"), page);
    // Each language by its own name, so that it can be found by someone who cannot read the current one.
    m_language->addItem(QStringLiteral("English"), QStringLiteral("en"));
    m_language->addItem(QStringLiteral("Español"), QStringLiteral("es"));
    m_language->addItem(QStringLiteral("Deutsch"), QStringLiteral("de"));
    m_language->addItem(QStringLiteral("Français"), QStringLiteral("fr"));
    m_language->addItem(QStringLiteral("日本語"), QStringLiteral("ja"));
    regionalForm->addRow(tr("Language"), m_language);
    regional->addLayout(regionalForm);

    layout->addStretch();
    connect(m_theme, &QComboBox::currentIndexChanged, this, &SettingsScreen::onThemeChanged);
    connect(m_fontSize, &QComboBox::currentIndexChanged, this, &SettingsScreen::onFontScaleChanged);
    connect(m_weekStart, &QComboBox::currentIndexChanged, this, &SettingsScreen::onWeekStartChanged);
    connect(m_language, &QComboBox::currentIndexChanged, this, &SettingsScreen::onLanguageChanged);
    return page;
}

QWidget *SettingsScreen::buildRegisterPage()
{
    QWidget *page = nullptr;
    QVBoxLayout *layout = newPage(&page, tr("Register"), tr("How transactions appear in the register."));

    QVBoxLayout *display = addSection(layout, tr("Display"), QString());
    m_twoLine = new QCheckBox(tr("Two-line rows"), page);
    m_twoLine->setObjectName(QStringLiteral("twoLineCheck"));
    display->addWidget(m_twoLine);
    display->addWidget(mutedLabel(tr("Show memo on a second line below the payee."), page));

    QVBoxLayout *sorting =
        addSection(layout, tr("Sorting"), tr("Control the order of transactions in the register."));
    m_newestFirst = new QCheckBox(tr("Show newest transactions first"), page);
    m_newestFirst->setObjectName(QStringLiteral("newestFirstCheck"));
    sorting->addWidget(m_newestFirst);
    sorting->addWidget(mutedLabel(tr("When enabled, the most recent transactions appear at the top."), page));

    layout->addStretch();
    connect(m_twoLine, &QCheckBox::toggled, this, &SettingsScreen::onTwoLineModeChanged);
    connect(m_newestFirst, &QCheckBox::toggled, this, &SettingsScreen::onRegisterOrderChanged);
    return page;
}

QWidget *SettingsScreen::buildDataPage()
{
    QWidget *page = nullptr;
    QVBoxLayout *layout = newPage(&page, tr("Data & Sync"), QString());

    QVBoxLayout *sync =
        addSection(layout, tr("Sync"), tr("Keep your ombrel in sync across all your devices."));
    m_syncStatus = new QLabel(page);
    m_syncStatus->setObjectName(QStringLiteral("syncStatusLabel"));
    m_syncStatus->setWordWrap(true);
    sync->addWidget(m_syncStatus);
    m_lastSync = mutedLabel(QString(), page);
    m_lastSync->setObjectName(QStringLiteral("lastSyncLabel"));
    sync->addWidget(m_lastSync);
    m_syncError = new QLabel(page);
    m_syncError->setObjectName(QStringLiteral("syncErrorLabel"));
    m_syncError->setWordWrap(true);
    sync->addWidget(m_syncError);
    auto *syncButtons = new QHBoxLayout;
    m_syncNow = new QPushButton(tr("Sync Now"), page);
    m_syncNow->setObjectName(QStringLiteral("syncNowButton"));
    m_forceFullSync = new QPushButton(tr("Force Full Sync"), page);
    m_forceFullSync->setObjectName(QStringLiteral("forceFullSyncButton"));
    syncButtons->addWidget(m_syncNow);
    syncButtons->addWidget(m_forceFullSync);
    syncButtons->addStretch();
    sync->addLayout(syncButtons);

    QVBoxLayout *backup = addSection(layout, tr("Backup & Restore"),
                                     tr("Save or restore your data to a portable backup file."));
    auto *backupButtons = new QHBoxLayout;
    m_exportButton = new QPushButton(tr("Export Backup"), page);
    m_exportButton->setObjectName(QStringLiteral("exportBackupButton"));
    m_importButton = new QPushButton(tr("Import Backup"), page);
    m_importButton->setObjectName(QStringLiteral("importBackupButton"));
    backupButtons->addWidget(m_exportButton);
    backupButtons->addWidget(m_importButton);
    backupButtons->addStretch();
    backup->addLayout(backupButtons);

    QVBoxLayout *deleted = addSection(layout, tr("Deleted Accounts"),
                                      tr("Accounts you've deleted can be restored here."), &m_deletedSection);
    m_deletedSection->setObjectName(QStringLiteral("deletedAccountsSection"));
    m_deletedList = new QListWidget(page);
    m_deletedList->setObjectName(QStringLiteral("deletedAccountsList"));
    m_deletedList->setMaximumHeight(140);
    deleted->addWidget(m_deletedList);
    auto *restoreRow = new QHBoxLayout;
    m_restoreButton = new QPushButton(tr("Restore Selected"), page);
    m_restoreButton->setObjectName(QStringLiteral("restoreAccountButton"));
    restoreRow->addWidget(m_restoreButton);
    restoreRow->addStretch();
    deleted->addLayout(restoreRow);

    layout->addStretch();
    connect(m_syncNow, &QPushButton::clicked, this, &SettingsScreen::syncNow);
    connect(m_forceFullSync, &QPushButton::clicked, this, &SettingsScreen::forceFullSync);
    // Signing in or out while the window is open changes what the section may offer.
    connect(m_state->accountClient()->authClient(), &HalcAccount::AuthClient::stateChanged, this,
            &SettingsScreen::refreshSyncStatus);
    connect(m_exportButton, &QPushButton::clicked, this, &SettingsScreen::exportBackup);
    connect(m_importButton, &QPushButton::clicked, this, &SettingsScreen::importBackup);
    connect(m_deletedList, &QListWidget::currentRowChanged, this,
            [this](int row) { m_restoreButton->setEnabled(row >= 0); });
    connect(m_restoreButton, &QPushButton::clicked, this, &SettingsScreen::restoreSelectedAccount);
    return page;
}

QWidget *SettingsScreen::buildAboutPage()
{
    QWidget *page = nullptr;
    QVBoxLayout *layout = newPage(&page, QString::fromLatin1(AppIdentity::kDisplayName), QString(), 5);
    layout->addWidget(
        new QLabel(tr("Version %1").arg(QLatin1String(AppIdentity::kApplicationVersion)), page));
    auto *tagline = new QLabel(tr("A digital ombrel register for tracking household finances."), page);
    tagline->setWordWrap(true);
    layout->addWidget(tagline);

    QVBoxLayout *links = addSection(layout, tr("Links"), QString());
    const std::pair<QString, QString> targets[] = {
        {tr("Halcyra Ombrel on the web"), QStringLiteral("https://halcyra.com/ombrel") },
        {tr("Halcyra Store"),             QStringLiteral("https://halcyra.com/store")  },
        {tr("Help and support"),          QStringLiteral("https://halcyra.com/support")},
    };
    for (const auto &[text, url] : targets) {
        auto *link = new QLabel(page);
        link->setProperty("linkText", text);
        link->setProperty("linkUrl", url);
        link->setOpenExternalLinks(true);
        link->setTextInteractionFlags(Qt::TextBrowserInteraction);
        links->addWidget(link);
        m_links << link;
    }

    layout->addSpacing(8);
    layout->addWidget(mutedLabel(tr("© 2026 Halcyra. All rights reserved.\nBuilt with the Qt framework, used "
                                    "under the GNU LGPL version 3."),
                                 page));
    layout->addStretch();
    return page;
}

// The controls show what is stored; their signals are held so that showing is not taken for a change.
void SettingsScreen::loadControls()
{
    const QSignalBlocker blockTheme(m_theme);
    const QSignalBlocker blockFont(m_fontSize);
    const QSignalBlocker blockWeek(m_weekStart);
    const QSignalBlocker blockLanguage(m_language);
    const QSignalBlocker blockTwoLine(m_twoLine);
    const QSignalBlocker blockNewest(m_newestFirst);

    PreferencesRepository *preferences = m_state->preferences();
    m_theme->setCurrentIndex(
        qMax(0, m_theme->findData(preferences->getOr(QStringLiteral("theme"), QStringLiteral("system")))));
    const int scale = m_fontSize->findData(ThemeManager::currentFontScale());
    m_fontSize->setCurrentIndex(scale >= 0 ? scale : m_fontSize->findData(100));
    // With nothing stored the calendars follow the locale; a locale's first day that is not offered
    // (a Friday, say) leaves the box empty rather than claim a choice nobody made.
    m_weekStart->setCurrentIndex(m_weekStart->findData(int(ThemeManager::firstDayOfWeek())));
    m_language->setCurrentIndex(qMax(0, m_language->findData(resolvedLanguage(true))));
    m_twoLine->setChecked(preferences->getBool(QStringLiteral("registerTwoLine"), false));
    m_newestFirst->setChecked(preferences->getBool(QStringLiteral("registerNewestFirst"), false));
}

void SettingsScreen::refresh()
{
    refreshSyncStatus();
    refreshDeletedAccounts();
}

void SettingsScreen::refreshSyncStatus()
{
    HalcAccount::Client *client = m_state->accountClient();
    const bool signedIn = client && client->isAuthenticated();
    // While a cycle started here runs, its watch owns the buttons.
    if (!m_syncWatch) {
        m_syncNow->setEnabled(signedIn);
        m_forceFullSync->setEnabled(signedIn);
    }
    if (!signedIn) {
        m_syncStatus->setTextFormat(Qt::PlainText);
        m_syncStatus->setText(tr("Not signed in.\nSign in via File › Halcyra Account to enable sync."));
        m_lastSync->hide();
        m_syncError->hide();
        return;
    }

    const HalcAccount::User user = client->authClient()->currentUser();
    QString name = !user.displayName.isEmpty() ? user.displayName : user.email;
    if (name.isEmpty())
        name = tr("Halcyra user");
    SyncEngine *engine = m_state->syncEngine();
    const SyncEngine::SyncState state = engine->state();
    const bool dark = isDarkPalette();
    const char *color = nullptr;
    switch (state) {
    case SyncEngine::SyncState::Syncing: color = "#00897B"; break;
    case SyncEngine::SyncState::Error: color = dark ? "#FF8A80" : "#C62828"; break;
    case SyncEngine::SyncState::Offline: color = dark ? "#FFA726" : "#E65100"; break;
    case SyncEngine::SyncState::Idle: color = dark ? "#66BB6A" : "#2E7D32"; break;
    }
    m_syncStatus->setTextFormat(Qt::RichText);
    m_syncStatus->setText(
        tr("<b>Signed in as:</b> %1<br><b>Status:</b> <span style=\"color:%2\">%3</span>")
            .arg(name.toHtmlEscaped(), QLatin1String(color), SyncEngine::statusText(state).toHtmlEscaped()));

    const QDateTime last = QDateTime::fromString(
        m_state->preferences()->getOr(QStringLiteral("lastSyncTimestamp"), QString()), Qt::ISODate);
    m_lastSync->setText(
        last.isValid() ? tr("Last synced: %1")
                             .arg(QLocale().toString(last.toLocalTime(), QStringLiteral("MMM d, h:mm ap")))
                       : tr("Never synced"));
    m_lastSync->show();
    const QString error = engine->lastError();
    m_syncError->setText(tr("\nError: %1").arg(error));
    m_syncError->setVisible(!error.isEmpty());
}

void SettingsScreen::syncNow()
{
    m_syncNow->setEnabled(false);
    m_syncNow->setText(tr("Syncing..."));
    startWatchedSync();
}

void SettingsScreen::forceFullSync()
{
    if (Prompt::question(this, tr("Force Full Sync"),
                         tr("This will re-upload every local row to the server and re-download all server "
                            "data. Use this if data appears out of sync between devices.\n\nContinue?"),
                         QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
        return;
    const int accounts = m_state->accounts()->markAllPendingForResync();
    const int categories = m_state->categories()->markAllPendingForResync();
    const int transactions = m_state->transactions()->markAllPendingForResync();
    const int recurrings = m_state->recurring()->markAllPendingForResync();
    const int reconciliations = m_state->reconciliations()->markAllPendingForResync();
    qInfo() << "Force Full Sync: marked pending —"
            << "accounts:" << accounts << "categories:" << categories << "transactions:" << transactions
            << "recurrings:" << recurrings << "reconciliations:" << reconciliations;
    // Without a timestamp the pull starts from nothing and brings the server's every row.
    m_state->preferences()->remove(QStringLiteral("lastSyncTimestamp"));
    m_syncNow->setEnabled(false);
    m_syncNow->setText(tr("Syncing..."));
    m_forceFullSync->setEnabled(false);
    startWatchedSync();
}

void SettingsScreen::startWatchedSync()
{
    if (!m_syncWatch) {
        m_syncWatch = connect(m_state->syncEngine(), &SyncEngine::stateChanged, this,
                              [this](SyncEngine::SyncState state) {
                                  if (state != SyncEngine::SyncState::Syncing)
                                      releaseSyncButtons();
                              });
    }
    SyncEngine *engine = m_state->syncEngine();
    engine->syncNow();
    // A session without a usable token leaves an idle engine idle, and no state change would come.
    if (m_syncWatch && engine->state() != SyncEngine::SyncState::Syncing)
        releaseSyncButtons();
}

void SettingsScreen::releaseSyncButtons()
{
    disconnect(std::exchange(m_syncWatch, {}));
    m_syncNow->setText(tr("Sync Now"));
    m_syncNow->setEnabled(true);
    m_forceFullSync->setEnabled(true);
    refresh();
}

void SettingsScreen::refreshDeletedAccounts()
{
    m_deletedList->clear();
    for (const Account &account : m_state->accounts()->getDeleted()) {
        auto *item = new QListWidgetItem(account.name, m_deletedList);
        item->setData(Qt::UserRole, account.id);
    }
    m_deletedList->setCurrentRow(-1);
    m_restoreButton->setEnabled(false);
    m_deletedSection->setVisible(m_deletedList->count() > 0);
}

void SettingsScreen::onCategoryChanged(int row)
{
    if (row >= 0 && row < m_pages->count())
        m_pages->setCurrentIndex(row);
}

void SettingsScreen::onThemeChanged(int index)
{
    m_state->themeManager()->setThemeByName(m_theme->itemData(index).toString());
}

void SettingsScreen::onFontScaleChanged(int index)
{
    m_state->themeManager()->setFontScale(m_fontSize->itemData(index).toInt());
}

void SettingsScreen::onWeekStartChanged(int index)
{
    const int day = m_weekStart->itemData(index).toInt();
    if (day < 1 || day > 7)
        return;
    m_state->preferences()->setInt(QStringLiteral("weekStartDay"), day);
    // The calendars read it each time they open, so the next one already starts on the new day.
    ThemeManager::setFirstDayOfWeek(Qt::DayOfWeek(day));
}

void SettingsScreen::onLanguageChanged(int index)
{
    const QString code = m_language->itemData(index).toString();
    if (code.isEmpty() || code == resolvedLanguage(false))
        return;
    setLanguage(code);
    Prompt::information(this, tr("Language Changed"),
                        tr("The new language will take effect the next time you start Halcyra Ombrel."));
}

void SettingsScreen::onRegisterOrderChanged(bool newestFirst)
{
    m_state->preferences()->setBool(QStringLiteral("registerNewestFirst"), newestFirst);
}

void SettingsScreen::onTwoLineModeChanged(bool twoLine)
{
    m_state->preferences()->setBool(QStringLiteral("registerTwoLine"), twoLine);
}

// What the account's delete took with it comes back: the rows deleted within ten seconds before the
// account. Rows deleted one by one before that stay deleted.
void SettingsScreen::restoreSelectedAccount()
{
    const QListWidgetItem *item = m_deletedList->currentItem();
    if (!item)
        return;
    const QString id = item->data(Qt::UserRole).toString();
    const std::optional<Account> account = m_state->accounts()->getById(id);
    if (!account)
        return;
    if (account->deletedAt) {
        const QString since = timestampText(account->deletedAt->addSecs(-10));
        const int transactions = m_state->transactions()->restoreByAccount(id, since);
        const int recurrings = m_state->recurring()->restoreByAccount(id, since);
        const int reconciliations = m_state->reconciliations()->restoreByAccount(id, since);
        qInfo().noquote() << "Restore account" << id << "→ transactions:" << transactions
                          << "recurrings:" << recurrings << "reconciliations:" << reconciliations;
    }
    m_state->accounts()->restore(id);
    refreshDeletedAccounts();
    emit deletedAccountRestored();
}

void SettingsScreen::exportBackup()
{
    const QString path = Prompt::saveFileName(
        this, tr("Export Backup"),
        QStringLiteral("ombrel-backup-%1.zip").arg(QDate::currentDate().toString(Qt::ISODate)),
        tr("ZIP Files (*.zip)"));
    if (path.isEmpty())
        return;
    m_exportButton->setEnabled(false);
    m_exportButton->setText(tr("Exporting..."));

    QByteArray archive;
    {
        BackupProgress progress(this, m_state->backupService(), tr("Exporting backup..."));
        archive = m_state->backupService()->exportToZip();
    }
    // Written aside and renamed over the target at the end, so a failed write leaves an older backup
    // of that name whole.
    QSaveFile file(path);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(archive) == archive.size() && file.commit();
    if (written)
        Prompt::information(this, tr("Backup Complete"),
                            tr("Backup saved to:\n%1").arg(QDir::toNativeSeparators(path)));
    else
        Prompt::warning(this, tr("Backup Failed"),
                        tr("Could not write to:\n%1").arg(QDir::toNativeSeparators(path)), QMessageBox::Ok,
                        QMessageBox::Ok);

    m_exportButton->setText(tr("Export Backup"));
    m_exportButton->setEnabled(true);
}

void SettingsScreen::importBackup()
{
    const QString path = Prompt::openFileName(this, tr("Import Backup"), tr("ZIP Files (*.zip)"));
    if (path.isEmpty())
        return;
    const std::pair<QString, BackupImportMode> modes[] = {
        {tr("Replace all with backup data"),    BackupImportMode::Replace     },
        {tr("Keep newer (compare timestamps)"), BackupImportMode::KeepNewer   },
        {tr("Skip existing items"),             BackupImportMode::SkipExisting},
    };
    QStringList labels;
    for (const auto &mode : modes)
        labels << mode.first;
    const std::optional<QString> choice =
        Prompt::getItem(this, tr("Import Mode"), tr("How should existing data be handled?"), labels);
    if (!choice || !labels.contains(*choice))
        return;
    const BackupImportMode mode = modes[labels.indexOf(*choice)].second;

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Prompt::warning(this, tr("Import Failed"), tr("Could not read file."), QMessageBox::Ok,
                        QMessageBox::Ok);
        return;
    }
    // A file over the limit is not read at all: the service refuses it as it refuses any other non-backup.
    const bool tooLarge = file.size() > BackupService::kMaxArchiveSize;
    if (tooLarge)
        qWarning().noquote() << "Backup import: the file is larger than" << BackupService::kMaxArchiveSize
                             << "bytes";
    const QByteArray data = tooLarge ? QByteArray() : file.readAll();
    if (file.error() != QFileDevice::NoError) {
        Prompt::warning(this, tr("Import Failed"), tr("Could not read file."), QMessageBox::Ok,
                        QMessageBox::Ok);
        return;
    }
    file.close();

    m_importButton->setEnabled(false);
    m_importButton->setText(tr("Importing..."));
    BackupImportResult result;
    {
        BackupProgress progress(this, m_state->backupService(), tr("Restoring backup..."));
        result = m_state->backupService()->importFromZip(data, mode);
    }
    for (const QString &error : std::as_const(result.errors).first(qMin<qsizetype>(result.errors.size(), 20)))
        qWarning().noquote() << "Backup import:" << error;

    QString text =
        tr("Imported %1 items, skipped %2.").arg(result.totalImported()).arg(result.totalSkipped());
    if (!result.errors.isEmpty())
        text += tr("\n\n%n error(s) occurred.", nullptr, int(result.errors.size()));
    Prompt::information(this, tr("Import Complete"), text);

    m_importButton->setText(tr("Import Backup"));
    m_importButton->setEnabled(true);
    refreshDeletedAccounts();
    emit deletedAccountRestored();
}

void SettingsScreen::applyColors()
{
    const bool dark = isDarkPalette();
    const QString line = QLatin1String(dark ? "#2A4038" : "#D8E0DB");
    for (QFrame *separator : std::as_const(m_separators))
        separator->setStyleSheet(QStringLiteral("background-color: %1; border: none;").arg(line));
    // The palette's link colour is a dark blue that vanishes on the dark theme; the product's teal reads on
    // both.
    const QString linkColor = QLatin1String(dark ? "#4DB6AC" : "#00796B");
    for (QLabel *link : std::as_const(m_links))
        link->setText(QStringLiteral("<a href=\"%1\" style=\"color: %2;\">%3</a>")
                          .arg(link->property("linkUrl").toString(), linkColor,
                               link->property("linkText").toString().toHtmlEscaped()));
}

void SettingsScreen::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyColors();
}
