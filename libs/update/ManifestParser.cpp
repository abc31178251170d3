#include "update/ManifestParser.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>

namespace HalcUpdate {

namespace {

constexpr int kSchema = 1;
constexpr qsizetype kSha256Length = 64;

// A required string field, or an optional one that is present: anything but a string is refused. An
// optional field written as null counts as absent, as generators of JSON tend to write it.
bool readString(const QJsonObject &object, const QString &key, bool required, QString *out, QString *reason)
{
    const QJsonValue value = object.value(key);
    if (!required && (value.isUndefined() || value.isNull()))
        return true;
    if (!value.isString()) {
        *reason = QStringLiteral("missing or non-string field: %1").arg(key);
        return false;
    }
    *out = value.toString();
    return true;
}

std::optional<Artifact> readArtifact(const QString &platform, const QJsonValue &value, QString *reason)
{
    if (!value.isObject()) {
        *reason = QStringLiteral("artifact %1 is not an object").arg(platform);
        return std::nullopt;
    }
    const QJsonObject object = value.toObject();
    QString version, releasedAt, url, sha256, minUpgradableFrom, notesUrl;
    if (!readString(object, QStringLiteral("version"), true, &version, reason) ||
        !readString(object, QStringLiteral("released_at"), true, &releasedAt, reason) ||
        !readString(object, QStringLiteral("url"), true, &url, reason) ||
        !readString(object, QStringLiteral("sha256"), true, &sha256, reason) ||
        !readString(object, QStringLiteral("min_upgradable_from"), false, &minUpgradableFrom, reason) ||
        !readString(object, QStringLiteral("release_notes_url"), false, &notesUrl, reason))
        return std::nullopt;

    Artifact artifact;
    artifact.version = version;
    artifact.releasedAt = QDateTime::fromString(releasedAt, Qt::ISODateWithMs);
    artifact.url = QUrl(url, QUrl::StrictMode);
    // Sizes of several gigabytes are written as doubles by some tools; the fraction means nothing.
    artifact.size = qint64(object.value(QStringLiteral("size")).toDouble(-1));
    artifact.sha256 = sha256;
    artifact.mandatory = object.value(QStringLiteral("mandatory")).toBool(false);
    artifact.minUpgradableFrom = minUpgradableFrom;
    artifact.releaseNotesUrl = QUrl(notesUrl);

    const bool valid = !artifact.version.isEmpty() && artifact.releasedAt.isValid() &&
                       artifact.url.isValid() && !artifact.url.isEmpty() && artifact.size >= 1 &&
                       artifact.sha256.size() == kSha256Length;
    if (!valid) {
        *reason = QStringLiteral("artifact %1 failed validation").arg(platform);
        return std::nullopt;
    }
    return artifact;
}

} // namespace

std::optional<Manifest> ManifestParser::parse(const QByteArray &json, QString *reason)
{
    QString ignored;
    if (!reason)
        reason = &ignored;
    reason->clear();

    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        *reason = QStringLiteral("JSON parse error: %1").arg(error.errorString());
        return std::nullopt;
    }
    if (!document.isObject()) {
        *reason = QStringLiteral("manifest root is not a JSON object");
        return std::nullopt;
    }
    const QJsonObject root = document.object();

    const QJsonValue schema = root.value(QStringLiteral("schema"));
    if (!schema.isDouble()) {
        *reason = QStringLiteral("missing or non-integer field: schema");
        return std::nullopt;
    }
    if (schema.toDouble() != kSchema) {
        *reason = QStringLiteral("unsupported manifest schema: %1 (expected %2)")
                      .arg(QString::number(schema.toDouble()))
                      .arg(kSchema);
        return std::nullopt;
    }

    Manifest manifest;
    manifest.schema = kSchema;
    if (!readString(root, QStringLiteral("app"), true, &manifest.app, reason) ||
        !readString(root, QStringLiteral("channel"), true, &manifest.channel, reason))
        return std::nullopt;

    const QJsonValue artifacts = root.value(QStringLiteral("artifacts"));
    if (!artifacts.isObject()) {
        *reason = QStringLiteral("missing or non-object field: artifacts");
        return std::nullopt;
    }
    const QJsonObject byPlatform = artifacts.toObject();
    for (auto it = byPlatform.begin(); it != byPlatform.end(); ++it) {
        const std::optional<Artifact> artifact = readArtifact(it.key(), it.value(), reason);
        if (!artifact)
            return std::nullopt;
        manifest.artifacts.insert(it.key(), *artifact);
    }

    if (manifest.app.isEmpty() || manifest.channel.isEmpty() || manifest.artifacts.isEmpty()) {
        *reason = QStringLiteral("manifest failed validation");
        return std::nullopt;
    }
    return manifest;
}

} // namespace HalcUpdate
