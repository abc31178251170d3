#include "server/HttpFrontEnd.h"

#include <QDebug>
#include <QElapsedTimer>
#include <QHttpServerRequest>
#include <QHttpServerResponder>
#include <QRegularExpression>
#include <QTcpSocket>

namespace OmbrelServer {

namespace {

QByteArray methodName(QHttpServerRequest::Method method)
{
    switch (method) {
    case QHttpServerRequest::Method::Get: return "GET";
    case QHttpServerRequest::Method::Put: return "PUT";
    case QHttpServerRequest::Method::Delete: return "DELETE";
    case QHttpServerRequest::Method::Post: return "POST";
    case QHttpServerRequest::Method::Head: return "HEAD";
    case QHttpServerRequest::Method::Options: return "OPTIONS";
    case QHttpServerRequest::Method::Patch: return "PATCH";
    default: return "OTHER";
    }
}

// An invite code in a path is as good as a password until it is used.
QString loggablePath(const QString &path)
{
    static const QRegularExpression code(QStringLiteral("/group/join/[^/]*"));
    QString shown = path;
    return shown.replace(code, QStringLiteral("/group/join/…"));
}

} // namespace

HttpFrontEnd::HttpFrontEnd(Handler handler, qint64 maxBodyBytes, bool verbose, QObject *parent)
    : QAbstractHttpServer(parent)
    , m_handler(std::move(handler))
    , m_maxBodyBytes(maxBodyBytes)
    , m_verbose(verbose)
{
}

bool HttpFrontEnd::handleRequest(const QHttpServerRequest &request, QTcpSocket *socket)
{
    QElapsedTimer timer;
    timer.start();
    HttpRequest in;
    in.method = methodName(request.method());
    in.path = request.url().path(QUrl::FullyDecoded);
    in.query = request.query();
    in.remoteAddress = request.remoteAddress().toString();
    in.headers = request.headers();

    HttpResponse out;
    if (request.body().size() > m_maxBodyBytes) {
        out = errorResponse(413,
                            QStringLiteral("The request body is larger than %1 bytes").arg(m_maxBodyBytes));
    } else {
        in.body = request.body();
        out = m_handler(in);
    }

    QHttpServerResponder responder = makeResponder(request, socket);
    responder.writeStatusLine(QHttpServerResponder::StatusCode(out.status));
    if (!out.contentType.isEmpty())
        responder.writeHeader("Content-Type", out.contentType);
    for (const auto &[key, value] : out.headers)
        responder.writeHeader(key, value);
    responder.writeHeader("Content-Length", QByteArray::number(out.body.size()));
    responder.writeBody(out.body);

    if (m_verbose) {
        qInfo().noquote() << in.method << loggablePath(in.path) << out.status << timer.elapsed() << "ms";
    }
    return true;
}

void HttpFrontEnd::missingHandler(const QHttpServerRequest &request, QTcpSocket *socket)
{
    QHttpServerResponder responder = makeResponder(request, socket);
    responder.write(QHttpServerResponder::StatusCode::NotFound);
}

} // namespace OmbrelServer
