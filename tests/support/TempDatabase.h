#pragma once

#include "data/Database.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>

// A database file of its own in a fresh temporary directory, never the user's data directory.
class TempDatabase {
public:
    TempDatabase();

    // Opens the file; with migrate, also brings it to the current schema. False on any failure.
    bool open(bool migrate = true);
    Database *database() const { return m_database.get(); }
    // Closes the connection but keeps the file, so that the program (an AppState) can open it.
    void close() { m_database.reset(); }
    QString directory() const { return m_dir.path(); }
    QString path() const { return m_dir.filePath(QStringLiteral("ombrel.db")); }

    // Runs one statement, for setting up rows a test needs; fails the caller's QVERIFY on error.
    bool exec(const QString &sql);
    // The first column of the first row, or an invalid value.
    QVariant scalar(const QString &sql);

private:
    QTemporaryDir m_dir;
    std::unique_ptr<Database> m_database;
};
