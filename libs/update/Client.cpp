#include "update/Client.h"

#include "update/ManifestParser.h"
#include "update/NetworkRequest.h"
#include "update/Platform.h"
#include "update/Version.h"

#include <QLoggingCategory>
#include <QNetworkAccessManager>
#include <QNetworkReply>

namespace HalcUpdate {

Q_LOGGING_CATEGORY(lcClient, "halcupdate.client")

Client::Client(const Config &config, QObject *parent)
    : QObject(parent)
    , m_config(config)
    , m_network(new QNetworkAccessManager(this))
{
}

void Client::check()
{
    if (m_inFlight) {
        qCInfo(lcClient) << "check already in flight, ignoring";
        return;
    }
    if (m_config.currentVersion.isEmpty()) {
        emit checkFailed(QStringLiteral("currentVersion is empty"));
        return;
    }
    if (!m_config.manifestBaseUrl.isValid()) {
        emit checkFailed(QStringLiteral("manifestBaseUrl is not valid"));
        return;
    }
    QUrl url = directoryUrl(m_config.manifestBaseUrl);
    url.setPath(url.path() + QStringLiteral("latest.json"));
    m_inFlight = true;
    QNetworkReply *reply = m_network->get(channelRequest(url, m_config.applicationId));
    connect(reply, &QNetworkReply::finished, this, [this, reply] { onReplyFinished(reply); });
}

void Client::onReplyFinished(QNetworkReply *reply)
{
    reply->deleteLater();
    m_inFlight = false;

    if (reply->error() != QNetworkReply::NoError) {
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        // A channel that has published nothing yet answers 404; that is not something to tell the user.
        if (reply->error() == QNetworkReply::ContentNotFoundError || status == 404) {
            qCInfo(lcClient) << "manifest 404, treating as up-to-date";
            emit upToDate();
            return;
        }
        emit checkFailed(QStringLiteral("network error: %1").arg(reply->errorString()));
        return;
    }
    decide(reply->readAll());
}

void Client::decide(const QByteArray &body)
{
    QString reason;
    const std::optional<Manifest> manifest = ManifestParser::parse(body, &reason);
    if (!manifest) {
        emit checkFailed(QStringLiteral("manifest invalid: %1").arg(reason));
        return;
    }

    const QString platform = platformKey();
    if (platform.isEmpty()) {
        qCWarning(lcClient) << "unknown platform, skipping update check";
        emit upToDate();
        return;
    }
    const auto found = manifest->artifacts.constFind(platform);
    if (found == manifest->artifacts.cend()) {
        qCInfo(lcClient) << "platform" << platform << "not shipped in current manifest";
        emit upToDate();
        return;
    }
    const Artifact &artifact = found.value();

    const Version current = Version::fromString(m_config.currentVersion);
    if (!(current < Version::fromString(artifact.version))) {
        emit upToDate();
        return;
    }
    if (!artifact.minUpgradableFrom.isEmpty() && current < Version::fromString(artifact.minUpgradableFrom)) {
        emit checkFailed(QStringLiteral("current version %1 is older than min_upgradable_from %2; please "
                                        "upgrade to an intermediate release first")
                             .arg(m_config.currentVersion, artifact.minUpgradableFrom));
        return;
    }
    emit updateAvailable(artifact);
}

} // namespace HalcUpdate
