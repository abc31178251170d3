#pragma once

#include <QString>

struct QifSplit {
    QString category;
    QString transferAccount; // the name inside the brackets of an "S[...]" line
    QString memo;
    qint64 amount = 0; // cents
};
