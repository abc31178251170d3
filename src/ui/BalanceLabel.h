#pragma once

#include <QLabel>

// The label a balance stands in: a type of its own so that a style sheet or a test can pick it out.
class BalanceLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;
};
