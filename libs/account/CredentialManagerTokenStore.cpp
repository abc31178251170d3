#include "account/CredentialManagerTokenStore.h"

#ifdef Q_OS_WIN

#include <windows.h>

#include <wincred.h>

namespace HalcAccount {

CredentialManagerTokenStore::CredentialManagerTokenStore(const QString &serviceName)
    : m_serviceName(serviceName)
{
}

QString CredentialManagerTokenStore::targetName(const QString &key) const
{
    return QStringLiteral("Halcyra/%1/%2").arg(m_serviceName, key);
}

std::optional<QString> CredentialManagerTokenStore::load(const QString &key)
{
    const std::wstring target = targetName(key).toStdWString();
    PCREDENTIALW credential = nullptr;
    if (!CredReadW(target.c_str(), CRED_TYPE_GENERIC, 0, &credential))
        return std::nullopt;
    const QString value = QString::fromUtf8(reinterpret_cast<const char *>(credential->CredentialBlob),
                                            qsizetype(credential->CredentialBlobSize));
    CredFree(credential);
    return value;
}

bool CredentialManagerTokenStore::store(const QString &key, const QString &value)
{
    std::wstring target = targetName(key).toStdWString();
    QByteArray blob = value.toUtf8();
    CREDENTIALW credential;
    ZeroMemory(&credential, sizeof(credential));
    credential.Type = CRED_TYPE_GENERIC;
    credential.TargetName = target.data();
    credential.CredentialBlobSize = DWORD(blob.size());
    credential.CredentialBlob = reinterpret_cast<LPBYTE>(blob.data());
    credential.Persist = CRED_PERSIST_LOCAL_MACHINE;
    return CredWriteW(&credential, 0);
}

bool CredentialManagerTokenStore::remove(const QString &key)
{
    const std::wstring target = targetName(key).toStdWString();
    return CredDeleteW(target.c_str(), CRED_TYPE_GENERIC, 0);
}

void CredentialManagerTokenStore::clear()
{
    remove(kAccessTokenKey);
    remove(kRefreshTokenKey);
}

} // namespace HalcAccount

#endif
