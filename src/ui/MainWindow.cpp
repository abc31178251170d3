#include "ui/MainWindow.h"

#include "account/AuthClient.h"
#include "account/Client.h"
#include "account/ShareMembersDialog.h"
#include "core/AppIdentity.h"
#include "core/AppState.h"
#include "core/Money.h"
#include "core/ThemeManager.h"
#include "data/AccountRepository.h"
#include "data/PreferencesRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/RecurringRepository.h"
#include "data/TransactionRepository.h"
#include "services/RecurringService.h"
#include "services/SampleDataService.h"
#include "sync/AccountSharingService.h"
#include "sync/SyncEngine.h"
#include "ui/AccountFormDialog.h"
#include "ui/CategoriesScreen.h"
#include "ui/ElidedLabel.h"
#include "ui/ImportScreen.h"
#include "ui/PayeeScreen.h"
#include "ui/Prompt.h"
#include "ui/ReconciliationHistoryScreen.h"
#include "ui/ReconciliationScreen.h"
#include "ui/RecurringScreen.h"
#include "ui/ReportsScreen.h"
#include "ui/SearchScreen.h"
#include "ui/SettingsScreen.h"
#include "ui/StatusBar.h"
#include "ui/UiStyle.h"
#include "ui/WelcomeScreen.h"
#include "ui/register/RegisterScreen.h"
#include "update/Feedback.h"
#include "update/UpdateChecks.h"
#include "update/WhatsNew.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>
#include <QUuid>
#include <QVBoxLayout>

#include <functional>
#include <utility>

namespace {

// The side panel keeps these dark colours in both themes.
constexpr char kPanelBackground[] = "#152420";
constexpr char kPanelText[] = "#8FAF9F";
constexpr char kPanelHover[] = "#1E3530";
constexpr char kPanelBright[] = "#FFFFFF";
constexpr char kPanelSelected[] = "#26574A";
constexpr char kPanelDisabled[] = "#5A7A6E";
constexpr char kPanelBorder[] = "#1E3028";
constexpr char kAccent[] = "#4DB6AC";
constexpr char kMuted[] = "#6E8A7E";
constexpr char kPositive[] = "#66BB6A";
constexpr char kNegative[] = "#FF8A80";

constexpr int kStatusShort = 3000;
constexpr int kStatusLong = 5000;
// A sync ends every few minutes; its note makes way quickly.
constexpr int kSyncCompleteMs = 2000;

QString glyphFor(AccountType type)
{
    switch (type) {
    case AccountType::Checking: return QString(QChar(0xE84F));
    case AccountType::Savings: return QString(QChar(0xE2EB));
    case AccountType::CreditCard: return QString(QChar(0xE870));
    case AccountType::Cash: return QString(QChar(0xE57D));
    case AccountType::Investment: return QString(QChar(0xE8E5));
    case AccountType::Other: break;
    }
    return QString(QChar(0xE850));
}

QString typeName(AccountType type)
{
    switch (type) {
    case AccountType::Checking: return MainWindow::tr("Checking");
    case AccountType::Savings: return MainWindow::tr("Savings");
    case AccountType::CreditCard: return MainWindow::tr("Credit Card");
    case AccountType::Cash: return MainWindow::tr("Cash");
    case AccountType::Investment: return MainWindow::tr("Investment");
    case AccountType::Other: break;
    }
    return MainWindow::tr("Other");
}

QFont iconFont(int pixelSize)
{
    QFont font(QStringLiteral("Material Icons"));
    font.setPixelSize(pixelSize);
    return font;
}

// Keeps the item widgets as wide as the list when the panel is resized or first shown; it never eats
// the event.
class ListResizeWatcher : public QObject {
public:
    ListResizeWatcher(std::function<void()> callback, QObject *parent)
        : QObject(parent)
        , m_callback(std::move(callback))
    {
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
            m_callback();
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_callback;
};

// The list item's account currency, so that a balance can be shown again without reading the account.
constexpr int kCurrencyRole = Qt::UserRole + 1;

void showBalance(QLabel *amount, qint64 balance, Currency currency)
{
    amount->setText(formatAmount(balance, currency));
    amount->setStyleSheet(
        QStringLiteral("color: %1;").arg(QLatin1String(balance < 0 ? kNegative : kPositive)));
    amount->setMinimumWidth(QFontMetrics(amount->font()).horizontalAdvance(amount->text()) + 4);
}

} // namespace

MainWindow::MainWindow(AppState *state, QWidget *parent)
    : QMainWindow(parent)
    , m_state(state)
{
    setWindowTitle(tr("Halcyra Ombrel"));
    const QByteArray geometry = QSettings().value(QStringLiteral("mainwindow/geometry")).toByteArray();
    if (geometry.isEmpty() || !restoreGeometry(geometry))
        resize(1280, 900);

    setupMenuBar();

    m_registerPage = new RegisterScreen(m_state, this);
    m_registerPage->setObjectName(QStringLiteral("registerPage"));
    m_welcomePage = new WelcomeScreen(this);
    m_emptyPage = buildEmptyPage();
    m_stack = new QStackedWidget(this);
    m_stack->addWidget(m_welcomePage);
    m_stack->addWidget(m_registerPage);
    m_stack->addWidget(m_emptyPage);

    setupAccountList();

    m_statusBar = new StatusBar(this);
    setStatusBar(m_statusBar);
    m_statusBar->refreshColors();

    connectSignIn();
    updateAuthUI();

    onAccountsChanged();
    // Before the list follows every transaction: a long catch-up would rebuild it once per posting.
    postDueRecurring();

    connect(m_state->accounts(), &AccountRepository::accountsChanged, this,
            &MainWindow::queueAccountListRebuild);
    connect(m_state->transactions(), &TransactionRepository::transactionsChanged, this,
            &MainWindow::onTransactionsChanged);
    connect(m_state->themeManager(), &ThemeManager::themeChanged, this, [this] {
        m_statusBar->refreshColors();
        rebuildListStyle();
    });
    connect(m_state->themeManager(), &ThemeManager::fontScaleChanged, this, &MainWindow::rebuildListStyle);
    connect(m_welcomePage, &WelcomeScreen::createAccountRequested, this, &MainWindow::showNewAccountDialog);
    connect(m_registerPage, &RegisterScreen::reconcileRequested, this, &MainWindow::showReconciliationWindow);
    connect(m_registerPage, &RegisterScreen::errorMessage, this,
            [this](const QString &text) { m_statusBar->showTimedMessage(text, kStatusLong); });
    connect(m_state->preferences(), &PreferencesRepository::changed, this, [this](const QString &key) {
        static const QStringList keys{QStringLiteral("registerTwoLine"),
                                      QStringLiteral("registerNewestFirst"), QStringLiteral("weekStartDay"),
                                      QStringLiteral("theme")};
        if (keys.contains(key))
            m_registerPage->refresh();
    });

    connect(m_state->recurring(), &RecurringRepository::recurringChanged, this,
            &MainWindow::queueRecurringDue);
    connect(m_state->recurringService(), &RecurringService::pendingCountChanged, m_statusBar,
            &StatusBar::setRecurringDue);

    connectSync();

    showRecurringDue();
    showInitialPage();
    m_pageChosen = true;
}

void MainWindow::connectSync()
{
    SyncEngine *engine = m_state->syncEngine();
    // Signed out, the engine still falls back to Idle once; the label keeps saying who is not signed in.
    connect(engine, &SyncEngine::stateChanged, this, [this](SyncEngine::SyncState state) {
        if (isSignedIn())
            m_statusBar->setSyncText(SyncEngine::statusText(state));
    });
    connect(engine, &SyncEngine::syncCompleted, this, [this] {
        m_statusBar->showTimedMessage(tr("Sync complete"), kSyncCompleteMs);
        // The first sync of a new device brings its accounts to a welcome or empty page.
        const QString current = m_state->currentAccountId();
        if (current.isEmpty() || !m_state->accounts()->getById(current))
            showInitialPage();
    });
    connect(engine, &SyncEngine::syncFailed, this, [this](const QString &error) {
        m_statusBar->showTimedMessage(tr("Sync failed: %1").arg(error), kStatusLong);
    });
    connect(engine, &SyncEngine::dataChanged, this, [this] {
        onAccountsChanged();
        m_registerPage->refresh();
    });
}

// A pull writes row by row and each write signals; the list is rebuilt once for all of them, when
// the event loop next turns, instead of once per row.
void MainWindow::queueAccountListRebuild()
{
    if (m_accountListRebuildQueued)
        return;
    m_accountListRebuildQueued = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_accountListRebuildQueued = false;
            onAccountsChanged();
        },
        Qt::QueuedConnection);
}

