#pragma once

#include <QComboBox>

// The combo box of the register's category cell: a type of its own so that the register's key handling
// can tell it from the combo boxes of the forms. Tab and Enter pass on to the delegate and the view.
class RegisterComboBox : public QComboBox {
    Q_OBJECT
public:
    using QComboBox::QComboBox;
};
