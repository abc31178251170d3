#include "data/SplitLineRepository.h"

#include "data/Database.h"
#include "data/SqlValues.h"

#include <QSqlQuery>

using namespace SqlValues;

SplitLineRepository::SplitLineRepository(Database *db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

QList<SplitLine> SplitLineRepository::getForTransaction(const QString &transactionId) const
{
    QList<SplitLine> lines;
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT id, transaction_id, category_id, amount, memo, created_at, updated_at "
                             "FROM split_lines WHERE transaction_id = ?"));
    q.addBindValue(transactionId);
    if (!q.exec())
        return lines;
    while (q.next()) {
        SplitLine line;
        line.id = q.value(0).toString();
        line.transactionId = q.value(1).toString();
        line.categoryId = q.value(2).toString();
        line.amount = q.value(3).toLongLong();
        line.memo = q.value(4).toString();
        line.createdAt = timestampAt(q, 5);
        line.updatedAt = timestampAt(q, 6);
        lines.append(line);
    }
    return lines;
}

bool SplitLineRepository::insert(const SplitLine &line)
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("INSERT INTO split_lines (id, transaction_id, category_id, amount, memo, created_at, "
                       "updated_at) VALUES (?, ?, ?, ?, ?, ?, ?)"));
    q.addBindValue(line.id);
    q.addBindValue(line.transactionId);
    // As it stands: a line without a category must fail on the NOT NULL, not pass as "".
    q.addBindValue(line.categoryId);
    q.addBindValue(line.amount);
    q.addBindValue(text(line.memo));
    q.addBindValue(timestamp(line.createdAt));
    q.addBindValue(timestamp(line.updatedAt));
    return execLogged(q, "SplitLineRepository::insert");
}

bool SplitLineRepository::deleteForTransaction(const QString &transactionId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("DELETE FROM split_lines WHERE transaction_id = ?"));
    q.addBindValue(transactionId);
    return q.exec();
}

void SplitLineRepository::replaceForTransaction(const QString &transactionId, QList<SplitLine> lines)
{
    deleteForTransaction(transactionId);
    for (SplitLine &line : lines) {
        line.transactionId = transactionId;
        insert(line);
    }
}
