#pragma once

#include "services/QifSourceAccount.h"

#include <QList>
#include <QStringList>

struct QifAnalysis {
    QList<QifSourceAccount> sources;
    qint32 transactionCount = 0;
    QStringList refusedFiles; // as in ImportResult: files that are no text to import
};
