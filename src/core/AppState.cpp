#include "core/AppState.h"

#include "core/DataDirectory.h"
#include "data/Database.h"

#include <QDebug>

AppState::AppState(QObject *parent)
    : QObject(parent)
{
}

AppState::~AppState() = default;

bool AppState::initialize()
{
    m_database = new Database(this);
    const QString path = databasePath();
    qInfo().noquote() << "Opening database at:" << path;
    if (!m_database->open(path))
        return false;
    if (!m_database->runMigrations())
        return false;

    emit databaseReady();
    return true;
}
