#include "update/NetworkRequest.h"

namespace HalcUpdate {

QUrl directoryUrl(const QUrl &base)
{
    QUrl url = base;
    if (!url.path().endsWith(QLatin1Char('/')))
        url.setPath(url.path() + QLatin1Char('/'));
    return url;
}

QNetworkRequest channelRequest(const QUrl &url, const QString &userAgentTag)
{
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QStringLiteral("HalcUpdateQt/0.1 (%1)").arg(userAgentTag));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    return request;
}

} // namespace HalcUpdate
