#include "data/PreferencesRepository.h"

#include "data/Database.h"

#include <QSqlQuery>
#include <QVariant>

PreferencesRepository::PreferencesRepository(Database *db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

std::optional<QString> PreferencesRepository::get(const QString &key) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT value FROM preferences WHERE key = ?"));
    q.addBindValue(key);
    if (!q.exec() || !q.next())
        return std::nullopt;
    const QString value = q.value(0).toString();
    return value.isNull() ? QStringLiteral("") : value;
}

QString PreferencesRepository::getOr(const QString &key, const QString &defaultValue) const
{
    return get(key).value_or(defaultValue);
}

bool PreferencesRepository::getBool(const QString &key, bool defaultValue) const
{
    const std::optional<QString> value = get(key);
    if (!value)
        return defaultValue;
    return *value == QLatin1String("1") || *value == QLatin1String("true");
}

bool PreferencesRepository::set(const QString &key, const QString &value)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("INSERT INTO preferences (key, value) VALUES (?, ?) "
                             "ON CONFLICT(key) DO UPDATE SET value = excluded.value"));
    q.addBindValue(key);
    q.addBindValue(value);
    if (!q.exec())
        return false;
    emit changed(key);
    return true;
}

bool PreferencesRepository::setBool(const QString &key, bool value)
{
    return set(key, value ? QStringLiteral("1") : QStringLiteral("0"));
}

bool PreferencesRepository::setInt(const QString &key, int value)
{
    return set(key, QString::number(value));
}

bool PreferencesRepository::remove(const QString &key)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("DELETE FROM preferences WHERE key = ?"));
    q.addBindValue(key);
    return q.exec();
}
