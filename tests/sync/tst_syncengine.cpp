#include "account/ApiClient.h"
#include "account/TokenManager.h"
#include "support/Fixtures.h"
#include "support/Jwt.h"
#include "support/MemoryTokenStore.h"
#include "support/ScriptedServer.h"
#include "support/SyncFixture.h"
#include "sync/SyncEngine.h"
#include "sync/SyncPush.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

// The engine's scheduling against the scripted server: how many cycles, how many requests.
class TstSyncEngine : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void manyPendingRowsTakeOneBatchACycle();
    void triggersDuringACycleGiveOneMore();
    void anErrorDropsTheWantedResync();
    void signedOutInErrorGoesIdleWithoutTraffic();
    void pageCounterCarriesOverPushFreeCycles();
    void authenticationLostFailsTheCycle();

private:
    bool runCycle(int timeoutMs = 10000);
    int requestsTo(const QString &path) const;
    QByteArray okResultsForNextBatch() const;

    std::unique_ptr<SyncFixture> m_device;
    std::unique_ptr<ScriptedServer> m_server;
    QHash<QString, QString> m_tokenEntries;
    std::unique_ptr<HalcAccount::TokenManager> m_tokens;
    std::unique_ptr<HalcAccount::ApiClient> m_api;
    std::unique_ptr<SyncEngine> m_engine;
};

namespace {
const QByteArray kEmptyPage = R"({"server_time":"2024-06-01T00:00:00Z","has_more":false})";
const QByteArray kMorePages = R"({"server_time":"2024-06-01T00:00:00Z","has_more":true})";
} // namespace

void TstSyncEngine::init()
{
    m_device = std::make_unique<SyncFixture>();
    QVERIFY(m_device->open());
    m_server = std::make_unique<ScriptedServer>();
    QVERIFY(m_server->listen());
    m_tokens =
        std::make_unique<HalcAccount::TokenManager>(std::make_unique<MemoryTokenStore>(&m_tokenEntries));
    m_tokens->setTokens(jwt(3600), QStringLiteral("refresh"));
    m_api = std::make_unique<HalcAccount::ApiClient>(m_tokens.get());
    m_api->setBaseUrl(m_server->baseUrl());
    m_engine = std::make_unique<SyncEngine>(
        m_api.get(), m_device->accounts.get(), m_device->transactions.get(), m_device->categories.get(),
        m_device->recurring.get(), m_device->reconciliations.get(), m_device->preferences.get());
}

void TstSyncEngine::cleanup()
{
    m_engine.reset();
    m_api.reset();
    m_tokens.reset();
    m_server.reset();
    m_device.reset();
}

bool TstSyncEngine::runCycle(int timeoutMs)
{
    QSignalSpy completed(m_engine.get(), &SyncEngine::syncCompleted);
    QSignalSpy failed(m_engine.get(), &SyncEngine::syncFailed);
    m_engine->syncNow();
    QElapsedTimer clock;
    clock.start();
    while (completed.isEmpty() && failed.isEmpty() && clock.elapsed() < timeoutMs)
        completed.wait(20);
    return !completed.isEmpty();
}

int TstSyncEngine::requestsTo(const QString &path) const
{
    int n = 0;
    for (const RecordedRequest &r : m_server->requests())
        n += r.path == path ? 1 : 0;
    return n;
}

// The server accepts what the engine will send next: the first 500 pending rows, in collection order.
QByteArray TstSyncEngine::okResultsForNextBatch() const
{
    const QJsonArray changes = SyncPush::toJsonArray(SyncPush(m_device->repositories()).collectPending());
    QJsonArray results;
    for (qsizetype i = 0; i < std::min<qsizetype>(changes.size(), SyncEngine::kPushBatchSize); ++i) {
        const QString id = changes[i][QLatin1String("entity_id")].toString();
        results.append(QJsonObject{
            {"status",      "ok"                                    },
            {"entity_id",   id                                      },
            {"server_id",   "s-" + id                               },
            {"entity_type", changes[i][QLatin1String("entity_type")]}
        });
    }
    return QJsonDocument(QJsonObject{
                             {"results", results}
    })
        .toJson(QJsonDocument::Compact);
}