void MainWindow::postDueRecurring()
{
    const int posted = m_state->recurringService()->processAutoPost();
    if (posted <= 0)
        return;
    m_statusBar->showTimedMessage(tr("Auto-posted %n recurring transaction(s)", nullptr, posted),
                                  kStatusLong);
    onAccountsChanged();
}

// The due count reads every rule; a pull that writes rules one by one counts them once, next turn.
void MainWindow::queueRecurringDue()
{
    if (m_recurringDueQueued)
        return;
    m_recurringDueQueued = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_recurringDueQueued = false;
            showRecurringDue();
        },
        Qt::QueuedConnection);
}

void MainWindow::showRecurringDue()
{
    m_statusBar->setRecurringDue(m_state->recurringService()->pendingCount());
}

MainWindow::~MainWindow() = default;

QWidget *MainWindow::currentPage() const
{
    return m_stack->currentWidget();
}

QWidget *MainWindow::welcomePage() const
{
    return m_welcomePage;
}

QWidget *MainWindow::registerPage() const
{
    return m_registerPage;
}

QWidget *MainWindow::emptyPage() const
{
    return m_emptyPage;
}

void MainWindow::setupMenuBar()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    // The register's own insert-new, not its dialog: the row is typed in place.
    QAction *newTransaction = file->addAction(tr("&New Transaction"), this, [this] {
        if (m_stack->currentWidget() == m_registerPage)
            m_registerPage->insertNewRow();
    });
    newTransaction->setShortcut(QKeySequence(QStringLiteral("Ctrl+N")));
    QAction *newAccount = file->addAction(tr("New &Account"), this, &MainWindow::showNewAccountDialog);
    newAccount->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+N")));
    file->addSeparator();
    QAction *import = file->addAction(tr("&Import..."), this, &MainWindow::showImportWindow);
    import->setShortcut(QKeySequence(QStringLiteral("Ctrl+I")));
    file->addSeparator();
    m_accountAction = file->addAction(tr("Halcyra &Account..."));
    file->addSeparator();
    m_signOutAction = file->addAction(tr("Sign &Out"));
    file->addSeparator();
    QAction *quit = file->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
    quit->setMenuRole(QAction::QuitRole);

    QMenu *edit = menuBar()->addMenu(tr("&Edit"));
    QAction *find = edit->addAction(tr("&Find..."), this, &MainWindow::showSearchWindow);
    find->setShortcut(QKeySequence::Find);
    edit->addSeparator();
    edit->addAction(tr("&Preferences..."), this, &MainWindow::showSettingsWindow)
        ->setMenuRole(QAction::PreferencesRole);

    QMenu *account = menuBar()->addMenu(tr("&Account"));
    account->addAction(tr("&Edit..."), this, &MainWindow::showEditAccountDialog);
    account->addAction(tr("&Reconcile..."), this, &MainWindow::showReconciliationWindow)
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+R")));
    account->addAction(tr("Reconciliation &History..."), this, &MainWindow::showReconciliationHistoryWindow);
    account->addAction(tr("Rename &Payees..."), this, &MainWindow::showPayeesWindow);
    account->addSeparator();
    account->addAction(tr("&Share..."), this, &MainWindow::showShareAccountDialog);
    account->addSeparator();
    account->addAction(tr("&Delete"), this, &MainWindow::deleteCurrentAccount);

    QMenu *view = menuBar()->addMenu(tr("&View"));
    view->addAction(tr("&Reports"), this, &MainWindow::showReportsWindow)
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+2")));
    view->addAction(tr("Re&curring Transactions"), this, &MainWindow::showRecurringWindow)
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+3")));
    view->addAction(tr("C&ategories"), this, &MainWindow::showCategoriesWindow)
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+4")));

    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About Halcyra Ombrel"), this, &MainWindow::showAbout)
        ->setMenuRole(QAction::AboutRole);
    const QString displayName = QString::fromLatin1(AppIdentity::kDisplayName);
    help->addAction(tr("What's &New..."), this, [this, displayName] {
        HalcUpdate::showWhatsNew(updateClientConfig(), displayName, this);
    });
    help->addAction(tr("Check for &Updates..."), this, [this, displayName] {
        HalcUpdate::checkForUpdates(
            updateClientConfig(), displayName, this,
            {[this](const QString &text) { m_statusBar->showProgress(text); },
             [this] { m_statusBar->hideProgress(); },
             [this](const QString &text, int msec) { m_statusBar->showTimedMessage(text, msec); }});
    });
    help->addAction(tr("Send &Feedback..."), this, [] { HalcUpdate::openFeedback(feedbackConfig()); });
    help->addSeparator();
    help->addAction(tr("&Keyboard Shortcuts"), this, &MainWindow::showKeyboardShortcuts);
    if (!qEnvironmentVariable("OMBREL_DEV").isEmpty()) {
        help->addSeparator();
        help->addAction(tr("Load &Sample Data"), this, &MainWindow::loadSampleData);
        help->addAction(tr("&Clear Sample Data"), this, &MainWindow::clearSampleData);
    }
}

