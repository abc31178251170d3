#include "server/SigningSecret.h"

#include <QDebug>
#include <QDir>
#include <QFile>

#include <sodium.h>

namespace OmbrelServer {

QByteArray SigningSecret::loadOrCreate(const QString &dataDir)
{
    const QString path = QDir(dataDir).filePath(QStringLiteral("signing.key"));
    QFile file(path);
    if (file.exists()) {
        if (!file.open(QIODevice::ReadOnly)) {
            qWarning().noquote() << "SigningSecret: cannot read" << path;
            return {};
        }
        const QByteArray key = QByteArray::fromHex(file.readAll().trimmed());
        if (key.size() < 32) {
            qWarning().noquote() << "SigningSecret: the key in" << path << "is too short";
            return {};
        }
        return key;
    }
    if (sodium_init() < 0)
        return {};
    QByteArray key(32, Qt::Uninitialized);
    randombytes_buf(key.data(), size_t(key.size()));
    // Created with its final permissions, so that the key is never readable by others, not even briefly.
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly,
                   QFileDevice::ReadOwner | QFileDevice::WriteOwner) ||
        file.write(key.toHex() + '\n') < 0 || !file.flush()) {
        qWarning().noquote() << "SigningSecret: cannot write" << path;
        return {};
    }
    return key;
}

} // namespace OmbrelServer
