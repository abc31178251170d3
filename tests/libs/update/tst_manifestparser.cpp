#include "support/UpdateManifests.h"
#include "update/ManifestParser.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <functional>

using HalcUpdate::ManifestParser;

namespace {

// A valid two-platform manifest with the given fields of the root, or of the Windows artifact when a
// key starts with "windows-x64/", set; an undefined value removes the field.
QJsonObject manifestWith(const QList<QPair<QString, QJsonValue>> &fields)
{
    QJsonObject root = UpdateManifests::manifest({
        {"linux-x64",   UpdateManifests::artifact("1.1.0")},
        {"windows-x64", UpdateManifests::artifact("1.1.0")},
    });
    QJsonObject artifacts = root["artifacts"].toObject();
    QJsonObject windows = artifacts["windows-x64"].toObject();
    for (const auto &[name, value] : fields) {
        const bool ofWindows = name.startsWith("windows-x64/");
        QJsonObject &target = ofWindows ? windows : root;
        if (value.isUndefined())
            target.remove(name.mid(ofWindows ? 12 : 0));
        else
            target.insert(name.mid(ofWindows ? 12 : 0), value);
    }
    artifacts.insert("windows-x64", windows);
    if (std::none_of(fields.begin(), fields.end(),
                     [](const auto &field) { return field.first == "artifacts"; }))
        root.insert("artifacts", artifacts);
    return root;
}

QByteArray rootWith(const QString &key, const QJsonValue &value)
{
    return UpdateManifests::toJson(manifestWith({
        {key, value}
    }));
}

QByteArray windowsArtifactWith(const QString &key, const QJsonValue &value)
{
    return rootWith("windows-x64/" + key, value);
}

} // namespace

class TstManifestParser : public QObject {
    Q_OBJECT
private slots:
    void rejects_data()
    {
        const QJsonValue absent(QJsonValue::Undefined);
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("reason");
        // clang-format off
        QTest::newRow("not JSON")         << QByteArray("{\"schema\": 1,")    << "JSON parse error: unterminated object";
        QTest::newRow("root array")       << QByteArray("[1]")                << "manifest root is not a JSON object";
        QTest::newRow("no schema")        << rootWith("schema", absent)       << "missing or non-integer field: schema";
        QTest::newRow("schema as text")   << rootWith("schema", "1")          << "missing or non-integer field: schema";
        QTest::newRow("schema 2")         << rootWith("schema", 2)            << "unsupported manifest schema: 2 (expected 1)";
        QTest::newRow("no app")           << rootWith("app", absent)          << "missing or non-string field: app";
        QTest::newRow("channel a number") << rootWith("channel", 7)           << "missing or non-string field: channel";
        QTest::newRow("artifacts a list") << rootWith("artifacts", QJsonArray()) << "missing or non-object field: artifacts";
        QTest::newRow("no artifacts")     << rootWith("artifacts", QJsonObject()) << "manifest failed validation";
        QTest::newRow("empty app")        << rootWith("app", "")              << "manifest failed validation";
        QTest::newRow("artifact a text")  << rootWith("artifacts", QJsonObject{{"windows-x64", "1.1.0"}})
                                          << "artifact windows-x64 is not an object";
        QTest::newRow("no version")       << windowsArtifactWith("version", absent) << "missing or non-string field: version";
        QTest::newRow("sha256 a number")  << windowsArtifactWith("sha256", 5)       << "missing or non-string field: sha256";
        QTest::newRow("notes URL a list") << windowsArtifactWith("release_notes_url", QJsonArray())
                                          << "missing or non-string field: release_notes_url";
        QTest::newRow("empty version")    << windowsArtifactWith("version", "")     << "artifact windows-x64 failed validation";
        QTest::newRow("bad date")         << windowsArtifactWith("released_at", "2026-02-30T12:00:00Z")
                                          << "artifact windows-x64 failed validation";
        QTest::newRow("empty URL")        << windowsArtifactWith("url", "")         << "artifact windows-x64 failed validation";
        QTest::newRow("size zero")        << windowsArtifactWith("size", 0.9)       << "artifact windows-x64 failed validation";
        QTest::newRow("no size")          << windowsArtifactWith("size", absent)    << "artifact windows-x64 failed validation";
        // The platform that fails is not ours: the whole manifest goes all the same.
        QTest::newRow("sha256 of 63")     << windowsArtifactWith("sha256", QString(63, QLatin1Char('a')))
                                          << "artifact windows-x64 failed validation";
        QTest::newRow("sha256 of 65")     << windowsArtifactWith("sha256", QString(65, QLatin1Char('a')))
                                          << "artifact windows-x64 failed validation";
        // clang-format on
    }

    void rejects()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, reason);
        QString actual;
        QVERIFY(!ManifestParser::parse(json, &actual));
        QCOMPARE(actual, reason);
    }

    // A manifest made for a real file: its size and SHA-256, and every optional field.
    void readsArtifact()
    {
        QFile file(QCoreApplication::applicationFilePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString sha256 =
            QString::fromLatin1(QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256).toHex());
        QJsonObject root = manifestWith({
            {"windows-x64/size",                double(file.size())            },
            {"windows-x64/sha256",              sha256                         },
            {"windows-x64/mandatory",           true                           },
            {"windows-x64/min_upgradable_from", "1.0.0"                        },
            {"windows-x64/release_notes_url",   "https://example.test/notes.md"},
            {"windows-x64/released_at",         "2026-03-01T12:00:00.250+02:00"}
        });
        // Some tools write sizes as doubles; the fraction goes, also above 32 bits.
        QJsonObject artifacts = root["artifacts"].toObject();
        QJsonObject big = artifacts["linux-x64"].toObject();
        big.insert("size", 5000000000.9);
        artifacts.insert("linux-x64", big);
        root.insert("artifacts", artifacts);

        QString reason;
        const auto parsed = ManifestParser::parse(QJsonDocument(root).toJson(), &reason);
        QVERIFY2(parsed, qPrintable(reason));
        const HalcUpdate::Artifact real = parsed->artifacts.value(QStringLiteral("windows-x64"));
        QCOMPARE(real.size, file.size());
        QCOMPARE(real.sha256, sha256);
        QVERIFY(real.mandatory);
        QCOMPARE(real.minUpgradableFrom, QStringLiteral("1.0.0"));
        QCOMPARE(real.releaseNotesUrl, QUrl(QStringLiteral("https://example.test/notes.md")));
        QCOMPARE(real.releasedAt.toUTC(), QDateTime(QDate(2026, 3, 1), QTime(10, 0, 0, 250), Qt::UTC));

        const HalcUpdate::Artifact plain = parsed->artifacts.value(QStringLiteral("linux-x64"));
        QCOMPARE(plain.size, Q_INT64_C(5000000000));
        QVERIFY(!plain.mandatory);
        QVERIFY(!plain.releaseNotesUrl.isValid());
    }
};

QTEST_GUILESS_MAIN(TstManifestParser)
#include "tst_manifestparser.moc"
