#include "support/TestServer.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

class TstServerChannel : public QObject {
    Q_OBJECT

private slots:
    void servesTheChannelFiles_data();
    void servesTheChannelFiles();
    void manifestOfARelease();

private:
    static bool write(const QString &path, const QByteArray &data)
    {
        QFile f(path);
        return f.open(QIODevice::WriteOnly) && f.write(data) == data.size();
    }
};

void TstServerChannel::servesTheChannelFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("status");
    QTest::newRow("manifest") << "latest.json" << 200;
    QTest::newRow("notes") << "release-notes.md" << 200;
    QTest::newRow("German notes") << "release-notes.de.md" << 200;
    QTest::newRow("Spanish notes, not there") << "release-notes.es.md" << 404;
    QTest::newRow("another file of the folder") << "secret.txt" << 404;
    QTest::newRow("out of the folder") << "..%2Fserver.db" << 404;
}

void TstServerChannel::servesTheChannelFiles()
{
    QFETCH(QString, name);
    QFETCH(int, status);
    TestServer server;
    const QString channel = server.dataDir() + "/channel";
    QVERIFY(QDir().mkpath(channel));
    for (const char *file : {"latest.json", "release-notes.md", "release-notes.de.md", "secret.txt"})
        QVERIFY(write(channel + "/" + file, QByteArray("content of ") + file));
    server.options().channelDir = channel;
    QVERIFY(server.start());
    const HttpResult r = server.get("/ombrel/stable/" + name, QString());
    QCOMPARE(r.status, status);
    if (status == 200)
        QCOMPARE(r.body, "content of " + name.toUtf8());
}

void TstServerChannel::manifestOfARelease()
{
    TestServer server;
    const QString channel = server.dataDir() + "/channel";
    QVERIFY(QDir().mkpath(channel));
    const QByteArray installer(123457, 'z');
    QVERIFY(write(server.dataDir() + "/setup.exe", installer));
    QProcess tool;
    tool.start(OMBREL_MAKE_UPDATE_MANIFEST,
               {"--version", "1.2.0", "--url", "https://downloads.example.org/ombrel-1.2.0.exe", "--file",
                server.dataDir() + "/setup.exe", "--notes-url", "https://downloads.example.org/notes.md",
                "--output", channel + "/latest.json"});
    QVERIFY(tool.waitForFinished(30000));
    QCOMPARE(tool.exitCode(), 0);
    server.options().channelDir = channel;
    QVERIFY(server.start());

    const QJsonObject manifest = server.get("/ombrel/stable/latest.json", QString()).json;
    QCOMPARE(manifest.value("schema").toInt(), 1);
    QCOMPARE(manifest.value("app").toString(), QStringLiteral("ombrel"));
    QCOMPARE(manifest.value("channel").toString(), QStringLiteral("stable"));
    const QJsonObject artifact = manifest.value("artifacts").toObject().value("windows-x64").toObject();
    QCOMPARE(artifact.value("version").toString(), QStringLiteral("1.2.0"));
    QCOMPARE(qint64(artifact.value("size").toDouble()), qint64(installer.size()));
    QCOMPARE(artifact.value("sha256").toString(),
             QString::fromLatin1(QCryptographicHash::hash(installer, QCryptographicHash::Sha256).toHex()));
    QVERIFY(QDateTime::fromString(artifact.value("released_at").toString(), Qt::ISODate).isValid());
    QCOMPARE(artifact.value("mandatory").toBool(), false);

    QProcess refused;
    refused.start(OMBREL_MAKE_UPDATE_MANIFEST, {"--version", "1.2.0-rc1", "--url", "https://x.org/a",
                                                "--file", server.dataDir() + "/setup.exe"});
    QVERIFY(refused.waitForFinished(30000));
    QVERIFY(refused.exitCode() != 0);
}

QTEST_GUILESS_MAIN(TstServerChannel)
#include "tst_serverchannel.moc"
