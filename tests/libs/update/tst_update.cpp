#include "support/Columns.h"
#include "support/ScriptedServer.h"
#include "update/Client.h"
#include "update/ManifestParser.h"
#include "update/NotesBrowser.h"
#include "update/Platform.h"
#include "update/ReleaseNotesFetcher.h"
#include "update/UpdateChecks.h"
#include "update/UpdateDialog.h"
#include "update/Version.h"
#include "update/WhatsNew.h"
#include "update/WhatsNewDialog.h"

#include <QDesktopServices>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace HalcUpdate;

namespace {

constexpr int kWaitMsec = 5000;
const QString kChannel = QStringLiteral("/ombrel/stable/");
const QString kName = QStringLiteral("Halcyra Ombrel");

// clang-format off
QJsonObject artifactOf(const QString &version)
{
    return {{"version", version}, {"released_at", "2026-03-01T12:00:00Z"}, {"size", 1048576.7},
            {"url", "https://example.test/ombrel-setup.exe"}, {"sha256", QString(64, 'a')}};
}

QJsonObject with(QJsonObject object, const QString &key, const QJsonValue &value)
{
    if (value.isUndefined())
        object.remove(key);
    else
        object.insert(key, value);
    return object;
}

QByteArray manifestOf(const QJsonObject &artifactsByPlatform, const QString &key = {}, const QJsonValue &value = {})
{
    const QJsonObject root{{"schema", 1}, {"app", "ombrel"}, {"channel", "stable"}, {"artifacts", artifactsByPlatform}};
    return QJsonDocument(key.isEmpty() ? root : with(root, key, value)).toJson();
}

QString otherPlatform()
{
    return platformKey() == QLatin1String("windows-x64") ? "linux-x64" : "windows-x64";
}

// A valid two-platform manifest but for one field of the root, or of the Windows artifact.
QByteArray rootWith(const QString &key, const QJsonValue &value)
{
    return manifestOf({{"linux-x64", artifactOf("1.1.0")}, {"windows-x64", artifactOf("1.1.0")}}, key, value);
}

QByteArray windowsWith(const QString &key, const QJsonValue &value)
{
    return manifestOf({{"linux-x64", artifactOf("1.1.0")}, {"windows-x64", with(artifactOf("1.1.0"), key, value)}});
}

// clang-format on

// Stands in for the browser: under offscreen, opening a URL would fail.
class Browser : public QObject {
    Q_OBJECT
public:
    QList<QUrl> opened;
public slots:
    void open(const QUrl &url) { opened.append(url); }
};

} // namespace

