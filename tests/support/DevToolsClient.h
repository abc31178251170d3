#pragma once

#include <QJsonObject>
#include <QObject>
#include <QUrl>
#include <QWebSocket>

#include <optional>

// A small client of a browser's DevTools protocol over its WebSocket: one call at a time, each
// waited for with a limit.
class DevToolsClient : public QObject {
    Q_OBJECT
public:
    explicit DevToolsClient(QObject *parent = nullptr);

    bool open(const QUrl &webSocketUrl, int timeoutMs = 10000);
    // The call's result, or nullopt on an error answer, a closed socket or the time running out.
    std::optional<QJsonObject> call(const QString &method, const QJsonObject &params = {},
                                    const QString &sessionId = QString(), int timeoutMs = 10000);
    // Runs a JavaScript expression in the page of a session and gives its value as text.
    QString evaluate(const QString &sessionId, const QString &expression);
    QString lastError() const { return m_lastError; }

private:
    QWebSocket m_socket;
    int m_nextId = 1;
    QString m_lastError;
    QHash<int, QJsonObject> m_answers;
};
