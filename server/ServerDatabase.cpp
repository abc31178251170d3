#include "server/ServerDatabase.h"

#include <QDateTime>
#include <QDebug>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

#include <array>

namespace OmbrelServer {

namespace {

// Each migration is a list of statements run in one transaction; a version is never edited once
// released, only followed by another.
const std::array<const char *, 14> kVersion1 = {
    "CREATE TABLE users ("
    " id TEXT PRIMARY KEY, email TEXT NOT NULL UNIQUE COLLATE NOCASE, display_name TEXT NOT NULL,"
    " password_hash TEXT NOT NULL, language TEXT NOT NULL DEFAULT '', timezone TEXT NOT NULL DEFAULT '',"
    " status TEXT NOT NULL DEFAULT 'active', delete_after TEXT, created_at TEXT NOT NULL)",
    "CREATE TABLE sessions ("
    " id TEXT PRIMARY KEY, user_id TEXT NOT NULL REFERENCES users(id) ON DELETE CASCADE,"
    " user_agent TEXT NOT NULL, ip_address TEXT NOT NULL, created_at TEXT NOT NULL,"
    " last_active_at TEXT NOT NULL, ended_at TEXT)",
    "CREATE TABLE refresh_tokens ("
    " token_hash TEXT PRIMARY KEY, session_id TEXT NOT NULL REFERENCES sessions(id) ON DELETE CASCADE,"
    " replaced INTEGER NOT NULL DEFAULT 0, created_at TEXT NOT NULL)",
    "CREATE TABLE family_groups (id TEXT PRIMARY KEY, name TEXT NOT NULL, created_at TEXT NOT NULL)",
    "CREATE TABLE group_members ("
    " user_id TEXT PRIMARY KEY REFERENCES users(id) ON DELETE CASCADE,"
    " group_id TEXT NOT NULL REFERENCES family_groups(id) ON DELETE CASCADE,"
    " role TEXT NOT NULL, joined_at TEXT NOT NULL)",
    "CREATE TABLE invitations ("
    " id TEXT PRIMARY KEY, group_id TEXT NOT NULL REFERENCES family_groups(id) ON DELETE CASCADE,"
    " invited_email TEXT NOT NULL, invite_code TEXT NOT NULL UNIQUE, status TEXT NOT NULL,"
    " expires_at TEXT NOT NULL, created_at TEXT NOT NULL)",
    "CREATE TABLE devices ("
    " id TEXT PRIMARY KEY, user_id TEXT NOT NULL REFERENCES users(id) ON DELETE CASCADE,"
    " device_fingerprint TEXT NOT NULL, device_name TEXT NOT NULL, platform TEXT NOT NULL,"
    " app_id TEXT NOT NULL, app_version TEXT NOT NULL, last_sync_at TEXT, created_at TEXT NOT NULL,"
    " UNIQUE (user_id, device_fingerprint))",
    // One row per owner and client id. seq is the server-wide change number of the row's last write;
    // account_id is the account a row belongs to (an account: itself; a category: none).
    "CREATE TABLE sync_rows ("
    " owner_id TEXT NOT NULL, entity_type TEXT NOT NULL, client_id TEXT NOT NULL,"
    " server_id TEXT NOT NULL, account_id TEXT, version INTEGER NOT NULL,"
    " deleted INTEGER NOT NULL, seq INTEGER NOT NULL, author_id TEXT NOT NULL, payload TEXT NOT NULL,"
    " updated_at TEXT NOT NULL, PRIMARY KEY (owner_id, entity_type, client_id))",
    "CREATE INDEX sync_rows_by_owner ON sync_rows (owner_id, seq)",
    "CREATE INDEX sync_rows_by_account ON sync_rows (owner_id, account_id, seq)",
    "CREATE TABLE shares ("
    " id TEXT PRIMARY KEY, owner_id TEXT NOT NULL, account_id TEXT NOT NULL, member_id TEXT NOT NULL,"
    " role TEXT NOT NULL, active INTEGER NOT NULL, granted_seq INTEGER NOT NULL, created_at TEXT NOT NULL,"
    " UNIQUE (owner_id, account_id, member_id))",
    "CREATE INDEX shares_by_member ON shares (member_id, active)",
    "CREATE INDEX sessions_by_user ON sessions (user_id)",
    "CREATE INDEX refresh_tokens_by_session ON refresh_tokens (session_id)",
};

bool exec(QSqlDatabase &db, const QString &sql)
{
    QSqlQuery q(db);
    if (q.exec(sql))
        return true;
    qWarning().noquote() << "ServerDatabase::open failed:" << q.lastError().text();
    return false;
}

} // namespace

ServerDatabase::ServerDatabase()
    : m_name(QStringLiteral("ombrel-server-") + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
}

ServerDatabase::~ServerDatabase()
{
    m_db.close();
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

bool ServerDatabase::open(const QString &path)
{
    m_db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
    m_db.setDatabaseName(path);
    if (!m_db.open()) {
        qWarning().noquote() << "ServerDatabase::open failed:" << m_db.lastError().text();
        return false;
    }
    if (!exec(m_db, QStringLiteral("PRAGMA journal_mode=WAL")) ||
        !exec(m_db, QStringLiteral("PRAGMA synchronous=NORMAL")) ||
        // A household's whole index of client ids stays in memory: their random order makes every
        // push touch pages all over it.
        !exec(m_db, QStringLiteral("PRAGMA cache_size=-131072")) ||
        !exec(m_db, QStringLiteral("PRAGMA mmap_size=1073741824")) ||
        !exec(m_db, QStringLiteral("PRAGMA foreign_keys=ON")) ||
        !exec(m_db, QStringLiteral("CREATE TABLE IF NOT EXISTS schema_version ("
                                   " version INTEGER PRIMARY KEY, applied_at TEXT NOT NULL)")))
        return false;

    struct Migration {
        int version;
        const char *const *statements;
        size_t count;
    };
    const std::array migrations{
        Migration{1, kVersion1.data(), kVersion1.size()}
    };
    for (const Migration &m : migrations) {
        if (schemaVersion() >= m.version)
            continue;
        m_db.transaction();
        bool ok = true;
        for (size_t i = 0; ok && i < m.count; ++i)
            ok = exec(m_db, QString::fromLatin1(m.statements[i]));
        QSqlQuery q(m_db);
        q.prepare(QStringLiteral("INSERT INTO schema_version (version, applied_at) VALUES (?, ?)"));
        q.addBindValue(m.version);
        q.addBindValue(now());
        ok = ok && q.exec();
        if (!ok || !m_db.commit()) {
            m_db.rollback();
            qWarning().noquote() << "ServerDatabase::open failed: migration" << m.version;
            return false;
        }
    }
    return true;
}

int ServerDatabase::schemaVersion() const
{
    QSqlQuery q(m_db);
    if (!q.exec(QStringLiteral("SELECT MAX(version) FROM schema_version")) || !q.next())
        return 0;
    return q.value(0).toInt();
}

QString ServerDatabase::now()
{
    return QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
}

} // namespace OmbrelServer
