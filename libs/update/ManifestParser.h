#pragma once

#include "update/Manifest.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace HalcUpdate {

// Reads and validates a manifest. One bad artifact fails the whole manifest, whatever its platform:
// a channel that publishes broken entries is not trusted for the good ones either.
class ManifestParser {
public:
    // Nothing on failure, with the first reason found in *reason.
    static std::optional<Manifest> parse(const QByteArray &json, QString *reason);
};

} // namespace HalcUpdate
