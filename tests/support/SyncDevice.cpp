#include "support/SyncDevice.h"

#include "account/ApiClient.h"
#include "account/TokenManager.h"
#include "support/MemoryTokenStore.h"

#include <QDeadlineTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrlQuery>

ServerUser signUpUser(const QUrl &serverBase, const QString &email)
{
    QNetworkAccessManager network;
    QUrl url = serverBase;
    url.setPath(QStringLiteral("/halcyra/account/signup"));
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader,
                      QStringLiteral("application/x-www-form-urlencoded"));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    QUrlQuery form(QStringLiteral("client_id=0123456789abcdef0123456789abcdef&password=correct horse battery&"
                                  "redirect_uri=http://127.0.0.1:9/callback"));
    form.addQueryItem(QStringLiteral("email"), email);
    form.addQueryItem(QStringLiteral("display_name"), email.section(u'@', 0, 0));
    QNetworkReply *reply = network.post(request, form.query(QUrl::FullyEncoded).toUtf8());
    // Without an answer in time there is no redirect, and so no tokens.
    QSignalSpy(reply, &QNetworkReply::finished).wait(10000);
    reply->deleteLater();
    const QUrlQuery tokens(reply->header(QNetworkRequest::LocationHeader).toUrl().query());
    return {email, tokens.queryItemValue(QStringLiteral("access_token"), QUrl::FullyDecoded),
            tokens.queryItemValue(QStringLiteral("refresh_token"), QUrl::FullyDecoded)};
}

SyncDevice::SyncDevice(const QUrl &syncBase, const ServerUser &user)
    : m_syncBase(syncBase)
    , m_user(user)
{
}

static SyncDevice *s_active = nullptr;

SyncDevice::~SyncDevice()
{
    deactivate();
}

bool SyncDevice::activate()
{
    if (s_active)
        s_active->deactivate();
    s_active = this;
    m_data = std::make_unique<QObject>();
    database = new Database(m_data.get());
    if (!database->open(m_dir.filePath(QStringLiteral("ombrel.db"))) || !database->runMigrations())
        return false;
    // A device's crash safety is not under test; without a flush per statement a long simulation runs
    // at the speed of the processor rather than of the disk.
    exec(QStringLiteral("PRAGMA synchronous=OFF"));
    accounts = new AccountRepository(database, m_data.get());
    transactions = new TransactionRepository(database, m_data.get());
    categories = new CategoryRepository(database, m_data.get());
    preferences = new PreferencesRepository(database, m_data.get());
    recurring = new RecurringRepository(database, m_data.get());
    reconciliations = new ReconciliationRepository(database, m_data.get());
    m_network = std::make_unique<QObject>();
    tokens =
        new HalcAccount::TokenManager(std::make_unique<MemoryTokenStore>(&m_tokenEntries), m_network.get());
    tokens->setTokens(m_user.accessToken, m_user.refreshToken);
    // The server's tokens outlive any test; a refresh (after an injected 401) keeps them.
    tokens->setRefreshCallback([user = m_user](QString, HalcAccount::TokenManager::SuccessContinuation ok,
                                               HalcAccount::TokenManager::FailureContinuation) {
        ok(user.accessToken, user.refreshToken);
    });
    api = new HalcAccount::ApiClient(tokens, m_network.get());
    api->setBaseUrl(m_syncBase);
    engine = new SyncEngine(api, accounts, transactions, categories, recurring, reconciliations, preferences,
                            m_network.get());
    sharing = new AccountSharingService(api, m_network.get());
    return true;
}

// The engine and the client go before the database they write to.
void SyncDevice::deactivate()
{
    m_network.reset();
    m_data.reset();
    if (s_active == this)
        s_active = nullptr;
}

bool SyncDevice::sync(int timeoutMs)
{
    if (s_active != this && !activate())
        return false;
    QSignalSpy completed(engine, &SyncEngine::syncCompleted), failed(engine, &SyncEngine::syncFailed);
    engine->syncNow();
    for (const QDeadlineTimer deadline(timeoutMs);
         completed.isEmpty() && failed.isEmpty() && !deadline.hasExpired();)
        completed.wait(50);
    return !completed.isEmpty();
}

namespace {
// The columns that carry the user's data, per table: what a lost edit would change.
const QHash<QString, QString> kFields{
    {"accounts",               "name, account_type, currency, starting_balance"},
    {"transactions",           "account_id, date, payee, memo, amount, cleared, reconciled, transfer_link_id, "
                     "transfer_dest_account_id"            },
    {"recurring_transactions", "account_id, payee, amount, next_due_date"      },
    {"reconciliations",        "account_id, statement_date, statement_balance" }
};
} // namespace

QString SyncDevice::row(const QString &key) const
{
    const QString table = key.section(u'/', 0, 0);
    return scalar(
               QStringLiteral("SELECT sync_status || ' ' || json_array(%1, deleted_at IS NOT NULL) FROM %2 "
                              "WHERE id = '%3'")
                   .arg(kFields.value(table), table, key.section(u'/', 1)))
        .toString();
}

QStringList SyncDevice::snapshot() const
{
    const auto rows = [this](const QString &table, const QString &columns, const QString &where) {
        return scalar(QStringLiteral("SELECT group_concat('%2|' || id || '|' || json_array(%1), char(10)) "
                                     "FROM %2 WHERE %3")
                          .arg(columns, table, where))
            .toString()
            .split(u'\n', Qt::SkipEmptyParts);
    };
    const QString live = QStringLiteral("deleted_at IS NULL AND "),
                  ofLiveAccount =
                      QStringLiteral("account_id IN (SELECT id FROM accounts WHERE deleted_at IS NULL)");
    QStringList lines =
        rows("accounts", kFields["accounts"] + ", version", "deleted_at IS NULL") +
        rows("transactions", kFields["transactions"] + ", version", live + ofLiveAccount) +
        rows("recurring_transactions", kFields["recurring_transactions"], live + ofLiveAccount) +
        rows("reconciliations", kFields["reconciliations"] + ", version", ofLiveAccount);
    lines.sort();
    return lines;
}

QVariant SyncDevice::scalar(const QString &sql) const
{
    QSqlQuery q(database->connection());
    return q.exec(sql) && q.next() ? q.value(0) : QVariant();
}

bool SyncDevice::exec(const QString &sql) const
{
    QSqlQuery q(database->connection());
    if (!q.exec(sql))
        qWarning().noquote() << "SyncDevice::exec failed:" << q.lastError().text() << sql;
    return q.isActive();
}
