#pragma once

#include <QString>

// Copies the household's database file into directory as "ombrel.db", with its write-ahead log when
// the last connection left one: rows committed since the last checkpoint live only there.
bool copyHousehold(const QString &databasePath, const QString &directory);
