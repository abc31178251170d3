#include "support/ScriptedServer.h"
#include "support/UpdateManifests.h"
#include "update/Client.h"
#include "update/Platform.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using HalcUpdate::Client;

namespace {
constexpr int kWaitMsec = 5000;
}

// The client against a channel directory served over HTTP on 127.0.0.1.
class TstClient : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        if (HalcUpdate::platformKey().isEmpty())
            QSKIP("nothing is shipped for this system");
        QVERIFY(m_server.listen());
        m_server.serveDirectory(QStringLiteral("/ombrel/stable/"), m_channel.path());
        m_config = {QStringLiteral("ombrel"), QStringLiteral("stable"),
                    QUrl(m_server.baseUrl().toString() + QStringLiteral("/ombrel/stable")),
                    QStringLiteral("1.0.9")};
    }

    void check_data()
    {
        using namespace UpdateManifests;
        const QString ours = HalcUpdate::platformKey();
        const auto offering = [&](const QJsonObject &ourArtifact) {
            return toJson(manifest({
                {ours,            ourArtifact                      },
                {otherPlatform(), artifact(QStringLiteral("9.0.0"))}
            }));
        };
        const auto with = [](QJsonObject object, const char *key, const QString &value) {
            object.insert(QLatin1String(key), value);
            return object;
        };

        QTest::addColumn<QByteArray>("latestJson"); // empty: not published
        QTest::addColumn<int>("status");            // 0: the file as served
        QTest::addColumn<QString>("outcome");
        QTest::addColumn<QString>("detail"); // the offered version, or the start of the reason
        // clang-format off
        QTest::newRow("numeric order")     << offering(artifact("1.0.10")) << 0 << "update" << "1.0.10";
        QTest::newRow("same version")      << offering(artifact("1.0.9"))  << 0 << "upToDate" << "";
        QTest::newRow("pre-release")       << offering(artifact("2.0.0-rc1")) << 0 << "upToDate" << "";
        QTest::newRow("min equal current") << offering(with(artifact("1.1.0"), "min_upgradable_from", "1.0.9"))
                                           << 0 << "update" << "1.1.0";
        QTest::newRow("min above current") << offering(with(artifact("1.1.0"), "min_upgradable_from", "1.0.10"))
            << 0 << "failed" << "current version 1.0.9 is older than min_upgradable_from 1.0.10; please upgrade to an "
                                "intermediate release first";
        QTest::newRow("not shipped for us") << toJson(manifest({{otherPlatform(), artifact("9.0.0")}}))
                                            << 0 << "upToDate" << "";
        QTest::newRow("other platform bad") << toJson(manifest({{ours, artifact("1.1.0")},
                                                                {otherPlatform(), with(artifact("1.1.0"), "sha256", QString(63, 'b'))}}))
            << 0 << "failed" << QString("manifest invalid: artifact %1 failed validation").arg(otherPlatform());
        QTest::newRow("not published")     << QByteArray() << 0   << "upToDate" << "";
        QTest::newRow("server error")      << QByteArray() << 500 << "failed" << "network error: ";
        QTest::newRow("not JSON")          << QByteArray("<html>") << 0 << "failed" << "manifest invalid: JSON parse error: ";
        // clang-format on
    }

    void check()
    {
        QFETCH(QByteArray, latestJson);
        QFETCH(int, status);
        QFETCH(QString, outcome);
        QFETCH(QString, detail);
        publish(latestJson);
        if (status != 0)
            m_server.enqueue(QStringLiteral("/ombrel/stable/latest.json"), ScriptedReply{status, "oops"});

        Client client(m_config);
        QSignalSpy offered(&client, &Client::updateAvailable);
        QSignalSpy upToDate(&client, &Client::upToDate);
        QSignalSpy failed(&client, &Client::checkFailed);
        client.check();
        QTRY_COMPARE_WITH_TIMEOUT(offered.size() + upToDate.size() + failed.size(), 1, kWaitMsec);

        if (outcome == QLatin1String("update")) {
            QCOMPARE(offered.size(), 1);
            QCOMPARE(offered.at(0).at(0).value<HalcUpdate::Artifact>().version, detail);
        } else if (outcome == QLatin1String("upToDate")) {
            QCOMPARE(upToDate.size(), 1);
        } else {
            QCOMPARE(failed.size(), 1);
            QVERIFY2(failed.at(0).at(0).toString().startsWith(detail),
                     qPrintable(failed.at(0).at(0).toString()));
        }
        const QList<RecordedRequest> requests = m_server.requests();
        QCOMPARE(requests.size(), 1);
        QCOMPARE(requests.at(0).path, QStringLiteral("/ombrel/stable/latest.json"));
        QCOMPARE(requests.at(0).header("User-Agent"), QByteArray("HalcUpdateQt/0.1 (ombrel)"));
    }

    void secondCheckWhileInFlightIsIgnored()
    {
        using namespace UpdateManifests;
        publish(toJson(manifest({
            {HalcUpdate::platformKey(), artifact(QStringLiteral("1.1.0"))}
        })));
        Client client(m_config);
        QSignalSpy offered(&client, &Client::updateAvailable);
        client.check();
        client.check();
        QVERIFY(offered.wait(kWaitMsec));
        QTest::qWait(100);
        QCOMPARE(m_server.requests().size(), 1);
        // Once answered, it checks again when asked.
        client.check();
        QTRY_COMPARE_WITH_TIMEOUT(offered.size(), 2, kWaitMsec);
    }

private:
    void publish(const QByteArray &latestJson)
    {
        m_server.clear();
        QFile file(m_channel.filePath(QStringLiteral("latest.json")));
        if (latestJson.isEmpty())
            file.remove();
        else if (file.open(QIODevice::WriteOnly))
            file.write(latestJson);
    }

    ScriptedServer m_server;
    QTemporaryDir m_channel;
    // No trailing slash: the client adds the one the file name needs.
    HalcUpdate::Config m_config;
};

QTEST_GUILESS_MAIN(TstClient)
#include "tst_updateclient.moc"
