#pragma once

#include <QByteArrayList>
#include <QSqlDatabase>

// The pending rows of the five synced tables as change objects in compact JSON, written straight from
// the query's columns. A household's first sync has every row pending, and building a record and then
// a QJsonObject for each of 150,000 rows froze the window for seconds; text written once costs a
// fraction of that, and each batch is parsed back into JSON values only when it goes out.
//
// The payloads carry their keys in the order the server documents; booleans travel as 0 and 1, and
// server_id, deleted_at and a recurring rule's end_date are left out when they have no value. Dates and
// times go out as the date types write them, so a stored text in another form is normalised on the way.
class ChangeWriter {
public:
    // SQLite's own interface where the driver shares its library (much the faster), else Qt's driver.
    enum class Reader { Fastest, Driver };
    explicit ChangeWriter(const QSqlDatabase &db, Reader reader = Reader::Fastest);

    // Accounts, categories, recurring rules, transactions, reconciliations, each in its query's order.
    QByteArrayList pendingChanges() const;

private:
    QSqlDatabase m_db;
    Reader m_reader;
};
