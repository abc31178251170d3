#pragma once

#include "services/BackupImportMode.h"
#include "services/BackupImportResult.h"

#include <QByteArray>
#include <QObject>

class Database;

// Turns the six data tables into one portable ZIP archive in memory, and merges such an archive back.
// It works on tables and JSON objects, not on records, so a new column needs no change here.
//
// The archive holds one JSON object per row, "<folder>/<id>.json", with the keys in the order of the
// table's columns, and "manifest.json" last. A restore takes the tables parents first, resets every
// row's sync fields so that the server sees it as new, and lets each row stand or fall on its own.
class BackupService : public QObject {
    Q_OBJECT
public:
    // Bigger input is refused unread; the twenty-year household's backup is a tenth of it.
    static constexpr qint64 kMaxArchiveSize = qint64(1) << 30;

    explicit BackupService(Database *db, QObject *parent = nullptr);

    QByteArray exportToZip();
    BackupImportResult importFromZip(const QByteArray &data, BackupImportMode mode);

signals:
    // Every hundred rows of an export or a restore, for the progress dialog of the screen.
    void progress(qint64 done, qint64 total);

private:
    Database *m_db = nullptr;
};
