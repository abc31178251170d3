#pragma once

#include <QDate>
#include <QString>

#include <optional>

// What narrows a search besides its text; an empty or invalid field does not narrow.
struct TransactionSearchFilter {
    QString accountId;
    QString categoryId;
    QDate dateFrom;
    QDate dateTo;
    std::optional<bool> cleared;
};
