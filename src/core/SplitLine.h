#pragma once

#include <QDateTime>
#include <QString>

// Split lines stay on this device: no version and no sync columns.
struct SplitLine {
    QString id;
    QString transactionId;
    QString categoryId;
    qint64 amount = 0;
    QString memo;
    QDateTime createdAt;
    QDateTime updatedAt;
};
