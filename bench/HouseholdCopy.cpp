#include "HouseholdCopy.h"

#include <QDir>
#include <QFile>

bool copyHousehold(const QString &databasePath, const QString &directory)
{
    const QString target = QDir(directory).filePath(QStringLiteral("ombrel.db"));
    if (!QFile::copy(databasePath, target))
        return false;
    const QString log = databasePath + QStringLiteral("-wal");
    return !QFile::exists(log) || QFile::copy(log, target + QStringLiteral("-wal"));
}
