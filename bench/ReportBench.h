#pragma once

#include <QString>

// The reports and the search screen on the heavy household, opened through the program's own
// start-up: each report's statement against the same statement on the SQLite C API, the reports
// screen's whole run over all time and all accounts, and one search screen query. Prints its own
// table. False when the household cannot be opened or a baseline's rows differ from the service's.
bool runReportBench(const QString &dataDirectory, const QString &databasePath, const QString &searchWord,
                    int runs);
