#include "update/ReleaseNotesFetcher.h"

#include "update/NetworkRequest.h"

#include <QLocale>
#include <QNetworkAccessManager>
#include <QNetworkReply>

namespace HalcUpdate {

namespace {

QUrl channelNotesUrl(const QUrl &base)
{
    if (!base.isValid())
        return {};
    QUrl url = directoryUrl(base);
    url.setPath(url.path() + QStringLiteral("release-notes.md"));
    return url;
}

// release-notes.md becomes release-notes.de.md for a German system. The default locale is the system's
// unless someone set another, which is how a test speaks Spanish. The "C" locale has no language and
// reads as English.
QUrl localizedNotesUrl(const QUrl &defaultUrl)
{
    const QString language = QLocale().name().left(2);
    const bool twoLetters = language.size() == 2 && language.at(0).isLower() && language.at(1).isLower();
    if (!defaultUrl.isValid() || !twoLetters || language == QLatin1String("en"))
        return {};
    QString path = defaultUrl.path();
    const qsizetype at = path.lastIndexOf(QLatin1String(".md"));
    if (at < 0)
        return {};
    path.insert(at, QLatin1Char('.') + language);
    QUrl url = defaultUrl;
    url.setPath(path);
    return url;
}

} // namespace

ReleaseNotesFetcher::ReleaseNotesFetcher(const Config &config, QObject *parent)
    : ReleaseNotesFetcher(channelNotesUrl(config.manifestBaseUrl), config.applicationId, parent)
{
}

ReleaseNotesFetcher::ReleaseNotesFetcher(const QUrl &notesUrl, const QString &userAgentTag, QObject *parent)
    : QObject(parent)
    , m_network(new QNetworkAccessManager(this))
    , m_userAgentTag(userAgentTag)
    , m_defaultUrl(notesUrl)
    , m_localizedUrl(localizedNotesUrl(notesUrl))
{
}

void ReleaseNotesFetcher::fetch()
{
    if (m_localizedUrl.isValid())
        get(m_localizedUrl, false);
    else if (m_defaultUrl.isValid())
        get(m_defaultUrl, true);
    else
        emit notesUnavailable();
}

void ReleaseNotesFetcher::get(const QUrl &url, bool isLast)
{
    QNetworkReply *reply = m_network->get(channelRequest(url, m_userAgentTag));
    connect(reply, &QNetworkReply::finished, this, [this, reply, isLast] {
        reply->deleteLater();
        if (reply->error() == QNetworkReply::NoError)
            emit notesReady(QString::fromUtf8(reply->readAll()));
        else if (!isLast)
            get(m_defaultUrl, true);
        else
            emit notesUnavailable();
    });
}

} // namespace HalcUpdate
