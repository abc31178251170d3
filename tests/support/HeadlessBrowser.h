#pragma once

#include <QHash>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>
#include <QWebSocket>

// Debian's chromium, headless, with a profile and HOME of its own in a temporary folder, driven over
// its DevTools WebSocket one call at a time, each waited for with a limit.
class HeadlessBrowser {
public:
    HeadlessBrowser();
    ~HeadlessBrowser();

    // Starts the browser and connects to it; false with the reason when it cannot run here.
    bool start(QString *whyNot);
    // Opens url in a new tab; the tab's session id, or empty.
    QString openTab(const QUrl &url);
    // Waits until the tab shows a loaded page whose address contains part.
    bool waitForPage(const QString &session, const QString &part);
    // Runs a JavaScript expression in the tab and gives its value as text.
    QString evaluate(const QString &session, const QString &expression);
    QString lastError() const { return m_lastError; }

private:
    // The call's result, or nullopt on an error answer, a closed socket or the time running out.
    std::optional<QJsonObject> call(const QString &method, const QJsonObject &params,
                                    const QString &session = {});

    QTemporaryDir m_profile;
    QProcess m_process;
    QWebSocket m_socket;
    int m_nextId = 1;
    QString m_lastError;
    QHash<int, QJsonObject> m_answers;
};
