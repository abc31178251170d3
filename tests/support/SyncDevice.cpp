#include "support/SyncDevice.h"

#include "account/ApiClient.h"
#include "account/TokenManager.h"
#include "support/MemoryTokenStore.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QSqlRecord>
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
    QUrlQuery form;
    form.addQueryItem(QStringLiteral("client_id"), QStringLiteral("0123456789abcdef0123456789abcdef"));
    form.addQueryItem(QStringLiteral("redirect_uri"), QStringLiteral("http://127.0.0.1:9/callback"));
    form.addQueryItem(QStringLiteral("email"), email);
    form.addQueryItem(QStringLiteral("password"), QStringLiteral("correct horse battery"));
    form.addQueryItem(QStringLiteral("display_name"), email.section(QLatin1Char('@'), 0, 0));
    QNetworkReply *reply = network.post(request, form.query(QUrl::FullyEncoded).toUtf8());
    QSignalSpy finished(reply, &QNetworkReply::finished);
    if (!finished.wait(10000)) {
        reply->abort();
        return {};
    }
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

SyncDevice::~SyncDevice()
{
    deactivate();
}

bool SyncDevice::activate()
{
    deactivate();
    m_root = std::make_unique<QObject>();
    database = new Database(m_root.get());
    if (!database->open(m_dir.filePath(QStringLiteral("ombrel.db"))) || !database->runMigrations()) {
        deactivate();
        return false;
    }
    // A device's crash safety is not under test; without a flush per statement a long simulation runs
    // at the speed of the processor rather than of the disk.
    QSqlQuery(QStringLiteral("PRAGMA synchronous=OFF"), database->connection());
    accounts = new AccountRepository(database, m_root.get());
    transactions = new TransactionRepository(database, m_root.get());
    categories = new CategoryRepository(database, m_root.get());
    preferences = new PreferencesRepository(database, m_root.get());
    recurring = new RecurringRepository(database, m_root.get());
    reconciliations = new ReconciliationRepository(database, m_root.get());
    auto *tokens =
        new HalcAccount::TokenManager(std::make_unique<MemoryTokenStore>(&m_tokenEntries), m_root.get());
    tokens->setTokens(m_user.accessToken, m_user.refreshToken);
    // The server's tokens outlive any test; a refresh (after an injected 401) keeps them.
    tokens->setRefreshCallback([user = m_user](QString, HalcAccount::TokenManager::SuccessContinuation ok,
                                               HalcAccount::TokenManager::FailureContinuation) {
        ok(user.accessToken, user.refreshToken);
    });
    api = new HalcAccount::ApiClient(tokens, m_root.get());
    api->setBaseUrl(m_syncBase);
    engine = new SyncEngine(api, accounts, transactions, categories, recurring, reconciliations, preferences,
                            m_root.get());
    sharing = new AccountSharingService(api, m_root.get());
    return true;
}

void SyncDevice::deactivate()
{
    if (!m_root)
        return;
    // Children go in the order they were made; the engine and the client must go before the
    // database they write to, so they are taken down first.
    delete sharing;
    delete engine;
    delete api;
    m_root.reset();
    database = nullptr;
    accounts = nullptr;
    transactions = nullptr;
    categories = nullptr;
    recurring = nullptr;
    reconciliations = nullptr;
    preferences = nullptr;
    api = nullptr;
    engine = nullptr;
    sharing = nullptr;
}

bool SyncDevice::sync(int timeoutMs)
{
    QSignalSpy completed(engine, &SyncEngine::syncCompleted);
    QSignalSpy failed(engine, &SyncEngine::syncFailed);
    engine->syncNow();
    QElapsedTimer clock;
    clock.start();
    while (completed.isEmpty() && failed.isEmpty() && clock.elapsed() < timeoutMs)
        completed.wait(50);
    return !completed.isEmpty();
}

QStringList SyncDevice::dump(const QString &table, const QString &where) const
{
    QStringList lines;
    QSqlQuery q(database->connection());
    if (!q.exec(QStringLiteral("SELECT * FROM %1 WHERE %2").arg(table, where)))
        return {QStringLiteral("query failed")};
    // Local bookkeeping differs between devices by design and is left out.
    static const QStringList skipped{QStringLiteral("sync_status"), QStringLiteral("server_id"),
                                     QStringLiteral("updated_at"), QStringLiteral("deleted_at"),
                                     QStringLiteral("created_at")};
    while (q.next()) {
        QStringList cells;
        const QSqlRecord record = q.record();
        for (int i = 0; i < record.count(); ++i) {
            if (!skipped.contains(record.fieldName(i)))
                cells << record.fieldName(i) + u'=' + q.value(i).toString();
        }
        lines << cells.join(u'|');
    }
    lines.sort();
    return lines;
}

QVariant SyncDevice::scalar(const QString &sql) const
{
    QSqlQuery q(database->connection());
    if (!q.exec(sql) || !q.next())
        return {};
    return q.value(0);
}
