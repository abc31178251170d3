#pragma once

#include <QString>

// How often a recurring rule falls due: 1, 7 or 14 days, or 1, 3, 6 or 12 months.
enum class Frequency {
    Daily = 0,
    Weekly = 1,
    Biweekly = 2,
    Monthly = 3,
    Quarterly = 4,
    SemiAnnual = 5,
    Annual = 6
};

QString frequencyToString(Frequency value);
Frequency frequencyFromString(const QString &text);
