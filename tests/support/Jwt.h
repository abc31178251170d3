#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

// An unsigned JWT whose payload is the given JSON text, as the client reads it.
inline QString jwtWithPayload(const QByteArray &json)
{
    const auto part = [](const QByteArray &bytes) {
        return bytes.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
    };
    return QString::fromLatin1(part(R"({"alg":"HS256","typ":"JWT"})") + '.' + part(json) + '.' + part("sig"));
}

// A token that expires secondsFromNow from now, with the family group claims when given.
inline QString jwt(qint64 secondsFromNow, const QString &groupId = {}, const QString &role = {})
{
    const qint64 exp = QDateTime::currentSecsSinceEpoch() + secondsFromNow;
    QByteArray json = R"({"sub":"u1","exp":)" + QByteArray::number(exp);
    if (!groupId.isEmpty())
        json +=
            R"(,"custom":{"hlc":{"group_id":")" + groupId.toUtf8() + R"(","role":")" + role.toUtf8() + "\"}}";
    return jwtWithPayload(json + '}');
}
