#pragma once

#include <QString>
#include <QUrl>

namespace HalcUpdate {

// Where the update client looks and what it compares against.
struct Config {
    QString applicationId;
    QString channel;
    QUrl manifestBaseUrl; // the channel's directory; latest.json lies in it
    QString currentVersion;
};

} // namespace HalcUpdate
