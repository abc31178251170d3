#pragma once

#include <QByteArray>
#include <QString>

namespace OmbrelServer {

// The key that signs access tokens: "signing.key" in the data folder, made on the first start and
// readable by its owner only. Deleting it signs every device out at the next start.
class SigningSecret {
public:
    // Reads the key, or makes it when the file does not exist; empty on failure (with a log line).
    static QByteArray loadOrCreate(const QString &dataDir);
};

} // namespace OmbrelServer
