#pragma once

#include <QString>

// What TransactionRepository::pauseSearchIndex took away, for resumeSearchIndex to put back.
struct SearchIndexPause {
    QString triggerSql;   // the insert trigger that feeds the full-text index, as the schema holds it
    qint64 lastRowId = 0; // rows above it were added during the pause
};
