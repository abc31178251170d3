#pragma once

#include <QString>

// One row of the import screen's mapping: a QIF account, or a whole file that names none.
struct QifSourceAccount {
    QString key; // the QIF account name, or the path of a file without account header
    QString displayName;
    bool noAccountHeader = false;
    qint32 suggestedType = 0; // an AccountType value
};
