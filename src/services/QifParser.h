#pragma once

#include "services/QifAccountType.h"
#include "services/QifDateOrder.h"
#include "services/QifParseResult.h"
#include "services/QifSection.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

// Reads one QIF text into plain records. It touches no database and never fails: what it cannot read
// is counted, as a skipped record, and the rest goes on.
class QifParser {
public:
    static QifParseResult parse(const QString &text, QifDateOrder order = QifDateOrder::Auto);

    // The pieces, public for their tests.

    // DayFirst as soon as one "D" line's first number is above 12, anywhere in the file; otherwise
    // MonthFirst. Lines are as cut from the text, before any trimming.
    static QifDateOrder detectDateOrder(const QList<QStringView> &lines);
    // Invalid when the value is no date. Auto reads day first only when the first number is above 12.
    static QDate parseDate(QStringView value, QifDateOrder order);
    // Cents. Reads "1,234.56", "1.234,56", "(12.00)", "$-5", "1 234"; no locale is consulted.
    static std::optional<qint64> parseAmount(QStringView value);
    static QifSection sectionOf(QStringView headerLine);
    static QifAccountType accountTypeOf(QStringView headerLine);
};
