#pragma once

#include <QLineEdit>

// A line edit for the register and the forms. While its completer's list is open, Enter takes the
// highlighted suggestion and goes no further, so that the register does not also commit the row.
class RegisterLineEdit : public QLineEdit {
    Q_OBJECT
public:
    using QLineEdit::QLineEdit;

protected:
    bool event(QEvent *event) override;
};
