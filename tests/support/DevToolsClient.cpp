#include "DevToolsClient.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QTimer>

DevToolsClient::DevToolsClient(QObject *parent)
    : QObject(parent)
{
    connect(&m_socket, &QWebSocket::textMessageReceived, this, [this](const QString &message) {
        const QJsonObject o = QJsonDocument::fromJson(message.toUtf8()).object();
        if (o.contains(QLatin1String("id")))
            m_answers.insert(o.value(QLatin1String("id")).toInt(), o);
    });
}

bool DevToolsClient::open(const QUrl &webSocketUrl, int timeoutMs)
{
    QEventLoop loop;
    connect(&m_socket, &QWebSocket::connected, &loop, &QEventLoop::quit);
    connect(&m_socket, &QWebSocket::disconnected, &loop, &QEventLoop::quit);
    QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
    m_socket.open(webSocketUrl);
    loop.exec();
    if (m_socket.state() != QAbstractSocket::ConnectedState)
        m_lastError = m_socket.errorString();
    return m_socket.state() == QAbstractSocket::ConnectedState;
}

std::optional<QJsonObject> DevToolsClient::call(const QString &method, const QJsonObject &params,
                                                const QString &sessionId, int timeoutMs)
{
    const int id = m_nextId++;
    QJsonObject message{
        {QStringLiteral("id"),     id    },
        {QStringLiteral("method"), method},
        {QStringLiteral("params"), params}
    };
    if (!sessionId.isEmpty())
        message.insert(QStringLiteral("sessionId"), sessionId);
    m_socket.sendTextMessage(QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact)));

    QEventLoop loop;
    QTimer tick;
    connect(&tick, &QTimer::timeout, &loop, [&] {
        if (m_answers.contains(id) || m_socket.state() != QAbstractSocket::ConnectedState)
            loop.quit();
    });
    tick.start(10);
    QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
    if (!m_answers.contains(id))
        loop.exec();
    const QJsonObject answer = m_answers.take(id);
    if (answer.isEmpty() || answer.contains(QLatin1String("error"))) {
        m_lastError = answer.isEmpty()
                          ? QStringLiteral("no answer to %1").arg(method)
                          : answer.value(QLatin1String("error")).toObject().value("message").toString();
        return std::nullopt;
    }
    return answer.value(QLatin1String("result")).toObject();
}

QString DevToolsClient::evaluate(const QString &sessionId, const QString &expression)
{
    const auto result =
        call(QStringLiteral("Runtime.evaluate"),
             {
                 {QStringLiteral("expression"),    expression},
                 {QStringLiteral("returnByValue"), true      }
    },
             sessionId);
    if (!result)
        return {};
    return result->value(QLatin1String("result"))
        .toObject()
        .value(QLatin1String("value"))
        .toVariant()
        .toString();
}
