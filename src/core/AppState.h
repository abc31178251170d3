#pragma once

#include <QObject>
#include <QString>

class Database;

// The composition root: owns the database and everything built on it, and is handed to every screen.
// Its objects are children of it, so they are destroyed in the order they were made, the database first.
class AppState : public QObject {
    Q_OBJECT
public:
    explicit AppState(QObject *parent = nullptr);
    ~AppState() override;

    // False when the database cannot be opened or migrated; the caller tells the user.
    bool initialize();

    Database *database() const { return m_database; }
    QString currentAccountId() const { return m_currentAccountId; }

signals:
    void currentAccountChanged(const QString &accountId);
    void databaseReady();

private:
    Database *m_database = nullptr;
    QString m_currentAccountId;
};
