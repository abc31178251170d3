#include "account/TokenManager.h"
#include "support/Fixtures.h"
#include "support/Jwt.h"
#include "support/ScriptedServer.h"
#include "support/SyncDevice.h"
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
    void manyPendingRowsTakeOneBatchACycle();
    void triggersDuringACycleGiveOneMore();
    void anErrorDropsTheWantedResync();
    void signedOutInErrorGoesIdleWithoutTraffic();
    void pageCounterCarriesOverPushFreeCycles();
    void authenticationLostFailsTheCycle();

private:
    int requestsTo(const QString &path) const;

    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<SyncDevice> m_device;
};

namespace {
const QByteArray kEmptyPage = R"({"server_time":"2024-06-01T00:00:00Z","has_more":false})";
const QString kPull = QStringLiteral("/sync/pull"), kPush = QStringLiteral("/sync/push");
} // namespace

void TstSyncEngine::init()
{
    m_device.reset();
    m_server = std::make_unique<ScriptedServer>();
    QVERIFY(m_server->listen());
    m_device = std::make_unique<SyncDevice>(m_server->baseUrl(), ServerUser{{}, jwt(3600), "refresh"});
    QVERIFY(m_device->activate());
}

int TstSyncEngine::requestsTo(const QString &path) const
{
    const QList<RecordedRequest> requests = m_server->requests();
    return int(std::count_if(requests.begin(), requests.end(), [&](auto &r) { return r.path == path; }));
}

void TstSyncEngine::manyPendingRowsTakeOneBatchACycle()
{
    QVERIFY(m_device->accounts->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))));
    QVERIFY(m_device->exec(
        QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 1198) "
                       "INSERT INTO transactions "
                       "(id, account_id, date, payee, amount, created_at, updated_at) SELECT 't' || i, 'a', "
                       "date('2024-01-01', '+' || (i % 300) || ' days'), 'P', -i, '2024-01-01T00:00:00Z', "
                       "'2024-01-01' FROM n")));
    for (int batch : {500, 500, 200}) {
        // The server accepts the first 500 pending rows, in collection order.
        QStringList results;
        for (const QByteArray &change :
             SyncPush(m_device->repositories()).collectPending().mid(0, SyncEngine::kPushBatchSize)) {
            const QJsonObject c = QJsonDocument::fromJson(change).object();
            results << QStringLiteral(R"({"status":"ok","entity_id":"%1","entity_type":"%2"})")
                           .arg(c["entity_id"].toString(), c["entity_type"].toString());
        }
        m_server->enqueue(kPush, ScriptedReply(200, ("{\"results\":[" + results.join(u',') + "]}").toUtf8()));
        m_server->enqueue(kPull, ScriptedReply(200, kEmptyPage));
        QVERIFY(m_device->sync(10000));
        const RecordedRequest push = m_server->requests().at(m_server->requests().size() - 2);
        QCOMPARE(push.path, kPush);
        QCOMPARE(QJsonDocument::fromJson(push.body)["changes"].toArray().size(), batch);
    }
    QCOMPARE(m_device->transactions->getPending().size() + m_device->accounts->getPending().size(), 0);
    m_server->enqueue(kPull, ScriptedReply(200, kEmptyPage));
    QVERIFY(m_device->sync(10000));
    QCOMPARE(requestsTo(kPush), 3);
    QCOMPARE(requestsTo(kPull), 4);
    QCOMPARE(m_server->requests().last().query.queryItemValue(QStringLiteral("since")),
             QStringLiteral("2024-06-01T00:00:00Z"));
}

void TstSyncEngine::triggersDuringACycleGiveOneMore()
{
    m_server->enqueue(ScriptedReply::delayed(200, 200, kEmptyPage));
    m_server->enqueue(ScriptedReply(200, kEmptyPage));
    QSignalSpy completed(m_device->engine, &SyncEngine::syncCompleted);
    m_device->engine->syncNow();
    QCOMPARE(m_device->engine->state(), SyncEngine::SyncState::Syncing);
    for (int i = 0; i < 10; ++i)
        m_device->engine->syncNow();
    QTRY_COMPARE_WITH_TIMEOUT(completed.size(), 2, 5000);
    QTest::qWait(300);
    QCOMPARE(completed.size(), 2);
    QCOMPARE(requestsTo(kPull), 2);
    QCOMPARE(m_device->engine->state(), SyncEngine::SyncState::Idle);
}

void TstSyncEngine::anErrorDropsTheWantedResync()
{
    m_server->enqueue(ScriptedReply::delayed(200, 500, R"({"error":"down"})"));
    QSignalSpy failed(m_device->engine, &SyncEngine::syncFailed);
    m_device->engine->syncNow();
    m_device->engine->syncNow();
    QTRY_COMPARE_WITH_TIMEOUT(failed.size(), 1, 5000);
    QCOMPARE(failed.first().first().toString(), QStringLiteral("Pull failed (HTTP 500)"));
    QTest::qWait(300);
    QCOMPARE(m_server->requests().size(), 1);
    QCOMPARE(m_device->engine->state(), SyncEngine::SyncState::Error);
    QCOMPARE(m_device->engine->lastError(), QStringLiteral("Pull failed (HTTP 500)"));
}

void TstSyncEngine::signedOutInErrorGoesIdleWithoutTraffic()
{
    QVERIFY(m_device->accounts->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))));
    m_server->enqueue(ScriptedReply(503, {}));
    QVERIFY(!m_device->sync(10000));
    QCOMPARE(m_device->engine->lastError(), QStringLiteral("Push failed (HTTP 503)"));
    QCOMPARE(requestsTo(kPull), 0); // a failed push skips the pull
    QSignalSpy states(m_device->engine, &SyncEngine::stateChanged);
    m_device->engine->setSignedInCheck([] { return false; });
    m_device->engine->syncNow();
    QCOMPARE(m_device->engine->state(), SyncEngine::SyncState::Idle);
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
        m_server->enqueue(ScriptedReply(200, R"({"server_time":"2024-06-01T00:00:00Z","has_more":true})"));
    QVERIFY(m_device->sync(20000));
    QCOMPARE(requestsTo(kPull), SyncEngine::kMaxPagesPerCycle);
    QVERIFY(m_device->sync(10000));
    QCOMPARE(requestsTo(kPull), SyncEngine::kMaxPagesPerCycle + 1);
}

void TstSyncEngine::authenticationLostFailsTheCycle()
{
    m_device->tokens->setRefreshCallback(
        [](QString, auto, HalcAccount::TokenManager::FailureContinuation fail) { fail(); });
    m_server->enqueue(ScriptedReply(401, R"({"error":"expired"})"));
    QSignalSpy states(m_device->engine, &SyncEngine::stateChanged);
    QVERIFY(!m_device->sync(10000));
    QCOMPARE(m_device->engine->lastError(), QStringLiteral("Pull failed (HTTP 401)"));
    QCOMPARE(m_device->engine->state(), SyncEngine::SyncState::Error);
    QCOMPARE(states.size(), 2); // Syncing, then Error once although both paths set it
}

QTEST_GUILESS_MAIN(TstSyncEngine)
#include "tst_syncengine.moc"