QWidget *MainWindow::buildEmptyPage()
{
    auto *page = new QWidget(this);
    page->setObjectName(QStringLiteral("emptyPage"));
    auto *layout = new QVBoxLayout(page);
    layout->setAlignment(Qt::AlignCenter);
    layout->setSpacing(12);

    auto *icon = new QLabel(QString(QChar(0xE850)), page);
    icon->setFont(iconFont(96));
    icon->setAlignment(Qt::AlignCenter);
    icon->setStyleSheet(QStringLiteral("color: %1;").arg(QLatin1String(kAccent)));
    layout->addWidget(icon);
    layout->addSpacing(8);

    auto *title = new QLabel(tr("Welcome to Halcyra Ombrel"), page);
    applyFontRole(title, 5);
    title->setAlignment(Qt::AlignCenter);
    layout->addWidget(title);

    auto *subtitle = new QLabel(tr("Create your first account to get started."), page);
    applyFontRole(subtitle, 3);
    subtitle->setAlignment(Qt::AlignCenter);
    subtitle->setStyleSheet(QStringLiteral("color: %1;").arg(QLatin1String(kMuted)));
    layout->addWidget(subtitle);
    layout->addSpacing(16);

    auto *create = new QPushButton(tr("Create Account"), page);
    create->setObjectName(QStringLiteral("createAccountButton"));
    applyPrimaryButtonStyle(create);
    create->setMinimumSize(180, 40);
    create->setCursor(Qt::PointingHandCursor);
    auto *buttonRow = new QHBoxLayout;
    buttonRow->addStretch();
    buttonRow->addWidget(create);
    buttonRow->addStretch();
    layout->addLayout(buttonRow);
    layout->addSpacing(12);

    auto *hint = new QLabel(tr("You can also import transactions from a CSV file via File › Import."), page);
    hint->setWordWrap(true);
    hint->setFixedWidth(480);
    hint->setAlignment(Qt::AlignCenter);
    applyFontRole(hint, 2);
    hint->setStyleSheet(QStringLiteral("color: %1;").arg(QLatin1String(kMuted)));
    layout->addWidget(hint, 0, Qt::AlignHCenter);
    // A centred layout hands a wrapped label its plain size hint, too narrow and too short for the
    // sentence; it gets the full width and the height that width needs, again when the font grows.
    const auto fitHint = [hint] { hint->setMinimumHeight(hint->heightForWidth(hint->width())); };
    fitHint();
    connect(m_state->themeManager(), &ThemeManager::fontScaleChanged, hint, fitHint);

    connect(create, &QPushButton::clicked, this, &MainWindow::showNewAccountDialog);
    return page;
}

