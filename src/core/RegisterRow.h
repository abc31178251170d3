#pragma once

#include "core/Transaction.h"

// One line of the register: the transaction with what the register shows beside it.
struct RegisterRow : Transaction {
    qint64 runningBalance = 0; // the account's balance after this row; 0 where none was computed
    QString categoryName;
};

Q_DECLARE_TYPEINFO(RegisterRow, Q_RELOCATABLE_TYPE);
