// GLib names struct members "signals", which Qt defines as a keyword.
#pragma push_macro("signals")
#undef signals
#include <libsecret/secret.h>
#pragma pop_macro("signals")

#include "account/SecretServiceTokenStore.h"

#include <QDebug>
#include <QFileInfo>

namespace HalcAccount {

namespace {

const SecretSchema *tokenSchema()
{
    static const SecretSchema schema = {
        "com.halcyra.Token",
        SECRET_SCHEMA_NONE,
        {
          {"service", SECRET_SCHEMA_ATTRIBUTE_STRING},
          {"key", SECRET_SCHEMA_ATTRIBUTE_STRING},
          {nullptr, SECRET_SCHEMA_ATTRIBUTE_STRING},
          },
        0,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
    };
    return &schema;
}

// Without this check GLib would try to launch a bus of its own, which on a headless machine takes time
// and leaves a daemon behind.
bool sessionBusConfigured()
{
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString runtimeDir = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtimeDir.isEmpty() && QFileInfo::exists(runtimeDir + QStringLiteral("/bus"));
}

QString takeMessage(GError *error)
{
    const QString message = QString::fromUtf8(error->message);
    g_error_free(error);
    return message;
}

} // namespace

SecretServiceTokenStore::SecretServiceTokenStore(const QString &serviceName)
    : m_serviceName(serviceName)
{
}

bool SecretServiceTokenStore::available()
{
    if (m_unavailable)
        return false;
    if (!sessionBusConfigured()) {
        giveUp("connect", QStringLiteral("no session bus"));
        return false;
    }
    return true;
}

// After one failure the store stops asking, so that a missing keyring costs one round trip, not one
// for every token.
void SecretServiceTokenStore::giveUp(const char *operation, const QString &reason)
{
    m_unavailable = true;
    qWarning().noquote() << "SecretServiceTokenStore:" << operation << "failed:" << reason
                         << "- the session is kept in memory only";
}

std::optional<QString> SecretServiceTokenStore::load(const QString &key)
{
    if (!available())
        return std::nullopt;
    const QByteArray service = m_serviceName.toUtf8();
    const QByteArray name = key.toUtf8();
    GError *error = nullptr;
    gchar *secret = secret_password_lookup_sync(tokenSchema(), nullptr, &error, "service",
                                                service.constData(), "key", name.constData(), nullptr);
    if (error) {
        giveUp("load", takeMessage(error));
        return std::nullopt;
    }
    if (!secret)
        return std::nullopt;
    const QString value = QString::fromUtf8(secret);
    secret_password_free(secret);
    return value;
}

bool SecretServiceTokenStore::store(const QString &key, const QString &value)
{
    if (!available())
        return false;
    const QByteArray service = m_serviceName.toUtf8();
    const QByteArray name = key.toUtf8();
    const QByteArray label = QStringLiteral("Halcyra/%1/%2").arg(m_serviceName, key).toUtf8();
    const QByteArray secret = value.toUtf8();
    GError *error = nullptr;
    const gboolean ok = secret_password_store_sync(
        tokenSchema(), SECRET_COLLECTION_DEFAULT, label.constData(), secret.constData(), nullptr, &error,
        "service", service.constData(), "key", name.constData(), nullptr);
    if (error) {
        giveUp("store", takeMessage(error));
        return false;
    }
    return ok;
}

bool SecretServiceTokenStore::remove(const QString &key)
{
    if (!available())
        return false;
    const QByteArray service = m_serviceName.toUtf8();
    const QByteArray name = key.toUtf8();
    GError *error = nullptr;
    const gboolean removed = secret_password_clear_sync(
        tokenSchema(), nullptr, &error, "service", service.constData(), "key", name.constData(), nullptr);
    if (error) {
        giveUp("remove", takeMessage(error));
        return false;
    }
    return removed;
}

void SecretServiceTokenStore::clear()
{
    remove(kAccessTokenKey);
    remove(kRefreshTokenKey);
}

} // namespace HalcAccount
