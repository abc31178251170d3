#include "support/UpdateManifests.h"

#include "update/Platform.h"

#include <QJsonDocument>

namespace UpdateManifests {

QJsonObject artifact(const QString &version)
{
    // clang-format off
    return {
        {QStringLiteral("version"),     version                                                },
        {QStringLiteral("released_at"), QStringLiteral("2026-03-01T12:00:00Z")                 },
        {QStringLiteral("url"),         QStringLiteral("https://example.test/ombrel-setup.exe")},
        {QStringLiteral("size"),        1048576.7                                              },
        {QStringLiteral("sha256"),      QString(64, QLatin1Char('a'))                          },
    };
    // clang-format on
}

QJsonObject manifest(const QJsonObject &artifactsByPlatform)
{
    // clang-format off
    return {
        {QStringLiteral("schema"),    1                       },
        {QStringLiteral("app"),       QStringLiteral("ombrel")},
        {QStringLiteral("channel"),   QStringLiteral("stable")},
        {QStringLiteral("artifacts"), artifactsByPlatform     },
    };
    // clang-format on
}

QByteArray toJson(const QJsonObject &manifest)
{
    return QJsonDocument(manifest).toJson();
}

QString otherPlatform()
{
    return HalcUpdate::platformKey() == QLatin1String("windows-x64") ? QStringLiteral("linux-x64")
                                                                     : QStringLiteral("windows-x64");
}

} // namespace UpdateManifests
