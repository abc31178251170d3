#include "data/Database.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <array>

namespace {

struct Migration {
    int version;
    const char *name;
    const char *resource;
};

constexpr std::array kMigrations{
    Migration{1, "initial",    ":/sql/sql/migrations/001_initial.sql"   },
    Migration{2, "recon_sync", ":/sql/sql/migrations/002_recon_sync.sql"},
};

// Kept out of the migration files so that a file at any version can say which version it is at.
constexpr char kSchemaVersionSql[] =
    "CREATE TABLE IF NOT EXISTS schema_version (  version INTEGER PRIMARY KEY,  "
    "name    TEXT NOT NULL,  applied_at TEXT NOT NULL DEFAULT (datetime('now')))";

const QString kConnectionName = QStringLiteral("qt_sql_default_connection");

void flush(QString &buffer, QStringList &statements)
{
    QString statement = buffer.trimmed();
    buffer.clear();
    if (statement.isEmpty() || statement == QLatin1String(";"))
        return;
    if (statement.endsWith(QLatin1Char(';')))
        statement.chop(1);
    statement = statement.trimmed();
    if (!statement.isEmpty())
        statements.append(statement);
}

} // namespace

Database::Database(QObject *parent)
    : QObject(parent)
{
}

Database::~Database()
{
    if (m_isOpen)
        m_db.close();
    // Let the next Database (a test's, or a restore's) add the connection name afresh.
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(kConnectionName);
}

bool Database::open(const QString &path)
{
    m_db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), kConnectionName);
    m_db.setDatabaseName(path);
    if (!m_db.open()) {
        qCritical().noquote() << "Failed to open database:" << m_db.lastError().text();
        return false;
    }
    // WAL for crash safety of the one writer; a file system that cannot hold it keeps the default.
    QSqlQuery(QStringLiteral("PRAGMA journal_mode=WAL"), m_db);
    QSqlQuery(QStringLiteral("PRAGMA foreign_keys=ON"), m_db);
    m_isOpen = true;
    return true;
}

bool Database::runMigrations()
{
    QSqlQuery create(m_db);
    if (!create.exec(QString::fromLatin1(kSchemaVersionSql))) {
        qCritical().noquote() << "Failed to create schema_version table:" << create.lastError().text();
        return false;
    }

    QSqlQuery current(m_db);
    int currentVersion = 0;
    if (current.exec(QStringLiteral("SELECT MAX(version) FROM schema_version")) && current.next())
        currentVersion = current.value(0).toInt();

    for (const Migration &migration : kMigrations) {
        if (migration.version <= currentVersion)
            continue;
        const QString resource = QString::fromLatin1(migration.resource);
        QFile file(resource);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            const QString error = QStringLiteral("Cannot read migration file: %1").arg(resource);
            qCritical().noquote() << error;
            emit migrationError(migration.version, error);
            return false;
        }
        const QString sql = QString::fromUtf8(file.readAll());
        if (!applyMigration(migration.version, QString::fromLatin1(migration.name), sql))
            return false;
    }
    // The register reads one account in date order, then by entry time: this index serves that read
    // and the balance sums without a sort. It belongs to no schema version; a file without it (older,
    // or restored) gets it here, and nothing else depends on it.
    // A sync's pull looks up every row it has no client id for by its server id; without an index each
    // lookup reads the whole table, and a new device's first pull of a large household slows to a crawl.
    QStringList indexes{QStringLiteral("CREATE INDEX IF NOT EXISTS idx_transactions_account_date "
                                       "ON transactions(account_id, date, created_at)")};
    for (const char *table :
         {"accounts", "categories", "recurring_transactions", "transactions", "reconciliations"})
        indexes << QStringLiteral("CREATE INDEX IF NOT EXISTS idx_%1_server_id ON %1(server_id)")
                       .arg(QLatin1String(table));
    QSqlQuery index(m_db);
    for (const QString &sql : std::as_const(indexes)) {
        if (!index.exec(sql))
            qWarning().noquote() << "Database::runMigrations failed:" << index.lastError().text();
    }
    return true;
}

bool Database::applyMigration(int version, const QString &name, const QString &sql)
{
    m_db.transaction();
    const QStringList statements = splitStatements(sql);
    for (const QString &statement : statements) {
        QSqlQuery query(m_db);
        if (!query.exec(statement)) {
            const QString error = query.lastError().text();
            qCritical().noquote() << "Migration" << version << "failed:" << error
                                  << "\nStatement:" << statement.left(200);
            m_db.rollback();
            emit migrationError(version, error);
            return false;
        }
    }

    QSqlQuery record(m_db);
    record.prepare(QStringLiteral("INSERT INTO schema_version (version, name) VALUES (?, ?)"));
    record.addBindValue(version);
    record.addBindValue(name);
    if (!record.exec()) {
        const QString error = record.lastError().text();
        m_db.rollback();
        emit migrationError(version, error);
        return false;
    }

    m_db.commit();
    qInfo().noquote() << "Applied migration" << version << name;
    emit migrationApplied(version, name);
    return true;
}

QStringList Database::splitStatements(const QString &sql)
{
    QStringList statements;
    QString buffer;
    int depth = 0;
    const QStringList lines = sql.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QString t = line.trimmed();
        if (t.startsWith(QLatin1String("--")))
            continue;
        buffer += line + QLatin1Char('\n');
        const QString upper = t.toUpper();
        if (upper.contains(QLatin1String("BEGIN")))
            ++depth;
        if (upper.startsWith(QLatin1String("END")) && depth > 0)
            --depth;
        if (depth != 0 || !t.endsWith(QLatin1Char(';')))
            continue;
        flush(buffer, statements);
    }
    flush(buffer, statements);
    return statements;
}
