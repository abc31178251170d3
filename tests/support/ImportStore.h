#pragma once

#include "services/ImportService.h"
#include "support/Fixtures.h"
#include "support/TempStore.h"

#include <QFile>
#include <QTemporaryDir>

// A store with the accounts "chk" and "sav", the import service over it, and a folder for the files it
// reads.
struct ImportStore : TempStore {
    ImportService service{&transactions, &categories, &splitLines};
    QTemporaryDir files;
    bool accountsOk = accounts.insert(Fixtures::account("chk", "My Checking")) &&
                      accounts.insert(Fixtures::account("sav", "My Savings"));

    QString writeBytes(const QString &name, const QByteArray &bytes)
    {
        const QString path = files.filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return {};
        file.write(bytes);
        return path;
    }
    QString write(const QString &name, const QString &text) { return writeBytes(name, text.toUtf8()); }
    QList<Transaction> rows(const QString &accountId) { return transactions.getByAccount(accountId); }
    QStringList payees(const QString &accountId)
    {
        QStringList out;
        for (const Transaction &t : rows(accountId))
            out << t.payee;
        return out;
    }
};
