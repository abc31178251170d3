#include "core/AppState.h"
#include "core/Application.h"
#include "core/DataDirectory.h"
#include "core/Language.h"
#include "core/ThemeManager.h"
#include "data/CategoryRepository.h"
#include "data/PreferencesRepository.h"
#include "support/Line.h"
#include "ui/Prompt.h"

#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <unistd.h>

namespace {

// Everything written to stderr while fn runs.
template <typename Fn>
QByteArray captureStderr(Fn fn)
{
    QTemporaryDir dir;
    const QByteArray path = dir.filePath(QStringLiteral("stderr")).toLocal8Bit();
    std::fflush(stderr);
    const int saved = dup(fileno(stderr));
    if (!std::freopen(path.constData(), "w", stderr))
        return {};
    fn();
    std::fflush(stderr);
    dup2(saved, fileno(stderr));
    close(saved);
    QFile file(QString::fromLocal8Bit(path));
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

Application *app()
{
    return static_cast<Application *>(qApp);
}

} // namespace

class TstApplication : public QObject {
    Q_OBJECT
    QTemporaryDir m_dir;

    void useDataDir(const QString &name) { qputenv("OMBREL_DATA_DIR", m_dir.filePath(name).toUtf8()); }

private slots:
    void init() { useDataDir(QStringLiteral("data")); }
    // run() leaves its AppState behind as a child of the application; the next run makes its own.
    void cleanup()
    {
        qDeleteAll(qApp->findChildren<AppState *>(Qt::FindDirectChildrenOnly));
        // Nor may the update check it armed reach out to the real channel later in this process.
        qDeleteAll(qApp->findChildren<QTimer *>(QStringLiteral("updateCheckTimer")));
    }

