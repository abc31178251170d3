#include "HeadlessBrowser.h"

#include <QDeadlineTimer>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

#include <unistd.h>

HeadlessBrowser::HeadlessBrowser()
{
    QObject::connect(&m_socket, &QWebSocket::textMessageReceived, [this](const QString &message) {
        const QJsonObject o = QJsonDocument::fromJson(message.toUtf8()).object();
        if (o.contains(QLatin1String("id")))
            m_answers.insert(o.value(QLatin1String("id")).toInt(), o);
    });
}

// Its profile is thrown away with the temporary folder, so nothing is lost by killing it.
HeadlessBrowser::~HeadlessBrowser()
{
    m_process.kill();
    m_process.waitForFinished(5000);
}

bool HeadlessBrowser::start(QString *whyNot)
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("chromium"));
    if (program.isEmpty()) {
        *whyNot = QStringLiteral("chromium is not installed (scripts/install-deps installs it)");
        return false;
    }
    // clang-format off
    QStringList arguments{"--headless", "--disable-background-networking", "--no-first-run",
                          "--disable-component-update", "--disable-sync", "--disable-gpu",
                          "--remote-debugging-address=127.0.0.1", "--remote-debugging-port=0",
                          "--user-data-dir=" + m_profile.filePath(QStringLiteral("profile")), "about:blank"};
    // clang-format on
    if (::geteuid() == 0)
        arguments.prepend(QStringLiteral("--no-sandbox")); // the sandbox refuses to run as root
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), m_profile.path());
    m_process.setProcessEnvironment(environment);
    m_process.start(program, arguments);
    // The browser says where its DevTools listen on its standard error.
    static const QRegularExpression listening(QStringLiteral("DevTools listening on (ws://\\S+)"));
    QByteArray said;
    QDeadlineTimer deadline(30000);
    while (!deadline.hasExpired() && m_process.waitForStarted(10000) &&
           m_process.state() == QProcess::Running) {
        m_process.waitForReadyRead(200);
        said += m_process.readAllStandardError();
        const QRegularExpressionMatch m = listening.match(QString::fromUtf8(said));
        if (!m.hasMatch())
            continue;
        m_socket.open(QUrl(m.captured(1)));
        if (QTest::qWaitFor([this] { return m_socket.state() == QAbstractSocket::ConnectedState; }, 10000))
            return true;
        *whyNot = QStringLiteral("cannot reach chromium's DevTools: %1").arg(m_socket.errorString());
        return false;
    }
    *whyNot = QStringLiteral("chromium cannot run here: %1 %2")
                  .arg(m_process.errorString(), QString::fromUtf8(said.right(400)).trimmed());
    return false;
}

std::optional<QJsonObject> HeadlessBrowser::call(const QString &method, const QJsonObject &params,
                                                 const QString &session)
{
    const int id = m_nextId++;
    // clang-format off
    QJsonObject message{{"id", id}, {"method", method}, {"params", params}};
    // clang-format on
    if (!session.isEmpty())
        message.insert(QStringLiteral("sessionId"), session);
    m_socket.sendTextMessage(QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact)));
    QTest::qWaitFor(
        [&] { return m_answers.contains(id) || m_socket.state() != QAbstractSocket::ConnectedState; }, 10000);
    const QJsonObject answer = m_answers.take(id);
    if (answer.isEmpty() || answer.contains(QLatin1String("error"))) {
        m_lastError = answer.isEmpty() ? "no answer to " + method : answer["error"]["message"].toString();
        return std::nullopt;
    }
    return answer.value(QLatin1String("result")).toObject();
}

// clang-format off
QString HeadlessBrowser::openTab(const QUrl &url)
{
    const auto target = call(QStringLiteral("Target.createTarget"), {{"url", url.toString(QUrl::FullyEncoded)}});
    const auto attached = target ? call(QStringLiteral("Target.attachToTarget"),
                                        {{"targetId", target->value("targetId")}, {"flatten", true}})
                                 : std::nullopt;
    return attached ? attached->value(QLatin1String("sessionId")).toString() : QString();
}

QString HeadlessBrowser::evaluate(const QString &session, const QString &expression)
{
    const auto result =
        call(QStringLiteral("Runtime.evaluate"), {{"expression", expression}, {"returnByValue", true}}, session);
    return result ? result->value("result")["value"].toVariant().toString() : QString();
}
// clang-format on

bool HeadlessBrowser::waitForPage(const QString &session, const QString &part)
{
    return QTest::qWaitFor(
        [&] {
            const QString state =
                evaluate(session, QStringLiteral("document.readyState + ' ' + location.href"));
            return state.startsWith(QLatin1String("complete ")) && state.contains(part);
        },
        15000);
}