void MainWindow::setupAccountList()
{
    m_accountList = new QListWidget(this);
    m_accountList->setObjectName(QStringLiteral("accountList"));
    m_accountList->setMinimumWidth(260);
    m_accountList->setFocusPolicy(Qt::NoFocus);
    m_accountList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_accountList->setContextMenuPolicy(Qt::CustomContextMenu);
    m_accountList->setDragDropMode(QAbstractItemView::InternalMove);
    m_accountList->setDefaultDropAction(Qt::MoveAction);

    m_totalLabel = new QLabel(this);
    m_totalLabel->setObjectName(QStringLiteral("totalLabel"));
    applyFontRole(m_totalLabel, 1);
    m_totalLabel->setAlignment(Qt::AlignCenter);
    m_totalLabel->setFixedHeight(32);
    m_totalLabel->setStyleSheet(
        QStringLiteral("background: %1; color: %2; border-top: 1px solid %3; padding: 4px;")
            .arg(QLatin1String(kPanelBackground), QLatin1String(kPanelText), QLatin1String(kPanelBorder)));
    rebuildListStyle();

    auto *panel = new QWidget(this);
    panel->setMinimumWidth(260);
    panel->setMaximumWidth(500);
    auto *panelLayout = new QVBoxLayout(panel);
    panelLayout->setContentsMargins(0, 0, 0, 0);
    panelLayout->setSpacing(0);
    panelLayout->addWidget(m_accountList, 1);
    panelLayout->addWidget(m_totalLabel);

    m_splitter = new QSplitter(Qt::Horizontal, this);
    m_splitter->addWidget(panel);
    m_splitter->addWidget(m_stack);
    m_splitter->setStretchFactor(0, 0);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setCollapsible(0, false);
    m_splitter->setCollapsible(1, false);
    const QByteArray splitterState = QSettings().value(QStringLiteral("mainwindow/splitter")).toByteArray();
    if (splitterState.isEmpty() || !m_splitter->restoreState(splitterState))
        m_splitter->setSizes({280, 1000});
    setCentralWidget(m_splitter);

    const auto fitItemsToWidth = [this] {
        const int width = m_accountList->viewport()->width();
        if (width < 1)
            return;
        for (int row = 0; row < m_accountList->count(); ++row) {
            QListWidgetItem *item = m_accountList->item(row);
            if (item->sizeHint().width() != width)
                item->setSizeHint(QSize(width, item->sizeHint().height()));
        }
    };
    m_accountList->installEventFilter(new ListResizeWatcher(fitItemsToWidth, m_accountList));
    connect(m_splitter, &QSplitter::splitterMoved, this, fitItemsToWidth);

    connect(m_accountList, &QListWidget::itemClicked, this, &MainWindow::onAccountClicked);
    connect(m_accountList, &QListWidget::customContextMenuRequested, this, &MainWindow::onAccountContextMenu);
    connect(m_accountList->model(), &QAbstractItemModel::rowsMoved, this, [this] {
        QList<QPair<QString, int>> order;
        for (int row = 0; row < m_accountList->count(); ++row) {
            const QString id = m_accountList->item(row)->data(Qt::UserRole).toString();
            if (!id.isEmpty())
                order.append({id, row});
        }
        m_state->accounts()->reorder(order);
    });
}

void MainWindow::rebuildListStyle()
{
    m_accountList->setStyleSheet(
        QStringLiteral(
            "QListWidget {  background-color: %1;  border: none;  outline: none;  padding: 6px 0;  "
            "font-size: %7pt;}QListWidget::item {  color: %2;  padding: 7px 14px;  border: none;}"
            "QListWidget::item:hover {  background-color: %3;  color: %4;}QListWidget::item:selected {  "
            "background-color: %5;  color: %4;}QListWidget::item:disabled {  color: %6;  padding: 10px "
            "14px 4px 14px;  background: transparent;}")
            .arg(QLatin1String(kPanelBackground), QLatin1String(kPanelText), QLatin1String(kPanelHover),
                 QLatin1String(kPanelBright), QLatin1String(kPanelSelected), QLatin1String(kPanelDisabled),
                 QString::number(ThemeManager::scaledPointSize())));
}

void MainWindow::onAccountsChanged()
{
    const QList<Account> accounts = m_state->accounts()->getAll();
    const bool hadAccounts = m_accountList->count() > 0;
    // Rebuilding the items moves rows; that must not be taken for a drag.
    const QSignalBlocker blockModel(m_accountList->model());
    m_accountList->clear();

    const int scaled = ThemeManager::scaledPointSize();
    qint64 total = 0;
    m_balances.clear();
    for (const Account &account : accounts) {
        const qint64 balance = m_state->transactions()->getBalance(account.id);
        total += balance;
        m_balances.insert(account.id, balance);

        auto *row = new QWidget;
        auto *layout = new QHBoxLayout(row);
        layout->setContentsMargins(6, 8, 8, 8);
        layout->setSpacing(8);

        auto *icon = new QLabel(glyphFor(account.accountType), row);
        icon->setFixedSize(24, 24);
        icon->setAlignment(Qt::AlignCenter);
        icon->setFont(iconFont(22));
        icon->setStyleSheet(QStringLiteral("color: %1;").arg(QLatin1String(kAccent)));
        layout->addWidget(icon, 0, Qt::AlignTop);

        auto *text = new QVBoxLayout;
        text->setSpacing(3);
        auto *top = new QHBoxLayout;
        top->setSpacing(8);
        top->setAlignment(Qt::AlignTop);
        auto *name = new ElidedLabel(row);
        applyFontRole(name, 1);
        QFont nameFont = name->font();
        nameFont.setPointSize(scaled);
        nameFont.setWeight(QFont::Medium);
        name->setFont(nameFont);
        name->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        name->setStyleSheet(QStringLiteral("color: %1;").arg(QLatin1String(kPanelBright)));
        name->setFullText(account.name);
        name->setToolTip(account.name);
        top->addWidget(name, 1);

        auto *amount = new QLabel(row);
        amount->setObjectName(QStringLiteral("accountBalance"));
        applyFontRole(amount, 7);
        amount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        amount->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        showBalance(amount, balance, account.currency);
        top->addWidget(amount);
        text->addLayout(top);

        QString typeLine = typeName(account.accountType);
        if (!account.accountNumberLast4.isEmpty())
            typeLine += QStringLiteral("  ·  *%1").arg(account.accountNumberLast4);
        auto *type = new QLabel(typeLine, row);
        applyFontRole(type, 2);
        QFont typeFont = type->font();
        typeFont.setPointSize(qMax(7, qMax(1, scaled) - 2));
        type->setFont(typeFont);
        type->setStyleSheet(QStringLiteral("color: %1;").arg(QLatin1String(kPanelText)));
        text->addWidget(type);
        layout->addLayout(text, 1);

        auto *item = new QListWidgetItem(m_accountList);
        item->setData(Qt::UserRole, account.id);
        item->setData(kCurrencyRole, int(account.currency));
        m_accountList->setItemWidget(item, row);
        // The item's style-sheet padding (7 px above and below) is taken out of the rect the row widget
        // gets, so it is added to the 10 px of room; without it the names lose their descenders.
        item->setSizeHint(QSize(m_accountList->viewport()->width(), row->sizeHint().height() + 10 + 2 * 7));
    }

    m_statusBar->setAccountCount(int(accounts.size()));
    rebuildShortcuts();
    m_totalLabel->setText(accounts.isEmpty() ? tr("No accounts")
                                             : tr("Total: %1").arg(formatAmount(total, Currency::USD)));
    const QString current = m_state->currentAccountId();
    for (int row = 0; row < m_accountList->count(); ++row) {
        if (m_accountList->item(row)->data(Qt::UserRole).toString() == current)
            m_accountList->setCurrentRow(row);
    }
    // The first accounts (sample data, an import, a restored backup) end the page that asks for one.
    if (m_pageChosen && !hadAccounts && !accounts.isEmpty() && m_stack->currentWidget() != m_registerPage)
        showInitialPage();
}

