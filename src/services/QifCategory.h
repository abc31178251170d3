#pragma once

#include <QString>

struct QifCategory {
    QString name;
    QString description;
    bool isIncome = false;
};
