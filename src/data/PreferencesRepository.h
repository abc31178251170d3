#pragma once

#include <QObject>
#include <QString>

#include <optional>

class Database;

// Small settings kept in the database, so they travel with a backup of it. Values are text; booleans
// are "1" and "0", integers decimal text. Each read is a query: callers read at the moment of use.
class PreferencesRepository : public QObject {
    Q_OBJECT
public:
    explicit PreferencesRepository(Database *db, QObject *parent = nullptr);

    // Absent when there is no row; a NULL value is a present empty string.
    std::optional<QString> get(const QString &key) const;
    QString getOr(const QString &key, const QString &defaultValue) const;
    // True exactly for "1" and "true".
    bool getBool(const QString &key, bool defaultValue) const;

    bool set(const QString &key, const QString &value);
    bool setBool(const QString &key, bool value);
    bool setInt(const QString &key, int value);
    bool remove(const QString &key);

signals:
    void changed(const QString &key);

private:
    Database *m_db = nullptr;
};
