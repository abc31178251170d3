#include "HeadlessBrowser.h"

#include <QDeadlineTimer>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

#include <unistd.h>

HeadlessBrowser::HeadlessBrowser() = default;

HeadlessBrowser::~HeadlessBrowser()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.terminate();
        if (!m_process.waitForFinished(5000)) {
            m_process.kill();
            m_process.waitForFinished(5000);
        }
    }
}

bool HeadlessBrowser::start(QString *whyNot)
{
    QString program = QStandardPaths::findExecutable(QStringLiteral("chromium"));
    if (program.isEmpty())
        program = QStandardPaths::findExecutable(QStringLiteral("chromium-browser"));
    if (program.isEmpty()) {
        *whyNot = QStringLiteral("chromium is not installed (scripts/install-deps installs it)");
        return false;
    }
    QStringList arguments{QStringLiteral("--headless"),
                          QStringLiteral("--disable-background-networking"),
                          QStringLiteral("--no-first-run"),
                          QStringLiteral("--disable-component-update"),
                          QStringLiteral("--disable-sync"),
                          QStringLiteral("--disable-gpu"),
                          QStringLiteral("--remote-debugging-address=127.0.0.1"),
                          QStringLiteral("--remote-debugging-port=0"),
                          QStringLiteral("--user-data-dir=") + m_profile.filePath(QStringLiteral("profile")),
                          QStringLiteral("about:blank")};
    if (::geteuid() == 0)
        arguments.prepend(QStringLiteral("--no-sandbox")); // the sandbox refuses to run as root
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), m_profile.path());
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    m_process.start(program, arguments);
    if (!m_process.waitForStarted(10000)) {
        *whyNot = QStringLiteral("chromium does not start: %1").arg(m_process.errorString());
        return false;
    }
    // The browser says where its DevTools listen on its standard error.
    static const QRegularExpression listening(QStringLiteral("DevTools listening on (ws://\\S+)"));
    QByteArray said;
    QDeadlineTimer deadline(30000);
    while (!deadline.hasExpired() && m_process.state() == QProcess::Running) {
        m_process.waitForReadyRead(200);
        said += m_process.readAllStandardError();
        const QRegularExpressionMatch m = listening.match(QString::fromUtf8(said));
        if (m.hasMatch()) {
            if (m_devTools.open(QUrl(m.captured(1))))
                return true;
            *whyNot = QStringLiteral("cannot reach chromium's DevTools: %1").arg(m_devTools.lastError());
            return false;
        }
    }
    *whyNot =
        QStringLiteral("chromium cannot run here: %1").arg(QString::fromUtf8(said.right(400)).trimmed());
    return false;
}

QString HeadlessBrowser::openTab(const QUrl &url)
{
    const auto target = m_devTools.call(QStringLiteral("Target.createTarget"),
                                        {
                                            {QStringLiteral("url"), url.toString(QUrl::FullyEncoded)}
    });
    if (!target)
        return {};
    const auto attached =
        m_devTools.call(QStringLiteral("Target.attachToTarget"),
                        {
                            {QStringLiteral("targetId"), target->value(QLatin1String("targetId"))},
                            {QStringLiteral("flatten"),  true                                    }
    });
    return attached ? attached->value(QLatin1String("sessionId")).toString() : QString();
}

bool HeadlessBrowser::navigate(const QString &session, const QUrl &url)
{
    return m_devTools
        .call(QStringLiteral("Page.navigate"),
              {
                  {QStringLiteral("url"), url.toString(QUrl::FullyEncoded)}
    },
              session)
        .has_value();
}

bool HeadlessBrowser::waitForPage(const QString &session, const QString &part, int timeoutMs)
{
    QDeadlineTimer deadline(timeoutMs);
    while (!deadline.hasExpired()) {
        const QString state =
            m_devTools.evaluate(session, QStringLiteral("document.readyState + ' ' + location.href"));
        if (state.startsWith(QLatin1String("complete ")) && state.contains(part))
            return true;
        QTest::qWait(50);
    }
    return false;
}
