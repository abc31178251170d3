#include "support/TestServer.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

namespace {

bool write(const QString &path, const QByteArray &data)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(data) == data.size();
}

} // namespace

class TstServerChannel : public QObject {
    Q_OBJECT
private slots:
    // A release as the publishing tool makes it, served beside the notes; nothing else of the folder.
    void servesARelease()
    {
        TestServer server;
        const QString channel = server.dataDir() + "/channel";
        QVERIFY(QDir().mkpath(channel));
        for (const char *file : {"release-notes.md", "release-notes.de.md", "secret.txt"})
            QVERIFY(write(channel + "/" + file, QByteArray("content of ") + file));
        const QByteArray installer(123457, 'z');
        QVERIFY(write(server.dataDir() + "/setup.exe", installer));
        const auto tool = [&](const QStringList &arguments) {
            QProcess process;
            process.start(OMBREL_MAKE_UPDATE_MANIFEST,
                          arguments + QStringList{"--file", server.dataDir() + "/setup.exe"});
            return process.waitForFinished(30000) ? process.exitCode() : -1;
        };
        QCOMPARE(tool({"--version", "1.2.0", "--url", "https://downloads.example.org/ombrel-1.2.0.exe",
                       "--notes-url", "https://downloads.example.org/notes.md", "--output",
                       channel + "/latest.json"}),
                 0);
        QVERIFY(tool({"--version", "1.2.0-rc1", "--url", "https://x.org/a"}) > 0);
        server.options().channelDir = channel;
        QVERIFY(server.start());

        for (const char *name : {"release-notes.md", "release-notes.de.md"})
            QCOMPARE(server.get(QStringLiteral("/ombrel/stable/") + name).body,
                     QByteArray("content of ") + name);
        for (const char *name : {"release-notes.es.md", "secret.txt", "..%2Fserver.db"})
            QCOMPARE(server.get(QStringLiteral("/ombrel/stable/") + name).status, 404);

        const HttpResult latest = server.get("/ombrel/stable/latest.json");
        QCOMPARE(latest.status, 200);
        QCOMPARE(latest.json["schema"].toInt(), 1);
        QCOMPARE(latest.json["app"].toString() + latest.json["channel"].toString(),
                 QStringLiteral("ombrelstable"));
        const QJsonObject artifact = latest.json["artifacts"]["windows-x64"].toObject();
        QCOMPARE(artifact["version"].toString(), QStringLiteral("1.2.0"));
        QCOMPARE(qint64(artifact["size"].toDouble()), qint64(installer.size()));
        QCOMPARE(
            artifact["sha256"].toString(),
            QString::fromLatin1(QCryptographicHash::hash(installer, QCryptographicHash::Sha256).toHex()));
        QVERIFY(QDateTime::fromString(artifact["released_at"].toString(), Qt::ISODate).isValid());
        QCOMPARE(artifact["mandatory"].toBool(), false);
    }
};

QTEST_GUILESS_MAIN(TstServerChannel)
#include "tst_serverchannel.moc"
