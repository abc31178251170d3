#include "server/SignInLimiter.h"

#include <QDateTime>

namespace OmbrelServer {

namespace {

QString keyOf(const QString &email, const QString &address)
{
    return email.trimmed().toLower() + QLatin1Char('\n') + address;
}

} // namespace

SignInLimiter::SignInLimiter(int maxFailures, int windowSeconds)
    : m_maxFailures(maxFailures)
    , m_windowSeconds(windowSeconds)
{
}

QList<qint64> &SignInLimiter::recent(const QString &key)
{
    const qint64 cutoff = QDateTime::currentSecsSinceEpoch() - m_windowSeconds;
    QList<qint64> &times = m_failures[key];
    times.removeIf([cutoff](qint64 t) { return t <= cutoff; });
    return times;
}

bool SignInLimiter::isBlocked(const QString &email, const QString &address)
{
    const QString key = keyOf(email, address);
    if (!m_failures.contains(key))
        return false;
    const bool blocked = recent(key).size() >= m_maxFailures;
    if (m_failures.value(key).isEmpty())
        m_failures.remove(key);
    return blocked;
}

void SignInLimiter::recordFailure(const QString &email, const QString &address)
{
    // A flood of distinct made-up addresses must not grow the table without end.
    if (m_failures.size() > 100000)
        m_failures.clear();
    recent(keyOf(email, address)).append(QDateTime::currentSecsSinceEpoch());
}

void SignInLimiter::clear(const QString &email, const QString &address)
{
    m_failures.remove(keyOf(email, address));
}

} // namespace OmbrelServer