void MainWindow::onTransactionsChanged(const QString &accountId)
{
    if (m_balancesQueued) {
        m_staleBalances.insert(accountId);
        return;
    }
    // The first change shows at once; what follows in the same pass of the event loop waits for it.
    m_balancesQueued = true;
    QTimer::singleShot(0, this, [this] {
        m_balancesQueued = false;
        const QSet<QString> stale = std::exchange(m_staleBalances, {});
        for (const QString &id : stale) {
            if (!refreshBalance(id))
                return;
        }
    });
    refreshBalance(accountId);
}

// False when the whole list is to be rebuilt, which reads every balance anyway.
bool MainWindow::refreshBalance(const QString &accountId)
{
    for (int row = 0; row < m_accountList->count(); ++row) {
        QListWidgetItem *item = m_accountList->item(row);
        if (accountId.isEmpty() || item->data(Qt::UserRole).toString() != accountId)
            continue;
        auto *amount = m_accountList->itemWidget(item)->findChild<QLabel *>(QStringLiteral("accountBalance"));
        const qint64 balance = m_state->transactions()->getBalance(accountId);
        m_balances.insert(accountId, balance);
        showBalance(amount, balance, Currency(item->data(kCurrencyRole).toInt()));
        qint64 total = 0;
        for (const qint64 each : std::as_const(m_balances))
            total += each;
        m_totalLabel->setText(tr("Total: %1").arg(formatAmount(total, Currency::USD)));
        return true;
    }
    // An account the list does not show yet (or a change that names none): the list is rebuilt once,
    // next turn, however many of its rows a pull writes meanwhile.
    queueAccountListRebuild();
    return false;
}

void MainWindow::rebuildShortcuts()
{
    qDeleteAll(m_accountShortcuts);
    m_accountShortcuts.clear();
    const int count = qMin(m_accountList->count(), 10);
    for (int row = 0; row < count; ++row) {
        const QString id = m_accountList->item(row)->data(Qt::UserRole).toString();
        const QKeySequence keys(row < 9 ? QStringLiteral("Alt+%1").arg(row + 1) : QStringLiteral("Alt+0"));
        auto *shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WindowShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, id] { selectAccount(id); });
        m_accountShortcuts.append(shortcut);
    }
}

void MainWindow::onAccountClicked(QListWidgetItem *item)
{
    const QString id = item ? item->data(Qt::UserRole).toString() : QString();
    if (!id.isEmpty())
        selectAccount(id);
}

void MainWindow::selectAccount(const QString &accountId)
{
    m_state->setCurrentAccountId(accountId);
    m_registerPage->setAccount(accountId);
    m_stack->setCurrentWidget(m_registerPage);
    for (int row = 0; row < m_accountList->count(); ++row) {
        if (m_accountList->item(row)->data(Qt::UserRole).toString() == accountId)
            m_accountList->setCurrentRow(row);
    }
}

void MainWindow::showInitialPage()
{
    const QString current = m_state->currentAccountId();
    if (!current.isEmpty() && m_state->accounts()->getById(current)) {
        selectAccount(current);
        return;
    }
    const QList<Account> accounts = m_state->accounts()->getAll();
    if (!accounts.isEmpty()) {
        selectAccount(accounts.first().id);
        return;
    }
    showNoAccountPage();
}

void MainWindow::showNoAccountPage()
{
    m_stack->setCurrentWidget(isSignedIn() ? m_emptyPage : m_welcomePage);
}

bool MainWindow::isSignedIn() const
{
    return m_state->accountClient()->isAuthenticated();
}

void MainWindow::connectSignIn()
{
    HalcAccount::AuthClient *auth = m_state->accountClient()->authClient();
    connect(auth, &HalcAccount::AuthClient::stateChanged, this, &MainWindow::updateAuthUI);
    connect(auth, &HalcAccount::AuthClient::loginSucceeded, this,
            [this] { m_statusBar->showTimedMessage(tr("Signed in successfully"), kStatusShort); });
    connect(auth, &HalcAccount::AuthClient::loginFailed, this, [this](const QString &error) {
        m_statusBar->showTimedMessage(tr("Sign-in failed: %1").arg(error), kStatusLong);
    });
    connect(m_welcomePage, &WelcomeScreen::signInRequested, auth, &HalcAccount::AuthClient::login);
    connect(m_welcomePage, &WelcomeScreen::learnMoreRequested, auth, &HalcAccount::AuthClient::login);
    connect(m_accountAction, &QAction::triggered, this, [this] { showHalcyraAccountScreen(); });
    connect(m_signOutAction, &QAction::triggered, auth, &HalcAccount::AuthClient::logout);
}

