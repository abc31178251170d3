#pragma once

#include "services/QifSplit.h"

#include <QDate>
#include <QList>
#include <QString>

struct QifTransaction {
    QDate date;
    QString payee;
    qint64 amount = 0; // cents
    QString memo;
    QString category;        // the "L" line when it is no bracket, its class dropped
    QString transferAccount; // the name inside the brackets of an "L[...]" line
    QString checkNumber;     // on an investment record, the action
    QString security;
    bool cleared = false;
    bool reconciled = false;
    QList<QifSplit> splits; // in file order
    QString sourceAccount;  // the account header in force when the record ended; empty for none
};
