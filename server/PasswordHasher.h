#pragma once

#include <QString>

namespace OmbrelServer {

// Argon2id password hashes in the self-describing text form, so that the cost can rise later.
class PasswordHasher {
public:
    static QString hash(const QString &password); // empty on failure
    static bool verify(const QString &password, const QString &hash);
    // The same cost as a real verification, for a sign-in with an unknown e-mail address.
    static void burn(const QString &password);
};

} // namespace OmbrelServer
