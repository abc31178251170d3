#pragma once

#include "services/QifAccountType.h"

#include <QString>

// An account that a parse found records under: the name as first spelled, the type then in force.
struct QifAccountRef {
    QString name;
    QifAccountType type = QifAccountType::Bank;
};
