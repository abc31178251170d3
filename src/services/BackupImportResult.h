#pragma once

#include <QStringList>

// The counters of one restore: per kind of row, what was written and what was left, and the errors.
struct BackupImportResult {
    qint32 accountsImported = 0;
    qint32 categoriesImported = 0;
    qint32 transactionsImported = 0;
    qint32 splitLinesImported = 0;
    qint32 recurringImported = 0;
    qint32 reconciliationsImported = 0;
    qint32 accountsSkipped = 0;
    qint32 categoriesSkipped = 0;
    qint32 transactionsSkipped = 0;
    qint32 splitLinesSkipped = 0;
    qint32 recurringSkipped = 0;
    qint32 reconciliationsSkipped = 0;
    QStringList errors;

    qint64 totalImported() const
    {
        return qint64(accountsImported) + categoriesImported + transactionsImported + splitLinesImported +
               recurringImported + reconciliationsImported;
    }
    qint64 totalSkipped() const
    {
        return qint64(accountsSkipped) + categoriesSkipped + transactionsSkipped + splitLinesSkipped +
               recurringSkipped + reconciliationsSkipped;
    }
};
