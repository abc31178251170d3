#include "server/Jwt.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QMessageAuthenticationCode>

#include <sodium.h>

namespace OmbrelServer {

namespace {

constexpr auto kBase64Url = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

QByteArray mac(const QByteArray &input, const QByteArray &key)
{
    return QMessageAuthenticationCode::hash(input, key, QCryptographicHash::Sha256).toBase64(kBase64Url);
}

} // namespace

QString Jwt::sign(const QJsonObject &claims, const QByteArray &key)
{
    const QByteArray header = QByteArrayLiteral(R"({"alg":"HS256","typ":"JWT"})").toBase64(kBase64Url);
    const QByteArray body = QJsonDocument(claims).toJson(QJsonDocument::Compact).toBase64(kBase64Url);
    const QByteArray input = header + '.' + body;
    return QString::fromLatin1(input + '.' + mac(input, key));
}

std::optional<QJsonObject> Jwt::verify(const QString &token, const QByteArray &key)
{
    const QByteArray bytes = token.toLatin1();
    const QList<QByteArray> parts = bytes.split('.');
    if (parts.size() != 3 || bytes.size() > 8192)
        return std::nullopt;
    const QByteArray expected = mac(parts[0] + '.' + parts[1], key);
    if (expected.size() != parts[2].size() ||
        sodium_memcmp(expected.constData(), parts[2].constData(), size_t(expected.size())) != 0)
        return std::nullopt;
    const auto header =
        QByteArray::fromBase64Encoding(parts[0], kBase64Url | QByteArray::AbortOnBase64DecodingErrors);
    const auto body =
        QByteArray::fromBase64Encoding(parts[1], kBase64Url | QByteArray::AbortOnBase64DecodingErrors);
    if (!header || !body)
        return std::nullopt;
    const QJsonDocument h = QJsonDocument::fromJson(*header);
    if (h.object().value(QLatin1String("alg")).toString() != QLatin1String("HS256"))
        return std::nullopt;
    const QJsonDocument claims = QJsonDocument::fromJson(*body);
    if (!claims.isObject())
        return std::nullopt;
    return claims.object();
}

} // namespace OmbrelServer
