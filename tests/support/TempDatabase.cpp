#include "support/TempDatabase.h"

#include <QDebug>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

TempDatabase::TempDatabase()
    : m_database(std::make_unique<Database>())
{
}

bool TempDatabase::open(bool migrate)
{
    if (!m_dir.isValid() || !m_database->open(path()))
        return false;
    return !migrate || m_database->runMigrations();
}

bool TempDatabase::exec(const QString &sql)
{
    QSqlQuery q(m_database->connection());
    if (q.exec(sql))
        return true;
    qWarning().noquote() << "TempDatabase::exec failed:" << q.lastError().text() << sql;
    return false;
}

QVariant TempDatabase::scalar(const QString &sql)
{
    QSqlQuery q(m_database->connection());
    if (!q.exec(sql) || !q.next())
        return {};
    return q.value(0);
}
