#pragma once

#include <QNetworkRequest>
#include <QString>
#include <QUrl>

namespace HalcUpdate {

// The channel's directory URL with exactly one "/" at the end of its path, so that a file name can follow.
QUrl directoryUrl(const QUrl &base);

// A GET of the channel: our user agent, filled with who asks, and redirects followed only where they
// stay as safe as the request (no HTTPS to HTTP).
QNetworkRequest channelRequest(const QUrl &url, const QString &userAgentTag);

} // namespace HalcUpdate
