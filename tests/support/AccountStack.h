#pragma once

#include "account/ApiClient.h"
#include "account/TokenManager.h"
#include "support/MemoryTokenStore.h"
#include "support/ScriptedServer.h"

// The account library's HTTP gateway and token keeper, in memory, against a scripted server on
// 127.0.0.1; what the keyring would hold is in stored.
struct AccountStack {
    QHash<QString, QString> stored;
    ScriptedServer server;
    HalcAccount::TokenManager tokens{std::make_unique<MemoryTokenStore>(&stored)};
    HalcAccount::ApiClient api{&tokens};

    AccountStack()
    {
        if (server.listen())
            api.setBaseUrl(server.baseUrl());
    }

    // A session as a start finds it in the keyring.
    void storeSession(const QString &access)
    {
        stored.insert(HalcAccount::kAccessTokenKey, access);
        stored.insert(HalcAccount::kRefreshTokenKey, QStringLiteral("r1"));
    }

    // The paths the server saw, in order.
    QStringList paths() const
    {
        QStringList seen;
        for (const RecordedRequest &r : server.requests())
            seen << r.path;
        return seen;
    }

    // The server's answer to a refresh that hands out this pair.
    static ScriptedReply tokenReply(const QString &access, const QString &refresh = QStringLiteral("r2"))
    {
        return {
            200,
            QStringLiteral(R"({"access_token":"%1","refresh_token":"%2"})").arg(access, refresh).toUtf8()};
    }
};
