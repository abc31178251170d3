#pragma once

#include "DevToolsClient.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>

// Debian's chromium, headless, with a profile and HOME of its own in a temporary folder, driven over
// DevTools. Nothing of it reaches the network beyond what a page asks for.
class HeadlessBrowser {
public:
    HeadlessBrowser();
    ~HeadlessBrowser();

    // Starts the browser and connects to it; false with the reason when it cannot run here.
    bool start(QString *whyNot);
    // Opens url in a new tab; the tab's session id, or empty.
    QString openTab(const QUrl &url);
    // Sends the tab to url and waits until a page whose address contains part has loaded.
    bool navigate(const QString &session, const QUrl &url);
    bool waitForPage(const QString &session, const QString &part, int timeoutMs = 15000);
    DevToolsClient &devTools() { return m_devTools; }

private:
    QTemporaryDir m_profile;
    QProcess m_process;
    DevToolsClient m_devTools;
};
