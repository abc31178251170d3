#include "account/DeviceIdentity.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSettings>
#include <QSysInfo>

namespace HalcAccount::DeviceIdentity {

namespace {

QString machineIdentifier()
{
#ifdef Q_OS_WIN
    const QSettings registry(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Cryptography"),
                             QSettings::NativeFormat);
    return registry.value(QStringLiteral("MachineGuid")).toString();
#else
    QFile file(QStringLiteral("/etc/machine-id"));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromLatin1(file.readAll()).trimmed();
#endif
}

} // namespace

QString fingerprint()
{
    const QString id = machineIdentifier();
    return id.isEmpty() ? fingerprintOfHostName(QSysInfo::machineHostName()) : id;
}

QString fingerprintOfHostName(const QString &hostName)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(hostName.toUtf8(), QCryptographicHash::Sha256).toHex().left(32));
}

QString deviceName()
{
    return QSysInfo::machineHostName();
}

QString platform()
{
#if defined(Q_OS_WIN)
    return QStringLiteral("Windows");
#elif defined(Q_OS_LINUX)
    return QStringLiteral("Linux");
#else
    return QSysInfo::productType();
#endif
}

} // namespace HalcAccount::DeviceIdentity
