#include "core/Application.h"

#include "core/AppIdentity.h"
#include "core/AppState.h"
#include "core/DataDirectory.h"
#include "core/Language.h"
#include "data/PreferencesRepository.h"
#include "ui/MainWindow.h"
#include "ui/Prompt.h"
#include "update/UpdateChecks.h"
#include "update/WhatsNew.h"

#include <QFontDatabase>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTimer>
#include <QTranslator>

#include <cstdio>

namespace {
// The window draws first; a slow channel never holds up the start.
constexpr int kUpdateCheckDelayMsec = 1500;
} // namespace

Application::Application(int &argc, char **argv)
    : QApplication(argc, argv)
{
    if (qEnvironmentVariable("OMBREL_VERBOSE").isEmpty())
        qInstallMessageHandler(&Application::filteredMessageHandler);

    setOrganizationName(QString::fromLatin1(AppIdentity::kOrganizationName));
    setOrganizationDomain(QString::fromLatin1(AppIdentity::kOrganizationDomain));
    setApplicationName(QString::fromLatin1(AppIdentity::kApplicationName));
    setApplicationVersion(QString::fromLatin1(AppIdentity::kApplicationVersion));
    // Wayland and the desktop's task list find the installed entry, and so the icon, by this name.
    setDesktopFileName(QString::fromLatin1(AppIdentity::kApplicationIdentifier));

    setupTranslators();

    setWindowIcon(QIcon(QString::fromLatin1(AppIdentity::kWindowIcon)));
    // Without the icon font the glyphs show as letters; not worth stopping for.
    QFontDatabase::addApplicationFont(QString::fromLatin1(AppIdentity::kIconFont));
}

// The window goes before AppState (a child, destroyed by the base class), since it borrows it.
Application::~Application() = default;

void Application::filteredMessageHandler(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    switch (type) {
    case QtDebugMsg:
    case QtInfoMsg: return;
    case QtWarningMsg: std::fprintf(stderr, "WARN: %s\n", message.toLocal8Bit().constData()); break;
    case QtCriticalMsg:
    case QtFatalMsg: std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData()); break;
    }
    std::fflush(stderr);
}

void Application::setupTranslators()
{
    const QString language = resolvedLanguage(true);

    if (language != QLatin1String("en")) {
        m_qtTranslator = new QTranslator(this);
        if (m_qtTranslator->load(QLocale(language), QStringLiteral("qtbase"), QStringLiteral("_"),
                                 QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
            installTranslator(m_qtTranslator);
        } else {
            delete m_qtTranslator;
            m_qtTranslator = nullptr;
        }
    }

    // Source strings are English, so the English catalogue is empty and installing it changes nothing.
    m_appTranslator = new QTranslator(this);
    if (m_appTranslator->load(QStringLiteral(":/i18n/ombrel_%1.qm").arg(language))) {
        installTranslator(m_appTranslator);
    } else {
        delete m_appTranslator;
        m_appTranslator = nullptr;
    }
}

int Application::run()
{
    m_appState = new AppState(this);
    if (!m_appState->initialize()) {
        Prompt::critical(nullptr, tr("Database Error"),
                         tr("Failed to initialize the database.\n\nData directory: %1\n\n"
                            "Please check file permissions and try again.")
                             .arg(dataDirectory()));
        return 1;
    }

    m_mainWindow = std::make_unique<MainWindow>(m_appState);
    m_mainWindow->show();

    const QString displayName = QString::fromLatin1(AppIdentity::kDisplayName);
    PreferencesRepository *preferences = m_appState->preferences();
    HalcUpdate::showWhatsNewIfUpgraded(updateClientConfig(), displayName, m_mainWindow.get(), [preferences] {
        return preferences->getOr(QStringLiteral("last_whats_new_version"), QString());
    });
    // A timer object rather than a bare single shot, so that a test of run() can find it and disarm it.
    auto *updateCheck = new QTimer(this);
    updateCheck->setObjectName(QStringLiteral("updateCheckTimer"));
    updateCheck->setSingleShot(true);
    updateCheck->setInterval(kUpdateCheckDelayMsec);
    connect(updateCheck, &QTimer::timeout, this, [this, updateCheck, displayName, preferences] {
        updateCheck->deleteLater();
        const QString key = QStringLiteral("update_dismissed_version");
        HalcUpdate::checkAtStartup(
            updateClientConfig(), displayName, m_mainWindow.get(),
            {[preferences, key] { return preferences->getOr(key, QString()); },
             [preferences, key](const QString &version) { preferences->set(key, version); }},
            this);
    });
    updateCheck->start();

    return exec();
}
