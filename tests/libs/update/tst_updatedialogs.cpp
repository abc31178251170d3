#include "support/ScriptedServer.h"
#include "support/UpdateManifests.h"
#include "update/Client.h"
#include "update/NotesBrowser.h"
#include "update/Platform.h"
#include "update/ReleaseNotesFetcher.h"
#include "update/UpdateChecks.h"
#include "update/UpdateDialog.h"
#include "update/WhatsNew.h"
#include "update/WhatsNewDialog.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
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

// Stands in for the browser: under offscreen, opening a URL would fail.
class Browser : public QObject {
    Q_OBJECT
public:
    QList<QUrl> opened;
public slots:
    void open(const QUrl &url) { opened.append(url); }
};

} // namespace

// The dialogs and the flows that show them, against a channel directory served on 127.0.0.1.
class TstUpdateDialogs : public QObject {
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

    void offerAtStart_data()
    {
        QTest::addColumn<QString>("dismissed");
        QTest::addColumn<bool>("mandatory");
        QTest::addColumn<QString>("button"); // the one pressed; empty: no dialog
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
        using namespace UpdateManifests;
        QTest::addColumn<QByteArray>("latestJson");
        QTest::addColumn<QString>("message"); // empty: the dialog shows instead
        const QString ours = platformKey();
        // clang-format off
        QTest::newRow("update")     << toJson(manifest({{ours, artifact("1.1.0")}})) << "";
        QTest::newRow("up to date") << toJson(manifest({{ours, artifact("1.0.9")}}))
                                    << "Halcyra Ombrel is up to date (version 1.0.9)";
        QTest::newRow("failed")     << QByteArray("[]")
                                    << "Update check failed: manifest invalid: manifest root is not a JSON object";
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
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QStringList>("published");
        QTest::addColumn<QStringList>("asked"); // the last one asked is the one shown, if published
        const QString md = QStringLiteral("release-notes.md");
        // clang-format off
        QTest::newRow("Spanish falls back") << "es_ES" << QStringList{md}  << QStringList{"release-notes.es.md", md};
        QTest::newRow("German found")       << "de_DE" << QStringList{md, "release-notes.de.md"}
                                            << QStringList{"release-notes.de.md"};
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
        if (published.isEmpty())
            QCOMPARE(unavailable.size(), 1);
        else
            QCOMPARE(ready.value(0).value(0).toString(), QStringLiteral("# %1 ☕\n").arg(asked.last()));
    }

    void whatsNewAtStart_data()
    {
        QTest::addColumn<QString>("lastShown"); // in the settings
        QTest::addColumn<QString>("older");     // where earlier versions kept it
        QTest::addColumn<bool>("notesPublished");
        QTest::addColumn<bool>("started");
        QTest::addColumn<bool>("dialog");
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
        QFETCH(bool, dialog);
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
        QCOMPARE(shown != nullptr, dialog);
        if (shown)
            QVERIFY(
                shown->notesBrowser()->toPlainText().contains(QStringLiteral("QIF files load in seconds")));
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
    Config config() const
    {
        return {QStringLiteral("ombrel"), QStringLiteral("stable"),
                QUrl(m_server.baseUrl().toString() + kChannel), QStringLiteral("1.0.9")};
    }
    void publish(const QString &name, const QByteArray &content)
    {
        QFile file(m_channel.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
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

QTEST_MAIN(TstUpdateDialogs)
#include "tst_updatedialogs.moc"
