#pragma once

#include "core/SplitLine.h"

#include <QList>
#include <QObject>

class Database;

// The lines that divide one transaction among categories. They stay on this device and are replaced
// whole when their transaction is saved, so this is the one repository that deletes rows.
class SplitLineRepository : public QObject {
    Q_OBJECT
public:
    explicit SplitLineRepository(Database *db, QObject *parent = nullptr);

    QList<SplitLine> getForTransaction(const QString &transactionId) const;
    bool insert(const SplitLine &line);
    bool deleteForTransaction(const QString &transactionId);
    // What saving a transaction's form does: its old lines go, and these come in under its id. There is
    // no update of a single line.
    void replaceForTransaction(const QString &transactionId, QList<SplitLine> lines);

private:
    Database *m_db = nullptr;
};
