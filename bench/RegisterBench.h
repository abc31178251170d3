#pragma once

#include <QString>
#include <QStringList>

// The register screen on a large account, driven in-process as a user would: opening the account to
// a painted table, and committing a new row to a repainted table with its new balance, on the screen
// alone and in the main window.
struct RegisterBenchResult {
    bool ok = false;
    double openMs = 0;
    double openRepositoryMs = 0;
    double commitMs = 0;
    double commitRepositoryMs = 0;
    // The same commit with the whole main window shown: its account list follows the change too.
    double windowCommitMs = 0;
    qint64 residentKiB = 0; // with the account open
};

RegisterBenchResult measureRegister(const QString &dataDirectory, const QString &accountId, int runs);

// The same measures in a process of their own, started from this program, so that the resident
// memory is the program's with the account open and not the generator's leftovers.
RegisterBenchResult measureRegisterInChild(const QString &dataDirectory, const QString &accountId, int runs);
bool isRegisterChild(const QStringList &arguments);
int runRegisterChild(const QStringList &arguments);
