#pragma once

#include "server/HttpExchange.h"

#include <optional>

namespace OmbrelServer {

// The update channel: the manifest and release notes of one folder, at /ombrel/stable/.
class ChannelService {
public:
    explicit ChannelService(QString directory);

    std::optional<HttpResponse> handle(const HttpRequest &request);

private:
    QString m_directory;
};

} // namespace OmbrelServer
