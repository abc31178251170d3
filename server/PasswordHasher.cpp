#include "server/PasswordHasher.h"

#include <sodium.h>

namespace OmbrelServer {

namespace {

bool ready()
{
    static const bool ok = sodium_init() >= 0;
    return ok;
}

} // namespace

QString PasswordHasher::hash(const QString &password)
{
    if (!ready())
        return {};
    const QByteArray utf8 = password.toUtf8();
    char out[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str_alg(out, utf8.constData(), quint64(utf8.size()), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                              crypto_pwhash_MEMLIMIT_INTERACTIVE, crypto_pwhash_ALG_ARGON2ID13) != 0)
        return {};
    return QString::fromLatin1(out);
}

bool PasswordHasher::verify(const QString &password, const QString &hash)
{
    if (!ready() || !hash.startsWith(QLatin1String("$argon2id$")))
        return false;
    const QByteArray utf8 = password.toUtf8();
    const QByteArray stored = hash.toLatin1();
    return crypto_pwhash_str_verify(stored.constData(), utf8.constData(), quint64(utf8.size())) == 0;
}

void PasswordHasher::burn(const QString &password)
{
    static const QString dummy = hash(QStringLiteral("not a password of anyone"));
    verify(password, dummy);
}

} // namespace OmbrelServer