    void unusableDataDirectoryExitsWithStatusOne()
    {
        // A plain file where the data directory should be: nothing can be made beneath it.
        QFile blocker(m_dir.filePath(QStringLiteral("blocker")));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        const QString dataDir = blocker.fileName() + QStringLiteral("/data");
        qputenv("OMBREL_DATA_DIR", dataDir.toUtf8());
        Prompt::setNextAnswer(QMessageBox::Ok);
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("^Failed to open database: ")));
        QCOMPARE(app()->run(), 1);
        QCOMPARE(Prompt::lastTitle(), QStringLiteral("Database Error"));
        QCOMPARE(Prompt::lastText(),
                 QStringLiteral("Failed to initialize the database.\n\nData directory: %1\n\n"
                                "Please check file permissions and try again.")
                     .arg(dataDir));
        QVERIFY(QApplication::topLevelWidgets().isEmpty());
    }

    void startsAndMigratesFreshDirectory()
    {
        QTimer::singleShot(0, app(), [] {
            QVERIFY(!QApplication::topLevelWidgets().isEmpty());
            QCoreApplication::exit(0);
        });
        QCOMPARE(app()->run(), 0);
        const auto *updateCheck = app()->findChild<QTimer *>(QStringLiteral("updateCheckTimer"));
        const auto *state = app()->findChild<AppState *>();
        QSqlQuery q(QSqlDatabase::database());
        QVERIFY(q.exec(QStringLiteral("SELECT COUNT(*) FROM schema_version")) && q.next());
        // Armed once, a moment after the window shows; the file made and migrated, the defaults seeded.
        QCOMPARE(line(updateCheck->isActive(), updateCheck->isSingleShot(), updateCheck->interval(),
                      QFile::exists(databasePath()), "[" + state->currentAccountId() + "]",
                      q.value(0).toInt(), state->categories()->count()),
                 "1 1 1500 1 [] 2 56");
    }

    void filteredLog_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QByteArray>("expected");
        // clang-format off
        QTest::newRow("debug dropped")    << int(QtDebugMsg)    << "noise"                   << QByteArray();
        QTest::newRow("info dropped")     << int(QtInfoMsg)     << "Opening database at: /x" << QByteArray();
        QTest::newRow("warning prefixed") << int(QtWarningMsg)  << "disk slow"  << QByteArray("WARN: disk slow\n");
        QTest::newRow("critical bare")    << int(QtCriticalMsg) << "Failed: no" << QByteArray("Failed: no\n");
        QTest::newRow("utf-8 kept")       << int(QtWarningMsg)  << "Café" << QByteArray("WARN: Caf\xc3\xa9\n");
        // clang-format on
    }

    void filteredLog()
    {
        QFETCH(int, type);
        QFETCH(QString, message);
        QFETCH(QByteArray, expected);
        const QMessageLogContext context("file.cpp", 12, "function", "category");
        QCOMPARE(
            captureStderr([&] { Application::filteredMessageHandler(QtMsgType(type), context, message); }),
            expected);
    }

    void resolveLanguage_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("system");
        QTest::addColumn<QString>("expected");
        // clang-format off
        QTest::newRow("system, supported")   << "system" << "de_DE" << "de";
        QTest::newRow("system, unsupported") << "system" << "pt_BR" << "en";
        QTest::newRow("system, C locale")    << "system" << "C"     << "en";
        QTest::newRow("explicit choice")     << "ja"     << "de_DE" << "ja";
        QTest::newRow("unknown code stands") << "xx"     << "fr_FR" << "xx";
        // clang-format on
    }

    void resolveLanguage()
    {
        QFETCH(QString, stored);
        QFETCH(QString, system);
        QFETCH(QString, expected);
        QCOMPARE(::resolveLanguage(stored, system), expected);
    }

    void preferencesAppliedAtStart_data()
    {
        QTest::addColumn<QString>("fontScale");
        QTest::addColumn<QString>("weekStartDay");
        QTest::addColumn<int>("expectedScale");
        QTest::addColumn<int>("expectedFirstDay"); // 0: the locale's
        // clang-format off
        QTest::newRow("unset")        << QString() << QString() << 100 << 0;
        QTest::newRow("not a number") << "abc"     << "x"       << 100 << 0;
        QTest::newRow("too large")    << "500"     << "8"       << 160 << 0;
        QTest::newRow("too small")    << "10"      << "0"       << 70  << 0;
        QTest::newRow("in range")     << "125"     << "7"       << 125 << int(Qt::Sunday);
        QTest::newRow("monday")       << "100"     << "1"       << 100 << int(Qt::Monday);
        // clang-format on
    }

    void preferencesAppliedAtStart()
    {
        QFETCH(QString, fontScale);
        QFETCH(QString, weekStartDay);
        QFETCH(int, expectedScale);
        QFETCH(int, expectedFirstDay);
        const Qt::DayOfWeek localeDay = QLocale::system().firstDayOfWeek();
        ThemeManager::setFirstDayOfWeek(localeDay);
        useDataDir(QString::fromLatin1(QTest::currentDataTag()));
        {
            AppState first;
            QVERIFY(first.initialize());
            if (!fontScale.isNull())
                QVERIFY(first.preferences()->set(QStringLiteral("fontScale"), fontScale));
            if (!weekStartDay.isNull())
                QVERIFY(first.preferences()->set(QStringLiteral("weekStartDay"), weekStartDay));
        }
        AppState second;
        QVERIFY(second.initialize());
        // The categories are seeded once, not again.
        QCOMPARE(line(ThemeManager::currentFontScale(), int(ThemeManager::firstDayOfWeek()),
                      second.categories()->count()),
                 line(expectedScale, expectedFirstDay ? expectedFirstDay : int(localeDay), 56));
    }

    void currentAccountIsRememberedAcrossStarts()
    {
        useDataDir(QStringLiteral("remembered"));
        {
            AppState first;
            QVERIFY(first.initialize() && first.currentAccountId().isEmpty());
            QSignalSpy changed(&first, &AppState::currentAccountChanged);
            first.setCurrentAccountId(QStringLiteral("acc-1"));
            first.setCurrentAccountId(QStringLiteral("acc-1"));
            QCOMPARE(changed.size(), 1);
        }
        AppState second;
        QSignalSpy changed(&second, &AppState::currentAccountChanged);
        QVERIFY(second.initialize());
        QCOMPARE(line(second.currentAccountId(), changed.size()), "acc-1 0");
    }
};

// The test needs our own Application, not the plain one QTEST_MAIN would make. QSettings and the
// data directory go to temporary places so the user's own are never touched.
int main(int argc, char *argv[])
{
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toUtf8());
    qputenv("XDG_DATA_HOME", home.filePath(QStringLiteral("share")).toUtf8());
    qunsetenv("OMBREL_VERBOSE");
    Application app(argc, argv);
    // The notes of this version count as seen, so that run() fetches nothing from the real channel.
    QSettings().setValue(QStringLiteral("whatsNew/lastShownVersion"), QStringLiteral(OMBREL_VERSION));
    TstApplication test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_application.moc"
