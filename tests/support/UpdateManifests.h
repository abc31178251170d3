#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

// Update manifests as a channel would publish them, for the update library's tests.
namespace UpdateManifests {

// A valid artifact of this version: every required field, nothing optional.
QJsonObject artifact(const QString &version);

// A valid schema 1 manifest of app "ombrel" on channel "stable" with these artifacts by platform key.
QJsonObject manifest(const QJsonObject &artifactsByPlatform);
QByteArray toJson(const QJsonObject &manifest);

// A platform key that is not this system's, for an artifact the client must not pick.
QString otherPlatform();

} // namespace UpdateManifests