void MainWindow::updateAuthUI()
{
    const bool signedIn = isSignedIn();
    m_signOutAction->setVisible(signedIn);
    m_accountAction->setStatusTip(signedIn ? tr("Manage your account") : tr("Sign in or sign up"));
    if (!signedIn) {
        m_statusBar->setSyncText(tr("Not signed in"));
        return;
    }
    m_statusBar->setSyncText(SyncEngine::statusText(m_state->syncEngine()->state()));
    if (m_stack->currentWidget() != m_welcomePage)
        return;
    const QString current = m_state->currentAccountId();
    if (!current.isEmpty() && m_state->accounts()->getById(current))
        selectAccount(current);
    else
        m_stack->setCurrentWidget(m_emptyPage);
}

void MainWindow::showHalcyraAccountScreen()
{
    showHalcyraAccountScreen(HalcAccount::AccountScreen::Tab::Profile);
}

void MainWindow::showHalcyraAccountScreen(HalcAccount::AccountScreen::Tab tab)
{
    HalcAccount::Client *client = m_state->accountClient();
    if (!isSignedIn()) {
        client->authClient()->login();
        return;
    }
    if (!m_halcyraAccountScreen) {
        m_halcyraAccountScreen = new HalcAccount::AccountScreen(client);
        connect(m_halcyraAccountScreen, &HalcAccount::AccountScreen::logoutRequested, client->authClient(),
                &HalcAccount::AuthClient::logout);
    }
    m_halcyraAccountScreen->setCurrentTab(tab);
    presentScreen(m_halcyraAccountScreen, tr("Halcyra Account"), QSize(600, 550));
}

bool MainWindow::hasCurrentAccount()
{
    const QString id = m_state->currentAccountId();
    if (!id.isEmpty() && m_state->accounts()->getById(id))
        return true;
    m_statusBar->showTimedMessage(tr("Select an account first"), kStatusShort);
    return false;
}

