#pragma once

#include <QObject>
#include <QSqlDatabase>
#include <QStringList>

// The one SQLite connection of the process, and the schema it is brought up to on start.
// Repositories make a fresh QSqlQuery on connection() for each call and keep none.
class Database : public QObject {
    Q_OBJECT
public:
    explicit Database(QObject *parent = nullptr);
    ~Database() override;

    bool open(const QString &path);
    bool runMigrations();
    QSqlDatabase &connection() { return m_db; }

    // One migration in one transaction: either all its statements and its schema_version row, or none.
    bool applyMigration(int version, const QString &name, const QString &sql);

    // Cuts a migration file into statements at the semicolons that end a line, keeping trigger bodies
    // whole by counting BEGIN and END lines. Whole-line "--" comments are dropped.
    static QStringList splitStatements(const QString &sql);

signals:
    void migrationApplied(int version, const QString &name);
    void migrationError(int version, const QString &error);

private:
    QSqlDatabase m_db;
    bool m_isOpen = false;
};
