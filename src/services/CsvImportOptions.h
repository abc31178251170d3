#pragma once

#include <QString>

// The columns the user mapped on the import screen; indexes count from 0.
struct CsvImportOptions {
    qint32 dateColumn = 0;
    qint32 payeeColumn = 1;
    qint32 amountColumn = 2;
    qint32 memoColumn = -1;     // -1: none
    qint32 categoryColumn = -1; // -1: none
    bool hasHeader = true;
    QString dateFormat; // empty: detect each date
};