void TstSyncEngine::manyPendingRowsTakeOneBatchACycle()
{
    QVERIFY(m_device->accounts->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))));
    QVERIFY(m_device->db().database()->connection().transaction());
    {
        auto inserter = m_device->transactions->inserter();
        for (int i = 0; i < 1199; ++i)
            QVERIFY(inserter.insert(Fixtures::transaction(QStringLiteral("t%1").arg(i), QStringLiteral("a"),
                                                          QDate(2024, 1, 1).addDays(i % 300),
                                                          QStringLiteral("P"), -i)));
    }
    QVERIFY(m_device->db().database()->connection().commit());
    const QList<int> expectedBatches{500, 500, 200};
    for (int batch : expectedBatches) {
        m_server->enqueue(QStringLiteral("/sync/push"), ScriptedReply(200, okResultsForNextBatch()));
        m_server->enqueue(QStringLiteral("/sync/pull"), ScriptedReply(200, kEmptyPage));
        QVERIFY(runCycle());
        const RecordedRequest push = m_server->requests().at(m_server->requests().size() - 2);
        QCOMPARE(push.path, QStringLiteral("/sync/push"));
        QCOMPARE(QJsonDocument::fromJson(push.body)[QLatin1String("changes")].toArray().size(), batch);
    }
    QCOMPARE(m_device->transactions->getPending().size(), 0);
    QCOMPARE(m_device->accounts->getPending().size(), 0);
    m_server->enqueue(QStringLiteral("/sync/pull"), ScriptedReply(200, kEmptyPage));
    QVERIFY(runCycle());
    QCOMPARE(requestsTo(QStringLiteral("/sync/push")), 3);
    QCOMPARE(requestsTo(QStringLiteral("/sync/pull")), 4);
    QCOMPARE(m_server->requests().last().query.queryItemValue(QStringLiteral("since")),
             QStringLiteral("2024-06-01T00:00:00Z"));
}

void TstSyncEngine::triggersDuringACycleGiveOneMore()
{
    m_server->enqueue(ScriptedReply::delayed(200, 200, kEmptyPage));
    m_server->enqueue(ScriptedReply(200, kEmptyPage));
    QSignalSpy completed(m_engine.get(), &SyncEngine::syncCompleted);
    m_engine->syncNow();
    QCOMPARE(m_engine->state(), SyncEngine::SyncState::Syncing);
    for (int i = 0; i < 10; ++i)
        m_engine->syncNow();
    QTRY_COMPARE_WITH_TIMEOUT(completed.size(), 2, 5000);
    QTest::qWait(300);
    QCOMPARE(completed.size(), 2);
    QCOMPARE(requestsTo(QStringLiteral("/sync/pull")), 2);
    QCOMPARE(m_engine->state(), SyncEngine::SyncState::Idle);
}

void TstSyncEngine::anErrorDropsTheWantedResync()
{
    m_server->enqueue(ScriptedReply::delayed(200, 500, R"({"error":"down"})"));
    QSignalSpy failed(m_engine.get(), &SyncEngine::syncFailed);
    m_engine->syncNow();
    m_engine->syncNow();
    QTRY_COMPARE_WITH_TIMEOUT(failed.size(), 1, 5000);
    QCOMPARE(failed.first().first().toString(), QStringLiteral("Pull failed (HTTP 500)"));
    QTest::qWait(300);
    QCOMPARE(m_server->requests().size(), 1);
    QCOMPARE(m_engine->state(), SyncEngine::SyncState::Error);
    QCOMPARE(m_engine->lastError(), QStringLiteral("Pull failed (HTTP 500)"));
}

void TstSyncEngine::signedOutInErrorGoesIdleWithoutTraffic()
{
    QVERIFY(m_device->accounts->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))));
    m_server->enqueue(ScriptedReply(503, {}));
    QVERIFY(!runCycle());
    QCOMPARE(m_engine->lastError(), QStringLiteral("Push failed (HTTP 503)"));
    QCOMPARE(requestsTo(QStringLiteral("/sync/pull")), 0); // a failed push skips the pull
    QSignalSpy states(m_engine.get(), &SyncEngine::stateChanged);
    m_engine->setSignedInCheck([] { return false; });
    m_engine->syncNow();
    QCOMPARE(m_engine->state(), SyncEngine::SyncState::Idle);
    QCOMPARE(states.size(), 1);
    QTest::qWait(100);
    QCOMPARE(m_server->requests().size(), 1);
    QCOMPARE(m_device->accounts->getPending().size(), 1);
}

// Only a push resets the page counter: push-free cycles go on counting, so once 50 pages have been
// read, each such cycle reads one page.
void TstSyncEngine::pageCounterCarriesOverPushFreeCycles()
{
    for (int i = 0; i < SyncEngine::kMaxPagesPerCycle + 1; ++i)
        m_server->enqueue(ScriptedReply(200, kMorePages));
    QVERIFY(runCycle(20000));
    QCOMPARE(requestsTo(QStringLiteral("/sync/pull")), SyncEngine::kMaxPagesPerCycle);
    QVERIFY(runCycle());
    QCOMPARE(requestsTo(QStringLiteral("/sync/pull")), SyncEngine::kMaxPagesPerCycle + 1);
}

void TstSyncEngine::authenticationLostFailsTheCycle()
{
    m_tokens->setRefreshCallback(
        [](QString, auto, HalcAccount::TokenManager::FailureContinuation fail) { fail(); });
    m_server->enqueue(ScriptedReply(401, R"({"error":"expired"})"));
    QSignalSpy states(m_engine.get(), &SyncEngine::stateChanged);
    QVERIFY(!runCycle());
    QCOMPARE(m_engine->lastError(), QStringLiteral("Pull failed (HTTP 401)"));
    QCOMPARE(m_engine->state(), SyncEngine::SyncState::Error);
    QCOMPARE(states.size(), 2); // Syncing, then Error once although both paths set it
}

QTEST_GUILESS_MAIN(TstSyncEngine)
#include "tst_syncengine.moc"
