#pragma once

#include <QString>

// Where the database lives: $OMBREL_DATA_DIR when set, else the per-user data location with
// "/Halcyra/Ombrel". Evaluated anew at each call, and the directory is created if it is missing.
QString dataDirectory();

QString databasePath();
