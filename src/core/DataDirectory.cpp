#include "core/DataDirectory.h"

#include <QDir>
#include <QStandardPaths>

QString dataDirectory()
{
    // Whether the directory could be made is not checked here: opening the database then fails,
    // and that failure is the one the user is told about.
    const QString fromEnvironment = qEnvironmentVariable("OMBREL_DATA_DIR");
    if (!fromEnvironment.isEmpty()) {
        QDir().mkpath(fromEnvironment);
        return fromEnvironment;
    }
    const QString dir = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                        QStringLiteral("/Halcyra/Ombrel");
    if (!QDir(dir).exists())
        QDir().mkpath(dir);
    return dir;
}

QString databasePath()
{
    return dataDirectory() + QStringLiteral("/ombrel.db");
}
