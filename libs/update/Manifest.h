#pragma once

#include "update/Artifact.h"

#include <QMap>
#include <QString>

namespace HalcUpdate {

// The channel's latest.json: what is published, for each platform key.
struct Manifest {
    int schema = 0;
    QString app;
    QString channel;
    QMap<QString, Artifact> artifacts;
};

} // namespace HalcUpdate
