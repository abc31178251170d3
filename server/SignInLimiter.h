#pragma once

#include <QHash>
#include <QList>
#include <QString>

namespace OmbrelServer {

// Counts failed sign-ins per e-mail address and client address, so that nobody can try passwords
// against an account at the speed of the network. Kept in memory: a restart forgives.
class SignInLimiter {
public:
    SignInLimiter(int maxFailures, int windowSeconds);

    bool isBlocked(const QString &email, const QString &address);
    void recordFailure(const QString &email, const QString &address);
    void clear(const QString &email, const QString &address);

private:
    QList<qint64> &recent(const QString &key);

    int m_maxFailures;
    int m_windowSeconds;
    QHash<QString, QList<qint64>> m_failures; // key: e-mail and address; value: times in seconds
};

} // namespace OmbrelServer
