#pragma once

#include <QDoubleSpinBox>

// A money amount in a form: two decimals, right-aligned, read the way the register reads amounts (an
// own currency symbol, grouping commas and a leading minus are fine). Typing the decimal point while the
// cursor is in the whole part jumps to the cents instead of being refused.
class SmartAmountField : public QDoubleSpinBox {
    Q_OBJECT
public:
    explicit SmartAmountField(QWidget *parent = nullptr);

    QValidator::State validate(QString &input, int &pos) const override;
    double valueFromText(const QString &text) const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString amountText(const QString &text) const;
};
