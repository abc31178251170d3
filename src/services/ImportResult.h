#pragma once

#include <QStringList>
#include <QtGlobal>

// The counters of one import, CSV or QIF; the import screen prints each that is not 0.
struct ImportResult {
    qint32 imported = 0;
    qint32 duplicates = 0;
    qint32 skippedRecords = 0;   // no valid date or amount
    qint32 metadataRecords = 0;  // QIF records that are no transactions
    qint32 unmappedRecords = 0;  // QIF records whose source account has no target
    qint32 transfersLinked = 0;  // pairs within the import plus retroactive links
    qint32 retroactiveLinks = 0; // links to rows of an earlier import
    qint32 insertFailures = 0;
    qint32 splitLinesDropped = 0; // split lines without a category, which the database does not keep
    bool aborted = false;         // rolled back: nothing of the import remains
    QStringList refusedFiles;     // one sentence for each file left out whole: it is no text to import
};
