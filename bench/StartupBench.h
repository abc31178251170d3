#pragma once

#include <QString>

// The program started as a user starts it, on a household's data directory: the time from the
// process's start to the first paint of its main window, measured by the parent around a child that
// runs the program's own start-up and reports its first paint.
bool isStartupChild(int argc, char **argv);
int runStartupChild(int argc, char **argv);
// The median over runs in milliseconds, or a negative number when the program did not paint.
double measureStartupInChild(const QString &dataDirectory, int runs);
