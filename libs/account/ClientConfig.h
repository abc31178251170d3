#pragma once

#include <QString>

namespace HalcAccount {

// Everything the account library needs to know about the services and the application it serves.
struct ClientConfig {
    QString authBaseUrl;
    QString realmSlug;
    QString accountApiUrl;
    QString clientId;
    QString applicationId;
    QString applicationName;
    QString applicationVersion;
    QString platform; // empty: find out from the running system
    QString portalUrl;
};

} // namespace HalcAccount
