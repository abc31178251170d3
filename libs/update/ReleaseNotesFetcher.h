#pragma once

#include "update/Config.h"

#include <QObject>
#include <QString>
#include <QUrl>

class QNetworkAccessManager;

namespace HalcUpdate {

// Fetches a release's Markdown notes, in the user's language when the channel has them, else in the
// default one. Either notesReady or notesUnavailable comes once for each fetch().
class ReleaseNotesFetcher : public QObject {
    Q_OBJECT
public:
    // The channel's own notes, release-notes.md beside the manifest.
    explicit ReleaseNotesFetcher(const Config &config, QObject *parent = nullptr);
    // The notes an artifact names; userAgentTag says who asks.
    ReleaseNotesFetcher(const QUrl &notesUrl, const QString &userAgentTag, QObject *parent = nullptr);

    void fetch();

    QUrl defaultUrl() const { return m_defaultUrl; }
    // Invalid for English, or when the default URL has no ".md" to put the language before.
    QUrl localizedUrl() const { return m_localizedUrl; }

signals:
    void notesReady(QString markdown);
    void notesUnavailable();

private:
    void get(const QUrl &url, bool isLast);

    QNetworkAccessManager *m_network = nullptr;
    QString m_userAgentTag;
    QUrl m_defaultUrl;
    QUrl m_localizedUrl;
};

} // namespace HalcUpdate
