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
    // The counters as "i3 d0 s0 m0 u0 t1 r0 f0 x0" in the order of their fields (x: split lines dropped),
    // and " aborted" when the import was rolled back, so that a result compares at once.
    static QString counts(const ImportResult &r)
    {
        return QStringLiteral("i%1 d%2 s%3 m%4 u%5 t%6 r%7 f%8 x%9")
                   .arg(r.imported)
                   .arg(r.duplicates)
                   .arg(r.skippedRecords)
                   .arg(r.metadataRecords)
                   .arg(r.unmappedRecords)
                   .arg(r.transfersLinked)
                   .arg(r.retroactiveLinks)
                   .arg(r.insertFailures)
                   .arg(r.splitLinesDropped) +
               (r.aborted ? QStringLiteral(" aborted") : QString());
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