// The update library against a channel directory served on 127.0.0.1.
class TstUpdate : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_home.path());
        QVERIFY(m_server.listen());
        m_server.serveDirectory(kChannel, m_channel.path());
        QDesktopServices::setUrlHandler(QStringLiteral("https"), &m_browser, "open");
    }

    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }

    void init()
    {
        m_server.clear();
        m_browser.opened.clear();
        QSettings().clear();
        for (const QString &name : QDir(m_channel.path()).entryList(QDir::Files))
            QFile::remove(m_channel.filePath(name));
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    }

    void version_data()
    {
        // next: a version just above
        addColumns<QString, QList<int>, QString>({"text", "parts", "next"});
        QTest::newRow("three parts") << "1.0.9" << QList<int>{1, 0, 9} << "1.0.10";
        QTest::newRow("one part") << "2" << QList<int>{2, 0, 0} << "2.0.1";
        QTest::newRow("two parts") << "1.9" << QList<int>{1, 9, 0} << "2";
        QTest::newRow("pre-release suffix") << "2.0.0-rc1" << QList<int>{0, 0, 0} << "0.0.1";
        QTest::newRow("four parts") << "1.2.3.4" << QList<int>{0, 0, 0} << "0.0.1";
        QTest::newRow("empty part") << "1..3" << QList<int>{0, 0, 0} << "0.0.1";
        QTest::newRow("empty") << "" << QList<int>{0, 0, 0} << "0.0.1";
    }

    void version()
    {
        QFETCH(QString, text);
        QFETCH(QList<int>, parts);
        QFETCH(QString, next);
        const Version v = Version::fromString(text);
        QCOMPARE(v, (Version{parts[0], parts[1], parts[2]}));
        QVERIFY(v < Version::fromString(next));
        QVERIFY(!(Version::fromString(next) < v) && !(v < v));
    }

    void manifestRejected_data()
    {
        const QJsonValue absent(QJsonValue::Undefined);
        addColumns<QByteArray, QString>({"json", "reason"});
        const QString invalid = QStringLiteral("artifact windows-x64 failed validation");
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
        QTest::newRow("artifact a text")  << rootWith("artifacts", QJsonObject{{"windows-x64", "1.1.0"}}) << "artifact windows-x64 is not an object";
        QTest::newRow("no version")       << windowsWith("version", absent)   << "missing or non-string field: version";
        QTest::newRow("sha256 a number")  << windowsWith("sha256", 5)         << "missing or non-string field: sha256";
        QTest::newRow("notes URL a list") << windowsWith("release_notes_url", QJsonArray()) << "missing or non-string field: release_notes_url";
        QTest::newRow("empty version")    << windowsWith("version", "")       << invalid;
        QTest::newRow("bad date")         << windowsWith("released_at", "2026-02-30T12:00:00Z") << invalid;
        QTest::newRow("empty URL")        << windowsWith("url", "")           << invalid;
        QTest::newRow("size zero")        << windowsWith("size", 0.9)         << invalid;
        QTest::newRow("no size")          << windowsWith("size", absent)      << invalid;
        // The platform that fails is not ours: the whole manifest goes all the same.
        QTest::newRow("sha256 of 63")     << windowsWith("sha256", QString(63, 'a')) << invalid;
        QTest::newRow("sha256 of 65")     << windowsWith("sha256", QString(65, 'a')) << invalid;
        // clang-format on
    }

    void manifestRejected()
    {
        QFETCH(QByteArray, json);
        QString actual;
        QVERIFY(!ManifestParser::parse(json, &actual));
        QTEST(actual, "reason");
    }

    // Every optional field, and sizes as some tools write them: doubles, also above 32 bits.
    void manifestRead()
    {
        const QString sha256 = QString(32, 'a') + QString(32, 'F');
        // clang-format off
        const QJsonObject windows{{"version", "1.1.0"}, {"url", "https://example.test/a.exe"}, {"size", 1048576.7},
                                  {"sha256", sha256}, {"mandatory", true}, {"min_upgradable_from", "1.0.0"},
                                  {"release_notes_url", "https://example.test/notes.md"},
                                  {"released_at", "2026-03-01T12:00:00.250+02:00"}};
        QString reason;
        const auto parsed = ManifestParser::parse(manifestOf({{"windows-x64", windows}, {"linux-x64", with(artifactOf("1.1.0"), "size", 5000000000.9)}}), &reason);
        // clang-format on
        QVERIFY2(parsed, qPrintable(reason));
        const Artifact a = parsed->artifacts.value(QStringLiteral("windows-x64"));
        QCOMPARE(QStringList(
                     {QString::number(a.size), a.sha256, a.minUpgradableFrom, a.releaseNotesUrl.toString()}),
                 QStringList({"1048576", sha256, "1.0.0", "https://example.test/notes.md"}));
        QVERIFY(a.mandatory);
        QCOMPARE(a.releasedAt.toUTC(), QDateTime(QDate(2026, 3, 1), QTime(10, 0, 0, 250), Qt::UTC));
        const Artifact plain = parsed->artifacts.value(QStringLiteral("linux-x64"));
        QCOMPARE(plain.size, Q_INT64_C(5000000000));
        QVERIFY(!plain.mandatory && !plain.releaseNotesUrl.isValid());
    }

    void check_data()
    {
        const QString ours = platformKey();
        const auto offering = [&](const QJsonObject &ourArtifact) {
            // clang-format off
            return manifestOf({{ours, ourArtifact}, {otherPlatform(), artifactOf("9.0.0")}});
            // clang-format on
        };
        // latestJson: empty: not published
        // status: 0: the file as served
        // answer: the signal and the offered version or the start of the reason
        addColumns<QByteArray, int, QString>({"latestJson", "status", "answer"});
        const QJsonObject minAbove = with(artifactOf("1.1.0"), "min_upgradable_from", "1.0.10");
        // clang-format off
        QTest::newRow("numeric order")     << offering(artifactOf("1.0.10")) << 0 << "update 1.0.10";
        QTest::newRow("same version")      << offering(artifactOf("1.0.9"))  << 0 << "upToDate";
        QTest::newRow("min equal current") << offering(with(artifactOf("1.1.0"), "min_upgradable_from", "1.0.9")) << 0 << "update 1.1.0";
        QTest::newRow("min above current") << offering(minAbove) << 0 << "failed current version 1.0.9 is older than min_upgradable_from 1.0.10; please upgrade to an intermediate release first";
        QTest::newRow("not shipped for us") << manifestOf({{otherPlatform(), artifactOf("9.0.0")}}) << 0 << "upToDate";
        QTest::newRow("not published")     << QByteArray() << 0   << "upToDate";
        QTest::newRow("server error")      << QByteArray() << 500 << "failed network error: ";
        QTest::newRow("not JSON")          << QByteArray("<html>") << 0 << "failed manifest invalid: JSON parse error: ";
        // clang-format on
    }

    void check()
    {
        QFETCH(QByteArray, latestJson);
        QFETCH(int, status);
        QFETCH(QString, answer);
        if (platformKey().isEmpty())
            QSKIP("nothing is shipped for this system");
        if (!latestJson.isEmpty())
            publish(QStringLiteral("latest.json"), latestJson);
        if (status != 0)
            m_server.enqueue(kChannel + "latest.json", ScriptedReply{status, "oops"});
        // No trailing slash: the client adds the one the file name needs.
        Client client(config(false));
        QSignalSpy offered(&client, &Client::updateAvailable);
        QSignalSpy upToDate(&client, &Client::upToDate);
        QSignalSpy failed(&client, &Client::checkFailed);
        client.check();
        client.check(); // ignored while the first is under way
        const auto answers = [&] { return offered.size() + upToDate.size() + failed.size(); };
        QTRY_COMPARE_WITH_TIMEOUT(answers(), 1, kWaitMsec);
        if (QTest::currentDataTag() == QByteArray("numeric order"))
            QVERIFY(!QTest::qWaitFor([&] { return answers() > 1; }, 100));
        const QString given = !offered.isEmpty()    ? "update " + offered[0][0].value<Artifact>().version
                              : !upToDate.isEmpty() ? QStringLiteral("upToDate")
                                                    : "failed " + failed[0][0].toString();
        QVERIFY2(given.startsWith(answer) && (answer.startsWith("failed") || given == answer),
                 qPrintable(given));
        QCOMPARE(requestedFiles(), QStringList{"latest.json"});
        QCOMPARE(m_server.requests().at(0).header("User-Agent"), QByteArray("HalcUpdateQt/0.1 (ombrel)"));
        // Once answered, it checks again when asked.
        client.check();
        QTRY_COMPARE_WITH_TIMEOUT(answers(), 2, kWaitMsec);
        QCOMPARE(requestedFiles().size(), 2);
    }

    void offerAtStart_data()
    {
        // button: the one pressed; empty: no dialog
        addColumns<QString, bool, QString>({"dismissed", "mandatory", "button"});
        // clang-format off
        QTest::newRow("first offer, later")    << ""       << false << "laterButton";
        QTest::newRow("first offer, download") << ""       << false << "downloadButton";
        QTest::newRow("mandatory")             << ""       << true  << "downloadButton";
        QTest::newRow("older dismissed")       << "1.0.10" << false << "laterButton";
        QTest::newRow("same dismissed")        << "1.1.0"  << false << "";
        QTest::newRow("same, written short")   << "1.1"    << false << "";
        QTest::newRow("newer dismissed")       << "1.2.0"  << false << "";
        // clang-format on
    }

    void offerAtStart()
    {
        QFETCH(QString, dismissed);
        QFETCH(bool, mandatory);
        QFETCH(QString, button);
        Artifact artifact;
        artifact.version = QStringLiteral("1.1.0");
        artifact.url = QUrl(QStringLiteral("https://example.test/ombrel-1.1.0.exe"));
        artifact.mandatory = mandatory;
        QString stored = dismissed;
        QWidget window;
        QWidget *dialog =
            offerAtStartup(artifact, config(), kName, &window,
                           {[&stored] { return stored; }, [&stored](const QString &v) { stored = v; }});
        QCOMPARE(dialog != nullptr, !button.isEmpty());
        if (!dialog)
            return;
        QCOMPARE(dialog->findChild<QPushButton *>(QStringLiteral("laterButton")) != nullptr, !mandatory);
        QTest::mouseClick(dialog->findChild<QPushButton *>(button), Qt::LeftButton);
        // Whichever way it closed, this version is not offered at the next start.
        QCOMPARE(stored, QStringLiteral("1.1.0"));
        QCOMPARE(m_browser.opened.size(), button == QLatin1String("downloadButton") ? 1 : 0);
    }

    void manualCheck_data()
    {
        // message: empty: the dialog shows instead
        addColumns<QByteArray, QString>({"latestJson", "message"});
        // clang-format off
        QTest::newRow("update")     << manifestOf({{platformKey(), artifactOf("1.1.0")}}) << "";
        QTest::newRow("up to date") << manifestOf({{platformKey(), artifactOf("1.0.9")}}) << "Halcyra Ombrel is up to date (version 1.0.9)";
        QTest::newRow("failed")     << QByteArray("[]") << "Update check failed: manifest invalid: manifest root is not a JSON object";
        // clang-format on
    }

    // The manual check knows nothing of dismissed versions: what the channel offers, it shows.
    void manualCheck()
    {
        QFETCH(QByteArray, latestJson);
        QFETCH(QString, message);
        if (platformKey().isEmpty())
            QSKIP("nothing is shipped for this system");
        publish(QStringLiteral("latest.json"), latestJson);
        QString progress;
        QStringList said;
        QWidget window;
        checkForUpdates(config(), kName, &window,
                        {[&](const QString &text) { progress = text; }, [&] { progress.clear(); },
                         [&](const QString &text, int msec) {
                             progress.clear();
                             said.append(QStringLiteral("%1 (%2)").arg(text).arg(msec));
                         }});
        QCOMPARE(progress, QStringLiteral("Checking for updates…"));
        QTRY_VERIFY_WITH_TIMEOUT(progress.isEmpty(), kWaitMsec);
        QCOMPARE(said, message.isEmpty() ? QStringList() : QStringList{message + QStringLiteral(" (5000)")});
        QCOMPARE(window.findChild<UpdateDialog *>() != nullptr, message.isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(!window.findChild<Client *>(), kWaitMsec);
    }

    void notesLanguage_data()
    {
        // asked: the last one asked is the one shown, if published
        addColumns<QString, QStringList, QStringList>({"locale", "published", "asked"});
        const QString md = QStringLiteral("release-notes.md");
        // clang-format off
        QTest::newRow("Spanish falls back") << "es_ES" << QStringList{md}  << QStringList{"release-notes.es.md", md};
        QTest::newRow("German found")       << "de_DE" << QStringList{md, "release-notes.de.md"} << QStringList{"release-notes.de.md"};
        QTest::newRow("English")            << "en_GB" << QStringList{md}  << QStringList{md};
        QTest::newRow("C locale")           << "C"     << QStringList{md}  << QStringList{md};
        QTest::newRow("none published")     << "fr_FR" << QStringList()    << QStringList{"release-notes.fr.md", md};
        // clang-format on
    }

    void notesLanguage()
    {
        QFETCH(QString, locale);
        QFETCH(QStringList, published);
        QFETCH(QStringList, asked);
        for (const QString &name : published)
            publish(name, "# " + name.toUtf8() + " ☕\n");
        QLocale::setDefault(QLocale(locale));
        ReleaseNotesFetcher fetcher(config());
        QSignalSpy ready(&fetcher, &ReleaseNotesFetcher::notesReady);
        QSignalSpy unavailable(&fetcher, &ReleaseNotesFetcher::notesUnavailable);
        fetcher.fetch();
        QTRY_COMPARE_WITH_TIMEOUT(ready.size() + unavailable.size(), 1, kWaitMsec);
        QCOMPARE(requestedFiles(), asked);
        QCOMPARE(unavailable.size(), published.isEmpty() ? 1 : 0);
        QVERIFY(published.isEmpty() || ready[0][0] == QStringLiteral("# %1 ☕\n").arg(asked.last()));
    }

    void whatsNewAtStart_data()
    {
        // lastShown: in the settings
        // older: where earlier versions kept it
        addColumns<QString, QString, bool, bool, bool>(
            {"lastShown", "older", "notesPublished", "started", "dialog"});
        // clang-format off
        QTest::newRow("first run")                << ""       << ""      << true  << true  << true;
        QTest::newRow("first run, notes missing") << ""       << ""      << false << true  << false;
        QTest::newRow("upgraded")                 << "1.0.8"  << ""      << true  << true  << true;
        QTest::newRow("already shown")            << "1.0.9"  << ""      << true  << false << false;
        QTest::newRow("newer shown before")       << "1.0.10" << ""      << true  << false << false;
        QTest::newRow("shown, older location")    << ""       << "1.0.9" << true  << false << false;
        QTest::newRow("upgraded, older location") << ""       << "1.0.5" << true  << true  << true;
        QTest::newRow("settings win over older")  << "1.0.9"  << "1.0.5" << true  << false << false;
        // clang-format on
    }

    void whatsNewAtStart()
    {
        QFETCH(QString, lastShown);
        QFETCH(QString, older);
        QFETCH(bool, notesPublished);
        QFETCH(bool, started);
        const QString key = QString::fromLatin1(kWhatsNewSettingsKey);
        if (!lastShown.isEmpty())
            QSettings().setValue(key, lastShown);
        if (notesPublished)
            publish(QStringLiteral("release-notes.md"), "## Faster imports\n\n- QIF files load in seconds\n");
        QWidget window;
        QCOMPARE(showWhatsNewIfUpgraded(config(), kName, &window, [older] { return older; }), started);
        // Recorded before anything shows, and moved out of the older location.
        QCOMPARE(QSettings().value(key).toString(),
                 started ? QStringLiteral("1.0.9") : (lastShown.isEmpty() ? older : lastShown));
        // The flow is over when its fetcher has gone.
        QTRY_VERIFY_WITH_TIMEOUT(!qApp->findChild<ReleaseNotesFetcher *>(), kWaitMsec);
        QCOMPARE(requestedFiles().size(), started ? 1 : 0);
        auto *shown = window.findChild<WhatsNewDialog *>();
        QTEST(shown != nullptr, "dialog");
        QVERIFY(!shown || shown->notesBrowser()->toPlainText().contains("QIF files load in seconds"));
    }

    void whatsNewAskedForWithoutNotes()
    {
        QWidget window;
        WhatsNewDialog *dialog = showWhatsNew(config(), kName, &window);
        QCOMPARE(dialog->notesBrowser()->placeholderText(), QStringLiteral("Loading release notes…"));
        QTRY_COMPARE_WITH_TIMEOUT(dialog->notesBrowser()->toPlainText(),
                                  QStringLiteral("Release notes are not available for this version."),
                                  kWaitMsec);
    }

private:
    Config config(bool slash = true) const
    {
        return {"ombrel", "stable", QUrl(m_server.baseUrl().toString() + kChannel.chopped(slash ? 0 : 1)),
                "1.0.9"};
    }
    void publish(const QString &name, const QByteArray &content)
    {
        QFile file(m_channel.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    QStringList requestedFiles() const
    {
        QStringList files;
        for (const RecordedRequest &request : m_server.requests())
            files.append(request.path.mid(kChannel.size()));
        return files;
    }

    ScriptedServer m_server;
    QTemporaryDir m_home;
    QTemporaryDir m_channel;
    Browser m_browser;
};

QTEST_MAIN(TstUpdate)
#include "tst_update.moc"
