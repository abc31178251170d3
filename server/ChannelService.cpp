#include "server/ChannelService.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace OmbrelServer {

ChannelService::ChannelService(QString directory)
    : m_directory(std::move(directory))
{
}

std::optional<HttpResponse> ChannelService::handle(const HttpRequest &request)
{
    const auto path = pathBelow(request.path, QStringLiteral("/ombrel/stable"));
    if (!path || m_directory.isEmpty())
        return std::nullopt;
    if (request.method != "GET")
        return errorResponse(405, QStringLiteral("Method not allowed"));
    // Only the channel's own files, by a fixed pattern: nothing else of the folder, and no way out of it.
    static const QRegularExpression allowed(
        QStringLiteral("^(latest\\.json|release-notes(\\.[a-z]{2})?\\.md)$"));
    const QString name = path->size() == 1 ? path->at(0) : QString();
    if (!allowed.match(name).hasMatch())
        return errorResponse(404, QStringLiteral("Not found"));
    QFile file(QDir(m_directory).filePath(name));
    if (!file.open(QIODevice::ReadOnly))
        return errorResponse(404, QStringLiteral("Not found"));
    HttpResponse response{200,
                          name.endsWith(QLatin1String(".json")) ? "application/json"
                                                                : "text/markdown; charset=utf-8",
                          file.readAll(),
                          {}};
    response.headers.append(qMakePair(QByteArray("Cache-Control"), QByteArray("no-cache")));
    return response;
}

} // namespace OmbrelServer