void MainWindow::showNewAccountDialog()
{
    AccountFormDialog dialog(this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    Account account = dialog.account();
    if (account.name.isEmpty())
        return;
    // The opening balance is a real, cleared and reconciled transaction, not a stored starting balance:
    // it then shows, reconciles and syncs like any other row.
    const qint64 openingBalance = account.startingBalance;
    account.startingBalance = 0;
    if (!m_state->accounts()->insert(account))
        return;
    if (openingBalance != 0) {
        Transaction opening;
        opening.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
        opening.accountId = account.id;
        opening.date = dialog.openingDate();
        opening.payee = tr("Opening Balance");
        opening.amount = openingBalance;
        opening.cleared = true;
        opening.reconciled = true;
        opening.createdAt = QDateTime::currentDateTimeUtc();
        opening.updatedAt = opening.createdAt;
        m_state->transactions()->insert(opening);
    }
    selectAccount(account.id);
}

void MainWindow::showEditAccountDialog()
{
    if (!hasCurrentAccount())
        return;
    const std::optional<Account> account = m_state->accounts()->getById(m_state->currentAccountId());
    AccountFormDialog dialog(*account, this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    m_state->accounts()->update(dialog.account());
    m_registerPage->refresh();
}

void MainWindow::showReportsWindow()
{
    if (!m_reportsScreen)
        m_reportsScreen = new ReportsScreen(m_state);
    m_reportsScreen->refresh();
    presentScreen(m_reportsScreen, tr("Reports"), QSize(800, 600));
}

void MainWindow::showSearchWindow()
{
    if (!m_searchScreen)
        m_searchScreen = new SearchScreen(m_state);
    m_searchScreen->reloadFilters();
    presentScreen(m_searchScreen, tr("Search Transactions"), QSize(800, 550));
    m_searchScreen->focusSearchField();
}

void MainWindow::showCategoriesWindow()
{
    if (!m_categoriesScreen)
        m_categoriesScreen = new CategoriesScreen(m_state);
    m_categoriesScreen->refresh();
    presentScreen(m_categoriesScreen, tr("Categories"), QSize(600, 500));
}

void MainWindow::showPayeesWindow()
{
    if (!m_payeeScreen) {
        m_payeeScreen = new PayeeScreen(m_state);
        connect(m_payeeScreen, &PayeeScreen::payeesChanged, m_registerPage, &RegisterScreen::refresh);
    }
    m_payeeScreen->reload();
    presentScreen(m_payeeScreen, tr("Payee Management"), QSize(550, 500));
}

void MainWindow::showImportWindow()
{
    if (!m_importScreen) {
        m_importScreen = new ImportScreen(m_state);
        connect(m_importScreen, &ImportScreen::importCompleted, this, [this] {
            onAccountsChanged();
            m_registerPage->refresh();
        });
    }
    m_importScreen->refresh();
    presentScreen(m_importScreen, tr("Import Transactions"), QSize(650, 600));
}

// A screen made on first use becomes a window of its own over this one, and is raised on each later use.
void MainWindow::presentScreen(QWidget *screen, const QString &title, const QSize &defaultSize)
{
    screen->setWindowTitle(title);
    if (!screen->parentWidget()) {
        screen->setParent(this, Qt::Window);
        // The sizes fit the normal font; under a larger one the columns and figures need more room.
        QSize grown = defaultSize * (ThemeManager::currentFontScale() / 100.0);
        if (const QScreen *display = this->screen())
            grown = grown.boundedTo(display->availableGeometry().size());
        screen->resize(defaultSize.expandedTo(grown));
    }
    if (screen->isMinimized())
        screen->setWindowState(screen->windowState() & ~Qt::WindowMinimized);
    if (screen->isHidden())
        screen->show();
    screen->raise();
    screen->activateWindow();
}

void MainWindow::showRecurringWindow()
{
    if (!m_recurringScreen) {
        m_recurringScreen = new RecurringScreen(m_state);
        connect(m_recurringScreen, &RecurringScreen::transactionsChanged, this, [this] {
            onAccountsChanged();
            m_registerPage->refresh();
        });
        connect(m_state->recurring(), &RecurringRepository::recurringChanged, m_recurringScreen, [this] {
            if (m_recurringScreen->isVisible())
                m_recurringScreen->refresh();
        });
    }
    m_recurringScreen->refresh();
    presentScreen(m_recurringScreen, tr("Recurring Transactions"), QSize(700, 500));
}

void MainWindow::showSettingsWindow()
{
    if (!m_settingsScreen) {
        m_settingsScreen = new SettingsScreen(m_state);
        connect(m_settingsScreen, &SettingsScreen::deletedAccountRestored, this, [this] {
            onAccountsChanged();
            m_registerPage->refresh();
        });
    }
    m_settingsScreen->refresh();
    presentScreen(m_settingsScreen, tr("Preferences"), QSize(500, 550));
}

// A new window each time: its ticks belong to one sitting and are never stored before it finishes.
void MainWindow::showReconciliationWindow()
{
    if (!hasCurrentAccount())
        return;
    const QString accountId = m_state->currentAccountId();
    const std::optional<Account> account = m_state->accounts()->getById(accountId);
    auto *screen = new ReconciliationScreen(m_state);
    screen->setAttribute(Qt::WA_DeleteOnClose);
    connect(screen, &ReconciliationScreen::reconciliationCompleted, this, [this, screen] {
        m_registerPage->refresh();
        onAccountsChanged();
        screen->close();
    });
    connect(screen, &ReconciliationScreen::cancelled, screen, &QWidget::close);
    screen->setAccount(accountId);
    presentScreen(screen, tr("Reconcile — %1").arg(account->name), QSize(1100, 720));
}

void MainWindow::showReconciliationHistoryWindow()
{
    if (!hasCurrentAccount())
        return;
    if (!m_reconciliationHistoryScreen)
        m_reconciliationHistoryScreen = new ReconciliationHistoryScreen(m_state);
    m_reconciliationHistoryScreen->setAccount(m_state->currentAccountId());
    presentScreen(m_reconciliationHistoryScreen, tr("Reconciliation History"), QSize(750, 500));
}

HalcAccount::ShareDialogTexts MainWindow::shareDialogTexts(const QString &accountName)
{
    HalcAccount::ShareDialogTexts texts;
    texts.windowTitle = tr("Share Account");
    texts.heading = tr("Sharing: %1").arg(accountName);
    texts.description = tr("Share this account with members of your Halcyra family group. They'll see the "
                           "same register, balances, and reconciliation history on their devices.");
    texts.listLabel = tr("Shared with");
    texts.empty = tr("Not shared with anyone yet.");
    texts.add = tr("Share");
    texts.remove = tr("Remove access");
    texts.close = tr("Close");
    texts.defaultRole = QStringLiteral("member");
    texts.shareFailedTitle = tr("Share Failed");
    texts.removeFailedTitle = tr("Remove Failed");
    texts.confirmTitle = tr("Remove Share");
    texts.confirmText = tr("Remove %1's access to this account?");
    texts.noGroup = tr("You don't have a family group yet. Sharing works within a family group: open Halcyra "
                       "Account, Group, to invite someone or to join with an invite code.");
    return texts;
}

void MainWindow::showShareAccountDialog()
{
    if (!hasCurrentAccount())
        return;
    if (!isSignedIn()) {
        if (Prompt::offer(this, tr("Sign In Required"), tr("Sharing requires a Halcyra account."),
                          tr("Learn More")))
            showHalcyraAccountScreen();
        return;
    }
    const auto account = m_state->accounts()->getById(m_state->currentAccountId());
    const HalcAccount::ShareDialogTexts texts = shareDialogTexts(account->name);
    HalcAccount::ShareMembersDialog dialog(m_state->accountClient(), m_state->sharingService(), account->id,
                                           texts, this);
    connect(&dialog, &HalcAccount::ShareMembersDialog::sharingChanged, this, &MainWindow::onAccountsChanged);
    // The server marks the account shared; the next sync brings that mark (and the members' devices) in step.
    connect(&dialog, &HalcAccount::ShareMembersDialog::sharingChanged, m_state->syncEngine(),
            &SyncEngine::schedule);
    dialog.loadShares();
    dialog.loadGroupMembers();
    Prompt::exec(&dialog);
}

void MainWindow::onAccountContextMenu(const QPoint &pos)
{
    QMenu menu(this);
    menu.addAction(tr("New Account..."), this, &MainWindow::showNewAccountDialog);
    QListWidgetItem *item = m_accountList->itemAt(pos);
    const QString id = item ? item->data(Qt::UserRole).toString() : QString();
    const std::optional<Account> account = id.isEmpty() ? std::nullopt : m_state->accounts()->getById(id);
    if (account) {
        const auto selectThen = [this, id](void (MainWindow::*slot)()) {
            return [this, id, slot] {
                selectAccount(id);
                (this->*slot)();
            };
        };
        menu.addSeparator();
        menu.addAction(tr("Edit \"%1\"...").arg(account->name), this,
                       selectThen(&MainWindow::showEditAccountDialog));
        menu.addAction(tr("Reconcile..."), this, selectThen(&MainWindow::showReconciliationWindow));
        menu.addAction(tr("Reconciliation History..."), this,
                       selectThen(&MainWindow::showReconciliationHistoryWindow));
        menu.addAction(tr("Rename Payees..."), this, selectThen(&MainWindow::showPayeesWindow));
        menu.addSeparator();
        menu.addAction(tr("Share..."), this, selectThen(&MainWindow::showShareAccountDialog));
        menu.addSeparator();
        menu.addAction(tr("Delete \"%1\"").arg(account->name), this, [this, id] { deleteAccount(id); });
    }
    menu.exec(m_accountList->viewport()->mapToGlobal(pos));
}

void MainWindow::deleteAccount(const QString &accountId)
{
    const std::optional<Account> account = m_state->accounts()->getById(accountId);
    if (!account)
        return;
    const auto answer =
        Prompt::warning(this, tr("Delete Account"),
                        tr("Delete \"%1\"?\n\nAll transactions, recurring entries, and reconciliation "
                           "history for this account "
                           "will be removed. You can restore it from Preferences → Data & Sync.")
                            .arg(account->name),
                        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;

    const int transactions = m_state->transactions()->softDeleteByAccount(accountId);
    const int recurrings = m_state->recurring()->softDeleteByAccount(accountId);
    const int reconciliations = m_state->reconciliations()->softDeleteByAccount(accountId);
    m_state->accounts()->softDelete(accountId);
    qInfo().noquote() << "Cascade delete account" << accountId << "→ transactions:" << transactions
                      << "recurrings:" << recurrings << "reconciliations:" << reconciliations;

    if (m_state->currentAccountId() == accountId) {
        m_state->setCurrentAccountId(QString());
        showNoAccountPage();
    }
    onAccountsChanged();
}

void MainWindow::deleteCurrentAccount()
{
    if (hasCurrentAccount())
        deleteAccount(m_state->currentAccountId());
}

void MainWindow::showAbout()
{
    Prompt::about(this, tr("About Halcyra Ombrel"),
                  tr("<h2>Halcyra Ombrel</h2><p>Version %1</p>"
                     "<p>A digital ombrel register for tracking household finances.</p>"
                     "<p>© 2026 Halcyra. All rights reserved.<br>https://halcyra.com</p>"
                     "<p><small>Built with the Qt framework, used under the GNU LGPL version 3.</small></p>")
                      .arg(QCoreApplication::applicationVersion()));
}

void MainWindow::showKeyboardShortcuts()
{
    QString text =
        tr("<h3>Register</h3><table cellspacing='6'><tr><td><b>%1</b></td><td>Save "
           "transaction</td></tr><tr><td><b>%2"
           "</b></td><td>Insert new transaction</td></tr><tr><td><b>%3</b></td><td>Delete current "
           "transaction</td></tr>"
           "<tr><td><b>Tab / Shift+Tab</b></td><td>Next / previous field</td></tr><tr><td><b>' "
           "(apostrophe)</b></td>"
           "<td>Copy value from field above</td></tr></table><h3>Date Field</h3><table "
           "cellspacing='6'><tr><td><b>t</b>"
           "</td><td>Today</td></tr><tr><td><b>+ / -</b></td><td>Next / previous day</td></tr><tr><td><b>m / "
           "h</b></td>"
           "<td>First / last day of month</td></tr><tr><td><b>y / r</b></td><td>First / last day of "
           "year</td></tr><tr>"
           "<td><b>w / k</b></td><td>First / last day of week</td></tr></table><h3>General</h3><table "
           "cellspacing='6'>"
           "<tr><td><b>%4</b></td><td>New transaction</td></tr><tr><td><b>%5</b></td><td>New "
           "account</td></tr><tr><td>"
           "<b>%6</b></td><td>Reconcile account</td></tr><tr><td><b>%7</b></td><td>Search "
           "transactions</td></tr><tr>"
           "<td><b>%8</b></td><td>Import</td></tr><tr><td><b>%9</b></td><td>Reports</td></tr><tr><td><b>%10</"
           "b></td>"
           "<td>Recurring "
           "transactions</td></tr><tr><td><b>%11</b></td><td>Categories</td></tr></table><h3>Accounts"
           "</h3><table cellspacing='6'><tr><td><b>%12 &ndash; %13</b></td><td>Switch to account "
           "1&ndash;9</td></tr>"
           "<tr><td><b>%14</b></td><td>Switch to account 10</td></tr></table>");
    for (const char *keys : {"Ctrl+Return", "Ctrl+I", "Ctrl+D", "Ctrl+N", "Ctrl+Shift+N", "Ctrl+R", "Ctrl+F",
                             "Ctrl+I", "Ctrl+2", "Ctrl+3", "Ctrl+4", "Alt+1", "Alt+9", "Alt+0"})
        text = text.arg(
            QKeySequence(QString::fromLatin1(keys)).toString(QKeySequence::NativeText).toHtmlEscaped());
    Prompt::information(this, tr("Keyboard Shortcuts"), text);
}

void MainWindow::loadSampleData()
{
    SampleDataService sampleData(m_state->database());
    if (sampleData.hasSampleData()) {
        Prompt::information(this, tr("Sample Data"), tr("Sample data is already loaded."));
        return;
    }
    sampleData.loadSampleData();
    onAccountsChanged();
    m_statusBar->showTimedMessage(tr("Sample data loaded"), kStatusShort);
}

void MainWindow::clearSampleData()
{
    SampleDataService sampleData(m_state->database());
    if (!sampleData.hasSampleData()) {
        Prompt::information(this, tr("Sample Data"), tr("No sample data to clear."));
        return;
    }
    sampleData.clearSampleData();
    // The rows are gone for good, so the register must not keep showing one of them.
    if (m_state->currentAccountId().startsWith(QLatin1String("sample-")))
        m_state->setCurrentAccountId(QString());
    onAccountsChanged();
    showNoAccountPage();
    m_statusBar->showTimedMessage(tr("Sample data cleared"), kStatusShort);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    QSettings settings;
    settings.setValue(QStringLiteral("mainwindow/geometry"), saveGeometry());
    if (m_splitter)
        settings.setValue(QStringLiteral("mainwindow/splitter"), m_splitter->saveState());
    QMainWindow::closeEvent(event);
}
