#pragma once

#include <QSqlDatabase>
#include <QString>

namespace OmbrelServer {

// The server's one SQLite file, "server.db" in the data folder, and its migrations.
class ServerDatabase {
public:
    ServerDatabase();
    ~ServerDatabase();
    ServerDatabase(const ServerDatabase &) = delete;
    ServerDatabase &operator=(const ServerDatabase &) = delete;

    // Opens or creates the file and brings it to the newest schema; false (and a log line) on failure.
    bool open(const QString &path);
    QSqlDatabase connection() const { return m_db; }
    int schemaVersion() const;

    // The current UTC time as stored: ISO text with whole seconds and a Z.
    static QString now();

private:
    QString m_name;
    QSqlDatabase m_db;
};

} // namespace OmbrelServer
