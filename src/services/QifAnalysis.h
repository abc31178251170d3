#pragma once

#include "services/QifSourceAccount.h"

#include <QList>

struct QifAnalysis {
    QList<QifSourceAccount> sources;
    qint32 transactionCount = 0;
};
