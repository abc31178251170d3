#pragma once

#include "server/HttpExchange.h"

#include <QAbstractHttpServer>

#include <functional>

namespace OmbrelServer {

// The transport: turns each request into an HttpRequest, refuses oversized bodies, hands the rest to
// one handler and writes what it returns. It logs a request only when asked to, and then never its
// query, body or headers, which may hold tokens and passwords.
class HttpFrontEnd : public QAbstractHttpServer {
    Q_OBJECT
public:
    using Handler = std::function<HttpResponse(const HttpRequest &)>;

    HttpFrontEnd(Handler handler, qint64 maxBodyBytes, bool verbose, QObject *parent = nullptr);

protected:
    bool handleRequest(const QHttpServerRequest &request, QTcpSocket *socket) override;
    void missingHandler(const QHttpServerRequest &request, QTcpSocket *socket) override;

private:
    Handler m_handler;
    qint64 m_maxBodyBytes;
    bool m_verbose;
};

} // namespace OmbrelServer
