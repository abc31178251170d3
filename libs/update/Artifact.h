#pragma once

#include <QDateTime>
#include <QString>
#include <QUrl>

namespace HalcUpdate {

// One platform's release as the channel's manifest describes it.
struct Artifact {
    QString version;
    QDateTime releasedAt;
    QUrl url; // the download page or file; the browser opens it
    qint64 size = -1;
    QString sha256;
    bool mandatory = false;
    QString minUpgradableFrom; // may be empty
    QUrl releaseNotesUrl;      // may be invalid
};

} // namespace HalcUpdate
